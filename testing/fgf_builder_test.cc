#include "testing/fgf_builder.h"

#include <gtest/gtest.h>

#include <set>
#include <stdexcept>

#include "testing/fgf_catalogue.h"

namespace fdo {
namespace {

using Bytes = std::vector<unsigned char>;

TEST(FgfBuilder, PointZmIsFortyBytes) {
  Bytes const expected{1, 0, 0, 0,                     // Point
                       3, 0, 0, 0,                     // XYZM
                       0, 0, 0, 0, 0, 0, 0xF0, 0x3F,   // 1
                       0, 0, 0, 0, 0, 0, 0,    0x40,   // 2
                       0, 0, 0, 0, 0, 0, 0x08, 0x40,   // 3
                       0, 0, 0, 0, 0, 0, 0x10, 0xC0};  // -4
  EXPECT_EQ(Fgf("POINT ZM (1 2 3 -4)"), expected);
}

TEST(FgfBuilder, CurveNotesItsCounts) {
  FgfStream const stream =
      BuildFgf("CURVEPOLYGON ((0 0 (LINESTRINGSEGMENT (1 0, 1 1), CIRCULARARCSEGMENT (0 1, 0 0))))");
  EXPECT_EQ(stream.ringCountOffsets, std::vector<std::size_t>{8});
  EXPECT_EQ(stream.countOffsets, (std::vector<std::size_t>{28, 36}));
  EXPECT_EQ(stream.positions.size(), 5u);
  EXPECT_EQ(stream.bytes.size(), 12u + 16 + 4 + (8 + 32) + (4 + 32));
}

TEST(WkbBuilder, HeadersFollowOrderAndForm) {
  EXPECT_EQ(Wkb("LINESTRING Z EMPTY"), (Bytes{1, 0xEA, 3, 0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(Wkb("LINESTRING Z EMPTY", WkbOrder::kLittleEndian, WkbZ::kBit),
            (Bytes{1, 2, 0, 0, 0x80, 0, 0, 0, 0}));
  EXPECT_EQ(Wkb("LINESTRING ZM EMPTY", WkbOrder::kBigEndian), (Bytes{0, 0, 0, 0x0B, 0xBA, 0, 0, 0, 0}));
  EXPECT_EQ(Wkb("GEOMETRYCOLLECTION (POLYGON EMPTY)", WkbOrder::kMixed),
            (Bytes{0, 0, 0, 0, 7, 0, 0, 0, 1,  // the outer one is turned
                   1, 3, 0, 0, 0, 0, 0, 0, 0}));
}

TEST(FgfBuilder, TextThatIsNotUnderstoodIsRefused) {
  for (char const* text : {"", "CIRCLE (1 2)", "POINT (1)", "POINT (1 2", "POINT (1 2) 3", "POINT Z (1 2)",
                           "CURVESTRING (0 0 (BEZIER (1 1)))", "LINESTRING ()"}) {
    EXPECT_THROW(Fgf(text), std::invalid_argument) << text;
  }
}

TEST(FgfCatalogue, HoldsAtLeastTwoHundredDifferentStreams) {
  std::set<std::pair<std::int32_t, int>> kinds;
  std::set<Bytes> different;
  for (CataloguedStream const& entry : FgfCatalogue()) {
    different.insert(entry.stream.bytes);
    kinds.insert({entry.stream.bytes.front(), entry.dimensionality});
  }
  EXPECT_GE(different.size(), 200u);
  EXPECT_EQ(kinds.size(), 11u * 4);
}

}  // namespace
}  // namespace fdo
