// Between wide text and UTF-8, for everything that the program reads from its command line or prints.
//
// What leaves is always valid UTF-8: a character above U+FFFF is four bytes, whether the platform's
// wide text holds it as one unit or as two surrogates, and a surrogate without its partner becomes
// U+FFFD. (The library's converters keep a simpler rule, six bytes for such a character.)
#ifndef TOOLS_QUILLON_UTF8_H_
#define TOOLS_QUILLON_UTF8_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace fdo::tool {

inline constexpr char32_t kReplacementCharacter = 0xfffd;

// Reads the character at position and moves behind it. What is no character gives U+FFFD.
// Requires: position < text.size()
char32_t NextCharacter(std::wstring_view text, std::size_t& position);
char32_t NextCharacter(std::string_view text, std::size_t& position);

// Requires: character is a Unicode scalar value
void AppendUtf8(std::string& out, char32_t character);
void AppendUtf8(std::string& out, std::wstring_view text);

std::string Utf8(std::wstring_view text);

// Errors: false when the text is not valid UTF-8; wide is then unspecified.
bool WideFromUtf8(std::string_view text, std::wstring& wide);

bool IsControl(char32_t character);

// With a blank in the place of each control character but line breaks and tabs: what a terminal is given.
std::string WithoutControls(std::string_view text);

// The columns that a terminal gives the text: two for the wide East Asian characters, none for
// combining marks, one for everything else.
int DisplayWidth(char32_t character);
int DisplayWidth(std::string_view text);

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_UTF8_H_
