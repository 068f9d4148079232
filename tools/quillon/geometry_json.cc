#include "tools/quillon/geometry_json.h"

#include <fdo/geometry_stream.h>

#include <cmath>
#include <string_view>
#include <vector>

#include "tools/quillon/arc_segments.h"
#include "tools/quillon/geometry_kind.h"
#include "tools/quillon/json_text.h"

namespace fdo::tool {

namespace {

class GeoJsonVisitor : public FgfVisitor {
 public:
  explicit GeoJsonVisitor(std::string& out) : out_(out) {}

  bool BeginGeometry(FgfGeometry const& geometry) override {
    if (!FitsParent(geometry.type, geometry.parentType)) return false;
    Separate();
    if (IsObject(geometry)) {
      out_ += R"({"type":")";
      out_ += FindGeometryKind(geometry.type)->geoJson;
      out_ += geometry.type == kMultiGeometry ? R"(","geometries":)" : R"(","coordinates":)";
    }
    if (geometry.type != kPoint) out_ += '[';
    SetDimensionality(geometry);
    return true;
  }

  bool BeginRing(std::int32_t, std::int32_t) override {
    Separate();
    out_ += '[';
    return true;
  }

  bool Positions(FgfPositions const& positions) override {
    if (type_ == kPoint && std::isnan(positions.Ordinate(0, 0)) && std::isnan(positions.Ordinate(0, 1))) {
      out_ += "[]";
      return true;
    }
    for (std::int32_t i = 0; i < positions.count; ++i) Append(At(positions, i));
    return true;
  }

  bool Start(FgfPositions const& position) override {
    last_ = At(position, 0);
    Append(last_);
    return true;
  }

  bool Segment(std::int32_t type, FgfPositions const& positions) override {
    line_.clear();
    if (type == kFgfArc) {
      AppendArc(line_, last_, At(positions, 0), At(positions, 1));
    } else {
      for (std::int32_t i = 0; i < positions.count; ++i) line_.push_back(At(positions, i));
    }
    for (Position const& position : line_) Append(position);
    if (!line_.empty()) last_ = line_.back();
    return true;
  }

  bool EndRing() override {
    out_ += ']';
    return true;
  }

  bool EndGeometry(FgfGeometry const& geometry) override {
    if (geometry.type != kPoint) out_ += ']';
    if (IsObject(geometry)) out_ += '}';
    return true;
  }

  bool UnknownType(std::int32_t) override { return false; }

 private:
  // The parts of a multi type are arrays of coordinates; geometries of their own are objects.
  static bool IsObject(FgfGeometry const& geometry) {
    return geometry.parentType == kNoGeometry || geometry.parentType == kMultiGeometry;
  }

  void SetDimensionality(FgfGeometry const& geometry) {
    type_ = geometry.type;
    hasZ_ = geometry.dimensionality > 0 && (geometry.dimensionality & 1) != 0;
  }

  Position At(FgfPositions const& positions, std::int32_t i) const {
    return {positions.Ordinate(i, 0), positions.Ordinate(i, 1), hasZ_ ? positions.Ordinate(i, 2) : 0};
  }

  // A comma, except at the beginning of an array, behind a key, and where there is one already.
  void Separate() {
    if (out_.size() > begin_ && std::string_view("[:,").find(out_.back()) == std::string_view::npos) {
      out_ += ',';
    }
  }

  void Append(Position const& position) {
    Separate();
    out_ += '[';
    AppendJsonNumber(out_, position.x);
    out_ += ',';
    AppendJsonNumber(out_, position.y);
    if (hasZ_) {
      out_ += ',';
      AppendJsonNumber(out_, position.z);
    }
    out_ += ']';
  }

  std::string& out_;
  std::size_t begin_ = out_.size();
  std::int32_t type_ = kNoGeometry;
  bool hasZ_ = false;
  Position last_{};             // where the curve has got to
  std::vector<Position> line_;  // one segment, kept for its memory
};

}  // namespace

bool AppendGeometryJson(std::string& out, unsigned char const* fgf, std::size_t length) {
  std::size_t const begin = out.size();
  GeoJsonVisitor visitor(out);
  if (VisitFgf(fgf, fgf + length, visitor) != nullptr) return true;
  out.resize(begin);
  out += "null";
  return false;
}

}  // namespace fdo::tool
