#include "sdk/providers/sqlite/connection.h"

#include <gtest/gtest.h>

#include <fstream>

#include "port/file.h"
#include "sdk/providers/base/connection_string.h"
#include "sdk/providers/sqlite/connection_settings.h"
#include "sdk/providers/sqlite/store_test_schema.h"
#include "sdk/providers/sqlite/test_store.h"
#include "sdk/runtime/thrown.h"
#include "testing/failing_sqlite.h"

namespace fdo_sqlite {
namespace {

using fdo_sdk::MessageThrownBy;

struct StringCase {
  wchar_t const* text;
  wchar_t const* file;
  wchar_t const* useFdoMetadata;
};
constexpr StringCase kStrings[] = {
    {L"", L"", L""},
    {L";;", L"", L""},
    {L"File=a.db", L"a.db", L""},
    {L"File=\"a.db\";UseFdoMetadata=TRUE", L"a.db", L"TRUE"},
    {L"file = \"a b.db\" ; USEFDOMETADATA = false ;", L"a b.db", L"FALSE"},
    {L"UseFdoMetadata=TRUE;File=a b.db ", L"a b.db", L"TRUE"},
    {L"File=\"semi;colon=\";", L"semi;colon=", L""},
    {L"File=\"the \"\"quoted\"\" one\"", L"the \"quoted\" one", L""},
    {L"File=\"\"", L"", L""},
    {L"File=;UseFdoMetadata=TRUE", L"", L"TRUE"},
    {L"File=a=b", L"a=b", L""},
    {L"\n File\t=\tx\r\n", L"x", L""},
};

TEST(ConnectionString, ReadsSettingsAndQuotes) {
  for (StringCase const& row : kStrings) {
    SCOPED_TRACE(fdo_sdk::Utf8FromWide(row.text));
    fdo_provider::Settings const settings =
        fdo_provider::ParseConnectionString(ConnectionSettings(), row.text);
    EXPECT_EQ(settings.Value(kFile), row.file);
    EXPECT_EQ(settings.Value(kUseFdoMetadata), row.useFdoMetadata);
    std::wstring const written = fdo_provider::WriteConnectionString(settings);
    EXPECT_EQ(fdo_provider::ParseConnectionString(ConnectionSettings(), written).Value(kFile), row.file);
  }
}

struct Misuse {
  wchar_t const* text;
  wchar_t const* part;  // of the message
};
constexpr Misuse kMisuses[] = {
    {L"Fiel=a", L"There is no setting \"Fiel\"; there are File, UseFdoMetadata, GeometryFormat."},
    {L"=a", L"There is no setting \"\""},
    {L"File", L"\"File\" has no value"},
    {L"File;UseFdoMetadata=TRUE", L"\"File\" has no value"},
    {L"File=a;file=b", L"\"file\" is given twice"},
    {L"File=\"a", L"\"File\" has no closing quote"},
    {L"File=\"a\"\"", L"\"File\" has no closing quote"},
    {L"File=\"a\"b", L"\"b\" behind the value of \"File\""},
    {L"UseFdoMetadata=yes", L"can be TRUE or FALSE, not \"yes\""},
    {L"GeometryFormat=WKT", L"can be FGF or WKB, not \"WKT\""},
};

TEST(ConnectionString, SaysWhatIsWrong) {
  FdoPtr<Connection> connection(new Connection());
  for (Misuse const& row : kMisuses) {
    std::wstring const message =
        MessageThrownBy<FdoConnectionException>([&] { connection->SetConnectionString(row.text); });
    EXPECT_NE(message.find(row.part), std::wstring::npos) << fdo_sdk::Utf8FromWide(message);
  }
  EXPECT_STREQ(connection->GetConnectionString(), L"");
}

TEST(Connection, SettingsCanBeSetByName) {
  TestStore store;
  store.Run("");
  FdoPtr<Connection> connection(new Connection());
  FdoPtr<FdoIConnectionInfo> info = connection->GetConnectionInfo();
  FdoPtr<FdoIConnectionPropertyDictionary> settings = info->GetConnectionProperties();
  FdoInt32 count = 0;
  FdoString** names = settings->GetPropertyNames(count);
  ASSERT_EQ(count, 3);
  EXPECT_STREQ(names[0], L"File");
  EXPECT_TRUE(settings->IsPropertyRequired(L"file"));
  EXPECT_TRUE(settings->IsPropertyFileName(L"File"));
  EXPECT_STREQ(settings->GetPropertyDefault(L"UseFdoMetadata"), L"FALSE");
  FdoString** values = settings->EnumeratePropertyValues(L"UseFdoMetadata", count);
  ASSERT_EQ(count, 2);
  EXPECT_STREQ(values[0], L"TRUE");
  MessageThrownBy<FdoConnectionException>([&] { settings->SetProperty(L"Server", L"x"); });
  settings->SetProperty(L"File", store.File().c_str());
  EXPECT_EQ(connection->Open(), FdoConnectionState_Open);
  MessageThrownBy<FdoConnectionException>([&] { settings->SetProperty(L"File", L"x"); });
  MessageThrownBy<FdoConnectionException>([&] { connection->SetConnectionString(L""); });
  EXPECT_EQ(connection.p->GetRefCount(), 3);  // here, in the info and in the dictionary
}

TEST(Connection, OpensOnlyWithAFile) {
  FdoPtr<Connection> connection(new Connection());
  EXPECT_EQ(MessageThrownBy<FdoConnectionException>([&] { connection->Open(); }),
            L"The setting \"File\" is missing.");
  MessageThrownBy<FdoCommandException>([&] { connection->BeginTransaction(); });
  MessageThrownBy<FdoCommandException>([&] { connection->Flush(); });
  connection->Close();
}

// The message of opening the file, without what precedes the cause.
std::wstring CauseOfOpening(TestStore const& store) {
  std::wstring const message = MessageThrownBy<FdoConnectionException>([&] { store.Open(); });
  std::wstring const start = L"Cannot open \"" + store.File() + L"\": ";
  EXPECT_EQ(message.substr(0, start.size()), start);
  return message.substr(std::min(start.size(), message.size()));
}

void WriteBytes(TestStore const& store, std::string const& bytes) {
  std::ofstream(store.Directory().Path() / "store.sqlite", std::ios::binary) << bytes;
}

std::string ReadBytes(TestStore const& store) {
  std::ifstream file(store.Directory().Path() / "store.sqlite", std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(file), {});
}

TEST(Connection, SaysWhyAFileCannotBeOpened) {
  TestStore store;
  EXPECT_EQ(CauseOfOpening(store), L"there is no such file, or it may not be read.");
  WriteBytes(store,
             "This is no database, but a text that is long enough to look at. " + std::string(2000, '.'));
  EXPECT_EQ(CauseOfOpening(store), L"it is not an SQLite database.");
  TestStore cut;
  cut.Run("CREATE TABLE a (b); INSERT INTO a VALUES (zeroblob(100000))");
  WriteBytes(cut, ReadBytes(cut).substr(0, 5000));
  EXPECT_EQ(CauseOfOpening(cut).substr(0, 24), L"it is damaged or cut off");
}

TEST(Connection, FilesOfOtherLayoutsAreRefusedUnchanged) {
  struct Case {
    char const* schema;
    wchar_t const* cause;
  };
  constexpr Case kCases[] = {
      {"CREATE TABLE gpkg_contents (table_name TEXT PRIMARY KEY)",
       L"it is a GeoPackage, which has a layout of its own."},
      {"CREATE TABLE geometry_columns (f_table_name TEXT, f_geometry_column TEXT, geometry_type INTEGER,"
       " coord_dimension INTEGER, srid INTEGER, spatial_index_enabled INTEGER)",
       L"it is a SpatiaLite database, which has a layout of its own."},
      {"CREATE TABLE geometry_columns (f_table_name TEXT, f_geometry_column TEXT, type TEXT,"
       " coord_dimension TEXT, srid INTEGER, Spatial_Index_Enabled INTEGER)",
       L"it is a SpatiaLite database, which has a layout of its own."},
  };
  for (Case const& each : kCases) {
    SCOPED_TRACE(each.schema);
    TestStore store;
    store.Run(each.schema);
    std::string const before = ReadBytes(store);
    EXPECT_EQ(CauseOfOpening(store), each.cause);
    EXPECT_EQ(ReadBytes(store), before);
  }
  TestStore own;
  own.Run(
      "CREATE TABLE geometry_columns (f_table_name TEXT, f_geometry_column TEXT, geometry_type INTEGER,"
      " coord_dimension INTEGER, srid INTEGER, geometry_format TEXT, spatial_index_enabled INTEGER)");
  EXPECT_EQ(own.Open()->GetConnectionState(), FdoConnectionState_Open);
}

TEST(Connection, NamesThatSqliteTakesForMoreAreNamesOfFiles) {
  if (std::filesystem::path::preferred_separator == '\\') GTEST_SKIP() << "files cannot have such names here";
  TestStore const place;  // for its folder
  auto const before = std::filesystem::current_path();
  std::filesystem::current_path(place.Directory().Path());
  for (wchar_t const* const name : {L"file:other.sqlite?mode=memory", L":memory:"}) {
    Database made;
    made.Create(name, 0);
    made.Execute("CREATE TABLE a (b)");
    made.Close();
    Database database;
    database.Open(name, 0);
    EXPECT_EQ(database.Number("SELECT count(*) FROM sqlite_schema"), 1);
  }
  EXPECT_FALSE(std::filesystem::exists("other.sqlite"));
  std::filesystem::current_path(before);
}

TEST(Connection, AFolderIsNoFile) {
  TestStore store;
  std::filesystem::create_directory(store.Directory().Path() / "store.sqlite");
  CauseOfOpening(store);
}

TEST(Connection, AnEmptyFileIsAnEmptyStore) {
  TestStore store;
  WriteBytes(store, "");
  FdoPtr<Connection> connection = store.Open();
  EXPECT_TRUE(connection.p->Schema().Classes().empty());
  EXPECT_TRUE(connection.p->Schema().SpatialContexts().empty());
}

TEST(Connection, WaitsForALockedFileAndThenSaysSo) {
  TestStore store;
  store.Run("CREATE TABLE Places (Id INTEGER PRIMARY KEY)");
  FdoPtr<Connection> writer = store.Open();
  FdoPtr<FdoITransaction> held = writer->BeginTransaction();
  FdoPtr<Connection> connection = store.Open();
  connection->SetConnectionTimeout(30);
  EXPECT_EQ(connection->GetConnectionTimeout(), 30);
  std::wstring const message = MessageThrownBy<FdoCommandException>([&] { connection->BeginTransaction(); });
  EXPECT_EQ(message,
            L"Cannot change \"" + store.File() + L"\": it is locked by another program or connection.");
  held->Rollback();
  FdoPtr<FdoITransaction>(connection->BeginTransaction())->Commit();
}

TEST(Connection, ReadsAndDoesNotWriteAReadOnlyFile) {
  TestStore store;
  store.Run("CREATE TABLE Places (Id INTEGER PRIMARY KEY)");
  fdo::FailingSqlite sqlite;
  sqlite.FailAt(fdo::SqliteFault::kReadOnly, 1);
  FdoPtr<Connection> connection = store.Open();
  EXPECT_TRUE(connection.p->OpenedDatabase().IsReadOnly());
  EXPECT_EQ(connection.p->Schema().Classes().size(), 1u);
  FdoPtr<FdoITransaction> transaction = connection->BeginTransaction();
  transaction->Commit();
  std::wstring const message = MessageThrownBy<FdoCommandException>(
      [&] { Apply(connection, SchemaOf({ClassOf(L"Roads", {Data(L"Id", FdoDataType_Int64)})})); });
  EXPECT_EQ(message, L"Cannot change \"" + store.File() + L"\": it is read-only.");
  connection->Close();
}

TEST(Connection, SaysWhenItsFileIsReplaced) {
  if (!fdo::port::OpenFilesCanMove()) GTEST_SKIP() << "a file that is open cannot be removed here";
  TestStore store;
  store.Run("CREATE TABLE Places (Id INTEGER PRIMARY KEY)");
  FdoPtr<Connection> connection = store.Open();
  connection.p->Schema().Classes();
  std::filesystem::remove(store.Directory().Path() / "store.sqlite");
  store.Run("CREATE TABLE Other (Id INTEGER PRIMARY KEY)");
  std::wstring const message = MessageThrownBy<FdoCommandException>(
      [&] { Apply(connection, SchemaOf({ClassOf(L"Roads", {Data(L"Id", FdoDataType_Int64)})})); });
  EXPECT_NE(message.find(L"moved, removed or replaced"), std::wstring::npos)
      << fdo_sdk::Utf8FromWide(message);
  EXPECT_EQ(store.Rows("SELECT name FROM sqlite_schema"), "Other");
}

TEST(Connection, CapabilitiesAreAllThere) {
  FdoPtr<Connection> connection(new Connection());
  FdoPtr<FdoIConnectionCapabilities> own = connection->GetConnectionCapabilities();
  FdoPtr<FdoISchemaCapabilities> schema = connection->GetSchemaCapabilities();
  FdoPtr<FdoICommandCapabilities> commands = connection->GetCommandCapabilities();
  FdoPtr<FdoIFilterCapabilities> filters = connection->GetFilterCapabilities();
  FdoPtr<FdoIExpressionCapabilities> expressions = connection->GetExpressionCapabilities();
  FdoPtr<FdoIRasterCapabilities> rasters = connection->GetRasterCapabilities();
  FdoPtr<FdoITopologyCapabilities> topology = connection->GetTopologyCapabilities();
  FdoPtr<FdoIGeometryCapabilities> geometry = connection->GetGeometryCapabilities();
  EXPECT_TRUE(own->SupportsTransactions());
  EXPECT_TRUE(own->SupportsSQL());
  EXPECT_FALSE(rasters->SupportsRaster());
  EXPECT_FALSE(topology->SupportsTopology());
  FdoInt32 count = 0;
  filters->GetSpatialOperations(count);
  EXPECT_EQ(count, 11);
  geometry->GetGeometryTypes(count);
  EXPECT_EQ(count, 11);
  schema->GetDataTypes(count);
  EXPECT_EQ(count, 12);
  FdoPtr<FdoFunctionDefinitionCollection> functions = expressions->GetFunctions();
  EXPECT_GT(functions->GetCount(), 0);
  FdoInt32 const* numbers = commands->GetCommands(count);
  for (FdoInt32 i = 0; i < count; ++i) {
    FdoPtr<FdoICommand> command = connection->CreateCommand(numbers[i]);
    EXPECT_NE(command, nullptr) << numbers[i];
  }
  MessageThrownBy<FdoConnectionException>([&] { connection->CreateCommand(FdoCommandType_AcquireLock); });
  EXPECT_EQ(connection.p->GetRefCount(), 1);
}

class Transactions : public testing::Test {
 protected:
  FdoPtr<Connection> OpenPlaces() {
    store_.Run("CREATE TABLE Places (Id INTEGER PRIMARY KEY)");
    return store_.Open();
  }
  void Write(int id) {
    connection_.p->OpenedDatabase().Execute("INSERT INTO Places VALUES (" + std::to_string(id) + ")");
  }
  std::string Ids() { return store_.Rows("SELECT group_concat(Id) FROM Places"); }

  TestStore store_;
  FdoPtr<Connection> connection_ = OpenPlaces();
};

TEST_F(Transactions, CommitAndRollBack) {
  FdoPtr<FdoITransaction> transaction = connection_->BeginTransaction();
  Write(1);
  EXPECT_EQ(Ids(), "NULL");
  MessageThrownBy<FdoCommandException>([&] { connection_->BeginTransaction(); });
  transaction->Commit();
  EXPECT_EQ(Ids(), "1");
  EXPECT_EQ(MessageThrownBy<FdoCommandException>([&] { transaction->Commit(); }),
            L"The transaction has ended.");
  transaction = connection_->BeginTransaction();
  Write(2);
  transaction->Rollback();
  EXPECT_EQ(Ids(), "1");
}

TEST_F(Transactions, AreRolledBackWithTheirLastReferenceAndWithTheConnection) {
  FdoPtr<FdoITransaction> transaction = connection_->BeginTransaction();
  Write(1);
  transaction = nullptr;
  EXPECT_EQ(Ids(), "NULL");
  transaction = connection_->BeginTransaction();
  Write(2);
  connection_->Close();
  EXPECT_EQ(Ids(), "NULL");
  MessageThrownBy<FdoCommandException>([&] { transaction->Commit(); });
  connection_->Open();
  FdoPtr<FdoITransaction>(connection_->BeginTransaction())->Commit();
}

TEST_F(Transactions, HaveSavePoints) {
  FdoPtr<FdoITransaction> transaction = connection_->BeginTransaction();
  Write(1);
  EXPECT_STREQ(transaction->AddSavePoint(L"a \"b\""), L"a \"b\"");
  Write(2);
  EXPECT_STREQ(transaction->AddSavePoint(L"a \"b\""), L"a \"b\"2");
  Write(3);
  transaction->Rollback(L"a \"b\"2");
  transaction->ReleaseSavePoint(L"a \"b\"2");
  MessageThrownBy<FdoCommandException>([&] { transaction->Rollback(L"a \"b\"2"); });
  transaction->Commit();
  EXPECT_EQ(Ids(), "1,2");
}

TEST_F(Transactions, OnlyTheOpenOneCanBeGivenToACommand) {
  FdoPtr<FdoITransaction> transaction = connection_->BeginTransaction();
  FdoPtr<FdoIDescribeSchema> command = Make<FdoIDescribeSchema>(connection_, FdoCommandType_DescribeSchema);
  command->SetTransaction(transaction);
  EXPECT_EQ(FdoPtr<FdoITransaction>(command->GetTransaction()).p, transaction.p);
  FdoPtr<Connection> other = store_.Open();
  FdoPtr<FdoIDescribeSchema> foreign = Make<FdoIDescribeSchema>(other, FdoCommandType_DescribeSchema);
  MessageThrownBy<FdoCommandException>([&] { foreign->SetTransaction(transaction); });
}

TEST_F(Transactions, BatchesOfOneOwnerShareOne) {
  connection_.p->JoinWrites(this);
  Write(1);
  connection_.p->JoinWrites(this);
  Write(2);
  EXPECT_EQ(Ids(), "NULL");
  int another = 0;
  connection_.p->JoinWrites(&another);
  EXPECT_EQ(Ids(), "1,2");
  Write(3);
  connection_->Flush();
  EXPECT_EQ(Ids(), "1,2,3");
  connection_.p->JoinWrites(this);
  Write(4);
  FdoPtr<FdoITransaction> transaction = connection_->BeginTransaction();
  EXPECT_EQ(Ids(), "1,2,3,4");
  connection_.p->JoinWrites(this);
  Write(5);
  connection_.p->LeaveWrites(this);
  EXPECT_EQ(Ids(), "1,2,3,4");
  transaction->Commit();
  EXPECT_EQ(Ids(), "1,2,3,4,5");
}

TEST_F(Transactions, NothingIsWrittenOutsideOneThatAFailureHasUndone) {
  FdoPtr<FdoITransaction> transaction = connection_->BeginTransaction();
  Write(1);
  std::wstring const message = MessageThrownBy<FdoCommandException>(
      [&] { connection_.p->OpenedDatabase().Execute("INSERT OR ROLLBACK INTO Places VALUES (1)"); });
  EXPECT_NE(message.find(L"The changes since the last commit are undone."), std::wstring::npos);
  MessageThrownBy<FdoCommandException>([&] { connection_.p->JoinWrites(this); });
  MessageThrownBy<FdoCommandException>([&] { connection_->Flush(); });
  MessageThrownBy<FdoCommandException>([&] { transaction->Commit(); });
  connection_->Flush();
  EXPECT_EQ(Ids(), "NULL");
}

}  // namespace
}  // namespace fdo_sqlite
