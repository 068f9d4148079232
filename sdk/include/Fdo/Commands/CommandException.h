// Errors of commands and readers.
#ifndef FDO_COMMANDS_COMMAND_EXCEPTION_H_
#define FDO_COMMANDS_COMMAND_EXCEPTION_H_

#include "FdoStd.h"

class FDO_API FdoCommandException : public FdoException {
 public:
  // Gives: one reference, meant to be thrown. The message is copied, the cause shared; each may be null.
  static FdoCommandException* Create();
  static FdoCommandException* Create(FdoString* message);
  static FdoCommandException* Create(FdoString* message, FdoInt64 nativeErrorCode);
  static FdoCommandException* Create(FdoString* message, FdoException* cause);
  static FdoCommandException* Create(FdoString* message, FdoException* cause, FdoInt64 nativeErrorCode);

 protected:
  FdoCommandException();
  FdoCommandException(FdoString* message, FdoException* cause = nullptr, FdoInt64 nativeErrorCode = 0);
  ~FdoCommandException() override;
};

#endif  // FDO_COMMANDS_COMMAND_EXCEPTION_H_
