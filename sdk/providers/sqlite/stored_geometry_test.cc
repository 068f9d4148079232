#include "sdk/providers/sqlite/stored_geometry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "port/guarded_bytes.h"
#include "sdk/runtime/geometry/fgf_scan.h"
#include "testing/fgf_builder.h"
#include "testing/fgf_catalogue.h"
#include "testing/iso_wkb_pairs.h"

namespace fdo_sqlite {
namespace {

using fdo::Fgf;
using fdo::Wkb;
using fdo::WkbOrder;
using fdo::WkbZ;
using fdo_sdk::FgfBox;

typedef std::vector<unsigned char> Bytes;

constexpr GeometryFormat kFormats[] = {GeometryFormat::kFgf, GeometryFormat::kWkb, GeometryFormat::kWkt};

Bytes Copy(GeometryBytes const& bytes) { return Bytes(bytes.data, bytes.data + bytes.size); }

// Empty for a null geometry.
Bytes Read(GeometryFormat format, Bytes const& stored) {
  StoredGeometry geometry(format);
  return Copy(geometry.Fgf(stored.data(), stored.size()));
}

Bytes ReadText(std::string const& text) {
  return Read(GeometryFormat::kWkt, Bytes(text.begin(), text.end()));
}

std::string WriteText(std::string const& fgfText) {
  StoredGeometry geometry(GeometryFormat::kWkt);
  Bytes const fgf = Fgf(fgfText);
  GeometryBytes const stored = geometry.Store(fgf.data(), fgf.size());
  return std::string(stored.data, stored.data + stored.size);
}

TEST(StoredGeometry, WkbIsReadInBothByteOrdersAndBothMarksOfZ) {
  for (fdo::IsoWkbPair const& pair : fdo::IsoWkbPairs()) {
    for (WkbOrder order : {WkbOrder::kLittleEndian, WkbOrder::kBigEndian, WkbOrder::kMixed}) {
      EXPECT_EQ(Read(GeometryFormat::kWkb, Wkb(pair.wkb, order)), Fgf(pair.fgf)) << pair.wkb;
    }
    if (pair.wkb.find('M', pair.wkb.find(' ')) != std::string::npos) continue;
    EXPECT_EQ(Read(GeometryFormat::kWkb, Wkb(pair.wkb, WkbOrder::kLittleEndian, WkbZ::kBit)), Fgf(pair.fgf))
        << pair.wkb;
  }
}

TEST(StoredGeometry, WkbIsStoredWithTheOrdinatesOfEachPart) {
  struct {
    char const* fgf;
    char const* wkb;
  } const cases[] = {
      {"MULTIPOINT Z (1 2 3, 4 5 6)", "MULTIPOINT Z (1 2 3, 4 5 6)"},
      {"MULTILINESTRING ZM ((1 2 3 4, 5 6 7 8))", "MULTILINESTRING ZM ((1 2 3 4, 5 6 7 8))"},
      {"POLYGON ((0 0, 4 0, 4 4, 0 0))", "POLYGON ((0 0, 4 0, 4 4, 0 0))"},
  };
  StoredGeometry geometry(GeometryFormat::kWkb);
  for (auto const& each : cases) {
    Bytes const fgf = Fgf(each.fgf);
    EXPECT_EQ(Copy(geometry.Store(fgf.data(), fgf.size())), Wkb(each.wkb)) << each.fgf;
  }
}

TEST(StoredGeometry, EveryFormatKeepsWhatItStores) {
  for (GeometryFormat format : kFormats) {
    StoredGeometry writer(format);
    StoredGeometry reader(format);
    int kept = 0;
    for (fdo::CataloguedStream const& each : fdo::FgfCatalogue()) {
      if (!each.inIsoWkb) continue;
      Bytes const& fgf = each.stream.bytes;
      GeometryBytes const stored = writer.Store(fgf.data(), fgf.size());
      Bytes const back = Copy(reader.Fgf(stored.data, stored.size));
      // Text that has no position to tell its ordinates by reads as XY.
      bool const textLosesOrdinates = format == GeometryFormat::kWkt &&
                                      each.text.find("EMPTY") != std::string::npos && each.dimensionality > 0;
      if (textLosesOrdinates) {
        EXPECT_FALSE(back.empty()) << each.text;
      } else {
        EXPECT_EQ(back, fgf) << each.text << std::string(stored.data, stored.data + stored.size);
        ++kept;
      }
    }
    EXPECT_GT(kept, 150);
  }
}

TEST(StoredGeometry, TextIsReadInEveryDialectOfTheFile) {
  struct {
    char const* text;
    char const* fgf;  // null: not a geometry
  } const cases[] = {
      {"POINT (1 2)", "POINT (1 2)"},
      {"point(1 2)", "POINT (1 2)"},
      {"POINT (1 2 3)", "POINT Z (1 2 3)"},
      {"POINT (1 2 3 4)", "POINT ZM (1 2 3 4)"},
      {"POINT Z (1 2 3)", "POINT Z (1 2 3)"},
      {"POINTZ(1 2 3)", "POINT Z (1 2 3)"},
      {"POINT M (1 2 3)", "POINT M (1 2 3)"},
      {"PointZM (1 2 3 4)", "POINT ZM (1 2 3 4)"},
      {"POINT (-1.5e3 +.25)", "POINT (-1500 0.25)"},
      {"POINT EMPTY", "POINT EMPTY"},
      {"POINT Z EMPTY", "POINT Z EMPTY"},
      {"\tLINESTRING ( 0 0 , 1 1 )\n", "LINESTRING (0 0, 1 1)"},
      {"LINESTRING EMPTY", "LINESTRING EMPTY"},
      {"POLYGON ((0 0,4 0,4 4,0 0),(1 1,2 1,2 2,1 1))",
       "POLYGON ((0 0, 4 0, 4 4, 0 0), (1 1, 2 1, 2 2, 1 1))"},
      {"POLYGON ((0 0 1,4 0 1,4 4 1,0 0 1))", "POLYGON Z ((0 0 1, 4 0 1, 4 4 1, 0 0 1))"},
      {"MULTIPOINT (1 2,3 4)", "MULTIPOINT (1 2, 3 4)"},
      {"MULTIPOINT ((1 2),(3 4))", "MULTIPOINT (1 2, 3 4)"},
      {"MULTIPOINT M (1 2 3)", "MULTIPOINT M (1 2 3)"},
      {"MULTILINESTRING ((0 0,1 1),(2 2,3 3))", "MULTILINESTRING ((0 0, 1 1), (2 2, 3 3))"},
      {"MULTIPOLYGON (((0 0,4 0,4 4,0 0)))", "MULTIPOLYGON (((0 0, 4 0, 4 4, 0 0)))"},
      {"GEOMETRYCOLLECTION (POINT (1 2 3),LINESTRING (0 0,1 1))",
       "GEOMETRYCOLLECTION (POINT Z (1 2 3), LINESTRING (0 0, 1 1))"},
      {"CIRCULARSTRING Z (0 0 1,1 1 1,2 0 1)", "CURVESTRING Z (0 0 1 (CIRCULARARCSEGMENT (1 1 1, 2 0 1)))"},
      {"COMPOUNDCURVE ((0 0,1 0),CIRCULARSTRING (1 0,2 1,3 0))",
       "CURVESTRING (0 0 (LINESTRINGSEGMENT (1 0), CIRCULARARCSEGMENT (2 1, 3 0)))"},
      {"CURVEPOLYGON (CIRCULARSTRING (0 0,1 1,2 0,1 -1,0 0))",
       "CURVEPOLYGON ((0 0 (CIRCULARARCSEGMENT (1 1, 2 0), CIRCULARARCSEGMENT (1 -1, 0 0))))"},
      {"", nullptr},
      {"POINT", nullptr},
      {"POINT (1)", nullptr},
      {"POINT (1 2", nullptr},
      {"POINT (1 2) x", nullptr},
      {"POINT (1 2,3 4)", nullptr},
      {"POINT Z (1 2)", nullptr},
      {"POINT (1 2 3 4 5)", nullptr},
      {"POINT (1,2)", nullptr},
      {"POINT (1e999 2)", nullptr},
      {"LINESTRING (0 0,1 1 1)", nullptr},
      {"MULTIPOINT (POINT (1 2))", nullptr},
      {"TRIANGLE ((0 0,4 0,4 4,0 0))", nullptr},
      {"SRID=4326;POINT (1 2)", nullptr},
      {"NOTHING (1 2)", nullptr},
  };
  for (auto const& each : cases) {
    Bytes const expected = each.fgf == nullptr ? Bytes() : Fgf(each.fgf);
    EXPECT_EQ(ReadText(each.text), expected) << each.text;
  }
}

TEST(StoredGeometry, TextIsWrittenAsOtherProgramsWriteIt) {
  struct {
    char const* fgf;
    char const* text;
  } const cases[] = {
      {"POINT (1 2)", "POINT (1 2)"},
      {"POINT (0.1 -1500000)", "POINT (0.1 -1500000)"},
      {"POINT Z (1 2 3)", "POINT (1 2 3)"},
      {"POINT M (1 2 3)", "POINT M (1 2 3)"},
      {"POINT ZM (1 2 3 4)", "POINT ZM (1 2 3 4)"},
      {"POINT EMPTY", "POINT EMPTY"},
      {"POLYGON ((0 0, 4 0, 4 4, 0 0))", "POLYGON ((0 0,4 0,4 4,0 0))"},
      {"MULTIPOINT (1 2, 3 4)", "MULTIPOINT (1 2,3 4)"},
      {"MULTIPOINT Z (1 2 3)", "MULTIPOINT (1 2 3)"},
      {"GEOMETRYCOLLECTION (POINT (1 2), LINESTRING EMPTY)",
       "GEOMETRYCOLLECTION (POINT (1 2),LINESTRING EMPTY)"},
      {"CURVESTRING Z (0 0 1 (CIRCULARARCSEGMENT (1 1 1, 2 0 1)))", "CIRCULARSTRING Z (0 0 1,1 1 1,2 0 1)"},
  };
  for (auto const& each : cases) EXPECT_EQ(WriteText(each.fgf), each.text);
}

// Nothing of one format looks like a geometry of another.
TEST(StoredGeometry, ValuesInAnotherFormatAreNull) {
  for (fdo::CataloguedStream const& each : fdo::FgfCatalogue()) {
    if (!each.inIsoWkb) continue;
    for (GeometryFormat written : kFormats) {
      StoredGeometry writer(written);
      GeometryBytes const stored = writer.Store(each.stream.bytes.data(), each.stream.bytes.size());
      for (GeometryFormat read : kFormats) {
        if (read == written) continue;
        EXPECT_TRUE(Read(read, Copy(stored)).empty()) << each.text;
      }
      EXPECT_TRUE(Read(GeometryFormat::kUnsupported, Copy(stored)).empty());
    }
  }
}

TEST(StoredGeometry, NothingAndEmptyAreNull) {
  for (GeometryFormat format : kFormats) {
    StoredGeometry geometry(format);
    FgfBox box;
    EXPECT_TRUE(geometry.Fgf(nullptr, 0).IsNull());
    EXPECT_TRUE(geometry.Fgf("", 0).IsNull());
    EXPECT_FALSE(geometry.Box(nullptr, 0, box));
    EXPECT_FALSE(geometry.Box("", 0, box));
  }
}

TEST(StoredGeometry, BytesBehindAGeometryAreIgnoredAndNotStored) {
  Bytes const fgf = Fgf("LINESTRING (1 2, 3 4)");
  Bytes longer = fgf;
  longer.push_back(7);
  EXPECT_EQ(Read(GeometryFormat::kFgf, longer), fgf);
  StoredGeometry geometry(GeometryFormat::kFgf);
  EXPECT_EQ(Copy(geometry.Store(longer.data(), longer.size())), fgf);
  Bytes wkb = Wkb("LINESTRING (1 2, 3 4)");
  wkb.push_back(7);
  EXPECT_EQ(Read(GeometryFormat::kWkb, wkb), fgf);
}

// Every prefix, at the end of readable memory.
TEST(StoredGeometry, WhatIsCutShortIsNull) {
  fdo::port::GuardedBytes guarded(1 << 16);
  for (GeometryFormat format : {GeometryFormat::kFgf, GeometryFormat::kWkb}) {
    StoredGeometry writer(format);
    StoredGeometry reader(format);
    for (fdo::CataloguedStream const& each : fdo::FgfCatalogue()) {
      if (!each.inIsoWkb || each.stream.bytes.size() > 400) continue;
      Bytes const stored = Copy(writer.Store(each.stream.bytes.data(), each.stream.bytes.size()));
      for (std::size_t size = 0; size < stored.size(); ++size) {
        unsigned char* const cut = guarded.Last(size);
        if (size > 0) std::memcpy(cut, stored.data(), size);
        FgfBox box;
        EXPECT_TRUE(reader.Fgf(cut, size).IsNull()) << each.text << " cut to " << size;
        EXPECT_FALSE(reader.Box(cut, size, box)) << each.text << " cut to " << size;
      }
    }
  }
}

TEST(StoredGeometry, HostileBytesAreNullOrWhole) {
  std::mt19937 random(1);
  fdo::port::GuardedBytes guarded(1 << 12);
  for (GeometryFormat format : kFormats) {
    StoredGeometry writer(format);
    StoredGeometry reader(format);
    for (fdo::CataloguedStream const& each : fdo::FgfCatalogue()) {
      if (!each.inIsoWkb || each.stream.bytes.size() > 400) continue;
      Bytes const stored = Copy(writer.Store(each.stream.bytes.data(), each.stream.bytes.size()));
      for (int round = 0; round < 20; ++round) {
        unsigned char* const bytes = guarded.Last(stored.size());
        std::memcpy(bytes, stored.data(), stored.size());
        for (int changes = 0; changes < 3; ++changes) {
          bytes[random() % stored.size()] = static_cast<unsigned char>(random() % 3 == 0 ? 0xff : random());
        }
        GeometryBytes const fgf = reader.Fgf(bytes, stored.size());
        FgfBox box;
        StoredGeometry measuring(format);
        bool const hasBox = measuring.Box(bytes, stored.size(), box);
        if (fgf.IsNull()) {
          EXPECT_FALSE(hasBox) << each.text << " round " << round;
          continue;
        }
        fdo_sdk::FgfScan const scan = fdo_sdk::ScanFgf(fgf.data, fgf.size);
        EXPECT_EQ(static_cast<std::size_t>(scan.size), fgf.size);
        EXPECT_EQ(hasBox, !scan.box.IsEmpty()) << each.text << " round " << round;
      }
    }
  }
}

TEST(StoredGeometry, NestingIsBounded) {
  auto const nested = [](int depth) {
    std::string text;
    for (int i = 0; i < depth - 1; ++i) text += "GEOMETRYCOLLECTION (";
    return text + "POINT (1 2)" + std::string(static_cast<std::size_t>(depth - 1), ')');
  };
  EXPECT_FALSE(ReadText(nested(127)).empty());
  EXPECT_FALSE(ReadText(nested(128)).empty());
  EXPECT_TRUE(ReadText(nested(129)).empty());
  EXPECT_TRUE(ReadText(nested(100000)).empty());
}

TEST(StoredGeometry, TheBoxIsThatOfTheFgfInEveryFormat) {
  for (GeometryFormat format : kFormats) {
    StoredGeometry writer(format);
    StoredGeometry reader(format);
    for (fdo::CataloguedStream const& each : fdo::FgfCatalogue()) {
      if (!each.inIsoWkb) continue;
      Bytes const& fgf = each.stream.bytes;
      FgfBox const expected = fdo_sdk::ScanFgf(fgf.data(), fgf.size()).box;
      GeometryBytes const stored = writer.Store(fgf.data(), fgf.size());
      FgfBox box;
      ASSERT_EQ(reader.Box(stored.data, stored.size, box), !expected.IsEmpty()) << each.text;
      if (expected.IsEmpty()) continue;
      EXPECT_EQ(box.minX, expected.minX) << each.text;
      EXPECT_EQ(box.minY, expected.minY) << each.text;
      EXPECT_EQ(box.maxX, expected.maxX) << each.text;
      EXPECT_EQ(box.maxY, expected.maxY) << each.text;
    }
  }
}

TEST(StoredGeometry, BigEndianWkbHasTheSameBox) {
  for (fdo::IsoWkbPair const& pair : fdo::IsoWkbPairs()) {
    StoredGeometry geometry(GeometryFormat::kWkb);
    Bytes const little = Wkb(pair.wkb);
    Bytes const big = Wkb(pair.wkb, WkbOrder::kBigEndian);
    FgfBox expected, box;
    ASSERT_EQ(geometry.Box(little.data(), little.size(), expected),
              geometry.Box(big.data(), big.size(), box));
    EXPECT_EQ(std::memcmp(&box, &expected, sizeof(box)), 0) << pair.wkb;
  }
}

TEST(StoredGeometry, WhatIsNotWholeIsNotStored) {
  Bytes const fgf = Fgf("LINESTRING (1 2, 3 4)");
  for (GeometryFormat format : kFormats) {
    StoredGeometry geometry(format);
    for (std::size_t size = 0; size < fgf.size(); ++size) {
      try {
        geometry.Store(fgf.data(), size);
        ADD_FAILURE() << size;
      } catch (FdoException* raised) {
        FdoPtr<FdoException> failure(raised);
        EXPECT_STREQ(failure->GetExceptionMessage(), L"Invalid FGF stream!");
      }
    }
  }
}

}  // namespace
}  // namespace fdo_sqlite
