#include "Fdo/Filter/UnaryLogicalOperator.h"

#include "Fdo/Filter/IFilterProcessor.h"
#include "sdk/runtime/core/deferred_deletion.h"
#include "sdk/runtime/core/wide_text.h"
#include "sdk/runtime/text/writer.h"

FdoUnaryLogicalOperator::FdoUnaryLogicalOperator() : m_operation(FdoUnaryLogicalOperations_Not) {}

FdoUnaryLogicalOperator::FdoUnaryLogicalOperator(FdoFilter* operand, FdoUnaryLogicalOperations operation)
    : m_operand(FDO_SAFE_ADDREF(operand)), m_operation(operation) {}

FdoUnaryLogicalOperator* FdoUnaryLogicalOperator::Create() { return new FdoUnaryLogicalOperator(); }

FdoUnaryLogicalOperator* FdoUnaryLogicalOperator::Create(FdoFilter* operand,
                                                         FdoUnaryLogicalOperations operation) {
  return new FdoUnaryLogicalOperator(operand, operation);
}

FdoUnaryLogicalOperations FdoUnaryLogicalOperator::GetOperation() { return m_operation; }

void FdoUnaryLogicalOperator::SetOperation(FdoUnaryLogicalOperations value) { m_operation = value; }

FdoFilter* FdoUnaryLogicalOperator::GetOperand() { return FDO_SAFE_ADDREF(m_operand.p); }

void FdoUnaryLogicalOperator::SetOperand(FdoFilter* value) { m_operand = FDO_SAFE_ADDREF(value); }

FdoUnaryLogicalOperator::~FdoUnaryLogicalOperator() = default;

void FdoUnaryLogicalOperator::Dispose() {
  fdo_sdk::DeleteInTurn(this, [](void* node) { delete static_cast<FdoUnaryLogicalOperator*>(node); });
}

void FdoUnaryLogicalOperator::Process(FdoIFilterProcessor* p) { p->ProcessUnaryLogicalOperator(*this); }

FdoString* FdoUnaryLogicalOperator::ToStringInternal(FdoIdentifierCollection* pIdCol) {
  return fdo_sdk::KeepText(m_toString, fdo_sdk::WriteFilter(*this, pIdCol));
}
