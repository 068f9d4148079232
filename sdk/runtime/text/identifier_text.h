// The names that an identifier is made of.
#ifndef SDK_RUNTIME_TEXT_IDENTIFIER_TEXT_H_
#define SDK_RUNTIME_TEXT_IDENTIFIER_TEXT_H_

#include <string>
#include <string_view>
#include <vector>

namespace fdo_sdk {

struct IdentifierPart {
  wchar_t separator;  // what stands before the name: ':' or '.', 0 before the first
  std::wstring name;
};

// Reads the text of an FdoIdentifier. Gives at least one part; every text is one.
std::vector<IdentifierPart> SplitIdentifier(std::wstring_view text);

// The text that SplitIdentifier reads as these parts.
std::wstring JoinIdentifier(std::vector<IdentifierPart> const& parts);

// The text of these parts in an expression: what is not a plain name there stands between double quotes.
std::wstring WriteIdentifier(std::vector<IdentifierPart> const& parts);

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_TEXT_IDENTIFIER_TEXT_H_
