// Reads the text of filters and expressions.
#ifndef SDK_RUNTIME_TEXT_PARSER_H_
#define SDK_RUNTIME_TEXT_PARSER_H_

#include <string_view>

class FdoExpression;
class FdoFilter;
class FdoValueExpression;

namespace fdo_sdk {

// Give: one reference to the tree. Nesting and height are bounded, see text_limits.h.
// Errors: throw FdoFilterException* or FdoExpressionException*; the message begins with the place.
FdoFilter* ParseFilter(std::wstring_view text);
FdoExpression* ParseExpression(std::wstring_view text);
// A literal, a parameter or a sub-select only. Errors: FdoExpressionException*.
FdoValueExpression* ParseValue(std::wstring_view text);

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_TEXT_PARSER_H_
