#include "sdk/runtime/client_services/paths.h"

#include "port/dynamic_library.h"
#include "port/file.h"
#include "sdk/runtime/core/utf8.h"

namespace fdo_sdk {
namespace {

// From bytes, not from wide text: the conversion of the latter depends on the locale.
std::filesystem::path PathOfUtf8(std::string const& text) {
  return std::filesystem::path(std::u8string(text.begin(), text.end()));
}

}  // namespace

std::filesystem::path PathOf(std::wstring const& text) { return PathOfUtf8(Utf8FromWide(text)); }

std::filesystem::path PathOf(wchar_t const* text) { return PathOf(std::wstring(text)); }

std::string Utf8Of(std::filesystem::path const& path) {
  std::u8string const text = path.u8string();
  return std::string(text.begin(), text.end());
}

std::wstring WideOf(std::filesystem::path const& path) { return WideFromUtf8(Utf8Of(path)); }

std::filesystem::path LibraryFolder() {
  std::string const file = fdo::port::LibraryPathOf(reinterpret_cast<void const*>(&LibraryFolder));
  return PathOfUtf8(file).parent_path();
}

std::filesystem::path ProvidersFile() {
  std::string const named = fdo::port::EnvironmentVariable("FDO_PROVIDERS_FOLDER");
  return (named.empty() ? LibraryFolder() : PathOfUtf8(named)) / "providers.xml";
}

}  // namespace fdo_sdk
