// Commands on rows when SQLite fails.
#include <new>

#include "sdk/extensions/column_visits.h"
#include "sdk/extensions/direct_insert.h"
#include "sdk/providers/sqlite/failure_sweep.h"
#include "sdk/providers/sqlite/row_commands.h"
#include "sdk/providers/sqlite/sql_fragment.h"

namespace fdo_sqlite {
namespace {

constexpr char kPlaces[] =
    "CREATE TABLE geometry_columns (f_table_name TEXT, f_geometry_column TEXT, geometry_type INTEGER,"
    " coord_dimension INTEGER, srid INTEGER, geometry_format TEXT);"
    "INSERT INTO geometry_columns VALUES ('Places', 'Shape', 1, 2, NULL, 'WKB');"
    "CREATE TABLE Places (Id INTEGER PRIMARY KEY AUTOINCREMENT, Name TEXT, Size DOUBLE, Shape BLOB);"
    "INSERT INTO Places (Name, Size, Shape) VALUES"
    " ('one', 1.5, x'0101000000000000000000F03F000000000000F03F'), ('two', 2.5, NULL),"
    " ('three', NULL, x'010100000000000000000022400000000000002240');"
    "CREATE TABLE Coded (Code TEXT PRIMARY KEY, Size DOUBLE)";
constexpr char kNames[] = "SELECT group_concat(Name || coalesce(Size, '')) FROM Places";

class RowFailure : public FailureSweep {
 protected:
  RowFailure() { Begin(kPlaces); }
};

TEST_F(RowFailure, InsertsThroughOneCommandAreWholeOrAbsent) {
  Sweep(
      [this] {
        FdoPtr<Connection> connection = store_.Open();
        FdoPtr<FdoIInsert> insert = MakeInsertInto(connection, L"Places");
        GiveText(insert, L"Name", L"'more'");
        GiveText(insert, L"Shape", L"GeomFromText('POINT (3 4)')");
        for (int i = 0; i < 3; ++i) {
          FdoPtr<FdoIFeatureReader> reader = insert->Execute();
          reader->ReadNext();
        }
        insert = nullptr;
        connection->Close();
      },
      kNames);
}

TEST_F(RowFailure, InsertsInOneCallEachAreWholeOrAbsent) {
  FdoByte const point[] = {1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x10, 0x40};
  fdo_sdk::DirectValue values[2];
  values[0].kind = fdo_sdk::DirectKind::kText;
  values[0].cell.text = L"more";
  values[1].kind = fdo_sdk::DirectKind::kBytes;
  values[1].cell.bytes = point;
  values[1].cell.size = static_cast<FdoInt32>(sizeof(point));
  Sweep(
      [&] {
        FdoPtr<Connection> connection = store_.Open();
        FdoPtr<FdoIInsert> insert = MakeInsertInto(connection, L"Places");
        Give(insert, L"Name", FdoPtr<FdoStringValue>(FdoStringValue::Create()));
        Give(insert, L"Shape", FdoPtr<FdoGeometryValue>(FdoGeometryValue::Create()));
        for (int i = 0; i < 3; ++i) {
          FdoPtr<FdoIFeatureReader> reader;
          EXPECT_TRUE(dynamic_cast<fdo_sdk::DirectInsert&>(*insert.p).ExecuteWith(values, &reader.p));
          reader->ReadNext();
        }
        insert = nullptr;
        connection->Close();
      },
      kNames);
}

TEST_F(RowFailure, KeysThatProgramsGiveAreGivenBackOrAbsent) {
  Sweep(
      [this] {
        FdoPtr<Connection> connection = store_.Open();
        FdoPtr<FdoIInsert> insert = MakeInsertInto(connection, L"Coded");
        GiveText(insert, L"Code", L"'K'");
        FdoPtr<FdoIFeatureReader> reader = insert->Execute();
        EXPECT_TRUE(reader->ReadNext());
        EXPECT_STREQ(reader->GetString(L"Code"), L"K");
        insert = nullptr;
        connection->Close();
      },
      "SELECT count(*) FROM Coded");
}

TEST_F(RowFailure, LookUpsThroughOneCommandFindTheirRowOrThrow) {
  SweepReading([this] {
    FdoPtr<Connection> connection = store_.Open();
    FdoPtr<FdoISelect> select = MakeSelectOf(connection, L"Places", L"Id = 2");
    std::wstring names = Texts(FdoPtr<FdoIFeatureReader>(select->Execute()), L"Name");
    names += Texts(FdoPtr<FdoIFeatureReader>(select->Execute()), L"Name");
    return fdo_sdk::Utf8FromWide(names);
  });
}

TEST_F(RowFailure, UpdatesAreWholeOrAbsent) {
  Sweep(
      [this] {
        FdoPtr<Connection> connection = store_.Open();
        FdoPtr<FdoIUpdate> update = Make<FdoIUpdate>(connection, FdoCommandType_Update);
        update->SetFeatureClassName(L"Places");
        update->SetFilter(L"Id > 1");
        GiveText(update, L"Size", L"7");
        EXPECT_EQ(update->Execute(), 2);
      },
      kNames);
}

TEST_F(RowFailure, DeletesAreWholeOrAbsent) {
  Sweep(
      [this] {
        FdoPtr<Connection> connection = store_.Open();
        FdoPtr<FdoIDelete> remove = Make<FdoIDelete>(connection, FdoCommandType_Delete);
        remove->SetFeatureClassName(L"Places");
        remove->SetFilter(L"Name LIKE 't%'");
        EXPECT_EQ(remove->Execute(), 2);
      },
      kNames);
}

TEST_F(RowFailure, SelectsGiveEveryRowOrThrow) {
  SweepReading([this] {
    FdoPtr<Connection> connection = store_.Open();
    FdoPtr<FdoISelect> select = MakeSelectOf(connection, L"Places", L"Size > 1 OR Size NULL");
    FdoPtr<FdoIFeatureReader> reader = select->Execute();
    std::string rows;
    while (reader->ReadNext()) {
      rows += fdo_sdk::Utf8FromWide(reader->GetString(L"Name"));
      if (reader->IsNull(L"Shape")) continue;
      FdoPtr<FdoByteArray> shape = reader->GetGeometry(L"Shape");
      rows += std::to_string(shape->GetCount());
    }
    return rows;
  });
}

// Appends what it is shown.
class NameVisitor final : public fdo_sdk::ColumnVisitor {
 public:
  explicit NameVisitor(std::wstring& names) : names_(names) {}
  void VisitCell(fdo_sdk::DirectKind kind, fdo_sdk::DirectCell const& cell,
                 FdoIFeatureReader& reader) override {
    names_ += kind == fdo_sdk::DirectKind::kText ? cell.text : reader.GetString(FdoInt32{0});
  }

 private:
  std::wstring& names_;
};

TEST_F(RowFailure, VisitsShowEveryRowOrThrow) {
  for (FdoString* const filter : {static_cast<FdoString*>(nullptr), L"Size > 1 OR Size NULL"}) {
    SweepReading([this, filter] {
      FdoPtr<Connection> connection = store_.Open();
      FdoPtr<FdoISelect> select = MakeSelectOf(connection, L"Places", filter);
      FdoPtr<FdoIdentifier> name = FdoIdentifier::Create(L"Name");
      FdoPtr<FdoIdentifierCollection>(select->GetPropertyNames())->Add(name);
      std::wstring names;
      NameVisitor visitor(names);
      auto& visits = dynamic_cast<fdo_sdk::ColumnVisits&>(*select);
      EXPECT_TRUE(visits.VisitColumn(FdoDataType_String, visitor));
      return fdo_sdk::Utf8FromWide(names);
    });
  }
}

TEST_F(RowFailure, SpatialConditionsAnswerOrThrow) {
  for (FdoString* filter : {L"Shape ENVELOPEINTERSECTS GeomFromText('POLYGON ((0 0, 2 0, 2 2, 0 2, 0 0))')",
                            L"Shape WITHIN GeomFromText('POLYGON ((0 0, 20 0, 20 20, 0 20, 0 0))')"}) {
    SCOPED_TRACE(fdo_sdk::Utf8FromWide(filter));
    SweepReading([this, filter] {
      FdoPtr<Connection> connection = store_.Open();
      FdoPtr<FdoIFeatureReader> reader = MakeSelectOf(connection, L"Places", filter)->Execute();
      std::string const ids = Numbers(reader, L"Id");
      reader->Close();
      connection->Close();
      return ids;
    });
  }
}

TEST_F(RowFailure, AggregatesAnswerOrThrow) {
  SweepReading([this] {
    FdoPtr<Connection> connection = store_.Open();
    FdoPtr<FdoISelectAggregates> select =
        Make<FdoISelectAggregates>(connection, FdoCommandType_SelectAggregates);
    select->SetFeatureClassName(L"Places");
    FdoPtr<FdoIdentifierCollection> wanted = select->GetPropertyNames();
    FdoString* const totals[][2] = {
        {L"Number", L"Count()"}, {L"Middle", L"Median(Size)"}, {L"Box", L"SpatialExtents(Shape)"}};
    for (auto const& [name, text] : totals) {
      FdoPtr<FdoExpression> expression = FdoExpression::Parse(text);
      FdoPtr<FdoComputedIdentifier> total = FdoComputedIdentifier::Create(name, expression);
      wanted->Add(total);
    }
    FdoPtr<FdoIDataReader> reader = select->Execute();
    EXPECT_TRUE(reader->ReadNext());
    FdoPtr<FdoByteArray> box = reader->GetGeometry(L"Box");
    return std::to_string(reader->GetInt64(L"Number")) + " " + std::to_string(reader->GetDouble(L"Middle")) +
           " " + std::to_string(box->GetCount());
  });
}

TEST(SqlParameters, ACopyForWhichThereIsNoMemoryThrows) {
  std::vector<SqlParameter> const parameters = {std::string(100, 'a'), SqlBytes(100, FdoByte{1})};
  for (SqlParameter const& parameter : parameters) {
    bool hasThrown = false;
    fdo::port::FailAllocation(1);
    try {
      SqlParameter const copy(parameter);
    } catch (std::bad_alloc const&) {
      hasThrown = true;
    }
    EXPECT_TRUE(fdo::port::FailAllocation(0));
    EXPECT_TRUE(hasThrown);
  }
}

// Memory may run out in what ends statements and batches, too, which must not end the process.
TEST_F(RowFailure, WithoutMemoryRowsAreWholeOrAbsent) {
  auto const work = [this] {
    FdoPtr<Connection> connection = store_.Open();
    FdoPtr<FdoISelect> select = MakeSelectOf(connection, L"Places", L"Size > 1");
    FdoPtr<FdoIFeatureReader> reader = select->Execute();
    while (reader->ReadNext()) reader->GetString(L"Name");
    reader->Close();
    FdoPtr<FdoIdentifier> const name = FdoIdentifier::Create(L"Name");
    FdoPtr<FdoIdentifierCollection>(select->GetPropertyNames())->Add(name);
    std::wstring names;
    NameVisitor visitor(names);
    dynamic_cast<fdo_sdk::ColumnVisits&>(*select).VisitColumn(FdoDataType_String, visitor);
    FdoPtr<FdoIInsert> insert = MakeInsertInto(connection, L"Places");
    GiveText(insert, L"Name", L"'more'");
    for (int i = 0; i < 2; ++i) FdoPtr<FdoIFeatureReader>(insert->Execute());
    insert = nullptr;
    connection->Close();
  };
  std::string const undone = store_.Rows(kNames);
  work();
  std::string const done = store_.Rows(kNames);
  bool hasFailed = true;
  int n = 0;
  for (; hasFailed; ++n) {
    BeginAgain();
    hasFailed = false;
    long long const before = fdo::port::LiveAllocations();
    fdo::port::FailAllocation(n + 1);
    try {
      work();
    } catch (std::bad_alloc const&) {
      hasFailed = true;
    } catch (FdoException* raised) {
      FdoPtr<FdoException> const released(raised);
      hasFailed = true;
    }
    fdo::port::FailAllocation(0);
    EXPECT_EQ(fdo::port::LiveAllocations(), before) << n;
    std::string const now = store_.Rows(kNames);
    EXPECT_TRUE(now == undone || now == done) << n << ": " << now;
    EXPECT_TRUE(hasFailed || now == done) << n;
  }
  EXPECT_GT(n, 50);
}

}  // namespace
}  // namespace fdo_sqlite
