// PartOffsets finds the nth ring, segment or part of a geometry without reading the ones before it again.
#ifndef SDK_RUNTIME_GEOMETRY_PART_OFFSETS_H_
#define SDK_RUNTIME_GEOMETRY_PART_OFFSETS_H_

#include <vector>

#include "sdk/runtime/geometry/fgf_bytes.h"

namespace fdo_sdk {

// Filled up to what was asked for. Threads: one at a time, also for const use.
class PartOffsets {
 public:
  // Gives the offset of the part that is asked for. The first begins at first; step(offset) gives the
  // offset after the part at offset.
  template <class Step>
  std::size_t Find(FdoInt32 index, std::size_t first, Step step) const {
    if (offsets_.empty()) offsets_.push_back(first);
    std::size_t const wanted = static_cast<std::size_t>(index);
    while (offsets_.size() <= wanted) offsets_.push_back(step(offsets_.back()));
    return offsets_[wanted];
  }

 private:
  mutable std::vector<std::size_t> offsets_;
};

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_GEOMETRY_PART_OFFSETS_H_
