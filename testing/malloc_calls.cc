#include "testing/malloc_calls.h"

#include <atomic>
#include <cstddef>

namespace {

std::atomic<long long> calls{0};

}  // namespace

long long fdo::MallocCalls() { return calls; }

// The names are the linker's.
extern "C" {
void* __real_malloc(std::size_t size);
void* __wrap_malloc(std::size_t size);

void* __wrap_malloc(std::size_t size) {
  ++calls;
  return __real_malloc(size);
}
}
