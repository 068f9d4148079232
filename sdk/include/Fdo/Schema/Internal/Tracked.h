// What an element of a schema needs to take its changes back.
#ifndef FDO_SCHEMA_INTERNAL_TRACKED_H_
#define FDO_SCHEMA_INTERNAL_TRACKED_H_

#include <memory>

namespace FdoInternal {

// A value with the copy that was accepted last, which exists from the first change on.
template <class Value>
struct Tracked {
  void Keep() {
    if (!accepted) accepted.reset(new Value(current));
  }
  void Accept() { accepted.reset(); }
  void Reject() {
    if (accepted) current = *accepted;
    accepted.reset();
  }

  Value const* operator->() const { return std::addressof(current); }

  Value current{};
  std::unique_ptr<Value> accepted;
};

}  // namespace FdoInternal

#endif  // FDO_SCHEMA_INTERNAL_TRACKED_H_
