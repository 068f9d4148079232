// Between paths and UTF-8, whatever the locale. (A path made from wide text goes through the locale.)
#ifndef TOOLS_QUILLON_PATH_TEXT_H_
#define TOOLS_QUILLON_PATH_TEXT_H_

#include <filesystem>
#include <string>

namespace fdo::tool {

inline std::filesystem::path PathOf(std::string const& utf8) {
  return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

inline std::string Utf8Of(std::filesystem::path const& path) {
  std::u8string const text = path.u8string();
  return std::string(text.begin(), text.end());
}

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_PATH_TEXT_H_
