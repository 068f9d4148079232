// FdoIGeometry is the base of all geometries.
#ifndef GEOMETRY_I_GEOMETRY_H_
#define GEOMETRY_I_GEOMETRY_H_

#include "Common/Collection.h"
#include "Common/Dimensionality.h"
#include "Common/GeometryType.h"
#include "Geometry/IEnvelope.h"

// A geometry never changes. To reach what a type adds, cast down after GetDerivedType().
// Threads: one at a time, like every counted object; the geometries of FdoFgfGeometryFactory may be read
// by several through FdoSpatialUtility::Evaluate.
class FdoIGeometry : public FdoIDisposable {
 public:
  // Gives: one reference, which may keep the geometry alive. The box is that of the curve itself where arcs
  // bulge beyond their positions.
  virtual FdoIEnvelope* GetEnvelope() const = 0;

  // Bits of FdoDimensionality; of a geometry of parts, all that any part has.
  virtual FdoInt32 GetDimensionality() const = 0;

  virtual FdoGeometryType GetDerivedType() const = 0;

  // FGF text. Borrowed: while the geometry lives.
  virtual FdoString* GetText() = 0;
};

class FdoGeometryCollection : public FdoCollection<FdoIGeometry, FdoException> {
 public:
  // Gives: one reference.
  static FdoGeometryCollection* Create() { return new FdoGeometryCollection(); }

 protected:
  FdoGeometryCollection() {}
  ~FdoGeometryCollection() override {}
  void Dispose() override { delete this; }
};

#endif  // GEOMETRY_I_GEOMETRY_H_
