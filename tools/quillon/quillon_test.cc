// Runs the program on real files and looks at what it prints and how it ends.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "tools/quillon/json_run.h"
#include "tools/quillon/program_files.h"
#include "tools/quillon/program_run.h"

namespace fdo::tool {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using testing::HasSubstr;
using testing::StartsWith;

class Quillon : public ProgramFiles {
 protected:
  // The first bytes of a file of the test data.
  std::string Truncated(std::string const& name, std::size_t bytes) const {
    std::ifstream file(Data(name), std::ios::binary);
    std::string content(bytes, '\0');
    file.read(content.data(), static_cast<std::streamsize>(bytes));
    return WriteFile(name, content);
  }
};

void ExpectFailure(ProgramResult const& result, int code, std::string const& message) {
  EXPECT_EQ(result.code, code);
  EXPECT_EQ(result.out, "");
  EXPECT_THAT(result.err, HasSubstr(message));
}

// --- The command line ---------------------------------------------------------------------------

TEST_F(Quillon, SaysItsVersion) {
  auto const result = RunQuillon({"--version"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.out, "quillon " QUILLON_VERSION "\n");
  EXPECT_EQ(result.err, "");
}

TEST_F(Quillon, HelpOfEachCommandHasExamples) {
  for (std::string const command : {"info", "query", "stats", "convert"}) {
    auto const result = RunQuillon({command, "--help"});
    EXPECT_EQ(result.code, 0);
    EXPECT_THAT(result.out, HasSubstr("  quillon " + command + " "));
    EXPECT_EQ(result.err, "");
  }
}

TEST_F(Quillon, WrongUsageIsCode2AndSaysWhereToLook) {
  struct {
    std::vector<std::string> arguments;
    char const* message;
  } const cases[] = {
      {{}, "subcommand is required"},
      {{"qurey", Data("world.gpkg")}, "there is no command \"qurey\"; did you mean \"query\"?"},
      {{"query"}, "SOURCE is required"},
      {{"query", ""}, "SOURCE is empty"},
      {{"query", Data("world.gpkg"), "--where", ""}, "--where: it is empty\n"},
      {{"convert", Data("world.gpkg"), "x.gpkg", "--bbox", ""}, "--bbox: it is empty\n"},
      {{"query", Data("world.gpkg"), "--order-by", ""}, "--order-by: it is empty\n"},
      {{"info", Data("world.gpkg"), "--table", ""}, "--table: it is empty\n"},
      {{"info", Data("world.gpkg"), "--provider", ""}, "--provider: it is empty\n"},
      {{"query", Data("world.gpkg"), "--were", "pop > 1"}, "there is no option --were; what begins with a"},
      {{"eval", "-a"}, "there is no option -a; what begins with a minus and is none goes behind --\n"},
      {{"query", Data("world.gpkg"), "--limit", "-1"}, "--limit: \"-1\" is no whole number from 0 on\n"},
      {{"query", Data("world.gpkg"), "--limit", "x"}, "--limit: \"x\" is no whole number from 0 on\n"},
      {{"query", Data("world.gpkg"), "--row", "0"}, "--row: \"0\" is no whole number from 1 on\n"},
      {{"query", Data("world.gpkg"), "--id", "1.5"}, "--id: \"1.5\" is no whole number\n"},
      {{"eval", "pop", Data("world.gpkg"), "--limit", "1e3"}, "--limit: \"1e3\" is no whole number from 0"},
      {{"query", Data("world.gpkg"), "-f", "xml"}, "xml"},
      {{"query", Data("world.gpkg"), "--id", "1", "--where", "pop > 1"}, "--where"},
      {{"stats", Data("world.gpkg")}, "COLUMN is required"},
      {{"convert", Data("world.gpkg")}, "TARGET is required"},
  };
  for (auto const& [arguments, message] : cases) {
    auto const result = RunQuillon(arguments);
    ExpectFailure(result, 2, message);
    EXPECT_THAT(result.err, HasSubstr("--help")) << message;
  }
}

TEST_F(Quillon, AnArgumentThatIsNotUtf8IsRefused) {
  ExpectFailure(RunQuillon({"info", "Z\xfcrich.shp"}), 2, "argument 2 is not UTF-8");
}

// --- Sources that do not open ---------------------------------------------------------------------

TEST_F(Quillon, ASourceThatDoesNotOpenIsCode3) {
  fs::create_directory(Scratch("folder"));
  for (std::string const command : {"info", "query", "stats"}) {
    auto const run = [&](std::string const& source) {
      return command == "stats" ? RunQuillon({command, source, "all"}) : RunQuillon({command, source});
    };
    ExpectFailure(run(Scratch("nope.gpkg")), 3, "nope.gpkg does not exist; check the path");
    ExpectFailure(run(WriteFile("text.gpkg", "not a database\n")), 3,
                  "text.gpkg cannot be opened as vector data");
    ExpectFailure(run(WriteFile("empty.shp", "")), 3, "empty.shp cannot be opened as vector data");
    ExpectFailure(run(Scratch("folder")), 3, "cannot be opened as vector data");
    for (std::size_t bytes : {10u, 1000u, 5000u, 100000u}) {
      ExpectFailure(run(Truncated("world.gpkg", bytes)), 3, "world.gpkg cannot be opened as vector data");
    }
    ExpectFailure(run(Truncated("cycle_hire.geojson", 50000)), 3, "Check that the file is complete");
  }
  ExpectFailure(RunQuillon({"convert", Scratch("nope.gpkg"), Scratch("out.gpkg")}), 3,
                "nope.gpkg does not exist");
  EXPECT_FALSE(fs::exists(Scratch("out.gpkg")));
}

TEST_F(Quillon, APipeIsNoSource) {
  std::string const input = Quoted(Data("cycle_hire.geojson"));
  ExpectFailure(RunShell("cat " + input + " | \"$QUILLON\" info /dev/stdin"), 3, "/dev/stdin is a pipe; ");
  auto const standardInput = RunShell("cat " + input + " | \"$QUILLON\" query /vsistdin/ --limit 1");
  EXPECT_EQ(standardInput.code, 0) << standardInput.err;
  EXPECT_THAT(standardInput.out, HasSubstr("River Street"));
}

TEST_F(Quillon, AShapefileThatBreaksOffIsReadAsFarAsItGoesAndReported) {
  fs::copy(Data("columbus.dbf"), Scratch("columbus.dbf"));
  fs::copy(Data("columbus.shx"), Scratch("columbus.shx"));
  std::string const source = Truncated("columbus.shp", 20000);
  auto const result = RunQuillon({"query", source, "-f", "csv"});
  EXPECT_EQ(result.code, 4);
  EXPECT_THAT(result.out, HasSubstr("POLYGON"));
  EXPECT_THAT(result.err, HasSubstr("columbus.shp met an error"));

  auto const converted = RunQuillon({"convert", source, Scratch("out.gpkg")});
  EXPECT_EQ(converted.code, 4);
  EXPECT_THAT(converted.err, HasSubstr("columbus.shp met an error"));
}

// --- info -----------------------------------------------------------------------------------------

TEST_F(Quillon, InfoShowsATable) {
  auto const result =
      RunShell("cd " + Quoted(QUILLON_TEST_DATA) + " && \"$QUILLON\" info cycle_hire.geojson");
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out,
            "cycle_hire.geojson: GeoJSON, 1 table\n"
            "\n"
            "cycle_hire: 742 rows\n"
            "  geometry: points\n"
            "  extent: -0.236769936, 51.45475251, -0.002275, 51.542138\n"
            "  coordinate system: WGS 84\n"
            "\n"
            "column        type      role\n"
            "------------  --------  --------\n"
            "id            Int64     id\n"
            "OGR_GEOMETRY  Geometry  geometry\n"
            "id            Int32\n"
            "name          String\n"
            "area          String\n"
            "nbikes        Int32\n"
            "nempty        Int32\n");
}

TEST_F(Quillon, InfoAsJson) {
  auto const result = RunQuillon({"info", "--json", Data("world.gpkg")});
  EXPECT_EQ(result.code, 0);
  auto const info = json::parse(result.out);
  EXPECT_EQ(info["driver"], "GPKG");
  ASSERT_EQ(info["tables"].size(), 1u);
  auto const& table = info["tables"][0];
  EXPECT_EQ(table["name"], "world");
  EXPECT_EQ(table["rows"], 177);
  EXPECT_EQ(table["geometry"]["types"], json::array({"surfaces"}));
  EXPECT_EQ(table["geometry"]["coordinate_system"], "WGS 84");
  EXPECT_EQ(table["geometry"]["extent"].size(), 4u);
  EXPECT_EQ(table["columns"].size(), 12u);
  EXPECT_EQ(table["columns"][0], (json{{"name", "fid"}, {"type", "Int64"}, {"role", "id"}}));
}

TEST_F(Quillon, ASourceOfSeveralTablesWantsOneNamed) {
  fs::create_directory(Scratch("two"));
  for (char const* const name :
       {"columbus.shp", "columbus.shx", "columbus.dbf", "eire.shp", "eire.shx", "eire.dbf"}) {
    fs::copy(Data(name), Scratch(std::string("two/") + name));
  }
  ExpectFailure(RunQuillon({"query", Scratch("two")}), 2, "has 2 tables; choose one with --table:");
  ExpectFailure(RunQuillon({"query", Scratch("two"), "--table", "colombus"}), 1,
                "did you mean \"columbus\"?");
  EXPECT_EQ(Rows({Scratch("two"), "--table", "columbus", "--select", "POLYID"}).size(), 49u);
  auto const info = RunQuillon({"info", "--json", Scratch("two")});
  EXPECT_EQ(json::parse(info.out)["tables"].size(), 2u);
}

// --- query ----------------------------------------------------------------------------------------

TEST_F(Quillon, QueryPrintsATable) {
  auto const result =
      RunQuillon({"query", Data("world.gpkg"), "--bbox", "-10,35,5,45", "--select", "pop,name_long"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out,
            "     pop  name_long\n"
            "--------  ---------\n"
            "          France\n"
            "10401062  Portugal\n"
            "46480882  Spain\n"
            "39113313  Algeria\n"
            "34318082  Morocco\n"
            "5 rows\n");
}

TEST_F(Quillon, QueryPrintsEveryFormat) {
  auto const run = [](char const* format) {
    return RunQuillon({"query", Data("cycle_hire.geojson"), "--limit", "1", "--select", "OGR_GEOMETRY,name",
                       "-f", format})
        .out;
  };
  EXPECT_EQ(run("csv"), "OGR_GEOMETRY,name\r\nPOINT (-0.109970527 51.52916347),River Street\r\n");
  EXPECT_EQ(run("json"),
            "[\n{\"OGR_GEOMETRY\":{\"type\":\"Point\",\"coordinates\":[-0.109970527,51.52916347]},"
            "\"name\":\"River Street\"}\n]\n");
  std::string const feature = R"({"type":"Feature","properties":{"name":"River Street"},)"
                              R"("geometry":{"type":"Point","coordinates":[-0.109970527,51.52916347]}})";
  EXPECT_EQ(run("geojson"), "{\"type\":\"FeatureCollection\",\"features\":[\n" + feature + "\n]}\n");
  EXPECT_EQ(run("geojsonl"), feature + "\n");
}

TEST_F(Quillon, EveryRowOfTheDataIsJson) {
  struct {
    char const* name;
    std::size_t rows;
  } const sources[] = {
      {"world.gpkg", 177}, {"columbus.shp", 49}, {"cycle_hire.geojson", 742}, {"NY8_bna_utm18.gpkg", 281}};
  for (auto const& [name, rows] : sources) {
    EXPECT_EQ(Rows({Data(name)}).size(), rows) << name;
    auto const collection = RunQuillon({"query", Data(name), "-f", "geojson"});
    EXPECT_EQ(json::parse(collection.out)["features"].size(), rows) << name;
    std::istringstream lines(RunQuillon({"query", Data(name), "-f", "geojsonl"}).out);
    std::size_t count = 0;
    for (std::string line; std::getline(lines, line); ++count) EXPECT_TRUE(json::accept(line));
    EXPECT_EQ(count, rows);
  }
}

TEST_F(Quillon, GeoJsonIsReadBackAsItIs) {
  for (std::string const name : {"world.gpkg", "cycle_hire.geojson"}) {
    std::string const copy =
        WriteFile("copy.geojson", RunQuillon({"query", Data(name), "-f", "geojson"}).out);
    auto const original = Rows({Data(name)}), again = Rows({copy});
    ASSERT_EQ(original.size(), again.size());
    for (std::size_t i = 0; i < original.size(); ++i) {
      for (auto const& [key, value] : original[i].items()) {
        if (value.is_object()) {
          EXPECT_EQ(again[i]["OGR_GEOMETRY"], value) << name << " " << i;
        } else if (key != "fid" && key != "id") {
          EXPECT_EQ(again[i][key], value) << name << " " << i << " " << key;
        }
      }
    }
  }
}

TEST_F(Quillon, GeoJsonInAnotherCoordinateSystemIsNoted) {
  auto const result = RunQuillon({"query", Data("NY8_bna_utm18.gpkg"), "-f", "geojson", "--limit", "1"});
  EXPECT_EQ(result.code, 0);
  EXPECT_THAT(result.err, HasSubstr("note: coordinates are written as they are"));
  EXPECT_EQ(RunQuillon({"query", Data("world.gpkg"), "-f", "geojson", "--limit", "1"}).err, "");
}

TEST_F(Quillon, QueryById) {
  auto const rows = Rows({Data("world.gpkg"), "--id", "12", "--select", "fid,name_long"});
  EXPECT_EQ(rows, json::array({{{"fid", 12}, {"name_long", "Democratic Republic of the Congo"}}}));
  ExpectFailure(RunQuillon({"query", Data("world.gpkg"), "--id", "999"}), 1, "world has no row with id 999");
}

TEST_F(Quillon, QueryByThePlaceInTheResult) {
  std::string const world = Data("world.gpkg");
  EXPECT_EQ(Rows({world, "--row", "177", "--select", "fid"}), json::array({{{"fid", 177}}}));
  EXPECT_EQ(
      Rows({world, "--row", "2", "--where", "continent = 'Africa' and pop > 5e7", "--select", "name_long"}),
      json::array({{{"name_long", "Democratic Republic of the Congo"}}}));
  ExpectFailure(RunQuillon({"query", world, "--row", "178"}), 1,
                "there is no row 178: the result has 177 rows from world");
  EXPECT_EQ(RunQuillon({"query", world, "--row", "0"}).code, 2);
  EXPECT_EQ(RunQuillon({"query", world, "--row", "1", "--id", "1"}).code, 2);
  EXPECT_EQ(RunQuillon({"query", world, "--row", "3"}).err, "") << "two connections, and nothing to say";
}

// GDAL would mend the triggers of this file if it were opened for update.
TEST_F(Quillon, ReadingASourceLeavesItAsItWas) {
  auto const bytes = [](std::string const& file) {
    std::ifstream stream(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(stream), {});
  };
  std::string const original = Data("NY8_bna_utm18.gpkg"), copy = Scratch("copy.gpkg");
  std::filesystem::copy_file(original, copy);
  RunQuillon({"info", copy});
  RunQuillon({"query", copy, "--row", "2"});
  EXPECT_TRUE(bytes(copy) == bytes(original));
}

TEST_F(Quillon, LimitStopsEarly) {
  EXPECT_EQ(Rows({Data("world.gpkg"), "--limit", "3"}).size(), 3u);
  EXPECT_EQ(Rows({Data("world.gpkg"), "--limit", "0"}).size(), 0u);
  EXPECT_EQ(Rows({Data("world.gpkg"), "--limit", "1000"}).size(), 177u);
}

TEST_F(Quillon, AnUnknownColumnIsCode1WithASuggestion) {
  std::string const world = Data("world.gpkg");
  std::string const message = "world has no column \"popp\"; did you mean \"pop\"?";
  ExpectFailure(RunQuillon({"query", world, "--select", "name_long,popp"}), 1, message);
  ExpectFailure(RunQuillon({"query", world, "--where", "popp > 1"}), 1, message);
  ExpectFailure(RunQuillon({"query", world, "--where", "1 = 1 and (not popp null)"}), 1, message);
  ExpectFailure(RunQuillon({"query", world, "--where", "pop + abs(popp) > 3"}), 1, message);
  ExpectFailure(RunQuillon({"stats", world, "popp"}), 1, message);
  ExpectFailure(RunQuillon({"convert", world, Scratch("out.gpkg"), "--select", "popp"}), 1, message);
  ExpectFailure(RunQuillon({"query", world, "--select", "whatever"}), 1, "its columns are fid, geom, iso_a2");
  ExpectFailure(RunQuillon({"query", world, "--select", "pop,pop"}), 2, "column \"pop\" is selected twice");
  EXPECT_TRUE(Files().empty());
}

TEST_F(Quillon, AFilterThatDoesNotParseShowsThePlace) {
  auto const result = RunQuillon({"query", Data("world.gpkg"), "--where", "pop > > 1"});
  ExpectFailure(result, 2, "the filter does not parse: ");
  EXPECT_THAT(result.err, HasSubstr("\n  pop > > 1\n        ^\n"));
}

TEST_F(Quillon, OfALongFilterThePlaceAloneIsShown) {
  std::string filter;
  for (int i = 0; i < 30; ++i) filter += "name_long <> '\u00fc'\nAND\t";
  auto const result = RunQuillon({"query", Data("world.gpkg"), "--where", filter + ")" + filter});
  ExpectFailure(result, 2, "the filter does not parse: Character 631:");
  EXPECT_THAT(result.err,
              HasSubstr("\n  \u2026e_long <> '\u00fc' AND name_long <> '\u00fc' AND name_long <> '\u00fc' "
                        "AND )name_long <> '\u00fc' AND name_long <> '\u00fc' A\u2026\n  " +
                        std::string(61, ' ') + "^\n"));
}

TEST_F(Quillon, ABoxMustBeFourNumbers) {
  for (char const* const box : {"1,2,3", "1,2,3,4,5", "a,b,c,d", "3,0,1,1", "1,2,3,nan", "1 2 3 4", ""}) {
    ExpectFailure(RunQuillon({"query", Data("world.gpkg"), std::string("--bbox=") + box}), 2, "bbox");
  }
}

// --- Output that cannot be written ------------------------------------------------------------------

TEST_F(Quillon, AFullDiskIsCode1) {
  for (std::string const& command :
       {"query " + Quoted(Data("world.gpkg")) + " --limit 1",
        "query " + Quoted(Data("world.gpkg")) + " -f geojson", "info " + Quoted(Data("world.gpkg")),
        "stats " + Quoted(Data("world.gpkg")) + " pop", std::string("--help")}) {
    auto const result = RunShell("\"$QUILLON\" " + command + " >/dev/full");
    EXPECT_EQ(result.code, 1) << command;
    EXPECT_THAT(result.err, HasSubstr("cannot write to the standard output")) << command;
  }
}

TEST_F(Quillon, AClosedPipeIsCode1WithoutASignal) {
  std::string const code = Quoted(Scratch("code"));
  auto const result = RunShell("{ \"$QUILLON\" query " + Quoted(Data("world.gpkg")) + " -f csv; echo $? >" +
                               code + "; } | head -c 10 >/dev/null");
  std::ifstream file(Scratch("code"));
  int ended = -1;
  file >> ended;
  EXPECT_EQ(ended, 1);
  EXPECT_THAT(result.err, HasSubstr("the program that reads it has ended"));
}

// --- stats ----------------------------------------------------------------------------------------

TEST_F(Quillon, StatsOfColumns) {
  auto const result = RunQuillon({"stats", Data("world.gpkg"), "pop", "continent", "--json"});
  EXPECT_EQ(result.code, 0);
  auto const columns = json::parse(result.out)["columns"];
  auto const& pop = columns[0];
  EXPECT_EQ(pop["count"], 167);
  EXPECT_EQ(pop["nulls"], 10);
  EXPECT_EQ(pop["distinct"], 167);
  EXPECT_EQ(pop["min"], 56295);
  EXPECT_EQ(pop["max"], 1364270000);
  EXPECT_EQ(pop["median"], 10401062);
  // The same of the values themselves.
  double sum = 0, squares = 0;
  for (auto const& row : Rows({Data("world.gpkg"), "--select", "pop"})) {
    if (!row["pop"].is_null()) sum += row["pop"].get<double>();
  }
  double const mean = sum / 167;
  for (auto const& row : Rows({Data("world.gpkg"), "--select", "pop"})) {
    if (!row["pop"].is_null()) squares += std::pow(row["pop"].get<double>() - mean, 2);
  }
  EXPECT_NEAR(pop["mean"].get<double>(), mean, 1e-9 * mean);
  EXPECT_NEAR(pop["deviation"].get<double>(), std::sqrt(squares / 166), 1e-6 * mean);
  EXPECT_EQ(columns[1]["distinct"], 8);
  EXPECT_EQ(columns[1]["min"], "Africa");
  EXPECT_EQ(columns[1]["mean"], nullptr);
}

TEST_F(Quillon, StatsAsATable) {
  auto const result = RunQuillon({"stats", Data("cycle_hire.geojson"), "nbikes", "name"});
  EXPECT_EQ(result.code, 0);
  std::string const table = result.out;
  EXPECT_THAT(table, StartsWith("column  type    count  nulls  distinct"));
  EXPECT_THAT(table, HasSubstr("\nnbikes  Int32     742      0"));
  EXPECT_EQ(std::count(table.begin(), table.end(), '\n'), 4);
}

TEST_F(Quillon, StatsOfAllColumns) {
  auto const all = RunQuillon({"stats", Data("world.gpkg"), "all", "--json"});
  EXPECT_EQ(json::parse(all.out)["columns"].size(), 11u) << "all but the geometry";
  ExpectFailure(RunQuillon({"stats", Data("world.gpkg"), "geom"}), 1, "has no statistics");
}

// --- Names beyond ASCII -----------------------------------------------------------------------------

TEST_F(Quillon, PathsAndTextsBeyondAscii) {
  std::string const source = WriteFile(
      "S\xc3\xa3o \xe5\x8c\x97.geojson",
      "{\"type\":\"FeatureCollection\",\"features\":[{\"type\":\"Feature\",\"properties\":{\"n\xc3\xa4me\":"
      "\"Z\xc3\xbcrich \xe5\x8c\x97\"},\"geometry\":null}]}");
  auto const rows = Rows({source, "--select", "n\xc3\xa4me"});
  EXPECT_EQ(rows, json::array({{{"n\xc3\xa4me", "Z\xc3\xbcrich \xe5\x8c\x97"}}}));
  EXPECT_THAT(RunQuillon({"info", source}).out, HasSubstr("n\xc3\xa4me"));
  EXPECT_EQ(RunQuillon({"convert", source, Scratch("\xc3\xa9.gpkg")}).code, 0);
  EXPECT_EQ(Rows({Scratch("\xc3\xa9.gpkg"), "--select", "n\xc3\xa4me"}), rows);
}

}  // namespace
}  // namespace fdo::tool
