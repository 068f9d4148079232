#include "tools/quillon/diagnostic_log.h"

#include <fdo/diagnostics.h>

#include <utility>

#include "tools/quillon/utf8.h"

namespace fdo::tool {

DiagnosticLog::DiagnosticLog() { SetDiagnosticHandler(&Receive, this); }
DiagnosticLog::~DiagnosticLog() { SetDiagnosticHandler(nullptr, nullptr); }

std::vector<DiagnosticLog::Line> DiagnosticLog::Take() {
  std::lock_guard const hold(lock_);
  if (more_ > 0) lines_.push_back({"and " + std::to_string(more_) + " more messages", 1});
  more_ = 0;
  places_.clear();
  return std::exchange(lines_, {});
}

void DiagnosticLog::Receive(wchar_t const* message, void* log) {
  auto& self = *static_cast<DiagnosticLog*>(log);
  std::string text = Utf8(message);
  text.erase(text.find_last_not_of("\r\n") + 1);
  std::lock_guard const hold(self.lock_);
  if (auto const known = self.places_.find(text); known != self.places_.end()) {
    ++self.lines_[known->second].times;
  } else if (self.lines_.size() < kMostLines) {
    self.places_.emplace(text, self.lines_.size());
    self.lines_.push_back({std::move(text), 1});
  } else {
    ++self.more_;
  }
}

}  // namespace fdo::tool
