#include "Fdo/Filter/InCondition.h"

#include "Fdo/Filter/IFilterProcessor.h"
#include "sdk/runtime/core/deferred_deletion.h"
#include "sdk/runtime/core/wide_text.h"
#include "sdk/runtime/text/writer.h"

FdoInCondition::FdoInCondition() : FdoInCondition(nullptr, nullptr, nullptr) {}

FdoInCondition::FdoInCondition(FdoIdentifier* propertyName, FdoValueExpressionCollection* values,
                               FdoSubSelectExpression* subSelect)
    : m_propertyName(FDO_SAFE_ADDREF(propertyName)),
      m_values(values == nullptr ? FdoValueExpressionCollection::Create() : FDO_SAFE_ADDREF(values)),
      m_subSelect(FDO_SAFE_ADDREF(subSelect)) {}

FdoInCondition* FdoInCondition::Create() { return new FdoInCondition(); }

FdoInCondition* FdoInCondition::Create(FdoString* propertyName, FdoString** values, FdoInt32 length) {
  FdoPtr<FdoIdentifier> name = FdoIdentifier::Create(propertyName);
  return Create(name.p, values, length);
}

FdoInCondition* FdoInCondition::Create(FdoIdentifier* propertyName, FdoString** values, FdoInt32 length) {
  FdoPtr<FdoValueExpressionCollection> collection = FdoValueExpressionCollection::Create(values, length);
  return Create(propertyName, collection.p);
}

FdoInCondition* FdoInCondition::Create(FdoIdentifier* propertyName,
                                       FdoValueExpressionCollection* pCollection) {
  return new FdoInCondition(propertyName, pCollection, nullptr);
}

FdoInCondition* FdoInCondition::Create(FdoIdentifier* propertyName, FdoSubSelectExpression* subSel) {
  return new FdoInCondition(propertyName, nullptr, subSel);
}

FdoIdentifier* FdoInCondition::GetPropertyName() { return FDO_SAFE_ADDREF(m_propertyName.p); }

void FdoInCondition::SetPropertyName(FdoIdentifier* value) { m_propertyName = FDO_SAFE_ADDREF(value); }

FdoValueExpressionCollection* FdoInCondition::GetValues() { return FDO_SAFE_ADDREF(m_values.p); }

FdoSubSelectExpression* FdoInCondition::GetSubSelect() { return FDO_SAFE_ADDREF(m_subSelect.p); }

void FdoInCondition::SetSubSelect(FdoSubSelectExpression* value) { m_subSelect = FDO_SAFE_ADDREF(value); }

FdoInCondition::~FdoInCondition() = default;

void FdoInCondition::Dispose() {
  fdo_sdk::DeleteInTurn(this, [](void* node) { delete static_cast<FdoInCondition*>(node); });
}

void FdoInCondition::Process(FdoIFilterProcessor* p) { p->ProcessInCondition(*this); }

FdoString* FdoInCondition::ToStringInternal(FdoIdentifierCollection* pIdCol) {
  return fdo_sdk::KeepText(m_toString, fdo_sdk::WriteFilter(*this, pIdCol));
}
