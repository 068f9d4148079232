// FdoSpatialUtility::ValidateGeometryByType.
#include <algorithm>

#include "FdoSpatial.h"
#include "sdk/runtime/spatial/fgf_rewrite.h"

using namespace fdo_sdk;

namespace {

template <class Type>
struct Allowed {
  Type const* types;
  FdoInt32 count;

  bool Has(FdoInt32 type) const {
    return std::any_of(types, types + count,
                       [type](Type each) { return static_cast<FdoInt32>(each) == type; });
  }
};

// Notes whether all types are allowed, as they are and with straight lines for arcs.
class ValiditySink : public FgfSink {
 public:
  ValiditySink(Allowed<FdoGeometryType> types, Allowed<FdoGeometryComponentType> components)
      : types_(types), components_(components) {}

  bool AsItIs() const { return asItIs_; }
  bool Straightened() const { return straightened_; }

  // The parts of a homogeneous type are not asked for: the type speaks for them.
  void BeginGeometry(FgfHead const& head) {
    if (homogeneousParts_ > 0) {
      --homogeneousParts_;
    } else {
      asItIs_ = asItIs_ && types_.Has(head.type);
      straightened_ = straightened_ && types_.Has(StraightTypeOf(head.type));
    }
    if (head.dimensionality < 0 && head.type != FdoGeometryType_MultiGeometry) homogeneousParts_ = head.count;
    isCurved_ = head.type == FdoGeometryType_CurvePolygon;
  }

  void BeginRing(FdoInt32) {
    bool const linear = components_.Has(FdoGeometryComponentType_LinearRing);
    asItIs_ = asItIs_ && (isCurved_ ? components_.Has(FdoGeometryComponentType_Ring) : linear);
    straightened_ = straightened_ && linear;
  }

  void Arc(PositionSpan const&, PositionSpan const&) {
    asItIs_ = asItIs_ && components_.Has(FdoGeometryComponentType_CircularArcSegment);
  }
  void Line(PositionSpan const&, PositionSpan const&) {
    asItIs_ = asItIs_ && components_.Has(FdoGeometryComponentType_LineStringSegment);
  }

 private:
  Allowed<FdoGeometryType> types_;
  Allowed<FdoGeometryComponentType> components_;
  FdoInt32 homogeneousParts_ = 0;
  bool isCurved_ = false;
  bool asItIs_ = true;
  bool straightened_ = true;
};

}  // namespace

FdoSpatialGeometryValidity FdoSpatialUtility::ValidateGeometryByType(
    FdoIGeometry* geometry, FdoInt32 geometryTypesCount, FdoGeometryType* geometryTypes,
    FdoInt32 geometryComponentTypesCount, FdoGeometryComponentType* geometryComponentTypes,
    FdoInt32 dimensionality) {
  ValiditySink sink({geometryTypes, geometryTypesCount},
                    {geometryComponentTypes, geometryComponentTypesCount});
  WalkGeometry(geometry, sink);
  if (!sink.AsItIs() && !sink.Straightened()) return FdoSpatialGeometryValidity_Invalid;
  if ((geometry->GetDimensionality() & ~dimensionality) != 0) {
    return FdoSpatialGeometryValidity_InvalidDueToDimensionality;
  }
  return sink.AsItIs() ? FdoSpatialGeometryValidity_Valid
                       : FdoSpatialGeometryValidity_InvalidButCanBeApproximated;
}
