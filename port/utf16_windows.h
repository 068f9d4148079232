// Text as the calls of Windows take it.
#ifndef PORT_UTF16_WINDOWS_H_
#define PORT_UTF16_WINDOWS_H_

#include <windows.h>

#include <string>

namespace fdo::port {

inline std::wstring Utf16FromUtf8(std::string const& text) {
  int const length = static_cast<int>(text.size());
  int const units = MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(units), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide.data(), units);
  return wide;
}

inline std::string Utf8FromUtf16(std::wstring const& text) {
  int const length = static_cast<int>(text.size());
  int const bytes = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string narrow(static_cast<std::size_t>(bytes), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), length, narrow.data(), bytes, nullptr, nullptr);
  return narrow;
}

}  // namespace fdo::port

#endif  // PORT_UTF16_WINDOWS_H_
