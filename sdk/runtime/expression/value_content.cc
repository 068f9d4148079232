#include "sdk/runtime/expression/value_content.h"

#include "Fdo/Expression/BooleanValue.h"
#include "Fdo/Expression/ByteValue.h"
#include "Fdo/Expression/DateTimeValue.h"
#include "Fdo/Expression/DecimalValue.h"
#include "Fdo/Expression/DoubleValue.h"
#include "Fdo/Expression/Int16Value.h"
#include "Fdo/Expression/Int32Value.h"
#include "Fdo/Expression/Int64Value.h"
#include "Fdo/Expression/LOBValue.h"
#include "Fdo/Expression/SingleValue.h"
#include "Fdo/Expression/StringValue.h"

namespace fdo_sdk {

ValueContent ContentOf(FdoDataValue& value) {
  if (value.IsNull()) return {};
  switch (value.GetDataType()) {
    case FdoDataType_Boolean:
      return FdoInt64{static_cast<FdoBooleanValue&>(value).GetBoolean()};
    case FdoDataType_Byte:
      return FdoInt64{static_cast<FdoByteValue&>(value).GetByte()};
    case FdoDataType_DateTime:
      return static_cast<FdoDateTimeValue&>(value).GetDateTime();
    case FdoDataType_Decimal:
      return static_cast<FdoDecimalValue&>(value).GetDecimal();
    case FdoDataType_Double:
      return static_cast<FdoDoubleValue&>(value).GetDouble();
    case FdoDataType_Int16:
      return FdoInt64{static_cast<FdoInt16Value&>(value).GetInt16()};
    case FdoDataType_Int32:
      return FdoInt64{static_cast<FdoInt32Value&>(value).GetInt32()};
    case FdoDataType_Int64:
      return static_cast<FdoInt64Value&>(value).GetInt64();
    case FdoDataType_Single:
      return static_cast<double>(static_cast<FdoSingleValue&>(value).GetSingle());
    case FdoDataType_String:
      return std::wstring(static_cast<FdoStringValue&>(value).GetString());
    case FdoDataType_BLOB:
    case FdoDataType_CLOB:
      return FdoPtr<FdoByteArray>(static_cast<FdoLOBValue&>(value).GetData());
  }
  return {};
}

}  // namespace fdo_sdk
