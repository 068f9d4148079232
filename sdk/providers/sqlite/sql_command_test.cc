// Statements of SQLite's own language, through the interface.
#include <gtest/gtest.h>

#include "sdk/providers/sqlite/store_test_schema.h"
#include "sdk/providers/sqlite/test_store.h"
#include "sdk/runtime/thrown.h"
#include "testing/fgf_builder.h"

namespace fdo_sqlite {
namespace {

using fdo_sdk::MessageThrownBy;

class Sql : public testing::Test {
 protected:
  Sql() {
    store_.Run(
        "CREATE TABLE Places (Id INTEGER PRIMARY KEY, Name VARCHAR(20), Size DOUBLE, Many SMALLINT,"
        " Seen TIMESTAMP, Raw BLOB, Shape BLOB);"
        "CREATE TABLE geometry_columns (f_table_name TEXT, f_geometry_column TEXT, geometry_type INTEGER,"
        " coord_dimension INTEGER, srid INTEGER, geometry_format TEXT);"
        "INSERT INTO geometry_columns VALUES ('Places', 'Shape', 0, 2, 0, 'FGF');"
        "INSERT INTO Places VALUES (1, 'Aa', 2.5, 7, '2024-03-01T14:30:05', x'0102', NULL),"
        " (2, NULL, NULL, NULL, NULL, NULL, NULL)");
    connection_ = store_.Open();
  }

  FdoPtr<FdoISQLCommand> Command(FdoString* sql) {
    FdoPtr<FdoISQLCommand> command = Make<FdoISQLCommand>(connection_, FdoCommandType_SQLCommand);
    command->SetSQLStatement(sql);
    return command;
  }
  FdoPtr<FdoISQLDataReader> Read(FdoString* sql) {
    return FdoPtr<FdoISQLDataReader>(Command(sql)->ExecuteReader());
  }
  FdoInt32 Run(FdoString* sql) { return Command(sql)->ExecuteNonQuery(); }
  std::wstring Refusal(FdoString* sql) {
    return MessageThrownBy<FdoCommandException>([&] { Run(sql); });
  }

  TestStore store_;
  FdoPtr<Connection> connection_;
};

TEST_F(Sql, ColumnsHaveTheirDeclaredTypes) {
  FdoPtr<FdoISQLDataReader> reader = Read(L"SELECT * FROM Places ORDER BY Id");
  struct {
    FdoString* name;
    FdoDataType type;
  } const expected[] = {{L"Id", FdoDataType_Int64},      {L"Name", FdoDataType_String},
                        {L"Size", FdoDataType_Double},   {L"Many", FdoDataType_Int16},
                        {L"Seen", FdoDataType_DateTime}, {L"Raw", FdoDataType_BLOB},
                        {L"Shape", FdoDataType_BLOB}};
  ASSERT_EQ(reader->GetColumnCount(), 7);
  for (FdoInt32 i = 0; i < 7; ++i) {
    EXPECT_STREQ(reader->GetColumnName(i), expected[i].name);
    EXPECT_EQ(reader->GetColumnIndex(expected[i].name), i);
    EXPECT_EQ(reader->GetColumnType(i), expected[i].type) << i;
    EXPECT_EQ(reader->GetColumnType(expected[i].name), expected[i].type) << i;
    EXPECT_EQ(reader->GetPropertyType(i), FdoPropertyType_DataProperty);
  }
  ASSERT_TRUE(reader->ReadNext());
  EXPECT_EQ(reader->GetInt64(L"Id"), 1);
  EXPECT_STREQ(reader->GetString(1), L"Aa");
  EXPECT_EQ(reader->GetDouble(L"Size"), 2.5);
  EXPECT_EQ(reader->GetInt16(L"Many"), 7);
  EXPECT_EQ(reader->GetDateTime(L"Seen").minute, 30);
  FdoPtr<FdoLOBValue> raw = reader->GetLOB(L"Raw");
  EXPECT_EQ(FdoPtr<FdoByteArray>(raw->GetData())->GetCount(), 2);
  EXPECT_FALSE(reader->IsNull(L"Name"));
  ASSERT_TRUE(reader->ReadNext());
  for (FdoInt32 i = 1; i < 7; ++i) EXPECT_TRUE(reader->IsNull(i)) << i;
  EXPECT_FALSE(reader->ReadNext());
  reader->Close();
}

TEST_F(Sql, WhatIsComputedHasTheTypeOfItsFirstValue) {
  FdoPtr<FdoISQLDataReader> reader = Read(
      L"SELECT count(*) AS n, avg(Size) AS mean, 'a' || 'b' AS text, x'00' AS bytes, NULL AS missing FROM "
      L"Places");
  FdoDataType const expected[] = {FdoDataType_Int64, FdoDataType_Double, FdoDataType_String, FdoDataType_BLOB,
                                  FdoDataType_String};
  for (FdoInt32 i = 0; i < 5; ++i) EXPECT_EQ(reader->GetColumnType(i), expected[i]) << i;
  ASSERT_TRUE(reader->ReadNext());
  EXPECT_EQ(reader->GetInt64(L"n"), 2);
  EXPECT_EQ(reader->GetDouble(L"mean"), 2.5);
  EXPECT_STREQ(reader->GetString(L"text"), L"ab");
  EXPECT_TRUE(reader->IsNull(L"missing"));
  EXPECT_FALSE(reader->ReadNext());
}

TEST_F(Sql, ParametersGoByNameOrByPlace) {
  auto const count = [&](FdoString* sql) {
    FdoPtr<FdoISQLCommand> command = Command(sql);
    FdoPtr<FdoParameterValueCollection> values = command->GetParameterValues();
    FdoPtr<FdoInt32Value> id = FdoInt32Value::Create(1);
    FdoPtr<FdoStringValue> name = FdoStringValue::Create(L"Aa");
    values->Add(FdoPtr<FdoParameterValue>(FdoParameterValue::Create(L"id", id)));
    values->Add(FdoPtr<FdoParameterValue>(FdoParameterValue::Create(L"name", name)));
    FdoPtr<FdoISQLDataReader> reader = command->ExecuteReader();
    EXPECT_TRUE(reader->ReadNext());
    return reader->GetInt64(FdoInt32{0});
  };
  EXPECT_EQ(count(L"SELECT count(*) FROM Places WHERE Id = :id AND Name = :name"), 1);
  EXPECT_EQ(count(L"SELECT count(*) FROM Places WHERE Name = @name AND Id = $id"), 1);
  EXPECT_EQ(count(L"SELECT count(*) FROM Places WHERE Id = ? AND Name = ?"), 1);
  EXPECT_NE(Refusal(L"DELETE FROM Places WHERE Id = :id").find(L"\":id\""), std::wstring::npos);
  EXPECT_EQ(store_.Rows("SELECT count(*) FROM Places"), "2");
}

TEST_F(Sql, WritesAreCountedAndOnDisk) {
  EXPECT_EQ(Run(L"INSERT INTO Places (Name) VALUES ('b'), ('c')"), 2);
  EXPECT_EQ(Run(L"UPDATE Places SET Size = 1 WHERE Id > 2"), 2);
  EXPECT_EQ(Run(L"CREATE INDEX ByName ON Places (Name)"), 0);
  EXPECT_EQ(Run(L"DELETE FROM Places WHERE Id = 4;"), 1);
  EXPECT_EQ(Run(L"DELETE FROM Places WHERE Id = 4"), 0);
  EXPECT_EQ(store_.Rows("SELECT Id, Name, Size FROM Places WHERE Id > 2"), "3|b|1.0");
}

TEST_F(Sql, ChangedTablesAreChangedClasses) {
  EXPECT_EQ(Run(L"CREATE TABLE Roads (Id INTEGER PRIMARY KEY, Lanes INT)"), 0);
  EXPECT_NE(DescribedClass(connection_, L"Roads"), nullptr);
  Run(L"ALTER TABLE Roads ADD COLUMN Name TEXT");
  FdoPtr<FdoClassDefinition> roads = DescribedClass(connection_, L"Roads");
  EXPECT_EQ(FdoPtr<FdoPropertyDefinitionCollection>(roads->GetProperties())->GetCount(), 3);
}

TEST_F(Sql, WrittenGeometryIsFoundByTheSpatialIndex) {
  auto const near = [&] {
    FdoPtr<FdoISelect> select = Make<FdoISelect>(connection_, FdoCommandType_Select);
    select->SetFeatureClassName(L"Places");
    select->SetFilter(L"Shape ENVELOPEINTERSECTS GeomFromText('POLYGON ((0 0, 9 0, 9 9, 0 9, 0 0))')");
    FdoPtr<FdoIFeatureReader> reader = select->Execute();
    int rows = 0;
    while (reader->ReadNext()) ++rows;
    return rows;
  };
  EXPECT_EQ(near(), 0);
  auto const point = fdo::Fgf("POINT (5 5)");
  FdoPtr<FdoByteArray> fgf = FdoByteArray::Create(point.data(), static_cast<FdoInt32>(point.size()));
  FdoPtr<FdoISQLCommand> command = Command(L"UPDATE Places SET Shape = :shape WHERE Id = 2");
  FdoPtr<FdoGeometryValue> shape = FdoGeometryValue::Create(fgf);
  FdoPtr<FdoParameterValueCollection>(command->GetParameterValues())
      ->Add(FdoPtr<FdoParameterValue>(FdoParameterValue::Create(L"shape", shape)));
  EXPECT_EQ(command->ExecuteNonQuery(), 1);
  EXPECT_EQ(near(), 1);
  connection_->Close();
  connection_->Open();
  EXPECT_EQ(near(), 1);
  EXPECT_EQ(Run(L"DELETE FROM Places"), 2);
  EXPECT_EQ(near(), 0);
}

TEST_F(Sql, IsAPartOfTheOpenTransaction) {
  FdoPtr<FdoITransaction> transaction = connection_->BeginTransaction();
  EXPECT_EQ(Run(L"DELETE FROM Places"), 2);
  transaction->Rollback();
  EXPECT_EQ(store_.Rows("SELECT count(*) FROM Places"), "2");
}

TEST_F(Sql, WhatIsTheConnectionsOwnIsRefused) {
  for (FdoString* sql : {L"BEGIN", L"commit", L" /* now */ END;", L"-- now\nROLLBACK", L";SAVEPOINT a",
                         L"RELEASE a", L"ATTACH 'other.sqlite' AS other", L"DETACH other"}) {
    EXPECT_NE(Refusal(sql).find(L"cannot be run as SQL"), std::wstring::npos) << fdo_sdk::Utf8FromWide(sql);
  }
  FdoPtr<FdoITransaction> transaction = connection_->BeginTransaction();
  EXPECT_NE(Refusal(L"COMMIT").find(L"cannot be run as SQL"), std::wstring::npos);
  transaction->Commit();
}

TEST_F(Sql, WhatIsNoSingleStatementIsRefused) {
  EXPECT_EQ(Refusal(L" -- nothing"), L"There is no statement to run.");
  EXPECT_EQ(Refusal(L""), L"There is no statement to run.");
  EXPECT_EQ(Refusal(L"DELETE FROM Places; DELETE FROM Places"),
            L"There is more than one statement; each is run by itself.");
  EXPECT_NE(Refusal(L"DELETE FROM Nowhere").find(L"Nowhere"), std::wstring::npos);
  EXPECT_EQ(store_.Rows("SELECT count(*) FROM Places"), "2");
  EXPECT_NE(
      MessageThrownBy<FdoCommandException>([&] { Read(L"DELETE FROM Places"); }).find(L"ExecuteNonQuery"),
      std::wstring::npos);
  EXPECT_NE(MessageThrownBy<FdoCommandException>([&] {
              Read(L"DELETE FROM Places RETURNING Id");
            }).find(L"ExecuteNonQuery"),
            std::wstring::npos);
  EXPECT_EQ(store_.Rows("SELECT count(*) FROM Places"), "2");
  connection_->Close();
  MessageThrownBy<FdoCommandException>([&] { Run(L"DELETE FROM Places"); });
}

TEST(DataStores, TheConnectionsFileIsListed) {
  TestStore store;
  auto const list = [](Connection* connection) {
    return FdoPtr<FdoIDataStoreReader>(
        Make<FdoIListDataStores>(connection, FdoCommandType_ListDataStores)->Execute());
  };
  FdoPtr<Connection> connection(new Connection());
  EXPECT_FALSE(list(connection)->ReadNext()) << "there is no file";
  store.Run("CREATE TABLE Places (Id INTEGER PRIMARY KEY)");
  connection = store.Open();
  FdoPtr<FdoIDataStoreReader> reader = list(connection);
  MessageThrownBy<FdoCommandException>([&] { reader->GetName(); });
  ASSERT_TRUE(reader->ReadNext());
  EXPECT_EQ(reader->GetName(), store.File());
  EXPECT_TRUE(reader->GetIsFdoEnabled());
  FdoPtr<FdoIDataStorePropertyDictionary> properties = reader->GetDataStoreProperties();
  EXPECT_EQ(properties->GetProperty(L"File"), store.File());
  EXPECT_STREQ(properties->GetProperty(L"UseFdoMetadata"), L"TRUE");
  MessageThrownBy<FdoCommandException>([&] { properties->SetProperty(L"File", L"other"); });
  EXPECT_FALSE(reader->ReadNext());
}

TEST(SpatialContexts, AreRemovedUnlessAPropertyHasThem) {
  TestStore store;
  store.Run("CREATE TABLE Other (Id INTEGER PRIMARY KEY)");
  FdoPtr<Connection> connection = store.Open();
  CreateContext(connection, L"Field", L"EPSG:4326", L"GEOGCS[]");
  CreateContext(connection, L"Spare", L"EPSG:3857", L"PROJCS[]");
  Apply(connection, SchemaOf({ClassOf(L"Places", {Data(L"Id", FdoDataType_Int32),
                                                  Geometry(L"Shape", FdoGeometricType_All, L"Field")})}));
  auto const destroy = [&](FdoString* name) {
    FdoPtr<FdoIDestroySpatialContext> command =
        Make<FdoIDestroySpatialContext>(connection, FdoCommandType_DestroySpatialContext);
    command->SetName(name);
    EXPECT_STREQ(command->GetName(), name);
    command->Execute();
  };
  destroy(L"Spare");
  EXPECT_EQ(store.Rows("SELECT sr_name FROM spatial_ref_sys"), "Field");
  EXPECT_NE(MessageThrownBy<FdoCommandException>([&] { destroy(L"Spare"); }).find(L"There is no"),
            std::wstring::npos);
  EXPECT_NE(MessageThrownBy<FdoCommandException>([&] { destroy(L"Field"); }).find(L"\"Shape\" of \"Places\""),
            std::wstring::npos);
  EXPECT_EQ(store.Rows("SELECT sr_name FROM spatial_ref_sys"), "Field");
}

}  // namespace
}  // namespace fdo_sqlite
