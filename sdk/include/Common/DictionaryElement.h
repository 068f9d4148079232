// FdoDictionaryElement is a name with a value.
#ifndef COMMON_DICTIONARY_ELEMENT_H_
#define COMMON_DICTIONARY_ELEMENT_H_

#include "Common/Disposable.h"
#include "Common/Ptr.h"
#include "Common/StringP.h"

class FDO_API_COMMON FdoDictionaryElement : public FdoDisposable {
 public:
  // Gives: one reference.
  static FdoDictionaryElement* Create(FdoString* name, FdoString* value);

  virtual FdoString* GetName();
  virtual FdoBoolean CanSetName();
  virtual FdoString* GetValue();
  virtual void SetValue(FdoString* value);

 protected:
  FdoDictionaryElement();
  FdoDictionaryElement(FdoString* name, FdoString* value);
  ~FdoDictionaryElement() override;

 private:
  FdoStringP m_name;
  FdoStringP m_value;
};

typedef FdoPtr<FdoDictionaryElement> FdoDictionaryElementP;

#endif  // COMMON_DICTIONARY_ELEMENT_H_
