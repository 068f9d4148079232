#include "Fdo/Filter/ComparisonCondition.h"

#include "Fdo/Filter/IFilterProcessor.h"
#include "sdk/runtime/core/deferred_deletion.h"
#include "sdk/runtime/core/wide_text.h"
#include "sdk/runtime/text/writer.h"

FdoComparisonCondition::FdoComparisonCondition() : m_operation(FdoComparisonOperations_EqualTo) {}

FdoComparisonCondition::FdoComparisonCondition(FdoExpression* leftExpression,
                                               FdoComparisonOperations operation,
                                               FdoExpression* rightExpression)
    : m_left(FDO_SAFE_ADDREF(leftExpression)),
      m_right(FDO_SAFE_ADDREF(rightExpression)),
      m_operation(operation) {}

FdoComparisonCondition* FdoComparisonCondition::Create() { return new FdoComparisonCondition(); }

FdoComparisonCondition* FdoComparisonCondition::Create(FdoExpression* leftExpression,
                                                       FdoComparisonOperations operation,
                                                       FdoExpression* rightExpression) {
  return new FdoComparisonCondition(leftExpression, operation, rightExpression);
}

FdoComparisonOperations FdoComparisonCondition::GetOperation() { return m_operation; }

void FdoComparisonCondition::SetOperation(FdoComparisonOperations operation) { m_operation = operation; }

FdoExpression* FdoComparisonCondition::GetLeftExpression() { return FDO_SAFE_ADDREF(m_left.p); }

void FdoComparisonCondition::SetLeftExpression(FdoExpression* value) { m_left = FDO_SAFE_ADDREF(value); }

FdoExpression* FdoComparisonCondition::GetRightExpression() { return FDO_SAFE_ADDREF(m_right.p); }

void FdoComparisonCondition::SetRightExpression(FdoExpression* value) { m_right = FDO_SAFE_ADDREF(value); }

FdoComparisonCondition::~FdoComparisonCondition() = default;

void FdoComparisonCondition::Dispose() {
  fdo_sdk::DeleteInTurn(this, [](void* node) { delete static_cast<FdoComparisonCondition*>(node); });
}

void FdoComparisonCondition::Process(FdoIFilterProcessor* p) { p->ProcessComparisonCondition(*this); }

FdoString* FdoComparisonCondition::ToStringInternal(FdoIdentifierCollection* pIdCol) {
  return fdo_sdk::KeepText(m_toString, fdo_sdk::WriteFilter(*this, pIdCol));
}
