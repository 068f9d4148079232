// FdoUniqueConstraint says that no two objects of a class agree in all of some properties.
#ifndef FDO_SCHEMA_UNIQUE_CONSTRAINT_H_
#define FDO_SCHEMA_UNIQUE_CONSTRAINT_H_

#include "FdoStd.h"

class FdoDataPropertyDefinitionCollection;

class FDO_API FdoUniqueConstraint : public FdoIDisposable {
 public:
  // Gives: one reference.
  static FdoUniqueConstraint* Create();

  // Gives: one reference; changes act on the constraint.
  FdoDataPropertyDefinitionCollection* GetProperties();

 protected:
  FdoUniqueConstraint();
  ~FdoUniqueConstraint() override;
  void Dispose() override;

 private:
  FdoPtr<FdoDataPropertyDefinitionCollection> m_properties;
};

#endif  // FDO_SCHEMA_UNIQUE_CONSTRAINT_H_
