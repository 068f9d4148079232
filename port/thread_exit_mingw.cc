// At the end of a thread mingw's libraries free the memory of its thread_local objects before they destroy
// the objects, when the memory was asked for first in the program: each is a key of the thread, and keys end
// in the order in which they were made. Destroying something on the first thread, before anything else runs,
// makes that key the first.
#include <cxxabi.h>

namespace {

void DestroyNothing(void*) {}

struct DestroysFirst {
  DestroysFirst() { abi::__cxa_thread_atexit(&DestroyNothing, nullptr, this); }
};

DestroysFirst const destroysFirst;

}  // namespace
