// Definitions from readable text, for tests: MakeTableDef(L"main", L"town", L"id:Int64 name:String
// shape:Geometry").
#ifndef TESTING_SCHEMA_BUILDER_H_
#define TESTING_SCHEMA_BUILDER_H_

#include <fdo/schema.h>

#include <initializer_list>
#include <string_view>

namespace fdo {

// Columns are separated by blanks, each a name and, behind a colon, its type as ColumnDef::DataType
// names it without the k. A geometry column takes every kind of geometry. The first column whose name
// is "id" holds the identity, the first geometry column the geometry.
// Errors: a type that is not known throws std::invalid_argument.
TableDef MakeTableDef(std::wstring_view schema, std::wstring_view name, std::wstring_view columns);

// def becomes a schema of copies of those tables.
void SetTables(DatabaseDef& def, wchar_t const* name, std::initializer_list<TableDef> tables);

}  // namespace fdo

#endif  // TESTING_SCHEMA_BUILDER_H_
