// One cell of a row as text or as JSON, by the kind of its value.
#ifndef TOOLS_QUILLON_CELL_TEXT_H_
#define TOOLS_QUILLON_CELL_TEXT_H_

#include <fdo/schema.h>
#include <fdo/value.h>

#include <cstdint>
#include <string>

namespace fdo::tool {

inline bool IsText(Value const& cell) { return (cell.Type() & ~Value::kBorrowed) == Value::kString; }
inline bool IsBytes(Value const& cell) { return (cell.Type() & ~Value::kBorrowed) == Value::kBlob; }
// Null, or not fetched at all.
inline bool IsNothing(Value const& cell) { return cell.IsNull() || !cell.IsValid(); }

inline std::int64_t Integer(Value const& cell) { return static_cast<__int64>(cell); }
inline double Number(Value const& cell) { return static_cast<double>(cell); }
inline wchar_t const* Text(Value const& cell) { return static_cast<wchar_t const*>(cell); }

// Appends flags as true and false, numbers in the shortest digits that read back the same, geometry as
// well-known text and other bytes as hexadecimal digits.
// Errors: false, with nothing appended, for a null and for a geometry that has no text form.
bool AppendCellText(std::string& out, Value const& cell, ColumnDef::DataType type);

// The same as one JSON value: null where there is nothing, numbers that are not finite included;
// geometry is a GeoJSON object, bytes are hexadecimal text.
void AppendCellJson(std::string& out, Value const& cell, ColumnDef::DataType type);

// Whether columns of that type hold numbers, which statistics can average and tables align right.
bool IsNumeric(ColumnDef::DataType type);

// The name of a type as it is shown: "Int32", "Geometry"; "Unsupported" for one that nothing handles.
char const* TypeName(ColumnDef::DataType type);

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_CELL_TEXT_H_
