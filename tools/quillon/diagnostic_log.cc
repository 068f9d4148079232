#include "tools/quillon/diagnostic_log.h"

#include <fdo/diagnostics.h>

#include <utility>

#include "tools/quillon/utf8.h"

namespace fdo::tool {

DiagnosticLog::DiagnosticLog() { SetDiagnosticHandler(&Receive, this); }
DiagnosticLog::~DiagnosticLog() { SetDiagnosticHandler(nullptr, nullptr); }

std::vector<std::string> DiagnosticLog::Take() {
  std::lock_guard const hold(lock_);
  return std::exchange(lines_, {});
}

void DiagnosticLog::Receive(wchar_t const* message, void* log) {
  auto& self = *static_cast<DiagnosticLog*>(log);
  std::string line = Utf8(message);
  line.erase(line.find_last_not_of("\r\n") + 1);
  std::lock_guard const hold(self.lock_);
  self.lines_.push_back(std::move(line));
}

}  // namespace fdo::tool
