// What the cells of a column hold, by the column's type: the compiler, the conditions of GDAL's layers, the
// page and the tests look here.
#ifndef EXPR_COLUMN_KINDS_H_
#define EXPR_COLUMN_KINDS_H_

#include <fdo/schema.h>
#include <fdo/value.h>

namespace fdo::internal {

// What the values of an expression are to those that they are compared with.
enum class ComparedAs { kNumber, kText, kDate, kBytes, kGeometry };

struct ColumnKind {
  ColumnDef::DataType type;
  char const* name;
  Value::Kind kind;  // of the cells, null aside
  ComparedAs comparedAs;
  char const* cells;
};

inline constexpr ColumnKind kColumnKinds[] = {
    {ColumnDef::kGeometry, "Geometry", Value::kBlob, ComparedAs::kGeometry, "bytes: an FGF stream"},
    {ColumnDef::kBoolean, "Boolean", Value::kBool, ComparedAs::kNumber, "flag"},
    {ColumnDef::kByte, "Byte", Value::kInt, ComparedAs::kNumber, "integer"},
    {ColumnDef::kDateTime, "DateTime", Value::kString, ComparedAs::kDate,
     "text: `2024-03-01`, `14:30:05.500` or `2024-03-01T14:30:05.500`"},
    {ColumnDef::kDecimal, "Decimal", Value::kDouble, ComparedAs::kNumber, "double"},
    {ColumnDef::kDouble, "Double", Value::kDouble, ComparedAs::kNumber, "double"},
    {ColumnDef::kInt16, "Int16", Value::kInt, ComparedAs::kNumber, "integer"},
    {ColumnDef::kInt32, "Int32", Value::kInt, ComparedAs::kNumber, "integer"},
    {ColumnDef::kInt64, "Int64", Value::kInt, ComparedAs::kNumber, "integer"},
    {ColumnDef::kSingle, "Single", Value::kDouble, ComparedAs::kNumber, "double"},
    {ColumnDef::kString, "String", Value::kString, ComparedAs::kText, "text"},
    {ColumnDef::kBlob, "BLOB", Value::kBlob, ComparedAs::kBytes, "bytes"},
    {ColumnDef::kClob, "CLOB", Value::kBlob, ComparedAs::kBytes, "bytes"},
};

// Null for types that hold nothing.
constexpr ColumnKind const* KindOf(ColumnDef::DataType type) {
  for (ColumnKind const& row : kColumnKinds) {
    if (row.type == type) return &row;
  }
  return nullptr;
}
static_assert(KindOf(ColumnDef::kUnset) == nullptr);

}  // namespace fdo::internal

#endif  // EXPR_COLUMN_KINDS_H_
