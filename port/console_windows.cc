#include <windows.h>
// shellapi.h needs the types of windows.h.
#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

#include <csignal>

#include "port/console.h"
#include "port/utf16_windows.h"

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
  for (int i = 1; i < count; ++i) arguments.push_back(Utf8FromUtf16(wide[i]));
  LocalFree(wide);
  return arguments;
}

// SIGBREAK is also what comes of closing the console.
std::vector<int> RequestsToEnd() { return {SIGINT, SIGTERM, SIGBREAK}; }

unsigned long ProcessId() { return GetCurrentProcessId(); }

}  // namespace fdo::port
