// The names of files as the interface has them, for the standard library.
#ifndef SDK_PROVIDERS_SQLITE_FILE_PATH_H_
#define SDK_PROVIDERS_SQLITE_FILE_PATH_H_

#include <filesystem>
#include <string>

#include "sdk/runtime/core/utf8.h"

namespace fdo_sqlite {

// From bytes, not from wide text: the conversion of the latter depends on the locale.
inline std::filesystem::path PathOf(std::wstring const& file) {
  std::string const utf8 = fdo_sdk::Utf8FromWide(file);
  return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

// Removes a file that could not be finished; what made it fail has been said, or is about to be.
inline void RemoveUnfinished(std::wstring const& file) {
  std::error_code ignored;
  std::filesystem::remove(PathOf(file), ignored);
}

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_FILE_PATH_H_
