#include "Fdo/Expression/SubSelectExpression.h"

#include "Fdo/Expression/IExpressionProcessor.h"
#include "sdk/runtime/core/deferred_deletion.h"
#include "sdk/runtime/core/wide_text.h"
#include "sdk/runtime/text/writer.h"

FdoSubSelectExpression::FdoSubSelectExpression() = default;

FdoSubSelectExpression::FdoSubSelectExpression(FdoIdentifier* className, FdoIdentifier* propertyName,
                                               FdoFilter* filter, FdoJoinCriteriaCollection* joinCritColl)
    : m_className(FDO_SAFE_ADDREF(className)),
      m_propertyName(FDO_SAFE_ADDREF(propertyName)),
      m_filter(FDO_SAFE_ADDREF(filter)),
      m_joins(FDO_SAFE_ADDREF(joinCritColl)) {}

FdoSubSelectExpression* FdoSubSelectExpression::Create() { return new FdoSubSelectExpression(); }

FdoSubSelectExpression* FdoSubSelectExpression::Create(FdoIdentifier* className,
                                                       FdoIdentifier* propertyName) {
  return new FdoSubSelectExpression(className, propertyName, nullptr, nullptr);
}

FdoSubSelectExpression* FdoSubSelectExpression::Create(FdoIdentifier* className, FdoIdentifier* propertyName,
                                                       FdoFilter* filter) {
  return new FdoSubSelectExpression(className, propertyName, filter, nullptr);
}

FdoSubSelectExpression* FdoSubSelectExpression::Create(FdoIdentifier* className, FdoIdentifier* propertyName,
                                                       FdoJoinCriteriaCollection* joinCritColl) {
  return new FdoSubSelectExpression(className, propertyName, nullptr, joinCritColl);
}

FdoSubSelectExpression* FdoSubSelectExpression::Create(FdoIdentifier* className, FdoIdentifier* propertyName,
                                                       FdoFilter* filter,
                                                       FdoJoinCriteriaCollection* joinCritColl) {
  return new FdoSubSelectExpression(className, propertyName, filter, joinCritColl);
}

FdoIdentifier* FdoSubSelectExpression::GetFeatureClassName() { return FDO_SAFE_ADDREF(m_className.p); }

void FdoSubSelectExpression::SetFeatureClassName(FdoIdentifier* value) {
  m_className = FDO_SAFE_ADDREF(value);
}

FdoIdentifier* FdoSubSelectExpression::GetPropertyName() { return FDO_SAFE_ADDREF(m_propertyName.p); }

void FdoSubSelectExpression::SetPropertyName(FdoIdentifier* value) {
  m_propertyName = FDO_SAFE_ADDREF(value);
}

FdoJoinCriteriaCollection* FdoSubSelectExpression::GetJoinCriteria() {
  if (m_joins == nullptr) m_joins = FdoJoinCriteriaCollection::Create();
  return FDO_SAFE_ADDREF(m_joins.p);
}

void FdoSubSelectExpression::SetJoinCriteria(FdoJoinCriteriaCollection* value) {
  m_joins = FDO_SAFE_ADDREF(value);
}

FdoFilter* FdoSubSelectExpression::GetFilter() { return FDO_SAFE_ADDREF(m_filter.p); }

void FdoSubSelectExpression::SetFilter(FdoFilter* value) { m_filter = FDO_SAFE_ADDREF(value); }

FdoSubSelectExpression::~FdoSubSelectExpression() = default;

void FdoSubSelectExpression::Dispose() {
  fdo_sdk::DeleteInTurn(this, [](void* node) { delete static_cast<FdoSubSelectExpression*>(node); });
}

void FdoSubSelectExpression::Process(FdoIExpressionProcessor* p) { p->ProcessSubSelectExpression(*this); }

FdoString* FdoSubSelectExpression::ToString() {
  return fdo_sdk::KeepText(m_toString, fdo_sdk::WriteExpression(*this));
}

FdoExpressionItemType FdoSubSelectExpression::GetExpressionType() {
  return FdoExpressionItemType_SubSelectExpression;
}
