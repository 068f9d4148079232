// Filters and expressions in FDO's text form, checked before they are used.
#ifndef TOOLS_QUILLON_FILTER_H_
#define TOOLS_QUILLON_FILTER_H_

#include <fdo/schema.h>

#include <Fdo.h>

#include <optional>
#include <string>
#include <string_view>

namespace fdo::tool {

// Errors: throws Failure with the text and a caret under the place of the error.
FdoPtr<FdoFilter> ParseFilter(std::string const& text);

// Errors: null, and error becomes the parser's message.
FdoPtr<FdoFilter> TryParseFilter(std::string const& text, std::string& error);
FdoPtr<FdoExpression> TryParseExpression(std::string const& text, std::string& error);

// Errors: throws Failure for the first column that the table does not have.
void CheckColumns(FdoFilter* filter, TableDef const& def);
void CheckColumns(FdoExpression* expression, TableDef const& def);

// The place that a parser's message names, counted from 0.
std::optional<int> PositionInMessage(std::string_view message);

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_FILTER_H_
