// The statistics of a table whose provider shows a column row after row, against those of the scan that
// access by name makes.
#include "fdo_backend/visited_column.h"

#include <Fdo.h>
#include <fdo/database_fdo.h>
#include <fdo/table_fdo.h>
#include <fdo/text_conversion.h>
#include <gtest/gtest.h>

#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "fdo_backend/reader_cell.h"
#include "testing/captured_diagnostics.h"
#include "testing/exact_value_text.h"
#include "testing/schema_builder.h"
#include "testing/sqlite_file.h"

namespace fdo {
namespace {

// Values as they are to be and others, columns that an index of SQLite's has, and a spatial index.
constexpr char kStore[] =
    "CREATE TABLE geometry_columns (f_table_name TEXT, f_geometry_column TEXT, geometry_type INTEGER,"
    "  coord_dimension INTEGER, srid INTEGER, geometry_format TEXT);"
    "INSERT INTO geometry_columns VALUES ('parcels', 'shape', 1, 2, NULL, 'FGF'), ('point', 'shape', 1, 2, "
    "NULL, "
    "  'WKT');"
    "CREATE TABLE parcels (id INTEGER PRIMARY KEY, flag BOOLEAN, tiny TINYINT, small SMALLINT, n INT, wide "
    "BIGINT, "
    "  single SINGLE, x DOUBLE, price DECIMAL, t TEXT, moment TIMESTAMP, bytes BLOB, shape BLOB);"
    "CREATE INDEX by_x ON parcels (x DESC);"
    "CREATE INDEX by_n ON parcels (n, t);"
    "INSERT INTO parcels VALUES (1, 1, 255, 32767, 2147483647, 9223372036854775807, 0.1, 0.1, 7, 'Ulm', "
    "  '2024-03-01T14:30:05.25', x'0102', x'0100000000000000000000000000F03F0000000000000040');"
    "INSERT INTO parcels (id) VALUES (2);"
    "INSERT INTO parcels VALUES (3, 0, -1, -32768, -2147483648, -9223372036854775807 - 1, 1e40, 2, 2.5, 5, "
    "86400, "
    "  'é', x'0100');"
    "INSERT INTO parcels VALUES (4, 2.5, 256, 32768, 2147483648, 'many', 'high', 9e999, '12.50', x'C3A9', "
    "'never', "
    "  5, 'a text');"
    "INSERT INTO parcels VALUES (5, 'TRUE', 2.0, -32769, -2147483649, 2.5, '2.5', -0.0, 'dear', '', "
    "2460371.25, "
    "  2.5, x'');"
    "INSERT INTO parcels VALUES (6, 'perhaps', '7', 2.0, '7', '8', x'', 'high', x'', 2.5, x'', x'', 7);"
    "INSERT INTO parcels VALUES (7, 1, 2, 3, 4, 5, 6.5, 1e16, 8.25, '12', '1999-12-31', x'00', NULL);"
    "INSERT INTO parcels VALUES (8, 0, 2, 3, 4, 5, 6.5, 1e-16, 8.25, '12', '1999-12-31T00:00:00', x'00', "
    "NULL);"
    "CREATE TABLE empty AS SELECT * FROM parcels WHERE 0;"
    "CREATE VIEW numbered AS SELECT id, n, x FROM parcels WHERE id <> 3 ORDER BY t;"
    "CREATE TABLE keyed (code TEXT, part INT, x DOUBLE, PRIMARY KEY (code, part)) WITHOUT ROWID;"
    "CREATE INDEX keyed_x ON keyed (x);"
    "INSERT INTO keyed VALUES ('b', 1, 3.1), ('a', 2, 1.7), ('a', 1, 2.9);"
    "CREATE TABLE point (id INTEGER PRIMARY KEY, x DOUBLE, shape TEXT);"
    "WITH RECURSIVE c(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM c WHERE i < 2000)"
    "  INSERT INTO point SELECT i, 1.0 / i, 'POINT (' || i || ' ' || (i % 50) || ')' FROM c;";

// As a definition that is not the store's may have the columns of parcels.
constexpr wchar_t kOtherTypes[] =
    L"id:Int64 flag:Int32 tiny:Int16 small:Int32 n:Int64 wide:Int32 single:Double x:Single price:Double "
    L"t:DateTime "
    L"moment:String bytes:Geometry shape:Blob";

// Every bit of it.
// All statistics of a column, with the lines that were said meanwhile.
std::wstring StatisticsOf(Table& table, wchar_t const* column, FdoFilter* filter,
                          CapturedDiagnostics& lines) {
  lines.Forget();
  Value min;
  Value max;
  table.GetMinMax(min, max, column, filter);
  double variance = 0;
  double mean = 0;
  table.GetStats(variance, mean, column, filter);
  Value median;
  table.GetMedian(median, column, filter);
  std::wstring text = ExactTextOf(min) + L" to " + ExactTextOf(max) + L"; " + ExactTextOf(variance) + L"; " +
                      ExactTextOf(mean) + L"; " + ExactTextOf(median) + L";";
  for (bool const includeNull : {false, true}) {
    std::set<Value> values;
    table.GetDistinctValues(values, column, includeNull, filter);
    for (Value const& value : values) text += L" {" + ExactTextOf(value) + L"}";
  }
  for (std::wstring const& line : lines.Lines()) text += L"\n" + line;
  return text;
}

class NoVisitor : public fdo_sdk::ColumnVisitor {
  void VisitCell(fdo_sdk::DirectKind, fdo_sdk::DirectCell const&, FdoIFeatureReader&) override {}
};

class VisitedColumn : public testing::Test {
 protected:
  VisitedColumn() {
    store_.Run(kStore);
    EXPECT_TRUE(
        database_.Connect(store_.File().c_str(), nullptr, nullptr, /*readOnly=*/false, /*loadSchema=*/true));
    connection_ = database_.FdoConnection();
  }

  // Whether the provider shows the column, as the table asks for it.
  bool IsVisited(TableDef const& def, int column, FdoFilter* filter) const {
    FdoPtr<FdoISelect> const select(
        static_cast<FdoISelect*>(connection_->CreateCommand(FdoCommandType_Select)));
    select->SetFeatureClassName(def.Name());
    FdoPtr<FdoIdentifier> const name = FdoIdentifier::Create(def[column].Name());
    FdoPtr<FdoIdentifierCollection>(select->GetPropertyNames())->Add(name);
    select->SetFilter(filter);
    NoVisitor visitor;
    return dynamic_cast<fdo_sdk::ColumnVisits&>(*select).VisitColumn(internal::DirectType(def[column].Type()),
                                                                     visitor);
  }

  // Of each column, and whether the provider shows it.
  void ExpectScannedStatistics(TableDef const& def, wchar_t const* filterText, bool isVisited) {
    FdoPtr<FdoFilter> const filter(filterText == nullptr ? nullptr : FdoFilter::Parse(filterText));
    TableFdo visited(connection_, &def, /*accessByName=*/false);
    TableFdo scanned(connection_, &def, /*accessByName=*/true);
    for (int column = 0; column < def.ColumnCount(); ++column) {
      wchar_t const* const name = def[column].Name();
      SCOPED_TRACE(ToUtf8(def.Name()) + "." + ToUtf8(name) + " where " +
                   (filterText == nullptr ? "any" : ToUtf8(filterText)));
      EXPECT_EQ(IsVisited(def, column, filter), isVisited);
      EXPECT_EQ(StatisticsOf(visited, name, filter, lines_), StatisticsOf(scanned, name, filter, lines_));
    }
  }

  CapturedDiagnostics lines_;
  SqliteFile store_;
  DatabaseFdo database_;
  FdoPtr<FdoIConnection> connection_;
};

TEST_F(VisitedColumn, GivesTheStatisticsOfAScan) {
  struct {
    wchar_t const* table;
    wchar_t const* filter;
    bool isVisited;
  } const kCases[] = {
      {L"parcels", nullptr, true},
      {L"parcels", L"id = 5", true},
      {L"parcels", L"id = 99", true},
      {L"parcels", L"n > 0 OR x < 3", true},
      {L"parcels", L"t LIKE '%2%'", true},
      {L"parcels", L"x NULL", true},
      {L"parcels", L"Floor(price) > 1 AND NOT (id = 8)", true},
      {L"empty", nullptr, true},
      {L"numbered", nullptr, false},
      {L"numbered", L"n > 0", false},
      {L"keyed", nullptr, true},
      {L"keyed", L"part = 1", true},
      {L"point", nullptr, true},
      {L"point", L"shape ENVELOPEINTERSECTS GeomFromText('POLYGON ((9 0, 1500 0, 1500 9, 9 9, 9 0))')", true},
      {L"point", L"shape INTERSECTS GeomFromText('POLYGON ((9 0, 1500 0, 1500 9, 9 0))') AND x > 0.01", true},
  };
  for (auto const& [table, filter, isVisited] : kCases) {
    ASSERT_NE(database_[table], nullptr) << ToUtf8(table);
    ExpectScannedStatistics(*database_[table]->Def(), filter, isVisited);
  }
}

TEST_F(VisitedColumn, IsScannedWhereTheDefinitionHasAnotherType) {
  TableDef const def = MakeTableDef(L"Default", L"parcels", kOtherTypes);
  TableFdo visited(connection_, &def, /*accessByName=*/false);
  TableFdo scanned(connection_, &def, /*accessByName=*/true);
  for (int column = 1; column < def.ColumnCount(); ++column) {
    wchar_t const* const name = def[column].Name();
    EXPECT_FALSE(IsVisited(def, column, nullptr)) << ToUtf8(name);
    EXPECT_EQ(StatisticsOf(visited, name, nullptr, lines_), StatisticsOf(scanned, name, nullptr, lines_))
        << ToUtf8(name);
  }
}

TEST_F(VisitedColumn, IsScannedInAnOrderThatStays) {
  TableFdo table(connection_, database_[L"parcels"]->Def(), /*accessByName=*/false);
  table.Query(nullptr, L"n", true);
  Value min(5);
  Value max;
  table.GetMinMax(min, max, L"n", nullptr);
  EXPECT_TRUE(min.IsNull()) << "null is the first row in that order";
  TableFdo another(connection_, database_[L"parcels"]->Def(), /*accessByName=*/false);
  another.GetMinMax(min, max, L"n", FdoPtr<FdoFilter>(FdoFilter::Parse(L"id <> 2")));
  EXPECT_FALSE(min.IsNull());
}

TEST_F(VisitedColumn, SaysOnceWhyThereAreNoRows) {
  Table& table = *database_[L"parcels"];
  FdoPtr<FdoFilter> const filter = FdoFilter::Parse(L"mayor = 'x'");
  lines_.Forget();
  double variance = 1;
  double mean = 1;
  table.GetStats(variance, mean, L"x", filter);
  EXPECT_EQ(mean, 0);
  ASSERT_EQ(lines_.Lines().size(), 1u);
  EXPECT_NE(lines_.Lines()[0].find(L"mayor"), std::wstring::npos);
}

// A row of the running query, too, is gone.
void ExpectQueryAtItsEnd(Table& table) {
  EXPECT_FALSE(table.At()[L"t"].IsValid());
  EXPECT_EQ(table.Next(), nullptr);
  table.Query();
  ASSERT_NE(table.Next(), nullptr);
  EXPECT_EQ(std::wstring(table.At()[L"t"]), L"Ulm");
  EXPECT_EQ(static_cast<__int64>(table.At()[L"small"]), 32767) << "all columns again";
  table.EndQuery();
}

TEST_F(VisitedColumn, EndsTheQueryThatRan) {
  Table& table = *database_[L"parcels"];
  table.Query();
  ASSERT_NE(table.Next(), nullptr);
  std::set<Value> values;
  table.GetDistinctValues(values, L"t", true, nullptr);
  EXPECT_EQ(values.size(), 7u);
  ExpectQueryAtItsEnd(table);
  store_.Run("DELETE FROM point");  // the store is not locked
}

TEST_F(VisitedColumn, SeesRowsOfAnOpenBatch) {
  Table& table = *database_[L"keyed"];
  auto const sum = [&] {
    std::set<Value> values;
    table.GetDistinctValues(values, L"x", true, nullptr);
    double sum = 0;
    for (Value const& value : values) sum += static_cast<double>(value);
    return sum;
  };
  EXPECT_DOUBLE_EQ(sum(), 7.7);
  table.BeginWrite();
  Row row(table.Def());
  row[L"code"].Reset(L"c", /*copy=*/true);
  row[L"part"].Reset(1);
  row[L"x"].Reset(2.3);
  EXPECT_TRUE(table.Insert(row, nullptr, /*storeMakesId=*/false));
  EXPECT_DOUBLE_EQ(sum(), 10.0);
  EXPECT_EQ(store_.Rows("SELECT count(*) FROM keyed"), "3") << "for others it is not there";
  table.CommitWrite();
  EXPECT_EQ(store_.Rows("SELECT count(*) FROM keyed"), "4");
}

class OpenTable : public TableFdo {
 public:
  using TableFdo::QueryColumn;
  using TableFdo::TableFdo;
};

class ThrowingVisitor final : public internal::CellVisitor {
 public:
  explicit ThrowingVisitor(int last) : left_(last) {}
  void Visit(Value const& cell) override {
    EXPECT_TRUE(cell.IsValid());
    if (--left_ == 0) throw std::runtime_error("enough");
  }

 private:
  int left_;
};

TEST_F(VisitedColumn, LetsThroughWhatStopsIt) {
  OpenTable table(connection_, database_[L"parcels"]->Def(), /*accessByName=*/false);
  int const column = table.Def()->IndexOf(L"t");
  for (int const last : {1, 2, 3, 4}) {
    table.SetDesiredFields(&column, 1);
    ThrowingVisitor visitor(last);
    EXPECT_THROW(table.QueryColumn(column, nullptr, visitor), std::runtime_error);
    table.SetDesiredFields(static_cast<int const*>(nullptr), 0);
    ExpectQueryAtItsEnd(table);
  }
  store_.Run("DELETE FROM parcels");
}

}  // namespace
}  // namespace fdo
