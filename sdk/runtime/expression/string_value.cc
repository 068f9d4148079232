#include "Fdo/Expression/StringValue.h"

#include "Fdo/Expression/IExpressionProcessor.h"
#include "sdk/runtime/core/wide_text.h"
#include "sdk/runtime/expression/value_conversion.h"
#include "sdk/runtime/text/writer.h"

FdoStringValue::FdoStringValue() : m_data(nullptr) {}

FdoStringValue::FdoStringValue(FdoString* value) : m_data(fdo_sdk::CopyText(value)) {
  m_isNull = value == nullptr;
}

FdoStringValue::~FdoStringValue() { delete[] m_data; }

void FdoStringValue::Dispose() { delete this; }

FdoStringValue* FdoStringValue::Create() { return new FdoStringValue(); }

FdoStringValue* FdoStringValue::Create(FdoString* value) { return new FdoStringValue(value); }

FdoStringValue* FdoStringValue::Create(FdoDataValue* src, FdoBoolean nullIfIncompatible, FdoBoolean shift,
                                       FdoBoolean truncate) {
  return static_cast<FdoStringValue*>(
      fdo_sdk::ConvertValue(FdoDataType_String, src, {nullIfIncompatible, shift, truncate}));
}

FdoDataType FdoStringValue::GetDataType() { return FdoDataType_String; }

void FdoStringValue::SetNull() { SetString(nullptr); }

FdoString* FdoStringValue::GetString() { return m_data; }

void FdoStringValue::SetString(FdoString* value) {
  fdo_sdk::ReplaceText(m_data, value);
  m_isNull = m_data == nullptr;
}

void FdoStringValue::Process(FdoIExpressionProcessor* p) { p->ProcessStringValue(*this); }

FdoString* FdoStringValue::ToString() {
  return fdo_sdk::KeepText(m_toString, fdo_sdk::WriteExpression(*this));
}

FdoStringValue::operator wchar_t*() { return m_data; }
