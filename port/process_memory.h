// What the running process takes of the machine's memory. Every platform implements exactly this.
#ifndef PORT_PROCESS_MEMORY_H_
#define PORT_PROCESS_MEMORY_H_

#include <cstdint>

namespace fdo::port {

// The bytes that are in memory now.
// Errors: -1 when the platform does not say.
std::int64_t ResidentBytes();

}  // namespace fdo::port

#endif  // PORT_PROCESS_MEMORY_H_
