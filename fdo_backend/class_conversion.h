// One class of a schema, from FDO's definition to this library's.
#ifndef FDO_BACKEND_CLASS_CONVERSION_H_
#define FDO_BACKEND_CLASS_CONVERSION_H_

#include <Fdo.h>
#include <fdo/schema.h>

namespace fdo::internal {

// table becomes the class, as SchemaToDbDef says.
void ClassToTableDef(wchar_t const* schemaName, TableDef& table, FdoClassDefinition& definition,
                     CoordSys const* coordSys, int coordSysCount);

// The column of a data property, with its default value. (A table's copy of a column goes without.)
void DataPropertyToColumnDef(ColumnDef& column, FdoDataPropertyDefinition& property);

}  // namespace fdo::internal

#endif  // FDO_BACKEND_CLASS_CONVERSION_H_
