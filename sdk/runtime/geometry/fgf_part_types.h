// The geometries that are made of complete geometries.
#ifndef SDK_RUNTIME_GEOMETRY_FGF_PART_TYPES_H_
#define SDK_RUNTIME_GEOMETRY_FGF_PART_TYPES_H_

#include "sdk/runtime/geometry/fgf_geometry.h"
#include "sdk/runtime/geometry/part_offsets.h"

namespace fdo_sdk {

// Where the parts lie, for all of them.
class PartList {
 public:
  FdoInt32 Count(FgfBytes const& bytes) const;
  // Gives: one reference. Errors: throws FdoException* for a part that is not there.
  FdoIGeometry* Item(FgfBytes const& bytes, FdoInt32 index) const;

 private:
  PartOffsets offsets_;
};

template <class Interface, class Part>
class FgfParts final : public FgfGeometry<Interface> {
 public:
  using FgfGeometry<Interface>::FgfGeometry;

  FdoInt32 GetCount() const override { return parts_.Count(this->Bytes()); }
  Part* GetItem(FdoInt32 index) const override {
    return static_cast<Part*>(parts_.Item(this->Bytes(), index));
  }

 private:
  PartList parts_;
};

using FgfMultiLineString = FgfParts<FdoIMultiLineString, FdoILineString>;
using FgfMultiPolygon = FgfParts<FdoIMultiPolygon, FdoIPolygon>;
using FgfMultiGeometry = FgfParts<FdoIMultiGeometry, FdoIGeometry>;
using FgfMultiCurveString = FgfParts<FdoIMultiCurveString, FdoICurveString>;
using FgfMultiCurvePolygon = FgfParts<FdoIMultiCurvePolygon, FdoICurvePolygon>;

class FgfMultiPoint final : public FgfGeometry<FdoIMultiPoint> {
 public:
  using FgfGeometry::FgfGeometry;

  FdoInt32 GetCount() const override { return parts_.Count(Bytes()); }
  FdoIPoint* GetItem(FdoInt32 index) const override {
    return static_cast<FdoIPoint*>(parts_.Item(Bytes(), index));
  }
  double const* GetOrdinates() override;

 private:
  PartList parts_;
  std::unique_ptr<double[]> ordinates_;
};

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_GEOMETRY_FGF_PART_TYPES_H_
