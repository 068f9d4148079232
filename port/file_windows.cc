#include "port/file.h"

#include <io.h>

#include "port/utf16_windows.h"

namespace fdo::port {

std::FILE* OpenFile(std::string const& name, char const* mode) {
  return _wfopen(Utf16FromUtf8(name).c_str(), Utf16FromUtf8(mode).c_str());
}

std::int64_t FilePosition(std::FILE* file) { return _ftelli64(file); }

bool SetFilePosition(std::FILE* file, std::int64_t position) {
  return _fseeki64(file, position, SEEK_SET) == 0;
}

bool CutFile(std::FILE* file, std::int64_t length) {
  return std::fflush(file) == 0 && _chsize_s(_fileno(file), length) == 0;
}

// They can where every opener allows it, which the C library and SQLite do not.
bool OpenFilesCanMove() { return false; }

bool MayWriteFile(wchar_t const* name) {
  constexpr int kWritePermission = 2;
  return _waccess(name, kWritePermission) == 0;
}

std::string EnvironmentVariable(char const* name) {
  wchar_t const* value = _wgetenv(Utf16FromUtf8(name).c_str());
  return value == nullptr ? std::string() : Utf8FromUtf16(value);
}

}  // namespace fdo::port
