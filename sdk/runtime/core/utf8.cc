#include "sdk/runtime/core/utf8.h"

#include <cstdint>
#include <cstring>

namespace fdo_sdk {
namespace {

constexpr std::uint32_t kReplacement = 0xFFFD;

constexpr bool IsHighSurrogate(std::uint32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
constexpr bool IsLowSurrogate(std::uint32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

constexpr std::uint32_t UnitOf(wchar_t unit) {
  if constexpr (sizeof(wchar_t) == 2) {
    return static_cast<std::uint16_t>(unit);
  } else {
    return static_cast<std::uint32_t>(unit);
  }
}

void AppendCharacter(std::string& out, std::uint32_t character) {
  auto const tail = [&out](std::uint32_t bits) { out.push_back(static_cast<char>(0x80 | (bits & 0x3F))); };
  if (character < 0x80) {
    out.push_back(static_cast<char>(character));
  } else if (character < 0x800) {
    out.push_back(static_cast<char>(0xC0 | (character >> 6)));
    tail(character);
  } else if (character < 0x10000) {
    out.push_back(static_cast<char>(0xE0 | (character >> 12)));
    tail(character >> 6);
    tail(character);
  } else {
    out.push_back(static_cast<char>(0xF0 | (character >> 18)));
    tail(character >> 12);
    tail(character >> 6);
    tail(character);
  }
}

wchar_t* PutWide(wchar_t* out, std::uint32_t character) {
  if (sizeof(wchar_t) == 2 && character >= 0x10000) {
    *out++ = static_cast<wchar_t>(0xD800 + ((character - 0x10000) >> 10));
    *out++ = static_cast<wchar_t>(0xDC00 + ((character - 0x10000) & 0x3FF));
  } else {
    *out++ = static_cast<wchar_t>(character);
  }
  return out;
}

// How a lead byte is followed: so many tail bytes, making a character of at least `least`.
struct Lead {
  unsigned mask, bits, tails;
  std::uint32_t least;
};
constexpr Lead kLeads[] = {
    {0x80, 0x00, 0, 0}, {0xE0, 0xC0, 1, 0x80}, {0xF0, 0xE0, 2, 0x800}, {0xF8, 0xF0, 3, 0x10000}};

// Reads the character at `at` and moves behind it, or behind the bytes that could begin one.
// Errors: false.
bool ReadUtf8(std::string_view text, std::size_t& at, std::uint32_t& character) {
  unsigned const first = static_cast<unsigned char>(text[at++]);
  for (Lead const& lead : kLeads) {
    if ((first & lead.mask) != lead.bits) continue;
    character = first & ~lead.mask;
    for (unsigned i = 0; i < lead.tails; ++i) {
      if (at == text.size() || (static_cast<unsigned char>(text[at]) & 0xC0) != 0x80) return false;
      character = character << 6 | (static_cast<unsigned char>(text[at++]) & 0x3Fu);
    }
    return character >= lead.least && character <= 0x10FFFF && !IsHighSurrogate(character) &&
           !IsLowSurrogate(character);
  }
  return false;
}

}  // namespace

std::string Utf8FromWide(std::wstring_view text, bool* malformed) {
  std::string out;
  AppendUtf8(out, text, malformed);
  return out;
}

std::wstring WideFromUtf8(std::string_view text, bool* malformed) {
  std::wstring out(text.size(), L'\0');
  out.resize(DecodeUtf8(text, out.data(), malformed));
  return out;
}

void AppendUtf8(std::string& out, std::wstring_view text, bool* malformed) {
  // Most text is ASCII and is written without asking for room again.
  std::size_t const start = out.size();
  out.resize(start + text.size());
  char* to = out.data() + start;
  std::size_t i = 0;
  for (; text.size() - i >= 8; i += 8) {
    std::uint32_t units = 0;
    for (std::size_t k = 0; k < 8; ++k) units |= UnitOf(text[i + k]);
    if (units >= 0x80) break;
    for (std::size_t k = 0; k < 8; ++k) to[k] = static_cast<char>(text[i + k]);
    to += 8;
  }
  while (i < text.size() && UnitOf(text[i]) < 0x80) *to++ = static_cast<char>(text[i++]);
  out.resize(start + i);
  for (; i < text.size(); ++i) {
    std::uint32_t character = UnitOf(text[i]);
    if (IsHighSurrogate(character) && sizeof(wchar_t) == 2 && i + 1 < text.size() &&
        IsLowSurrogate(UnitOf(text[i + 1]))) {
      character = 0x10000 + ((character - 0xD800) << 10) + (UnitOf(text[++i]) - 0xDC00);
    } else if (IsHighSurrogate(character) || IsLowSurrogate(character) || character > 0x10FFFF) {
      character = kReplacement;
      if (malformed != nullptr) *malformed = true;
    }
    AppendCharacter(out, character);
  }
}

std::size_t DecodeUtf8(std::string_view text, wchar_t* out, bool* malformed) {
  wchar_t* to = out;
  for (std::size_t at = 0; at < text.size();) {
    while (text.size() - at >= 8) {
      std::uint64_t eight;
      std::memcpy(&eight, text.data() + at, sizeof eight);
      if ((eight & 0x8080808080808080u) != 0) break;
      for (std::size_t i = 0; i < 8; ++i) to[i] = static_cast<wchar_t>(text[at + i]);
      at += 8;
      to += 8;
    }
    if (at == text.size()) break;
    std::uint32_t character = static_cast<unsigned char>(text[at]);
    if (character < 0x80) {
      *to++ = static_cast<wchar_t>(character);
      ++at;
      continue;
    }
    if (!ReadUtf8(text, at, character)) {
      character = kReplacement;
      if (malformed != nullptr) *malformed = true;
    }
    to = PutWide(to, character);
  }
  return static_cast<std::size_t>(to - out);
}

}  // namespace fdo_sdk
