// Where the exceptions of the platform end.
#ifndef ACCESS_BOUNDARY_H_
#define ACCESS_BOUNDARY_H_

#include <FdoCommon.h>

#include "access/diagnostics.h"

namespace fdo {

// Runs body, a public operation of a back end, and gives its result. A platform exception is handed
// over as its message, which may be null, to report; it is released, and becomes onFailure.
template <class Result, class Report, class Body>
Result AtBoundaryReporting(Result onFailure, Report report, Body body) {
  try {
    return body();
  } catch (FdoException* raised) {
    FdoPtr<FdoException> const failure(raised);  // takes over the reference
    report(raised->GetExceptionMessage());
    return onFailure;
  }
}

// The same with the message alone on one line.
template <class Result, class Body>
Result AtBoundary(Result onFailure, Body body) {
  return AtBoundaryReporting(
      onFailure, [](FdoString* message) { ReportError(message); }, body);
}

// The same without a line, for an attempt that another way follows.
template <class Result, class Body>
Result AtSilentBoundary(Result onFailure, Body body) {
  return AtBoundaryReporting(
      onFailure, [](FdoString*) {}, body);
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
