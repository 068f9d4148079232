#include "sdk/runtime/geometry/fgf_geometry.h"

#include <atomic>
#include <typeinfo>

#include "sdk/runtime/geometry/fgf_curve_types.h"
#include "sdk/runtime/geometry/fgf_part_types.h"
#include "sdk/runtime/geometry/fgf_simple_types.h"

namespace fdo_sdk {

namespace {

// Numbers are handed to threads in blocks, so that threads seldom wait for each other here.
std::uint64_t NextSerial() {
  constexpr std::uint64_t kBlock = 1 << 16;
  static std::atomic<std::uint64_t> nextBlock{0};
  thread_local std::uint64_t next = 0;
  if (next % kBlock == 0) next = nextBlock.fetch_add(kBlock, std::memory_order_relaxed) + 1;
  return next++;
}

}  // namespace

std::uint64_t FgfBacked::Serial() const {
  std::uint64_t serial = serial_.load(std::memory_order_relaxed);
  if (serial != 0) return serial;
  std::uint64_t const fresh = NextSerial();
  // Of threads that ask at once, the first one's number holds; it then is in serial.
  return serial_.compare_exchange_strong(serial, fresh, std::memory_order_relaxed) ? fresh : serial;
}

FgfBacked const* AsFgfBacked(FdoIGeometry const* geometry) {
  if (geometry == nullptr) return nullptr;
  // The commonest classes are known by the address of their type, since a cast across compares names. A type
  // that has another address after all, as it may in another library, is found by the cast.
  std::type_info const* const type = &typeid(*geometry);
  if (type == &typeid(FgfPoint)) return static_cast<FgfPoint const*>(geometry);
  if (type == &typeid(FgfPolygon)) return static_cast<FgfPolygon const*>(geometry);
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
