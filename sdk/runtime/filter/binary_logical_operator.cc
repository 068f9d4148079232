#include "Fdo/Filter/BinaryLogicalOperator.h"

#include "Fdo/Filter/IFilterProcessor.h"
#include "sdk/runtime/core/deferred_deletion.h"
#include "sdk/runtime/core/wide_text.h"
#include "sdk/runtime/text/writer.h"

FdoBinaryLogicalOperator::FdoBinaryLogicalOperator() : m_operation(FdoBinaryLogicalOperations_And) {}

FdoBinaryLogicalOperator::FdoBinaryLogicalOperator(FdoFilter* leftOperand,
                                                   FdoBinaryLogicalOperations operation,
                                                   FdoFilter* rightOperand)
    : m_left(FDO_SAFE_ADDREF(leftOperand)), m_right(FDO_SAFE_ADDREF(rightOperand)), m_operation(operation) {}

FdoBinaryLogicalOperator* FdoBinaryLogicalOperator::Create() { return new FdoBinaryLogicalOperator(); }

FdoBinaryLogicalOperator* FdoBinaryLogicalOperator::Create(FdoFilter* leftOperand,
                                                           FdoBinaryLogicalOperations operation,
                                                           FdoFilter* rightOperand) {
  return new FdoBinaryLogicalOperator(leftOperand, operation, rightOperand);
}

FdoBinaryLogicalOperations FdoBinaryLogicalOperator::GetOperation() { return m_operation; }

void FdoBinaryLogicalOperator::SetOperation(FdoBinaryLogicalOperations value) { m_operation = value; }

FdoFilter* FdoBinaryLogicalOperator::GetLeftOperand() { return FDO_SAFE_ADDREF(m_left.p); }

void FdoBinaryLogicalOperator::SetLeftOperand(FdoFilter* value) { m_left = FDO_SAFE_ADDREF(value); }

FdoFilter* FdoBinaryLogicalOperator::GetRightOperand() { return FDO_SAFE_ADDREF(m_right.p); }

void FdoBinaryLogicalOperator::SetRightOperand(FdoFilter* value) { m_right = FDO_SAFE_ADDREF(value); }

FdoBinaryLogicalOperator::~FdoBinaryLogicalOperator() = default;

void FdoBinaryLogicalOperator::Dispose() {
  fdo_sdk::DeleteInTurn(this, [](void* node) { delete static_cast<FdoBinaryLogicalOperator*>(node); });
}

void FdoBinaryLogicalOperator::Process(FdoIFilterProcessor* p) { p->ProcessBinaryLogicalOperator(*this); }

FdoString* FdoBinaryLogicalOperator::ToStringInternal(FdoIdentifierCollection* pIdCol) {
  return fdo_sdk::KeepText(m_toString, fdo_sdk::WriteFilter(*this, pIdCol));
}
