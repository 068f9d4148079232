// Errors of values that the data store makes itself.
#ifndef FDO_SCHEMA_AUTOGENERATION_EXCEPTION_H_
#define FDO_SCHEMA_AUTOGENERATION_EXCEPTION_H_

#include "Fdo/Schema/SchemaException.h"

class FDO_API FdoAutogenerationException : public FdoSchemaException {
 public:
  // Gives: one reference, meant to be thrown. The message is copied, the cause shared; each may be null.
  static FdoAutogenerationException* Create();
  static FdoAutogenerationException* Create(FdoString* message);
  static FdoAutogenerationException* Create(FdoString* message, FdoInt64 nativeErrorCode);
  static FdoAutogenerationException* Create(FdoString* message, FdoException* cause);
  static FdoAutogenerationException* Create(FdoString* message, FdoException* cause,
                                            FdoInt64 nativeErrorCode);

 protected:
  FdoAutogenerationException();
  FdoAutogenerationException(FdoString* message, FdoException* cause = nullptr, FdoInt64 nativeErrorCode = 0);
  ~FdoAutogenerationException() override;
};

#endif  // FDO_SCHEMA_AUTOGENERATION_EXCEPTION_H_
