#include <fdo/geometry_stream.h>
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <limits>
#include <vector>

#include "testing/caught_message.h"
#include "testing/fgf_builder.h"

namespace fdo {
namespace {

using Bytes = std::vector<unsigned char>;
using Box = std::array<double, 4>;

constexpr double kLargest = 1.7976931348623157e308;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr Box kEmptyBox{kLargest, kLargest, -kLargest, -kLargest};

Box BoxOf(Bytes const& bytes) {
  Box box{};
  EXPECT_EQ(FgfBox(bytes.data(), bytes.data() + bytes.size(), box.data()), bytes.data() + bytes.size());
  return box;
}

TEST(FgfBox, EachTypeByItsPositions) {
  struct Row {
    char const* text;
    Box box;
  };
  Row const rows[] = {
      {"POINT (3 -4)", {3, -4, 3, -4}},
      {"POINT ZM (1 2 300 400)", {1, 2, 1, 2}},
      {"LINESTRING (1 2, -3 4, 2 0)", {-3, 0, 2, 4}},
      {"POLYGON ((0 0, 4 0, 4 4, 0 4, 0 0))", {0, 0, 4, 4}},
      {"POLYGON ((0 0, 1 0, 1 1, 0 0), (5 6, 7 6, 7 8, 5 6))", {0, 0, 7, 8}},  // the hole lies outside
      {"MULTIPOINT M (1 2 -9, 3 4 99)", {1, 2, 3, 4}},
      {"MULTILINESTRING ((1 1, 2 2), (-5 9, 0 0))", {-5, 0, 2, 9}},
      {"MULTIPOLYGON (EMPTY, ((0 0, 4 0, 4 4, 0 0)))", {0, 0, 4, 4}},
      {"GEOMETRYCOLLECTION (POINT (10 20), LINESTRING (0 30, 5 25))", {0, 20, 10, 30}},
      {"CURVEPOLYGON ((0 0 (LINESTRINGSEGMENT (2 0, 2 2), CIRCULARARCSEGMENT (-1 3, 0 0))))", {-1, 0, 2, 3}},
      {"MULTICURVESTRING ((9 9 (LINESTRINGSEGMENT (8 1))), (0 0 (CIRCULARARCSEGMENT (1 1, 2 0))))",
       {0, 0, 9, 9}},
  };
  for (Row const& row : rows) EXPECT_EQ(BoxOf(Fgf(row.text)), row.box) << row.text;
}

TEST(FgfBox, ArcCountsItsControlPositionsOnly) {
  // The arc from (0, 0) by (4, 3) to (5, 0) rises above 3 between these.
  EXPECT_EQ(BoxOf(Fgf("CURVESTRING (0 0 (CIRCULARARCSEGMENT (4 3, 5 0)))")), (Box{0, 0, 5, 3}));
}

TEST(FgfBox, WithoutPositionsIsEmpty) {
  for (char const* text : {"LINESTRING EMPTY", "POLYGON EMPTY", "POLYGON (EMPTY)", "POLYGON (EMPTY, EMPTY)",
                           "MULTIPOINT EMPTY", "MULTILINESTRING (EMPTY)", "MULTIPOLYGON (EMPTY, (EMPTY))",
                           "GEOMETRYCOLLECTION EMPTY", "CURVEPOLYGON EMPTY", "MULTICURVESTRING EMPTY"}) {
    EXPECT_EQ(BoxOf(Fgf(text)), kEmptyBox) << text;
  }
}

TEST(FgfBox, UnknownTypeIsEmptyAndEndsAfterItsTypeWord) {
  Bytes const bytes{99, 0, 0, 0};
  EXPECT_EQ(BoxOf(bytes), kEmptyBox);
}

TEST(FgfBox, PartWithoutPositionsAddsNothing) {
  EXPECT_EQ(BoxOf(Fgf("GEOMETRYCOLLECTION (LINESTRING EMPTY, POINT (1 2), GEOMETRYCOLLECTION EMPTY)")),
            (Box{1, 2, 1, 2}));
}

TEST(FgfBox, OrdinateThatIsNoNumberAddsNothing) {
  EXPECT_EQ(BoxOf(Fgf("POINT EMPTY")), kEmptyBox);
  EXPECT_EQ(BoxOf(Fgf("LINESTRING (nan 5, 1 2, nan nan, 3 nan)")), (Box{1, 2, 3, 5}));
  EXPECT_EQ(BoxOf(Fgf("LINESTRING (nan 5, nan 6)")), (Box{kLargest, 5, -kLargest, 6}));
  for (int at = 0; at < 13; ++at) {  // in every place of the unrolled loop and of its remainder
    std::string text = "LINESTRING (";
    for (int i = 0; i < 13; ++i) {
      text += (i == 0 ? "" : ", ") + (i == at ? "nan nan" : std::to_string(i) + " " + std::to_string(-i));
    }
    double const last = at == 12 ? 11 : 12, first = at == 0 ? 1 : 0;
    EXPECT_EQ(BoxOf(Fgf(text + ")")), (Box{first, -last, last, -first})) << at;
  }
}

TEST(FgfBox, FarthestPositionIsFoundInEveryPlace) {
  for (int count = 1; count <= 17; ++count) {
    for (int at = 0; at < count; ++at) {
      std::string text = "LINESTRING Z (";
      for (int i = 0; i < count; ++i)
        text += (i == 0 ? "" : ", ") + std::string(i == at ? "7 -9 99" : "1 1 50");
      double const other = count == 1 ? 7 : 1, otherY = count == 1 ? -9 : 1;
      EXPECT_EQ(BoxOf(Fgf(text + ")")), (Box{other, -9, 7, otherY})) << at << " of " << count;
    }
  }
}

TEST(FgfBox, InfinityCountsFromTheFirstPositionButNotInAFiniteEmptyBox) {
  EXPECT_EQ(BoxOf(Fgf("POINT (inf -inf)")), (Box{kInfinity, -kInfinity, kInfinity, -kInfinity}));
  EXPECT_EQ(BoxOf(Fgf("LINESTRING (inf 1, inf 2)")), (Box{kInfinity, 1, kInfinity, 2}));
  EXPECT_EQ(BoxOf(Fgf("POLYGON ((inf 1, inf 2))")), (Box{kInfinity, 1, kInfinity, 2}));
  EXPECT_EQ(BoxOf(Fgf("POLYGON ((inf 1, inf 2), (inf 3))")), (Box{kLargest, 1, kInfinity, 3}));
  EXPECT_EQ(BoxOf(Fgf("MULTIPOINT (inf 1, inf 2)")), (Box{kLargest, 1, kInfinity, 2}));
  EXPECT_EQ(BoxOf(Fgf("LINESTRING (inf 1, -inf 2)")), (Box{-kInfinity, 1, kInfinity, 2}));
}

TEST(FgfBox, SegmentOfAnotherTypeIsInvalid) {
  Bytes bytes = Fgf("CURVESTRING (0 0 (CIRCULARARCSEGMENT (1 1, 2 0)))");
  bytes[28] = 132;
  Box box{1, 2, 3, 4};
  EXPECT_EQ(CaughtMessage([&] { FgfBox(bytes.data(), bytes.data() + bytes.size(), box.data()); }),
            L"Invalid FGF stream!");
  EXPECT_EQ(box, (Box{1, 2, 3, 4}));  // untouched
}

TEST(FgfBox, StreamMayLieAtAnyAddress) {
  Bytes const bytes =
      Fgf("MULTILINESTRING ((1 2, 3 4, 5 6), (7 8, 9 10, 11 12, 13 14, 15 16, 17 18, 19 20, 21 22))");
  for (std::size_t shift = 0; shift < 16; ++shift) {
    Bytes moved(shift + bytes.size());
    std::memcpy(moved.data() + shift, bytes.data(), bytes.size());
    Box box{};
    FgfBox(moved.data() + shift, moved.data() + moved.size(), box.data());
    EXPECT_EQ(box, (Box{1, 2, 21, 22})) << shift;
  }
}

}  // namespace
}  // namespace fdo
