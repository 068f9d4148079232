#include "fdo_backend/insert_values.h"

#include <cstddef>
#include <cstring>

#include "values/date_text.h"

namespace fdo::internal {

using fdo_sdk::DirectCell;
using fdo_sdk::DirectKind;
using fdo_sdk::DirectValue;

namespace {

constexpr FdoInt32 kMostKeptBytes = 65536;

template <class TypedValue>
FdoValueExpression* Make() {
  return TypedValue::Create();
}

template <class TypedValue>
void SetDataNull(FdoValueExpression& value) {
  static_cast<TypedValue&>(value).SetNull();
}

void SetGeometryNull(FdoValueExpression& value) { static_cast<FdoGeometryValue&>(value).SetNullValue(); }

// The cell as Source, handed on as a Number; one that does not fit keeps its low bits.
template <class Source, class Number>
Number NumberOf(Value const& cell) {
  return static_cast<Number>(static_cast<Source>(cell));
}

template <class TypedValue, class Source, class Number, void (TypedValue::*setter)(Number)>
void SetNumber(FdoValueExpression& value, Value const& cell, FdoPtr<FdoByteArray>&) {
  (static_cast<TypedValue&>(value).*setter)(NumberOf<Source, Number>(cell));
}

DirectKind TakeFlag(Value const& cell, DirectCell& taken, FdoDateTime&) {
  taken.flag = NumberOf<bool, bool>(cell);
  return DirectKind::kFlag;
}

template <class Number>
DirectKind TakeInteger(Value const& cell, DirectCell& taken, FdoDateTime&) {
  taken.integer = NumberOf<__int64, Number>(cell);
  return DirectKind::kInteger;
}

template <class Number>
DirectKind TakeReal(Value const& cell, DirectCell& taken, FdoDateTime&) {
  taken.real = double{NumberOf<double, Number>(cell)};
  return DirectKind::kReal;
}

void SetDateTime(FdoValueExpression& value, Value const& cell, FdoPtr<FdoByteArray>&) {
  auto& dateTime = static_cast<FdoDateTimeValue&>(value);
  FdoDateTime parsed;
  if (ParseDateTime(cell, parsed)) {
    dateTime.SetDateTime(parsed);
  } else {
    dateTime.SetNull();
  }
}

DirectKind TakeDateTime(Value const& cell, DirectCell& taken, FdoDateTime& moment) {
  if (!ParseDateTime(cell, moment)) return DirectKind::kNull;
  taken.moment = &moment;
  return DirectKind::kMoment;
}

void SetString(FdoValueExpression& value, Value const& cell, FdoPtr<FdoByteArray>&) {
  auto& string = static_cast<FdoStringValue&>(value);
  wchar_t const* const text = cell;
  if (text != nullptr) {
    string.SetString(text);
  } else {
    string.SetNull();
  }
}

DirectKind TakeString(Value const& cell, DirectCell& taken, FdoDateTime&) {
  taken.text = cell;
  return taken.text != nullptr ? DirectKind::kText : DirectKind::kNull;
}

template <class TypedValue, void (TypedValue::*setter)(FdoByteArray*)>
void SetBytes(FdoValueExpression& value, Value const& cell, FdoPtr<FdoByteArray>& spare) {
  FdoByte const* const bytes = cell.AsBlob();
  if (bytes == nullptr) return;
  FdoInt32 const length = cell.BlobLen();
  if (spare != nullptr && spare->GetRefCount() == 1) {
    FdoByteArray* const sized = FdoByteArray::SetSize(spare.p, length);
    spare.Detach();  // which the one with the size has taken over
    spare = sized;
    if (length > 0) std::memcpy(spare->GetData(), bytes, static_cast<std::size_t>(length));
  } else {
    spare = FdoByteArray::Create(bytes, length);
  }
  (static_cast<TypedValue&>(value).*setter)(spare);
  if (length > kMostKeptBytes) spare = nullptr;
}

DirectKind TakeBytes(Value const& cell, DirectCell& taken, FdoDateTime&) {
  taken.bytes = cell.AsBlob();
  if (taken.bytes == nullptr) return DirectKind::kNull;
  taken.size = cell.BlobLen();
  return DirectKind::kBytes;
}

constexpr InsertValues::ValueType kValueTypes[] = {
    {ColumnDef::kGeometry, Make<FdoGeometryValue>, SetBytes<FdoGeometryValue, &FdoGeometryValue::SetGeometry>,
     TakeBytes, SetGeometryNull},
    {ColumnDef::kBoolean, Make<FdoBooleanValue>,
     SetNumber<FdoBooleanValue, bool, bool, &FdoBooleanValue::SetBoolean>, TakeFlag,
     SetDataNull<FdoBooleanValue>},
    {ColumnDef::kByte, Make<FdoByteValue>, SetNumber<FdoByteValue, __int64, FdoByte, &FdoByteValue::SetByte>,
     TakeInteger<FdoByte>, SetDataNull<FdoByteValue>},
    {ColumnDef::kDateTime, Make<FdoDateTimeValue>, SetDateTime, TakeDateTime, SetDataNull<FdoDateTimeValue>},
    {ColumnDef::kDecimal, Make<FdoDecimalValue>,
     SetNumber<FdoDecimalValue, double, double, &FdoDecimalValue::SetDecimal>, TakeReal<double>,
     SetDataNull<FdoDecimalValue>},
    {ColumnDef::kDouble, Make<FdoDoubleValue>,
     SetNumber<FdoDoubleValue, double, double, &FdoDoubleValue::SetDouble>, TakeReal<double>,
     SetDataNull<FdoDoubleValue>},
    {ColumnDef::kInt16, Make<FdoInt16Value>,
     SetNumber<FdoInt16Value, __int64, FdoInt16, &FdoInt16Value::SetInt16>, TakeInteger<FdoInt16>,
     SetDataNull<FdoInt16Value>},
    {ColumnDef::kInt32, Make<FdoInt32Value>,
     SetNumber<FdoInt32Value, __int64, FdoInt32, &FdoInt32Value::SetInt32>, TakeInteger<FdoInt32>,
     SetDataNull<FdoInt32Value>},
    {ColumnDef::kInt64, Make<FdoInt64Value>,
     SetNumber<FdoInt64Value, __int64, FdoInt64, &FdoInt64Value::SetInt64>, TakeInteger<FdoInt64>,
     SetDataNull<FdoInt64Value>},
    {ColumnDef::kSingle, Make<FdoSingleValue>,
     SetNumber<FdoSingleValue, double, float, &FdoSingleValue::SetSingle>, TakeReal<float>,
     SetDataNull<FdoSingleValue>},
    {ColumnDef::kString, Make<FdoStringValue>, SetString, TakeString, SetDataNull<FdoStringValue>},
    {ColumnDef::kBlob, Make<FdoBLOBValue>, SetBytes<FdoLOBValue, &FdoLOBValue::SetData>, TakeBytes,
     SetDataNull<FdoBLOBValue>},
    {ColumnDef::kClob, Make<FdoCLOBValue>, SetBytes<FdoLOBValue, &FdoLOBValue::SetData>, TakeBytes,
     SetDataNull<FdoCLOBValue>},
};

// Null where there is none.
InsertValues::ValueType const* TypeFor(ColumnDef::DataType columnType) {
  for (InsertValues::ValueType const& type : kValueTypes) {
    if (type.columnType == columnType) return &type;
  }
  return nullptr;
}

}  // namespace

InsertValues::InsertValues(TableDef const& def, FdoPropertyValueCollection& properties)
    : direct_(static_cast<std::size_t>(def.ColumnCount())), idIndex_(def.IndexOfID()) {
  slots_.reserve(direct_.size());
  for (int column = 0; column < def.ColumnCount(); ++column) {
    ValueType const* const type = TypeFor(def[column].Type());
    FdoPtr<FdoValueExpression> const value(type == nullptr ? nullptr : type->make());
    FdoPtr<FdoPropertyValue> const property(FdoPropertyValue::Create(def[column].Name(), value));
    properties.Add(property);
    slots_.push_back({property, value, type, nullptr, {}});
  }
}

void InsertValues::FillFrom(Row const& row, bool leaveOutId) {
  areNull_ = false;
  for (int column = 0; column < static_cast<int>(slots_.size()); ++column) {
    Slot& slot = slots_[static_cast<std::size_t>(column)];
    Value const& cell = row[column];
    if (!cell.IsValid() || cell.IsNull() || slot.type == nullptr) continue;
    if (leaveOutId && column == idIndex_) {
      slot.type->setNull(*slot.value);
    } else {
      slot.type->set(*slot.value, cell, slot.spare);
    }
  }
}

DirectValue const* InsertValues::DirectlyFrom(Row const& row, bool leaveOutId) {
  for (int column = 0; column < static_cast<int>(slots_.size()); ++column) {
    Slot& slot = slots_[static_cast<std::size_t>(column)];
    DirectValue& direct = direct_[static_cast<std::size_t>(column)];
    Value const& cell = row[column];
    if (slot.type == nullptr) {
      direct.kind = DirectKind::kNone;
    } else if (!cell.IsValid() || cell.IsNull() || (leaveOutId && column == idIndex_)) {
      direct.kind = DirectKind::kNull;
    } else {
      direct.kind = slot.type->take(cell, direct.cell, slot.moment);
    }
  }
  return direct_.data();
}

void InsertValues::SetAllNull() {
  if (areNull_) return;
  for (Slot const& slot : slots_) {
    if (slot.type != nullptr) slot.type->setNull(*slot.value);
  }
  areNull_ = true;
}

}  // namespace fdo::internal
