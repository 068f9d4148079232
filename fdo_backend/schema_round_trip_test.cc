// What is written as a schema reads back equal.
#include <Fdo.h>
#include <fdo/database_fdo.h>
#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "testing/captured_diagnostics.h"
#include "testing/scratch_directory.h"

namespace fdo {
namespace {

// Every data type, coordinate systems shared and not, classes without geometry and without identity.
class RandomSchema {
 public:
  RandomSchema(wchar_t const* name, bool everyTableHasAnId, unsigned seed)
      : name_(name), leastId_(everyTableHasAnId ? 0 : -1), random_(seed) {}

  void Make(DatabaseDef& def) {
    int const count = Pick(1, 6);
    auto tables = std::make_unique<TableDef[]>(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) MakeTable(i, tables[static_cast<std::size_t>(i)]);
    def.Initialize(name_, tables.release(), count);
  }

 private:
  int Pick(int least, int most) { return std::uniform_int_distribution<int>(least, most)(random_); }

  void MakeTable(int number, TableDef& table) {
    constexpr ColumnDef::DataType kIdentityTypes[] = {ColumnDef::kInt16, ColumnDef::kInt32,
                                                      ColumnDef::kInt64};
    int const count = Pick(1, 12);
    int const idIndex = Pick(leastId_, count - 1);
    std::vector<ColumnDef> columns(static_cast<std::size_t>(count));
    std::vector<int> geometries;
    for (int i = 0; i < count; ++i) {
      std::wstring const name = (i == idIndex ? L"id" : L"column\u65E5") + std::to_wstring(i);
      ColumnDef& column = columns[static_cast<std::size_t>(i)];
      if (i == idIndex) {
        column.Initialize(name.c_str(), kIdentityTypes[Pick(0, 2)], 0, Value(), nullptr);
      } else if (Pick(0, 4) == 0) {
        CoordSys const& system = kSystems[Pick(0, 2)];
        column.Initialize(name.c_str(), ColumnDef::kGeometry, Pick(1, 15), Value(), &system);
        geometries.push_back(i);
      } else {
        column.Initialize(name.c_str(), static_cast<ColumnDef::DataType>(Pick(0, 11)), 0, Value(), nullptr);
      }
    }
    constexpr int kTags[] = {0, 7, -1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()};
    // A tag travels with the identity.
    int const tag = idIndex < 0 ? 0 : kTags[Pick(0, 4)];
    // The main geometry's coordinate system is the one that becomes a spatial context; so it is the only one.
    int const geomIndex =
        geometries.empty() ? -1 : geometries[static_cast<std::size_t>(Pick(0, 100)) % geometries.size()];
    for (int const i : geometries) {
      if (i != geomIndex) columns[static_cast<std::size_t>(i)].SetCoordSys(nullptr);
    }
    table.Initialize(name_, (L"table" + std::to_wstring(number)).c_str(), columns.data(), count, idIndex,
                     geomIndex, tag);
  }

  CoordSys const kSystems[3] = {{L"WGS84", L"EPSG:4326", L"GEOGCS[\"WGS 84\"]"},
                                {L"Stra\u00DFe", L"", L"LOCAL_CS[\"a\"]"},
                                {L"none", L"", L""}};
  wchar_t const* name_;
  int leastId_;
  std::mt19937 random_;
};

void ExpectEqual(DatabaseDef const& read, DatabaseDef const& written) {
  EXPECT_STREQ(read.Name(), written.Name());
  ASSERT_EQ(read.Count(), written.Count());
  for (int i = 0; i < read.Count(); ++i) {
    TableDef const& table = read[i];
    TableDef const& expected = written[i];
    EXPECT_STREQ(table.Name(), expected.Name());
    EXPECT_STREQ(table.SchemaName(), expected.SchemaName());
    EXPECT_EQ(table.IndexOfID(), expected.IndexOfID());
    EXPECT_EQ(table.IndexOfGeom(), expected.IndexOfGeom());
    EXPECT_EQ(table.Tag(), expected.Tag());
    ASSERT_EQ(table.ColumnCount(), expected.ColumnCount());
    for (int k = 0; k < table.ColumnCount(); ++k) {
      EXPECT_STREQ(table[k].Name(), expected[k].Name());
      EXPECT_EQ(table[k].Type(), expected[k].Type()) << k;
      EXPECT_EQ(table[k].GeomTypes(), expected[k].GeomTypes()) << k;
      CoordSys const* const system = table[k].SRS();
      CoordSys const* const expectedSystem = expected[k].SRS();
      ASSERT_EQ(system != nullptr, expectedSystem != nullptr) << k;
      if (system == nullptr) continue;
      EXPECT_STREQ(system->Name(), expectedSystem->Name());
      EXPECT_STREQ(system->Code(), expectedSystem->Code());
      EXPECT_STREQ(system->Wkt(), expectedSystem->Wkt());
    }
  }
}

class SchemaRoundTrip : public testing::TestWithParam<unsigned> {};

TEST_P(SchemaRoundTrip, MemoryProvider) {
  CapturedDiagnostics const diagnostics;
  DatabaseDef written;
  RandomSchema(L"Round\u00DF", /*everyTableHasAnId=*/false, GetParam()).Make(written);
  DatabaseFdo database;
  // The registry of other tests may have the name; this one is the library's.
  FdoPtr<IConnectionManager> const manager = FdoFeatureAccessManager::GetConnectionManager();
  FdoPtr<FdoIConnection> const connection = manager->CreateConnection(L"quillon_memory_provider");
  connection->SetConnectionString(L"");
  connection->Open();
  ASSERT_TRUE(database.Connect(connection));
  EXPECT_EQ(database.Count(), 0);
  ASSERT_TRUE(database.SetSchema(written));
  ExpectEqual(*database.Def(), written);
  EXPECT_EQ(diagnostics.Lines(), std::vector<std::wstring>());
}

TEST_P(SchemaRoundTrip, SqliteProvider) {
  CapturedDiagnostics diagnostics;
  ScratchDirectory const scratch;
  std::wstring const file = scratch.File("round.sqlite");
  DatabaseDef written;
  // Such a store has one schema, and a class without an identity gets the number of the row.
  RandomSchema(L"Default", /*everyTableHasAnId=*/true, GetParam()).Make(written);
  ASSERT_TRUE(DatabaseFdo::Create(file.c_str(), nullptr));
  DatabaseFdo database;
  ASSERT_TRUE(database.Connect(file.c_str(), nullptr, nullptr, false, true));
  EXPECT_FALSE(database.MustAccessByName());
  EXPECT_EQ(database.Count(), 0);
  diagnostics.Forget();  // no registry names the provider
  ASSERT_TRUE(database.SetSchema(written));
  EXPECT_EQ(diagnostics.Lines(), std::vector<std::wstring>());
  ExpectEqual(*database.Def(), written);
  ASSERT_TRUE(database.Connect(file.c_str(), nullptr, nullptr, false, true));
  ExpectEqual(*database.Def(), written);
}

INSTANTIATE_TEST_SUITE_P(Seeds, SchemaRoundTrip, testing::Range(0u, 30u));

}  // namespace
}  // namespace fdo
