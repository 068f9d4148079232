#include <CLI/CLI.hpp>

#include <cstdint>
#include <limits>
#include <memory>
#include <optional>

#include "tools/quillon/cell_text.h"
#include "tools/quillon/command.h"
#include "tools/quillon/filter.h"
#include "tools/quillon/formula.h"
#include "tools/quillon/json_text.h"
#include "tools/quillon/messages.h"
#include "tools/quillon/named_values.h"
#include "tools/quillon/open_source.h"
#include "tools/quillon/option_checks.h"
#include "tools/quillon/program_listing.h"
#include "tools/quillon/row_writer.h"
#include "tools/quillon/selection.h"
#include "tools/quillon/utf8.h"

namespace fdo::tool {

char const kEvalDetails[] =
    "EXPRESSION is an FDO expression or filter. Without a SOURCE it is computed once, over the values that\n"
    "--set gives: whole numbers, numbers, true, false, null, and text, which '...' makes of anything. With\n"
    "one it is computed for each row, and printed behind the row's id, or number when it has none. Null is\n"
    "unknown, as in SQL: what is calculated of it is null, and an unknown filter is false. A text beside a\n"
    "number is the number that it is, or else unknown.\n"
    "\n"
    "--explain prints the program instead. Names then need no value; one without has no type either, and\n"
    "what is compared with it stays as it is written.\n"
    "\n"
    "Functions:\n"
    "  numbers  abs acos asin atan atan2 ceil cos exp floor ln log mod pow power random remainder round "
    "sign\n"
    "           sin sqrt tan trunc\n"
    "  types    todatetime todouble tofloat toint32 toint64 tostring\n"
    "  others   concat CurrentDate if lookup, and of points: m x y z\n"
    "\n"
    "  quillon eval \"round(pop / area, 2)\" --set pop=83000000 --set area=357000.0\n"
    "  quillon eval \"pop / area_km2\" world.gpkg --where \"continent = 'Asia'\" --limit 5\n"
    "  quillon eval \"a = 1 and b like 'x%'\" --explain\n"
    "  quillon eval -- \"-a\" ...  for what begins with a minus";

namespace {

struct EvalOptions {
  std::string text;
  SourceOptions source;
  Selection selection;
  std::vector<std::string> assignments;
  std::optional<std::int64_t> limit;
  bool isFilter = false;
  bool explain = false;
  bool json = false;
};

void WriteProgram(ExprEval const& eval, Formula const& formula, TableDef const& def, bool asJson,
                  Output& output) {
  std::wstring const listing = eval.Listing(&def);
  if (!asJson) {
    output.Write(Utf8(listing));
    return;
  }
  JsonDocument json;
  json.BeginObject();
  json.Text("kind", std::string_view(formula.filter != nullptr ? "filter" : "expression"));
  AddProgram(json, listing);
  json.EndObject();
  output.Write(std::move(json).Finish());
}

void WriteValue(Value const& value, ColumnDef::DataType typeOfBytes, bool asJson, Output& output) {
  std::string text;
  if (asJson) {
    JsonDocument json;
    json.BeginObject();
    AppendCellJson(text, value, typeOfBytes);
    json.Raw("value", text);
    json.EndObject();
    output.Write(std::move(json).Finish());
    return;
  }
  if (!AppendCellText(text, value, typeOfBytes)) text = "null";
  output.Write(text + '\n');
}

// Errors: throws Failure for a formula that has no value, FdoException* for a broken geometry.
Value Compute(ExprEval& eval, Formula const& formula, Row const& row) {
  Value value;
  if (!eval.Eval(&row, &value)) throw CannotCompute(formula.text, {});
  return value;
}

ExitCode EvalOnce(EvalOptions const& options, Formula const& formula, Session& session) {
  NamedValues const values(options.assignments);
  if (options.explain) {
    TableDef const def = values.DefWithNamesOf(formula.filter.p, formula.expression.p);
    WriteProgram(Compile(formula, def), formula, def, options.json, session.output);
    return ExitCode::kDone;
  }
  values.Check(formula.filter.p, formula.expression.p);
  ExprEval eval = Compile(formula, values.Def());
  Value const value = Compute(eval, formula, values.Row());
  WriteValue(value, TypeOfBytes(eval, values.Def()), options.json, session.output);
  return ExitCode::kDone;
}

// An id, or else the number of the row, and the value. Its type is the first row's: numbers are aligned.
TableDef ResultDef(TableDef const& def, Value const* first, ColumnDef::DataType typeOfBytes) {
  ColumnDef columns[2];
  if (def.HasID()) {
    columns[0].Initialize(L"id", def.ID().Type(), 0, Value(), nullptr);
  } else {
    columns[0].Initialize(L"row", ColumnDef::kInt64, 0, Value(), nullptr);
  }
  int const kind = first == nullptr ? int{Value::kNull} : first->Type();
  ColumnDef::DataType const type = kind == Value::kInt      ? ColumnDef::kInt64
                                   : kind == Value::kDouble ? ColumnDef::kDouble
                                                            : typeOfBytes;
  columns[1].Initialize(L"value", type, 0, Value(), nullptr);
  TableDef result;
  constexpr int kNone = -1;
  result.Initialize(L"", def.Name(), columns, 2, kNone, kNone, 0);
  return result;
}

ExitCode EvalRows(EvalOptions const& options, Formula const& formula, Session& session) {
  if (!options.assignments.empty()) throw Usage("--set is for expressions without a SOURCE");
  Source source = OpenSource(options.source, session);
  Table& table = FindTable(source, options.selection.table);
  TableDef const& def = *table.Def();
  CheckColumns(formula.expression.p, def);
  CheckColumns(formula.filter.p, def);
  ExprEval eval = Compile(formula, def);
  if (options.explain) {
    WriteProgram(eval, formula, def, options.json, session.output);
    return ExitCode::kDone;
  }
  BoundSelection bound = Bind(options.selection, def);
  bound.columns = eval.Columns();
  if (def.HasID()) bound.columns.push_back(def.IndexOfID());

  std::int64_t const limit = options.limit.value_or(std::numeric_limits<std::int64_t>::max());
  Row const* row = nullptr;
  if (limit > 0) {
    bound.Query(table);
    row = table.Next();
    if (row == nullptr && session.ShowDiagnostics()) throw QueryFailed(source.name);
  }
  Value value = row == nullptr ? Value() : Compute(eval, formula, *row);
  TableDef const resultDef = ResultDef(def, row == nullptr ? nullptr : &value, TypeOfBytes(eval, def));
  Row result(&resultDef);
  auto const writer = options.json ? MakeJsonWriter(session.output, resultDef, {0, 1})
                                   : MakeTableWriter(session.output, resultDef, {0, 1});
  writer->Begin();
  for (std::int64_t number = 1; row != nullptr; ++number) {
    result[0] = def.HasID() ? (*row)[def.IndexOfID()] : Value(static_cast<long long>(number));
    result[1] = std::move(value);
    writer->Write(result);
    row = number == limit ? nullptr : table.Next();
    if (row != nullptr) value = Compute(eval, formula, *row);
  }
  writer->End();
  session.output.Flush();
  FinishReading(source, table, session);
  return ExitCode::kDone;
}

ExitCode Eval(EvalOptions const& options, Session& session) {
  Formula const formula = ParseFormula(options.text, options.isFilter);
  return options.source.source.empty() ? EvalOnce(options, formula, session)
                                       : EvalRows(options, formula, session);
}

}  // namespace

Action DefineEval(CLI::App& app) {
  auto const options = std::make_shared<EvalOptions>();
  app.add_option("EXPRESSION", options->text, "What to compute")->required();
  options->source.Define(app, "Whose rows to compute it for");
  CLI::Option* const source = app.get_option("SOURCE")->required(false);
  app.get_option("--provider")->needs(source);
  app.add_option("--set", options->assignments, "Give an identifier a value; may be repeated")
      ->allow_extra_args(false)
      ->type_name("NAME=VALUE");
  options->selection.DefineTable(app);
  CLI::Option* const table = app.get_option("--table")->needs(source);
  app.add_option("TABLE", options->selection.table, "The same as --table")->excludes(table);
  options->selection.DefineWhere(app)->needs(source);
  options->selection.DefineBox(app)->needs(source);
  app.add_option("--limit", options->limit, "At most that many rows")
      ->needs(source)
      ->check(WholeNumber(0))
      ->type_name("N");
  app.add_flag("--filter", options->isFilter,
               "Take EXPRESSION for a filter, even where it may be an expression");
  app.add_flag("--explain", options->explain, "Print the program that computes it instead");
  app.add_flag("--json", options->json, "Print JSON");
  return [options](Session& session) { return Eval(*options, session); };
}

}  // namespace fdo::tool
