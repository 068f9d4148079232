#include "sdk/providers/sqlite/spatial_operand.h"

#include <cmath>
#include <limits>

namespace fdo_sqlite {
namespace {

constexpr char kPointerType[] = "fdo_spatial_operand";
constexpr double kExactTolerance = 1e-10;

typedef std::shared_ptr<SpatialOperand const> OperandPtr;

void Unbind(void* operand) { delete static_cast<OperandPtr*>(operand); }

}  // namespace

SpatialOperand::SpatialOperand(FdoByteArray* fgf, FdoSpatialOperations operation, GeometryFormat storedAs)
    : operation_(operation), stored_(storedAs) {
  Read(fgf);
}

// Two geometries that are no further apart than the distance are those that intersect when positions count
// as one up to that distance.
SpatialOperand::SpatialOperand(FdoByteArray* fgf, FdoDistanceOperations operation, double distance,
                               GeometryFormat storedAs)
    : operation_(FdoSpatialOperations_Intersects),
      tolerance_(distance),
      negated_(operation == FdoDistanceOperations_Beyond),
      stored_(storedAs) {
  Read(fgf);
  if (box_.IsEmpty()) return;
  // Outwards past the rounding of the sum.
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  box_.minX = std::nextafter(box_.minX - distance, -kInfinity);
  box_.minY = std::nextafter(box_.minY - distance, -kInfinity);
  box_.maxX = std::nextafter(box_.maxX + distance, kInfinity);
  box_.maxY = std::nextafter(box_.maxY + distance, kInfinity);
}

void SpatialOperand::Read(FdoByteArray* fgf) {
  // A copy: the caller may go on to change the array while rows are read.
  FdoPtr<FdoByteArray> const bytes = FdoByteArray::Create(fgf->GetData(), fgf->GetCount());
  geometry_ = factory_->CreateGeometryFromFgf(bytes);
  StoredGeometry(GeometryFormat::kFgf)
      .Box(bytes->GetData(), static_cast<std::size_t>(bytes->GetCount()), box_);
}

std::optional<bool> SpatialOperand::Holds(sqlite3_value* stored) const {
  // Most rows are decided by their boxes, and need no geometry object.
  fdo_sdk::FgfBox box;
  if (!box_.IsEmpty() && stored_.Box(stored, box)) {
    if (!box.Intersects(box_)) return (operation_ == FdoSpatialOperations_Disjoint) != negated_;
    if (operation_ == FdoSpatialOperations_EnvelopeIntersects) return true;
  }
  GeometryBytes const fgf = stored_.Fgf(stored);
  if (fgf.IsNull()) return std::nullopt;
  FdoPtr<FdoIGeometry> geometry = factory_->CreateGeometryFromFgf(fgf.data, static_cast<FdoInt32>(fgf.size));
  bool const holds = tolerance_ > kExactTolerance
                         ? FdoSpatialUtility::Evaluate(geometry, operation_, geometry_, tolerance_)
                         : FdoSpatialUtility::Evaluate(geometry, operation_, geometry_);
  return holds != negated_;
}

int SpatialOperand::Bind(sqlite3_stmt* statement, int position, OperandPtr const& operand) {
  return sqlite3_bind_pointer(statement, position, new OperandPtr(operand), kPointerType, Unbind);
}

SpatialOperand const* SpatialOperand::Of(sqlite3_value* value) {
  auto* operand = static_cast<OperandPtr*>(sqlite3_value_pointer(value, kPointerType));
  return operand == nullptr ? nullptr : operand->get();
}

}  // namespace fdo_sqlite
