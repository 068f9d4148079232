// The text of geometries, as GeomFromText takes it and FdoGeometryValue writes it.
#include "sdk/runtime/text/fgf_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "Common/StringP.h"
#include "sdk/runtime/text/text_error.h"
#include "testing/fgf_builder.h"
#include "testing/fgf_catalogue.h"

namespace fdo_sdk {
namespace {

std::string Utf8(std::wstring const& text) { return static_cast<char const*>(FdoStringP(text.c_str())); }

std::wstring TextOf(std::vector<unsigned char> const& bytes) { return FgfToText(bytes.data(), bytes.size()); }

TEST(FgfText, BytesTextBytesIsTheIdentityOverTheCatalogue) {
  for (auto const& entry : fdo::FgfCatalogue()) {
    SCOPED_TRACE(entry.text);
    auto const& bytes = entry.stream.bytes;
    try {
      std::wstring const text = TextOf(bytes);
      EXPECT_EQ(TextToFgf(text), bytes) << Utf8(text);
      EXPECT_EQ(TextOf(TextToFgf(text)), text);
    } catch (TextError const& error) {
      ADD_FAILURE() << error.position << ": " << Utf8(error.message);
    }
  }
}

TEST(FgfText, EveryPrefixOfAStreamIsRefused) {
  for (auto const& entry : fdo::FgfCatalogue()) {
    auto const& bytes = entry.stream.bytes;
    if (bytes.size() > 600) continue;
    for (std::size_t length = 0; length < bytes.size(); ++length) {
      std::vector<unsigned char> const part(bytes.begin(),
                                            bytes.begin() + static_cast<std::ptrdiff_t>(length));
      EXPECT_THROW(TextOf(part), TextError) << entry.text << " cut at " << length;
    }
    std::vector<unsigned char> longer = bytes;
    longer.push_back(0);
    EXPECT_THROW(TextOf(longer), TextError) << entry.text;
  }
}

TEST(FgfText, HostileCountsAreRefusedBeforeTheyAreUsed) {
  for (auto const& entry : fdo::FgfCatalogue()) {
    for (std::size_t const at : entry.stream.countOffsets) {
      for (std::uint32_t const count : {0xFFFFFFFFu, 0x7FFFFFFFu, 0x10000001u, 0x08000001u}) {
        std::vector<unsigned char> bytes = entry.stream.bytes;
        for (std::size_t i = 0; i < 4; ++i) bytes[at + i] = static_cast<unsigned char>(count >> (8 * i));
        EXPECT_THROW(TextOf(bytes), TextError) << entry.text << " at " << at;
      }
    }
  }
}

// What is written stands on the right; a row with the same text on both sides is the canonical form.
TEST(FgfText, FormsThatAreReadAndTheOneThatIsWritten) {
  struct Row {
    wchar_t const* read;
    wchar_t const* written;
  };
  constexpr Row kRows[] = {
      {L"POINT (10 20)", L"POINT (10 20)"},
      {L"point xy(10 20)", L"POINT (10 20)"},
      {L"POINT (10 11 12)", L"POINT (10 11)"},
      {L"POINT XYZ (1 2 3 4 5)", L"POINT XYZ (1 2 3)"},
      {L"POINT Z (1 2 3)", L"POINT XYZ (1 2 3)"},
      {L"POINT m (1 2 3)", L"POINT XYM (1 2 3)"},
      {L"POINT ZM (1 2 3 4)", L"POINT XYZM (1 2 3 4)"},
      {L"POINT (-.5 +1e2)", L"POINT (-0.5 100)"},
      {L"POINT (0.1 1e300)", L"POINT (0.1 1e+300)"},
      {L"POINT (nan -infinity)", L"POINT (NaN -Infinity)"},
      {L"LINESTRING(0 0,1 1)", L"LINESTRING (0 0, 1 1)"},
      {L"LINESTRING EMPTY", L"LINESTRING EMPTY"},
      {L"LINESTRING XYM empty", L"LINESTRING XYM EMPTY"},
      {L"POLYGON ((0 0,1 0,1 1,0 0),(2 2,3 2,3 3,2 2))",
       L"POLYGON ((0 0, 1 0, 1 1, 0 0), (2 2, 3 2, 3 3, 2 2))"},
      {L"POLYGON ((0 0, 1 0, 1 1, 0 0), EMPTY)", L"POLYGON ((0 0, 1 0, 1 1, 0 0), EMPTY)"},
      {L"MULTIPOINT (1 2, 3 4)", L"MULTIPOINT (1 2, 3 4)"},
      {L"MULTIPOINT ((1 2), (3 4))", L"MULTIPOINT (1 2, 3 4)"},
      {L"MULTIPOINT ZM (1 2 3 4)", L"MULTIPOINT XYZM (1 2 3 4)"},
      {L"MULTIPOINT Z EMPTY", L"MULTIPOINT EMPTY"},
      {L"MULTILINESTRING ((0 0, 1 1), (2 2, 3 3))", L"MULTILINESTRING ((0 0, 1 1), (2 2, 3 3))"},
      {L"MULTIPOLYGON XYZ (((0 0 1, 1 0 1, 1 1 1, 0 0 1)))",
       L"MULTIPOLYGON XYZ (((0 0 1, 1 0 1, 1 1 1, 0 0 1)))"},
      {L"GEOMETRYCOLLECTION Z (POINT (1 2), LINESTRING M (1 2 3, 4 5 6))",
       L"GEOMETRYCOLLECTION (POINT (1 2), LINESTRING XYM (1 2 3, 4 5 6))"},
      {L"GEOMETRYCOLLECTION EMPTY", L"GEOMETRYCOLLECTION EMPTY"},
      {L"curvestring(0 0(circulararcsegment(1 1,2 0),linestringsegment(3 0,4 0)))",
       L"CURVESTRING (0 0 (CIRCULARARCSEGMENT (1 1, 2 0), LINESTRINGSEGMENT (3 0, 4 0)))"},
      {L"CURVEPOLYGON XYZ ((0 0 1 (CIRCULARARCSEGMENT (1 1 1, 2 0 1), CIRCULARARCSEGMENT (1 -1 1, 0 0 1))))",
       L"CURVEPOLYGON XYZ ((0 0 1 (CIRCULARARCSEGMENT (1 1 1, 2 0 1), CIRCULARARCSEGMENT (1 -1 1, 0 0 1))))"},
      {L"MULTICURVESTRING ((0 0 (LINESTRINGSEGMENT (1 1))), (2 2 EMPTY))",
       L"MULTICURVESTRING ((0 0 (LINESTRINGSEGMENT (1 1))), (2 2 EMPTY))"},
      {L"MULTICURVEPOLYGON (((0 0 (LINESTRINGSEGMENT (1 1, 2 0, 0 0)))))",
       L"MULTICURVEPOLYGON (((0 0 (LINESTRINGSEGMENT (1 1, 2 0, 0 0)))))"},
  };
  for (Row const& row : kRows) {
    try {
      EXPECT_EQ(Utf8(TextOf(TextToFgf(row.read))), Utf8(row.written));
    } catch (TextError const& error) {
      ADD_FAILURE() << Utf8(row.read) << " " << error.position << ": " << Utf8(error.message);
    }
  }
}

TEST(FgfText, BytesAreThoseOfTheLayout) {
  EXPECT_EQ(TextToFgf(L"MULTIPOINT XYZ (1 2 3)"), (std::vector<unsigned char>{
                                                      4, 0, 0, 0,                    // MultiPoint
                                                      1, 0, 0, 0,                    // one part
                                                      1, 0, 0, 0,                    // Point
                                                      1, 0, 0, 0,                    // XYZ
                                                      0, 0, 0, 0, 0, 0, 0xF0, 0x3F,  // 1
                                                      0, 0, 0, 0, 0, 0, 0,    0x40,  // 2
                                                      0, 0, 0, 0, 0, 0, 0x08, 0x40,  // 3
                                                  }));
}

TEST(FgfText, RefusalsNameThePlaceAndWhatWasExpected) {
  struct Row {
    wchar_t const* text;
    std::size_t position;
    char const* message;
  };
  constexpr Row kRows[] = {
      {L"", 0, "expected the word of a geometry type, such as POINT, but found the end of the text."},
      {L"CIRCLE (0 0)", 0, "expected the word of a geometry type, such as POINT, but found \"CIRCLE\"."},
      {L"POINT", 5, "expected \"(\", but found the end of the text."},
      {L"POINT EMPTY", 6, "expected \"(\", but found \"EMPTY\"."},
      {L"CURVESTRING EMPTY", 12, "expected \"(\", but found \"EMPTY\"."},
      {L"POINT (1)", 8, "expected an ordinate, but found \")\"."},
      {L"POINT Z (1 2)", 12, "expected an ordinate, but found \")\"."},
      {L"POINT (1 2", 10, "expected \")\", but found the end of the text."},
      {L"POINT (1,2)", 8, "expected an ordinate, but found \",\"."},
      {L"POINT (1 2) x", 12, "expected the end of the geometry, but found \"x\"."},
      {L"POINT (1e999 2)", 7, "expected a number in the range of a double, but found \"1e999\"."},
      {L"LINESTRING (0 0; 1 1)", 15, "expected \",\" or \")\", but found \";\"."},
      {L"LINESTRING ()", 12, "expected an ordinate, but found \")\"."},
      {L"POLYGON (0 0, 1 1)", 9, "expected \"(\", but found \"0\"."},
      {L"CURVESTRING (0 0 (ARC (1 1)))", 18,
       "expected CIRCULARARCSEGMENT or LINESTRINGSEGMENT, but found \"ARC\"."},
      {L"GEOMETRYCOLLECTION (1 2)", 20,
       "expected the word of a geometry type, such as POINT, but found \"1\"."},
  };
  for (Row const& row : kRows) {
    try {
      TextToFgf(row.text);
      ADD_FAILURE() << Utf8(row.text);
    } catch (TextError const& error) {
      EXPECT_EQ(error.position, row.position) << Utf8(row.text);
      EXPECT_EQ(Utf8(error.message), row.message) << Utf8(row.text);
    }
  }
}

TEST(FgfText, StreamsThatAreWrongAreInvalid) {
  std::vector<unsigned char> point = TextToFgf(L"POINT (1 2)");
  point[0] = 8;  // no such type
  std::vector<unsigned char> dimension = TextToFgf(L"POINT (1 2)");
  dimension[4] = 4;
  std::vector<unsigned char> part = TextToFgf(L"MULTIPOINT (1 2)");
  part[8] = 2;  // a line among points
  std::vector<unsigned char> segment = TextToFgf(L"CURVESTRING (0 0 (LINESTRINGSEGMENT (1 1)))");
  segment[28] = 0;
  // Deliberate: the text gives a multi-geometry one dimensionality, so parts that differ have no text.
  std::vector<unsigned char> mixed = TextToFgf(L"MULTIPOINT XYZ (1 2 3, 4 5 6)");
  mixed[36 + 4] = 2;
  for (auto const& bytes : {point, dimension, part, segment, mixed}) {
    try {
      ADD_FAILURE() << Utf8(TextOf(bytes));
    } catch (TextError const& error) {
      EXPECT_EQ(Utf8(error.message), "Invalid FGF stream!");
    }
  }
}

}  // namespace
}  // namespace fdo_sdk
