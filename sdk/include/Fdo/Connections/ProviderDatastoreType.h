// Where the data stores of a provider are.
#ifndef FDO_CONNECTIONS_PROVIDER_DATASTORE_TYPE_H_
#define FDO_CONNECTIONS_PROVIDER_DATASTORE_TYPE_H_

enum FdoProviderDatastoreType {
  FdoProviderDatastoreType_DatabaseServer = 0,
  FdoProviderDatastoreType_File = 1,
  FdoProviderDatastoreType_WebServer = 2,
  FdoProviderDatastoreType_Unknown = 3
};

#endif  // FDO_CONNECTIONS_PROVIDER_DATASTORE_TYPE_H_
