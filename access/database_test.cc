// What Database and Table do for every back end.
#include <fdo/database.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "testing/memory_table.h"
#include "testing/schema_builder.h"

namespace fdo {
namespace {

void MakeSchema(DatabaseDef& def) {
  SetTables(def, L"",
            {MakeTableDef(L"S1", L"Parcels", L"id:Int64"), MakeTableDef(L"S2", L"Parcels", L"id:Int64"),
             MakeTableDef(L"S2", L"Pipes", L"id:Int64")});
}

TEST(Database, WithoutASchemaHasNoTables) {
  DatabaseDef const none;
  MemoryDatabase database(none);
  database.Disconnect();
  EXPECT_EQ(nullptr, database.Def());
  EXPECT_EQ(0, database.Count());
  EXPECT_EQ(nullptr, database[L"Parcels"]);
  MemoryDatabase const& constant = database;
  EXPECT_EQ(nullptr, constant[L"Parcels"]);
  database.Disconnect();
}

TEST(Database, TablesByPositionAndQualifiedName) {
  DatabaseDef def;
  MakeSchema(def);
  MemoryDatabase database(def);
  EXPECT_EQ(3, database.Count());
  EXPECT_EQ(&database[0], database[L"Parcels"]);
  EXPECT_EQ(&database[1], database[L"S2:Parcels"]);
  EXPECT_EQ(&database[2], database[L"Pipes"]);
  EXPECT_EQ(nullptr, database[L"S3:Parcels"]);
  EXPECT_EQ(nullptr, database[L"parcels"]);
  MemoryDatabase const& constant = database;
  EXPECT_EQ(&constant[1], constant[L"S2:Parcels"]);
  EXPECT_EQ(&(*database.Def())[1], database[1].Def()) << "a table's definition is that of the schema";
}

TEST(Database, Texts) {
  DatabaseDef const none;
  MemoryDatabase database(none);
  EXPECT_STREQ(L"", database.ConnId());
  database.SetConnId(L"key");
  EXPECT_STREQ(L"key", database.ConnId());
  database.SetConnId(nullptr);
  EXPECT_STREQ(L"", database.ConnId());
  database.Connect(L"source", L"provider", nullptr, true, true);
  EXPECT_STREQ(L"source", database.ConnectionString());
  EXPECT_STREQ(L"provider", database.ProviderName());
}

// Opens what a back end may do with its base.
class OpenDatabase : public Database {
 public:
  using Database::ClearSchema;
  using Database::def_;
  using Database::tables_;
  bool Connect(wchar_t const*, wchar_t const*, wchar_t const*, bool, bool) override { return false; }
  void Disconnect() override {}
  bool SetSchema(DatabaseDef const&) override { return false; }
  Table* DuplicateTable(Table*) override { return nullptr; }
  void DestroyTable(Table*) override {}
};

TEST(Database, CopiesShareSchemaAndTables) {
  OpenDatabase database;
  database.def_ = new DatabaseDef;
  MakeSchema(*database.def_);
  database.tables_ = new Table*[3]();
  database.tables_[1] = new MemoryTable(&(*database.def_)[1]);
  database.SetConnId(L"key");

  OpenDatabase const copy(database);
  OpenDatabase assigned;
  assigned = database;
  for (OpenDatabase const* other : {&copy, static_cast<OpenDatabase const*>(&assigned)}) {
    EXPECT_EQ(database.Def(), other->Def());
    EXPECT_EQ(database.tables_, other->tables_);
    EXPECT_STREQ(L"key", other->ConnId());
  }
  database.ClearSchema();  // and nobody else
}

TEST(Database, ClearSchemaDestroysTablesAndSkipsMissingOnes) {
  struct CountingTable : MemoryTable {
    CountingTable(TableDef const* def, int* destroyed) : MemoryTable(def), count(destroyed) {}
    ~CountingTable() override { ++*count; }
    int* count;
  };
  int destroyed = 0;
  OpenDatabase database;
  database.ClearSchema();
  database.def_ = new DatabaseDef;
  MakeSchema(*database.def_);
  database.tables_ = new Table*[3]();
  database.tables_[0] = new CountingTable(&(*database.def_)[0], &destroyed);
  database.tables_[2] = new CountingTable(&(*database.def_)[2], &destroyed);
  EXPECT_EQ(nullptr, database[L"S2:Parcels"]);
  database.ClearSchema();
  EXPECT_EQ(2, destroyed);
  EXPECT_EQ(nullptr, database.def_);
  EXPECT_EQ(nullptr, database.tables_);
  EXPECT_EQ(0, database.Count());

  database.def_ = new DatabaseDef;  // a back end that failed before it made its tables
  MakeSchema(*database.def_);
  database.ClearSchema();
  EXPECT_EQ(nullptr, database.def_);
}

TEST(Table, WriteBracketsDoNothingByDefault) {
  TableDef const def = MakeTableDef(L"", L"t", L"id:Int64");
  MemoryTable table(&def);
  table.BeginWrite();
  table.CommitWrite();
  EXPECT_TRUE(table.Calls().empty());
}

TEST(Table, IsEmptyExactlyWhenTheStoreCountsNoRow) {
  TableDef const def = MakeTableDef(L"", L"t", L"id:Int64");
  struct CountedTable : MemoryTable {
    using MemoryTable::MemoryTable;
    __int64 GetRowCount(FdoFilter* filter, bool allowScan) override {
      MemoryTable::GetRowCount(filter, allowScan);
      return count;
    }
    __int64 count = 0;
  } table(&def);
  for (__int64 count : {0, 1, 7, -1}) {
    table.count = count;
    table.ForgetCalls();
    EXPECT_EQ(count == 0, table.IsEmpty(nullptr)) << count << ": a store that cannot tell is not empty";
    EXPECT_EQ(std::vector<std::string>{"GetRowCount"}, table.Calls()) << "and not allowed to scan";
  }
}

TEST(Table, DesiredFieldsByFlag) {
  TableDef const def = MakeTableDef(L"", L"t", L"id:Int64 a:Int32 b:Int32");
  MemoryTable table(&def);
  bool const flags[] = {true, false, true};
  bool const none[] = {false, false, false};
  struct {
    bool const* flags;
    int count;
    char const* call;
  } const cases[] = {{flags, 3, "SetDesiredFields 0 2"}, {flags, 2, "SetDesiredFields 0"},
                     {none, 3, "SetDesiredFields all"},  {nullptr, 3, "SetDesiredFields all"},
                     {flags, 0, "SetDesiredFields all"}, {flags, -1, "SetDesiredFields all"}};
  for (auto const& c : cases) {
    table.ForgetCalls();
    table.SetDesiredFields(c.flags, c.count);
    EXPECT_EQ(std::vector<std::string>{c.call}, table.Calls());
  }
}

}  // namespace
}  // namespace fdo
