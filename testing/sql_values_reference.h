// How values meet in a SQL store (ExprOptions::sqlValues), written a second time for tests: with the 64
// digits of a long double, which hold every integer and every double.
#ifndef TESTING_SQL_VALUES_REFERENCE_H_
#define TESTING_SQL_VALUES_REFERENCE_H_

#include <fdo/schema.h>
#include <fdo/value.h>

#include <limits>

namespace fdo {

static_assert(std::numeric_limits<long double>::digits >= 64);

enum ReferenceOrder { kReferenceLess, kReferenceEqual, kReferenceGreater, kReferenceUnknown };

ReferenceOrder CompareByReference(Value const& left, Value const& right);

// left op right; op is '+', '-', '*' or '/'.
Value CalculateByReference(char op, Value const& left, Value const& right);

// What a text literal is beside a column of that type.
Value LiteralByReference(Value const& text, ColumnDef::DataType type);

}  // namespace fdo

#endif  // TESTING_SQL_VALUES_REFERENCE_H_
