#include "Fdo/Schema/FeatureClass.h"

#include <string>

#include "Fdo/Schema/GeometricPropertyDefinition.h"
#include "Fdo/Schema/PropertyDefinitionCollection.h"
#include "Fdo/Schema/ReadOnlyPropertyDefinitionCollection.h"

FdoFeatureClass* FdoFeatureClass::Create() { return new FdoFeatureClass(); }

FdoFeatureClass* FdoFeatureClass::Create(FdoString* name, FdoString* description) {
  return new FdoFeatureClass(name, description);
}

FdoFeatureClass::FdoFeatureClass() = default;

FdoFeatureClass::FdoFeatureClass(FdoString* name, FdoString* description)
    : FdoClassDefinition(name, description) {}

FdoFeatureClass::~FdoFeatureClass() = default;

void FdoFeatureClass::Dispose() { delete this; }

FdoClassType FdoFeatureClass::GetClassType() { return FdoClassType_FeatureClass; }

FdoGeometricPropertyDefinition* FdoFeatureClass::GetGeometryProperty() {
  if (m_geometry.current != nullptr) return FDO_SAFE_ADDREF(m_geometry.current.p);
  FdoPtr<FdoClassDefinition> base = GetBaseClass();
  FdoFeatureClass* featureBase = dynamic_cast<FdoFeatureClass*>(base.p);
  return featureBase == nullptr ? nullptr : featureBase->GetGeometryProperty();
}

void FdoFeatureClass::SetGeometryProperty(FdoGeometricPropertyDefinition* value) {
  if (value != nullptr) {
    FdoPtr<FdoPropertyDefinitionCollection> own = GetProperties();
    FdoPtr<FdoReadOnlyPropertyDefinitionCollection> inherited = GetBaseProperties();
    FdoPropertyDefinition* property = value;
    if (own->IndexOf(property) < 0 && inherited->IndexOf(property) < 0) {
      std::wstring const message = L"\"" + std::wstring(value->GetName()) +
                                   L"\" cannot be the geometry of \"" + GetName() +
                                   L"\": it is not among the properties of the class.";
      throw FdoSchemaException::Create(message.c_str());
    }
  }
  BeginChange();
  m_geometry.current = FDO_SAFE_ADDREF(value);
}

void FdoFeatureClass::KeepValues() {
  FdoClassDefinition::KeepValues();
  m_geometry.Keep();
}

void FdoFeatureClass::AcceptValues() {
  FdoClassDefinition::AcceptValues();
  m_geometry.Accept();
  if (m_geometry.current != nullptr &&
      m_geometry.current->GetElementState() == FdoSchemaElementState_Detached) {
    m_geometry.current = nullptr;
  }
}

void FdoFeatureClass::RejectValues() {
  FdoClassDefinition::RejectValues();
  m_geometry.Reject();
}

void FdoFeatureClass::PropertyLeft(FdoPropertyDefinition* property) {
  FdoClassDefinition::PropertyLeft(property);
  if (m_geometry.current.p == property) m_geometry.current = nullptr;
}
