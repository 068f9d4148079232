#include "access/diagnostics.h"

#include <fdo/diagnostics.h>
#include <fdo/text_conversion.h>

#include <cstdint>
#include <cstdio>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>

namespace fdo {
namespace {

struct Receiver {
  DiagnosticHandler handler = nullptr;
  void* context = nullptr;
};

std::mutex& ReceiverLock() {
  static std::mutex lock;
  return lock;
}

Receiver& SharedReceiver() {  // under ReceiverLock
  static Receiver receiver;
  return receiver;
}

// The handler is called without the lock, so that it may report or set a handler itself.
Receiver CurrentReceiver() {
  std::lock_guard const guard(ReceiverLock());
  return SharedReceiver();
}

constexpr bool IsSurrogate(std::uint32_t unit, std::uint32_t first) { return (unit & ~0x3FFu) == first; }

// Takes one character off the front; half a surrogate pair, and what is no character, is U+FFFD.
std::uint32_t NextCharacter(wchar_t const*& text) {
  constexpr std::uint32_t kReplacement = 0xFFFD;
  constexpr std::uint32_t kHigh = 0xD800;
  constexpr std::uint32_t kLow = 0xDC00;
  auto const unit = static_cast<std::uint32_t>(*text++);
  if (IsSurrogate(unit, kHigh)) {
    auto const low = static_cast<std::uint32_t>(*text);
    if (!IsSurrogate(low, kLow)) return kReplacement;
    ++text;
    return 0x10000 + ((unit & 0x3FF) << 10 | (low & 0x3FF));
  }
  return IsSurrogate(unit, kLow) || unit > 0x10FFFF ? kReplacement : unit;
}

// Unlike the converters towards the data stores, which keep surrogates apart, this writes the UTF-8
// that a terminal reads.
void AppendUtf8(std::string& line, wchar_t const* text) {
  while (*text != 0) {
    std::uint32_t const character = NextCharacter(text);
    if (character < 0x80) {
      line += static_cast<char>(character);
      continue;
    }
    int continuations = character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
    std::uint32_t const leads[] = {0, 0xC0, 0xE0, 0xF0};
    line += static_cast<char>(leads[continuations] | character >> 6 * continuations);
    while (continuations-- > 0) line += static_cast<char>(0x80 | (character >> 6 * continuations & 0x3F));
  }
}

thread_local DiagnosticWatch* youngestWatch = nullptr;

constexpr std::string_view kPrefix = "Quillon error: ";

void WriteLine(std::string& line) {
  line += '\n';
  // One call, so that the lines of two threads stay apart.
  std::fwrite(line.data(), 1, line.size(), stderr);
}

void Report(std::string_view prefix, wchar_t const* message) {
  if (message == nullptr) message = L"";
  DiagnosticWatch::Note(message);
  if (Receiver const receiver = CurrentReceiver(); receiver.handler != nullptr) {
    receiver.handler(message, receiver.context);
    return;
  }
  std::string line(prefix);
  AppendUtf8(line, message);
  WriteLine(line);
}

void Report(std::string_view prefix, char const* message) {
  if (message == nullptr) message = "";
  DiagnosticWatch::Note(message);
  if (Receiver const receiver = CurrentReceiver(); receiver.handler != nullptr) {
    receiver.handler(ToWide(message).c_str(), receiver.context);
    return;
  }
  std::string line(prefix);
  line += message;
  WriteLine(line);
}

}  // namespace

void SetDiagnosticHandler(DiagnosticHandler handler, void* context) {
  std::lock_guard const guard(ReceiverLock());
  SharedReceiver() = {handler, context};
}

void ReportError(wchar_t const* message) { Report(kPrefix, message); }
void ReportError(char const* message) { Report(kPrefix, message); }

void ReportLine(wchar_t const* line) { Report({}, line); }
void ReportLine(char const* line) { Report({}, line); }

DiagnosticWatch::DiagnosticWatch() : elder_(std::exchange(youngestWatch, this)) {}

DiagnosticWatch::~DiagnosticWatch() { youngestWatch = elder_; }

void DiagnosticWatch::Note(wchar_t const* message) {
  for (DiagnosticWatch* watch = youngestWatch; watch != nullptr; watch = watch->elder_) {
    if (!watch->lines_.empty()) watch->lines_ += L'\n';
    watch->lines_ += message;
  }
}

void DiagnosticWatch::Note(char const* message) {
  if (youngestWatch != nullptr) Note(ToWide(message).c_str());
}

}  // namespace fdo
