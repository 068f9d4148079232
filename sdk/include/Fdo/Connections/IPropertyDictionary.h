// Named settings of a connection or a data store, with what is known about each.
#ifndef FDO_CONNECTIONS_I_PROPERTY_DICTIONARY_H_
#define FDO_CONNECTIONS_I_PROPERTY_DICTIONARY_H_

#include "FdoStd.h"

// Errors: FdoException* for a name that is not in the dictionary.
// Borrowed: every text and array, until the dictionary changes or ends.
class FDO_API FdoIPropertyDictionary : public FdoIDisposable {
 public:
  // Borrowed: the array, until the dictionary changes.
  virtual FdoString** GetPropertyNames(FdoInt32& count) = 0;

  virtual FdoString* GetProperty(FdoString* name) = 0;

  // Requires: the connection is closed, or throws.
  virtual void SetProperty(FdoString* name, FdoString* value) = 0;

  virtual FdoString* GetPropertyDefault(FdoString* name) = 0;
  virtual bool IsPropertyRequired(FdoString* name) = 0;
  virtual bool IsPropertyProtected(FdoString* name) = 0;
  virtual bool IsPropertyEnumerable(FdoString* name) = 0;

  // Borrowed: the array, until the dictionary changes.
  virtual FdoString** EnumeratePropertyValues(FdoString* name, FdoInt32& count) = 0;

  virtual FdoString* GetLocalizedName(FdoString* name) = 0;
  virtual bool IsPropertyFileName(FdoString* name) = 0;
  virtual bool IsPropertyFilePath(FdoString* name) = 0;
  virtual bool IsPropertyDatastoreName(FdoString* name) = 0;
};

#endif  // FDO_CONNECTIONS_I_PROPERTY_DICTIONARY_H_
