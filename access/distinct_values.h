#ifndef ACCESS_DISTINCT_VALUES_H_
#define ACCESS_DISTINCT_VALUES_H_

#include <fdo/value.h>

#include <cstddef>
#include <set>
#include <vector>

namespace fdo::internal {

// Adds values to an ordered set, with a shortcut for those that were added a moment ago: columns
// repeat themselves, and a comparison of bits costs far less than a walk down the tree.
// Borrowed: the set; nothing may be taken out of it while this object lives.
class DistinctValues {
 public:
  explicit DistinctValues(std::set<Value>& values) : values_(values), recent_(kRecentSlots) {}

  // Adds a copy of the value unless one that compares equal is there. Copies nothing otherwise.
  void Add(Value const& value);

 private:
  // A slot for each hash; the last value of that hash stays in it.
  static constexpr std::size_t kRecentSlots = 4096;

  std::set<Value>& values_;
  std::vector<Value const*> recent_;  // elements of values_
};

}  // namespace fdo::internal

#endif  // ACCESS_DISTINCT_VALUES_H_
