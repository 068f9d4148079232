#include "Fdo/Expression/Function.h"

#include "Fdo/Expression/IExpressionProcessor.h"
#include "sdk/runtime/core/deferred_deletion.h"
#include "sdk/runtime/core/wide_text.h"
#include "sdk/runtime/text/writer.h"

FdoFunction::FdoFunction() : FdoFunction(nullptr) {}

FdoFunction::FdoFunction(FdoString* name) : m_name(name), m_arguments(FdoExpressionCollection::Create()) {}

FdoFunction* FdoFunction::Create() { return new FdoFunction(); }

FdoFunction* FdoFunction::Create(FdoString* name, FdoExpression** arguments, FdoInt32 numArgs) {
  FdoPtr<FdoFunction> function = new FdoFunction(name);
  for (FdoInt32 i = 0; i < numArgs; ++i) function->m_arguments->Add(arguments[i]);
  return function.Detach();
}

FdoFunction* FdoFunction::Create(FdoString* name, FdoExpressionCollection* arguments) {
  FdoPtr<FdoFunction> function = new FdoFunction(name);
  FdoInt32 const count = arguments == nullptr ? 0 : arguments->GetCount();
  for (FdoInt32 i = 0; i < count; ++i) {
    FdoPtr<FdoExpression> argument = arguments->GetItem(i);
    function->m_arguments->Add(argument);
  }
  return function.Detach();
}

FdoString* FdoFunction::GetName() { return m_name; }

void FdoFunction::SetName(FdoString* value) { m_name = value; }

FdoExpressionCollection* FdoFunction::GetArguments() { return FDO_SAFE_ADDREF(m_arguments.p); }

FdoFunction::~FdoFunction() = default;

void FdoFunction::Dispose() {
  fdo_sdk::DeleteInTurn(this, [](void* node) { delete static_cast<FdoFunction*>(node); });
}

void FdoFunction::Process(FdoIExpressionProcessor* p) { p->ProcessFunction(*this); }

FdoString* FdoFunction::ToString() { return fdo_sdk::KeepText(m_toString, fdo_sdk::WriteExpression(*this)); }

FdoExpressionItemType FdoFunction::GetExpressionType() { return FdoExpressionItemType_Function; }
