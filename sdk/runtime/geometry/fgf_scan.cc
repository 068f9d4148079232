#include "sdk/runtime/geometry/fgf_scan.h"

#include "sdk/runtime/geometry/circular_arc.h"

namespace fdo_sdk {

namespace {

// The stride is a constant, so that the loop needs no multiplication, and the two halves of the positions
// are measured side by side, because one minimum has to wait for the one before.
template <int kOrdinates>
void ExpandXy(FgfBox& box, FdoByte const* at, FdoInt32 count) {
  constexpr std::size_t kStride = kOrdinates * sizeof(double);
  FgfBox even = box;
  FgfBox odd = box;
  FdoInt32 i = 0;
  for (; i + 1 < count; i += 2, at += 2 * kStride) {
    even.Expand(Load<double>(at), Load<double>(at + sizeof(double)));
    odd.Expand(Load<double>(at + kStride), Load<double>(at + kStride + sizeof(double)));
  }
  if (i < count) even.Expand(Load<double>(at), Load<double>(at + sizeof(double)));
  box.minX = even.minX < odd.minX ? even.minX : odd.minX;
  box.minY = even.minY < odd.minY ? even.minY : odd.minY;
  box.maxX = even.maxX > odd.maxX ? even.maxX : odd.maxX;
  box.maxY = even.maxY > odd.maxY ? even.maxY : odd.maxY;
}

void ExpandZ(FgfBox& box, PositionSpan const& positions) {
  std::size_t const stride = PositionBytes(positions.dimensionality);
  FdoByte const* at = positions.data + 2 * sizeof(double);
  for (FdoInt32 i = 0; i < positions.count; ++i, at += stride) box.ExpandZ(Load<double>(at));
}

struct ScanSink : BoxSink {
  FdoInt32 dimensionality = 0;

  void BeginGeometry(FgfHead const& head) {
    if (head.dimensionality > 0) dimensionality |= head.dimensionality;
  }
};

}  // namespace

void ExpandBox(FgfBox& box, PositionSpan const& positions) {
  if (positions.count == 0) return;  // there may be no bytes either
  switch (OrdinateCount(positions.dimensionality)) {
    case 2:
      ExpandXy<2>(box, positions.data, positions.count);
      break;
    case 3:
      ExpandXy<3>(box, positions.data, positions.count);
      break;
    default:
      ExpandXy<4>(box, positions.data, positions.count);
      break;
  }
  if (positions.dimensionality & FdoDimensionality_Z) ExpandZ(box, positions);
}

void ExpandBoxByArc(FgfBox& box, PositionSpan const& previous, PositionSpan const& midAndEnd) {
  CircularArc const arc({previous.X(0), previous.Y(0)}, {midAndEnd.X(0), midAndEnd.Y(0)},
                        {midAndEnd.X(1), midAndEnd.Y(1)});
  arc.Expand(box);
  if (midAndEnd.dimensionality & FdoDimensionality_Z) ExpandZ(box, midAndEnd);
}

FgfScan ScanFgf(FdoByte const* bytes, std::size_t size) {
  if (bytes == nullptr) ThrowInvalidFgf();
  FgfCursor in(bytes, size);
  ScanSink sink;
  FgfWalk<ScanSink>(in, sink).Geometry();
  FgfScan scan;
  scan.size = static_cast<FdoInt32>(in.At() - bytes);
  scan.type = Load<FdoInt32>(bytes);
  scan.dimensionality = sink.dimensionality;
  scan.hasArcs = sink.hasArcs;
  scan.box = sink.box;
  return scan;
}

}  // namespace fdo_sdk
