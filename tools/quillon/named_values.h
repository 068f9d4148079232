// Values that the command line gives names to: --set name=value.
#ifndef TOOLS_QUILLON_NAMED_VALUES_H_
#define TOOLS_QUILLON_NAMED_VALUES_H_

#include <fdo/row.h>
#include <fdo/schema.h>

#include <Fdo.h>

#include <string>
#include <string_view>
#include <vector>

namespace fdo::tool {

// What the text stands for: a whole number of 64 bits, a number, true, false or null, in any case of the
// letters, or else the text itself. Single quotes around it make it a text, a doubled one inside is one.
Value ReadValue(std::string_view utf8);

// A row of named values.
class NamedValues {
 public:
  // Each is "name=value".
  // Errors: throws Failure for one without a name, and for a name that is there twice.
  explicit NamedValues(std::vector<std::string> const& assignments);
  NamedValues(NamedValues const&) = delete;
  NamedValues& operator=(NamedValues const&) = delete;

  TableDef const& Def() const { return def_; }
  fdo::Row const& Row() const { return row_; }

  // Errors: throws Failure for the first identifier that has no value.
  void Check(FdoFilter* filter, FdoExpression* expression) const;

  // The named values and, behind them, the identifiers that have none, each once, in the order in which they
  // come. These have no type, so that what is compared with them is taken as it is written.
  TableDef DefWithNamesOf(FdoFilter* filter, FdoExpression* expression) const;

 private:
  TableDef def_;
  fdo::Row row_;
};

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_NAMED_VALUES_H_
