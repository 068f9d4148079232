#define WIN32_LEAN_AND_MEAN
#include <windows.h>
// shellapi.h needs the types of windows.h.
#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

#include "port/console.h"

namespace fdo::port {

void PrepareStandardStreams() {
  _setmode(_fileno(stdout), _O_BINARY);
  SetConsoleOutputCP(CP_UTF8);
}

bool IsTerminal(std::FILE* stream) { return _isatty(_fileno(stream)) != 0; }

std::vector<std::string> ProgramArguments(int, char const* const*) {
  int count = 0;
  wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) {
    int const size = WideCharToMultiByte(CP_UTF8, 0, wide[i], -1, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(size > 0 ? size : 1), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide[i], -1, utf8.data(), size, nullptr, nullptr);
    utf8.pop_back();  // the terminator
    arguments.push_back(std::move(utf8));
  }
  LocalFree(wide);
  return arguments;
}

unsigned long ProcessId() { return GetCurrentProcessId(); }

}  // namespace fdo::port
