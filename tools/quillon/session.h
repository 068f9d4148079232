#ifndef TOOLS_QUILLON_SESSION_H_
#define TOOLS_QUILLON_SESSION_H_

#include <string>
#include <vector>

#include "tools/quillon/console.h"
#include "tools/quillon/diagnostic_log.h"
#include "tools/quillon/output.h"

namespace fdo::tool {

// What a command works with: where data goes, where messages go, and what the library reports.
struct Session {
  Output& output;
  Console& console;
  DiagnosticLog& diagnostics;
  bool verbose;

  // Takes what the library reported, to be said in other words; the user who wants to see everything is
  // shown it as well.
  std::vector<std::string> TakeDiagnostics();
  // Drops what the library reported on the way to something that then succeeded, or shows it when the
  // user wants to see everything.
  void ForgiveDiagnostics();
  // Shows what the library reported; returns whether there was anything.
  bool ShowDiagnostics();
};

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_SESSION_H_
