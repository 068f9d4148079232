// FGF and WKB there and back, over every type, dimensionality and shape, and over streams that lie.
#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "FdoGeometry.h"
#include "testing/caught_message.h"
#include "testing/fgf_builder.h"
#include "testing/fgf_catalogue.h"

namespace {

using fdo::CataloguedStream;
using fdo::CaughtMessage;
using fdo::FgfCatalogue;

using Bytes = std::vector<unsigned char>;

FdoPtr<FdoFgfGeometryFactory> Factory() { return FdoFgfGeometryFactory::GetInstance(); }

FdoPtr<FdoByteArray> ToArray(Bytes const& bytes) {
  return FdoByteArray::Create(bytes.data(), static_cast<FdoInt32>(bytes.size()));
}

Bytes ToBytes(FdoByteArray* array) { return Bytes(array->GetData(), array->GetData() + array->GetCount()); }

FdoPtr<FdoIGeometry> FromFgf(Bytes const& bytes) { return Factory()->CreateGeometryFromFgf(ToArray(bytes)); }

FdoPtr<FdoIGeometry> FromWkb(Bytes const& bytes) { return Factory()->CreateGeometryFromWkb(ToArray(bytes)); }

Bytes FgfOf(FdoIGeometry* geometry) {
  FdoPtr<FdoByteArray> array = Factory()->GetFgf(geometry);
  return ToBytes(array);
}

Bytes WkbOf(FdoIGeometry* geometry) {
  FdoPtr<FdoByteArray> array = Factory()->GetWkb(geometry);
  return ToBytes(array);
}

TEST(GeometryRoundTrip, FgfComesBackAsItWas) {
  ASSERT_GE(FgfCatalogue().size(), 200u);
  for (CataloguedStream const& entry : FgfCatalogue()) {
    SCOPED_TRACE(entry.text);
    auto const size = static_cast<FdoInt32>(entry.stream.bytes.size());
    FdoPtr<FdoIGeometry> borrowing = Factory()->CreateGeometryFromFgf(entry.stream.bytes.data(), size);
    EXPECT_EQ(FgfOf(borrowing), entry.stream.bytes);
    FdoPtr<FdoIGeometry> keeping = FromFgf(entry.stream.bytes);
    EXPECT_EQ(FgfOf(keeping), entry.stream.bytes);
  }
}

TEST(GeometryRoundTrip, WkbComesBackAsItWas) {
  for (CataloguedStream const& entry : FgfCatalogue()) {
    SCOPED_TRACE(entry.text);
    FdoPtr<FdoIGeometry> geometry = FromFgf(entry.stream.bytes);
    Bytes const wkb = WkbOf(geometry);
    FdoPtr<FdoIGeometry> back = FromWkb(wkb);
    EXPECT_EQ(FgfOf(back), entry.stream.bytes);
    EXPECT_EQ(WkbOf(back), wkb);
  }
}

TEST(GeometryRoundTrip, WkbIsIsoWithThousandsForZAndM) {
  struct {
    char const* text;
    unsigned typeWord;
  } const rows[] = {
      {"POINT (1 2)", 1},
      {"POINT Z (1 2 3)", 1001},
      {"POINT M (1 2 3)", 2001},
      {"POINT ZM (1 2 3 4)", 3001},
      {"LINESTRING ZM (1 2 3 4, 5 6 7 8)", 3002},
      {"POLYGON ((0 0, 1 0, 1 1, 0 0))", 3},
      {"MULTIPOINT Z (1 2 3)", 1004},
      {"MULTILINESTRING M ((1 2 3, 4 5 6))", 2005},
      {"MULTIPOLYGON EMPTY", 6},
      {"GEOMETRYCOLLECTION (POINT (1 2), POINT Z (1 2 3), POINT M (1 2 3))", 3007},
      {"CURVESTRING (0 0 (CIRCULARARCSEGMENT (1 1, 2 0)))", 8},
      {"CURVESTRING Z (0 0 1 (CIRCULARARCSEGMENT (1 1 1, 2 0 1), LINESTRINGSEGMENT (3 0 1)))", 1009},
      {"CURVESTRING (0 0 (LINESTRINGSEGMENT (3 0)))", 9},
      {"CURVEPOLYGON ((0 0 (CIRCULARARCSEGMENT (1 1, 2 0), CIRCULARARCSEGMENT (1 -1, 0 0))))", 10},
      {"MULTICURVESTRING M ((0 0 5 (CIRCULARARCSEGMENT (1 1 5, 2 0 5))))", 2011},
      {"MULTICURVEPOLYGON (((0 0 (CIRCULARARCSEGMENT (1 1, 2 0), LINESTRINGSEGMENT (0 0)))))", 12},
  };
  for (auto const& row : rows) {
    FdoPtr<FdoIGeometry> geometry = FromFgf(fdo::Fgf(row.text));
    Bytes const wkb = WkbOf(geometry);
    unsigned word = 0;
    std::memcpy(&word, wkb.data() + 1, sizeof(word));
    EXPECT_EQ(wkb[0], 1) << row.text;
    EXPECT_EQ(word, row.typeWord) << row.text;
  }
}

TEST(GeometryRoundTrip, WkbIsReadInEitherByteOrderAndEitherMarkOfZ) {
  for (CataloguedStream const& entry : FgfCatalogue()) {
    if (!entry.inOldWkb) continue;
    SCOPED_TRACE(entry.text);
    for (auto order : {fdo::WkbOrder::kLittleEndian, fdo::WkbOrder::kBigEndian, fdo::WkbOrder::kMixed}) {
      for (auto mark : {fdo::WkbZ::kThousands, fdo::WkbZ::kBit}) {
        FdoPtr<FdoIGeometry> geometry = FromWkb(fdo::Wkb(entry.text, order, mark));
        EXPECT_EQ(FgfOf(geometry), entry.stream.bytes);
      }
    }
  }
}

TEST(GeometryRoundTrip, WkbCurvesAreReadInEveryForm) {
  struct {
    char const* wkb;
    char const* fgf;
  } const rows[] = {
      {"CIRCULARSTRING (0 0, 1 1, 2 0, 3 -1, 4 0)",
       "CURVESTRING (0 0 (CIRCULARARCSEGMENT (1 1, 2 0), CIRCULARARCSEGMENT (3 -1, 4 0)))"},
      {"COMPOUNDCURVE ((0 0, 1 0), CIRCULARSTRING (1 0, 2 1, 3 0), (3 0, 4 0, 5 0))",
       "CURVESTRING (0 0 (LINESTRINGSEGMENT (1 0), CIRCULARARCSEGMENT (2 1, 3 0), LINESTRINGSEGMENT (4 0, 5 "
       "0)))"},
      {"CURVEPOLYGON ((0 0, 1 0, 1 1, 0 0))", "CURVEPOLYGON ((0 0 (LINESTRINGSEGMENT (1 0, 1 1, 0 0))))"},
      {"CURVEPOLYGON (CIRCULARSTRING (0 0, 1 1, 0 0))",
       "CURVEPOLYGON ((0 0 (CIRCULARARCSEGMENT (1 1, 0 0))))"},
      {"MULTICURVE ((0 0, 1 1), CIRCULARSTRING (0 0, 1 1, 2 0))",
       "MULTICURVESTRING ((0 0 (LINESTRINGSEGMENT (1 1))), (0 0 (CIRCULARARCSEGMENT (1 1, 2 0))))"},
      {"MULTISURFACE (((0 0, 1 0, 1 1, 0 0)), CURVEPOLYGON (CIRCULARSTRING (0 0, 1 1, 0 0)))",
       "MULTICURVEPOLYGON (((0 0 (LINESTRINGSEGMENT (1 0, 1 1, 0 0)))), ((0 0 (CIRCULARARCSEGMENT (1 1, 0 "
       "0)))))"},
  };
  for (auto const& row : rows) {
    for (auto order : {fdo::WkbOrder::kLittleEndian, fdo::WkbOrder::kBigEndian, fdo::WkbOrder::kMixed}) {
      FdoPtr<FdoIGeometry> geometry = FromWkb(fdo::Wkb(row.wkb, order));
      EXPECT_EQ(FgfOf(geometry), fdo::Fgf(row.fgf)) << row.wkb;
    }
  }
}

TEST(GeometryRoundTrip, EmptyWkbCurveIsACurveWithoutSegmentsThatStartsNowhere) {
  for (char const* text : {"CIRCULARSTRING EMPTY", "COMPOUNDCURVE EMPTY"}) {
    FdoPtr<FdoIGeometry> geometry = FromWkb(fdo::Wkb(text));
    ASSERT_EQ(geometry->GetDerivedType(), FdoGeometryType_CurveString);
    EXPECT_EQ(static_cast<FdoICurveString*>(geometry.p)->GetCount(), 0);
    FdoPtr<FdoIEnvelope> envelope = geometry->GetEnvelope();
    EXPECT_TRUE(envelope->GetIsEmpty());
    EXPECT_EQ(WkbOf(geometry), fdo::Wkb("CIRCULARSTRING EMPTY"));
  }
}

TEST(GeometryRoundTrip, WkbCurveWithAGapIsRefused) {
  Bytes const wkb = fdo::Wkb("COMPOUNDCURVE ((0 0, 1 0), (2 0, 3 0))");
  EXPECT_EQ(CaughtMessage([&] { FromWkb(wkb); }), L"Invalid WKB stream!");
}

TEST(GeometryRoundTrip, WkbTypesWithoutCounterpartAreNamed) {
  Bytes wkb = fdo::Wkb("POLYGON ((0 0, 1 0, 1 1, 0 0))");
  wkb[1] = 17;
  EXPECT_EQ(CaughtMessage([&] { FromWkb(wkb); }), L"The WKB geometry type 17 is not supported.");
}

TEST(GeometryRoundTrip, WhatFollowsTheGeometryIsNotLookedAt) {
  Bytes const exact = fdo::Fgf("LINESTRING (1 2, 3 4)");
  Bytes longer = exact;
  longer.push_back(7);
  FdoPtr<FdoIGeometry> geometry = FromFgf(longer);
  EXPECT_EQ(FgfOf(geometry), exact);
  FdoPtr<FdoIGeometry> borrowing =
      Factory()->CreateGeometryFromFgf(longer.data(), static_cast<FdoInt32>(longer.size()));
  EXPECT_EQ(FgfOf(borrowing), exact);
}

// The bytes are in an allocation of just their size, so that a sanitizer sees a read behind them.
TEST(HostileStream, EveryTruncationOfFgfIsRefused) {
  for (CataloguedStream const& entry : FgfCatalogue()) {
    for (std::size_t size = 0; size < entry.stream.bytes.size(); ++size) {
      Bytes const prefix(entry.stream.bytes.begin(),
                         entry.stream.bytes.begin() + static_cast<std::ptrdiff_t>(size));
      ASSERT_EQ(CaughtMessage([&] { FromFgf(prefix); }), L"Invalid FGF stream!")
          << entry.text << ", " << size;
    }
  }
}

TEST(HostileStream, EveryTruncationOfWkbIsRefused) {
  for (CataloguedStream const& entry : FgfCatalogue()) {
    FdoPtr<FdoIGeometry> geometry = FromFgf(entry.stream.bytes);
    Bytes const wkb = WkbOf(geometry);
    for (std::size_t size = 0; size < wkb.size(); ++size) {
      Bytes const prefix(wkb.begin(), wkb.begin() + static_cast<std::ptrdiff_t>(size));
      ASSERT_EQ(CaughtMessage([&] { FromWkb(prefix); }), L"Invalid WKB stream!")
          << entry.text << ", " << size;
    }
  }
}

// Counts that no stream has room for: the largest, and those whose product with a stride overflows.
constexpr FdoInt32 kHostileCounts[] = {-1,
                                       std::numeric_limits<FdoInt32>::min(),
                                       std::numeric_limits<FdoInt32>::max(),
                                       0x10000000,
                                       0x20000000,
                                       0x08000001};

Bytes WithCount(Bytes bytes, std::size_t offset, FdoInt32 count) {
  std::memcpy(bytes.data() + offset, &count, sizeof(count));
  return bytes;
}

TEST(HostileStream, CountsAreHeldAgainstWhatIsLeft) {
  for (CataloguedStream const& entry : FgfCatalogue()) {
    std::vector<std::size_t> offsets = entry.stream.countOffsets;
    offsets.insert(offsets.end(), entry.stream.ringCountOffsets.begin(), entry.stream.ringCountOffsets.end());
    for (std::size_t offset : offsets) {
      for (FdoInt32 count : kHostileCounts) {
        Bytes const bytes = WithCount(entry.stream.bytes, offset, count);
        ASSERT_EQ(CaughtMessage([&] { FromFgf(bytes); }), L"Invalid FGF stream!")
            << entry.text << ", " << count << " at " << offset;
      }
    }
  }
}

TEST(HostileStream, WkbCountsAreHeldAgainstWhatIsLeft) {
  for (CataloguedStream const& entry : FgfCatalogue()) {
    if (!entry.inOldWkb) continue;
    fdo::WkbStream const wkb = fdo::BuildWkb(entry.text);
    for (std::size_t offset : wkb.countOffsets) {
      for (FdoInt32 count : kHostileCounts) {
        Bytes const bytes = WithCount(wkb.bytes, offset, count);
        ASSERT_EQ(CaughtMessage([&] { FromWkb(bytes); }), L"Invalid WKB stream!")
            << entry.text << ", " << count << " at " << offset;
      }
    }
  }
}

void Append(Bytes& bytes, FdoInt32 value) {
  auto const* const begin = reinterpret_cast<unsigned char const*>(&value);
  bytes.insert(bytes.end(), begin, begin + sizeof(value));
}

Bytes NestedFgf(int collections) {
  Bytes bytes;
  for (int i = 0; i < collections; ++i) {
    Append(bytes, FdoGeometryType_MultiGeometry);
    Append(bytes, 1);
  }
  Bytes const point = fdo::Fgf("POINT (1 2)");
  bytes.insert(bytes.end(), point.begin(), point.end());
  return bytes;
}

Bytes NestedWkb(int collections) {
  Bytes bytes;
  for (int i = 0; i < collections; ++i) {
    bytes.push_back(1);
    Append(bytes, 7);
    Append(bytes, 1);
  }
  Bytes const point = fdo::Wkb("POINT (1 2)");
  bytes.insert(bytes.end(), point.begin(), point.end());
  return bytes;
}

TEST(HostileStream, NestingEndsAtThe128thLevel) {
  for (int collections : {10, 127}) {
    FdoPtr<FdoIGeometry> geometry = FromFgf(NestedFgf(collections));
    EXPECT_EQ(WkbOf(geometry), NestedWkb(collections));
    FdoPtr<FdoIGeometry> back = FromWkb(NestedWkb(collections));
    EXPECT_EQ(FgfOf(back), NestedFgf(collections));
  }
  for (int collections : {128, 100000}) {
    EXPECT_EQ(CaughtMessage([&] { FromFgf(NestedFgf(collections)); }), L"Invalid FGF stream!");
    EXPECT_EQ(CaughtMessage([&] { FromWkb(NestedWkb(collections)); }), L"Invalid WKB stream!");
  }
}

TEST(HostileStream, UnknownTypesAndDimensionalitiesAreRefused) {
  for (FdoInt32 type : {0, 8, 9, 14, 129, 130, -1}) {
    Bytes const bytes = WithCount(fdo::Fgf("POINT (1 2)"), 0, type);
    EXPECT_EQ(CaughtMessage([&] { FromFgf(bytes); }), L"Invalid FGF stream!") << type;
  }
  for (FdoInt32 dimensionality : {4, 7, -1}) {
    Bytes const bytes = WithCount(fdo::Fgf("POINT ZM (1 2 3 4)"), 4, dimensionality);
    EXPECT_EQ(CaughtMessage([&] { FromFgf(bytes); }), L"Invalid FGF stream!") << dimensionality;
  }
}

TEST(HostileStream, APartOfAnotherTypeIsRefused) {
  Bytes const bytes = WithCount(fdo::Fgf("GEOMETRYCOLLECTION (POINT (1 2), LINESTRING EMPTY)"), 0,
                                FdoGeometryType_MultiPoint);
  EXPECT_EQ(CaughtMessage([&] { FromFgf(bytes); }), L"Invalid FGF stream!");
}

TEST(HostileStream, NullAndNegativeSizesAreRefused) {
  EXPECT_EQ(CaughtMessage([] { Factory()->CreateGeometryFromFgf(static_cast<FdoByte const*>(nullptr), 0); }),
            L"Invalid FGF stream!");
  FdoByte const byte = 0;
  EXPECT_EQ(CaughtMessage([&] { Factory()->CreateGeometryFromFgf(&byte, -1); }), L"Invalid FGF stream!");
  EXPECT_NE(CaughtMessage([] { Factory()->CreateGeometryFromFgf(static_cast<FdoByteArray*>(nullptr)); }),
            L"");
  EXPECT_NE(CaughtMessage([] { Factory()->CreateGeometryFromWkb(nullptr); }), L"");
  EXPECT_NE(CaughtMessage([] { Factory()->GetFgf(nullptr); }), L"");
  EXPECT_NE(CaughtMessage([] { Factory()->GetWkb(nullptr); }), L"");
}

}  // namespace
