// Straight lines for arcs.
#include <algorithm>

#include "FdoSpatial.h"
#include "sdk/runtime/geometry/circular_arc.h"
#include "sdk/runtime/spatial/fgf_rewrite.h"

using namespace fdo_sdk;

namespace {

class StraightSink : public FgfRewrite<StraightSink> {
 public:
  StraightSink(double spacing, double offset) : spacing_(spacing), offset_(offset) {}

  FdoInt32 TypeOf(FdoInt32 type) {
    FdoInt32 const straight = StraightTypeOf(type);
    changed_ = changed_ || straight != type;
    return straight;
  }

  void WriteRing(PositionSpan const& ring, bool) {
    out_.Int32(ring.count);
    out_.Positions(ring);
  }
  void WriteRing(Curve const& curve, bool) { WriteCurve(curve); }

  void WriteCurve(Curve const& curve) {
    std::size_t const countAt = out_.Size();
    out_.Int32(0);
    // A start without a segment is no line; what FGF cannot leave out of a curve it can of a line.
    if (curve.segments.empty()) return;
    out_.Positions(curve.start);
    for (CurveSegment const& segment : curve.segments) {
      if (segment.isArc) {
        WriteArc(segment);
      } else {
        out_.Positions(segment.rest);
      }
    }
    std::size_t const bytes = out_.Size() - countAt - sizeof(FdoInt32);
    out_.SetInt32(countAt, static_cast<FdoInt32>(bytes / PositionBytes(curve.start.dimensionality)));
  }

  bool HasChanged() const { return changed_; }
  FgfBuilder const& Written() const { return out_; }

 private:
  void WriteArc(CurveSegment const& segment) {
    Xy const mid{segment.rest.X(0), segment.rest.Y(0)};
    CircularArc const arc({segment.previous.X(0), segment.previous.Y(0)}, mid,
                          {segment.rest.X(1), segment.rest.Y(1)});
    positions_.clear();
    arc.Approximate(offset_, spacing_, positions_);
    auto const toMid =
        static_cast<std::size_t>(std::find(positions_.begin(), positions_.end(), mid) - positions_.begin()) +
        1;
    WriteHalf(segment.previous.At(0), segment.rest.At(0), segment.rest.dimensionality, 0, toMid);
    WriteHalf(segment.rest.At(0), segment.rest.At(1), segment.rest.dimensionality, toMid, positions_.size());
  }

  // The positions from begin to end, whose last is to; Z and M run evenly.
  void WriteHalf(FdoByte const* from, FdoByte const* to, FdoInt32 dimensionality, std::size_t begin,
                 std::size_t end) {
    for (std::size_t i = begin; i < end; ++i) {
      out_.Double(positions_[i].x);
      out_.Double(positions_[i].y);
      double const part = static_cast<double>(i + 1 - begin) / static_cast<double>(end - begin);
      for (int ordinate = 2; ordinate < OrdinateCount(dimensionality); ++ordinate) {
        std::size_t const at = static_cast<std::size_t>(ordinate) * sizeof(double);
        double const first = Load<double>(from + at);
        double const last = Load<double>(to + at);
        out_.Double(i + 1 == end ? last : first + (last - first) * part);
      }
    }
  }

  double spacing_;
  double offset_;
  bool changed_ = false;
  std::vector<Xy> positions_;
};

}  // namespace

FdoIGeometry* FdoSpatialUtility::ApproximateGeometryWithLineStrings(
    FdoIGeometry* geometry, double maxSpacing, double maxOffset,
    FdoGeometryFactoryAbstract* geometryFactory) {
  StraightSink sink(maxSpacing, maxOffset);
  WalkGeometry(geometry, sink);
  if (!sink.HasChanged()) return FDO_SAFE_ADDREF(geometry);
  FdoPtr<FdoByteArray> array = sink.Written().ToArray();
  FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
  FdoPtr<FdoIGeometry> straight = factory->CreateGeometryFromFgf(array);
  if (geometryFactory == nullptr) return straight.Detach();
  return geometryFactory->CreateGeometry(straight.p);
}

FdoIGeometry* FdoSpatialUtility::TesselateCurve(FdoIGeometry* curve) {
  if (curve == nullptr) ThrowFailure(L"There is no geometry.");
  constexpr double kPartOfExtent = 1e-4;
  FdoPtr<FdoIEnvelope> envelope = curve->GetEnvelope();
  double const width = envelope->GetMaxX() - envelope->GetMinX();
  double const height = envelope->GetMaxY() - envelope->GetMinY();
  return ApproximateGeometryWithLineStrings(curve, 0, kPartOfExtent * std::max(width, height), nullptr);
}
