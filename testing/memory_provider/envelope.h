// Rectangles around geometries.
#ifndef TESTING_MEMORY_PROVIDER_ENVELOPE_H_
#define TESTING_MEMORY_PROVIDER_ENVELOPE_H_

#include <limits>

#include "Fdo.h"

namespace memory_provider {

// Units: those of the geometry, X and Y only; inverted when empty.
struct Envelope {
  double minX = std::numeric_limits<double>::max();
  double minY = std::numeric_limits<double>::max();
  double maxX = std::numeric_limits<double>::lowest();
  double maxY = std::numeric_limits<double>::lowest();

  bool IsEmpty() const { return minX > maxX; }
  // Whether they share a point; an empty one meets nothing.
  bool Meets(Envelope const& other) const;
  void Include(Envelope const& other);
};

// Errors: FdoException* for bytes that are no geometry.
Envelope EnvelopeOf(FdoGeometryValue& geometry);

// Gives: one reference, a two-dimensional polygon whose first point is the least corner and whose third is
// the greatest.
FdoByteArray* PolygonOf(Envelope const& envelope);

}  // namespace memory_provider

#endif  // TESTING_MEMORY_PROVIDER_ENVELOPE_H_
