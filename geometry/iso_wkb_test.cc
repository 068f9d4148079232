#include <fdo/geometry_stream.h>
#include <gtest/gtest.h>

#include <cstring>
#include <iterator>
#include <string>
#include <vector>

#include "testing/fgf_builder.h"
#include "testing/iso_wkb_pairs.h"

namespace fdo {
namespace {

using Bytes = std::vector<unsigned char>;

Bytes ToWkb(Bytes const& fgf) {
  Bytes wkb(FgfToIsoWkbBound(fgf.size()));
  wkb.resize(FgfToIsoWkb(fgf.data(), fgf.size(), wkb.data()));
  return wkb;
}

Bytes ToFgf(Bytes const& wkb) {
  Bytes fgf(IsoWkbToFgfBound(wkb.size()));
  fgf.resize(IsoWkbToFgf(wkb.data(), wkb.size(), fgf.data()));
  return fgf;
}

TEST(FgfToIsoWkb, EachPairInEveryDimensionality) {
  for (IsoWkbPair const& pair : IsoWkbPairs()) {
    EXPECT_EQ(ToWkb(Fgf(pair.fgf)), Wkb(pair.wkb)) << pair.fgf;
  }
}

TEST(IsoWkbToFgf, EachPairInEveryDimensionalityAndByteOrder) {
  for (IsoWkbPair const& pair : IsoWkbPairs()) {
    Bytes const expected = Fgf(pair.fgf);
    for (WkbOrder const order : {WkbOrder::kLittleEndian, WkbOrder::kBigEndian, WkbOrder::kMixed}) {
      EXPECT_EQ(ToFgf(Wkb(pair.wkb, order)), expected) << pair.wkb << ", order " << static_cast<int>(order);
      EXPECT_EQ(ToFgf(Wkb(pair.wkb, order, WkbZ::kBit)), expected) << pair.wkb << " with the Z bit";
    }
  }
}

TEST(IsoWkbToFgf, WhatAlsoReads) {
  struct Row {
    char const* wkb;
    char const* fgf;
  };
  constexpr Row kRows[] = {
      // Polygons and compound curves where curves are expected.
      {"MULTISURFACE (((0 0, 1 0, 1 1, 0 0), (5 5, 6 5, 6 6, 5 5)))",
       "MULTICURVEPOLYGON (((0 0 (LINESTRINGSEGMENT (1 0, 1 1, 0 0))), (5 5 (LINESTRINGSEGMENT (6 5, 6 6, 5 "
       "5)))))"},
      {"MULTICURVE (COMPOUNDCURVE ((0 0, 1 1)))", "MULTICURVESTRING ((0 0 (LINESTRINGSEGMENT (1 1))))"},
      {"CURVEPOLYGON (COMPOUNDCURVE (CIRCULARSTRING (0 0, 1 1, 2 0)))",
       "CURVEPOLYGON ((0 0 (CIRCULARARCSEGMENT (1 1, 2 0))))"},
      {"COMPOUNDCURVE (CIRCULARSTRING (0 0, 1 1, 2 0))", "CURVESTRING (0 0 (CIRCULARARCSEGMENT (1 1, 2 0)))"},
      {"COMPOUNDCURVE (CIRCULARSTRING (0 0, 1 1, 2 0), CIRCULARSTRING (2 0, 3 -1, 4 0))",
       "CURVESTRING (0 0 (CIRCULARARCSEGMENT (1 1, 2 0), CIRCULARARCSEGMENT (3 -1, 4 0)))"},
      // Each part has its own dimensionality.
      {"GEOMETRYCOLLECTION (POINT (1 2), POINT Z (3 4 5))",
       "GEOMETRYCOLLECTION (POINT (1 2), POINT Z (3 4 5))"},
      // Zeros of either sign are at the same place, and so are equal bytes that are no number.
      {"COMPOUNDCURVE ((1 1, 0 0), (-0.0 0, 2 2))",
       "CURVESTRING (1 1 (LINESTRINGSEGMENT (0 0), LINESTRINGSEGMENT (2 2)))"},
      {"COMPOUNDCURVE M ((1 1 nan, 0 0 nan), (0 0 nan, 2 2 nan))",
       "CURVESTRING M (1 1 nan (LINESTRINGSEGMENT (0 0 nan), LINESTRINGSEGMENT (2 2 nan)))"},
  };
  for (Row const& row : kRows) EXPECT_EQ(ToFgf(Wkb(row.wkb)), Fgf(row.fgf)) << row.wkb;
}

TEST(IsoWkbToFgf, WhatFgfCannotHoldGivesNothing) {
  for (char const* text : {"TRIANGLE ((0 0, 1 0, 1 1, 0 0))",
                           "TIN (((0 0, 1 0, 1 1, 0 0)))",
                           "POLYHEDRALSURFACE (((0 0, 1 0, 1 1, 0 0)))",
                           "GEOMETRYCOLLECTION (POINT (1 2), TIN EMPTY)",
                           "CIRCULARSTRING EMPTY",
                           "CIRCULARSTRING (0 0)",
                           "CIRCULARSTRING (0 0, 1 1)",
                           "CIRCULARSTRING (0 0, 1 1, 2 0, 3 3)",
                           "COMPOUNDCURVE EMPTY",
                           "COMPOUNDCURVE ((0 0))",
                           "COMPOUNDCURVE ((0 0, 1 1), (1 1.5, 2 2))",  // a gap
                           "COMPOUNDCURVE ((0 0, 1 1), (nan 1, 2 2))",
                           "COMPOUNDCURVE (COMPOUNDCURVE ((0 0, 1 1)))",
                           "COMPOUNDCURVE (POINT (0 0))",
                           "COMPOUNDCURVE ((0 0, 1 1), LINESTRING Z (1 1 1, 2 2 2))",
                           "CURVEPOLYGON (EMPTY)",
                           "CURVEPOLYGON (LINESTRING Z (0 0 0, 1 1 1, 2 0 0))",
                           "CURVEPOLYGON (POLYGON ((0 0, 1 1, 2 0)))",
                           "MULTICURVE (EMPTY)",
                           "MULTICURVE (POINT (1 1))",
                           "MULTISURFACE (LINESTRING (0 0, 1 1))",
                           "MULTIPOINT (LINESTRING (0 0, 1 1))",
                           "MULTILINESTRING (CIRCULARSTRING (0 0, 1 1, 2 0))"}) {
    EXPECT_EQ(ToFgf(Wkb(text)), Bytes{}) << text;
  }
}

TEST(IsoWkbToFgf, OtherTypeWordsGiveNothing) {
  for (std::uint32_t const word :
       {0U, 13U, 14U, 15U, 17U, 100U, 1000U, 3013U, 4001U, 0x40000001U, 0x20000001U,
        0x800003E9U /* both the bit and the thousands */, 0xFFFFFFFFU}) {
    Bytes wkb = Wkb("POINT ZM (1 2 3 4)");
    wkb.resize(100);
    std::memcpy(&wkb[1], &word, sizeof(word));
    EXPECT_EQ(ToFgf(wkb), Bytes{}) << word;
  }
  Bytes wkb = Wkb("POINT (1 2)");
  wkb[0] = 2;
  EXPECT_EQ(ToFgf(wkb), Bytes{}) << "byte order 2";
}

TEST(FgfToIsoWkb, WhatWkbCannotHoldGivesNothing) {
  for (char const* text :
       {"GEOMETRYCOLLECTION (POINT (1 2), POINT Z (3 4 5))",
        "GEOMETRYCOLLECTION (POINT M (1 2 3), LINESTRING Z EMPTY)", "CURVESTRING (0 0 EMPTY)",
        "CURVESTRING (0 0 (LINESTRINGSEGMENT EMPTY))", "CURVEPOLYGON ((0 0 EMPTY))"}) {
    EXPECT_EQ(ToWkb(Fgf(text)), Bytes{}) << text;
  }
  for (char const* text : {"POLYGON EMPTY", "CURVEPOLYGON EMPTY"}) {
    Bytes negative = Fgf(text);
    std::memset(&negative[8], 0xFF, 4);
    EXPECT_EQ(ToWkb(negative), Bytes{}) << text;
  }
  Bytes otherPart = Fgf("GEOMETRYCOLLECTION (POINT (1 2), LINESTRING EMPTY)");
  otherPart[0] = 4;
  EXPECT_EQ(ToWkb(otherPart), Bytes{});
  EXPECT_EQ(ToWkb({99, 0, 0, 0}), Bytes{});
}

TEST(FgfToIsoWkb, DimensionalityReachesTheHeadsOfEmptyPartsInFront) {
  EXPECT_EQ(
      ToWkb(Fgf("GEOMETRYCOLLECTION (MULTIPOINT EMPTY, GEOMETRYCOLLECTION EMPTY, POINT ZM (1 2 3 4))")),
      Wkb("GEOMETRYCOLLECTION ZM (MULTIPOINT ZM EMPTY, GEOMETRYCOLLECTION ZM EMPTY, POINT ZM (1 2 3 4))"));
}

}  // namespace
}  // namespace fdo
