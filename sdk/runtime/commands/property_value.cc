#include "Fdo/Commands/PropertyValue.h"

#include "Common/IStreamReader.h"
#include "Fdo/Commands/PropertyValueCollection.h"
#include "Fdo/Expression/Identifier.h"
#include "sdk/runtime/commands/named_values.h"
#include "sdk/runtime/commands/value_text.h"

FdoPropertyValue* FdoPropertyValue::Create() { return new FdoPropertyValue(); }

FdoPropertyValue* FdoPropertyValue::Create(FdoIdentifier* name, FdoValueExpression* value) {
  FdoPtr<FdoPropertyValue> made = new FdoPropertyValue();
  made->SetName(name);
  made->SetValue(value);
  return made.Detach();
}

FdoPropertyValue* FdoPropertyValue::Create(FdoString* name, FdoValueExpression* value) {
  FdoPtr<FdoPropertyValue> made = new FdoPropertyValue();
  made->SetName(name);
  made->SetValue(value);
  return made.Detach();
}

FdoPropertyValue::FdoPropertyValue() = default;

FdoPropertyValue::~FdoPropertyValue() = default;

void FdoPropertyValue::Dispose() { delete this; }

FdoIdentifier* FdoPropertyValue::GetName() { return FDO_SAFE_ADDREF(m_name.p); }

void FdoPropertyValue::SetName(FdoIdentifier* value) { m_name = FDO_SAFE_ADDREF(value); }

void FdoPropertyValue::SetName(FdoString* value) {
  m_name = value == nullptr ? nullptr : FdoIdentifier::Create(value);
}

FdoValueExpression* FdoPropertyValue::GetValue() { return FDO_SAFE_ADDREF(m_value.p); }

void FdoPropertyValue::SetValue(FdoValueExpression* value) { m_value = FDO_SAFE_ADDREF(value); }

void FdoPropertyValue::SetValue(FdoString* value) {
  m_value = value == nullptr ? nullptr : fdo_sdk::ParseValue<FdoValueExpression>(value);
}

void FdoPropertyValue::SetStreamReader(FdoIStreamReader* stream) { m_streamReader = FDO_SAFE_ADDREF(stream); }

FdoIStreamReader* FdoPropertyValue::GetStreamReader() { return FDO_SAFE_ADDREF(m_streamReader.p); }

FdoPropertyValueCollection* FdoPropertyValueCollection::Create() { return new FdoPropertyValueCollection(); }

FdoPropertyValueCollection::FdoPropertyValueCollection() = default;

FdoPropertyValueCollection::~FdoPropertyValueCollection() = default;

void FdoPropertyValueCollection::Dispose() { delete this; }

FdoPropertyValue* FdoPropertyValueCollection::GetItem(FdoString* name) {
  FdoPropertyValue* item = FindItem(name);
  if (item == nullptr) fdo_sdk::ThrowNoItem(L"property", name);
  return item;
}

FdoPropertyValue* FdoPropertyValueCollection::FindItem(FdoString* name) {
  return fdo_sdk::FindNamed(*this, name, [](FdoPropertyValue& item) -> FdoString* {
    FdoPtr<FdoIdentifier> identifier = item.GetName();
    return identifier == nullptr ? nullptr : identifier->GetText();
  });
}

FdoPropertyValue* FdoPropertyValueCollection::GetItem(FdoInt32 index) {
  return FdoCollection<FdoPropertyValue, FdoCommandException>::GetItem(index);
}
