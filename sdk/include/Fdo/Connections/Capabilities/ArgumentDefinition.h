// FdoArgumentDefinition describes one argument of a function.
#ifndef FDO_CONNECTIONS_CAPABILITIES_ARGUMENT_DEFINITION_H_
#define FDO_CONNECTIONS_CAPABILITIES_ARGUMENT_DEFINITION_H_

#include "Fdo/Schema/DataType.h"
#include "Fdo/Schema/PropertyType.h"
#include "FdoStd.h"

class FdoPropertyValueConstraintList;

class FDO_API FdoArgumentDefinition : public FdoIDisposable {
 public:
  // Give: one reference. The first form describes a data value.
  static FdoArgumentDefinition* Create(FdoString* name, FdoString* description, FdoDataType dataType);
  static FdoArgumentDefinition* Create(FdoString* name, FdoString* description, FdoPropertyType propertyType,
                                       FdoDataType dataType);

  FdoString* GetName();
  FdoString* GetDescription();
  FdoPropertyType GetPropertyType();
  // Of data values only.
  FdoDataType GetDataType();

  // The values that are allowed, when that is not every one. Gives: one reference, or null.
  FdoPropertyValueConstraintList* GetArgumentValueList();
  void SetArgumentValueList(FdoPropertyValueConstraintList* argumentValueList);

 protected:
  FdoArgumentDefinition(FdoString* name, FdoString* description, FdoPropertyType propertyType,
                        FdoDataType dataType);
  ~FdoArgumentDefinition() override;
  void Dispose() override;

 private:
  FdoStringP m_name;
  FdoStringP m_description;
  FdoPropertyType m_propertyType;
  FdoDataType m_dataType;
  FdoPtr<FdoPropertyValueConstraintList> m_values;
};

#endif  // FDO_CONNECTIONS_CAPABILITIES_ARGUMENT_DEFINITION_H_
