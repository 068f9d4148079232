#include "sdk/runtime/text/lexer.h"

#include <vector>

#include "sdk/runtime/text/identifier_text.h"
#include "sdk/runtime/text/number_text.h"
#include "sdk/runtime/text/text_error.h"

namespace fdo_sdk {
namespace {

constexpr bool IsBlank(wchar_t unit) { return unit == L' ' || (unit >= L'\t' && unit <= L'\r'); }
static_assert(IsBlank(L'\t') && IsBlank(L'\n') && IsBlank(L'\v') && IsBlank(L'\f') && IsBlank(L'\r'));
constexpr std::size_t kLongestShown = 40;

}  // namespace

void Lexer::Fail(std::size_t position, std::wstring message) const {
  throw TextError{position, std::move(message)};
}

std::wstring Lexer::Show(Token const& token) const {
  if (token.kind == TokenKind::kEnd) return L"the end of the text";
  std::wstring_view const source = Source(token);
  if (source.size() <= kLongestShown) return L"\"" + std::wstring(source) + L"\"";
  return L"\"" + std::wstring(source.substr(0, kLongestShown)) + L"...\"";
}

Token Lexer::Next() {
  while (at_ < text_.size() && IsBlank(text_[at_])) ++at_;
  Token token;
  token.begin = at_;
  if (at_ == text_.size()) {
    token.end = at_;
    return token;
  }
  wchar_t const first = text_[at_];
  if (IsNameStart(first) || first == L'"') {
    token = Name();
  } else if (NumberEnd(text_.substr(at_), nullptr) > 0) {
    token = Number();
  } else if (first == L'\'') {
    token.kind = TokenKind::kText;
    token.text = QuotedText(L'\'', L"text");
  } else if (first == L':') {
    token = Parameter();
  } else {
    Symbol const symbol = SymbolAt(text_.substr(at_));
    if (symbol.word.empty()) {
      Fail(at_, std::wstring(L"the character \"") + first + L"\" has no meaning here.");
    }
    token.kind = symbol.kind;
    at_ += symbol.word.size();
  }
  token.end = at_;
  return token;
}

Token Lexer::Name() {
  Token token;
  token.kind = TokenKind::kName;
  token.begin = at_;
  std::vector<IdentifierPart> parts;
  wchar_t separator = 0;
  for (;;) {
    if (At(L'"')) {
      parts.push_back({separator, QuotedText(L'"', L"name")});
      token.plain = false;
    } else {
      parts.push_back({separator, PlainName()});
      if (separator == 0) {
        token.plain = true;
        token.kind = KindOfWord(parts.front().name);
        if (token.kind != TokenKind::kName) return token;
      }
    }
    if (!At(L'.') && !At(L':')) break;
    separator = text_[at_++];
    token.plain = false;
    if (at_ == text_.size() || !(IsNameStart(text_[at_]) || text_[at_] == L'"')) {
      Fail(at_, std::wstring(L"expected a name after \"") + separator + L"\".");
    }
  }
  token.plain = token.plain && parts.size() == 1;
  token.text = JoinIdentifier(parts);
  return token;
}

Token Lexer::Number() {
  Token token;
  token.begin = at_;
  bool isReal = false;
  at_ += NumberEnd(text_.substr(at_), &isReal);
  token.kind = isReal ? TokenKind::kReal : TokenKind::kInteger;
  return token;
}

Token Lexer::Parameter() {
  Token token;
  token.kind = TokenKind::kParameter;
  token.begin = at_++;
  if (At(L'\'')) {
    token.text = QuotedText(L'\'', L"parameter name");
  } else {
    token.text = PlainName();
    if (token.text.empty()) Fail(at_, L"expected the name of a parameter after \":\".");
  }
  return token;
}

std::wstring Lexer::PlainName() {
  std::size_t const from = at_;
  while (at_ < text_.size() && IsNameUnit(text_[at_])) ++at_;
  return std::wstring(text_.substr(from, at_ - from));
}

std::wstring Lexer::QuotedText(wchar_t quote, wchar_t const* what) {
  std::size_t const from = at_++;
  std::wstring text;
  for (;;) {
    std::size_t const end = text_.find(quote, at_);
    if (end == std::wstring_view::npos) {
      Fail(from, std::wstring(L"the ") + what + L" that begins here has no closing " + quote + L".");
    }
    text += text_.substr(at_, end - at_);
    at_ = end + 1;
    if (!At(quote)) return text;
    text.push_back(quote);
    ++at_;
  }
}

}  // namespace fdo_sdk
