#include "tools/quillon/utf8.h"

#include <fdo/text_conversion.h>

namespace fdo::tool {

namespace {

constexpr char32_t kFirstSurrogate = 0xd800, kFirstLowSurrogate = 0xdc00, kLastSurrogate = 0xdfff;
constexpr char32_t kLastCharacter = 0x10ffff;
constexpr char32_t kFirstSupplementary = 0x10000;

bool IsSurrogate(char32_t unit) { return unit >= kFirstSurrogate && unit <= kLastSurrogate; }

struct Range {
  char32_t first, last;
};

// Characters that stand on top of the one before them, or are not seen at all.
constexpr Range kWithoutWidth[] = {{0x300, 0x36f},   {0x483, 0x489},   {0x591, 0x5bd},   {0x610, 0x61a},
                                   {0x64b, 0x65f},   {0x200b, 0x200f}, {0x20d0, 0x20ff}, {0xfe00, 0xfe0f},
                                   {0xfe20, 0xfe2f}, {0xfeff, 0xfeff}};
constexpr Range kDoubleWidth[] = {{0x1100, 0x115f},   {0x2e80, 0x303e},   {0x3041, 0xa4cf},  {0xac00, 0xd7a3},
                                  {0xf900, 0xfaff},   {0xfe30, 0xfe6f},   {0xff00, 0xff60},  {0xffe0, 0xffe6},
                                  {0x1f300, 0x1f64f}, {0x1f900, 0x1f9ff}, {0x20000, 0x3fffd}};

template <std::size_t n>
bool IsIn(Range const (&ranges)[n], char32_t character) {
  for (Range const& range : ranges) {
    if (character >= range.first && character <= range.last) return true;
  }
  return false;
}

// Length of the sequence that a byte leads, 0 for a byte that leads none.
int SequenceLength(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead < 0xc2) return 0;
  if (lead < 0xe0) return 2;
  if (lead < 0xf0) return 3;
  return lead < 0xf5 ? 4 : 0;
}

}  // namespace

char32_t NextCharacter(std::wstring_view text, std::size_t& position) {
  auto const unit = static_cast<char32_t>(text[position++]);
  if (!IsSurrogate(unit)) return unit <= kLastCharacter ? unit : kReplacementCharacter;
  if (unit >= kFirstLowSurrogate || position == text.size()) return kReplacementCharacter;
  auto const low = static_cast<char32_t>(text[position]);
  if (low < kFirstLowSurrogate || low > kLastSurrogate) return kReplacementCharacter;
  ++position;
  return kFirstSupplementary + ((unit - kFirstSurrogate) << 10) + (low - kFirstLowSurrogate);
}

char32_t NextCharacter(std::string_view text, std::size_t& position) {
  auto const lead = static_cast<unsigned char>(text[position++]);
  int const length = SequenceLength(lead);
  if (length == 1) return lead;
  if (length == 0) return kReplacementCharacter;
  char32_t character = lead & (0x7f >> length);
  for (int i = 1; i < length; ++i) {
    if (position == text.size()) return kReplacementCharacter;
    auto const byte = static_cast<unsigned char>(text[position]);
    if ((byte & 0xc0) != 0x80) return kReplacementCharacter;
    character = character << 6 | (byte & 0x3f);
    ++position;
  }
  constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, kFirstSupplementary};
  bool const valid = character >= kLeast[length] && character <= kLastCharacter && !IsSurrogate(character);
  return valid ? character : kReplacementCharacter;
}

void AppendUtf8(std::string& out, char32_t character) {
  auto append = [&](char32_t byte) { out += static_cast<char>(static_cast<unsigned char>(byte)); };
  if (character < 0x80) {
    append(character);
  } else if (character < 0x800) {
    append(0xc0 | character >> 6);
    append(0x80 | (character & 0x3f));
  } else if (character < kFirstSupplementary) {
    append(0xe0 | character >> 12);
    append(0x80 | (character >> 6 & 0x3f));
    append(0x80 | (character & 0x3f));
  } else {
    append(0xf0 | character >> 18);
    append(0x80 | (character >> 12 & 0x3f));
    append(0x80 | (character >> 6 & 0x3f));
    append(0x80 | (character & 0x3f));
  }
}

void AppendUtf8(std::string& out, std::wstring_view text) {
  for (std::size_t position = 0; position < text.size();) AppendUtf8(out, NextCharacter(text, position));
}

std::string Utf8(std::wstring_view text) {
  std::string utf8;
  utf8.reserve(text.size());
  AppendUtf8(utf8, text);
  return utf8;
}

bool WideFromUtf8(std::string_view text, std::wstring& wide) {
  // The library decodes sequences of up to three bytes, and two of those that hold a surrogate each
  // where a character lies above U+FFFF.
  std::string paired;
  paired.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    std::size_t const begin = position;
    char32_t const character = NextCharacter(text, position);
    if (character == kReplacementCharacter && text.substr(begin, position - begin) != "\xef\xbf\xbd") {
      return false;
    }
    if (character == 0) return false;
    if (character < kFirstSupplementary) {
      AppendUtf8(paired, character);
    } else {
      char32_t const offset = character - kFirstSupplementary;
      AppendUtf8(paired, kFirstSurrogate + (offset >> 10));
      AppendUtf8(paired, kFirstLowSurrogate + (offset & 0x3ff));
    }
  }
  wide = ToWide(paired.c_str());
  return true;
}

bool IsControl(char32_t character) { return character < 0x20 || (character >= 0x7f && character < 0xa0); }

std::string WithoutControls(std::string_view text) {
  std::string shown;
  for (std::size_t position = 0; position < text.size();) {
    char32_t const character = NextCharacter(text, position);
    bool const isLayout = character == U'\n' || character == U'\t';
    AppendUtf8(shown, IsControl(character) && !isLayout ? U' ' : character);
  }
  return shown;
}

int DisplayWidth(char32_t character) {
  if (character < 0x300) return 1;
  if (IsIn(kWithoutWidth, character)) return 0;
  return IsIn(kDoubleWidth, character) ? 2 : 1;
}

int DisplayWidth(std::string_view text) {
  int width = 0;
  for (std::size_t position = 0; position < text.size();)
    width += DisplayWidth(NextCharacter(text, position));
  return width;
}

}  // namespace fdo::tool
