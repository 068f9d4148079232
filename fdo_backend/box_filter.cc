#include "fdo_backend/box_filter.h"

#include <cstdint>

#include "geometry/unaligned.h"

namespace fdo::internal {
namespace {

constexpr std::int32_t kPolygonHeader[] = {3, 0, 1, 5};  // a polygon, XY, of one ring of five positions
constexpr int kCorners = 5;
constexpr int kPolygonBytes = sizeof(kPolygonHeader) + kCorners * 2 * sizeof(double);
static_assert(kPolygonBytes == 96);

FdoPtr<FdoByteArray> PolygonOf(double const* box) {
  FdoByte bytes[kPolygonBytes];
  FdoByte* at = bytes;
  for (std::int32_t const word : kPolygonHeader) {
    Store(at, word);
    at += sizeof(word);
  }
  // Which ordinate of the box each corner takes for its x and its y.
  constexpr int kOrdinates[kCorners][2] = {{0, 1}, {2, 1}, {2, 3}, {0, 3}, {0, 1}};
  for (auto const& corner : kOrdinates) {
    for (int const ordinate : corner) {
      Store(at, box[ordinate]);
      at += sizeof(double);
    }
  }
  return FdoPtr<FdoByteArray>(FdoByteArray::Create(bytes, kPolygonBytes));
}

}  // namespace

FdoPtr<FdoFilter> BoxFilter(FdoString* geometryName, double const* box, FdoFilter* filter) {
  FdoPtr<FdoByteArray> const polygon = PolygonOf(box);
  FdoPtr<FdoGeometryValue> const geometry = FdoGeometryValue::Create(polygon);
  FdoPtr<FdoSpatialCondition> const inBox =
      FdoSpatialCondition::Create(geometryName, FdoSpatialOperations_EnvelopeIntersects, geometry);
  if (filter == nullptr) return inBox;
  return FdoPtr<FdoFilter>(FdoBinaryLogicalOperator::Create(inBox, FdoBinaryLogicalOperations_And, filter));
}

}  // namespace fdo::internal
