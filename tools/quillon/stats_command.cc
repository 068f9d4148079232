#include <CLI/CLI.hpp>

#include <memory>

#include "tools/quillon/cell_text.h"
#include "tools/quillon/column_statistics.h"
#include "tools/quillon/command.h"
#include "tools/quillon/json_text.h"
#include "tools/quillon/messages.h"
#include "tools/quillon/open_source.h"
#include "tools/quillon/selection.h"
#include "tools/quillon/text_table.h"
#include "tools/quillon/utf8.h"

namespace fdo::tool {

char const kStatsDetails[] =
    "Count, nulls, minimum, maximum and distinct values of each column; mean, standard deviation (of the\n"
    "sample) and median where it holds numbers. Null values count as nulls only.\n"
    "\n"
    "  quillon stats world.gpkg pop lifeExp\n"
    "  quillon stats world.gpkg all --where \"continent = 'Asia'\" --json";

namespace {

struct StatsOptions {
  SourceOptions source;
  std::vector<std::string> columns;
  Selection selection;
  bool json = false;
};

bool HasStatistics(ColumnDef const& column) {
  return column.Type() != ColumnDef::kGeometry && column.Type() != ColumnDef::kUnset;
}

// "all" is every column that has statistics, unless a column is called that.
std::vector<int> ChooseColumns(TableDef const& def, std::vector<std::string> const& names) {
  std::vector<int> columns;
  if (names.size() == 1 && names[0] == "all" && def.IndexOf(L"all") < 0) {
    for (int i = 0; i < def.ColumnCount(); ++i) {
      if (HasStatistics(def[i])) columns.push_back(i);
    }
    return columns;
  }
  columns = FindColumns(def, names);
  for (int column : columns) {
    if (HasStatistics(def[column])) continue;
    throw NoStatistics(Utf8(def.Name()), Utf8(def[column].Name()), TypeName(def[column].Type()));
  }
  return columns;
}

constexpr char kNotApplicable[] = "-";

std::string TextOf(Value const& value, ColumnDef::DataType type) {
  std::string text;
  return AppendCellText(text, value, type) ? text : kNotApplicable;
}

std::string TextOf(std::optional<double> number) {
  return number ? TextOf(Value(*number), ColumnDef::kDouble) : kNotApplicable;
}

// One row of the table for each statistic, for both ways of printing them.
struct Printed {
  std::string name, type;
  ColumnStatistics statistics;
  ColumnDef::DataType dataType;
};

std::string AsTable(std::vector<Printed> const& columns) {
  TextTable table;
  table.AddColumn("column", Align::kLeft);
  table.AddColumn("type", Align::kLeft);
  for (char const* name : {"count", "nulls", "distinct", "min", "max", "mean", "deviation", "median"}) {
    table.AddColumn(name, Align::kRight);
  }
  std::vector<std::vector<std::string>> lines;
  for (auto const& [name, type, statistics, dataType] : columns) {
    lines.push_back({name, type, std::to_string(statistics.count), std::to_string(statistics.nulls),
                     std::to_string(statistics.distinct), TextOf(statistics.min, dataType),
                     TextOf(statistics.max, dataType), TextOf(statistics.mean), TextOf(statistics.deviation),
                     TextOf(statistics.median, dataType)});
    table.Measure(lines.back());
  }
  std::string text = table.Header();
  for (auto const& line : lines) text += table.Line(line);
  return text;
}

std::string JsonOf(Value const& value, ColumnDef::DataType type) {
  std::string json;
  AppendCellJson(json, value, type);
  return json;
}

std::string AsJson(Source const& source, TableDef const& def, std::vector<Printed> const& columns) {
  JsonDocument json;
  json.BeginObject();
  json.Text("source", std::string_view(source.name));
  json.Text("table", std::wstring_view(def.Name()));
  json.BeginArray("columns");
  for (auto const& [name, type, statistics, dataType] : columns) {
    auto const number = [&](char const* key, std::optional<double> value) {
      if (value) {
        json.Number(key, *value);
      } else {
        json.Null(key);
      }
    };
    json.BeginObject();
    json.Text("name", std::string_view(name));
    json.Text("type", std::string_view(type));
    json.Integer("count", statistics.count);
    json.Integer("nulls", statistics.nulls);
    json.Integer("distinct", statistics.distinct);
    json.Raw("min", JsonOf(statistics.min, dataType));
    json.Raw("max", JsonOf(statistics.max, dataType));
    number("mean", statistics.mean);
    number("deviation", statistics.deviation);
    json.Raw("median", JsonOf(statistics.median, dataType));
    json.EndObject();
  }
  json.EndArray();
  json.EndObject();
  return std::move(json).Finish();
}

// Whether it is a column's values that cannot be read, and not what is asked of all columns.
bool RowsCanBeFound(Table& table, FdoFilter* filter, Session& session) {
  constexpr bool kAllowScan = true;
  bool const counted = table.GetRowCount(filter, kAllowScan) >= 0;
  return session.TakeDiagnostics().empty() && counted;
}

ExitCode Stats(StatsOptions const& options, Session& session) {
  Source source = OpenSource(options.source, session);
  Table& table = FindTable(source, options.selection.table);
  TableDef const& def = *table.Def();
  BoundSelection const bound = Bind(options.selection, def);

  std::vector<Printed> printed;
  std::vector<std::string> unread;
  for (int column : ChooseColumns(def, options.columns)) {
    Printed line = {Utf8(def[column].Name()), TypeName(def[column].Type()),
                    ComputeStatistics(table, column, bound.filter.p), def[column].Type()};
    if (!session.ShowDiagnostics()) {
      printed.push_back(std::move(line));
    } else if (!RowsCanBeFound(table, bound.filter.p, session)) {
      throw QueryFailed(source.name);
    } else {
      unread.push_back(std::move(line.name));
    }
  }
  if (printed.empty()) throw QueryFailed(source.name);
  session.output.Write(options.json ? AsJson(source, def, printed) : AsTable(printed));
  session.output.Flush();
  if (!unread.empty()) throw ColumnsUnread(source.name, unread);
  return ExitCode::kDone;
}

}  // namespace

Action DefineStats(CLI::App& app) {
  auto const options = std::make_shared<StatsOptions>();
  options->source.Define(app, "What to read");
  app.add_option("COLUMN", options->columns, "The columns, or all")->required();
  options->selection.DefineTable(app);
  options->selection.DefineWhere(app);
  app.add_flag("--json", options->json, "Print one JSON document");
  return [options](Session& session) { return Stats(*options, session); };
}

}  // namespace fdo::tool
