#include "Fdo/Expression/Parameter.h"

#include "Fdo/Expression/IExpressionProcessor.h"
#include "sdk/runtime/core/wide_text.h"
#include "sdk/runtime/text/writer.h"

FdoParameter::FdoParameter() = default;

FdoParameter::FdoParameter(FdoString* name) : m_name(name) {}

FdoParameter* FdoParameter::Create() { return new FdoParameter(); }

FdoParameter* FdoParameter::Create(FdoString* name) { return new FdoParameter(name); }

FdoString* FdoParameter::GetName() { return m_name; }

void FdoParameter::SetName(FdoString* value) { m_name = value; }

FdoParameter::~FdoParameter() = default;

void FdoParameter::Dispose() { delete this; }

void FdoParameter::Process(FdoIExpressionProcessor* p) { p->ProcessParameter(*this); }

FdoString* FdoParameter::ToString() { return fdo_sdk::KeepText(m_toString, fdo_sdk::WriteExpression(*this)); }

FdoExpressionItemType FdoParameter::GetExpressionType() { return FdoExpressionItemType_Parameter; }
