// The ordinates of points.
#include <FdoGeometry.h>

#include <cstddef>

#include "expr/functions.h"
#include "geometry/fgf_layout.h"
#include "geometry/unaligned.h"

namespace fdo::internal {
namespace {

constexpr int kX = 35;
constexpr int kY = 36;
constexpr int kZ = 37;
constexpr int kM = 38;

// 0.0 for a stream of anything but a complete point.
double OrdinateOf(int which, unsigned char const* fgf, std::size_t lengthBytes) {
  if (lengthBytes < kSingleHeadBytes || Load<std::int32_t>(fgf) != kFgfPoint) return 0.0;
  std::int32_t const dimensionality = Load<std::int32_t>(fgf + sizeof(std::int32_t));
  bool const hasZ = (dimensionality & kDimensionalityZ) != 0;
  bool const hasM = (dimensionality & kDimensionalityM) != 0;
  std::size_t at = 0;
  switch (which) {
    case kX:
      break;
    case kY:
      at = 1;
      break;
    case kZ:
      if (!hasZ) return 0.0;
      at = 2;
      break;
    case kM:
      if (!hasM) return 0.0;
      at = hasZ ? 3 : 2;
      break;
    default:
      return 0.0;
  }
  std::size_t const offset = kSingleHeadBytes + at * sizeof(double);
  return offset + sizeof(double) <= lengthBytes ? Load<double>(fgf + offset) : 0.0;
}

double OrdinateOf(int which, FdoFgfGeometryFactory& factory, FdoIGeometry* geometry) {
  if (geometry == nullptr || geometry->GetDerivedType() != FdoGeometryType_Point) return 0.0;
  FdoPtr<FdoByteArray> const fgf = factory.GetFgf(geometry);
  return OrdinateOf(which, fgf->GetData(), static_cast<std::size_t>(fgf->GetCount()));
}

double OrdinateOfBytes(int which, unsigned char const* bytes, int lengthBytes) {
  if (bytes == nullptr || lengthBytes < 2) return 0.0;
  if (bytes[0] == 1 && bytes[1] != 0) {
    FdoPtr<FdoFgfGeometryFactory> const factory = FdoFgfGeometryFactory::GetInstance();
    FdoPtr<FdoByteArray> const wkb = FdoByteArray::Create(bytes, lengthBytes);
    return OrdinateOf(which, *factory, FdoPtr<FdoIGeometry>(factory->CreateGeometryFromWkb(wkb)));
  }
  if (bytes[0] != 0 && bytes[1] == 0) return OrdinateOf(which, bytes, static_cast<std::size_t>(lengthBytes));
  return 0.0;
}

double OrdinateOfText(int which, wchar_t const* text) {
  if (text == nullptr) return 0.0;
  FdoPtr<FdoFgfGeometryFactory> const factory = FdoFgfGeometryFactory::GetInstance();
  return OrdinateOf(which, *factory, FdoPtr<FdoIGeometry>(factory->CreateGeometry(text)));
}

}  // namespace

void ReplaceByOrdinate(int which, Lender lender, Value& point) {
  int const type = point.Type();
  int const accepted = lender == Lender::kAccepted ? type & ~Value::kBorrowed : type;
  double ordinate = 0.0;
  if (accepted == Value::kBlob) {
    ordinate = OrdinateOfBytes(which, point.AsBlob(), point.BlobLen());
  } else if (accepted == Value::kString) {
    ordinate = OrdinateOfText(which, static_cast<wchar_t const*>(point));
  }
  point.Reset(ordinate);
}

}  // namespace fdo::internal
