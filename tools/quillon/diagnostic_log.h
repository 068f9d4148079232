#ifndef TOOLS_QUILLON_DIAGNOSTIC_LOG_H_
#define TOOLS_QUILLON_DIAGNOSTIC_LOG_H_

#include <cstddef>
#include <cstdint>
#include <mutex>
#include <string>
#include <unordered_map>
#include <vector>

namespace fdo::tool {

// Collects the library's diagnostic lines for as long as it lives, instead of letting them go to the
// standard error stream one by one. A line that comes for each of many rows is kept once.
// Threads: lines may come from any thread; one log at a time.
class DiagnosticLog {
 public:
  DiagnosticLog();
  DiagnosticLog(DiagnosticLog const&) = delete;
  DiagnosticLog& operator=(DiagnosticLog const&) = delete;
  ~DiagnosticLog();

  struct Line {
    std::string text;        // UTF-8
    std::int64_t times = 0;  // that it came
  };

  // The lines so far, in the order in which they came first, which the log then forgets. Of many different
  // ones the first hundred, and one line that says how many more came.
  std::vector<Line> Take();

  static constexpr std::size_t kMostLines = 100;

  // As the library does it.
  void Add(std::string text);

 private:
  static void Receive(wchar_t const* message, void* log);

  std::mutex lock_;
  std::vector<Line> lines_;
  std::unordered_map<std::string, std::size_t> places_;  // of each text in lines_
  std::int64_t more_ = 0;
};

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_DIAGNOSTIC_LOG_H_
