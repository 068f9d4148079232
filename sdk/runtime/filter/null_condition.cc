#include "Fdo/Filter/NullCondition.h"

#include "Fdo/Filter/IFilterProcessor.h"
#include "sdk/runtime/core/deferred_deletion.h"
#include "sdk/runtime/core/wide_text.h"
#include "sdk/runtime/text/writer.h"

FdoNullCondition::FdoNullCondition() = default;

FdoNullCondition::FdoNullCondition(FdoIdentifier* propertyName)
    : m_propertyName(FDO_SAFE_ADDREF(propertyName)) {}

FdoNullCondition* FdoNullCondition::Create() { return new FdoNullCondition(); }

FdoNullCondition* FdoNullCondition::Create(FdoString* propertyName) {
  FdoPtr<FdoIdentifier> name = FdoIdentifier::Create(propertyName);
  return new FdoNullCondition(name);
}

FdoNullCondition* FdoNullCondition::Create(FdoIdentifier* propertyName) {
  return new FdoNullCondition(propertyName);
}

FdoIdentifier* FdoNullCondition::GetPropertyName() { return FDO_SAFE_ADDREF(m_propertyName.p); }

void FdoNullCondition::SetPropertyName(FdoIdentifier* value) { m_propertyName = FDO_SAFE_ADDREF(value); }

FdoNullCondition::~FdoNullCondition() = default;

void FdoNullCondition::Dispose() {
  fdo_sdk::DeleteInTurn(this, [](void* node) { delete static_cast<FdoNullCondition*>(node); });
}

void FdoNullCondition::Process(FdoIFilterProcessor* p) { p->ProcessNullCondition(*this); }

FdoString* FdoNullCondition::ToStringInternal(FdoIdentifierCollection* pIdCol) {
  return fdo_sdk::KeepText(m_toString, fdo_sdk::WriteFilter(*this, pIdCol));
}
