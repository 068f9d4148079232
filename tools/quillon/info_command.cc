#include <fmt/format.h>
#include <CLI/CLI.hpp>

#include <memory>
#include <optional>

#include "tools/quillon/cell_text.h"
#include "tools/quillon/command.h"
#include "tools/quillon/coordinate_system_name.h"
#include "tools/quillon/json_text.h"
#include "tools/quillon/messages.h"
#include "tools/quillon/open_source.h"
#include "tools/quillon/selection.h"
#include "tools/quillon/text_table.h"
#include "tools/quillon/utf8.h"

namespace fdo::tool {

char const kInfoDetails[] =
    "  quillon info world.gpkg\n"
    "  quillon info --json roads.shp";

namespace {

struct InfoOptions {
  SourceOptions source;
  Selection selection;
  bool json = false;
};

struct GeometryTypeName {
  int bit;
  char const* name;
};

constexpr GeometryTypeName kGeometryTypeNames[] = {
    {1, "points"}, {2, "curves"}, {4, "surfaces"}, {8, "solids"}};

std::vector<std::string> GeometryTypes(int mask) {
  std::vector<std::string> names;
  for (auto const& [bit, name] : kGeometryTypeNames) {
    if ((mask & bit) != 0) names.emplace_back(name);
  }
  return names;
}

// Nothing when the table has no geometries.
std::optional<Box> Extent(Table& table) {
  Box box{};
  if (!table.Def()->HasGeom()) return std::nullopt;
  table.GetExtent(box.data(), nullptr);
  if (!(box[0] <= box[2] && box[1] <= box[3])) return std::nullopt;
  return box;
}

std::string Role(TableDef const& def, int column) {
  if (column == def.IndexOfID()) return "id";
  if (column == def.IndexOfGeom()) return "geometry";
  return "";
}

std::int64_t CountRows(Table& table) {
  constexpr bool kAllowScan = true;
  return table.GetRowCount(nullptr, kAllowScan);
}

std::string Describe(Table& table) {
  TableDef const& def = *table.Def();
  std::string text =
      fmt::format("\n{}: {} rows\n", OneLine(WithoutControls(Utf8(def.Name()))), CountRows(table));
  if (def.HasGeom()) {
    std::string types;
    for (auto const& type : GeometryTypes(def.Geom().GeomTypes()))
      types += (types.empty() ? "" : ", ") + type;
    text += fmt::format("  geometry: {}\n", types.empty() ? "of unknown type" : types);
    auto const extent = Extent(table);
    text += extent ? fmt::format("  extent: {}, {}, {}, {}\n", (*extent)[0], (*extent)[1], (*extent)[2],
                                 (*extent)[3])
                   : "  extent: none\n";
    std::string const system = OneLine(WithoutControls(Utf8(CoordinateSystemName(def))));
    text += fmt::format("  coordinate system: {}\n", system.empty() ? "unknown" : system);
  }
  TextTable columns;
  columns.AddColumn("column", Align::kLeft);
  columns.AddColumn("type", Align::kLeft);
  columns.AddColumn("role", Align::kLeft);
  std::vector<std::vector<std::string>> lines;
  for (int i = 0; i < def.ColumnCount(); ++i) {
    lines.push_back({Utf8(def[i].Name()), TypeName(def[i].Type()), Role(def, i)});
    columns.Measure(lines.back());
  }
  text += '\n' + columns.Header();
  for (auto const& line : lines) text += columns.Line(line);
  return text;
}

void Describe(Table& table, JsonDocument& json) {
  TableDef const& def = *table.Def();
  json.BeginObject();
  json.Text("name", std::wstring_view(def.Name()));
  json.Integer("rows", CountRows(table));
  if (def.HasGeom()) {
    json.BeginObject("geometry");
    json.Text("column", std::wstring_view(def.Geom().Name()));
    json.BeginArray("types");
    for (auto const& type : GeometryTypes(def.Geom().GeomTypes())) json.Text({}, std::string_view(type));
    json.EndArray();
    if (auto const extent = Extent(table)) {
      json.BeginArray("extent");
      for (double ordinate : *extent) json.Number({}, ordinate);
      json.EndArray();
    } else {
      json.Null("extent");
    }
    std::wstring const system = CoordinateSystemName(def);
    if (system.empty()) {
      json.Null("coordinate_system");
    } else {
      json.Text("coordinate_system", std::wstring_view(system));
    }
    json.EndObject();
  }
  json.BeginArray("columns");
  for (int i = 0; i < def.ColumnCount(); ++i) {
    json.BeginObject();
    json.Text("name", std::wstring_view(def[i].Name()));
    json.Text("type", std::string_view(TypeName(def[i].Type())));
    if (auto const role = Role(def, i); !role.empty()) json.Text("role", std::string_view(role));
    json.EndObject();
  }
  json.EndArray();
  json.EndObject();
}

ExitCode Info(InfoOptions const& options, Session& session) {
  Source source = OpenSource(options.source, session);
  Database& database = *source.database;
  std::vector<Table*> tables;
  if (options.selection.table.empty()) {
    for (int i = 0; i < database.Count(); ++i) tables.push_back(&database[i]);
  } else {
    tables.push_back(&FindTable(source, options.selection.table));
  }

  std::string const driver = Utf8(database.ProviderName());
  if (options.json) {
    JsonDocument json;
    json.BeginObject();
    json.Text("source", std::string_view(source.name));
    json.Text("driver", std::string_view(driver));
    json.BeginArray("tables");
    for (Table* table : tables) Describe(*table, json);
    json.EndArray();
    json.EndObject();
    session.output.Write(std::move(json).Finish());
  } else {
    int const count = database.Count();
    session.output.Write(
        fmt::format("{}: {}, {} {}\n", source.name, driver, count, count == 1 ? "table" : "tables"));
    for (Table* table : tables) session.output.Write(Describe(*table));
  }
  return session.ShowDiagnostics() ? ExitCode::kPartlyDone : ExitCode::kDone;
}

}  // namespace

Action DefineInfo(CLI::App& app) {
  auto const options = std::make_shared<InfoOptions>();
  options->source.Define(app, "What to look into");
  options->selection.DefineTable(app);
  app.add_flag("--json", options->json, "Print one JSON document");
  return [options](Session& session) { return Info(*options, session); };
}

}  // namespace fdo::tool
