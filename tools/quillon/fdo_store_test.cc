// Runs the program on stores of FDO providers.
#include <Fdo.h>
#include <fdo/database_fdo.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <utility>

#include "testing/captured_diagnostics.h"
#include "testing/schema_builder.h"
#include "tools/quillon/json_run.h"
#include "tools/quillon/program_files.h"
#include "tools/quillon/program_run.h"

namespace fdo::tool {
namespace {

using nlohmann::json;
using testing::HasSubstr;

class FdoStore : public ProgramFiles {
 protected:
  // The countries of the world, in a store.
  std::string World() const {
    std::string const store = Scratch("world.sqlite");
    EXPECT_EQ(RunQuillon({"convert", Data("world.gpkg"), store, "--no-check"}).code, 0);
    return store;
  }

  static json Query(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "query");
    return RunForJson(std::move(arguments));
  }

  static std::vector<std::string> Names(json const& rows) {
    std::vector<std::string> names;
    for (auto const& row : rows) names.push_back(row["name_long"]);
    return names;
  }
};

TEST_F(FdoStore, RowsInTheOrderOfAColumn) {
  std::string const world = World();
  EXPECT_EQ(
      Names(Query({world, "--select", "name_long", "--order-by", "pop", "--descending", "--limit", "3"})),
      (std::vector<std::string>{"China", "India", "United States"}));
  EXPECT_EQ(Names(Query({world, "--select", "name_long", "--order-by", "name_long", "--limit", "2"})),
            (std::vector<std::string>{"Afghanistan", "Albania"}));
  EXPECT_EQ(Names(Query({world, "--select", "name_long", "--order-by", "area_km2", "--descending", "--limit",
                         "2", "--where", "continent = 'Africa'"})),
            (std::vector<std::string>{"Democratic Republic of the Congo", "Algeria"}));
}

TEST_F(FdoStore, ARowByItsPlaceInAnOrder) {
  EXPECT_EQ(
      Names(Query({World(), "--select", "name_long", "--order-by", "pop", "--descending", "--row", "2"})),
      (std::vector<std::string>{"India"}));
}

TEST_F(FdoStore, ABoxAndAConditionNarrowWhatIsOrdered) {
  std::string const world = World();
  for (std::vector<std::string> const& condition :
       {std::vector<std::string>{}, std::vector<std::string>{"--where", "pop > 1e7"}}) {
    std::vector<std::string> arguments = {world, "--bbox", "-10,35,5,45", "--select", "name_long"};
    arguments.insert(arguments.end(), condition.begin(), condition.end());
    auto plain = Names(Query(arguments));
    arguments.insert(arguments.end(), {"--order-by", "name_long"});
    auto const ordered = Names(Query(arguments));
    EXPECT_GE(plain.size(), 3u);
    std::sort(plain.begin(), plain.end());
    EXPECT_EQ(ordered, plain);
  }
}

TEST_F(FdoStore, WhatCannotBeOrderedIsRefused) {
  std::string const world = World();
  struct {
    std::vector<std::string> arguments;
    int code;
    char const* message;
  } const cases[] = {
      {{"query", Data("world.gpkg"), "--order-by", "pop"}, 1, "does not order its rows"},
      {{"query", world, "--order-by", "geom"}, 1, "cannot be ordered by column \"geom\""},
      {{"query", world, "--order-by", "popp"}, 1, "did you mean \"pop\"?"},
      {{"query", world, "--descending"}, 2, "--order-by"},
      {{"query", world, "--order-by", "pop", "--id", "1"}, 2, "--order-by"},
  };
  for (auto const& [arguments, code, message] : cases) {
    auto const result = RunQuillon(arguments);
    EXPECT_EQ(result.code, code) << message;
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(result.err, HasSubstr(message));
  }
}

TEST_F(FdoStore, StatisticsAreThoseOfTheSource) {
  std::vector<std::string> const columns = {"name_long", "continent", "pop", "lifeExp"};
  auto const stats = [&](std::string const& source) {
    std::vector<std::string> arguments = {"stats", "--json", source};
    arguments.insert(arguments.end(), columns.begin(), columns.end());
    auto const result = RunQuillon(arguments);
    EXPECT_EQ(result.code, 0) << result.err;
    return json::parse(result.out)["columns"];
  };
  EXPECT_EQ(stats(World()), stats(Data("world.gpkg")));
}

// A look-up by such an identity would run without a condition and find just any row.
TEST_F(FdoStore, AnIdThatIsNoWholeNumberIsRefused) {
  CapturedDiagnostics const ignored;  // that no registry names the provider
  std::wstring const path = scratch_.File("names.sqlite");
  ASSERT_TRUE(DatabaseFdo::Create(path.c_str(), nullptr));
  {
    DatabaseFdo database;
    ASSERT_TRUE(database.Connect(path.c_str(), nullptr, nullptr, false, true));
    DatabaseDef def;
    SetTables(def, L"Default", {MakeTableDef(L"Default", L"plain", L"id:String n:Int32")});
    ASSERT_TRUE(database.SetSchema(def));
  }
  auto const result = RunQuillon({"query", Scratch("names.sqlite"), "--id", "1"});
  EXPECT_EQ(result.code, 1) << result.out;
  EXPECT_THAT(result.err, HasSubstr("has no whole numbers as ids"));
}

// SQLite stores any value in any column.
TEST_F(FdoStore, AValueThatDoesNotFitItsColumnIsToldAndTheRestDone) {
  std::string const store = World();
  {
    CapturedDiagnostics const ignored;
    DatabaseFdo database;
    ASSERT_TRUE(database.Connect(scratch_.File("world.sqlite").c_str(), nullptr, nullptr, false, true));
    FdoPtr<FdoIConnection> const connection = database.FdoConnection();
    FdoPtr<FdoISQLCommand> const change =
        static_cast<FdoISQLCommand*>(connection->CreateCommand(FdoCommandType_SQLCommand));
    change->SetSQLStatement(L"UPDATE world SET pop = 'many' WHERE name_long IN ('China', 'India')");
    EXPECT_EQ(change->ExecuteNonQuery(), 2);
  }
  auto const result = RunQuillon({"convert", store, Scratch("out.gpkg")});
  EXPECT_EQ(result.code, 4) << result.err;
  EXPECT_THAT(result.err,
              HasSubstr("The value \"many\" that is stored for the property \"pop\" does not fit"));
  EXPECT_THAT(result.err, HasSubstr("world.sqlite met an error; rows or values may be missing\n"));
  EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 2) << result.err;
  EXPECT_EQ(RunForJson({"query", Scratch("out.gpkg")}).size(), 177u);
  EXPECT_EQ(Query({Scratch("out.gpkg"), "--where", "name_long = 'China'"})[0]["pop"], json());

  auto const stats = RunQuillon({"stats", store, "name_long", "pop", "--json"});
  EXPECT_EQ(stats.code, 4);
  EXPECT_EQ(json::parse(stats.out)["columns"].size(), 1u);
  EXPECT_THAT(stats.err, HasSubstr("world.sqlite met an error; there are no statistics of pop\n"));
  EXPECT_EQ(RunQuillon({"stats", store, "pop"}).code, 1);
  auto const unasked = RunQuillon({"stats", store, "name_long", "pop", "--where", "lifeExp > 'x'"});
  EXPECT_EQ(unasked.code, 1);
  EXPECT_EQ(unasked.out, "");
  EXPECT_THAT(unasked.err, HasSubstr("failed for the reason above"));

  auto const refused = RunQuillon({"convert", store, Scratch("none.gpkg"), "--where", "pop > 'x'"});
  EXPECT_EQ(refused.code, 1);
  EXPECT_THAT(refused.err, HasSubstr("failed for the reason above"));
  EXPECT_FALSE(std::filesystem::exists(scratch_.Path() / "none.gpkg"));
}

TEST_F(FdoStore, AFileThatIsNoStoreIsOneMessage) {
  std::ofstream(Scratch("junk.sqlite")) << "this is no database, however long it may become in the end";
  auto const result = RunQuillon({"info", Scratch("junk.sqlite")});
  EXPECT_EQ(result.code, 3);
  EXPECT_THAT(result.err, testing::StartsWith("quillon: " + Scratch("junk.sqlite") + " cannot be opened"));
  EXPECT_THAT(result.err, HasSubstr("FDO connection failure"));
  EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
}

TEST_F(FdoStore, AProviderOpensAConnectionString) {
  std::string const string = "File=\"" + World() + "\";UseFdoMetadata=TRUE";
  auto const info = RunQuillon({"info", string, "--provider", "OSGeo.SQLite", "--json"});
  EXPECT_EQ(info.code, 0) << info.err;
  EXPECT_EQ(json::parse(info.out)["tables"][0]["rows"], 177);
  auto const missing = RunQuillon({"info", string, "--provider", "OSGeo.ArcSDE"});
  EXPECT_EQ(missing.code, 3);
  EXPECT_THAT(missing.err, HasSubstr("cannot be opened through the provider OSGeo.ArcSDE"));
  EXPECT_THAT(missing.err, HasSubstr("Failed to load provider: ArcSDEProvider"));
  EXPECT_THAT(RunQuillon({"info", string, "--provider", "Nobody"}).err,
              HasSubstr("through the provider Nobody: there is no provider of that name. quillon providers"));
  auto const path = RunQuillon({"info", Scratch("world.sqlite"), "--provider", "OSGeo.SQLite"});
  EXPECT_EQ(path.code, 3);
  EXPECT_THAT(path.err, HasSubstr("is a connection string, such as '" + string + "'\n"));
  auto const onto =
      RunQuillon({"convert", string, Scratch("world.sqlite"), "--provider", "OSGeo.SQLite", "--overwrite"});
  EXPECT_EQ(onto.code, 2);
  EXPECT_THAT(onto.err, HasSubstr("is the source itself"));
}

TEST_F(FdoStore, ProvidersSaysWhatIsThereAndWhatIsMissing) {
  auto const text = RunQuillon({"providers"});
  EXPECT_EQ(text.code, 0);
  EXPECT_EQ(text.err, "");
  EXPECT_THAT(text.out, HasSubstr("14 known"));
  EXPECT_THAT(text.out, testing::ContainsRegex("OSGeo.SQLite  *SQLiteProvider  *available"));
  EXPECT_THAT(text.out, testing::ContainsRegex("OSGeo.ArcSDE  *ArcSDEProvider  *missing  .*ArcSDEProvider"));
  auto const list = json::parse(RunQuillon({"providers", "--json"}).out);
  ASSERT_EQ(list["known"].size(), 14u);
  EXPECT_EQ(list["known"][2]["name"], "OSGeo.SQLite");
  EXPECT_EQ(list["known"][2]["available"], true);
  EXPECT_FALSE(list["known"][2].contains("problem"));
  EXPECT_EQ(list["known"][10]["library"], "ArcSDEProvider");
  EXPECT_EQ(list["known"][10]["available"], false);
  EXPECT_NE(list["known"][10]["problem"], "");
}

TEST_F(FdoStore, ProvidersListsTheRegistry) {
  std::ofstream(Scratch("providers.xml"))
      << "<FeatureProviderRegistry><FeatureProvider><Name>OSGeo.SDF.4.1</Name><DisplayName>SDF</DisplayName>"
         "<LibraryPath>/nowhere/SDFProvider</LibraryPath></FeatureProvider></FeatureProviderRegistry>";
  auto const result =
      RunShell("FDO_PROVIDERS_FOLDER=" + Quoted(scratch_.Path().string()) + " \"$QUILLON\" providers --json");
  ASSERT_EQ(result.code, 0) << result.err;
  auto const list = json::parse(result.out);
  ASSERT_EQ(list["registered"].size(), 1u);
  EXPECT_EQ(list["registered"][0]["name"], "OSGeo.SDF.4.1");
  EXPECT_EQ(list["registered"][0]["library"], "/nowhere/SDFProvider");
  EXPECT_EQ(list["known"][0]["registered_as"], "OSGeo.SDF.4.1");
  EXPECT_EQ(list["known"][0]["available"], false);
  EXPECT_THAT(list["known"][0]["problem"].get<std::string>(), HasSubstr("/nowhere/SDFProvider"));
}

}  // namespace
}  // namespace fdo::tool
