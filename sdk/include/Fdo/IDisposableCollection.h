// FdoIDisposableCollection is a collection of objects of any class.
#ifndef FDO_I_DISPOSABLE_COLLECTION_H_
#define FDO_I_DISPOSABLE_COLLECTION_H_

#include "FdoStd.h"

class FDO_API FdoIDisposableCollection : public FdoCollection<FdoIDisposable, FdoException> {
 public:
  // Gives: one reference.
  static FdoIDisposableCollection* Create();

 protected:
  FdoIDisposableCollection();
  ~FdoIDisposableCollection() override;
  void Dispose() override;
};

#endif  // FDO_I_DISPOSABLE_COLLECTION_H_
