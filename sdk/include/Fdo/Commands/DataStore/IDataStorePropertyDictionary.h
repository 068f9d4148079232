// The settings that a data store is made, found or removed by.
#ifndef FDO_COMMANDS_DATA_STORE_I_DATA_STORE_PROPERTY_DICTIONARY_H_
#define FDO_COMMANDS_DATA_STORE_I_DATA_STORE_PROPERTY_DICTIONARY_H_

#include "Fdo/Connections/IPropertyDictionary.h"
#include "FdoStd.h"

// Which names there are is the provider's.
class FDO_API FdoIDataStorePropertyDictionary : public FdoIPropertyDictionary {};

#endif  // FDO_COMMANDS_DATA_STORE_I_DATA_STORE_PROPERTY_DICTIONARY_H_
