// FdoClass is a class without geometry.
#ifndef FDO_SCHEMA_CLASS_H_
#define FDO_SCHEMA_CLASS_H_

#include "Fdo/Schema/ClassDefinition.h"

class FDO_API FdoClass : public FdoClassDefinition {
 public:
  // Give: one reference.
  static FdoClass* Create();
  static FdoClass* Create(FdoString* name, FdoString* description);

  FdoClassType GetClassType() override;

 protected:
  FdoClass();
  FdoClass(FdoString* name, FdoString* description);
  ~FdoClass() override;
  void Dispose() override;
};

typedef FdoPtr<FdoClass> FdoClassP;

#endif  // FDO_SCHEMA_CLASS_H_
