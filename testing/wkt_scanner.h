// WktScanner cuts well-known text into words, numbers and punctuation, for the builders of test
// geometries. It is written for the tests alone, so that no code under test reads its own input.
// Errors: throws std::invalid_argument with the text and the place.
#ifndef TESTING_WKT_SCANNER_H_
#define TESTING_WKT_SCANNER_H_

#include <array>
#include <string>
#include <string_view>

namespace fdo {

class WktScanner {
 public:
  explicit WktScanner(std::string_view text) : text_(text) {}

  // Whether the next thing is that punctuation, or that whole word; it is then stepped over.
  bool Take(char punctuation);
  bool TakeWord(std::string_view word);

  void Expect(char punctuation);
  bool NextIsTypeWord();  // any word but EMPTY
  std::string Word();
  void ExpectEnd();

  // An optional Z, M or ZM, as the dimensionality code 0 to 3.
  int Dimensionality();

  // As many numbers as the dimensionality asks for; the rest is 0.
  std::array<double, 4> Position(int dimensionality);

  [[noreturn]] void Fail(std::string_view what) const;

 private:
  void SkipBlanks();
  double Number();

  std::string_view text_;
  std::size_t at_ = 0;
};

}  // namespace fdo

#endif  // TESTING_WKT_SCANNER_H_
