// What goes wrong with a text that is read or written here, before it becomes an exception of the
// interface.
#ifndef SDK_RUNTIME_TEXT_TEXT_ERROR_H_
#define SDK_RUNTIME_TEXT_TEXT_ERROR_H_

#include <cstddef>
#include <string>

namespace fdo_sdk {

// The message does not name the place.
struct TextError {
  std::size_t position;  // characters before the place
  std::wstring message;
};

// "Character 12: " and the message; characters count from 1.
inline std::wstring MessageWithPlace(TextError const& error) {
  return L"Character " + std::to_wstring(error.position + 1) + L": " + error.message;
}

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_TEXT_TEXT_ERROR_H_
