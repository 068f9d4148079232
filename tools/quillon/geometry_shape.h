// What a geometry is, whatever form a format gives it: two streams compare as the same shape when only
// the start or the direction of rings, the order of parts, or the collection around a single part
// differ.
#ifndef TOOLS_QUILLON_GEOMETRY_SHAPE_H_
#define TOOLS_QUILLON_GEOMETRY_SHAPE_H_

#include <fdo/value.h>

#include <cstdint>
#include <vector>

namespace fdo::tool {

// A point, a line, or a ring, with its positions as they come.
struct ShapePath {
  enum Kind : int { kPoint, kLine, kOuterRing, kInnerRing };

  Kind kind;
  bool hasZ, hasM;
  std::vector<int> segments;      // of curves: type and number of positions, in turn
  std::vector<double> ordinates;  // X, Y, and Z and M as far as there are any
};

using Shape = std::vector<ShapePath>;

// The parts of a geometry, each ring from its least position on in the direction that makes it least,
// parts in order of their positions.
// Errors: throws FdoException* for a broken stream.
Shape CanonicalShape(Value const& geometry);

// The same without an ordinate.
Shape WithoutZ(Shape shape);
Shape WithoutM(Shape shape);

bool HasZ(Shape const& shape);
bool HasM(Shape const& shape);
bool HasOnlyZeroZ(Shape const& shape);

// Whether all ordinates are the same numbers; not-a-number is the same as itself.
bool SameShape(Shape const& left, Shape const& right);

// The largest difference of an ordinate, or a negative number when the shapes differ in more than
// their ordinates.
double LargestDeviation(Shape const& left, Shape const& right);

// The largest absolute ordinate that is finite.
double LargestOrdinate(Shape const& shape);

std::uint64_t HashShape(Shape const& shape);

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_GEOMETRY_SHAPE_H_
