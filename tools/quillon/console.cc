#include "tools/quillon/console.h"

#include "tools/quillon/utf8.h"

namespace fdo::tool {

bool Console::ProgressIsDue() {
  constexpr auto kPause = std::chrono::milliseconds(100);
  auto const now = std::chrono::steady_clock::now();
  if (!isTerminal_ || now - lastProgress_ < kPause) return false;
  lastProgress_ = now;
  return true;
}

void Console::Progress(std::string_view text) {
  if (!isTerminal_) return;
  std::string const line = "\r\x1b[K" + std::string(text);
  std::fwrite(line.data(), 1, line.size(), stream_);
  std::fflush(stream_);
  hasProgress_ = true;
}

void Console::ClearProgress() {
  if (!hasProgress_) return;
  std::fputs("\r\x1b[K", stream_);
  std::fflush(stream_);
  hasProgress_ = false;
}

void Console::Say(char const* colour, std::string_view kind, std::string_view message) {
  ClearProgress();
  std::string line;
  if (isTerminal_) line = "\x1b[" + std::string(colour) + "m";
  line += "quillon: ";
  line += kind;
  if (isTerminal_) line += "\x1b[0m";
  line += WithoutControls(message);
  line += '\n';
  std::fwrite(line.data(), 1, line.size(), stream_);
  std::fflush(stream_);
}

}  // namespace fdo::tool
