#include "Fdo/Commands/ParameterValue.h"

#include "Fdo/Commands/BatchParameterValueCollection.h"
#include "Fdo/Expression/LiteralValue.h"
#include "sdk/runtime/commands/named_values.h"
#include "sdk/runtime/commands/value_text.h"

FdoParameterValue* FdoParameterValue::Create() { return new FdoParameterValue(); }

FdoParameterValue* FdoParameterValue::Create(FdoString* name) {
  return Create(name, static_cast<FdoLiteralValue*>(nullptr));
}

FdoParameterValue* FdoParameterValue::Create(FdoString* name, FdoLiteralValue* value) {
  FdoPtr<FdoParameterValue> made = new FdoParameterValue();
  made->SetName(name);
  made->SetValue(value);
  return made.Detach();
}

FdoParameterValue::FdoParameterValue() : m_direction(FdoParameterDirection_Input) {}

FdoParameterValue::~FdoParameterValue() = default;

void FdoParameterValue::Dispose() { delete this; }

FdoString* FdoParameterValue::GetName() { return m_name; }

void FdoParameterValue::SetName(FdoString* value) { m_name = value; }

FdoLiteralValue* FdoParameterValue::GetValue() { return FDO_SAFE_ADDREF(m_value.p); }

void FdoParameterValue::SetValue(FdoLiteralValue* value) { m_value = FDO_SAFE_ADDREF(value); }

void FdoParameterValue::SetValue(FdoString* value) {
  m_value = value == nullptr ? nullptr : fdo_sdk::ParseValue<FdoLiteralValue>(value);
}

void FdoParameterValue::SetDirection(FdoParameterDirection value) { m_direction = value; }

FdoParameterDirection FdoParameterValue::GetDirection() { return m_direction; }

FdoParameterValueCollection* FdoParameterValueCollection::Create() {
  return new FdoParameterValueCollection();
}

FdoParameterValueCollection::FdoParameterValueCollection() = default;

FdoParameterValueCollection::~FdoParameterValueCollection() = default;

void FdoParameterValueCollection::Dispose() { delete this; }

FdoParameterValue* FdoParameterValueCollection::GetItem(FdoString* name) {
  FdoParameterValue* item = FindItem(name);
  if (item == nullptr) fdo_sdk::ThrowNoItem(L"parameter", name);
  return item;
}

FdoParameterValue* FdoParameterValueCollection::FindItem(FdoString* name) {
  return fdo_sdk::FindNamed(*this, name, [](FdoParameterValue& item) { return item.GetName(); });
}

FdoParameterValue* FdoParameterValueCollection::GetItem(FdoInt32 index) {
  return FdoCollection<FdoParameterValue, FdoCommandException>::GetItem(index);
}

FdoBatchParameterValueCollection* FdoBatchParameterValueCollection::Create() {
  return new FdoBatchParameterValueCollection();
}

FdoBatchParameterValueCollection::FdoBatchParameterValueCollection() = default;

FdoBatchParameterValueCollection::~FdoBatchParameterValueCollection() = default;

void FdoBatchParameterValueCollection::Dispose() { delete this; }
