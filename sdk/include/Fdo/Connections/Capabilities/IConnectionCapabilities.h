// What a connection supports as a whole.
#ifndef FDO_CONNECTIONS_CAPABILITIES_I_CONNECTION_CAPABILITIES_H_
#define FDO_CONNECTIONS_CAPABILITIES_I_CONNECTION_CAPABILITIES_H_

#include "Fdo/Commands/Locking/LockType.h"
#include "Fdo/Commands/SpatialContext/SpatialContextExtentType.h"
#include "Fdo/Connections/Capabilities/ThreadCapability.h"
#include "Fdo/Expression/JoinType.h"
#include "FdoStd.h"

// Borrowed: arrays, while the capabilities object lives.
class FDO_API FdoIConnectionCapabilities : public FdoIDisposable {
 public:
  virtual FdoThreadCapability GetThreadCapability() = 0;
  virtual FdoSpatialContextExtentType* GetSpatialContextTypes(FdoInt32& length) = 0;
  virtual bool SupportsLocking() = 0;
  virtual FdoLockType* GetLockTypes(FdoInt32& size) = 0;
  virtual bool SupportsTimeout() = 0;
  virtual bool SupportsTransactions() = 0;
  virtual bool SupportsSavePoint() = 0;
  virtual bool SupportsLongTransactions() = 0;
  virtual bool SupportsSQL() = 0;
  virtual bool SupportsConfiguration() = 0;
  virtual bool SupportsMultipleSpatialContexts() = 0;
  virtual bool SupportsCSysWKTFromCSysName() = 0;
  virtual bool SupportsWrite() = 0;
  virtual bool SupportsMultiUserWrite() = 0;
  virtual bool SupportsFlush() = 0;
  virtual bool SupportsJoins() const { return false; }
  virtual FdoInt32 GetJoinTypes() const { return FdoJoinType_None; }
  virtual bool SupportsSubSelects() const { return false; }
};

#endif  // FDO_CONNECTIONS_CAPABILITIES_I_CONNECTION_CAPABILITIES_H_
