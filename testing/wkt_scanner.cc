#include "testing/wkt_scanner.h"

#include <charconv>
#include <stdexcept>

namespace fdo {
namespace {

bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

}  // namespace

void WktScanner::SkipBlanks() {
  while (at_ < text_.size() && text_[at_] == ' ') ++at_;
}

bool WktScanner::Take(char punctuation) {
  SkipBlanks();
  if (at_ >= text_.size() || text_[at_] != punctuation) return false;
  ++at_;
  return true;
}

bool WktScanner::TakeWord(std::string_view word) {
  SkipBlanks();
  if (text_.substr(at_, word.size()) != word) return false;
  std::size_t const after = at_ + word.size();
  if (after < text_.size() && IsLetter(text_[after])) return false;
  at_ = after;
  return true;
}

void WktScanner::Expect(char punctuation) {
  if (!Take(punctuation)) Fail(std::string("expected ") + punctuation);
}

bool WktScanner::NextIsTypeWord() {
  std::size_t const from = at_;
  bool const isEmpty = TakeWord("EMPTY");
  bool const isWord = at_ < text_.size() && IsLetter(text_[at_]);
  at_ = from;
  return isWord && !isEmpty;
}

std::string WktScanner::Word() {
  SkipBlanks();
  std::size_t const from = at_;
  while (at_ < text_.size() && IsLetter(text_[at_])) ++at_;
  if (at_ == from) Fail("expected a word");
  return std::string(text_.substr(from, at_ - from));
}

void WktScanner::ExpectEnd() {
  SkipBlanks();
  if (at_ != text_.size()) Fail("expected the end");
}

int WktScanner::Dimensionality() {
  if (TakeWord("ZM")) return 3;
  if (TakeWord("M")) return 2;
  return TakeWord("Z") ? 1 : 0;
}

std::array<double, 4> WktScanner::Position(int dimensionality) {
  constexpr int kOrdinates[] = {2, 3, 3, 4};
  std::array<double, 4> position{};
  for (int i = 0; i < kOrdinates[dimensionality]; ++i) position[std::size_t(i)] = Number();
  return position;
}

double WktScanner::Number() {
  SkipBlanks();
  double value = 0;
  auto const [end, error] = std::from_chars(text_.data() + at_, text_.data() + text_.size(), value);
  if (error != std::errc()) Fail("expected a number");
  at_ = static_cast<std::size_t>(end - text_.data());
  return value;
}

void WktScanner::Fail(std::string_view what) const {
  throw std::invalid_argument(std::string(what) + " at " + std::to_string(at_) + " in " + std::string(text_));
}

}  // namespace fdo
