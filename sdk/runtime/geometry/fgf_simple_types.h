// Points, line strings and polygons, and the rings that polygons give out.
#ifndef SDK_RUNTIME_GEOMETRY_FGF_SIMPLE_TYPES_H_
#define SDK_RUNTIME_GEOMETRY_FGF_SIMPLE_TYPES_H_

#include "sdk/runtime/geometry/fgf_geometry.h"
#include "sdk/runtime/geometry/part_offsets.h"

namespace fdo_sdk {

class FgfPoint final : public FgfGeometry<FdoIPoint> {
 public:
  FgfPoint(FgfBytes&& bytes, FgfScan const& scan);

  FdoIDirectPosition* GetPosition() const override;
  void GetPositionByMembers(double* x, double* y, double* z, double* m,
                            FdoInt32* dimensionality) const override;
  double const* GetOrdinates() override;
  FdoInt32 Release() override;

 protected:
  // Keeps the object for the next point where it can, see kept_points.cc.
  void Dispose() override;

 private:
  friend class PointMaker;

  PositionSpan Position() const { return {Bytes().data + kPointHead, 1, Scan().dimensionality}; }

  LentOrdinates lent_;
  bool const isPlain_;  // in XY and of borrowed bytes
};

class FgfLineString final : public FgfGeometry<FdoILineString> {
 public:
  FgfLineString(FgfBytes bytes, FgfScan const& scan);

  FdoIDirectPosition* GetStartPosition() const override { return run_.Item(0); }
  FdoIDirectPosition* GetEndPosition() const override { return run_.Last(); }
  bool GetIsClosed() const override { return run_.IsClosed(); }
  FdoInt32 GetCount() const override { return run_.Count(); }
  FdoIDirectPosition* GetItem(FdoInt32 index) const override { return run_.Item(index); }
  void GetItemByMembers(FdoInt32 index, double* x, double* y, double* z, double* m,
                        FdoInt32* dimensionality) const override;
  FdoDirectPositionCollection* GetPositions() override { return run_.Items(); }
  double const* GetOrdinates() override { return run_.Ordinates(lent_); }

 private:
  PositionRun run_;
  LentOrdinates lent_;
};

// A ring of a polygon, in the polygon's bytes, or one of its own: a count and positions.
class FgfLinearRing final : public FdoILinearRing {
 public:
  // Requires: bytes begin with a checked ring.
  FgfLinearRing(FgfBytes bytes, FdoInt32 dimensionality);

  FdoIEnvelope* GetEnvelope() const override { return MakeEnvelope(run_.Box()); }
  FdoInt32 GetDimensionality() const override { return run_.Dimensionality(); }
  FdoInt32 GetCount() const override { return run_.Count(); }
  FdoIDirectPosition* GetItem(FdoInt32 index) const override { return run_.Item(index); }
  void GetItemByMembers(FdoInt32 index, double* x, double* y, double* z, double* m,
                        FdoInt32* dimensionality) const override;
  FdoDirectPositionCollection* GetPositions() override { return run_.Items(); }
  double const* GetOrdinates() override { return run_.Ordinates(lent_); }

  PositionSpan const& Positions() const { return run_.Rest(); }

 protected:
  void Dispose() override { delete this; }

 private:
  FgfBytes bytes_;
  PositionRun run_;
  LentOrdinates lent_;
};

class FgfPolygon final : public FgfGeometry<FdoIPolygon> {
 public:
  using FgfGeometry::FgfGeometry;

  FdoILinearRing* GetExteriorRing() const override { return Ring(0); }
  FdoInt32 GetInteriorRingCount() const override;
  FdoILinearRing* GetInteriorRing(FdoInt32 index) const override;

 private:
  FdoILinearRing* Ring(FdoInt32 index) const;

  PartOffsets offsets_;
};

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_GEOMETRY_FGF_SIMPLE_TYPES_H_
