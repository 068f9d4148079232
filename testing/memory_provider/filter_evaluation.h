// Decides for each row whether a filter holds.
#ifndef TESTING_MEMORY_PROVIDER_FILTER_EVALUATION_H_
#define TESTING_MEMORY_PROVIDER_FILTER_EVALUATION_H_

#include "Fdo.h"
#include "testing/memory_provider/store.h"

namespace memory_provider {

// Whether the row is selected; without a filter every row is. A comparison with a null does not hold, and
// neither does its negation.
// Errors: FdoCommandException* for an unknown property or function, a parameter without a value, and for
// sub-selects, which this provider does not evaluate.
bool Holds(FdoFilter* filter, Table const& table, Row const& row, FdoParameterValueCollection* parameters);

// The value of an expression for the row; a null pointer for null. Gives: one reference.
FdoLiteralValue* Evaluate(FdoExpression* expression, Table const& table, Row const& row,
                          FdoParameterValueCollection* parameters);

}  // namespace memory_provider

#endif  // TESTING_MEMORY_PROVIDER_FILTER_EVALUATION_H_
