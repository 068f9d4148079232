// Counts the allocations of a test program that are alive, so that a test can show that an operation
// gives back all that it took, also when it fails. Linked into a test, it replaces operator new.
//
// On Windows the SDK's library has an operator new of its own, which is not seen here.
#ifndef SDK_RUNTIME_CORE_LIVE_ALLOCATIONS_H_
#define SDK_RUNTIME_CORE_LIVE_ALLOCATIONS_H_

namespace fdo_sdk {

// Threads: any.
long long LiveAllocations();

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_CORE_LIVE_ALLOCATIONS_H_
