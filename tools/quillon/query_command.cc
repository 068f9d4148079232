#include <fdo/scroller.h>

#include <CLI/CLI.hpp>

#include <cstdint>
#include <memory>
#include <optional>
#include <set>

#include "tools/quillon/command.h"
#include "tools/quillon/coordinate_system_name.h"
#include "tools/quillon/messages.h"
#include "tools/quillon/open_source.h"
#include "tools/quillon/option_checks.h"
#include "tools/quillon/query_plan.h"
#include "tools/quillon/row_writer.h"
#include "tools/quillon/selection.h"
#include "tools/quillon/utf8.h"

namespace fdo::tool {

char const kQueryDetails[] =
    "Filters are FDO's: column op value with = <> > >= < <= and LIKE, IN (...), column NULL, spatial\n"
    "conditions, joined by AND, OR, NOT; text stands in 'single quotes', odd names in \"double quotes\".\n"
    "\n"
    "Formats:\n"
    "  table     aligned columns to read; long cells end with \xe2\x80\xa6\n"
    "  csv       RFC 4180, geometry as WKT; a null is empty, an empty text is \"\"\n"
    "  json      an array of objects, geometry as GeoJSON\n"
    "  geojson   a FeatureCollection; coordinates stay in the source's coordinate system\n"
    "  geojsonl  one feature per line, without a record separator\n"
    "GeoJSON keeps Z and drops M; arcs become line segments that stay within a ten-thousandth of the arc's\n"
    "radius. Bytes are hexadecimal digits.\n"
    "\n"
    "  quillon query world.gpkg --where \"continent = 'Africa' and pop > 5e7\" --select name_long,pop\n"
    "  quillon query world.gpkg --bbox -10,35,5,45 -f geojson > iberia.geojson\n"
    "  quillon query world.gpkg --id 12 --json\n"
    "  quillon query world.gpkg --where \"mod(pop, 2) = 1\" --explain\n"
    "  quillon query parcels.sqlite --order-by area --descending --limit 10\n"
    "  quillon query \"File=parcels.sqlite;UseFdoMetadata=TRUE\" --provider OSGeo.SQLite";

namespace {

struct QueryOptions {
  SourceOptions source;
  Selection selection;
  std::optional<std::int64_t> id;
  std::optional<std::int64_t> row;
  std::optional<std::int64_t> limit;
  std::string format = "table";
  bool json = false;
  bool explain = false;
};

RowFormat const& FindFormat(std::string const& name) {
  for (RowFormat const& format : kRowFormats) {
    if (format.name == name) return format;
  }
  throw Usage("unknown format " + name);  // the command line lets no other name through
}

std::set<std::string> FormatNames() {
  std::set<std::string> names;
  for (RowFormat const& format : kRowFormats) names.insert(format.name);
  return names;
}

// GeoJSON is meant to be longitude and latitude on WGS 84, and its readers take it as that.
void NoteOtherSystem(RowFormat const& format, BoundSelection const& bound, TableDef const& def,
                     Console& console) {
  if (std::string_view(format.name).rfind("geojson", 0) != 0 || !def.HasGeom()) return;
  bool const writesGeometry =
      std::find(bound.columns.begin(), bound.columns.end(), def.IndexOfGeom()) != bound.columns.end();
  std::wstring const system = CoordinateSystemName(def);
  if (!writesGeometry || system.empty() || system.rfind(L"WGS 84", 0) == 0) return;
  console.Note(CoordinatesAsTheyAre(Utf8(system)));
}

bool HasIntegerId(TableDef const& def) {
  if (!def.HasID()) return false;
  ColumnDef::DataType const type = def.ID().Type();
  return type == ColumnDef::kInt16 || type == ColumnDef::kInt32 || type == ColumnDef::kInt64;
}

// The rows of the query by position.
// Errors: throws Failure for a table whose rows cannot be found again by their ids.
std::unique_ptr<Scroller> Scroll(Source& source, Table& table, BoundSelection const& bound,
                                 Session& session) {
  if (!HasIntegerId(*table.Def())) throw NoIntegerId(Utf8(table.Def()->Name()));
  BoundSelection ids = bound;
  ids.columns = {table.Def()->IndexOfID()};
  ids.Query(table);
  if (session.ShowDiagnostics()) throw QueryFailed(source.name);
  auto scroller = std::make_unique<Scroller>(source.database, &table);
  session.ForgiveDiagnostics();  // of its second connection
  return scroller;
}

Row const* FirstRow(Table& table, QueryOptions const& options, BoundSelection const& bound,
                    Scroller* scroller) {
  if (scroller != nullptr) {
    std::uint64_t const count = scroller->Count();
    auto const position = static_cast<std::uint64_t>(*options.row);
    if (position > count) throw NoSuchPosition(Utf8(table.Def()->Name()), position, count);
    return scroller->At(position - 1);
  }
  if (!options.id) {
    bound.Query(table);
    return table.Next();
  }
  bound.Restrict(table);
  // With any other identity such a look-up runs without a condition.
  if (!HasIntegerId(*table.Def())) throw NoIntegerId(Utf8(table.Def()->Name()));
  Row const* const row = table.Query(static_cast<__int64>(*options.id));
  if (row == nullptr) throw NoSuchRow(Utf8(table.Def()->Name()), *options.id);
  return row;
}

ExitCode Query(QueryOptions const& options, Session& session) {
  Source source = OpenSource(options.source, session);
  Table& table = FindTable(source, options.selection.table);
  BoundSelection const bound = Bind(options.selection, *table.Def());
  if (!bound.orderBy.empty() && !OrdersRows(source)) throw CannotOrder(source.name);
  if (options.explain) {
    WriteQueryPlan(source, table, bound, options.json, session.output);
    return ExitCode::kDone;
  }
  RowFormat const& format = FindFormat(options.json ? "json" : options.format);
  NoteOtherSystem(format, bound, *table.Def(), session.console);

  auto const writer = format.make(session.output, *table.Def(), bound.columns);
  std::int64_t const limit = options.limit.value_or(std::numeric_limits<std::int64_t>::max());
  std::int64_t rows = 0;
  std::unique_ptr<Scroller> const scroller = options.row ? Scroll(source, table, bound, session) : nullptr;
  Row const* row = limit > 0 ? FirstRow(table, options, bound, scroller.get()) : nullptr;
  if (row == nullptr && session.ShowDiagnostics()) throw QueryFailed(source.name);
  writer->Begin();
  while (row != nullptr) {
    writer->Write(*row);
    ++rows;
    row = options.id || options.row || rows == limit ? nullptr : table.Next();
  }
  writer->End();
  session.output.Flush();
  FinishReading(source, table, session);
  return ExitCode::kDone;
}

}  // namespace

Action DefineQuery(CLI::App& app) {
  auto const options = std::make_shared<QueryOptions>();
  options->source.Define(app, "What to read");
  options->selection.DefineTable(app);
  options->selection.DefineColumns(app);
  CLI::Option* const where = options->selection.DefineWhere(app);
  CLI::Option* const box = options->selection.DefineBox(app);
  CLI::Option* const order = options->selection.DefineOrder(app);
  CLI::Option* const id = app.add_option("--id", options->id, "Only the row with that id")
                              ->excludes(where)
                              ->excludes(box)
                              ->excludes(order)
                              ->check(WholeNumber(kAnyWholeNumber))
                              ->type_name("ID");
  app.add_option("--row", options->row, "Only the row at that place of the result, counted from 1")
      ->excludes(id)
      ->check(WholeNumber(1))
      ->type_name("N");
  app.add_option("--limit", options->limit, "At most that many rows")->check(WholeNumber(0))->type_name("N");
  app.add_flag(
         "--explain", options->explain,
         "Print who finds the rows that meet the filter instead, and the program where it is computed here")
      ->excludes(id);
  CLI::Option* const format =
      app.add_option("-f,--format", options->format, "How to print the rows (default: table)")
          ->check(CLI::IsMember(FormatNames()))
          ->type_name("FORMAT");
  app.add_flag("--json", options->json, "The same as -f json")->excludes(format);
  return [options](Session& session) { return Query(*options, session); };
}

}  // namespace fdo::tool
