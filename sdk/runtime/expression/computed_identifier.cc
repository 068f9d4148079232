#include "Fdo/Expression/ComputedIdentifier.h"

#include "Fdo/Expression/IExpressionProcessor.h"
#include "sdk/runtime/core/deferred_deletion.h"
#include "sdk/runtime/core/wide_text.h"
#include "sdk/runtime/text/writer.h"

FdoComputedIdentifier::FdoComputedIdentifier() = default;

FdoComputedIdentifier::FdoComputedIdentifier(FdoString* name, FdoExpression* expression)
    : FdoIdentifier(name), m_expression(FDO_SAFE_ADDREF(expression)) {}

FdoComputedIdentifier* FdoComputedIdentifier::Create() { return new FdoComputedIdentifier(); }

FdoComputedIdentifier* FdoComputedIdentifier::Create(FdoString* name, FdoExpression* expression) {
  return new FdoComputedIdentifier(name, expression);
}

FdoExpression* FdoComputedIdentifier::GetExpression() { return FDO_SAFE_ADDREF(m_expression.p); }

void FdoComputedIdentifier::SetExpression(FdoExpression* value) { m_expression = FDO_SAFE_ADDREF(value); }

FdoComputedIdentifier::~FdoComputedIdentifier() = default;

void FdoComputedIdentifier::Dispose() {
  fdo_sdk::DeleteInTurn(this, [](void* node) { delete static_cast<FdoComputedIdentifier*>(node); });
}

void FdoComputedIdentifier::Process(FdoIExpressionProcessor* p) { p->ProcessComputedIdentifier(*this); }

FdoString* FdoComputedIdentifier::ToString() {
  return fdo_sdk::KeepText(m_toString, fdo_sdk::WriteExpression(*this));
}

FdoExpressionItemType FdoComputedIdentifier::GetExpressionType() {
  return FdoExpressionItemType_ComputedIdentifier;
}
