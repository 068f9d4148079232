#include "Fdo/Expression/DataValue.h"

#include "Fdo/Expression/BLOBValue.h"
#include "Fdo/Expression/BooleanValue.h"
#include "Fdo/Expression/ByteValue.h"
#include "Fdo/Expression/CLOBValue.h"
#include "Fdo/Expression/DateTimeValue.h"
#include "Fdo/Expression/DecimalValue.h"
#include "Fdo/Expression/DoubleValue.h"
#include "Fdo/Expression/ExpressionException.h"
#include "Fdo/Expression/Int16Value.h"
#include "Fdo/Expression/Int32Value.h"
#include "Fdo/Expression/Int64Value.h"
#include "Fdo/Expression/SingleValue.h"
#include "Fdo/Expression/StringValue.h"
#include "sdk/runtime/expression/value_conversion.h"
#include "sdk/runtime/expression/value_order.h"

FdoDataValue::FdoDataValue() : m_isNull(true) {}

FdoDataValue::~FdoDataValue() = default;

FdoDataValue* FdoDataValue::Create(FdoDataType dataType) {
  switch (dataType) {
    case FdoDataType_Boolean:
      return FdoBooleanValue::Create();
    case FdoDataType_Byte:
      return FdoByteValue::Create();
    case FdoDataType_DateTime:
      return FdoDateTimeValue::Create();
    case FdoDataType_Decimal:
      return FdoDecimalValue::Create();
    case FdoDataType_Double:
      return FdoDoubleValue::Create();
    case FdoDataType_Int16:
      return FdoInt16Value::Create();
    case FdoDataType_Int32:
      return FdoInt32Value::Create();
    case FdoDataType_Int64:
      return FdoInt64Value::Create();
    case FdoDataType_Single:
      return FdoSingleValue::Create();
    case FdoDataType_String:
      return FdoStringValue::Create();
    case FdoDataType_BLOB:
      return FdoBLOBValue::Create();
    case FdoDataType_CLOB:
      return FdoCLOBValue::Create();
  }
  throw FdoExpressionException::Create(L"There is no data type of that number.");
}

FdoDataValue* FdoDataValue::Create(bool value) { return FdoBooleanValue::Create(value); }

FdoDataValue* FdoDataValue::Create(FdoByte value) { return FdoByteValue::Create(value); }

FdoDataValue* FdoDataValue::Create(FdoDateTime value) { return FdoDateTimeValue::Create(value); }

FdoDataValue* FdoDataValue::Create(double value, FdoDataType dataType) {
  if (dataType == FdoDataType_Double) return FdoDoubleValue::Create(value);
  if (dataType == FdoDataType_Decimal) return FdoDecimalValue::Create(value);
  throw FdoExpressionException::Create(L"A double makes a value of type Double or Decimal only.");
}

FdoDataValue* FdoDataValue::Create(FdoInt16 value) { return FdoInt16Value::Create(value); }

FdoDataValue* FdoDataValue::Create(FdoInt32 value) { return FdoInt32Value::Create(value); }

FdoDataValue* FdoDataValue::Create(FdoInt64 value) { return FdoInt64Value::Create(value); }

FdoDataValue* FdoDataValue::Create(float value) { return FdoSingleValue::Create(value); }

FdoDataValue* FdoDataValue::Create(FdoString* value) { return FdoStringValue::Create(value); }

FdoDataValue* FdoDataValue::Create(FdoByte* value, FdoInt32 length, FdoDataType dataType) {
  FdoPtr<FdoByteArray> bytes = value == nullptr ? nullptr : FdoByteArray::Create(value, length);
  return Create(bytes.p, dataType);
}

FdoDataValue* FdoDataValue::Create(FdoByteArray* value, FdoDataType dataType) {
  if (dataType == FdoDataType_BLOB) return FdoBLOBValue::Create(value);
  if (dataType == FdoDataType_CLOB) return FdoCLOBValue::Create(value);
  throw FdoExpressionException::Create(L"Bytes make a value of type BLOB or CLOB only.");
}

FdoDataValue* FdoDataValue::Create(FdoDataType dataType, FdoDataValue* src, FdoBoolean nullIfIncompatible,
                                   FdoBoolean shift, FdoBoolean truncate) {
  return fdo_sdk::ConvertValue(dataType, src, {nullIfIncompatible, shift, truncate});
}

FdoDataValue* FdoDataValue::Create(FdoString* value, FdoDataType dataType) {
  FdoPtr<FdoStringValue> text = FdoStringValue::Create(value);
  return fdo_sdk::ConvertValue(dataType, text, {});
}

bool FdoDataValue::IsNull() { return m_isNull; }

void FdoDataValue::SetNull() { m_isNull = true; }

FdoLiteralValueType FdoDataValue::GetLiteralValueType() const { return FdoLiteralValueType_Data; }

FdoExpressionItemType FdoDataValue::GetExpressionType() { return FdoExpressionItemType_DataValue; }

FdoCompareType FdoDataValue::Compare(FdoDataValue* other) {
  return other == nullptr ? FdoCompareType_Undefined : DoCompare(other);
}

FdoCompareType FdoDataValue::DoCompare(FdoDataValue* other) { return fdo_sdk::CompareValues(*this, *other); }
