// FdoICurveSegmentAbstract is the base of the pieces of curve strings and rings. A segment is no geometry.
#ifndef GEOMETRY_I_CURVE_SEGMENT_ABSTRACT_H_
#define GEOMETRY_I_CURVE_SEGMENT_ABSTRACT_H_

#include "Common/GeometryType.h"
#include "Geometry/IDirectPosition.h"
#include "Geometry/IEnvelope.h"

class FdoICurveSegmentAbstract : public FdoIDisposable {
 public:
  // Give: one reference. Errors: a position of a segment that has none throws FdoException*.
  virtual FdoIEnvelope* GetEnvelope() const = 0;
  virtual FdoIDirectPosition* GetStartPosition() const = 0;
  virtual FdoIDirectPosition* GetEndPosition() const = 0;

  virtual bool GetIsClosed() const = 0;

  // To reach what a type adds, cast down after this.
  virtual FdoGeometryComponentType GetDerivedType() const = 0;

  // Bits of FdoDimensionality.
  virtual FdoInt32 GetDimensionality() const = 0;
};

class FdoCurveSegmentCollection : public FdoCollection<FdoICurveSegmentAbstract, FdoException> {
 public:
  // Gives: one reference.
  static FdoCurveSegmentCollection* Create() { return new FdoCurveSegmentCollection(); }

 protected:
  FdoCurveSegmentCollection() {}
  ~FdoCurveSegmentCollection() override {}
  void Dispose() override { delete this; }
};

#endif  // GEOMETRY_I_CURVE_SEGMENT_ABSTRACT_H_
