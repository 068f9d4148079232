// Writes filters and expressions as the text that the parser reads as the same tree.
#ifndef SDK_RUNTIME_TEXT_WRITER_H_
#define SDK_RUNTIME_TEXT_WRITER_H_

#include <string>

class FdoExpression;
class FdoFilter;
class FdoIdentifierCollection;

namespace fdo_sdk {

// The left side of operators is walked without recursion, so a chain of any length is written; other
// nesting is bounded as in the parser.
// Errors: throws FdoExpressionException* for what has no text: a node that lacks a part, a number that is
// not finite, a date out of the calendar, bytes that are no geometry, nesting that is too deep.
std::wstring WriteExpression(FdoExpression& expression);

// Identifiers named as a computed identifier in `computed`, which may be null, are written as its
// expression. Errors: as above, as FdoFilterException*.
std::wstring WriteFilter(FdoFilter& filter, FdoIdentifierCollection* computed);

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_TEXT_WRITER_H_
