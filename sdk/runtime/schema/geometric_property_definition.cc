#include "Fdo/Schema/GeometricPropertyDefinition.h"

#include <string>

namespace {

// Which kinds of geometry each type needs.
struct TypeOfKinds {
  FdoGeometryType type;
  FdoInt32 kinds;
};

constexpr TypeOfKinds kTypes[] = {
    {FdoGeometryType_Point, FdoGeometricType_Point},
    {FdoGeometryType_LineString, FdoGeometricType_Curve},
    {FdoGeometryType_Polygon, FdoGeometricType_Surface},
    {FdoGeometryType_MultiPoint, FdoGeometricType_Point},
    {FdoGeometryType_MultiLineString, FdoGeometricType_Curve},
    {FdoGeometryType_MultiPolygon, FdoGeometricType_Surface},
    {FdoGeometryType_MultiGeometry,
     FdoGeometricType_Point | FdoGeometricType_Curve | FdoGeometricType_Surface},
    {FdoGeometryType_CurveString, FdoGeometricType_Curve},
    {FdoGeometryType_CurvePolygon, FdoGeometricType_Surface},
    {FdoGeometryType_MultiCurveString, FdoGeometricType_Curve},
    {FdoGeometryType_MultiCurvePolygon, FdoGeometricType_Surface},
};
static_assert(sizeof kTypes / sizeof kTypes[0] <= MAX_GEOMETRY_TYPE_SIZE,
              "programs make arrays of that size");

constexpr FdoInt32 BitOf(FdoGeometryType type) { return 1 << type; }

FdoInt32 TypesOfKinds(FdoInt32 kinds) {
  FdoInt32 types = 0;
  for (TypeOfKinds const& row : kTypes) {
    if ((kinds & row.kinds) == row.kinds) types |= BitOf(row.type);
  }
  return types;
}

}  // namespace

FdoGeometricPropertyDefinition* FdoGeometricPropertyDefinition::Create() {
  return new FdoGeometricPropertyDefinition();
}

FdoGeometricPropertyDefinition* FdoGeometricPropertyDefinition::Create(FdoString* name,
                                                                       FdoString* description, bool system) {
  return new FdoGeometricPropertyDefinition(name, description, system);
}

FdoGeometricPropertyDefinition::FdoGeometricPropertyDefinition() = default;

FdoGeometricPropertyDefinition::FdoGeometricPropertyDefinition(FdoString* name, FdoString* description,
                                                               bool system)
    : FdoPropertyDefinition(name, description, system) {}

FdoGeometricPropertyDefinition::~FdoGeometricPropertyDefinition() = default;

void FdoGeometricPropertyDefinition::Dispose() { delete this; }

FdoPropertyType FdoGeometricPropertyDefinition::GetPropertyType() {
  return FdoPropertyType_GeometricProperty;
}

bool FdoGeometricPropertyDefinition::GetReadOnly() { return m_values->readOnly; }

void FdoGeometricPropertyDefinition::SetReadOnly(bool value) {
  BeginChange();
  m_values.current.readOnly = value;
}

bool FdoGeometricPropertyDefinition::GetHasElevation() { return m_values->hasElevation; }

void FdoGeometricPropertyDefinition::SetHasElevation(bool value) {
  BeginChange();
  m_values.current.hasElevation = value;
}

bool FdoGeometricPropertyDefinition::GetHasMeasure() { return m_values->hasMeasure; }

void FdoGeometricPropertyDefinition::SetHasMeasure(bool value) {
  BeginChange();
  m_values.current.hasMeasure = value;
}

FdoString* FdoGeometricPropertyDefinition::GetSpatialContextAssociation() { return m_values->spatialContext; }

void FdoGeometricPropertyDefinition::SetSpatialContextAssociation(FdoString* value) {
  BeginChange();
  m_values.current.spatialContext = value;
}

FdoInt32 FdoGeometricPropertyDefinition::GetGeometryTypes() { return m_values->geometricTypes; }

void FdoGeometricPropertyDefinition::SetGeometryTypes(FdoInt32 value) {
  BeginChange();
  m_values.current.geometricTypes = value;
  m_values.current.specificTypes = TypesOfKinds(value);
}

FdoGeometryType* FdoGeometricPropertyDefinition::GetSpecificGeometryTypes(FdoInt32& length) {
  m_typeArray.clear();
  for (TypeOfKinds const& row : kTypes) {
    if ((m_values->specificTypes & BitOf(row.type)) != 0) m_typeArray.push_back(row.type);
  }
  length = static_cast<FdoInt32>(m_typeArray.size());
  return m_typeArray.data();
}

void FdoGeometricPropertyDefinition::SetSpecificGeometryTypes(FdoGeometryType* types, FdoInt32 length) {
  FdoInt32 kinds = 0;
  FdoInt32 bits = 0;
  for (FdoInt32 i = 0; i < length; ++i) {
    TypeOfKinds const* found = nullptr;
    for (TypeOfKinds const& row : kTypes) {
      if (row.type == types[i]) found = &row;
    }
    if (found == nullptr) {
      std::wstring const message =
          std::to_wstring(static_cast<int>(types[i])) + L" is no type of geometry that a property can hold.";
      throw FdoSchemaException::Create(message.c_str());
    }
    kinds |= found->kinds;
    bits |= BitOf(found->type);
  }
  BeginChange();
  m_values.current.geometricTypes = kinds;
  m_values.current.specificTypes = bits;
}

FdoInt32 FdoGeometricPropertyDefinition::GetSpecificGeometryTypes() { return m_values->specificTypes; }

void FdoGeometricPropertyDefinition::KeepValues() {
  FdoPropertyDefinition::KeepValues();
  m_values.Keep();
}

void FdoGeometricPropertyDefinition::AcceptValues() {
  FdoPropertyDefinition::AcceptValues();
  m_values.Accept();
}

void FdoGeometricPropertyDefinition::RejectValues() {
  FdoPropertyDefinition::RejectValues();
  m_values.Reject();
}
