#include <fdo/text_conversion.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <cwchar>
#include <limits>

namespace fdo {
namespace {

// Text that can be told apart from nothing else but its own units is moved in blocks of this many.
constexpr std::ptrdiff_t kBlock = 8;

constexpr bool kWideHoldsAnyCharacter = sizeof(wchar_t) > 2;
constexpr std::uint32_t kLastUnit = 0xFFFF;
constexpr std::uint32_t kLastCharacter = 0x10FFFF;
constexpr std::uint32_t kReplacement = 0xFFFD;

constexpr std::uint32_t HighSurrogate(std::uint32_t character) { return 0xD7C0 + (character >> 10); }
constexpr std::uint32_t LowSurrogate(std::uint32_t character) { return 0xDC00 | (character & 0x3FF); }
constexpr bool IsHighSurrogate(std::uint32_t unit) { return unit >> 10 == 0x36; }
constexpr bool IsLowSurrogate(std::uint32_t unit) { return unit >> 10 == 0x37; }
static_assert(HighSurrogate(0x10000) == 0xD800 && HighSurrogate(kLastCharacter) == 0xDBFF);

std::uint32_t Unit(wchar_t character) {
  if constexpr (kWideHoldsAnyCharacter) {
    auto const unit = static_cast<std::uint32_t>(character);
    return unit > kLastCharacter ? kReplacement : unit;
  } else {
    return static_cast<std::uint16_t>(character);
  }
}

constexpr int EncodedSize(std::uint32_t unit) {
  return unit < 0x80 ? 1 : unit < 0x800 ? 2 : unit <= kLastUnit ? 3 : 6;
}

// Writes a unit of 16 bits where there is room for it; gives the end of the output, null without room.
char* Encode(std::uint32_t unit, char* out, char const* limit) {
  int const size = EncodedSize(unit);
  if (limit - out < size) return nullptr;
  if (size == 1) {
    out[0] = static_cast<char>(unit);
  } else if (size == 2) {
    out[0] = static_cast<char>(0xC0 | unit >> 6);
    out[1] = static_cast<char>(0x80 | (unit & 0x3F));
  } else {
    out[0] = static_cast<char>(0xE0 | unit >> 12);
    out[1] = static_cast<char>(0x80 | (unit >> 6 & 0x3F));
    out[2] = static_cast<char>(0x80 | (unit & 0x3F));
  }
  return out + size;
}

// Copies a block of 7-bit characters, none of them 0; false, with the output spoilt, when there is another.
bool NarrowBlock(wchar_t const* source, char* out) {
  unsigned outside = 0;
  for (int i = 0; i < kBlock; ++i) {
    auto const unit = static_cast<std::uint32_t>(source[i]);
    outside |= static_cast<unsigned>(unit - 1 >= 0x7F);
    out[i] = static_cast<char>(unit);
  }
  return outside == 0;
}

bool WidenBlock(unsigned char const* source, wchar_t* out) {
  constexpr std::uint64_t kLowBits = 0x0101010101010101;
  std::uint64_t bytes;
  static_assert(sizeof(bytes) == kBlock);
  std::memcpy(&bytes, source, sizeof(bytes));
  // Taking 1 from each byte sets the top bit of a 0 byte.
  if (((bytes | (bytes - kLowBits)) & kLowBits << 7) != 0) return false;
  for (int i = 0; i < kBlock; ++i) out[i] = static_cast<wchar_t>(source[i]);
  return true;
}

struct Encoded {
  char* end;      // of the output, where the terminator goes
  bool complete;  // false when the output was full
};

// Requires: out < limit has room for what is written, the terminator comes at limit at the latest.
Encoded EncodeText(wchar_t const* source, wchar_t const* sourceEnd, char* out, char const* limit) {
  while (source != sourceEnd) {
    if (sourceEnd - source >= kBlock && limit - out >= kBlock && NarrowBlock(source, out)) {
      source += kBlock;
      out += kBlock;
      continue;
    }
    for (int i = 0; i < kBlock && source != sourceEnd; ++i, ++source) {
      std::uint32_t unit = Unit(*source);
      if (unit == 0) return {out, true};
      if (unit > kLastUnit) {
        char* next = Encode(HighSurrogate(unit), out, limit);
        if (next == nullptr) return {out, false};
        out = next;
        unit = LowSurrogate(unit);
      }
      char* next = Encode(unit, out, limit);
      if (next == nullptr) return {out, false};
      out = next;
    }
  }
  return {out, true};
}

std::size_t EncodedLength(wchar_t const* source, wchar_t const* sourceEnd) {
  std::size_t length = 0;
  for (; source != sourceEnd && *source != 0; ++source) {
    length += static_cast<std::size_t>(EncodedSize(Unit(*source)));
  }
  return length;
}

// Takes one sequence off the front. The bytes that are missing at the end count as 0.
std::uint32_t Decode(unsigned char const*& source, unsigned char const* end) {
  auto const next = [&]() -> std::uint32_t { return source != end ? *source++ : 0; };
  std::uint32_t const lead = next();
  if (lead < 0x80) return lead;
  std::uint32_t const second = next() & 0x3F;
  if (lead >> 4 != 0xE) return (lead & 0x1F) << 6 | second;
  return (lead & 0xF) << 12 | second << 6 | (next() & 0x3F);
}

struct Decoded {
  wchar_t* end;
  bool complete;
};

// Requires: out < limit has room for what is written, the terminator comes at limit at the latest.
Decoded DecodeText(unsigned char const* source, unsigned char const* sourceEnd, wchar_t* out,
                   wchar_t const* limit) {
  wchar_t const* const begin = out;
  while (source != sourceEnd) {
    if (sourceEnd - source >= kBlock && limit - out >= kBlock && WidenBlock(source, out)) {
      source += kBlock;
      out += kBlock;
      continue;
    }
    for (int i = 0; i < kBlock && source != sourceEnd; ++i) {
      if (*source == 0) return {out, true};
      std::uint32_t const unit = Decode(source, sourceEnd);
      if constexpr (kWideHoldsAnyCharacter) {
        if (IsLowSurrogate(unit) && out != begin && IsHighSurrogate(static_cast<std::uint32_t>(out[-1]))) {
          auto const high = static_cast<std::uint32_t>(out[-1]);
          out[-1] = static_cast<wchar_t>(0x10000 + ((high & 0x3FF) << 10 | (unit & 0x3FF)));
          continue;
        }
      }
      if (out == limit) return {out, false};
      *out++ = static_cast<wchar_t>(unit);
    }
  }
  return {out, true};
}

}  // namespace

int WideToUtf8(wchar_t const* source, int sourceBytes, char* destination, int destinationBytes) {
  wchar_t const* const end =
      source + (sourceBytes > 0 ? static_cast<std::size_t>(sourceBytes) / sizeof(wchar_t) : 0);
  if (destination == nullptr) {
    std::size_t const length = EncodedLength(source, end);
    return length > static_cast<std::size_t>(std::numeric_limits<int>::max()) ? -1 : static_cast<int>(length);
  }
  Encoded const result = EncodeText(source, end, destination, destination + destinationBytes - 1);
  *result.end = 0;
  return result.complete ? static_cast<int>(result.end - destination) : -1;
}

int Utf8ToWide(char const* source, int sourceBytes, wchar_t* destination, int destinationBytes) {
  auto const* const bytes = reinterpret_cast<unsigned char const*>(source);
  std::size_t const room = static_cast<std::size_t>(destinationBytes) / sizeof(wchar_t) - 1;
  Decoded const result =
      DecodeText(bytes, bytes + (sourceBytes > 0 ? sourceBytes : 0), destination, destination + room);
  *result.end = 0;
  return result.complete
             ? static_cast<int>((result.end - destination) * static_cast<std::ptrdiff_t>(sizeof(wchar_t)))
             : -1;
}

std::string ToUtf8(wchar_t const* text) {
  if (text == nullptr) return {};
  wchar_t const* const end = text + std::wcslen(text);
  // Most text is plain letters, a byte each; counting first would cost more than writing it.
  std::string result(static_cast<std::size_t>(end - text), '\0');
  if (!EncodeText(text, end, result.data(), result.data() + result.size()).complete) {
    result.resize(EncodedLength(text, end));
    EncodeText(text, end, result.data(), result.data() + result.size());
  }
  return result;
}

std::wstring ToWide(char const* text) {
  if (text == nullptr) return {};
  std::size_t const length = std::strlen(text);
  std::wstring result(length, L'\0');
  auto const* const bytes = reinterpret_cast<unsigned char const*>(text);
  Decoded const decoded = DecodeText(bytes, bytes + length, result.data(), result.data() + length);
  result.resize(static_cast<std::size_t>(decoded.end - result.data()));
  return result;
}

}  // namespace fdo
