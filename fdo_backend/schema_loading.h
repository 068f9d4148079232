// The schema of a store, from an open connection.
#ifndef FDO_BACKEND_SCHEMA_LOADING_H_
#define FDO_BACKEND_SCHEMA_LOADING_H_

#include <Fdo.h>
#include <fdo/schema.h>

#include <memory>
#include <vector>

namespace fdo::internal {

// The spatial contexts, in the order in which the provider gives them; none where it gives no reader of them.
// Errors: throws FdoException*.
std::vector<CoordSys> ReadCoordSystems(FdoIConnection& connection);

// Every class of every schema, in order, as the tables of one definition, which has the name of the schema
// when there is exactly one.
// bySelecting: the class is what selecting from it gives, and not what is described. A class that cannot be
// selected from is a diagnostic line, and those behind it move up.
// Deliberate: the number of tables is that of the described classes, so that empty definitions are left at
// the end then (DatabaseFdoTest.AClassThatCannotBeSelectedLeavesAnEmptyTableAtTheEnd).
// Errors: null when the provider describes nothing or fails to. Other commands throw FdoException*.
std::unique_ptr<DatabaseDef> ReadSchema(FdoIConnection& connection, bool bySelecting);

}  // namespace fdo::internal

#endif  // FDO_BACKEND_SCHEMA_LOADING_H_
