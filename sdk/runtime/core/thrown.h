// What a call throws, for tests: the exception is released, so that nothing leaks.
#ifndef SDK_RUNTIME_CORE_THROWN_H_
#define SDK_RUNTIME_CORE_THROWN_H_

#include "Common/Exception.h"

namespace fdo_sdk {

// Whether call() throws an exception of that family.
template <class Family, class Call>
bool Throws(Call call) {
  try {
    call();
  } catch (FdoException* caught) {
    FdoPtr<FdoException> failure(caught);
    return dynamic_cast<Family*>(failure.p) != nullptr;
  }
  return false;
}

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_CORE_THROWN_H_
