// Errors of schemas.
#ifndef FDO_SCHEMA_SCHEMA_EXCEPTION_H_
#define FDO_SCHEMA_SCHEMA_EXCEPTION_H_

#include "FdoStd.h"

class FDO_API FdoSchemaException : public FdoException {
 public:
  // Gives: one reference, meant to be thrown. The message is copied, the cause shared; each may be null.
  static FdoSchemaException* Create();
  static FdoSchemaException* Create(FdoString* message);
  static FdoSchemaException* Create(FdoString* message, FdoInt64 nativeErrorCode);
  static FdoSchemaException* Create(FdoString* message, FdoException* cause);
  static FdoSchemaException* Create(FdoString* message, FdoException* cause, FdoInt64 nativeErrorCode);

 protected:
  FdoSchemaException();
  FdoSchemaException(FdoString* message, FdoException* cause = nullptr, FdoInt64 nativeErrorCode = 0);
  ~FdoSchemaException() override;
};

#endif  // FDO_SCHEMA_SCHEMA_EXCEPTION_H_
