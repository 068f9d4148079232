// Runs the program on a SQLite store of the test's own, in a folder and with texts outside ASCII.
#include <fdo/database_fdo.h>
#include <fdo/row.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "testing/captured_diagnostics.h"
#include "testing/fgf_builder.h"
#include "testing/schema_builder.h"
#include "testing/scratch_directory.h"
#include "tools/quillon/json_run.h"
#include "tools/quillon/program_run.h"

namespace fdo::tool {
namespace {

using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;

struct Town {
  wchar_t const* name;
  char const* utf8;
  int people;
  char const* place;
};
constexpr Town kTowns[] = {
    {L"K\u00F6ln", "K\u00F6ln", 1000, "POINT (7 51)"},
    {L"\u6771\u4EAC", "\u6771\u4EAC", 14000, "POINT (140 36)"},
    {L"\U0001F3D9 New York", "\U0001F3D9 New York", 8000, "POINT (-74 41)"},
};

class SqliteStore : public testing::Test {
 protected:
  void SetUp() override {
    std::filesystem::create_directory(scratch_.Path() / std::filesystem::path(u8"stra\u00DFe \u65E5\u672C"));
    CapturedDiagnostics const ignored;  // that no registry names the provider
    std::wstring const path = scratch_.File(kFile);
    ASSERT_TRUE(DatabaseFdo::Create(path.c_str(), nullptr));
    DatabaseFdo database;
    ASSERT_TRUE(database.Connect(path.c_str(), nullptr, nullptr, false, true));
    DatabaseDef def;
    SetTables(def, L"Default",
              {MakeTableDef(L"Default", L"town", L"id:Int64 name:String people:Int32 place:Geometry")});
    ASSERT_TRUE(database.SetSchema(def));
    for (Town const& town : kTowns) {
      Row row(database[0].Def());
      row[L"name"] = town.name;
      row[L"people"] = town.people;
      std::vector<unsigned char> const place = Fgf(town.place);
      row[L"place"].Reset(place.data(), static_cast<int>(place.size()), /*copy=*/true);
      ASSERT_TRUE(database[0].Insert(row, nullptr, true));
    }
  }

  // As a user of this platform gives it.
  std::string Path(std::string const& name) const {
    std::u8string const path =
        (scratch_.Path() / std::filesystem::path(std::u8string(name.begin(), name.end()))).u8string();
    return std::string(path.begin(), path.end());
  }
  std::string Store() const { return Path(kFile); }

  static std::vector<std::string> Names(json const& rows) {
    std::vector<std::string> names;
    for (auto const& row : rows) names.push_back(row["name"]);
    return names;
  }

  static constexpr char kFile[] = "stra\u00DFe \u65E5\u672C/t\u00F6wns.sqlite";
  ScratchDirectory scratch_;
};

TEST_F(SqliteStore, InfoTellsWhatIsInIt) {
  json const info = RunForJson({"info", Store()});
  EXPECT_EQ(info["source"], Store());
  ASSERT_EQ(info["tables"].size(), 1u);
  EXPECT_EQ(info["tables"][0]["rows"], 3);
  EXPECT_EQ(info["tables"][0]["geometry"]["extent"], json({-74, 36, 140, 51}));
}

TEST_F(SqliteStore, QueriesCompareAndPrintAnyText) {
  EXPECT_THAT(Names(RunForJson({"query", Store(), "--order-by", "people"})),
              ElementsAre(kTowns[0].utf8, kTowns[2].utf8, kTowns[1].utf8));
  EXPECT_THAT(Names(RunForJson({"query", Store(), "--where", "name = '\u6771\u4EAC'"})),
              ElementsAre(kTowns[1].utf8));
  EXPECT_THAT(Names(RunForJson({"query", Store(), "--bbox", "-80,40,10,52", "--where", "people > 1000"})),
              ElementsAre(kTowns[2].utf8));
  auto const table = RunQuillon({"query", Store(), "-f", "csv", "--select", "name,people"});
  EXPECT_EQ(table.code, 0) << table.err;
  EXPECT_EQ(table.out, "name,people\r\nK\u00F6ln,1000\r\n\u6771\u4EAC,14000\r\n\U0001F3D9 New York,8000\r\n");
}

TEST_F(SqliteStore, StatisticsOfAColumn) {
  json const column = RunForJson({"stats", Store(), "people"})["columns"][0];
  EXPECT_EQ(column["count"], 3);
  EXPECT_EQ(column["min"], 1000);
  EXPECT_EQ(column["max"], 14000);
}

TEST_F(SqliteStore, ItIsConvertedIntoAnother) {
  std::string const copy = Path("\u30B3\u30D4\u30FC.sqlite");
  auto const result = RunQuillon({"convert", Store(), copy});
  EXPECT_EQ(result.code, 0) << result.err;
  EXPECT_THAT(Names(RunForJson({"query", copy, "--order-by", "people", "--descending"})),
              ElementsAre(kTowns[1].utf8, kTowns[2].utf8, kTowns[0].utf8));
  EXPECT_EQ(RunQuillon({"convert", Store(), copy}).code, 1) << "it is there already";
  EXPECT_EQ(RunQuillon({"convert", Store(), copy, "--overwrite"}).code, 0);
}

TEST_F(SqliteStore, WhatDoesNotOpenIsNamed) {
  std::string const missing = Path("f\u00E4hlt.sqlite");
  auto const result = RunQuillon({"info", missing});
  EXPECT_EQ(result.code, 3);
  EXPECT_EQ(result.out, "");
  EXPECT_THAT(result.err, HasSubstr(missing + " does not exist"));
  EXPECT_EQ(RunQuillon({"query", Store(), "--where", "pepole > 1"}).code, 1);
  EXPECT_EQ(RunQuillon({"query"}).code, 2);
}

}  // namespace
}  // namespace fdo::tool
