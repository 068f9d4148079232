#include <signal.h>
#include <unistd.h>

#include "port/console.h"

namespace fdo::port {

void PrepareStandardStreams() {
  signal(SIGPIPE, SIG_IGN);
  signal(SIGXFSZ, SIG_IGN);  // a file that may not grow is a write error, too
}

bool IsTerminal(std::FILE* stream) { return isatty(fileno(stream)) != 0; }

std::vector<std::string> ProgramArguments(int argc, char const* const* argv) {
  return argc > 0 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

std::vector<int> RequestsToEnd() { return {SIGINT, SIGTERM, SIGHUP}; }

unsigned long ProcessId() { return static_cast<unsigned long>(getpid()); }

}  // namespace fdo::port
