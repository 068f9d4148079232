// ScanFgf checks a geometry stream from end to end and measures it, in one pass.
#ifndef SDK_RUNTIME_GEOMETRY_FGF_SCAN_H_
#define SDK_RUNTIME_GEOMETRY_FGF_SCAN_H_

#include "sdk/runtime/geometry/fgf_box.h"
#include "sdk/runtime/geometry/fgf_walk.h"

namespace fdo_sdk {

// What the pass finds. Afterwards every part of the stream may be read without further checks.
struct FgfScan {
  FdoInt32 size = 0;  // bytes of the geometry
  FdoInt32 type = 0;
  FdoInt32 dimensionality = 0;  // all that any part has
  bool hasArcs = false;
  FgfBox box;  // with the true extent of arcs
};

// Allocates nothing. Errors: throws ThrowInvalidFgf().
FgfScan ScanFgf(FdoByte const* bytes, std::size_t size);

// The same for the commonest geometry, a point without Z and M, short enough for its caller.
inline constexpr std::size_t kPointXyBytes = kPointHead + PositionBytes(FdoDimensionality_XY);

inline bool IsPointXy(FdoByte const* bytes, std::size_t size) {
  constexpr FdoInt32 kHead[] = {FdoGeometryType_Point, FdoDimensionality_XY};
  return size >= kPointXyBytes && bytes != nullptr && std::memcmp(bytes, kHead, sizeof(kHead)) == 0;
}

// Requires: IsPointXy of the bytes.
inline FgfScan ScanPointXy(FdoByte const* bytes) {
  FgfScan scan;
  scan.size = kPointXyBytes;
  scan.type = FdoGeometryType_Point;
  auto const x = Load<double>(bytes + kPointHead);
  auto const y = Load<double>(bytes + kPointHead + sizeof(double));
  if (x == x && y == y) {
    scan.box.minX = scan.box.maxX = x;
    scan.box.minY = scan.box.maxY = y;
  } else {
    scan.box.Expand(x, y);
  }
  return scan;
}

// Grow the box by positions.
void ExpandBox(FgfBox& box, PositionSpan const& positions);
void ExpandBoxByArc(FgfBox& box, PositionSpan const& previous, PositionSpan const& midAndEnd);

// A sink that grows a box by all that it is shown.
struct BoxSink : FgfSink {
  FgfBox box;
  bool hasArcs = false;

  void Positions(PositionSpan const& positions) { ExpandBox(box, positions); }
  void Start(PositionSpan const& start) { ExpandBox(box, start); }
  void Arc(PositionSpan const& previous, PositionSpan const& midAndEnd) {
    hasArcs = true;
    ExpandBoxByArc(box, previous, midAndEnd);
  }
  void Line(PositionSpan const&, PositionSpan const& rest) { ExpandBox(box, rest); }
};

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_GEOMETRY_FGF_SCAN_H_
