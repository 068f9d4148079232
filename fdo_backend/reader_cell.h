// One property of a reader's current feature as the value of a cell.
#ifndef FDO_BACKEND_READER_CELL_H_
#define FDO_BACKEND_READER_CELL_H_

#include <Fdo.h>
#include <fdo/schema.h>
#include <fdo/value.h>

#include "fdo_backend/date_texts.h"
#include "port/inlining.h"
#include "sdk/extensions/direct_cells.h"

namespace fdo::internal {

// Apart from the rest, whose frame stays small so.
template <class Key>
QUILLON_NEVER_INLINE void ReadDateTime(FdoIFeatureReader& reader, Key property, DateTexts& texts, int column,
                                       Value& cell) {
  texts.Write(reader.GetDateTime(property), column, cell);
}

template <class Key>
QUILLON_NEVER_INLINE void ReadLargeObject(FdoIFeatureReader& reader, Key property, Value& cell) {
  FdoPtr<FdoLOBValue> const object = reader.GetLOB(property);
  FdoPtr<FdoByteArray> const bytes = object == nullptr ? nullptr : object->GetData();
  if (bytes == nullptr) {
    cell.Reset();
    return;
  }
  // An array without elements may have no address, and is empty, not null.
  static constexpr FdoByte kNoBytes = 0;
  FdoInt32 const count = bytes->GetCount();
  cell.Reset(count > 0 ? bytes->GetData() : &kNoBytes, count, /*copy=*/true);
}

// Key is a position or a name, column the place of the cell in its row. Text and geometry are borrowed from
// the reader. Errors: what the reader throws.
template <class Key>
QUILLON_ALWAYS_INLINE void ReadCell(FdoIFeatureReader& reader, Key property, ColumnDef::DataType type,
                                    DateTexts& dateTexts, int column, Value& cell) {
  if (reader.IsNull(property)) {
    cell.Reset();
    return;
  }
  switch (type) {
    case ColumnDef::kGeometry: {
      FdoInt32 count = 0;
      FdoByte const* const bytes = reader.GetGeometry(property, &count);
      return cell.Reset(bytes, count, /*copy=*/false);
    }
    case ColumnDef::kBoolean:
      return cell.Reset(static_cast<bool>(reader.GetBoolean(property)));
    case ColumnDef::kByte:
      return cell.Reset(static_cast<int>(reader.GetByte(property)));
    case ColumnDef::kDateTime:
      return ReadDateTime(reader, property, dateTexts, column, cell);
    case ColumnDef::kDecimal:  // readers have no getter of its own for it
    case ColumnDef::kDouble:
      return cell.Reset(reader.GetDouble(property));
    case ColumnDef::kInt16:
      return cell.Reset(static_cast<int>(reader.GetInt16(property)));
    case ColumnDef::kInt32:
      return cell.Reset(reader.GetInt32(property));
    case ColumnDef::kInt64:
      return cell.Reset(reader.GetInt64(property));
    case ColumnDef::kSingle:
      return cell.Reset(reader.GetSingle(property));
    case ColumnDef::kString:
      return cell.Reset(reader.GetString(property), /*copy=*/false);
    case ColumnDef::kBlob:
    case ColumnDef::kClob:
      return ReadLargeObject(reader, property, cell);
    case ColumnDef::kUnset:
      break;
  }
  cell.Invalidate();  // a type without a getter
}

// As DirectCells takes it.
constexpr FdoInt32 DirectType(ColumnDef::DataType type) {
  static_assert(static_cast<FdoInt32>(ColumnDef::kGeometry) == fdo_sdk::kDirectGeometry);
  return static_cast<FdoInt32>(type);
}

// The cell of what a reader has given in one call.
// Errors: false where ReadCell is to be used.
QUILLON_ALWAYS_INLINE bool TakeDirectCell(fdo_sdk::DirectKind kind, fdo_sdk::DirectCell const& read,
                                          DateTexts& dateTexts, int column, Value& cell) {
  using fdo_sdk::DirectKind;
  switch (kind) {
    case DirectKind::kNone:
      return false;
    case DirectKind::kNull:
      cell.Reset();
      break;
    case DirectKind::kFlag:
      cell.Reset(read.flag);
      break;
    case DirectKind::kInteger:
      cell.Reset(static_cast<long long>(read.integer));
      break;
    case DirectKind::kReal:
      cell.Reset(read.real);
      break;
    case DirectKind::kText:
      cell.Reset(read.text, /*copy=*/false);
      break;
    case DirectKind::kMoment:
      dateTexts.Write(*read.moment, column, cell);
      break;
    case DirectKind::kBytes:
      cell.Reset(read.bytes, read.size, /*copy=*/false);
      break;
  }
  return true;
}

// As ReadCell, through a reader that offers it, by position.
// Errors: false where ReadCell is to be used; what the reader throws.
QUILLON_ALWAYS_INLINE bool ReadCellDirectly(fdo_sdk::DirectCells& reader, FdoInt32 position,
                                            ColumnDef::DataType type, DateTexts& dateTexts, int column,
                                            Value& cell) {
  fdo_sdk::DirectCell read;
  fdo_sdk::DirectKind const kind = reader.ReadCell(position, DirectType(type), read);
  return TakeDirectCell(kind, read, dateTexts, column, cell);
}

}  // namespace fdo::internal

#endif  // FDO_BACKEND_READER_CELL_H_
