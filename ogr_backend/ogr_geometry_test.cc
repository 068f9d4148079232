// Every geometry that a stream can hold, written to every format and read back.
#include <fdo/database_ogr.h>
#include <fdo/geometry_stream.h>
#include <fdo/text_conversion.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "ogr_backend/ogr_test_files.h"
#include "ogr_backend/ogr_test_formats.h"
#include "testing/fgf_builder.h"
#include "testing/fgf_catalogue.h"
#include "testing/schema_builder.h"
#include "testing/scratch_directory.h"

namespace fdo {
namespace {

using Bytes = std::vector<unsigned char>;
using Position = std::array<double, 4>;

struct Outcome {
  bool written = false;
  bool read = false;  // the row is in the file
  bool null = false;
  Bytes bytes;
};

// Writes each geometry as a row of one file and tells what came of it.
std::vector<Outcome> RoundTrip(OgrFormat const& format, std::vector<Bytes> const& geometries) {
  ScratchDirectory scratch;
  std::wstring const path = scratch.File(format.fileName);
  std::vector<Outcome> outcomes(geometries.size());
  DatabaseDef def;
  SetTables(def, L"test", {MakeTableDef(L"test", L"town", L"id:Int64 shape:Geometry n:Int32")});
  DatabaseOgr database;
  EXPECT_TRUE(database.Create(path.c_str(), nullptr, def)) << ToUtf8(database.LastError());
  Row row(database[0].Def());
  for (std::size_t i = 0; i < geometries.size(); ++i) {
    row[1].Reset(geometries[i].data(), static_cast<int>(geometries[i].size()), /*copy=*/true);
    row[L"n"].Reset(static_cast<int>(i));
    outcomes[i].written = database[0].Insert(row, nullptr, true);
  }
  database.Disconnect();
  // Some formats leave no file when no row was written.
  if (!database.Connect(path.c_str(), nullptr, nullptr, true, true) || database.Count() == 0) return outcomes;
  database[0].Query();
  while (Row const* read = database[0].Next()) {
    Outcome& outcome = outcomes[static_cast<std::size_t>(static_cast<__int64>((*read)[L"n"]))];
    auto const* const bytes = static_cast<unsigned char const*>(read->Geom());
    outcome.read = true;
    outcome.null = bytes == nullptr;
    if (bytes != nullptr) outcome.bytes.assign(bytes, bytes + read->GeomLen());
  }
  return outcomes;
}

// The positions of a stream, sorted: what is left of a polygon whose rings have been turned.
class PositionCollector : public FgfVisitor {
 public:
  static std::vector<Position> Collect(Bytes const& stream) {
    PositionCollector collector;
    VisitFgf(stream.data(), stream.data() + stream.size(), collector);
    std::sort(collector.positions_.begin(), collector.positions_.end());
    return collector.positions_;
  }
  bool Positions(FgfPositions const& positions) override {
    for (std::int32_t i = 0; i < positions.count; ++i) {
      Position position = {};
      for (int j = 0; j < positions.ordinates; ++j) {
        position[static_cast<std::size_t>(j)] = positions.Ordinate(i, j);
      }
      if (!std::isnan(position[0])) positions_.push_back(position);
    }
    return true;
  }
  bool Start(FgfPositions const& position) override { return Positions(position); }

 private:
  std::vector<Position> positions_;
};

bool Has(std::string const& text, char const* part) { return text.find(part) != std::string::npos; }

class OgrGeometry : public ::testing::TestWithParam<OgrFormat> {
 protected:
  // Whether the format is to take the geometry and give it back.
  bool Carries(CataloguedStream const& entry) const {
    bool const isEmpty = PositionCollector::Collect(entry.stream.bytes).empty();
    bool const hasEmptyParts = !isEmpty && (Has(entry.text, "EMPTY") || Has(entry.text, "nan"));
    if (!entry.inIsoWkb) return false;
    constexpr std::size_t kTypeAndCount = 8;  // an empty multi-geometry has no ordinates to say
    bool const statesM = entry.dimensionality >= 2 && entry.stream.bytes.size() > kTypeAndCount;
    if (!GetParam().m && statesM) return false;
    if (!GetParam().curves && Has(entry.text, "CURVE")) return false;
    if (!GetParam().emptyParts && hasEmptyParts) return false;
    // Where the first row decides the type of the table, it has to have one.
    if ((!GetParam().nullGeometry || !GetParam().mixedOrdinates) && isEmpty) return false;
    return GetParam().mixedTypes || !Has(entry.text, "COLLECTION") || isEmpty;
  }
};

TEST_P(OgrGeometry, WhatIsWrittenReadsBackAndTheRestIsRefused) {
  std::vector<CataloguedStream> const& catalogue = FgfCatalogue();
  std::vector<Bytes> geometries;
  std::vector<Outcome> outcomes;
  for (CataloguedStream const& entry : catalogue) {
    geometries.push_back(entry.stream.bytes);
    if (!GetParam().mixedOrdinates) outcomes.push_back(RoundTrip(GetParam(), {entry.stream.bytes})[0]);
  }
  if (GetParam().mixedOrdinates) outcomes = RoundTrip(GetParam(), geometries);
  int equal = 0;
  for (std::size_t i = 0; i < catalogue.size(); ++i) {
    CataloguedStream const& entry = catalogue[i];
    Outcome const& outcome = outcomes[i];
    SCOPED_TRACE(entry.text);
    EXPECT_EQ(outcome.written, outcome.read) << "what is refused is not there, and what is not refused is";
    EXPECT_EQ(outcome.written, Carries(entry));
    if (!outcome.read) continue;
    std::vector<Position> const positions = PositionCollector::Collect(entry.stream.bytes);
    if (outcome.bytes == entry.stream.bytes) {
      ++equal;
    } else if (positions.empty()) {
      // Formats that are not databases have fewer ways to be empty.
      EXPECT_TRUE(outcome.null || PositionCollector::Collect(outcome.bytes).empty());
    } else {
      EXPECT_FALSE(GetParam().exact);
      ASSERT_FALSE(outcome.null);
      std::vector<Position> const read = PositionCollector::Collect(outcome.bytes);
      ASSERT_EQ(read.size(), positions.size());
      for (std::size_t j = 0; j < read.size(); ++j) {
        for (std::size_t k = 0; k < 4; ++k) {
          EXPECT_NEAR(read[j][k], positions[j][k], std::abs(positions[j][k]) * GetParam().precision);
        }
      }
    }
  }
  EXPECT_GE(equal, 30);
  RecordProperty("equal", equal);
}

TEST_P(OgrGeometry, OtherOrdinatesThanTheFirstRowsAreKeptOrRefused) {
  char const* const texts[] = {"POINT Z (1 2 3)", "POINT (4 5)", "POINT Z (6 7 8)"};
  std::vector<Bytes> geometries;
  for (char const* text : texts) geometries.push_back(Fgf(text));
  std::vector<Outcome> const outcomes = RoundTrip(GetParam(), geometries);
  bool const written[] = {true, GetParam().mixedOrdinates, true};
  for (std::size_t i = 0; i < outcomes.size(); ++i) {
    EXPECT_EQ(outcomes[i].written, written[i]) << texts[i];
    EXPECT_EQ(outcomes[i].read, written[i]) << texts[i];
    if (written[i]) {
      EXPECT_EQ(outcomes[i].bytes, geometries[i]) << texts[i];
    }
  }
}

TEST_P(OgrGeometry, BrokenStreamsAreRefused) {
  std::vector<unsigned char> const line = Fgf("LINESTRING (1 2, 3 4)");
  std::vector<Bytes> geometries;
  for (std::size_t length = 1; length < line.size(); ++length) {
    geometries.emplace_back(line.begin(), line.begin() + static_cast<std::ptrdiff_t>(length));
  }
  geometries.push_back(line);
  std::vector<Outcome> const outcomes = RoundTrip(GetParam(), geometries);
  for (std::size_t i = 0; i < outcomes.size(); ++i) {
    EXPECT_EQ(outcomes[i].written, i + 1 == outcomes.size()) << i;
    EXPECT_EQ(outcomes[i].read, outcomes[i].written) << i;
  }
}

INSTANTIATE_TEST_SUITE_P(Format, OgrGeometry, ::testing::ValuesIn(kOgrFormats),
                         [](auto const& info) { return info.param.name; });

}  // namespace
}  // namespace fdo
