// Counts the allocations of a test program, so that a test can show that an operation gives back all that
// it took, also when it fails, or that it takes nothing. Linked into a test, it replaces operator new.
//
// On Windows the SDK's library has an operator new of its own, which is not seen here.
#ifndef SDK_RUNTIME_CORE_LIVE_ALLOCATIONS_H_
#define SDK_RUNTIME_CORE_LIVE_ALLOCATIONS_H_

namespace fdo_sdk {

// Those that are alive, and all that there have been.
// Threads: any.
long long LiveAllocations();
long long AllocationsSoFar();

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_CORE_LIVE_ALLOCATIONS_H_
