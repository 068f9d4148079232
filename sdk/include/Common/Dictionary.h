// FdoDictionary is a collection of named values.
#ifndef COMMON_DICTIONARY_H_
#define COMMON_DICTIONARY_H_

#include "Common/DictionaryElement.h"
#include "Common/NamedCollection.h"

class FDO_API_COMMON FdoDictionary : public FdoNamedCollection<FdoDictionaryElement, FdoException> {
 public:
  // Gives: one reference.
  static FdoDictionary* Create();

 protected:
  FdoDictionary();
  ~FdoDictionary() override;
  void Dispose() override;
};

typedef FdoPtr<FdoDictionary> FdoDictionaryP;

#endif  // COMMON_DICTIONARY_H_
