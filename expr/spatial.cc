#include "expr/spatial.h"

namespace fdo::internal {
namespace {

template <class Ask>
bool FalseWhenItFails(Ask ask) {
  try {
    return ask();
  } catch (FdoException* raised) {
    FdoPtr<FdoException> const failure(raised);
    return false;
  }
}

}  // namespace

FdoIGeometry* GeometryOf(Value const& value) {
  FdoPtr<FdoFgfGeometryFactory> const factory = FdoFgfGeometryFactory::GetInstance();
  unsigned char const* const fgf = value.AsBlob();
  // What is no blob may have anything for a length.
  return factory->CreateGeometryFromFgf(fgf, fgf == nullptr ? 0 : value.BlobLen());
}

bool IsInRelation(FdoIGeometry* left, long long operation, FdoIGeometry* right) {
  if (operation < FdoSpatialOperations_Contains || operation > FdoSpatialOperations_EnvelopeIntersects) {
    return false;  // as what fails; not even the type has a place for every such number
  }
  return FalseWhenItFails(
      [&] { return FdoSpatialUtility::Evaluate(left, static_cast<FdoSpatialOperations>(operation), right); });
}

bool IsWithinDistance(FdoIGeometry* left, FdoIGeometry* right, double distance) {
  return FalseWhenItFails([&] {
    // What is nearer than the tolerance intersects.
    return distance > 0 ? FdoSpatialUtility::Evaluate(left, FdoSpatialOperations_Intersects, right, distance)
                        : FdoSpatialUtility::Evaluate(left, FdoSpatialOperations_Intersects, right);
  });
}

bool IsEmpty(FdoIGeometry* geometry) {
  FdoPtr<FdoIEnvelope> const box = geometry->GetEnvelope();
  return box == nullptr || box->GetIsEmpty();
}

}  // namespace fdo::internal
