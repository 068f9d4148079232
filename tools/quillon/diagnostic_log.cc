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

void DiagnosticLog::Add(std::string text) {
  text.erase(text.find_last_not_of("\r\n") + 1);
  std::lock_guard const hold(lock_);
  if (auto const known = places_.find(text); known != places_.end()) {
    ++lines_[known->second].times;
  } else if (lines_.size() < kMostLines) {
    places_.emplace(text, lines_.size());
    lines_.push_back({std::move(text), 1});
  } else {
    ++more_;
  }
}

void DiagnosticLog::Receive(wchar_t const* message, void* log) {
  static_cast<DiagnosticLog*>(log)->Add(Utf8(message));
}

}  // namespace fdo::tool
