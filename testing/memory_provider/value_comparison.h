// Compares and matches the values of rows.
#ifndef TESTING_MEMORY_PROVIDER_VALUE_COMPARISON_H_
#define TESTING_MEMORY_PROVIDER_VALUE_COMPARISON_H_

#include <string>

#include "Fdo.h"

namespace memory_provider {

// Numbers and Booleans compare as numbers, exactly, whatever their types; a text and a number as numbers, a
// text and a date as dates; dates by their texts; bytes as bytes. Times stand before dates. Either may be
// null. Errors: Undefined for nulls, for texts that are not what they are compared as, and for what cannot be
//   compared.
FdoCompareType CompareLiterals(FdoLiteralValue* left, FdoLiteralValue* right);

// Booleans are the whole numbers 0 and 1.
bool IsWholeNumber(FdoLiteralValue* value);
// Require: a number or Boolean. Of a real the part before the point.
FdoInt64 WholeOf(FdoLiteralValue* value);
double RealOf(FdoLiteralValue* value);

// 2024-03-01T14:30:05.500, or its date or time alone; three decimals or more, and none for whole seconds.
std::wstring DateText(FdoDateTime const& value);

// The date-time that a text of that form is; a blank may stand for the T, and seconds may be left out.
// Gives: one reference; null when it is none.
FdoDataValue* DateInText(std::wstring const& text);

// The wildcards of LIKE: % any run, _ one character, [abc] and [a-f] one of, [^abc] none of.
bool MatchesPattern(wchar_t const* text, wchar_t const* pattern);

}  // namespace memory_provider

#endif  // TESTING_MEMORY_PROVIDER_VALUE_COMPARISON_H_
