// Errors of operations on data of different spatial contexts.
#ifndef FDO_COMMANDS_SPATIAL_CONTEXT_SPATIAL_CONTEXT_MISMATCH_EXCEPTION_H_
#define FDO_COMMANDS_SPATIAL_CONTEXT_SPATIAL_CONTEXT_MISMATCH_EXCEPTION_H_

#include "FdoStd.h"

class FDO_API FdoSpatialContextMismatchException : public FdoException {
 public:
  // Gives: one reference, meant to be thrown. The message is copied, the cause shared; each may be null.
  static FdoSpatialContextMismatchException* Create();
  static FdoSpatialContextMismatchException* Create(FdoString* message);
  static FdoSpatialContextMismatchException* Create(FdoString* message, FdoInt64 nativeErrorCode);
  static FdoSpatialContextMismatchException* Create(FdoString* message, FdoException* cause);
  static FdoSpatialContextMismatchException* Create(FdoString* message, FdoException* cause,
                                                    FdoInt64 nativeErrorCode);

 protected:
  FdoSpatialContextMismatchException();
  FdoSpatialContextMismatchException(FdoString* message, FdoException* cause = nullptr,
                                     FdoInt64 nativeErrorCode = 0);
  ~FdoSpatialContextMismatchException() override;
};

#endif  // FDO_COMMANDS_SPATIAL_CONTEXT_SPATIAL_CONTEXT_MISMATCH_EXCEPTION_H_
