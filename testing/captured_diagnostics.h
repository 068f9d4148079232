// The diagnostic lines of a stretch of a test.
#ifndef TESTING_CAPTURED_DIAGNOSTICS_H_
#define TESTING_CAPTURED_DIAGNOSTICS_H_

#include <fdo/diagnostics.h>

#include <string>
#include <vector>

namespace fdo {

// While it lives, the diagnostics of the process come here instead of to the standard error stream.
// Threads: one; at most one such object lives at a time.
class CapturedDiagnostics {
 public:
  CapturedDiagnostics() { SetDiagnosticHandler(&CapturedDiagnostics::Take, this); }
  ~CapturedDiagnostics() { SetDiagnosticHandler(nullptr, nullptr); }
  CapturedDiagnostics(CapturedDiagnostics const&) = delete;
  CapturedDiagnostics& operator=(CapturedDiagnostics const&) = delete;

  std::vector<std::wstring> const& Lines() const { return lines_; }
  void Forget() { lines_.clear(); }

 private:
  static void Take(wchar_t const* message, void* context) {
    static_cast<CapturedDiagnostics*>(context)->lines_.emplace_back(message);
  }

  std::vector<std::wstring> lines_;
};

}  // namespace fdo

#endif  // TESTING_CAPTURED_DIAGNOSTICS_H_
