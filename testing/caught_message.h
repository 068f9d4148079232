// What a call throws, for tests that pin a message.
#ifndef TESTING_CAUGHT_MESSAGE_H_
#define TESTING_CAUGHT_MESSAGE_H_

#include <FdoCommon.h>

#include <string>

namespace fdo {

// The message of the platform exception that call() throws, which is released; empty when it returns.
template <class Call>
std::wstring CaughtMessage(Call call) {
  try {
    call();
  } catch (FdoException* raised) {
    FdoPtr<FdoException> const failure(raised);
    return failure->GetExceptionMessage();
  }
  return {};
}

}  // namespace fdo

#endif  // TESTING_CAUGHT_MESSAGE_H_
