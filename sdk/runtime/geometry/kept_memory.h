// Memory for objects that are made and ended by the row: what one gives back, the next one takes.
#ifndef SDK_RUNTIME_GEOMETRY_KEPT_MEMORY_H_
#define SDK_RUNTIME_GEOMETRY_KEPT_MEMORY_H_

#include <cstddef>

namespace fdo_sdk {

// Each thread keeps what was given back on it, up to a number of pieces of each size, until it ends. Under a
// sanitizer, which could not see a leak or a use after the end otherwise, nothing is kept. Gives: memory as
// operator new does. Errors: throws std::bad_alloc. Threads: any.
void* TakeMemory(std::size_t size);

// Requires: memory is null or comes from TakeMemory(size), on whichever thread.
// Threads: any.
void KeepMemory(void* memory, std::size_t size) noexcept;

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_GEOMETRY_KEPT_MEMORY_H_
