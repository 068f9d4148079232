#include "Fdo/Expression/UnaryExpression.h"

#include "Fdo/Expression/IExpressionProcessor.h"
#include "sdk/runtime/core/deferred_deletion.h"
#include "sdk/runtime/core/wide_text.h"
#include "sdk/runtime/text/writer.h"

FdoUnaryExpression::FdoUnaryExpression() : m_operation(FdoUnaryOperations_Negate) {}

FdoUnaryExpression::FdoUnaryExpression(FdoUnaryOperations operation, FdoExpression* expression)
    : m_operand(FDO_SAFE_ADDREF(expression)), m_operation(operation) {}

FdoUnaryExpression* FdoUnaryExpression::Create() { return new FdoUnaryExpression(); }

FdoUnaryExpression* FdoUnaryExpression::Create(FdoUnaryOperations operation, FdoExpression* expression) {
  return new FdoUnaryExpression(operation, expression);
}

FdoUnaryOperations FdoUnaryExpression::GetOperation() { return m_operation; }

void FdoUnaryExpression::SetOperation(FdoUnaryOperations value) { m_operation = value; }

FdoExpression* FdoUnaryExpression::GetExpression() { return FDO_SAFE_ADDREF(m_operand.p); }

void FdoUnaryExpression::SetExpression(FdoExpression* value) { m_operand = FDO_SAFE_ADDREF(value); }

FdoUnaryExpression::~FdoUnaryExpression() = default;

void FdoUnaryExpression::Dispose() {
  fdo_sdk::DeleteInTurn(this, [](void* node) { delete static_cast<FdoUnaryExpression*>(node); });
}

void FdoUnaryExpression::Process(FdoIExpressionProcessor* p) { p->ProcessUnaryExpression(*this); }

FdoString* FdoUnaryExpression::ToString() {
  return fdo_sdk::KeepText(m_toString, fdo_sdk::WriteExpression(*this));
}

FdoExpressionItemType FdoUnaryExpression::GetExpressionType() {
  return FdoExpressionItemType_UnaryExpression;
}
