// The settings that a connection string is made of.
#ifndef FDO_CONNECTIONS_I_CONNECTION_PROPERTY_DICTIONARY_H_
#define FDO_CONNECTIONS_I_CONNECTION_PROPERTY_DICTIONARY_H_

#include "Fdo/Connections/IPropertyDictionary.h"
#include "FdoStd.h"

class FDO_API FdoIConnectionPropertyDictionary : public FdoIPropertyDictionary {};

#endif  // FDO_CONNECTIONS_I_CONNECTION_PROPERTY_DICTIONARY_H_
