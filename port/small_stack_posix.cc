#include <pthread.h>

#include <new>

#include "port/small_stack.h"

namespace fdo::port {
namespace {

struct Call {
  void (*body)(void*);
  void* context;
};

extern "C" void* RunCall(void* argument) {
  Call const* const call = static_cast<Call const*>(argument);
  call->body(call->context);
  return nullptr;
}

}  // namespace

void RunOnStack(std::size_t stackBytes, void (*body)(void* context), void* context) {
  Call call{body, context};
  pthread_attr_t attributes;
  if (pthread_attr_init(&attributes) != 0) throw std::bad_alloc();
  pthread_t thread;
  bool const started = pthread_attr_setstacksize(&attributes, stackBytes) == 0 &&
                       pthread_create(&thread, &attributes, RunCall, &call) == 0;
  pthread_attr_destroy(&attributes);
  if (!started) throw std::bad_alloc();
  pthread_join(thread, nullptr);
}

}  // namespace fdo::port
