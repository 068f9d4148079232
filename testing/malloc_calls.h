// Counts the calls of malloc of what is linked into a test program, its own and those of static libraries.
// The test is linked with the linker's option --wrap=malloc; with quillon_port_allocations, too, operator
// new counts.
#ifndef TESTING_MALLOC_CALLS_H_
#define TESTING_MALLOC_CALLS_H_

namespace fdo {

// Threads: any.
long long MallocCalls();

}  // namespace fdo

#endif  // TESTING_MALLOC_CALLS_H_
