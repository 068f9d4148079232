#include "sdk/runtime/text/identifier_text.h"

#include <algorithm>

#include "sdk/runtime/text/literal_text.h"
#include "sdk/runtime/text/words.h"

namespace fdo_sdk {
namespace {

constexpr std::wstring_view kSeparators = L".:";

bool IsSeparatorOrEnd(std::wstring_view text, std::size_t at) {
  return at == text.size() || kSeparators.find(text[at]) != std::wstring_view::npos;
}

// Reads a quoted name and moves behind it. Errors: false, nothing moved, when it is not a whole one.
bool TakeQuoted(std::wstring_view text, std::size_t& at, std::wstring& name) {
  if (at == text.size() || text[at] != L'"') return false;
  std::wstring read;
  for (std::size_t i = at + 1; i < text.size(); ++i) {
    if (text[i] != L'"') {
      read.push_back(text[i]);
    } else if (i + 1 < text.size() && text[i + 1] == L'"') {
      read.push_back(text[i++]);
    } else {
      if (!IsSeparatorOrEnd(text, i + 1)) return false;
      at = i + 1;
      name = std::move(read);
      return true;
    }
  }
  return false;
}

}  // namespace

std::vector<IdentifierPart> SplitIdentifier(std::wstring_view text) {
  std::vector<IdentifierPart> parts;
  std::size_t at = 0;
  for (;;) {
    IdentifierPart part{at == 0 ? L'\0' : text[at - 1], {}};
    if (!TakeQuoted(text, at, part.name)) {
      std::size_t const end = std::min(text.find_first_of(kSeparators, at), text.size());
      part.name = text.substr(at, end - at);
      at = end;
    }
    parts.push_back(std::move(part));
    if (at == text.size()) return parts;
    ++at;
  }
}

std::wstring JoinIdentifier(std::vector<IdentifierPart> const& parts) {
  std::wstring text;
  for (IdentifierPart const& part : parts) {
    if (part.separator != 0) text.push_back(part.separator);
    bool const bare = part.name.find_first_of(kSeparators) == std::wstring::npos &&
                      (part.name.empty() || part.name.front() != L'"');
    text += bare ? part.name : Quoted(part.name, L'"');
  }
  return text;
}

std::wstring WriteIdentifier(std::vector<IdentifierPart> const& parts) {
  std::wstring text;
  for (IdentifierPart const& part : parts) {
    if (part.separator != 0) text.push_back(part.separator);
    text += IsPlainName(part.name) ? part.name : Quoted(part.name, L'"');
  }
  return text;
}

}  // namespace fdo_sdk
