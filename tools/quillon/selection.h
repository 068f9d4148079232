// Which rows and columns a command is to work on, as options say it.
#ifndef TOOLS_QUILLON_SELECTION_H_
#define TOOLS_QUILLON_SELECTION_H_

#include <fdo/table.h>

#include <Fdo.h>

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace fdo::tool {

// minX, minY, maxX, maxY
using Box = std::array<double, 4>;

// Errors: throws Failure unless the text is four finite numbers with commas between, minima first.
Box ParseBox(std::string const& text);

// The position of a column.
// Errors: throws Failure with a suggestion.
int FindColumn(TableDef const& def, std::string const& name);

// The positions of those columns, in that order; all columns when the list is empty.
// Errors: throws Failure for a name that is unknown or there twice.
std::vector<int> FindColumns(TableDef const& def, std::vector<std::string> const& names);

// The options that narrow what is read; empty where they were not given.
struct Selection {
  std::string table;
  std::string where;
  std::string box;
  std::vector<std::string> columns;
  std::string orderBy;
  bool descending = false;

  // Each declares its option.
  // Requires: the selection stays where it is until the command line has been read
  void DefineTable(CLI::App& app);
  CLI::Option* DefineWhere(CLI::App& app);
  CLI::Option* DefineBox(CLI::App& app);
  void DefineColumns(CLI::App& app);
  CLI::Option* DefineOrder(CLI::App& app);
};

// A selection held against a table's definition.
struct BoundSelection {
  std::vector<int> columns;
  FdoPtr<FdoFilter> filter;  // null without a condition
  std::optional<Box> box;
  std::wstring orderBy;  // empty: as they come
  bool ascending = true;

  // Lets later queries of the table fetch the columns only.
  void Restrict(Table& table) const;
  // Restricts the table and starts the query.
  void Query(Table& table) const;
};

// Errors: throws Failure for whatever the table does not have.
BoundSelection Bind(Selection const& selection, TableDef const& def);

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_SELECTION_H_
