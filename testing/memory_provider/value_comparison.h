// Compares and matches the values of rows.
#ifndef TESTING_MEMORY_PROVIDER_VALUE_COMPARISON_H_
#define TESTING_MEMORY_PROVIDER_VALUE_COMPARISON_H_

#include "Fdo.h"

namespace memory_provider {

// Numbers compare as numbers whatever their types, dates part by part. Either may be null.
// Errors: Undefined for nulls and for what cannot be compared.
FdoCompareType CompareLiterals(FdoLiteralValue* left, FdoLiteralValue* right);

// The wildcards of LIKE: % any run, _ one character, [abc] and [a-f] one of, [^abc] none of.
bool MatchesPattern(wchar_t const* text, wchar_t const* pattern);

}  // namespace memory_provider

#endif  // TESTING_MEMORY_PROVIDER_VALUE_COMPARISON_H_
