#include "sdk/runtime/expression/value_conversion.h"

#include <cmath>
#include <limits>
#include <optional>

#include "Fdo/Expression/BooleanValue.h"
#include "Fdo/Expression/ByteValue.h"
#include "Fdo/Expression/DateTimeValue.h"
#include "Fdo/Expression/DecimalValue.h"
#include "Fdo/Expression/DoubleValue.h"
#include "Fdo/Expression/ExpressionException.h"
#include "Fdo/Expression/Int16Value.h"
#include "Fdo/Expression/Int32Value.h"
#include "Fdo/Expression/Int64Value.h"
#include "Fdo/Expression/SingleValue.h"
#include "Fdo/Expression/StringValue.h"
#include "sdk/runtime/expression/value_content.h"
#include "sdk/runtime/text/parser.h"

namespace fdo_sdk {
namespace {

// The conversions give null, and no exception, for what is incompatible.
using Converted = FdoPtr<FdoDataValue>;

std::optional<FdoInt64> ToInteger(ValueContent const& content, ConversionRules const& rules, FdoInt64 least,
                                  FdoInt64 most) {
  FdoInt64 integer = 0;
  if (auto const* exact = std::get_if<FdoInt64>(&content)) {
    integer = *exact;
  } else if (auto const* real = std::get_if<double>(&content)) {
    constexpr double kTwoTo63 = 9223372036854775808.0;
    if (std::isnan(*real) || (std::trunc(*real) != *real && !rules.shift)) return std::nullopt;
    double const rounded = std::round(*real);
    if (rounded >= kTwoTo63 || rounded < -kTwoTo63) {
      if (!rules.truncate) return std::nullopt;
      return rounded > 0 ? most : least;
    }
    integer = static_cast<FdoInt64>(rounded);
  } else {
    return std::nullopt;
  }
  if (integer >= least && integer <= most) return integer;
  if (!rules.truncate) return std::nullopt;
  return integer < least ? least : most;
}

std::optional<double> ToReal(ValueContent const& content) {
  if (auto const* integer = std::get_if<FdoInt64>(&content)) return static_cast<double>(*integer);
  if (auto const* real = std::get_if<double>(&content)) return *real;
  return std::nullopt;
}

template <class Value, class Integer>
Converted IntegerValue(ValueContent const& content, ConversionRules const& rules) {
  auto const integer =
      ToInteger(content, rules, std::numeric_limits<Integer>::min(), std::numeric_limits<Integer>::max());
  return integer ? Value::Create(static_cast<Integer>(*integer)) : nullptr;
}

template <class Value>
Converted RealValue(ValueContent const& content) {
  auto const real = ToReal(content);
  return real ? Value::Create(*real) : nullptr;
}

Converted SingleValue(ValueContent const& content, ConversionRules const& rules) {
  auto const real = ToReal(content);
  if (!real) return nullptr;
  constexpr double kMost = std::numeric_limits<float>::max();
  if (std::isfinite(*real) && std::fabs(*real) > kMost) {
    if (!rules.truncate) return nullptr;
    return FdoSingleValue::Create(static_cast<float>(std::copysign(kMost, *real)));
  }
  return FdoSingleValue::Create(static_cast<float>(*real));
}

Converted LobValue(FdoDataType type, FdoDataValue& source, ValueContent const& content) {
  if (source.GetDataType() != type) return nullptr;
  return FdoDataValue::Create(std::get<FdoPtr<FdoByteArray>>(content).p, type);
}

Converted TextValue(FdoDataValue& source, ValueContent const& content) {
  if (auto const* text = std::get_if<std::wstring>(&content)) return FdoStringValue::Create(text->c_str());
  if (std::holds_alternative<FdoPtr<FdoByteArray>>(content)) return nullptr;
  return FdoStringValue::Create(source.ToString());
}

Converted Convert(FdoDataType type, FdoDataValue& source, ConversionRules const& rules) {
  ValueContent const content = ContentOf(source);
  switch (type) {
    case FdoDataType_Boolean: {
      auto const integer = ToInteger(content, rules, 0, 1);
      return integer ? FdoBooleanValue::Create(*integer != 0) : nullptr;
    }
    case FdoDataType_Byte:
      return IntegerValue<FdoByteValue, FdoByte>(content, rules);
    case FdoDataType_Int16:
      return IntegerValue<FdoInt16Value, FdoInt16>(content, rules);
    case FdoDataType_Int32:
      return IntegerValue<FdoInt32Value, FdoInt32>(content, rules);
    case FdoDataType_Int64:
      return IntegerValue<FdoInt64Value, FdoInt64>(content, rules);
    case FdoDataType_Decimal:
      return RealValue<FdoDecimalValue>(content);
    case FdoDataType_Double:
      return RealValue<FdoDoubleValue>(content);
    case FdoDataType_Single:
      return SingleValue(content, rules);
    case FdoDataType_DateTime: {
      auto const* value = std::get_if<FdoDateTime>(&content);
      return value != nullptr ? FdoDateTimeValue::Create(*value) : nullptr;
    }
    case FdoDataType_String:
      return TextValue(source, content);
    case FdoDataType_BLOB:
    case FdoDataType_CLOB:
      return LobValue(type, source, content);
  }
  return nullptr;
}

// The literal that a text is. Errors: null.
Converted ReadLiteral(FdoString* text) {
  try {
    FdoPtr<FdoValueExpression> value = ParseValue(text);
    if (value->GetExpressionType() != FdoExpressionItemType_DataValue) return nullptr;
    return static_cast<FdoDataValue*>(value.Detach());
  } catch (FdoException* failure) {
    FDO_SAFE_RELEASE(failure);
    return nullptr;
  }
}

}  // namespace

FdoDataValue* ConvertValue(FdoDataType type, FdoDataValue* source, ConversionRules const& rules) {
  if (source == nullptr || source->IsNull()) return FdoDataValue::Create(type);
  Converted literal = FDO_SAFE_ADDREF(source);
  if (source->GetDataType() == FdoDataType_String && type != FdoDataType_String) {
    literal = ReadLiteral(static_cast<FdoStringValue*>(source)->GetString());
    if (literal != nullptr && literal->IsNull()) return FdoDataValue::Create(type);
  }
  Converted converted = literal == nullptr ? Converted() : Convert(type, *literal, rules);
  if (converted != nullptr) return converted.Detach();
  if (rules.nullIfIncompatible) return FdoDataValue::Create(type);
  throw FdoExpressionException::Create(L"The value cannot be converted to the data type that is asked for.");
}

}  // namespace fdo_sdk
