// What the cells of a column hold, by the column's type.
#ifndef EXPR_COLUMN_KINDS_H_
#define EXPR_COLUMN_KINDS_H_

#include <fdo/schema.h>
#include <fdo/value.h>

namespace fdo::internal {

struct ColumnKind {
  ColumnDef::DataType type;
  char const* name;
  Value::Kind kind;  // null aside
  char const* cells;
};

inline constexpr ColumnKind kColumnKinds[] = {
    {ColumnDef::kGeometry, "Geometry", Value::kBlob, "bytes: an FGF stream"},
    {ColumnDef::kBoolean, "Boolean", Value::kBool, "flag"},
    {ColumnDef::kByte, "Byte", Value::kInt, "integer"},
    {ColumnDef::kDateTime, "DateTime", Value::kString,
     "text: `2024-03-01`, `14:30:05.500` or `2024-03-01T14:30:05.500`"},
    {ColumnDef::kDecimal, "Decimal", Value::kDouble, "double"},
    {ColumnDef::kDouble, "Double", Value::kDouble, "double"},
    {ColumnDef::kInt16, "Int16", Value::kInt, "integer"},
    {ColumnDef::kInt32, "Int32", Value::kInt, "integer"},
    {ColumnDef::kInt64, "Int64", Value::kInt, "integer"},
    {ColumnDef::kSingle, "Single", Value::kDouble, "double"},
    {ColumnDef::kString, "String", Value::kString, "text"},
    {ColumnDef::kBlob, "BLOB", Value::kBlob, "bytes"},
    {ColumnDef::kClob, "CLOB", Value::kBlob, "bytes"},
};

}  // namespace fdo::internal

#endif  // EXPR_COLUMN_KINDS_H_
