#include "Fdo/Expression/BinaryExpression.h"

#include "Fdo/Expression/IExpressionProcessor.h"
#include "sdk/runtime/core/deferred_deletion.h"
#include "sdk/runtime/core/wide_text.h"
#include "sdk/runtime/text/writer.h"

FdoBinaryExpression::FdoBinaryExpression() : m_operation(FdoBinaryOperations_Add) {}

FdoBinaryExpression::FdoBinaryExpression(FdoExpression* leftExpression, FdoBinaryOperations operation,
                                         FdoExpression* rightExpression)
    : m_left(FDO_SAFE_ADDREF(leftExpression)),
      m_right(FDO_SAFE_ADDREF(rightExpression)),
      m_operation(operation) {}

FdoBinaryExpression* FdoBinaryExpression::Create() { return new FdoBinaryExpression(); }

FdoBinaryExpression* FdoBinaryExpression::Create(FdoExpression* leftExpression, FdoBinaryOperations operation,
                                                 FdoExpression* rightExpression) {
  return new FdoBinaryExpression(leftExpression, operation, rightExpression);
}

FdoBinaryOperations FdoBinaryExpression::GetOperation() { return m_operation; }

void FdoBinaryExpression::SetOperation(FdoBinaryOperations value) { m_operation = value; }

FdoExpression* FdoBinaryExpression::GetLeftExpression() { return FDO_SAFE_ADDREF(m_left.p); }

void FdoBinaryExpression::SetLeftExpression(FdoExpression* value) { m_left = FDO_SAFE_ADDREF(value); }

FdoExpression* FdoBinaryExpression::GetRightExpression() { return FDO_SAFE_ADDREF(m_right.p); }

void FdoBinaryExpression::SetRightExpression(FdoExpression* value) { m_right = FDO_SAFE_ADDREF(value); }

FdoBinaryExpression::~FdoBinaryExpression() = default;

void FdoBinaryExpression::Dispose() {
  fdo_sdk::DeleteInTurn(this, [](void* node) { delete static_cast<FdoBinaryExpression*>(node); });
}

void FdoBinaryExpression::Process(FdoIExpressionProcessor* p) { p->ProcessBinaryExpression(*this); }

FdoString* FdoBinaryExpression::ToString() {
  return fdo_sdk::KeepText(m_toString, fdo_sdk::WriteExpression(*this));
}

FdoExpressionItemType FdoBinaryExpression::GetExpressionType() {
  return FdoExpressionItemType_BinaryExpression;
}
