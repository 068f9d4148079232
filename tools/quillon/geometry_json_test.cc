#include "tools/quillon/geometry_json.h"

#include <gtest/gtest.h>

#include <cmath>
#include <nlohmann/json.hpp>
#include <numbers>

#include "testing/fgf_builder.h"
#include "testing/fgf_catalogue.h"
#include "tools/quillon/arc_segments.h"

namespace fdo::tool {
namespace {

std::string GeoJson(std::vector<unsigned char> const& fgf) {
  std::string json = "[";
  bool const written = AppendGeometryJson(json, fgf.data(), fgf.size());
  EXPECT_EQ(written, json != "[null");
  return json.substr(1);
}

TEST(GeometryJson, EveryTypeAndDimensionality) {
  struct {
    char const* source;
    char const* json;
  } const cases[] = {
      {"POINT (1 2.5)", R"({"type":"Point","coordinates":[1,2.5]})"},
      {"POINT EMPTY", R"({"type":"Point","coordinates":[]})"},
      {"POINT Z (1 2 3)", R"({"type":"Point","coordinates":[1,2,3]})"},
      {"POINT M (1 2 3)", R"({"type":"Point","coordinates":[1,2]})"},
      {"POINT ZM (1 2 3 4)", R"({"type":"Point","coordinates":[1,2,3]})"},
      {"LINESTRING (0 0, 1 1)", R"({"type":"LineString","coordinates":[[0,0],[1,1]]})"},
      {"LINESTRING EMPTY", R"({"type":"LineString","coordinates":[]})"},
      {"POLYGON ((0 0, 4 0, 4 4, 0 0), (1 1, 2 1, 2 2, 1 1))",
       R"({"type":"Polygon","coordinates":[[[0,0],[4,0],[4,4],[0,0]],[[1,1],[2,1],[2,2],[1,1]]]})"},
      {"MULTIPOINT Z ((1 2 3), (4 5 6))", R"({"type":"MultiPoint","coordinates":[[1,2,3],[4,5,6]]})"},
      {"MULTILINESTRING ((0 0, 1 1), (2 2, 3 3))",
       R"({"type":"MultiLineString","coordinates":[[[0,0],[1,1]],[[2,2],[3,3]]]})"},
      {"MULTIPOLYGON (((0 0, 1 0, 1 1, 0 0)), ((5 5, 6 5, 6 6, 5 5)))",
       R"({"type":"MultiPolygon","coordinates":[[[[0,0],[1,0],[1,1],[0,0]]],[[[5,5],[6,5],[6,6],[5,5]]]]})"},
      {"GEOMETRYCOLLECTION (POINT (1 2), MULTIPOINT ((3 4)), GEOMETRYCOLLECTION EMPTY)",
       R"({"type":"GeometryCollection","geometries":[{"type":"Point","coordinates":[1,2]},)"
       R"({"type":"MultiPoint","coordinates":[[3,4]]},{"type":"GeometryCollection","geometries":[]}]})"},
      {"CURVESTRING (0 0 (LINESTRINGSEGMENT (3 0, 4 0), LINESTRINGSEGMENT (5 5)))",
       R"({"type":"LineString","coordinates":[[0,0],[3,0],[4,0],[5,5]]})"},
  };
  for (auto const& [source, json] : cases) EXPECT_EQ(GeoJson(Fgf(source)), json);
}

TEST(GeometryJson, EveryCataloguedStreamIsJson) {
  for (CataloguedStream const& entry : FgfCatalogue()) {
    EXPECT_TRUE(nlohmann::json::accept(GeoJson(entry.stream.bytes))) << entry.text;
  }
}

TEST(GeometryJson, NumbersThatAreNotFiniteAreNull) {
  EXPECT_EQ(GeoJson(Fgf("LINESTRING (nan 0, 1 inf)")),
            R"({"type":"LineString","coordinates":[[null,0],[1,null]]})");
}

TEST(GeometryJson, CurvesBecomeLinesThatEndWhereTheyEnd) {
  auto const json = nlohmann::json::parse(
      GeoJson(Fgf("CURVEPOLYGON ((0 0 (CIRCULARARCSEGMENT (1 1, 2 0), LINESTRINGSEGMENT (0 0))))")));
  EXPECT_EQ(json["type"], "Polygon");
  auto const& ring = json["coordinates"][0];
  EXPECT_EQ(ring.front(), (nlohmann::json{0.0, 0.0}));
  EXPECT_EQ(ring.back(), (nlohmann::json{0.0, 0.0}));
  EXPECT_EQ(ring[ring.size() - 2], (nlohmann::json{2.0, 0.0}));
  EXPECT_GT(ring.size(), 100u);
}

TEST(GeometryJson, RefusesWhatHasNoForm) {
  auto stream = Fgf("POINT (1 2)");
  stream[0] = 9;
  EXPECT_EQ(GeoJson(stream), "null");
  stream = Fgf("MULTIPOINT ((1 2))");
  stream[0] = 6;
  EXPECT_EQ(GeoJson(stream), "null");
}

// Half a circle around (1, 0), by its upper and by its lower side.
TEST(ArcSegments, StayWithinTheTolerance) {
  for (double side : {1.0, -1.0}) {
    std::vector<Position> line = {{0, 0, 0}};
    AppendArc(line, line[0], {1, side, 10}, {2, 0, 30});
    for (std::size_t i = 1; i < line.size(); ++i) {
      EXPECT_NEAR(std::hypot(line[i].x - 1, line[i].y), 1, 1e-12);
      double const midX = (line[i].x + line[i - 1].x) / 2, midY = (line[i].y + line[i - 1].y) / 2;
      EXPECT_GE(std::hypot(midX - 1, midY), 1 - kArcTolerance * 1.000001);
      EXPECT_GE(midY * side, -1e-12) << "on the other side";
      EXPECT_GT(line[i].z, line[i - 1].z);
    }
    EXPECT_EQ(line.back().x, 2);
    EXPECT_EQ(line.back().y, 0);
    EXPECT_EQ(line.back().z, 30);
  }
}

TEST(ArcSegments, ThatEndWhereTheyStartAreTheWholeCircle) {
  std::vector<Position> line = {{0, 0, 0}};
  AppendArc(line, line[0], {2, 0}, {0, 0});
  double length = 0;
  for (std::size_t i = 1; i < line.size(); ++i) {
    length += std::hypot(line[i].x - line[i - 1].x, line[i].y - line[i - 1].y);
  }
  EXPECT_NEAR(length, 2 * std::numbers::pi, 1e-3);
  EXPECT_EQ(line.back().x, 0);
}

TEST(ArcSegments, OnOneLineAreStraight) {
  std::vector<Position> line;
  AppendArc(line, {0, 0}, {1, 1}, {2, 2});
  ASSERT_EQ(line.size(), 2u);
  EXPECT_EQ(line[0].x, 1);
  EXPECT_EQ(line[1].x, 2);
}

}  // namespace
}  // namespace fdo::tool
