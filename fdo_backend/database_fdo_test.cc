#include <Fdo.h>
#include <fdo/database_fdo.h>
#include <gtest/gtest.h>

#include "testing/captured_diagnostics.h"
#include "testing/schema_builder.h"

namespace fdo {
namespace {

constexpr wchar_t const* kMemory = L"quillon_memory_provider";

FdoPtr<FdoIConnection> MemoryConnection() {
  FdoPtr<IConnectionManager> const manager = FdoFeatureAccessManager::GetConnectionManager();
  FdoPtr<FdoIConnection> connection = manager->CreateConnection(kMemory);
  connection->SetConnectionString(L"");
  connection->Open();
  return connection;
}

TEST(DatabaseFdo, ASchemaWrittenReadsBackEqual) {
  CapturedDiagnostics const diagnostics;
  FdoPtr<FdoIConnection> const connection = MemoryConnection();
  DatabaseFdo database;
  ASSERT_TRUE(database.Connect(connection));
  EXPECT_EQ(database.Count(), 0);
  DatabaseDef def;
  SetTables(def, L"Roads", {MakeTableDef(L"Roads", L"Street", L"id:Int64 name:String shape:Geometry")});
  ASSERT_TRUE(database.SetSchema(def));
  ASSERT_EQ(database.Count(), 1);
  EXPECT_STREQ(database.Def()->Name(), L"Roads");
  EXPECT_TRUE(diagnostics.Lines().empty());
}

}  // namespace
}  // namespace fdo
