// UTF-8 to and from the platform's wide text (UTF-16 or UTF-32).
#ifndef SDK_RUNTIME_CORE_UTF8_H_
#define SDK_RUNTIME_CORE_UTF8_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace fdo_sdk {

// Each part of the input that is not well formed becomes one U+FFFD and sets *malformed, which may be
// null: an unpaired surrogate or a value that is no character on one side, bytes that are not the
// shortest form of a character on the other.
std::string Utf8FromWide(std::wstring_view text, bool* malformed = nullptr);
std::wstring WideFromUtf8(std::string_view text, bool* malformed = nullptr);

// The same for those who keep their buffers: the first appends, the second writes at most as many units as
// text has bytes and gives how many. Neither allocates where there is room.
// Requires: out has room for text.size() units.
void AppendUtf8(std::string& out, std::wstring_view text, bool* malformed = nullptr);
std::size_t DecodeUtf8(std::string_view text, wchar_t* out, bool* malformed = nullptr);

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_CORE_UTF8_H_
