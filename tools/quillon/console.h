#ifndef TOOLS_QUILLON_CONSOLE_H_
#define TOOLS_QUILLON_CONSOLE_H_

#include <chrono>
#include <cstdio>
#include <string>
#include <string_view>

namespace fdo::tool {

// The standard error stream: messages, and on a terminal colour and progress.
class Console {
 public:
  Console(std::FILE* stream, bool isTerminal) : stream_(stream), isTerminal_(isTerminal) {}
  Console(Console const&) = delete;
  Console& operator=(Console const&) = delete;
  ~Console() { ClearProgress(); }

  void Error(std::string_view message) { Say("31", "", message); }
  void Note(std::string_view message) { Say("33", "note: ", message); }

  bool ShowsProgress() const { return isTerminal_; }
  // Whether a tenth of a second has gone by since the last progress line.
  bool ProgressIsDue();
  // Replaces the progress line; nothing unless the stream is a terminal.
  void Progress(std::string_view text);
  void ClearProgress();

 private:
  void Say(char const* colour, std::string_view kind, std::string_view message);

  std::FILE* stream_;  // not owned
  bool const isTerminal_;
  bool hasProgress_ = false;
  std::chrono::steady_clock::time_point lastProgress_{};
};

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_CONSOLE_H_
