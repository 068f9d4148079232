// A column that is visited, against the same one read by a reader.
#include "sdk/providers/sqlite/column_visits.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "sdk/providers/sqlite/cell_texts.h"
#include "sdk/providers/sqlite/row_commands.h"
#include "sdk/runtime/thrown.h"

namespace fdo_sqlite {
namespace {

using fdo_sdk::MessageThrownBy;

// Tables of whose indexes SQLite reads one rather than the table where it has the column, in another order;
// and 4,000 points, enough for a spatial index.
constexpr char kStore[] =
    "CREATE TABLE geometry_columns (f_table_name TEXT, f_geometry_column TEXT, geometry_type INTEGER,"
    "  coord_dimension INTEGER, srid INTEGER, geometry_format TEXT);"
    "INSERT INTO geometry_columns VALUES ('odd', 'shape', 1, 2, NULL, 'FGF'), ('point', 'shape', 1, 2, NULL, "
    "'WKT');"
    "CREATE TABLE odd (id INTEGER PRIMARY KEY, flag BOOLEAN, tiny TINYINT, small SMALLINT, n INT, wide "
    "BIGINT, "
    "  single SINGLE, x DOUBLE, price DECIMAL, t TEXT, moment TIMESTAMP, bytes BLOB, shape BLOB);"
    "INSERT INTO odd VALUES (1, 1, 255, 32767, 2147483647, 9223372036854775807, 0.1, 0.1, 7, 'Ulm', "
    "  '2024-03-01T14:30:05.25', x'0102', x'0100000000000000000000000000F03F0000000000000040');"
    "INSERT INTO odd (id) VALUES (2);"
    "INSERT INTO odd VALUES (3, 0, -1, -32768, -2147483648, -9223372036854775807 - 1, 1e40, 2, 2.5, 5, "
    "86400, 'é', "
    "  x'0100');"
    "INSERT INTO odd VALUES (4, 2.5, 256, 32768, 2147483648, 'many', 'high', 9e999, '12.50', x'C3A9', "
    "'never', 5, "
    "  'a text');"
    "INSERT INTO odd VALUES (5, 'TRUE', 2.0, -32769, -2147483649, 2.5, '2.5', -9e999, 'dear', '', "
    "2460371.25, 2.5, "
    "  x'');"
    "INSERT INTO odd VALUES (6, 'perhaps', '7', 2.0, '7', '8', x'', 'high', x'', 2.5, x'', x'', 7);"
    "CREATE TABLE town (id INTEGER PRIMARY KEY, name TEXT, people INT, height DOUBLE);"
    "CREATE INDEX by_height ON town (height DESC);"
    "CREATE INDEX by_people ON town (people, name);"
    "INSERT INTO town VALUES (1, 'Ulm', 126, 478.5), (2, 'Bern', 134, 542), (3, 'Graz', 291, NULL),"
    "  (4, NULL, 126, -0.0), (7, 'Bern', 1, -1.5);"
    "CREATE TABLE keyed (code TEXT, part INT, x DOUBLE, PRIMARY KEY (code, part)) WITHOUT ROWID;"
    "CREATE INDEX keyed_x ON keyed (x);"
    "INSERT INTO keyed VALUES ('b', 1, 3), ('a', 2, 1), ('a', 1, 2);"
    "CREATE TABLE empty (id INTEGER PRIMARY KEY, x DOUBLE);"
    "CREATE VIEW heights AS SELECT id, height FROM town ORDER BY name;"
    "CREATE TABLE point (id INTEGER PRIMARY KEY, n INT, shape TEXT);"
    "WITH RECURSIVE c(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM c WHERE i < 4000)"
    "  INSERT INTO point SELECT i, i % 7, 'POINT (' || i || ' ' || (i % 50) || ')' FROM c;";

// Calls a function for each cell.
template <class Function>
class Visitor final : public fdo_sdk::ColumnVisitor {
 public:
  explicit Visitor(Function function) : function_(std::move(function)) {}
  void VisitCell(fdo_sdk::DirectKind kind, fdo_sdk::DirectCell const& cell,
                 FdoIFeatureReader& reader) override {
    function_(kind, cell, reader);
  }

 private:
  Function function_;
};

class ColumnVisits : public testing::Test {
 protected:
  ColumnVisits() {
    store_.Run(kStore);
    connection_ = OpenQuickly(store_);
  }

  FdoPtr<FdoISelect> SelectOfColumn(FdoString* className, FdoString* column, FdoString* filter = nullptr) {
    FdoPtr<FdoISelect> select = MakeSelectOf(connection_, className, filter);
    Add(select, FdoPtr<FdoIdentifier>(FdoIdentifier::Create(column)));
    return select;
  }
  static void Add(FdoISelect* select, FdoIdentifier* name) {
    FdoPtr<FdoIdentifierCollection>(select->GetPropertyNames())->Add(name);
  }

  template <class Function>
  static bool Visit(FdoISelect* select, FdoInt32 type, Function function) {
    Visitor<Function> visitor(std::move(function));
    return dynamic_cast<fdo_sdk::ColumnVisits&>(*select).VisitColumn(type, visitor);
  }

  // Whether the column is visited; its values go to texts.
  static bool Visited(FdoISelect* select, FdoInt32 type, std::vector<std::wstring>& texts) {
    return Visit(select, type, [&](auto kind, auto const& cell, FdoIFeatureReader& reader) {
      texts.push_back(TextOf(kind, cell, reader, 0, type));
    });
  }

  static std::vector<std::wstring> Read(FdoISelect* select, FdoInt32 type) {
    std::vector<std::wstring> texts;
    FdoPtr<FdoIFeatureReader> const reader = select->Execute();
    while (reader->ReadNext()) texts.push_back(ByGetter(*reader, 0, type));
    return texts;
  }

  void ExpectAsRead(FdoString* className, FdoString* column, FdoInt32 type, FdoString* filter) {
    SCOPED_TRACE(fdo_sdk::Utf8FromWide(std::wstring(className) + L"." + column + L" where " +
                                       (filter == nullptr ? L"any" : filter)));
    FdoPtr<FdoISelect> const select = SelectOfColumn(className, column, filter);
    std::vector<std::wstring> visited;
    EXPECT_TRUE(Visited(select, type, visited));
    EXPECT_EQ(visited, Read(select, type));
  }

  TestStore store_;
  FdoPtr<Connection> connection_;
};

TEST_F(ColumnVisits, GiveWhatAReaderGivesForEveryTypeAndEveryOddValue) {
  struct {
    FdoString* column;
    FdoInt32 type;
  } const kColumns[] = {
      {L"id", FdoDataType_Int64},
      {L"flag", FdoDataType_Boolean},
      {L"tiny", FdoDataType_Byte},
      {L"small", FdoDataType_Int16},
      {L"n", FdoDataType_Int32},
      {L"wide", FdoDataType_Int64},
      {L"single", FdoDataType_Single},
      {L"x", FdoDataType_Double},
      {L"price", FdoDataType_Decimal},
      {L"t", FdoDataType_String},
      {L"moment", FdoDataType_DateTime},
      {L"bytes", FdoDataType_BLOB},
      {L"shape", fdo_sdk::kDirectGeometry},
  };
  for (auto const& [column, type] : kColumns) {
    ExpectAsRead(L"odd", column, type, nullptr);
    ExpectAsRead(L"odd", column, type, L"id > 1 AND id <> 4");
  }
}

TEST_F(ColumnVisits, KeepTheOrderOfAReaderWhateverSqliteReads) {
  for (FdoString* const filter :
       {static_cast<FdoString*>(nullptr), L"id = 2", L"id = 5", L"people = 126", L"people < 200",
        L"people = 126 OR height > 0", L"name LIKE 'B%'", L"name NULL", L"NOT name NULL", L"Length(name) = 4",
        L"people IN (1, 134, 291) AND height < 600", L"id > 1 AND people > 100"}) {
    ExpectAsRead(L"town", L"id", FdoDataType_Int64, filter);
    ExpectAsRead(L"town", L"name", FdoDataType_String, filter);
    ExpectAsRead(L"town", L"people", FdoDataType_Int32, filter);
    ExpectAsRead(L"town", L"height", FdoDataType_Double, filter);
  }
  for (FdoString* const filter :
       {static_cast<FdoString*>(nullptr), L"x > 1", L"code = 'a'", L"part = 1 OR x = 1"}) {
    ExpectAsRead(L"keyed", L"code", FdoDataType_String, filter);
    ExpectAsRead(L"keyed", L"part", FdoDataType_Int32, filter);
    ExpectAsRead(L"keyed", L"x", FdoDataType_Double, filter);
  }
  ExpectAsRead(L"empty", L"x", FdoDataType_Double, nullptr);
  // The index leads, and SQLite's own would give another order.
  std::vector<std::wstring> heights;
  EXPECT_TRUE(Visited(SelectOfColumn(L"town", L"height"), FdoDataType_Double, heights));
  ASSERT_EQ(heights.size(), 5u);
  EXPECT_EQ(heights[0], TextOf(542.0));
}

TEST_F(ColumnVisits, GoThroughASpatialIndex) {
  FdoString* const filters[] = {
      L"shape ENVELOPEINTERSECTS GeomFromText('POLYGON ((100 0, 103 0, 103 60, 100 60, 100 0))')",
      L"n > 2 AND shape INTERSECTS GeomFromText('POLYGON ((100 0, 903 0, 903 60, 100 0))')",
      L"NOT shape INTERSECTS GeomFromText('POLYGON ((100 0, 903 0, 903 60, 100 0))')",
  };
  for (FdoString* const filter : filters) ExpectAsRead(L"point", L"n", FdoDataType_Int32, filter);
  // A connection that writes brings the index up to date, for which the file is let go: either way all is
  // there.
  FdoPtr<FdoIInsert> insert = MakeInsertInto(connection_, L"point");
  GiveText(insert, L"shape", L"GeomFromText('POINT (102 2)')");
  FdoPtr<FdoIFeatureReader>(insert->Execute());
  insert = nullptr;
  FdoPtr<FdoISelect> const select = SelectOfColumn(L"point", L"id", filters[0]);
  std::vector<std::wstring> visited;
  if (!Visited(select, FdoDataType_Int64, visited)) {
    EXPECT_EQ(visited.size(), 0u);
    EXPECT_TRUE(Visited(select, FdoDataType_Int64, visited)) << "once the index is as it is to be";
  }
  EXPECT_EQ(visited, (std::vector<std::wstring>{L"100", L"101", L"102", L"103", L"4001"}));
}

TEST_F(ColumnVisits, AreLeftToAReaderWhereTheOrderOrTheValuesMayDiffer) {
  std::vector<std::wstring> visited;
  FdoPtr<FdoISelect> select = SelectOfColumn(L"heights", L"height");
  EXPECT_FALSE(Visited(select, FdoDataType_Double, visited)) << "a view";
  select = SelectOfColumn(L"town", L"height");
  EXPECT_FALSE(Visited(select, FdoDataType_Single, visited)) << "another type";
  Add(select, FdoPtr<FdoIdentifier>(FdoIdentifier::Create(L"name")));
  EXPECT_FALSE(Visited(select, FdoDataType_Double, visited)) << "two properties";
  select = MakeSelectOf(connection_, L"town");
  EXPECT_FALSE(Visited(select, FdoDataType_Int64, visited)) << "all properties";
  FdoPtr<FdoExpression> const expression = FdoExpression::Parse(L"height + 1");
  Add(select, FdoPtr<FdoIdentifier>(FdoComputedIdentifier::Create(L"more", expression)));
  EXPECT_FALSE(Visited(select, FdoDataType_Double, visited)) << "a computed property";
  select = SelectOfColumn(L"town", L"height");
  FdoPtr<FdoIdentifierCollection>(select->GetOrdering())
      ->Add(FdoPtr<FdoIdentifier>(FdoIdentifier::Create(L"name")));
  EXPECT_FALSE(Visited(select, FdoDataType_Double, visited)) << "an order";
  EXPECT_EQ(visited.size(), 0u);
}

TEST_F(ColumnVisits, ThrowWhatExecuteThrows) {
  std::vector<std::wstring> visited;
  for (FdoPtr<FdoISelect> const& select :
       {SelectOfColumn(L"village", L"height"), SelectOfColumn(L"town", L"mayor"),
        SelectOfColumn(L"town", L"height", L"mayor = 'x'"),
        SelectOfColumn(L"town", L"height", L"people > 'many'")}) {
    std::wstring const ofVisits =
        MessageThrownBy<FdoCommandException>([&] { Visited(select, FdoDataType_Double, visited); });
    EXPECT_EQ(ofVisits,
              MessageThrownBy<FdoCommandException>([&] { FdoPtr<FdoIFeatureReader>(select->Execute()); }));
  }
  FdoPtr<FdoISelect> const select = SelectOfColumn(L"town", L"height");
  connection_->Close();
  MessageThrownBy<FdoCommandException>([&] { Visited(select, FdoDataType_Double, visited); });
  EXPECT_EQ(visited.size(), 0u);
}

TEST_F(ColumnVisits, ThrowWhatTheVisitorThrows) {
  FdoPtr<FdoISelect> const select = SelectOfColumn(L"town", L"id");
  for (int const last : {1, 3, 5}) {
    int rows = 0;
    FdoPtr<FdoException> const own = FdoException::Create(L"enough");
    try {
      Visit(select, FdoDataType_Int64, [&](auto, auto const&, FdoIFeatureReader&) {
        if (++rows == last) throw FDO_SAFE_ADDREF(own.p);
      });
      ADD_FAILURE() << "nothing was thrown";
    } catch (FdoException* raised) {
      FdoPtr<FdoException> const failure(raised);
      EXPECT_EQ(failure.p, own.p);
      EXPECT_EQ(failure->GetRefCount(), 2);
    }
    EXPECT_EQ(rows, last);
    EXPECT_THROW(Visit(select, FdoDataType_Int64,
                       [](auto, auto const&, FdoIFeatureReader&) { throw std::runtime_error("enough"); }),
                 std::runtime_error);
  }
  std::vector<std::wstring> visited;
  EXPECT_TRUE(Visited(select, FdoDataType_Int64, visited));
  EXPECT_EQ(visited.size(), 5u);
  store_.Run("DELETE FROM town");  // nothing is locked
}

TEST_F(ColumnVisits, HaveAReaderWithoutARowAfterwards) {
  FdoPtr<FdoIFeatureReader> held;
  FdoPtr<FdoISelect> const select = SelectOfColumn(L"town", L"id");
  EXPECT_TRUE(Visit(select, FdoDataType_Int64, [&](auto, auto const&, FdoIFeatureReader& reader) {
    if (held == nullptr) held = FDO_SAFE_ADDREF(&reader);
    EXPECT_EQ(held.p, &reader);
    EXPECT_STREQ(reader.GetPropertyName(0), L"id");
    EXPECT_GT(reader.GetInt64(FdoInt32{0}), 0);
    EXPECT_GT(reader.GetInt64(L"id"), 0);
  }));
  EXPECT_EQ(MessageThrownBy<FdoCommandException>([&] { held->GetInt64(FdoInt32{0}); }),
            L"The reader is closed.");
  EXPECT_EQ(MessageThrownBy<FdoCommandException>([&] { held->ReadNext(); }), L"The reader is closed.");
  held->Close();
}

TEST_F(ColumnVisits, MayVisitAndReadMeanwhile) {
  FdoPtr<FdoISelect> const outer = SelectOfColumn(L"town", L"id");
  FdoPtr<FdoISelect> const inner = SelectOfColumn(L"keyed", L"x", L"x > 1");
  FdoPtr<FdoISelect> const none = SelectOfColumn(L"empty", L"x");
  std::vector<std::wstring> visited;
  EXPECT_TRUE(Visit(outer, FdoDataType_Int64, [&](auto kind, auto const& cell, FdoIFeatureReader& reader) {
    EXPECT_TRUE(Visited(none, FdoDataType_Double, visited));
    EXPECT_TRUE(Visited(inner, FdoDataType_Double, visited));
    visited.push_back(TextOf(kind, cell, reader, 0, FdoDataType_Int64));
    EXPECT_EQ(Read(outer, FdoDataType_Int64).size(), 5u);
  }));
  EXPECT_EQ(visited.size(), 15u);
  std::vector<std::wstring> const once = Read(inner, FdoDataType_Double);
  EXPECT_EQ(std::vector<std::wstring>(visited.end() - 3, visited.end() - 1), once);
}

TEST_F(ColumnVisits, SeeWhatIsThereWhenTheyBegin) {
  FdoPtr<FdoISelect> const select = SelectOfColumn(L"empty", L"x");
  auto const expectAsRead = [&](std::size_t rows) {
    std::vector<std::wstring> visited;
    EXPECT_TRUE(Visited(select, FdoDataType_Double, visited));
    EXPECT_EQ(visited.size(), rows);
    EXPECT_EQ(visited, Read(select, FdoDataType_Double));
  };
  expectAsRead(0);
  // By another program, in the own batch, in the own transaction.
  store_.Run("INSERT INTO empty VALUES (1, 0.5)");
  expectAsRead(1);
  FdoPtr<FdoIInsert> insert = MakeInsertInto(connection_, L"empty");
  GiveText(insert, L"x", L"1.5");
  FdoPtr<FdoIFeatureReader>(insert->Execute());
  expectAsRead(2);
  insert = nullptr;
  FdoPtr<FdoITransaction> transaction = connection_->BeginTransaction();
  connection_->OpenedDatabase().Execute("DELETE FROM empty");
  expectAsRead(0);
  transaction->Rollback();
  expectAsRead(2);
  // The column becomes one of texts.
  store_.Run(
      "DROP TABLE empty; CREATE TABLE empty (id INTEGER PRIMARY KEY, x TEXT); INSERT INTO empty VALUES (1, "
      "'a')");
  std::vector<std::wstring> visited;
  EXPECT_FALSE(Visited(select, FdoDataType_Double, visited));
  EXPECT_TRUE(Visited(select, FdoDataType_String, visited));
  EXPECT_EQ(visited, std::vector<std::wstring>{L"a"});
}

TEST_F(ColumnVisits, AreNotForStatementsOfPrograms) {
  FdoPtr<FdoISQLCommand> const command = Make<FdoISQLCommand>(connection_, FdoCommandType_SQLCommand);
  command->SetSQLStatement(L"SELECT fdo_visit(x) FROM keyed");
  std::wstring const message = MessageThrownBy<FdoCommandException>([&] {
    FdoPtr<FdoISQLDataReader> const reader = command->ExecuteReader();
    reader->ReadNext();
  });
  EXPECT_NE(message.find(L"fdo_visit has nobody to show its values to"), std::wstring::npos)
      << fdo_sdk::Utf8FromWide(message);
}

}  // namespace
}  // namespace fdo_sqlite
