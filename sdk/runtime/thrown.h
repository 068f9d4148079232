// Tests of what the interface throws.
#ifndef SDK_RUNTIME_THROWN_H_
#define SDK_RUNTIME_THROWN_H_

#include <gtest/gtest.h>

#include <string>

#include "FdoCommon.h"

namespace fdo_sdk {

// The message of the exception that the body throws. The test fails when it throws nothing, something
// else than Exception*, or an exception that somebody else holds too.
template <class Exception, class Body>
std::wstring MessageThrownBy(Body body) {
  try {
    body();
  } catch (FdoException* raised) {
    FdoPtr<FdoException> failure(raised);
    EXPECT_NE(dynamic_cast<Exception*>(raised), nullptr) << "an exception of another family";
    EXPECT_EQ(failure->GetRefCount(), 1);
    FdoString* message = failure->GetExceptionMessage();
    return message == nullptr ? std::wstring() : std::wstring(message);
  }
  ADD_FAILURE() << "nothing was thrown";
  return std::wstring();
}

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_THROWN_H_
