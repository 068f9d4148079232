// How a column is visited within SQLite's machine: through an aggregate function, whose steps the rows are.
// The way out of the machine and back, which every row of a reader takes, is up to a quarter of a scan.
#ifndef SDK_PROVIDERS_SQLITE_COLUMN_VISITS_H_
#define SDK_PROVIDERS_SQLITE_COLUMN_VISITS_H_

#include "sdk/extensions/column_visits.h"
#include "sdk/providers/sqlite/feature_reader.h"
#include "sdk/providers/sqlite/statement.h"

namespace fdo_sqlite {

// The function: fdo_visit(value), of which nothing is the result.
inline constexpr char kVisitFunction[] = "fdo_visit";

// Runs the statement, whose only column is fdo_visit of what the row takes, a value of that type.
// Errors: as the statement's; what the visitor throws.
void VisitValues(Statement& statement, LentRow& row, FdoInt32 type, fdo_sdk::ColumnVisitor& visitor);

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_COLUMN_VISITS_H_
