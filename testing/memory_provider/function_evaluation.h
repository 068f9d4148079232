// Computes the functions and the arithmetic of expressions for one row.
#ifndef TESTING_MEMORY_PROVIDER_FUNCTION_EVALUATION_H_
#define TESTING_MEMORY_PROVIDER_FUNCTION_EVALUATION_H_

#include <string>
#include <vector>

#include "Fdo.h"

namespace memory_provider {

typedef std::vector<FdoPtr<FdoLiteralValue>> Arguments;  // null pointers for nulls

// Whole numbers give whole numbers, or a double where those end; the division cuts. Texts are joined by
// adding them. Null for a null operand, a division by 0 and what is no number. Gives: one reference. Errors:
// FdoCommandException* for other kinds of values.
FdoLiteralValue* Calculate(FdoLiteralValue* left, FdoBinaryOperations operation, FdoLiteralValue* right);

// By name, whatever the case. Gives: one reference; null for null.
// Errors: FdoCommandException* for a function that is not known here.
FdoLiteralValue* CallFunction(std::wstring const& name, Arguments const& arguments);

}  // namespace memory_provider

#endif  // TESTING_MEMORY_PROVIDER_FUNCTION_EVALUATION_H_
