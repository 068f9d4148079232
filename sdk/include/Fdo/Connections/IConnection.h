// A connection to one data store, and the maker of its commands.
#ifndef FDO_CONNECTIONS_I_CONNECTION_H_
#define FDO_CONNECTIONS_I_CONNECTION_H_

#include "Fdo/Connections/ConnectionState.h"
#include "FdoStd.h"

class FdoICommand;
class FdoICommandCapabilities;
class FdoIConnectionCapabilities;
class FdoIConnectionInfo;
class FdoIExpressionCapabilities;
class FdoIFilterCapabilities;
class FdoIGeometryCapabilities;
class FdoIRasterCapabilities;
class FdoISchemaCapabilities;
class FdoITopologyCapabilities;
class FdoITransaction;
class FdoIoStream;
class FdoPhysicalSchemaMapping;

// Threads: one at a time, unless the connection's capabilities promise more.
class FDO_API FdoIConnection : public FdoIDisposable {
 public:
  // Give: one reference each.
  virtual FdoIConnectionCapabilities* GetConnectionCapabilities() = 0;
  virtual FdoISchemaCapabilities* GetSchemaCapabilities() = 0;
  virtual FdoICommandCapabilities* GetCommandCapabilities() = 0;
  virtual FdoIFilterCapabilities* GetFilterCapabilities() = 0;
  virtual FdoIExpressionCapabilities* GetExpressionCapabilities() = 0;
  virtual FdoIRasterCapabilities* GetRasterCapabilities() = 0;
  virtual FdoITopologyCapabilities* GetTopologyCapabilities() = 0;
  virtual FdoIGeometryCapabilities* GetGeometryCapabilities() = 0;

  // Borrowed: until the connection string changes.
  virtual FdoString* GetConnectionString() = 0;

  // Requires: the connection is closed, or throws.
  virtual void SetConnectionString(FdoString* value) = 0;

  // Gives: one reference.
  virtual FdoIConnectionInfo* GetConnectionInfo() = 0;

  virtual FdoConnectionState GetConnectionState() = 0;

  // Units: milliseconds; 0 without support for time limits.
  virtual FdoInt32 GetConnectionTimeout() = 0;

  // Errors: throws without support for time limits.
  virtual void SetConnectionTimeout(FdoInt32 value) = 0;

  // Gives the state after the call: Pending when the provider wants further settings and a second Open.
  // Errors: FdoConnectionException*; the connection stays closed.
  virtual FdoConnectionState Open() = 0;

  virtual void Close() = 0;

  // Gives: one reference. Errors: throws without support for transactions.
  virtual FdoITransaction* BeginTransaction() = 0;

  // Gives: one reference, to be cast down to the command's own interface. The numbers are those of
  // FdoCommandType; from FdoCommandType_FirstProviderCommand on they are the provider's own.
  virtual FdoICommand* CreateCommand(FdoInt32 commandType) = 0;

  // Gives: one reference. Errors: throws without support for mappings.
  virtual FdoPhysicalSchemaMapping* CreateSchemaMapping() = 0;

  // Requires: the connection is closed, or throws. The stream may stand anywhere: a provider rewinds it
  // before it reads.
  virtual void SetConfiguration(FdoIoStream* configStream) = 0;

  virtual void Flush() = 0;
};

#endif  // FDO_CONNECTIONS_I_CONNECTION_H_
