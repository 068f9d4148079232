#include <cstdlib>
#include <fstream>
#include <string>

#include "port/process_memory.h"

namespace fdo::port {

std::int64_t ResidentBytes() {
  // Linux: a line "VmRSS:     1234 kB".
  constexpr char kLabel[] = "VmRSS:";
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.compare(0, sizeof(kLabel) - 1, kLabel) != 0) continue;
    return std::strtoll(line.c_str() + sizeof(kLabel) - 1, nullptr, 10) * 1024;
  }
  return -1;
}

}  // namespace fdo::port
