// Runs conversions between formats and looks at what arrives, and at what is left when they fail.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "tools/quillon/program_files.h"
#include "tools/quillon/program_run.h"

namespace fdo::tool {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using testing::HasSubstr;
using testing::Not;

class Convert : public ProgramFiles {
 protected:
  // The number of times that something happened to a column's values.
  static int Changes(json const& summary, std::string const& column, std::string const& change) {
    for (auto const& entry : summary["columns"]) {
      if (entry["name"] == column) return entry["changes"].value(change, 0);
    }
    ADD_FAILURE() << "no column " << column;
    return -1;
  }

  // Features of GeoJSON, each with properties and a geometry, as a file.
  std::string Features(std::string const& name, std::vector<json> const& features) const {
    json collection = {{"type", "FeatureCollection"}, {"features", json::array()}};
    for (auto feature : features) {
      feature["type"] = "Feature";
      collection["features"].push_back(feature);
    }
    return WriteFile(name, collection.dump());
  }
};

ProgramResult RunConvert(std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), "convert");
  return RunQuillon(arguments);
}

// The rows of a source without ids, each geometry under one name.
json Rows(std::string const& source) {
  auto const info = json::parse(RunQuillon({"info", "--json", source}).out);
  auto const& table = info["tables"][0];
  std::string const geometry = table["geometry"]["column"];
  std::string const id = table["columns"][0]["name"];
  bool idIsAField = false;
  for (std::size_t i = 1; i < table["columns"].size(); ++i) idIsAField |= table["columns"][i]["name"] == id;
  auto const result = RunQuillon({"query", source, "-f", "json"});
  EXPECT_EQ(result.code, 0) << result.err;
  auto rows = json::parse(result.out);
  for (auto& row : rows) {
    if (geometry != "geometry") {
      row["geometry"] = row[geometry];
      row.erase(geometry);
    }
    if (!idIsAField) row.erase(id);
  }
  return rows;
}

void Sort(json& rows, std::string const& key) {
  std::sort(rows.begin(), rows.end(), [&](json const& a, json const& b) { return a[key] < b[key]; });
}

// --- What arrives -------------------------------------------------------------------------------------

TEST_F(Convert, AChainOfFormatsKeepsEveryValue) {
  struct {
    char const *from, *to;
  } const steps[] = {{"", "a.gpkg"}, {"a.gpkg", "b.geojson"}, {"b.geojson", "c.fgb"}, {"c.fgb", "d.gpkg"}};
  std::string const source = Data("columbus.shp");
  for (auto const& [from, to] : steps) {
    auto const result = RunConvert({*from == '\0' ? source : Scratch(from), Scratch(to)});
    EXPECT_EQ(result.code, 0) << to << "\n" << result.err;
    EXPECT_EQ(result.err, "") << to;
    EXPECT_THAT(result.out, HasSubstr("49 rows written to "));
    auto original = Rows(source), copy = Rows(Scratch(to));
    Sort(original, "POLYID");
    Sort(copy, "POLYID");
    EXPECT_EQ(original, copy) << to;
  }
}

// What info says of the one table of a source, but for what names things.
json Described(std::string const& source) {
  auto table = json::parse(RunQuillon({"info", "--json", source}).out)["tables"][0];
  for (auto& column : table["columns"]) column.erase("role");
  table["geometry"].erase("column");
  table["geometry"].erase("types");
  return table;
}

MATCHER(NearEnough, "") {
  auto const [actual, expected] = arg;
  return std::abs(actual - expected) <= 1e-6 * std::abs(expected);
}

std::vector<double> TakeExtent(json& table) {
  std::vector<double> const extent = table["geometry"]["extent"];
  table["geometry"].erase("extent");
  return extent;
}

// Real files, through a store of FDO and back into the format that they came in.
TEST_F(Convert, AStoreOfFdoKeepsEveryValueOnTheWayThereAndBack) {
  struct {
    char const *source, *extension;
  } const cases[] = {{"columbus.shp", ".shp"}, {"world.gpkg", ".gpkg"}, {"cycle_hire.geojson", ".geojson"}};
  for (auto const& [source, extension] : cases) {
    // A table has the name of its file.
    std::string const stem = fs::path(source).stem().string();
    std::string const store = Scratch(stem + ".sqlite"), back = Scratch(stem + extension);
    for (auto const& [from, to] : {std::pair(Data(source), store), std::pair(store, back)}) {
      auto const result = RunConvert({from, to});
      EXPECT_EQ(result.code, 0) << to << "\n" << result.err;
      EXPECT_EQ(result.err, "") << to;
    }
    EXPECT_EQ(json::parse(RunQuillon({"info", "--json", store}).out)["driver"], "OSGeo.SQLite") << source;
    auto const rows = Rows(Data(source));
    EXPECT_EQ(Rows(store), rows) << source;
    EXPECT_EQ(Rows(back), rows) << source;
    auto original = Described(Data(source)), stored = Described(store), returned = Described(back);
    // Some files give their extent in fewer digits than their coordinates.
    auto const extent = TakeExtent(original);
    for (json* other : {&stored, &returned}) {
      EXPECT_THAT(TakeExtent(*other), testing::Pointwise(NearEnough(), extent)) << source;
    }
    EXPECT_EQ(returned, original) << source;
    EXPECT_EQ(stored["rows"], original["rows"]) << source;
    EXPECT_EQ(stored["geometry"], original["geometry"]) << source;
    for (std::size_t i = 2; i < original["columns"].size(); ++i) {
      EXPECT_EQ(stored["columns"][i], original["columns"][i]) << source;
    }
  }
}

TEST_F(Convert, AFormatMayBeTheNameOfAProvider) {
  auto const result =
      RunConvert({Data("columbus.shp"), Scratch("a.store"), "--format", "OSGeo.SQLite", "--json"});
  EXPECT_EQ(result.code, 0) << result.err;
  EXPECT_EQ(json::parse(result.out)["driver"], "OSGeo.SQLite");
  auto const rows = RunQuillon(
      {"query", "File=\"" + Scratch("a.store") + "\"", "--provider", "OSGeo.SQLite", "-f", "json"});
  EXPECT_EQ(rows.code, 0) << rows.err;
  EXPECT_EQ(json::parse(rows.out).size(), 49u);
  auto const missing = RunConvert({Data("columbus.shp"), Scratch("b.store"), "--format", "OSGeo.ArcSDE"});
  EXPECT_EQ(missing.code, 1);
  EXPECT_THAT(missing.err, HasSubstr("with driver OSGeo.ArcSDE: Failed to load provider: ArcSDEProvider"));
  EXPECT_THAT(Files(), testing::ElementsAre("a.store"));
}

TEST_F(Convert, GdalWritesAStoreWhenItIsNamed) {
  EXPECT_EQ(RunConvert({Data("columbus.shp"), Scratch("a.sqlite"), "--format", "SQLite"}).code, 0);
  EXPECT_EQ(RunConvert({Scratch("a.sqlite"), Scratch("b.shp")}).code, 0) << "and FDO reads it";
}

TEST_F(Convert, AGeoPackageIsReadAsOneWhateverItIsCalled) {
  EXPECT_EQ(RunConvert({Data("columbus.shp"), Scratch("a.sqlite"), "--format", "GPKG"}).code, 0);
  auto const result = RunConvert({Scratch("a.sqlite"), Scratch("b.db")});
  EXPECT_EQ(result.code, 0) << result.err;
  EXPECT_THAT(RunQuillon({"info", Scratch("a.sqlite")}).out, HasSubstr("a.sqlite: GPKG, 1 table"));
  EXPECT_THAT(RunQuillon({"info", Scratch("b.db")}).out, HasSubstr("  geometry: "));
}

TEST_F(Convert, NamesThatFdoKeepsForItselfAreChanged) {
  Features("a.b.geojson", {{{"properties", {{"x.y", 1}, {"x:y", "t"}, {"x_y", 2}}},
                            {"geometry", {{"type", "Point"}, {"coordinates", {1, 2}}}}}});
  auto const result = RunConvert({Scratch("a.b.geojson"), Scratch("a.sqlite"), "--json"});
  EXPECT_EQ(result.code, 0) << result.err;
  auto const rows = json::parse(RunQuillon({"query", Scratch("a.sqlite"), "--json"}).out);
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0]["x_y"], 1);
  EXPECT_EQ(rows[0]["x_y_2"], "t");
  EXPECT_EQ(rows[0]["x_y_3"], 2);
}

TEST_F(Convert, AFormatThatSortsItsRowsLosesNone) {
  auto const result = RunConvert({Data("cycle_hire.geojson"), Scratch("a.fgb"), "--json"});
  EXPECT_EQ(result.code, 0) << result.err;
  auto original = Rows(Data("cycle_hire.geojson")), copy = Rows(Scratch("a.fgb"));
  EXPECT_NE(original, copy) << "the index sorts them, or this test shows nothing";
  Sort(original, "id");
  Sort(copy, "id");
  EXPECT_EQ(original, copy);
}

TEST_F(Convert, CsvCarriesGeometryAsText) {
  EXPECT_EQ(RunConvert({Data("cycle_hire.geojson"), Scratch("a.csv")}).code, 0);
  EXPECT_THAT(Content("a.csv"), HasSubstr("POINT (-0.109970527 51.52916347)"));
  auto const result = RunConvert({Scratch("a.csv"), Scratch("b.gpkg"), "--json"});
  EXPECT_EQ(result.code, 0) << result.err;
  auto const original = Rows(Data("cycle_hire.geojson")), copy = Rows(Scratch("b.gpkg"));
  ASSERT_EQ(original.size(), copy.size());
  for (std::size_t i = 0; i < original.size(); ++i) {
    EXPECT_EQ(original[i]["geometry"], copy[i]["geometry"]);
    EXPECT_EQ(original[i]["name"], copy[i]["name"]);
  }
}

TEST_F(Convert, TheSummaryIsJson) {
  auto const result = RunConvert({Data("columbus.shp"), Scratch("a.gpkg"), "--json"});
  EXPECT_EQ(result.code, 0);
  auto const summary = json::parse(result.out);
  EXPECT_EQ(summary["driver"], "GPKG");
  EXPECT_EQ(summary["rows_read"], 49);
  EXPECT_EQ(summary["rows_written"], 49);
  EXPECT_EQ(summary["rows_refused"], 0);
  EXPECT_EQ(summary["checked"], true);
  EXPECT_EQ(summary["complete"], true);
}

TEST_F(Convert, NoProgressUnlessOnATerminal) {
  EXPECT_THAT(RunConvert({Data("world.gpkg"), Scratch("a.gpkg"), "--select", "name_long,geom"}).err,
              Not(HasSubstr("\x1b")));
}

// --- What a format cannot hold ------------------------------------------------------------------------

TEST_F(Convert, NullNumbersStayNullWhereTheFormatHasNulls) {
  for (char const* name : {"a.gpkg", "a.fgb", "a.shp"}) {
    auto const result = RunConvert({Data("world.gpkg"), Scratch(name), "--select", "pop,geom"});
    EXPECT_EQ(result.code, 0) << name << "\n" << result.err;
  }
}

TEST_F(Convert, NullNumbersThatBecomeZeroAreReported) {
  auto const result = RunConvert({Data("world.gpkg"), Scratch("a.tab"), "--json"});
  EXPECT_EQ(result.code, 4);
  auto const summary = json::parse(result.out);
  EXPECT_EQ(Changes(summary, "pop", "null_as_zero"), 10);
  EXPECT_EQ(Changes(summary, "gdpPercap", "null_as_zero"), 17);
  EXPECT_EQ(Changes(summary, "name_long", "null_as_zero"), 0);
  EXPECT_EQ(summary["complete"], false);
  EXPECT_THAT(result.err, HasSubstr("note: column \"pop\": 10 values null and written as 0"));
}

TEST_F(Convert, LongNamesAndTextsInAShapefileAreReported) {
  std::string const source =
      Features("in.geojson", {{{"properties", {{"a_very_long_name", std::string(300, 'x')}, {"short", "s"}}},
                               {"geometry", {{"type", "Point"}, {"coordinates", {1, 2}}}}},
                              {{"properties", {{"a_very_long_name", "fits"}, {"short", "t"}}},
                               {"geometry", {{"type", "Point"}, {"coordinates", {3, 4}}}}}});
  auto const result = RunConvert({source, Scratch("out.shp"), "--json"});
  EXPECT_EQ(result.code, 4) << result.err;
  auto const summary = json::parse(result.out);
  EXPECT_EQ(Changes(summary, "a_very_long_name", "text_cut"), 1);
  EXPECT_EQ(Changes(summary, "short", "text_cut"), 0);
  EXPECT_THAT(result.err, HasSubstr("column \"a_very_long_name\": named \"a_very_lon\" there"));
}

TEST_F(Convert, RoundedCoordinatesAreReported) {
  std::string const source = Features(
      "in.geojson",
      {{{"properties", {{"n", 1}}}, {"geometry", {{"type", "Point"}, {"coordinates", {1.23456789012, 2}}}}}});
  auto const result = RunConvert({source, Scratch("out.geojsonl"), "--json"});
  EXPECT_EQ(result.code, 4);
  auto const summary = json::parse(result.out);
  EXPECT_EQ(Changes(summary, "OGR_GEOMETRY", "coordinates_rounded"), 1);
}

TEST_F(Convert, NoCheckDoesNotLook) {
  auto const result = RunConvert({Data("world.gpkg"), Scratch("a.gpkg"), "--no-check", "--json"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(json::parse(result.out)["checked"], false);
}

// --- What stands under the target's name --------------------------------------------------------------

TEST_F(Convert, AnExistingTargetIsKeptWithoutOverwrite) {
  WriteFile("a.gpkg", "precious");
  auto const result = RunConvert({Data("columbus.shp"), Scratch("a.gpkg")});
  EXPECT_EQ(result.code, 1);
  EXPECT_THAT(result.err, HasSubstr("a.gpkg exists; give another name or --overwrite"));
  EXPECT_EQ(Content("a.gpkg"), "precious");
  EXPECT_THAT(Files(), testing::ElementsAre("a.gpkg"));
}

TEST_F(Convert, AFileOfTheFamilyIsKeptToo) {
  WriteFile("a.dbf", "precious");
  auto const result = RunConvert({Data("columbus.shp"), Scratch("a.shp")});
  EXPECT_EQ(result.code, 1);
  EXPECT_THAT(result.err, HasSubstr("a.dbf exists"));
  EXPECT_EQ(Content("a.dbf"), "precious");
  EXPECT_THAT(Files(), testing::ElementsAre("a.dbf"));
}

TEST_F(Convert, OverwriteReplacesTheWholeFamily) {
  EXPECT_EQ(RunConvert({Data("eire.shp"), Scratch("a.shp"), "--no-check"}).code, 0);
  WriteFile("a.qix", "an index of the old data");
  WriteFile("b.txt", "of somebody else");
  EXPECT_EQ(RunConvert({Data("columbus.shp"), Scratch("a.shp"), "--overwrite"}).code, 0);
  EXPECT_EQ(Rows(Scratch("a.shp")).size(), 49u);
  auto const files = Files();
  EXPECT_EQ(std::count(files.begin(), files.end(), "a.qix"), 0);
  EXPECT_EQ(std::count(files.begin(), files.end(), "b.txt"), 1);
  for (auto const& name : files) EXPECT_THAT(name, Not(testing::StartsWith(".quillon")));
}

TEST_F(Convert, AFailureLeavesTheOldTarget) {
  WriteFile("a.gpx", "precious");
  auto const result = RunConvert({Data("columbus.shp"), Scratch("a.gpx"), "--overwrite"});
  EXPECT_EQ(result.code, 1) << "GPX holds no polygons";
  EXPECT_EQ(Content("a.gpx"), "precious");
  EXPECT_THAT(Files(), testing::ElementsAre("a.gpx"));
}

TEST_F(Convert, WithoutGdalItIsTheOneThatIsMissed) {
  ASSERT_EQ(RunConvert({Data("columbus.shp"), Scratch("a.sqlite")}).code, 0);
  auto const result = RunShell("QUILLON_GDAL_LIBRARY=/missing \"$QUILLON\" convert " +
                               Quoted(Scratch("a.sqlite")) + " " + Quoted(Scratch("b.gpkg")));
  EXPECT_EQ(result.code, 1);
  EXPECT_THAT(result.err, HasSubstr("b.gpkg can only be written by GDAL, which is not installed; "));
  EXPECT_THAT(Files(), testing::ElementsAre("a.sqlite"));
}

TEST_F(Convert, AFolderIsNotOverwritten) {
  std::filesystem::create_directory(scratch_.Path() / "folder");
  WriteFile("folder/letter.txt", "of somebody else");
  auto const result = RunConvert({Data("columbus.shp"), Scratch("folder"), "--format", "CSV", "--overwrite"});
  EXPECT_EQ(result.code, 1);
  EXPECT_THAT(result.err, HasSubstr("folder is a folder, which is never replaced"));
  EXPECT_TRUE(std::filesystem::exists(scratch_.Path() / "folder/letter.txt"));
  EXPECT_THAT(Files(), testing::ElementsAre("folder"));
}

TEST_F(Convert, TargetsThatCannotBe) {
  struct {
    std::vector<std::string> arguments;
    int code;
    char const* message;
  } const cases[] = {
      {{Data("columbus.shp"), Scratch("a.unknown")}, 2, "does not tell a format"},
      {{Data("columbus.shp"), Scratch("a.gpkg"), "--format", "NoSuchDriver"}, 1, "NoSuchDriver"},
      {{Data("columbus.shp"), Scratch("missing/a.gpkg")}, 1, "missing does not exist; create it first"},
      {{Data("columbus.shp"), Data("columbus.shp"), "--overwrite"}, 2, "is the source itself"},
      {{Data("columbus.shp"), Scratch("a.gpkg"), "--where", "POLYID >"}, 2, "does not parse"},
      {{Data("columbus.shp"), Scratch("a.gpkg"), "--table", "x"}, 1, "has no table \"x\""},
  };
  for (auto const& [arguments, code, message] : cases) {
    auto const result = RunConvert(arguments);
    EXPECT_EQ(result.code, code) << result.err;
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(result.err, HasSubstr(message));
    EXPECT_TRUE(Files().empty()) << message;
  }
}

// Enough rows that a conversion takes its time.
std::string ManyFeatures(int count) {
  std::string lines;
  for (int i = 0; i < count; ++i) {
    lines += "{\"type\":\"Feature\",\"properties\":{\"n\":" + std::to_string(i) +
             ",\"t\":\"some text to carry\"},\"geometry\":{\"type\":\"Point\",\"coordinates\":[" +
             std::to_string(i % 180) + ".5,1]}}\n";
  }
  return lines;
}

TEST_F(Convert, AnInterruptedConversionLeavesNothing) {
  WriteFile("in.geojsonl", ManyFeatures(100000));
  std::string const in = Quoted(Scratch("in.geojsonl")), out = Quoted(Scratch("out.gpkg"));
  for (std::string const signal : {"TERM", "HUP"}) {
    auto const result =
        RunShell("cd " + Quoted(scratch_.Path().string()) + "; \"$QUILLON\" convert " + in + " " + out +
                 " & pid=$!; while ! ls -d .quillon-*/out.gpkg >/dev/null 2>&1; do sleep 0.01; done; "
                 "kill -" +
                 signal + " $pid; wait $pid");
    EXPECT_EQ(result.code, 1) << signal;
    EXPECT_THAT(result.err, HasSubstr("interrupted; ")) << signal;
    EXPECT_THAT(Files(), testing::ElementsAre("in.geojsonl")) << signal;
  }
}

// A limit on the size of files acts as a full disk does.
TEST_F(Convert, AFullDiskLeavesNothing) {
  WriteFile("in.geojsonl", ManyFeatures(20000));
  for (std::string const target :
       {"out.gpkg", "out.sqlite", "out.geojson", "out.shp", "out.fgb", "out.csv"}) {
    auto const result = RunShell("ulimit -f 200; exec \"$QUILLON\" convert " +
                                 Quoted(Scratch("in.geojsonl")) + " " + Quoted(Scratch(target)));
    EXPECT_EQ(result.code, 1) << target << ": " << result.err << result.out;
    EXPECT_NE(result.err, "") << target;
    EXPECT_THAT(Files(), testing::ElementsAre("in.geojsonl")) << target;
  }
}

}  // namespace
}  // namespace fdo::tool
