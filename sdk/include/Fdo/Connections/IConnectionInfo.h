// What a connection tells about its provider.
#ifndef FDO_CONNECTIONS_I_CONNECTION_INFO_H_
#define FDO_CONNECTIONS_I_CONNECTION_INFO_H_

#include "Fdo/Connections/ProviderDatastoreType.h"
#include "FdoStd.h"

class FdoIConnectionPropertyDictionary;
class FdoStringCollection;

class FDO_API FdoIConnectionInfo : public FdoIDisposable {
 public:
  virtual FdoString* GetProviderName() = 0;
  virtual FdoString* GetProviderDisplayName() = 0;
  virtual FdoString* GetProviderDescription() = 0;
  virtual FdoString* GetProviderVersion() = 0;
  virtual FdoString* GetFeatureDataObjectsVersion() = 0;

  // Gives: one reference. What is set there changes the connection string.
  virtual FdoIConnectionPropertyDictionary* GetConnectionProperties() = 0;

  virtual FdoProviderDatastoreType GetProviderDatastoreType() = 0;

  // Gives: one reference, or null when the provider does not work on files.
  virtual FdoStringCollection* GetDependentFileNames() = 0;
};

#endif  // FDO_CONNECTIONS_I_CONNECTION_INFO_H_
