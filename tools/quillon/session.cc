#include "tools/quillon/session.h"

#include "tools/quillon/messages.h"

namespace fdo::tool {

std::vector<std::string> Session::TakeDiagnostics() {
  auto lines = diagnostics.Take();
  if (verbose) {
    for (auto const& line : lines) console.Note(OneLine(line));
  }
  return lines;
}

void Session::ForgiveDiagnostics() { TakeDiagnostics(); }

bool Session::ShowDiagnostics() {
  auto const lines = diagnostics.Take();
  for (auto const& line : lines) console.Note(OneLine(line));
  return !lines.empty();
}

}  // namespace fdo::tool
