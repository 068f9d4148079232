#ifndef TOOLS_QUILLON_DIAGNOSTIC_LOG_H_
#define TOOLS_QUILLON_DIAGNOSTIC_LOG_H_

#include <mutex>
#include <string>
#include <vector>

namespace fdo::tool {

// Collects the library's diagnostic lines for as long as it lives, instead of letting them go to the
// standard error stream one by one.
// Threads: lines may come from any thread; one log at a time.
class DiagnosticLog {
 public:
  DiagnosticLog();
  DiagnosticLog(DiagnosticLog const&) = delete;
  DiagnosticLog& operator=(DiagnosticLog const&) = delete;
  ~DiagnosticLog();

  // The lines so far, in UTF-8, which the log then forgets.
  std::vector<std::string> Take();

 private:
  static void Receive(wchar_t const* message, void* log);

  std::mutex lock_;
  std::vector<std::string> lines_;
};

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_DIAGNOSTIC_LOG_H_
