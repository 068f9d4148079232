#include "port/live_allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<long long> live{0};
std::atomic<long long> soFar{0};
std::atomic<long long> untilFailure{0};

void* Allocate(std::size_t size) {
  if (untilFailure > 0 && --untilFailure == 0) throw std::bad_alloc();
  void* memory = std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) throw std::bad_alloc();
  ++live;
  ++soFar;
  return memory;
}

void Free(void* memory) {
  if (memory == nullptr) return;
  --live;
  std::free(memory);
}

}  // namespace

long long fdo::port::LiveAllocations() { return live; }
long long fdo::port::AllocationsSoFar() { return soFar; }
bool fdo::port::FailAllocation(long long n) { return untilFailure.exchange(n) == 0; }

void* operator new(std::size_t size) { return Allocate(size); }
void* operator new[](std::size_t size) { return Allocate(size); }
void operator delete(void* memory) noexcept { Free(memory); }
void operator delete[](void* memory) noexcept { Free(memory); }
void operator delete(void* memory, std::size_t) noexcept { Free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { Free(memory); }
