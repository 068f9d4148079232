#include "port/file.h"

#include <unistd.h>

#include <cstdlib>
#include <cwchar>
#include <filesystem>

namespace fdo::port {

std::FILE* OpenFile(std::string const& name, char const* mode) { return std::fopen(name.c_str(), mode); }

std::int64_t FilePosition(std::FILE* file) { return ftello(file); }

bool SetFilePosition(std::FILE* file, std::int64_t position) { return fseeko(file, position, SEEK_SET) == 0; }

bool CutFile(std::FILE* file, std::int64_t length) {
  return std::fflush(file) == 0 && ftruncate(fileno(file), length) == 0;
}

bool OpenFilesCanMove() { return true; }

bool MayWriteFile(wchar_t const* name) {
  static_assert(sizeof(wchar_t) == sizeof(char32_t), "a wide character is a code point");
  try {
    // By way of UTF-32, because what becomes of wide text depends on the locale.
    std::filesystem::path const path(std::u32string(name, name + std::wcslen(name)));
    return access(path.c_str(), W_OK) == 0;
  } catch (std::filesystem::filesystem_error const&) {
    return false;  // No file can have a name that is no text.
  }
}

std::string EnvironmentVariable(char const* name) {
  char const* value = std::getenv(name);
  return value == nullptr ? std::string() : std::string(value);
}

}  // namespace fdo::port
