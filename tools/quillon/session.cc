#include "tools/quillon/session.h"

#include "tools/quillon/messages.h"

namespace fdo::tool {

void Session::ForgiveDiagnostics() {
  if (verbose) {
    ShowDiagnostics();
  } else {
    diagnostics.Take();
  }
}

bool Session::ShowDiagnostics() {
  auto const lines = diagnostics.Take();
  for (auto const& line : lines) console.Note(OneLine(line));
  return !lines.empty();
}

}  // namespace fdo::tool
