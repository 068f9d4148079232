#include "fdo_backend/query_filters.h"

#include <cstdint>
#include <limits>

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

FdoPtr<FdoFilter> Comparison(FdoIdentifier* property, FdoComparisonOperations operation, __int64 bound) {
  FdoPtr<FdoInt64Value> const literal = FdoInt64Value::Create(static_cast<FdoInt64>(bound));
  return FdoPtr<FdoFilter>(FdoComparisonCondition::Create(property, operation, literal));
}

template <class Integer>
bool Holds(__int64 id) {
  return id >= std::numeric_limits<Integer>::min() && id <= std::numeric_limits<Integer>::max();
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

FdoPtr<FdoFilter> RangeFilter(FdoString* property, __int64 first, __int64 last) {
  FdoPtr<FdoIdentifier> const name = FdoIdentifier::Create(property);
  FdoPtr<FdoFilter> const from = Comparison(name, FdoComparisonOperations_GreaterThanOrEqualTo, first);
  FdoPtr<FdoFilter> const to = Comparison(name, FdoComparisonOperations_LessThan, last);
  return FdoPtr<FdoFilter>(FdoBinaryLogicalOperator::Create(from, FdoBinaryLogicalOperations_And, to));
}

FdoPtr<FdoDataValue> IdLiteral(ColumnDef::DataType type, __int64 id) {
  if (type == ColumnDef::kInt16 && Holds<FdoInt16>(id)) {
    return FdoPtr<FdoDataValue>(FdoInt16Value::Create(static_cast<FdoInt16>(id)));
  }
  if (type == ColumnDef::kInt32 && Holds<FdoInt32>(id)) {
    return FdoPtr<FdoDataValue>(FdoInt32Value::Create(static_cast<FdoInt32>(id)));
  }
  if (type == ColumnDef::kInt16 || type == ColumnDef::kInt32 || type == ColumnDef::kInt64) {
    return FdoPtr<FdoDataValue>(FdoInt64Value::Create(static_cast<FdoInt64>(id)));
  }
  return FdoPtr<FdoDataValue>();
}

}  // namespace fdo::internal
