// What all commands of a connection have in common.
#ifndef FDO_COMMANDS_I_COMMAND_H_
#define FDO_COMMANDS_I_COMMAND_H_

#include "FdoStd.h"

class FdoIConnection;
class FdoITransaction;
class FdoParameterValueCollection;

// Commands are set up, executed, and may be executed again.
class FDO_API FdoICommand : public FdoIDisposable {
 public:
  // Gives: one reference.
  virtual FdoIConnection* GetConnection() = 0;

  // Gives: one reference, or null.
  virtual FdoITransaction* GetTransaction() = 0;

  virtual void SetTransaction(FdoITransaction* value) = 0;
  virtual FdoInt32 GetCommandTimeout() = 0;

  // Throws when unsupported.
  virtual void SetCommandTimeout(FdoInt32 value) = 0;

  // Gives: one reference; changes act on the command.
  virtual FdoParameterValueCollection* GetParameterValues() = 0;

  virtual void Prepare() = 0;
  virtual void Cancel() = 0;
};

#endif  // FDO_COMMANDS_I_COMMAND_H_
