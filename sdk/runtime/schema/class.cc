#include "Fdo/Schema/Class.h"

FdoClass* FdoClass::Create() { return new FdoClass(); }

FdoClass* FdoClass::Create(FdoString* name, FdoString* description) {
  return new FdoClass(name, description);
}

FdoClass::FdoClass() = default;

FdoClass::FdoClass(FdoString* name, FdoString* description) : FdoClassDefinition(name, description) {}

FdoClass::~FdoClass() = default;

void FdoClass::Dispose() { delete this; }

FdoClassType FdoClass::GetClassType() { return FdoClassType_Class; }
