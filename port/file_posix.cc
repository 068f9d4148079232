#include "port/file.h"

#include <unistd.h>

#include <cstdlib>

namespace fdo::port {

std::FILE* OpenFile(std::string const& name, char const* mode) { return std::fopen(name.c_str(), mode); }

std::int64_t FilePosition(std::FILE* file) { return ftello(file); }

bool SetFilePosition(std::FILE* file, std::int64_t position) { return fseeko(file, position, SEEK_SET) == 0; }

bool CutFile(std::FILE* file, std::int64_t length) {
  return std::fflush(file) == 0 && ftruncate(fileno(file), length) == 0;
}

std::string EnvironmentVariable(char const* name) {
  char const* value = std::getenv(name);
  return value == nullptr ? std::string() : std::string(value);
}

}  // namespace fdo::port
