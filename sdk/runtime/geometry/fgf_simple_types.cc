#include "sdk/runtime/geometry/fgf_simple_types.h"

namespace fdo_sdk {

namespace {

// Requires: the bytes at that place were checked.
PositionSpan CountedPositions(FdoByte const* at, FdoInt32 dimensionality) {
  return {at + sizeof(FdoInt32), Load<FdoInt32>(at), dimensionality};
}

}  // namespace

FdoIDirectPosition* FgfPoint::GetPosition() const {
  return CopyPosition(Position().data, Scan().dimensionality);
}

void FgfPoint::GetPositionByMembers(double* x, double* y, double* z, double* m,
                                    FdoInt32* dimensionality) const {
  GetMembers(Position().data, Scan().dimensionality, x, y, z, m, dimensionality);
}

double const* FgfPoint::GetOrdinates() { return lent_.Of(Position()); }

FgfLineString::FgfLineString(FgfBytes bytes, FgfScan const& scan)
    : FgfGeometry(std::move(bytes), scan),
      run_(CountedPositions(Bytes().data + kLineHead - sizeof(FdoInt32), scan.dimensionality)) {}

void FgfLineString::GetItemByMembers(FdoInt32 index, double* x, double* y, double* z, double* m,
                                     FdoInt32* dimensionality) const {
  run_.Members(index, x, y, z, m, dimensionality);
}

FgfLinearRing::FgfLinearRing(FgfBytes bytes, FdoInt32 dimensionality)
    : bytes_(std::move(bytes)), run_(CountedPositions(bytes_.data, dimensionality)) {}

void FgfLinearRing::GetItemByMembers(FdoInt32 index, double* x, double* y, double* z, double* m,
                                     FdoInt32* dimensionality) const {
  run_.Members(index, x, y, z, m, dimensionality);
}

FdoInt32 FgfPolygon::GetInteriorRingCount() const {
  FdoInt32 const rings = Load<FdoInt32>(Bytes().data + kLineHead - sizeof(FdoInt32));
  return rings == 0 ? 0 : rings - 1;
}

FdoILinearRing* FgfPolygon::GetInteriorRing(FdoInt32 index) const {
  CheckIndex(index, GetInteriorRingCount());
  return Ring(index + 1);
}

FdoILinearRing* FgfPolygon::Ring(FdoInt32 index) const {
  CheckIndex(index, Load<FdoInt32>(Bytes().data + kLineHead - sizeof(FdoInt32)));
  std::size_t const offset = offsets_.Find(index, kLineHead, [this](std::size_t at) {
    auto const count = static_cast<std::size_t>(Load<FdoInt32>(Bytes().data + at));
    return at + sizeof(FdoInt32) + count * PositionBytes(Scan().dimensionality);
  });
  return new FgfLinearRing(Bytes().From(offset), Scan().dimensionality);
}

}  // namespace fdo_sdk
