// Controls for the benchmarks: the same work as the checked routines, written by hand for XY and XYZ
// streams that are known to be sound, without any check. What the checked routines cost is told by the
// ratio of both.
#ifndef GEOMETRY_UNCHECKED_LOOPS_H_
#define GEOMETRY_UNCHECKED_LOOPS_H_

#include <cstddef>

namespace fdo {

// Types 1 to 6. Returns the position after the geometry.
unsigned char const* UncheckedBox(unsigned char const* fgf, double box[4]);

// Types 1 to 6 in XY. Returns the bytes written.
std::size_t UncheckedFgfToWkb(unsigned char const* fgf, unsigned char* out);
std::size_t UncheckedWkbToFgf(unsigned char const* wkb, unsigned char* out);

}  // namespace fdo

#endif  // GEOMETRY_UNCHECKED_LOOPS_H_
