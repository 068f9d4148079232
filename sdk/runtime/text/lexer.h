// Lexer cuts filter and expression text into tokens.
#ifndef SDK_RUNTIME_TEXT_LEXER_H_
#define SDK_RUNTIME_TEXT_LEXER_H_

#include <cstddef>
#include <string>
#include <string_view>

#include "sdk/runtime/text/words.h"

namespace fdo_sdk {

struct Token {
  TokenKind kind = TokenKind::kEnd;
  std::size_t begin = 0;  // where it stands in the text
  std::size_t end = 0;
  // kName: the text of an FdoIdentifier; kText: without quotes; kParameter: without colon and quotes.
  std::wstring text;
  bool plain = false;  // kName: one name without quotes, so it may be a word such as AS
};

// Borrowed: the text must outlive this.
class Lexer {
 public:
  explicit Lexer(std::wstring_view text) : text_(text) {}

  // Gives kEnd at the end, however often.
  // Errors: throws TextError for a character that begins no token, a quote that is not closed, a period
  // or colon without a name.
  Token Next();

  // What a token looks like in the text; long ones are cut.
  std::wstring Show(Token const& token) const;
  // The same without cuts.
  std::wstring_view Source(Token const& token) const {
    return text_.substr(token.begin, token.end - token.begin);
  }

 private:
  Token Name();
  Token Number();
  Token Parameter();
  std::wstring PlainName();
  std::wstring QuotedText(wchar_t quote, wchar_t const* what);
  bool At(wchar_t unit) const { return at_ < text_.size() && text_[at_] == unit; }
  [[noreturn]] void Fail(std::size_t position, std::wstring message) const;

  std::wstring_view text_;
  std::size_t at_ = 0;
};

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_TEXT_LEXER_H_
