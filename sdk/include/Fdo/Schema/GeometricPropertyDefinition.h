// FdoGeometricPropertyDefinition is a property that holds geometry.
#ifndef FDO_SCHEMA_GEOMETRIC_PROPERTY_DEFINITION_H_
#define FDO_SCHEMA_GEOMETRIC_PROPERTY_DEFINITION_H_

#include <vector>

#include "Common/GeometryType.h"
#include "Fdo/Schema/GeometricType.h"
#include "Fdo/Schema/PropertyDefinition.h"

// The most entries that the arrays of types can have.
#define MAX_GEOMETRY_TYPE_SIZE 12
#define MAX_GEOMETRIC_TYPE_SIZE 4

class FDO_API FdoGeometricPropertyDefinition : public FdoPropertyDefinition {
 public:
  // Give: one reference.
  static FdoGeometricPropertyDefinition* Create();
  static FdoGeometricPropertyDefinition* Create(FdoString* name, FdoString* description, bool system = false);

  FdoPropertyType GetPropertyType() override;

  bool GetReadOnly();
  void SetReadOnly(bool value);

  // Whether positions have Z, and M.
  bool GetHasElevation();
  void SetHasElevation(bool value);

  bool GetHasMeasure();
  void SetHasMeasure(bool value);

  // The name of a spatial context; empty for no particular one, which means the active one.
  void SetSpatialContextAssociation(FdoString* value);
  FdoString* GetSpatialContextAssociation();

  // Bits of FdoGeometricType. Setting them allows every type of geometry of those kinds.
  FdoInt32 GetGeometryTypes();
  void SetGeometryTypes(FdoInt32 value);

  // The types of geometry themselves. Setting them sets the kinds that they belong to.
  // Borrowed: the array, until the types are set again or asked for again.
  // Errors: FdoSchemaException* for a type that is no type of geometry.
  FdoGeometryType* GetSpecificGeometryTypes(FdoInt32& length);
  void SetSpecificGeometryTypes(FdoGeometryType* types, FdoInt32 length);

  // The same as bits, 1 << type; not for programs.
  FdoInt32 GetSpecificGeometryTypes();

 protected:
  FdoGeometricPropertyDefinition();
  FdoGeometricPropertyDefinition(FdoString* name, FdoString* description, bool system);
  ~FdoGeometricPropertyDefinition() override;
  void Dispose() override;
  void KeepValues() override;
  void AcceptValues() override;
  void RejectValues() override;

 private:
  struct Values {
    bool readOnly = false;
    bool hasElevation = false;
    bool hasMeasure = false;
    FdoStringP spatialContext;
    FdoInt32 geometricTypes = FdoGeometricType_All;
    FdoInt32 specificTypes = 0x3CFE;  // every type
  };

  FdoInternal::Tracked<Values> m_values;
  std::vector<FdoGeometryType> m_typeArray;
};

typedef FdoPtr<FdoGeometricPropertyDefinition> FdoGeometricPropertyDefinitionP;

#endif  // FDO_SCHEMA_GEOMETRIC_PROPERTY_DEFINITION_H_
