#include "Fdo/Expression/BooleanValue.h"
#include "Fdo/Expression/ByteValue.h"
#include "Fdo/Expression/DateTimeValue.h"
#include "Fdo/Expression/DecimalValue.h"
#include "Fdo/Expression/DoubleValue.h"
#include "Fdo/Expression/IExpressionProcessor.h"
#include "Fdo/Expression/Int16Value.h"
#include "Fdo/Expression/Int32Value.h"
#include "Fdo/Expression/Int64Value.h"
#include "Fdo/Expression/SingleValue.h"
#include "sdk/runtime/core/wide_text.h"
#include "sdk/runtime/expression/value_conversion.h"
#include "sdk/runtime/text/writer.h"

// The classes of single values differ in their names and types only.
#define FDO_SDK_DEFINE_SCALAR_VALUE(Kind, Type)                                                  \
  Fdo##Kind##Value::Fdo##Kind##Value() : m_data() {}                                             \
  Fdo##Kind##Value::Fdo##Kind##Value(Type value) : m_data(value) { m_isNull = false; }           \
  Fdo##Kind##Value::~Fdo##Kind##Value() = default;                                               \
  void Fdo##Kind##Value::Dispose() { delete this; }                                              \
  Fdo##Kind##Value* Fdo##Kind##Value::Create() { return new Fdo##Kind##Value(); }                \
  Fdo##Kind##Value* Fdo##Kind##Value::Create(Type value) { return new Fdo##Kind##Value(value); } \
  Fdo##Kind##Value* Fdo##Kind##Value::Create(FdoDataValue* src, FdoBoolean nullIfIncompatible,   \
                                             FdoBoolean shift, FdoBoolean truncate) {            \
    return static_cast<Fdo##Kind##Value*>(                                                       \
        fdo_sdk::ConvertValue(FdoDataType_##Kind, src, {nullIfIncompatible, shift, truncate}));  \
  }                                                                                              \
  FdoDataType Fdo##Kind##Value::GetDataType() { return FdoDataType_##Kind; }                     \
  Type Fdo##Kind##Value::Get##Kind() { return m_data; }                                          \
  void Fdo##Kind##Value::Set##Kind(Type value) {                                                 \
    m_data = value;                                                                              \
    m_isNull = false;                                                                            \
  }                                                                                              \
  void Fdo##Kind##Value::Process(FdoIExpressionProcessor* p) { p->Process##Kind##Value(*this); } \
  FdoString* Fdo##Kind##Value::ToString() {                                                      \
    return fdo_sdk::KeepText(m_toString, fdo_sdk::WriteExpression(*this));                       \
  }                                                                                              \
  Fdo##Kind##Value::operator Type() { return m_data; }

FDO_SDK_DEFINE_SCALAR_VALUE(Boolean, bool)
FDO_SDK_DEFINE_SCALAR_VALUE(Byte, FdoByte)
FDO_SDK_DEFINE_SCALAR_VALUE(DateTime, FdoDateTime)
FDO_SDK_DEFINE_SCALAR_VALUE(Decimal, double)
FDO_SDK_DEFINE_SCALAR_VALUE(Double, double)
FDO_SDK_DEFINE_SCALAR_VALUE(Int16, FdoInt16)
FDO_SDK_DEFINE_SCALAR_VALUE(Int32, FdoInt32)
FDO_SDK_DEFINE_SCALAR_VALUE(Int64, FdoInt64)
FDO_SDK_DEFINE_SCALAR_VALUE(Single, float)
