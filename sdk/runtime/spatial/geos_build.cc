#include "sdk/runtime/spatial/geos_build.h"

#include <cmath>

#include "sdk/runtime/geometry/circular_arc.h"

namespace fdo_sdk {

namespace {

using Parts = std::vector<GeosGeometry>;

class GeosSink : public FgfSink {
 public:
  explicit GeosSink(GeosSession& session) : session_(session) {}

  void BeginGeometry(FgfHead const& head) {
    type_ = head.type;
    hasCollection_ = hasCollection_ || head.type == FdoGeometryType_MultiGeometry;
  }

  void EndGeometry(FgfHead const& head) {
    if (head.type == FdoGeometryType_CurveString) Line();
    if (head.type == FdoGeometryType_Polygon || head.type == FdoGeometryType_CurvePolygon) Polygon();
  }

  void BeginRing(FdoInt32) { positions_.clear(); }
  void EndRing() { Ring(); }

  void Positions(PositionSpan const& positions) {
    positions_.clear();
    Append(positions);
    if (type_ == FdoGeometryType_Point) Point();
    if (type_ == FdoGeometryType_LineString) Line();
  }
  void Start(PositionSpan const& start) {
    positions_.clear();
    Append(start);
  }
  void Line(PositionSpan const&, PositionSpan const& rest) { Append(rest); }
  void Arc(PositionSpan const& previous, PositionSpan const& midAndEnd) {
    CircularArc const arc({previous.X(0), previous.Y(0)}, {midAndEnd.X(0), midAndEnd.Y(0)},
                          {midAndEnd.X(1), midAndEnd.Y(1)});
    arc.Approximate(arc.IsStraight() ? 0 : kArcOffset * arc.Radius(), 0, positions_);
  }

  GeosOperand Take() {
    GeosOperand operand;
    bool const mixed = hasCollection_ && points_.empty() + lines_.empty() + polygons_.empty() < 2;
    if (!points_.empty()) operand.push_back(Gathered(GEOS_MULTIPOINT, points_));
    if (!lines_.empty()) operand.push_back(Gathered(GEOS_MULTILINESTRING, lines_));
    if (!polygons_.empty()) {
      bool const mayOverlap = hasCollection_ && polygons_.size() > 1;
      operand.push_back(Gathered(GEOS_MULTIPOLYGON, polygons_));
      if (mayOverlap)
        operand.back() = session_.Own(GEOSUnaryUnion_r(session_.Handle(), operand.back().get()));
    }
    // Lines of a curve that shrank to a point, among other lines, add nothing to them.
    if (!mixed && operand.size() > 1) operand.erase(operand.begin(), operand.end() - 1);
    return operand;
  }

 private:
  static_assert(sizeof(Xy) == 2 * sizeof(double), "positions are handed to GEOS as they lie");

  void Append(PositionSpan const& positions) {
    std::size_t const at = positions_.size();
    positions_.resize(at + static_cast<std::size_t>(positions.count));
    for (FdoInt32 i = 0; i < positions.count; ++i) {
      positions_[at + static_cast<std::size_t>(i)] = {positions.X(i), positions.Y(i)};
    }
  }

  // A single position of NaN is how FGF says that there is nothing.
  bool IsNothing() const {
    return positions_.empty() ||
           (positions_.size() == 1 && std::isnan(positions_[0].x) && std::isnan(positions_[0].y));
  }

  GEOSCoordSequence* Sequence() {
    double sum = 0;
    for (Xy const& position : positions_) sum += position.x * 0 + position.y * 0;
    if (sum != 0) ThrowFailure(L"The geometry has a position that is not finite.");
    GEOSCoordSequence* const sequence = GEOSCoordSeq_copyFromBuffer_r(
        session_.Handle(), &positions_[0].x, static_cast<unsigned>(positions_.size()), 0, 0);
    if (sequence == nullptr) session_.Throw();
    return sequence;
  }

  void Point() {
    if (IsNothing()) return;
    points_.push_back(session_.Own(GEOSGeom_createPoint_r(session_.Handle(), Sequence())));
  }

  void Line() {
    if (IsNothing()) return;
    if (positions_.size() == 1) return Point();
    lines_.push_back(session_.Own(GEOSGeom_createLineString_r(session_.Handle(), Sequence())));
  }

  void Ring() {
    constexpr std::size_t kFewest = 4;
    if (IsNothing()) return;
    if (!(positions_.front() == positions_.back())) positions_.push_back(positions_.front());
    while (positions_.size() < kFewest) positions_.push_back(positions_.back());
    rings_.push_back(session_.Own(GEOSGeom_createLinearRing_r(session_.Handle(), Sequence())));
  }

  void Polygon() {
    if (rings_.empty()) return;
    std::vector<GEOSGeometry*> holes;
    for (std::size_t i = 1; i < rings_.size(); ++i) holes.push_back(rings_[i].release());
    GEOSGeometry* const shell = rings_[0].release();
    rings_.clear();
    polygons_.push_back(session_.Own(GEOSGeom_createPolygon_r(session_.Handle(), shell, holes.data(),
                                                              static_cast<unsigned>(holes.size()))));
  }

  // One stays as it is, several become a multi geometry.
  GeosGeometry Gathered(int multiType, Parts& parts) {
    if (parts.size() == 1) return std::move(parts[0]);
    std::vector<GEOSGeometry*> all;
    all.reserve(parts.size());
    for (GeosGeometry& part : parts) all.push_back(part.release());
    return session_.Own(GEOSGeom_createCollection_r(session_.Handle(), multiType, all.data(),
                                                    static_cast<unsigned>(all.size())));
  }

  GeosSession& session_;
  FdoInt32 type_ = 0;
  bool hasCollection_ = false;
  std::vector<Xy> positions_;  // of the line or ring being read
  Parts rings_;                // of the polygon being read
  Parts points_;
  Parts lines_;
  Parts polygons_;
};

}  // namespace

GeosOperand BuildOperand(GeosSession& session, FdoByte const* fgf, std::size_t size) {
  FgfCursor in(fgf, size);
  GeosSink sink(session);
  FgfWalk<GeosSink>(in, sink).Geometry();
  return sink.Take();
}

}  // namespace fdo_sdk
