#include <fdo/geometry_stream.h>
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "testing/caught_message.h"
#include "testing/fgf_builder.h"

namespace fdo {
namespace {

using Bytes = std::vector<unsigned char>;

Bytes ToWkb(Bytes const& fgf) {
  Bytes wkb(FgfToWkbBound(fgf.size()));
  wkb.resize(FgfToWkb(fgf.data(), fgf.size(), wkb.data()));
  return wkb;
}

Bytes ToFgf(Bytes const& wkb) {
  Bytes fgf(WkbToFgfBound(wkb.size()));
  fgf.resize(WkbToFgf(wkb.data(), wkb.size(), fgf.data()));
  return fgf;
}

Bytes OldWkb(char const* text) { return Wkb(text, WkbOrder::kLittleEndian, WkbZ::kBit); }

TEST(FgfToWkb, SinglesAndXyAreWhatTheirTextSays) {
  for (char const* text :
       {"POINT (1 2)", "POINT Z (1 2 3)", "LINESTRING (1 2, 3 4)", "LINESTRING EMPTY",
        "POLYGON ((0 0, 1 0, 1 1, 0 0), (5 5, 6 5, 6 6, 5 5))", "POLYGON EMPTY",
        "POLYGON Z ((0 0 1, 1 0 2, 1 1 3, 0 0 1))", "MULTIPOINT (1 2, 3 4)", "MULTIPOINT EMPTY",
        "MULTILINESTRING ((1 2, 3 4), EMPTY)", "MULTIPOLYGON (((0 0, 1 0, 1 1, 0 0)), EMPTY)"}) {
    EXPECT_EQ(ToWkb(Fgf(text)), OldWkb(text)) << text;
  }
}

TEST(FgfToWkb, LineStringZHasTheBitAndThreeOrdinates) {
  Bytes const expected{1,                                 // little-endian
                       2, 0, 0, 0x80,                     // LineString with Z
                       2, 0, 0, 0,                        // positions
                       0, 0, 0, 0,    0, 0, 0xF0, 0x3F,   // 1
                       0, 0, 0, 0,    0, 0, 0,    0x40,   // 2
                       0, 0, 0, 0,    0, 0, 0x08, 0x40,   // 3
                       0, 0, 0, 0,    0, 0, 0x10, 0x40,   // 4
                       0, 0, 0, 0,    0, 0, 0x14, 0x40,   // 5
                       0, 0, 0, 0,    0, 0, 0x18, 0x40};  // 6
  Bytes const fgf = Fgf("LINESTRING Z (1 2 3, 4 5 6)");
  EXPECT_EQ(ToWkb(fgf), expected);
  EXPECT_EQ(ToFgf(expected), fgf);
}

TEST(FgfToWkb, MultiWithZBeginsWithThePartType) {
  struct Row {
    char const* text;
    unsigned char partType;
  };
  for (Row const& row : {Row{"MULTIPOINT Z (1 2 3, 4 5 6)", 1}, Row{"MULTILINESTRING Z ((1 2 3, 4 5 6))", 2},
                         Row{"MULTIPOLYGON Z (((1 2 3, 4 5 6, 7 8 9)), EMPTY)", 3}}) {
    // As it should be, but for the type words of the collection and of its parts.
    Bytes expected = OldWkb(row.text);
    expected[1] = row.partType;
    std::size_t const partBytes = row.partType == 1 ? 29 : row.partType == 2 ? 9 + 48 : 13 + 72;
    for (std::size_t part = 9; part < expected.size(); part += partBytes) expected[part + 4] = 0;
    EXPECT_EQ(ToWkb(Fgf(row.text)), expected) << row.text;
  }
}

TEST(FgfToWkb, MultiPointZByteByByte) {
  Bytes const expected{1,                                 // little-endian
                       1, 0, 0, 0x80,                     // Point with Z, in place of MultiPoint
                       1, 0, 0, 0,                        // parts
                       1,                                 // little-endian
                       1, 0, 0, 0,                        // Point, without the bit
                       0, 0, 0, 0,    0, 0, 0xF0, 0x3F,   // 1
                       0, 0, 0, 0,    0, 0, 0,    0x40,   // 2
                       0, 0, 0, 0,    0, 0, 0x08, 0x40};  // 3
  EXPECT_EQ(ToWkb(Fgf("MULTIPOINT Z (1 2 3)")), expected);
}

TEST(FgfToWkb, AnyPartWithZMarksTheHeader) {
  Bytes fgf = Fgf("GEOMETRYCOLLECTION (POINT Z (1 2 3), POINT (4 5))");
  fgf[0] = 4;
  Bytes const wkb = ToWkb(fgf);
  ASSERT_EQ(wkb.size(), 9u + 29 + 21);
  EXPECT_EQ(Bytes(wkb.begin() + 1, wkb.begin() + 5), (Bytes{1, 0, 0, 0x80}));
}

TEST(FgfToWkb, NegativeRingCountIsCopied) {
  Bytes fgf = Fgf("POLYGON EMPTY");
  std::memset(&fgf[8], 0xFF, 4);
  EXPECT_EQ(ToWkb(fgf), (Bytes{1, 3, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF}));
  EXPECT_EQ(ToFgf(ToWkb(fgf)), fgf);
}

TEST(FgfToWkb, WhatTheFormDoesNotCarryGivesNothing) {
  for (char const* text :
       {"GEOMETRYCOLLECTION (POINT (1 2))", "GEOMETRYCOLLECTION EMPTY", "POINT M (1 2 3)",
        "LINESTRING ZM EMPTY", "MULTIPOINT M (1 2 3)", "CURVESTRING (0 0 (CIRCULARARCSEGMENT (1 1, 2 0)))",
        "CURVEPOLYGON EMPTY", "MULTICURVESTRING EMPTY", "MULTICURVEPOLYGON EMPTY"}) {
    EXPECT_EQ(ToWkb(Fgf(text)), Bytes{}) << text;
  }
  EXPECT_EQ(ToWkb({99, 0, 0, 0}), Bytes{});
  Bytes mixed = Fgf("GEOMETRYCOLLECTION (POINT (1 2), LINESTRING EMPTY)");
  mixed[0] = 4;
  EXPECT_EQ(ToWkb(mixed), Bytes{});
}

TEST(FgfToWkb, NeverNeedsMoreThanItsBound) {
  // A multi-geometry without parts is the one that grows.
  EXPECT_EQ(ToWkb(Fgf("MULTIPOLYGON EMPTY")).size(), 9u);
  EXPECT_EQ(FgfToWkbBound(Fgf("MULTIPOLYGON EMPTY").size()), 9u);
}

TEST(WkbToFgf, EachTypeIsWhatItsTextSays) {
  for (char const* text :
       {"POINT (1 2)", "POINT Z (1 2 3)", "LINESTRING Z (1 2 3, 4 5 6)", "POLYGON ((0 0, 1 1, 2 0))",
        "MULTIPOINT (1 2, 3 4)", "MULTIPOINT Z (1 2 3, 4 5 6)", "MULTILINESTRING Z ((1 2 3), EMPTY)",
        "MULTIPOLYGON Z (((0 0 1, 1 0 2, 1 1 3)), EMPTY)", "MULTIPOLYGON EMPTY"}) {
    EXPECT_EQ(ToFgf(OldWkb(text)), Fgf(text)) << text;
  }
}

TEST(WkbToFgf, ByteOrderIsNotLookedAt) {
  Bytes wkb = OldWkb("MULTIPOINT (1 2)");
  wkb[0] = 7;
  wkb[9] = 0;
  EXPECT_EQ(ToFgf(wkb), Fgf("MULTIPOINT (1 2)"));
}

TEST(WkbToFgf, EachPartHasItsOwnZ) {
  Bytes wkb = OldWkb("MULTIPOINT (1 2)");
  Bytes const part = OldWkb("POINT Z (3 4 5)");
  wkb.insert(wkb.end(), part.begin(), part.end());
  wkb[5] = 2;
  Bytes expected = Fgf("GEOMETRYCOLLECTION (POINT (1 2), POINT Z (3 4 5))");
  expected[0] = 4;
  EXPECT_EQ(ToFgf(wkb), expected);
}

TEST(WkbToFgf, OtherTypesGiveNothing) {
  for (char const* text :
       {"GEOMETRYCOLLECTION EMPTY", "CIRCULARSTRING (0 0, 1 1, 2 0)", "CURVEPOLYGON EMPTY"}) {
    EXPECT_EQ(ToFgf(Wkb(text)), Bytes{}) << text;
  }
  EXPECT_EQ(ToFgf(Wkb("POINT Z (1 2 3)")), Bytes{});  // an ISO code
  EXPECT_EQ(ToFgf({1, 0, 0, 0, 0}), Bytes{});
  Bytes mixed = OldWkb("MULTIPOINT (1 2)");
  mixed[10] = 2;
  EXPECT_EQ(ToFgf(mixed), Bytes{});
}

TEST(WkbToFgf, TruncationIsInvalid) {
  Bytes wkb = OldWkb("MULTIPOINT (1 2, 3 4)");
  wkb.pop_back();
  EXPECT_EQ(CaughtMessage([&] { ToFgf(wkb); }), L"Invalid FGF stream!");
}

TEST(FgfGeometryTypeMask, EachTypeCode) {
  struct Row {
    std::uint32_t type;
    std::int32_t mask;
  };
  constexpr Row kRows[] = {{0, 0},   {1, 1},    {2, 2},     {3, 4},     {4, 1},          {5, 2},   {6, 4},
                           {7, 15},  {8, 15},   {9, 15},    {10, 15},   {11, 15},        {12, 15}, {13, 15},
                           {17, 15}, {100, 15}, {1001, 15}, {3006, 15}, {0x7FFFFFFF, 15}};
  for (Row const& row : kRows) {
    EXPECT_EQ(FgfGeometryTypeMask(row.type), row.mask) << row.type;
    EXPECT_EQ(FgfGeometryTypeMask(row.type | 0x80000000U), row.mask) << row.type << " with Z";
  }
}

}  // namespace
}  // namespace fdo
