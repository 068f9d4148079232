#include "tools/quillon/geometry_text.h"

#include <gtest/gtest.h>

#include <Fdo.h>

#include <cstring>

#include "testing/fgf_builder.h"
#include "testing/fgf_catalogue.h"

namespace fdo::tool {
namespace {

std::string Wkt(std::vector<unsigned char> const& fgf) {
  std::string text = "g: ";
  return AppendGeometryText(text, fgf.data(), fgf.size()) ? text.substr(3) : "refused";
}

TEST(GeometryText, EveryTypeAndDimensionality) {
  struct {
    char const* source;
    char const* wkt;
  } const cases[] = {
      {"POINT (1 2.5)", "POINT (1 2.5)"},
      {"POINT Z (1 2 3)", "POINT Z (1 2 3)"},
      {"POINT M (1 2 3)", "POINT M (1 2 3)"},
      {"POINT ZM (1 2 3 4)", "POINT ZM (1 2 3 4)"},
      {"POINT EMPTY", "POINT EMPTY"},
      {"LINESTRING (0 0, 1 1)", "LINESTRING (0 0, 1 1)"},
      {"LINESTRING EMPTY", "LINESTRING EMPTY"},
      {"POLYGON ((0 0, 4 0, 4 4, 0 0), (1 1, 2 1, 2 2, 1 1))",
       "POLYGON ((0 0, 4 0, 4 4, 0 0), (1 1, 2 1, 2 2, 1 1))"},
      {"POLYGON EMPTY", "POLYGON EMPTY"},
      {"MULTIPOINT Z ((1 2 3), (4 5 6))", "MULTIPOINT Z ((1 2 3), (4 5 6))"},
      {"MULTIPOINT EMPTY", "MULTIPOINT EMPTY"},
      {"MULTILINESTRING ((0 0, 1 1), (2 2, 3 3))", "MULTILINESTRING ((0 0, 1 1), (2 2, 3 3))"},
      {"MULTIPOLYGON (((0 0, 1 0, 1 1, 0 0)), ((5 5, 6 5, 6 6, 5 5)))",
       "MULTIPOLYGON (((0 0, 1 0, 1 1, 0 0)), ((5 5, 6 5, 6 6, 5 5)))"},
      {"GEOMETRYCOLLECTION (POINT Z (1 2 3), GEOMETRYCOLLECTION (LINESTRING Z (0 0 0, 1 1 1)))",
       "GEOMETRYCOLLECTION Z (POINT Z (1 2 3), GEOMETRYCOLLECTION Z (LINESTRING Z (0 0 0, 1 1 1)))"},
      {"GEOMETRYCOLLECTION (GEOMETRYCOLLECTION EMPTY, POINT M (1 2 3))",
       "GEOMETRYCOLLECTION M (GEOMETRYCOLLECTION EMPTY, POINT M (1 2 3))"},
      {"CURVESTRING (0 0 (CIRCULARARCSEGMENT (1 1, 2 0), LINESTRINGSEGMENT (3 0, 4 0)))",
       "COMPOUNDCURVE (CIRCULARSTRING (0 0, 1 1, 2 0), (2 0, 3 0, 4 0))"},
      {"CURVEPOLYGON ((0 0 (CIRCULARARCSEGMENT (1 1, 2 0), CIRCULARARCSEGMENT (1 -1, 0 0))))",
       "CURVEPOLYGON (COMPOUNDCURVE (CIRCULARSTRING (0 0, 1 1, 2 0), CIRCULARSTRING (2 0, 1 -1, 0 0)))"},
  };
  for (auto const& [source, wkt] : cases) EXPECT_EQ(Wkt(Fgf(source)), wkt);
}

// What the builder reads is what this writes, for everything that both have.
TEST(GeometryText, ReadBackGivesTheSameStream) {
  int compared = 0;
  for (CataloguedStream const& entry : FgfCatalogue()) {
    if (entry.text.find("CURVE") != std::string::npos) continue;
    std::string const wkt = Wkt(entry.stream.bytes);
    if (wkt.find("EMPTY") != std::string::npos) continue;
    EXPECT_EQ(Fgf(wkt), entry.stream.bytes) << entry.text << "\n" << wkt;
    ++compared;
  }
  EXPECT_GT(compared, 80);
}

TEST(GeometryText, RefusesWhatHasNoForm) {
  auto stream = Fgf("POINT (1 2)");
  stream[0] = 9;
  EXPECT_EQ(Wkt(stream), "refused") << "an unknown type";
  stream = Fgf("MULTIPOINT ((1 2))");
  stream[0] = 6;
  EXPECT_EQ(Wkt(stream), "refused") << "a point among polygons";
}

TEST(GeometryText, ThrowsForABrokenStream) {
  auto const stream = Fgf("LINESTRING (0 0, 1 1)");
  for (std::size_t length = 0; length < stream.size(); ++length) {
    std::string text;
    try {
      AppendGeometryText(text, stream.data(), length);
      ADD_FAILURE() << length;
    } catch (FdoException* raised) {
      FdoPtr<FdoException> const failure(raised);
      EXPECT_STREQ(failure->GetExceptionMessage(), L"Invalid FGF stream!");
    }
  }
}

}  // namespace
}  // namespace fdo::tool
