// Counts the allocations of a test program, so that a test can show that an operation gives back all that
// it took, also when it fails, or that it takes nothing. What operator new takes counts, in the program and
// in the libraries that it uses. Every platform implements exactly this.
#ifndef PORT_LIVE_ALLOCATIONS_H_
#define PORT_LIVE_ALLOCATIONS_H_

namespace fdo::port {

// Those that are alive, and all that there have been.
// Threads: any.
long long LiveAllocations();
long long AllocationsSoFar();

// Makes the nth allocation from now on fail, as when there is no memory; none for 0. Gives whether the one that
// was to fail before has failed, or none was.
bool FailAllocation(long long n);

}  // namespace fdo::port

#endif  // PORT_LIVE_ALLOCATIONS_H_
