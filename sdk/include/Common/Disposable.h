// FdoDisposable supplies Dispose as deletion.
#ifndef COMMON_DISPOSABLE_H_
#define COMMON_DISPOSABLE_H_

#include "Common/IDisposable.h"

// Deliberate: FdoIDisposable is a virtual base here, so a cast down from it needs dynamic_cast.
class FDO_API_COMMON FdoDisposable : public virtual FdoIDisposable {
 protected:
  FdoDisposable();
  ~FdoDisposable() override;
  void Dispose() override;
};

#endif  // COMMON_DISPOSABLE_H_
