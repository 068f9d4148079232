// FdoVector is a collection of numbers, each wrapped in a counted element.
#ifndef COMMON_VECTOR_H_
#define COMMON_VECTOR_H_

#include "Common/Collection.h"
#include "Common/Disposable.h"

// One number as a counted object.
class FDO_API_COMMON FdoVectorElement : public FdoDisposable {
 public:
  // Gives: one reference.
  static FdoVectorElement* Create(FdoDouble value);

  FdoDouble GetValue() const;

 protected:
  explicit FdoVectorElement(FdoDouble value);
  ~FdoVectorElement() override;

 private:
  FdoDouble m_value;
};

class FDO_API_COMMON FdoVector : public FdoCollection<FdoVectorElement, FdoException> {
 public:
  // Gives: one reference.
  static FdoVector* Create();

 protected:
  FdoVector();
  ~FdoVector() override;
  void Dispose() override;
};

typedef FdoPtr<FdoVectorElement> FdoVectorElementP;
typedef FdoPtr<FdoVector> FdoVectorP;

#endif  // COMMON_VECTOR_H_
