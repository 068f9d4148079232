// Where the exceptions of the platform end.
#ifndef ACCESS_BOUNDARY_H_
#define ACCESS_BOUNDARY_H_

#include <FdoCommon.h>

#include "access/diagnostics.h"

namespace fdo {

// Runs body, a public operation of a back end, and gives its result. A platform exception is reported
// on one line, released, and becomes onFailure.
template <class Result, class Body>
Result AtBoundary(Result onFailure, Body body) {
  try {
    return body();
  } catch (FdoException* raised) {
    FdoPtr<FdoException> const failure(raised);  // takes over the reference
    // A message may be missing; ReportError knows that.
    ReportError(raised->GetExceptionMessage());
    return onFailure;
  }
}

// The same without the line, for an attempt that another way follows.
template <class Result, class Body>
Result AtSilentBoundary(Result onFailure, Body body) {
  try {
    return body();
  } catch (FdoException* raised) {
    FdoPtr<FdoException> const failure(raised);
    return onFailure;
  }
}

// For operations without a result.
template <class Body>
void AtBoundary(Body body) {
  AtBoundary(false, [&body] {
    body();
    return true;
  });
}

}  // namespace fdo

#endif  // ACCESS_BOUNDARY_H_
