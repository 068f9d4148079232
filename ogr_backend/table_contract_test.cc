// Every implementation of Database and Table under the contract that they share.
#include "testing/table_contract.h"

#include <Fdo.h>
#include <fdo/database_fdo.h>
#include <fdo/database_ogr.h>
#include <fdo/text_conversion.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "ogr_backend/gdal_absence.h"
#include "testing/memory_table.h"
#include "testing/scratch_directory.h"

namespace fdo {
namespace {

// --- In memory -----------------------------------------------------------------------------------

bool Compare(Value const& left, FdoComparisonOperations operation, Value const& right) {
  switch (operation) {
    case FdoComparisonOperations_EqualTo:
      return left == right;
    case FdoComparisonOperations_NotEqualTo:
      return left != right;
    case FdoComparisonOperations_GreaterThan:
      return left > right;
    case FdoComparisonOperations_GreaterThanOrEqualTo:
      return left >= right;
    case FdoComparisonOperations_LessThan:
      return left < right;
    case FdoComparisonOperations_LessThanOrEqualTo:
      return left <= right;
    case FdoComparisonOperations_Like:
      break;
  }
  throw std::invalid_argument("the memory table's tests have no such comparison");
}

// The comparison of a column with a number or a text, which is all that the claims ask for.
bool Matches(TableDef const& def, FdoFilter* filter, MemoryTable::Cells const& cells) {
  auto* const comparison = dynamic_cast<FdoComparisonCondition*>(filter);
  if (comparison == nullptr) throw std::invalid_argument("a filter that is not a comparison");
  FdoPtr<FdoExpression> const left = comparison->GetLeftExpression();
  FdoPtr<FdoExpression> const right = comparison->GetRightExpression();
  Value const& cell = cells.at(static_cast<std::size_t>(def.IndexOf(left->ToString())));
  if (cell.IsNull()) return false;
  auto* const text = dynamic_cast<FdoStringValue*>(right.p);
  Value const literal = text != nullptr ? Value(text->GetString()) : Value(std::stod(right->ToString()));
  return Compare(cell, comparison->GetOperation(), literal);
}

class MemoryStore : public ContractStore {
 public:
  explicit MemoryStore(DatabaseDef const& def) : database_(def) {
    MemoryTable& table = database_.At(0);
    table.matches = [&table](FdoFilter* filter, MemoryTable::Cells const& cells) {
      return Matches(*table.Def(), filter, cells);
    };
  }
  Database& Db() override { return database_; }

 private:
  MemoryDatabase database_;
};

std::unique_ptr<ContractStore> MakeMemory(TableFixture const&, std::vector<ContractRow> const& rows, Access) {
  DatabaseDef def;
  SetContractSchema(def);
  auto store = std::make_unique<MemoryStore>(def);
  InsertContractRows(store->Db()[0], rows);
  return store;
}

// --- Files through GDAL --------------------------------------------------------------------------

class OgrStore : public ContractStore {
 public:
  OgrStore(char const* fileName, std::vector<ContractRow> const& rows, Access access) {
    std::wstring const path = scratch_.File(fileName);
    DatabaseDef def;
    SetContractSchema(def);
    database_.KeepNullNumbers(true);
    EXPECT_TRUE(database_.Create(path.c_str(), nullptr, def)) << ToUtf8(database_.LastError());
    if (database_.Count() != 1) return;
    InsertContractRows(database_[0], rows);
    EXPECT_TRUE(database_.Connect(path.c_str(), nullptr, nullptr, /*readOnly=*/access == Access::kRead,
                                  /*loadSchema=*/true))
        << ToUtf8(database_.LastError());
  }
  Database& Db() override { return database_; }

 private:
  ScratchDirectory scratch_;  // outlives the connection
  DatabaseOgr database_;
};

std::unique_ptr<ContractStore> MakeOgr(TableFixture const& fixture, std::vector<ContractRow> const& rows,
                                       Access access) {
  return std::make_unique<OgrStore>(fixture.fileName, rows, access);
}

char const* WhyNoOgr() { return IsWithoutGdal() ? kWithoutGdal : nullptr; }

// What every kind of file has in common.
constexpr TableFixture OgrFixture(char const* name, char const* fileName) {
  return {.name = name,
          .make = MakeOgr,
          .fileName = fileName,
          .schemaName = L"",
          .tellsNewId = true,
          .nullText = true,
          .ownOrder = true,
          .orders = false,
          .boxMeetsEnvelope = false,
          .filterKeepsBox = true,
          .countEndsQuery = true,
          .extentEndsQuery = true,
          .deleteKeepsIds = true,
          .deletesByFilter = false,
          .updatesById = false,
          .updateHeedsFilter = false,
          .notDesired = NotDesired::kUndefined,
          .absence = WhyNoOgr};
}

constexpr TableFixture Shapefile() {
  TableFixture fixture = OgrFixture("Shapefile", "town.shp");
  fixture.deleteKeepsIds = false;
  return fixture;
}

constexpr TableFixture Gpkg() { return OgrFixture("Gpkg", "town.gpkg"); }
constexpr TableFixture GeoJson() { return OgrFixture("GeoJson", "town.geojson"); }
constexpr TableFixture Sqlite() { return OgrFixture("Sqlite", "town.sqlite"); }

constexpr TableFixture FlatGeobuf() {
  TableFixture fixture = OgrFixture("FlatGeobuf", "town.fgb");
  fixture.ownOrder = false;
  return fixture;
}

constexpr TableFixture Csv() {
  TableFixture fixture = OgrFixture("Csv", "town.csv");
  fixture.nullText = false;
  fixture.tellsNewId = false;
  return fixture;
}

// --- Stores of FDO providers ----------------------------------------------------------------------

// The store of a provider that keeps it in memory, as long as the connection is open.
class FdoMemoryStore : public ContractStore {
 public:
  explicit FdoMemoryStore(std::vector<ContractRow> const& rows) {
    FdoPtr<IConnectionManager> const manager = FdoFeatureAccessManager::GetConnectionManager();
    connection_ = manager->CreateConnection(L"quillon_memory_provider");
    connection_->SetConnectionString(L"");
    connection_->Open();
    EXPECT_TRUE(database_.Connect(connection_));
    DatabaseDef def;
    SetContractSchema(def);
    EXPECT_TRUE(database_.SetSchema(def));
    if (database_.Count() != 1) return;
    InsertContractRows(database_[0], rows);
    EXPECT_TRUE(database_.Connect(connection_)) << "with new tables";
  }
  Database& Db() override { return database_; }

 private:
  FdoPtr<FdoIConnection> connection_;
  DatabaseFdo database_;
};

std::unique_ptr<ContractStore> MakeFdoMemory(TableFixture const&, std::vector<ContractRow> const& rows,
                                             Access) {
  return std::make_unique<FdoMemoryStore>(rows);
}

// A file of the SQLite provider, opened by its extension.
class FdoSqliteStore : public ContractStore {
 public:
  explicit FdoSqliteStore(std::vector<ContractRow> const& rows) {
    std::wstring const path = scratch_.File("town.sqlite");
    EXPECT_TRUE(DatabaseFdo::Create(path.c_str(), nullptr));
    Open(path);
    DatabaseDef def;
    SetContractSchema(def);
    EXPECT_TRUE(database_.SetSchema(def));
    if (database_.Count() != 1) return;
    InsertContractRows(database_[0], rows);
    Open(path);
  }
  Database& Db() override { return database_; }

 private:
  void Open(std::wstring const& path) {
    EXPECT_TRUE(database_.Connect(path.c_str(), nullptr, nullptr, /*mode=*/false, /*loadSchema=*/true));
  }

  ScratchDirectory scratch_;  // outlives the connection
  DatabaseFdo database_;
};

std::unique_ptr<ContractStore> MakeFdoSqlite(TableFixture const&, std::vector<ContractRow> const& rows,
                                             Access) {
  return std::make_unique<FdoSqliteStore>(rows);
}

constexpr TableFixture kFdoMemory = {.name = "FdoMemory",
                                     .make = MakeFdoMemory,
                                     .fileName = nullptr,
                                     .schemaName = L"test",
                                     .tellsNewId = true,
                                     .nullText = true,
                                     .ownOrder = true,
                                     .orders = true,
                                     .boxMeetsEnvelope = true,
                                     .filterKeepsBox = false,
                                     .countEndsQuery = false,
                                     .extentEndsQuery = false,
                                     .deleteKeepsIds = true,
                                     .deletesByFilter = true,
                                     .updatesById = true,
                                     .updateHeedsFilter = true,
                                     .notDesired = NotDesired::kUndefined};

constexpr TableFixture FdoSqlite() {
  TableFixture fixture = kFdoMemory;
  fixture.name = "FdoSqlite";
  fixture.make = MakeFdoSqlite;
  fixture.fileName = "town.sqlite";
  fixture.schemaName = L"Default";
  return fixture;
}

// --- All of them ---------------------------------------------------------------------------------

constexpr TableFixture kMemory = {.name = "Memory",
                                  .make = MakeMemory,
                                  .fileName = nullptr,
                                  .schemaName = L"test",
                                  .tellsNewId = true,
                                  .nullText = true,
                                  .ownOrder = true,
                                  .orders = true,
                                  .boxMeetsEnvelope = true,
                                  .filterKeepsBox = false,
                                  .countEndsQuery = false,
                                  .extentEndsQuery = true,
                                  .deleteKeepsIds = true,
                                  .deletesByFilter = true,
                                  .updatesById = true,
                                  .updateHeedsFilter = true,
                                  .notDesired = NotDesired::kThrowsLogicError};

constexpr TableFixture kFixtures[] = {
    kMemory, kFdoMemory, FdoSqlite(), Shapefile(), Gpkg(), GeoJson(), FlatGeobuf(), Csv(), Sqlite(),
};

INSTANTIATE_TEST_SUITE_P(Every, TableContract, ::testing::ValuesIn(kFixtures), TableFixtureName);

}  // namespace
}  // namespace fdo
