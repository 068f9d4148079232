#ifndef VALUES_VALUE_TEST_PEER_H_
#define VALUES_VALUE_TEST_PEER_H_

#include <fdo/value.h>

namespace fdo {

// What only the library's own parts do with a Value.
class ValueTestPeer {
 public:
  static bool IsConsistent(Value const& value) { return value.IsConsistent(); }
  static void ShallowCopy(Value& target, Value const& source) { target.ShallowCopy(source); }
  static wchar_t const* CachedText(Value const& value) { return value.CachedStringPtr(); }
};

}  // namespace fdo

#endif  // VALUES_VALUE_TEST_PEER_H_
