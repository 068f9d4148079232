#include "Fdo/Expression/BLOBValue.h"
#include "Fdo/Expression/CLOBValue.h"
#include "Fdo/Expression/IExpressionProcessor.h"
#include "sdk/runtime/core/wide_text.h"
#include "sdk/runtime/expression/value_conversion.h"
#include "sdk/runtime/text/writer.h"

FdoLOBValue::FdoLOBValue() : m_data(nullptr) {}

FdoLOBValue::~FdoLOBValue() { FDO_SAFE_RELEASE(m_data); }

FdoLOBValue::operator FdoByteArray*() { return GetData(); }

// The two kinds differ in their names only.
#define FDO_SDK_DEFINE_LOB_VALUE(Kind)                                                                    \
  Fdo##Kind##Value::Fdo##Kind##Value() = default;                                                         \
  Fdo##Kind##Value::Fdo##Kind##Value(FdoByteArray* value) {                                               \
    m_data = FDO_SAFE_ADDREF(value);                                                                      \
    m_isNull = value == nullptr;                                                                          \
  }                                                                                                       \
  Fdo##Kind##Value::~Fdo##Kind##Value() = default;                                                        \
  void Fdo##Kind##Value::Dispose() { delete this; }                                                       \
  Fdo##Kind##Value* Fdo##Kind##Value::Create() { return new Fdo##Kind##Value(); }                         \
  Fdo##Kind##Value* Fdo##Kind##Value::Create(FdoByteArray* value) { return new Fdo##Kind##Value(value); } \
  Fdo##Kind##Value* Fdo##Kind##Value::Create(FdoDataValue* src, FdoBoolean nullIfIncompatible,            \
                                             FdoBoolean shift, FdoBoolean truncate) {                     \
    return static_cast<Fdo##Kind##Value*>(                                                                \
        fdo_sdk::ConvertValue(FdoDataType_##Kind, src, {nullIfIncompatible, shift, truncate}));           \
  }                                                                                                       \
  FdoDataType Fdo##Kind##Value::GetDataType() { return FdoDataType_##Kind; }                              \
  FdoByteArray* Fdo##Kind##Value::GetData() { return FDO_SAFE_ADDREF(m_data); }                           \
  void Fdo##Kind##Value::SetData(FdoByteArray* value) {                                                   \
    FdoByteArray* old = m_data;                                                                           \
    m_data = FDO_SAFE_ADDREF(value);                                                                      \
    m_isNull = value == nullptr;                                                                          \
    FDO_SAFE_RELEASE(old);                                                                                \
  }                                                                                                       \
  void Fdo##Kind##Value::SetNull() { SetData(nullptr); }                                                  \
  void Fdo##Kind##Value::Process(FdoIExpressionProcessor* p) { p->Process##Kind##Value(*this); }          \
  FdoString* Fdo##Kind##Value::ToString() {                                                               \
    return fdo_sdk::KeepText(m_toString, fdo_sdk::WriteExpression(*this));                                \
  }

FDO_SDK_DEFINE_LOB_VALUE(BLOB)
FDO_SDK_DEFINE_LOB_VALUE(CLOB)
