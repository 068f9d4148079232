// How fields of GDAL and columns correspond.
#ifndef OGR_BACKEND_COLUMN_TYPES_H_
#define OGR_BACKEND_COLUMN_TYPES_H_

#include <fdo/schema.h>

#include "ogr_backend/gdal_binding.h"

namespace fdo::internal {

// Reading: the column that shows a field of that type. The list types have none and give kUnset.
struct FieldColumn {
  int fieldType;
  ColumnDef::DataType columnType;
};

inline constexpr FieldColumn kFieldColumns[] = {
    {kOftInteger, ColumnDef::kInt32},   {kOftReal, ColumnDef::kDouble},
    {kOftString, ColumnDef::kString},   {kOftWideString, ColumnDef::kString},
    {kOftBinary, ColumnDef::kBlob},     {kOftDate, ColumnDef::kDateTime},
    {kOftTime, ColumnDef::kDateTime},   {kOftDateTime, ColumnDef::kDateTime},
    {kOftInteger64, ColumnDef::kInt64},
};

constexpr ColumnDef::DataType ColumnTypeOf(int fieldType) {
  for (FieldColumn const& pair : kFieldColumns) {
    if (pair.fieldType == fieldType) return pair.columnType;
  }
  return ColumnDef::kUnset;
}

// Creating: the field that is made for a column. Columns of other types cannot be created.
struct ColumnField {
  ColumnDef::DataType columnType;
  int fieldType;
  int subType;
};

inline constexpr ColumnField kColumnFields[] = {
    {ColumnDef::kBoolean, kOftInteger, kOfstBoolean}, {ColumnDef::kByte, kOftInteger, kOfstInt16},
    {ColumnDef::kDateTime, kOftDateTime, kOfstNone},  {ColumnDef::kDecimal, kOftReal, kOfstNone},
    {ColumnDef::kDouble, kOftReal, kOfstNone},        {ColumnDef::kInt16, kOftInteger, kOfstInt16},
    {ColumnDef::kInt32, kOftInteger, kOfstNone},      {ColumnDef::kInt64, kOftInteger64, kOfstNone},
    {ColumnDef::kSingle, kOftReal, kOfstNone},        {ColumnDef::kString, kOftString, kOfstNone},
    {ColumnDef::kBlob, kOftBinary, kOfstNone},        {ColumnDef::kClob, kOftString, kOfstNone},
};

// Null when no field can hold such a column.
constexpr ColumnField const* FieldFor(ColumnDef::DataType columnType) {
  for (ColumnField const& pair : kColumnFields) {
    if (pair.columnType == columnType) return &pair;
  }
  return nullptr;
}

// Every table of this back end begins with these two columns; field i is column kFirstField + i.
inline constexpr int kIdColumn = 0;
inline constexpr int kGeometryColumn = 1;
inline constexpr int kFirstField = 2;

}  // namespace fdo::internal

#endif  // OGR_BACKEND_COLUMN_TYPES_H_
