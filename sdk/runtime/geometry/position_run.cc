#include "sdk/runtime/geometry/position_run.h"

#include <cstdint>
#include <limits>

#include "sdk/runtime/geometry/fgf_scan.h"

namespace fdo_sdk {

namespace {

constexpr double kAbsent = std::numeric_limits<double>::quiet_NaN();

void Give(double* to, double value) {
  if (to != nullptr) *to = value;
}

}  // namespace

void GetMembers(FdoByte const* at, FdoInt32 dimensionality, double* x, double* y, double* z, double* m,
                FdoInt32* positionDimensionality) {
  bool const hasZ = (dimensionality & FdoDimensionality_Z) != 0;
  bool const hasM = (dimensionality & FdoDimensionality_M) != 0;
  Give(x, Load<double>(at));
  Give(y, Load<double>(at + sizeof(double)));
  Give(z, hasZ ? Load<double>(at + 2 * sizeof(double)) : kAbsent);
  Give(m, hasM ? Load<double>(at + (hasZ ? 3 : 2) * sizeof(double)) : kAbsent);
  if (positionDimensionality != nullptr) *positionDimensionality = dimensionality;
}

FdoIDirectPosition* CopyPosition(FdoByte const* at, FdoInt32 dimensionality) {
  double x = 0;
  double y = 0;
  double z = 0;
  double m = 0;
  GetMembers(at, dimensionality, &x, &y, &z, &m, nullptr);
  FdoPtr<FdoDirectPositionImpl> position = FdoDirectPositionImpl::Create(x, y, z, m);
  position->SetDimensionality(dimensionality);
  return position.Detach();
}

FdoIEnvelope* MakeEnvelope(FgfBox const& box) {
  if (box.IsEmpty()) return FdoEnvelopeImpl::Create();
  if (!box.HasZ()) return FdoEnvelopeImpl::Create(box.minX, box.minY, box.maxX, box.maxY);
  return FdoEnvelopeImpl::Create(box.minX, box.minY, box.minZ, box.maxX, box.maxY, box.maxZ);
}

double const* LentOrdinates::Of(PositionSpan const& positions) {
  if (positions.count == 0) return nullptr;
  if (reinterpret_cast<std::uintptr_t>(positions.data) % alignof(double) == 0) {
    return reinterpret_cast<double const*>(positions.data);
  }
  return Of({positions.data, 0, positions.dimensionality}, positions);
}

double const* LentOrdinates::Of(PositionSpan const& first, PositionSpan const& rest) {
  if (copy_ == nullptr) {
    std::size_t const firstBytes =
        static_cast<std::size_t>(first.count) * PositionBytes(first.dimensionality);
    std::size_t const restBytes = static_cast<std::size_t>(rest.count) * PositionBytes(rest.dimensionality);
    copy_ = std::make_unique<double[]>((firstBytes + restBytes) / sizeof(double));
    FdoByte* const to = reinterpret_cast<FdoByte*>(copy_.get());
    std::memcpy(to, first.data, firstBytes);
    std::memcpy(to + firstBytes, rest.data, restBytes);
  }
  return copy_.get();
}

FgfBox PositionRun::Box() const {
  FgfBox box;
  ExpandBox(box, apart_);
  ExpandBox(box, rest_);
  return box;
}

FdoIDirectPosition* PositionRun::Item(FdoInt32 index) const {
  CheckIndex(index, Count());
  return CopyPosition(At(index), Dimensionality());
}

FdoDirectPositionCollection* PositionRun::Items() const {
  FdoPtr<FdoDirectPositionCollection> items = FdoDirectPositionCollection::Create();
  for (FdoInt32 i = 0; i < Count(); ++i) {
    FdoPtr<FdoIDirectPosition> position = CopyPosition(At(i), Dimensionality());
    items->Add(position);
  }
  return items.Detach();
}

void PositionRun::Members(FdoInt32 index, double* x, double* y, double* z, double* m,
                          FdoInt32* dimensionality) const {
  CheckIndex(index, Count());
  GetMembers(At(index), Dimensionality(), x, y, z, m, dimensionality);
}

bool PositionRun::IsClosed() const {
  if (Count() == 0) return false;
  for (int i = 0; i < OrdinateCount(Dimensionality()); ++i) {
    std::size_t const at = static_cast<std::size_t>(i) * sizeof(double);
    if (Load<double>(At(0) + at) != Load<double>(At(Count() - 1) + at)) return false;
  }
  return true;
}

}  // namespace fdo_sdk
