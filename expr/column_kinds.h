// What the cells of a column hold, by the column's type: the compiler, the conditions of GDAL's layers, the
// page and the tests look here.
#ifndef EXPR_COLUMN_KINDS_H_
#define EXPR_COLUMN_KINDS_H_

#include <fdo/schema.h>
#include <fdo/value.h>

#include <iterator>

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

// The row of the type; -1 for a type that holds nothing. Pointers would not be constant to g++ where it
// instruments for undefined behaviour.
constexpr int PlaceOfKind(ColumnDef::DataType type) {
  for (int i = 0; i < static_cast<int>(std::size(kColumnKinds)); ++i) {
    if (kColumnKinds[i].type == type) return i;
  }
  return -1;
}

// Null for types that hold nothing.
inline ColumnKind const* KindOf(ColumnDef::DataType type) {
  int const place = PlaceOfKind(type);
  return place < 0 ? nullptr : &kColumnKinds[place];
}

constexpr bool EveryColumnHasAKind() {
  for (int type = ColumnDef::kGeometry; type <= ColumnDef::kClob; ++type) {
    if (PlaceOfKind(static_cast<ColumnDef::DataType>(type)) < 0) return false;
  }
  return PlaceOfKind(ColumnDef::kUnset) < 0;
}
static_assert(EveryColumnHasAKind(), "a row for each type but the one that nothing handles");

}  // namespace fdo::internal

#endif  // EXPR_COLUMN_KINDS_H_
