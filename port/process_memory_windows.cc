#include <windows.h>
// After windows.h, which it needs.
#include <psapi.h>

#include "port/process_memory.h"

namespace fdo::port {

std::int64_t ResidentBytes() {
  PROCESS_MEMORY_COUNTERS counters{};
  if (!GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof(counters))) return -1;
  return static_cast<std::int64_t>(counters.WorkingSetSize);
}

}  // namespace fdo::port
