// What every format has in common when its tables are written.
#include <Fdo.h>
#include <fdo/database_ogr.h>
#include <fdo/text_conversion.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <filesystem>
#include <set>

#include "ogr_backend/town_database.h"
#include "testing/captured_diagnostics.h"
#include "testing/fgf_builder.h"
#include "testing/schema_builder.h"

namespace fdo {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class OgrWrite : public TownDatabase {
 protected:
  // A new file with one table of those columns, open for inserting.
  void Create(std::wstring_view columns) {
    DatabaseDef def;
    SetTables(def, L"test", {MakeTableDef(L"test", L"town", columns)});
    path_ = scratch_.File(GetParam().fileName);
    ASSERT_TRUE(database_.Create(path_.c_str(), nullptr, def)) << ToUtf8(database_.LastError());
    ASSERT_EQ(database_.Count(), 1);
  }
  std::set<std::wstring> AllNames() {
    Only().Query();
    std::vector<std::wstring> const names = NamesOf(Only());
    return {names.begin(), names.end()};
  }
  __int64 IdOf(wchar_t const* filter) {
    FdoPtr<FdoFilter> const parsed = FdoFilter::Parse(filter);
    Only().Query(parsed, nullptr, true);
    Row const* row = Only().Next();
    __int64 const id = row == nullptr ? -1 : row->ID();
    Only().EndQuery();
    return id;
  }
};

TEST_P(OgrWrite, InsertGivesTheIdThatTheStoreChose) {
  path_ = WriteTowns(scratch_, GetParam());
  Open(/*readOnly=*/false);
  Row row(Only().Def());
  SetTown(row, {L"new", 9, 9, 9.0, nullptr, false, "POINT (9 9)"});
  row[0].Reset(3);  // which the store does not heed
  __int64 id = -5;
  ASSERT_TRUE(Only().Insert(row, &id, /*storeMakesId=*/true)) << ToUtf8(database_.LastError());
  EXPECT_EQ(GetParam().tellsNewId ? IdOf(L"n = 9") : 0, id);
  EXPECT_NE(IdOf(L"n = 3"), id);
  EXPECT_TRUE(Only().Insert(row, nullptr, true)) << "nobody need ask for the id";
  EXPECT_EQ(Only().GetRowCount(nullptr, true), 8);
}

TEST_P(OgrWrite, UpdateRewritesTheFeatureOfTheRowsId) {
  path_ = WriteTowns(scratch_, GetParam());
  Open(/*readOnly=*/false);
  __int64 const id = IdOf(L"n = 4");
  Row const* const found = Only().Query(id);
  ASSERT_NE(found, nullptr);
  Row row(*found);
  row[L"name"].Reset(L"changed", true);
  row[L"x"].Reset(77.5);
  row[L"d"].Reset();
  SetGeometry(row, "POINT (40 40)");
  FdoPtr<FdoFilter> const ignored = FdoFilter::Parse(L"n = 1");
  EXPECT_EQ(Only().Update(row, ignored), 1) << ToUtf8(database_.LastError());
  Open(/*readOnly=*/true);
  EXPECT_EQ(Only().GetRowCount(nullptr, true), 6);
  Row const* const changed = Only().Query(GetParam().ownOrder ? id : IdOf(L"n = 4"));
  ASSERT_NE(changed, nullptr);
  EXPECT_EQ(std::wstring((*changed)[L"name"]), L"changed");
  EXPECT_EQ(static_cast<double>((*changed)[L"x"]), 77.5);
  EXPECT_EQ(static_cast<__int64>((*changed)[L"n"]), 4);
  EXPECT_TRUE((*changed)[L"d"].IsNull()) << "null, not the old value";
  double box[4];
  changed->GeomBBOX(box, -1);
  EXPECT_THAT(box, ElementsAre(40, 40, 40, 40));
  EXPECT_EQ(NamesWhere(Only(), L"n = 1"), std::vector<std::wstring>{L"Alpha"}) << "the filter is ignored";
}

TEST_P(OgrWrite, UpdateByIdDoesNothing) {
  path_ = WriteTowns(scratch_, GetParam());
  Open(/*readOnly=*/false);
  Row row(Only().Def());
  SetTown(row, Towns()[0]);
  CapturedDiagnostics diagnostics;
  EXPECT_FALSE(Only().Update(row, IdOf(L"n = 4")));
  EXPECT_EQ(NamesWhere(Only(), L"n = 4"), std::vector<std::wstring>{L"50%"});
  EXPECT_THAT(diagnostics.Lines(), IsEmpty());
}

TEST_P(OgrWrite, DeleteById) {
  path_ = WriteTowns(scratch_, GetParam());
  Open(/*readOnly=*/false);
  __int64 const id = IdOf(L"n = 3");
  EXPECT_TRUE(Only().Delete(id)) << ToUtf8(database_.LastError());
  EXPECT_EQ(Only().Query(id), nullptr);
  EXPECT_FALSE(Only().Delete(id));
  EXPECT_FALSE(Only().Delete(static_cast<__int64>(4711)));
  EXPECT_EQ(AllNames().count(L"it's"), 0u);
  EXPECT_EQ(AllNames().size(), 5u);
}

// Where rows can be written, each is read when it is asked for.
TEST_P(OgrWrite, ARowThatIsDeletedBeforeItsTurnIsNotShown) {
  path_ = WriteTowns(scratch_, GetParam());
  std::string const name = GetParam().name;
  if (name != "Shapefile" && name != "GeoJson") return;  // the databases step through what they have begun
  Open(/*readOnly=*/false);
  Only().Query();
  ASSERT_NE(Only().Next(), nullptr);
  __int64 const next = Only().At().ID() + 1;
  ASSERT_TRUE(Only().Delete(next));
  Row const* row = Only().Next();
  ASSERT_NE(row, nullptr);
  EXPECT_NE(row->ID(), next);
}

// Deliberate: a null number is written as 0, and only text, dates and geometry can be null.
TEST_P(OgrWrite, NullZeroAndEmpty) {
  Create(L"id:Int64 shape:Geometry k:Int32 s:String i:Int32 b:Int64 x:Double d:DateTime");
  Row row(Only().Def());
  enum { kNulls, kUndefined, kZeros, kRows };
  for (int kind = 0; kind < kRows; ++kind) {
    row.Invalidate();
    SetGeometry(row, "POINT (1 1)");
    row[L"k"].Reset(kind);
    for (wchar_t const* column : {L"s", L"i", L"b", L"x", L"d"}) {
      if (kind == kNulls) row[column].Reset();
    }
    if (kind == kZeros) {
      row[L"s"].Reset(L"", true);
      row[L"i"].Reset(0);
      row[L"b"].Reset(0);
      row[L"x"].Reset(0.0);
      row[L"d"].Reset(L"no date", true);
    }
    ASSERT_TRUE(Only().Insert(row, nullptr, true)) << ToUtf8(database_.LastError());
  }
  database_.Disconnect();
  Open(/*readOnly=*/true);
  Only().Query();
  int rows = 0;
  for (; Row const* read = Only().Next(); ++rows) {
    auto const kind = static_cast<int>(static_cast<__int64>((*read)[L"k"]));
    SCOPED_TRACE(kind);
    bool const emptyIsNull = !GetParam().emptyText;
    bool const textIsNull = GetParam().nullText && (kind != kZeros || emptyIsNull);
    EXPECT_EQ((*read)[L"s"].IsNull(), textIsNull);
    if (!textIsNull) {
      EXPECT_EQ(std::wstring((*read)[L"s"]), L"");
    }
    for (wchar_t const* column : {L"i", L"b"}) {
      EXPECT_EQ((*read)[column].Type(), Value::kInt);
      EXPECT_EQ(static_cast<__int64>((*read)[column]), 0);
    }
    EXPECT_EQ((*read)[L"x"].Type(), Value::kDouble);
    EXPECT_EQ(static_cast<double>((*read)[L"x"]), 0.0);
    EXPECT_TRUE((*read)[L"d"].IsNull());
  }
  EXPECT_EQ(rows, kRows);
}

TEST_P(OgrWrite, NullNumbersAreKeptOnRequest) {
  if (!GetParam().nullText) GTEST_SKIP() << "the format holds no nulls";
  database_.KeepNullNumbers(true);
  Create(L"id:Int64 shape:Geometry i:Int32 b:Int64 x:Double");
  Row row(Only().Def());
  SetGeometry(row, "POINT (1 1)");
  for (wchar_t const* column : {L"i", L"b", L"x"}) row[column].Reset();
  ASSERT_TRUE(Only().Insert(row, nullptr, true)) << ToUtf8(database_.LastError());
  database_.Disconnect();
  Open(/*readOnly=*/true);
  Only().Query();
  Row const* const read = Only().Next();
  ASSERT_NE(read, nullptr);
  for (wchar_t const* column : {L"i", L"b", L"x"}) EXPECT_TRUE((*read)[column].IsNull()) << ToUtf8(column);
}

TEST_P(OgrWrite, RowsWithoutAGeometryAreKeptOrRefused) {
  Create(L"id:Int64 shape:Geometry name:String");
  Row row(Only().Def());
  row[1].Reset();
  row[L"name"].Reset(L"nowhere", true);
  if (!GetParam().mixedOrdinates) {
    EXPECT_FALSE(Only().Insert(row, nullptr, true)) << "the first row decides what the table holds";
  }
  SetGeometry(row, "POINT (1 1)");
  row[L"name"].Reset(L"somewhere", true);
  EXPECT_TRUE(Only().Insert(row, nullptr, true)) << ToUtf8(database_.LastError());
  row[1].Reset();
  row[L"name"].Reset(L"nowhere", true);
  bool const inserted = Only().Insert(row, nullptr, true);
  EXPECT_EQ(inserted, GetParam().nullGeometry);
  database_.Disconnect();
  Open(/*readOnly=*/true);
  Only().Query();
  int rows = 0;
  for (; Row const* read = Only().Next(); ++rows) {
    bool const isNowhere = std::wstring((*read)[L"name"]) == L"nowhere";
    EXPECT_EQ((*read)[1].IsNull(), isNowhere);
    EXPECT_EQ(read->Geom() == nullptr, isNowhere);
    EXPECT_EQ(read->GeomLen(), isNowhere ? 0 : 24);
  }
  EXPECT_EQ(rows, inserted ? 2 : 1);
}

TEST_P(OgrWrite, ATableWithoutAGeometryColumn) {
  if (std::string(GetParam().name) == "Shapefile") return;  // it would be a .dbf, not a .shp
  DatabaseDef def;
  SetTables(def, L"test", {MakeTableDef(L"test", L"town", L"id:Int64 name:String n:Int32")});
  path_ = scratch_.File(GetParam().fileName);
  if (!GetParam().nullGeometry) {
    EXPECT_FALSE(database_.Create(path_.c_str(), nullptr, def));
    EXPECT_FALSE(std::filesystem::exists(path_)) << "nothing is left";
    return;
  }
  ASSERT_TRUE(database_.Create(path_.c_str(), nullptr, def)) << ToUtf8(database_.LastError());
  Row row(Only().Def());
  row[L"name"].Reset(L"plain", true);
  row[L"n"].Reset(5);
  EXPECT_TRUE(Only().Insert(row, nullptr, true)) << ToUtf8(database_.LastError());
  if (std::string(GetParam().name) != "GeoJson") {  // which has a place for a geometry in every row
    SetGeometry(row, "POINT (1 1)");
    EXPECT_FALSE(Only().Insert(row, nullptr, true)) << "there is no place for it";
  }
  database_.Disconnect();
  Open(/*readOnly=*/true);
  EXPECT_EQ(AllNames(), std::set<std::wstring>{L"plain"});
  EXPECT_EQ(Only().At().Geom(), nullptr);
}

TEST_P(OgrWrite, DatesWithFractionsAndAtTheEdges) {
  wchar_t const* const dates[] = {L"2024-02-29T23:59:59.999", L"1970-01-01T00:00:00.000",
                                  L"9999-12-31T12:30:15.125", L"0001-01-01T00:00:00.000",
                                  L"2024-07-01T06:07:08.001"};
  Create(L"id:Int64 shape:Geometry k:Int32 d:DateTime");
  Row row(Only().Def());
  SetGeometry(row, "POINT (1 1)");
  for (int i = 0; i < 5; ++i) {
    row[L"k"].Reset(i);
    row[L"d"].Reset(dates[i], true);
    ASSERT_TRUE(Only().Insert(row, nullptr, true));
  }
  row[L"k"].Reset(5);
  row[L"d"].Reset(L"2024-07-01", true);
  ASSERT_TRUE(Only().Insert(row, nullptr, true));
  database_.Disconnect();
  Open(/*readOnly=*/true);
  Only().Query();
  int rows = 0;
  for (; Row const* read = Only().Next(); ++rows) {
    auto const i = static_cast<std::size_t>(static_cast<__int64>((*read)[L"k"]));
    std::wstring expected = i < 5 ? dates[i] : L"2024-07-01T00:00:00.000";
    if (!GetParam().times) expected = expected.substr(0, 10) + L"T00:00:00.000";
    EXPECT_EQ(std::wstring((*read)[L"d"]), expected);
  }
  EXPECT_EQ(rows, 6);
}

TEST_P(OgrWrite, NamesAndTextOutsideAscii) {
  Create(L"id:Int64 shape:Geometry gr\u00f6\u00dfe:Int32 \u6771:String");
  wchar_t const* const texts[] = {L"\u00e9", L"\u6771\u4eac", L"tab\tand \"quotes\", commas", L"line\nbreak",
                                  L"\u20ac\u00a0\u2014"};
  EXPECT_GE(Only().Def()->IndexOf(L"gr\u00f6\u00dfe"), 0);
  EXPECT_GE(Only().Def()->IndexOf(L"\u6771"), 0);
  Row row(Only().Def());
  SetGeometry(row, "POINT (1 1)");
  for (int i = 0; i < 5; ++i) {
    row[L"gr\u00f6\u00dfe"].Reset(i);
    row[L"\u6771"].Reset(texts[i], true);
    ASSERT_TRUE(Only().Insert(row, nullptr, true)) << ToUtf8(database_.LastError());
  }
  database_.Disconnect();
  Open(/*readOnly=*/true);
  Only().Query();
  int rows = 0;
  for (; Row const* read = Only().Next(); ++rows) {
    auto const i = static_cast<std::size_t>(static_cast<__int64>((*read)[L"gr\u00f6\u00dfe"]));
    EXPECT_EQ(std::wstring((*read)[L"\u6771"]), texts[i]) << i;
  }
  EXPECT_EQ(rows, 5);
  FdoPtr<FdoFilter> const filter =
      FdoFilter::Parse(L"\"gr\u00f6\u00dfe\" = 1 AND \"\u6771\" = '\u6771\u4eac'");
  EXPECT_EQ(Only().GetRowCount(filter, true), 1);
}

TEST_P(OgrWrite, BytesReadBack) {
  if (!GetParam().bytes) return;
  Create(L"id:Int64 shape:Geometry k:Int32 data:Blob");
  std::vector<unsigned char> all(256);
  for (std::size_t i = 0; i < all.size(); ++i) all[i] = static_cast<unsigned char>(i);
  Row row(Only().Def());
  SetGeometry(row, "POINT (1 1)");
  row[L"k"].Reset(0);
  row[L"data"].Reset(all.data(), 256, true);
  ASSERT_TRUE(Only().Insert(row, nullptr, true)) << ToUtf8(database_.LastError());
  row[L"k"].Reset(1);
  row[L"data"].Reset();
  ASSERT_TRUE(Only().Insert(row, nullptr, true));
  row[L"k"].Reset(2);
  row[L"data"].Reset(L"text is no bytes", true);
  ASSERT_TRUE(Only().Insert(row, nullptr, true));
  database_.Disconnect();
  Open(/*readOnly=*/true);
  Only().Query();
  int rows = 0;
  for (; Row const* read = Only().Next(); ++rows) {
    Value const& data = (*read)[L"data"];
    if (static_cast<__int64>((*read)[L"k"]) == 0) {
      EXPECT_EQ(data.Type(), Value::kBorrowedBlob);
      ASSERT_EQ(data.BlobLen(), 256);
      EXPECT_EQ(std::memcmp(data.AsBlob(), all.data(), 256), 0);
    } else {
      EXPECT_TRUE(data.IsNull());
    }
  }
  EXPECT_EQ(rows, 3);
}

// A 32-bit field takes the nearest number that it holds.
TEST_P(OgrWrite, NumbersAtAndBeyondTheirLimits) {
  Create(L"id:Int64 shape:Geometry k:Int32 i:Int32 b:Int64 x:Double");
  struct {
    long long i;
    long long iRead;
    long long b;
    double x;
  } const numbers[] = {{2147483647, 2147483647, 9007199254740992LL, 123456789012345.67},
                       {-2147483647, -2147483647, -9007199254740992LL, -0.015625},
                       {99999999, 99999999, 999999999999999LL, 3.141592653589793},
                       {5000000007, 2147483647, 0, 0},
                       {-5000000007, -2147483648LL, 0, 0}};
  Row row(Only().Def());
  SetGeometry(row, "POINT (1 1)");
  for (int k = 0; k < 5; ++k) {
    row[L"k"].Reset(k);
    row[L"i"].Reset(numbers[k].i);
    row[L"b"].Reset(numbers[k].b);
    row[L"x"].Reset(numbers[k].x);
    ASSERT_TRUE(Only().Insert(row, nullptr, true));
  }
  database_.Disconnect();
  Open(/*readOnly=*/true);
  Only().Query();
  // Shapefiles and CSV have real numbers as text of 15 digits.
  bool const asText = std::string(GetParam().name) == "Shapefile" || std::string(GetParam().name) == "Csv";
  double const tolerance = asText ? 1e-14 : 0;
  int rows = 0;
  for (; Row const* read = Only().Next(); ++rows) {
    auto const k = static_cast<std::size_t>(static_cast<__int64>((*read)[L"k"]));
    EXPECT_EQ(static_cast<__int64>((*read)[L"i"]), numbers[k].iRead);
    EXPECT_EQ(static_cast<__int64>((*read)[L"b"]), numbers[k].b);
    EXPECT_NEAR(static_cast<double>((*read)[L"x"]), numbers[k].x, std::abs(numbers[k].x) * tolerance);
  }
  EXPECT_EQ(rows, 5);
}

// A shapefile would keep the first 24 digits of it.
TEST_P(OgrWrite, HugeNumbersAreKeptOrRefused) {
  Create(L"id:Int64 shape:Geometry x:Double");
  Row row(Only().Def());
  SetGeometry(row, "POINT (1 1)");
  row[L"x"].Reset(1.5e300);
  bool const isKept = std::string(GetParam().name) != "Shapefile";
  EXPECT_EQ(Only().Insert(row, nullptr, true), isKept);
  row[L"x"].Reset(1e20);
  EXPECT_TRUE(Only().Insert(row, nullptr, true));
  database_.Disconnect();
  Open(/*readOnly=*/true);
  Value min, max;
  Only().GetMinMax(min, max, L"x", nullptr);
  EXPECT_EQ(static_cast<double>(min), 1e20);
  EXPECT_EQ(static_cast<double>(max), isKept ? 1.5e300 : 1e20);
}

TEST_P(OgrWrite, BulkInsertsWithAndWithoutABracket) {
  Create(L"id:Int64 shape:Geometry n:Int32");
  Row row(Only().Def());
  SetGeometry(row, "POINT (1 1)");
  auto const insert = [&](int first, int last) {
    for (int n = first; n < last; ++n) {
      row[L"n"].Reset(n);
      ASSERT_TRUE(Only().Insert(row, nullptr, true)) << ToUtf8(database_.LastError());
    }
  };
  insert(0, 50);
  Only().BeginWrite();
  insert(50, 500);
  Only().CommitWrite();
  insert(500, 550);
  Only().BeginWrite();
  insert(550, 600);  // never committed: closing keeps what was reported as written
  database_.Disconnect();
  EXPECT_EQ(std::wstring(database_.LastError()), L"");
  Open(/*readOnly=*/true);
  EXPECT_EQ(Only().GetRowCount(nullptr, true), 600);
  std::set<__int64> numbers;
  Only().Query();
  while (Row const* read = Only().Next()) numbers.insert(static_cast<__int64>((*read)[L"n"]));
  EXPECT_EQ(numbers.size(), 600u);
}

TEST_P(OgrWrite, CreateRefusesAnExistingPath) {
  path_ = WriteTowns(scratch_, GetParam());
  DatabaseDef def;
  SetTownSchema(def);
  CapturedDiagnostics diagnostics;
  EXPECT_FALSE(database_.Create(path_.c_str(), nullptr, def));
  EXPECT_NE(std::wstring(database_.LastError()).find(L"exists"), std::wstring::npos);
  EXPECT_THAT(diagnostics.Lines(), IsEmpty());
  Open(/*readOnly=*/true);
  EXPECT_EQ(Only().GetRowCount(nullptr, true), 6) << "and leaves it alone";
}

TEST_P(OgrWrite, TheCoordinateSystemIsKept) {
  if (std::string(GetParam().name) == "Csv") return;  // has none
  CoordSys const utm(
      L"utm", L"",
      L"PROJCS[\"WGS 84 / UTM zone 32N\",GEOGCS[\"WGS 84\",DATUM[\"WGS_1984\",SPHEROID[\"WGS "
      L"84\",6378137,298.257223563]],PRIMEM[\"Greenwich\",0],UNIT[\"degree\",0.0174532925199433]],"
      L"PROJECTION[\"Transverse_Mercator\"],PARAMETER[\"latitude_of_origin\",0],PARAMETER[\"central_"
      L"meridian\",9],PARAMETER[\"scale_factor\",0.9996],PARAMETER[\"false_easting\",500000],"
      L"PARAMETER[\"false_northing\",0],UNIT[\"metre\",1],AUTHORITY[\"EPSG\",\"32632\"]]");
  TableDef table = MakeTableDef(L"test", L"town", L"id:Int64 shape:Geometry n:Int32");
  table[1].SetCoordSys(&utm);
  DatabaseDef def;
  SetTables(def, L"test", {table});
  path_ = scratch_.File(GetParam().fileName);
  ASSERT_TRUE(database_.Create(path_.c_str(), nullptr, def)) << ToUtf8(database_.LastError());
  Row row(Only().Def());
  SetGeometry(row, "POINT (500000 5500000)");
  ASSERT_TRUE(Only().Insert(row, nullptr, true)) << ToUtf8(database_.LastError());
  database_.Disconnect();
  Open(/*readOnly=*/true);
  CoordSys const* const read = Only().Def()->Geom().SRS();
  ASSERT_NE(read, nullptr);
  EXPECT_EQ(std::wstring(read->Name()), L"town_srs");
  EXPECT_NE(std::wstring(read->Wkt()).find(L"UTM zone 32N"), std::wstring::npos) << ToUtf8(read->Wkt());
  double box[4];
  Only().GetExtent(box, nullptr);
  EXPECT_THAT(box, ElementsAre(500000, 5500000, 500000, 5500000));
}

TEST_P(OgrWrite, AnEmptyTable) {
  Create(L"id:Int64 shape:Geometry name:String");
  database_.Disconnect();
  if (std::string(GetParam().name) == "Shapefile") return;  // it begins to be one with its first geometry
  Open(/*readOnly=*/true);
  EXPECT_TRUE(Only().IsEmpty(nullptr));
  EXPECT_EQ(Only().GetRowCount(nullptr, true), 0);
  Only().Query();
  EXPECT_EQ(Only().Next(), nullptr);
  double box[4] = {1, 2, 3, 4};
  Only().GetExtent(box, nullptr);
  EXPECT_THAT(box, ElementsAre(0, 0, 0, 0)) << "zeros where the layer cannot tell";
}

INSTANTIATE_TEST_SUITE_P(Format, OgrWrite, ::testing::ValuesIn(kOgrFormats),
                         [](auto const& info) { return info.param.name; });

}  // namespace
}  // namespace fdo
