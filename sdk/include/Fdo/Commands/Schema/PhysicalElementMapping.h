// How an element of a schema is stored, as far as a provider lets programs decide that.
#ifndef FDO_COMMANDS_SCHEMA_PHYSICAL_ELEMENT_MAPPING_H_
#define FDO_COMMANDS_SCHEMA_PHYSICAL_ELEMENT_MAPPING_H_

#include "FdoStd.h"

class FdoPhysicalSchemaMapping;

class FDO_API FdoPhysicalElementMapping : public FdoIDisposable {
 public:
  // Give: one reference each, or null. An element has a parent from when it is put into its mapping.
  virtual FdoPhysicalElementMapping* GetParent();
  virtual FdoPhysicalSchemaMapping* GetSchemaMapping();

  virtual FdoString* GetName();
  // The name behind those of the parents, separated by periods.
  virtual FdoStringP GetQualifiedName();
  virtual void SetName(FdoString* value);
  virtual FdoBoolean CanSetName();

 protected:
  FdoPhysicalElementMapping();
  explicit FdoPhysicalElementMapping(FdoString* name);
  ~FdoPhysicalElementMapping() override;

  // Borrowed: a parent clears itself here before it ends.
  virtual void SetParent(FdoPhysicalElementMapping* value);

 private:
  FdoStringP m_name;
  FdoPhysicalElementMapping* m_parent;  // not counted: the parent holds this
};

#endif  // FDO_COMMANDS_SCHEMA_PHYSICAL_ELEMENT_MAPPING_H_
