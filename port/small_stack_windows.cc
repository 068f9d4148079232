#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <new>

#include "port/small_stack.h"

namespace fdo::port {
namespace {

struct Call {
  void (*body)(void*);
  void* context;
};

DWORD WINAPI RunCall(void* argument) {
  Call const* const call = static_cast<Call const*>(argument);
  call->body(call->context);
  return 0;
}

}  // namespace

void RunOnStack(std::size_t stackBytes, void (*body)(void* context), void* context) {
  Call call{body, context};
  HANDLE const thread =
      CreateThread(nullptr, stackBytes, RunCall, &call, STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr);
  if (thread == nullptr) throw std::bad_alloc();
  WaitForSingleObject(thread, INFINITE);
  CloseHandle(thread);
}

}  // namespace fdo::port
