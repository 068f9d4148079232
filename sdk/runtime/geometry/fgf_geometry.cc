#include "sdk/runtime/geometry/fgf_geometry.h"

#include <atomic>

#include "sdk/runtime/geometry/fgf_curve_types.h"
#include "sdk/runtime/geometry/fgf_part_types.h"
#include "sdk/runtime/geometry/fgf_simple_types.h"

namespace fdo_sdk {

namespace {

// Numbers are handed to threads in blocks, so that making a geometry needs no atomic operation.
std::uint64_t NextSerial() {
  constexpr std::uint64_t kBlock = 1 << 16;
  static std::atomic<std::uint64_t> nextBlock{0};
  thread_local std::uint64_t next = 0;
  if (next % kBlock == 0) next = nextBlock.fetch_add(kBlock, std::memory_order_relaxed) + 1;
  return next++;
}

FgfBytes Exactly(FgfBytes bytes, FgfScan const& scan) {
  bytes.size = static_cast<std::size_t>(scan.size);
  return bytes;
}

}  // namespace

FgfBacked::FgfBacked(FgfBytes bytes, FgfScan const& scan)
    : bytes_(Exactly(std::move(bytes), scan)), scan_(scan), serial_(NextSerial()) {}

FgfBacked const* AsFgfBacked(FdoIGeometry const* geometry) {
  return dynamic_cast<FgfBacked const*>(geometry);
}

FdoIGeometry* MakeGeometry(FgfBytes bytes) {
  FgfScan const scan = ScanFgf(bytes.data, bytes.size);
  switch (scan.type) {
    case FdoGeometryType_Point:
      return new FgfPoint(std::move(bytes), scan);
    case FdoGeometryType_LineString:
      return new FgfLineString(std::move(bytes), scan);
    case FdoGeometryType_Polygon:
      return new FgfPolygon(std::move(bytes), scan);
    case FdoGeometryType_MultiPoint:
      return new FgfMultiPoint(std::move(bytes), scan);
    case FdoGeometryType_MultiLineString:
      return new FgfMultiLineString(std::move(bytes), scan);
    case FdoGeometryType_MultiPolygon:
      return new FgfMultiPolygon(std::move(bytes), scan);
    case FdoGeometryType_MultiGeometry:
      return new FgfMultiGeometry(std::move(bytes), scan);
    case FdoGeometryType_CurveString:
      return new FgfCurveString(std::move(bytes), scan);
    case FdoGeometryType_CurvePolygon:
      return new FgfCurvePolygon(std::move(bytes), scan);
    case FdoGeometryType_MultiCurveString:
      return new FgfMultiCurveString(std::move(bytes), scan);
    case FdoGeometryType_MultiCurvePolygon:
      return new FgfMultiCurvePolygon(std::move(bytes), scan);
    default:
      ThrowInvalidFgf();
  }
}

}  // namespace fdo_sdk
