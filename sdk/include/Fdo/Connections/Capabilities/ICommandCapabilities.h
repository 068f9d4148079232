// Which commands a provider has, and what they support.
#ifndef FDO_CONNECTIONS_CAPABILITIES_I_COMMAND_CAPABILITIES_H_
#define FDO_CONNECTIONS_CAPABILITIES_I_COMMAND_CAPABILITIES_H_

#include "FdoStd.h"

class FDO_API FdoICommandCapabilities : public FdoIDisposable {
 public:
  // Borrowed: while the capabilities object lives.
  virtual FdoInt32* GetCommands(FdoInt32& size) = 0;

  virtual bool SupportsParameters() = 0;
  virtual bool SupportsTimeout() = 0;
  virtual bool SupportsSelectExpressions() = 0;
  virtual bool SupportsSelectFunctions() = 0;
  virtual bool SupportsSelectDistinct() = 0;
  virtual bool SupportsSelectOrdering() = 0;
  virtual bool SupportsSelectGrouping() = 0;
};

#endif  // FDO_CONNECTIONS_CAPABILITIES_I_COMMAND_CAPABILITIES_H_
