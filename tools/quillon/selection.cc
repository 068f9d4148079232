#include "tools/quillon/selection.h"

#include <fmt/format.h>
#include <CLI/CLI.hpp>

#include <algorithm>
#include <charconv>
#include <cmath>

#include "tools/quillon/cell_text.h"
#include "tools/quillon/filter.h"
#include "tools/quillon/messages.h"
#include "tools/quillon/option_checks.h"
#include "tools/quillon/suggestion.h"
#include "tools/quillon/utf8.h"

namespace fdo::tool {

namespace {

FdoPtr<FdoFilter> BoxAndCondition(TableDef const& def, Box const& box, FdoFilter* condition) {
  auto const& [minX, minY, maxX, maxY] = box;
  std::wstring polygon;
  WideFromUtf8(fmt::format("GeomFromText('POLYGON (({0} {1}, {2} {1}, {2} {3}, {0} {3}, {0} {1}))')", minX,
                           minY, maxX, maxY),
               polygon);
  FdoPtr<FdoExpression> const geometry = FdoExpression::Parse(polygon.c_str());
  FdoPtr<FdoFilter> const meets =
      FdoSpatialCondition::Create(def.Geom().Name(), FdoSpatialOperations_EnvelopeIntersects, geometry);
  if (condition == nullptr) return meets;
  return FdoPtr<FdoFilter>(FdoFilter::Combine(meets.p, FdoBinaryLogicalOperations_And, condition));
}

int FindOrderingColumn(TableDef const& def, std::string const& name) {
  int const column = FindColumn(def, name);
  ColumnDef::DataType const type = def[column].Type();
  if (type == ColumnDef::kGeometry || type == ColumnDef::kBlob || type == ColumnDef::kClob ||
      type == ColumnDef::kUnset) {
    throw NoOrder(Utf8(def.Name()), name, TypeName(type));
  }
  return column;
}

}  // namespace

Box ParseBox(std::string const& text) {
  Box box{};
  char const* at = text.data();
  char const* const end = at + text.size();
  for (std::size_t i = 0; i < box.size(); ++i) {
    if (i > 0) {
      if (at == end || *at != ',') throw BadBox(text);
      ++at;
    }
    while (at != end && *at == ' ') ++at;
    auto const read = std::from_chars(at, end, box[i]);
    if (read.ec != std::errc() || !std::isfinite(box[i])) throw BadBox(text);
    at = read.ptr;
  }
  if (at != end || box[0] > box[2] || box[1] > box[3]) throw BadBox(text);
  return box;
}

int FindColumn(TableDef const& def, std::string const& name) {
  std::wstring wide;
  WideFromUtf8(name, wide);
  if (int const column = def.IndexOf(wide.c_str()); column >= 0) return column;
  std::vector<std::wstring> candidates;
  std::vector<std::string> names;
  for (int i = 0; i < def.ColumnCount(); ++i) {
    candidates.emplace_back(def[i].Name());
    names.push_back(Utf8(def[i].Name()));
  }
  throw NoSuchColumn(Utf8(def.Name()), name, Utf8(Suggest(wide, candidates)), names);
}

std::vector<int> FindColumns(TableDef const& def, std::vector<std::string> const& names) {
  std::vector<int> columns;
  for (std::string const& name : names) {
    int const column = FindColumn(def, name);
    if (std::find(columns.begin(), columns.end(), column) != columns.end()) throw ColumnTwice(name);
    columns.push_back(column);
  }
  if (names.empty()) {
    for (int i = 0; i < def.ColumnCount(); ++i) columns.push_back(i);
  }
  return columns;
}

void Selection::DefineTable(CLI::App& app) {
  app.add_option("--table", table, "The table, where the source has more than one")
      ->check(NotEmpty())
      ->type_name("NAME");
}

CLI::Option* Selection::DefineWhere(CLI::App& app) {
  return app
      .add_option("--where", where,
                  "Only rows that meet an FDO filter, such as \"pop > 1000 and name like 'A%'\"")
      ->check(NotEmpty())
      ->type_name("FILTER");
}

CLI::Option* Selection::DefineBox(CLI::App& app) {
  return app.add_option("--bbox", box, "Only rows whose geometry's box meets minx,miny,maxx,maxy")
      ->check(NotEmpty())
      ->type_name("BOX");
}

void Selection::DefineColumns(CLI::App& app) {
  app.add_option("--select", columns, "Only those columns, in that order")
      ->delimiter(',')
      ->type_name("A,B,...");
}

CLI::Option* Selection::DefineOrder(CLI::App& app) {
  CLI::Option* const order =
      app.add_option("--order-by", orderBy, "Order the rows by a column, where the source can")
          ->check(NotEmpty())
          ->type_name("COLUMN");
  app.add_flag("--descending", descending, "The greatest first")->needs(order);
  return order;
}

void BoundSelection::Restrict(Table& table) const {
  auto fetched = columns;
  std::sort(fetched.begin(), fetched.end());
  table.SetDesiredFields(fetched.data(), static_cast<int>(fetched.size()));
}

void BoundSelection::Query(Table& table) const {
  Restrict(table);
  FdoFilter* const condition = filter.p;
  if (!orderBy.empty()) {
    // Only this query takes an order; so the box goes into its condition.
    FdoPtr<FdoFilter> const all = box ? BoxAndCondition(*table.Def(), *box, condition) : filter;
    table.Query(all.p, orderBy.c_str(), ascending);
  } else if (box) {
    table.Query(box->data(), condition);
  } else if (condition != nullptr) {
    table.Query(condition, nullptr, ascending);
  } else {
    table.Query();
  }
}

BoundSelection Bind(Selection const& selection, TableDef const& def) {
  BoundSelection bound;
  bound.columns = FindColumns(def, selection.columns);
  if (!selection.where.empty()) {
    bound.filter = ParseFilter(selection.where);
    CheckColumns(bound.filter.p, def);
  }
  if (!selection.box.empty()) {
    if (!def.HasGeom()) throw NoGeometry(Utf8(def.Name()), "--bbox");
    bound.box = ParseBox(selection.box);
  }
  if (!selection.orderBy.empty()) {
    bound.orderBy = def[FindOrderingColumn(def, selection.orderBy)].Name();
    bound.ascending = !selection.descending;
  }
  return bound;
}

}  // namespace fdo::tool
