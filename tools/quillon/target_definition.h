// How a table looks in another format.
#ifndef TOOLS_QUILLON_TARGET_DEFINITION_H_
#define TOOLS_QUILLON_TARGET_DEFINITION_H_

#include <fdo/schema.h>

#include <string>
#include <vector>

namespace fdo::tool {

// Whether the driver's files have no place for geometries, which then travel as a text column.
bool KeepsGeometryAsText(std::wstring const& driver);

// The name of that column, by which readers know it again.
inline constexpr wchar_t kGeometryTextColumn[] = L"WKT";

// What of a source's table goes into the target: the positions of the columns that can be written, the
// geometry among them. The identity is not: rows get new ids.
// left: the names of the columns that cannot be, for their type is not supported.
std::vector<int> ColumnsToWrite(TableDef const& source, std::vector<int> const& selected,
                                std::vector<std::string>& left);

// The definition to create the target with.
// Gives: a schema of one table of that name.
void DefineTarget(TableDef const& source, std::vector<int> const& columns, std::wstring const& driver,
                  std::wstring const& tableName, DatabaseDef& target);

// The definition to make a new FDO store from: with an identity before the columns, which the store fills,
// and with names that FDO takes. Gives: a schema of one table.
void DefineStore(TableDef const& source, std::vector<int> const& columns, DatabaseDef& store);

// The columns of a target that are neither its identity nor its geometry.
std::vector<int> FieldsOf(TableDef const& target);

// For each of the source's columns its position in the target, as the target calls it by now, or -1.
// Fields keep their order; where their number differs they are known by name, case aside.
std::vector<int> MatchColumns(TableDef const& source, std::vector<int> const& columns,
                              TableDef const& target);

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_TARGET_DEFINITION_H_
