#include "tools/quillon/session.h"

#include "tools/quillon/messages.h"

namespace fdo::tool {

namespace {

void Show(DiagnosticLog::Line const& line, Console& console) {
  std::string const times = line.times > 1 ? " (" + std::to_string(line.times) + " times)" : "";
  console.Note(OneLine(line.text) + times);
}

}  // namespace

std::vector<std::string> Session::TakeDiagnostics() {
  std::vector<std::string> texts;
  for (DiagnosticLog::Line const& line : diagnostics.Take()) {
    if (verbose) Show(line, console);
    texts.push_back(line.text);
  }
  return texts;
}

void Session::ForgiveDiagnostics() { TakeDiagnostics(); }

bool Session::ShowDiagnostics() {
  auto const lines = diagnostics.Take();
  for (DiagnosticLog::Line const& line : lines) Show(line, console);
  return !lines.empty();
}

}  // namespace fdo::tool
