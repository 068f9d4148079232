// Any text is a connection string, or an exception says why not; what is read is written and read again the
// same.
#include <cstdlib>

#include "Fdo.h"
#include "sdk/providers/sqlite/connection_settings.h"
#include "sdk/runtime/core/utf8.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  using namespace fdo_sqlite;
  std::wstring const text =
      fdo_sdk::WideFromUtf8(std::string_view(reinterpret_cast<char const*>(data), size));
  try {
    fdo_provider::Settings const settings = fdo_provider::ParseConnectionString(ConnectionSettings(), text);
    std::wstring const written = fdo_provider::WriteConnectionString(settings);
    fdo_provider::Settings const again = fdo_provider::ParseConnectionString(ConnectionSettings(), written);
    for (std::size_t i = 0; i < ConnectionSettings().size(); ++i) {
      if (settings.Value(i) != again.Value(i)) std::abort();
    }
  } catch (FdoException* raised) {
    FdoPtr<FdoException> failure(raised);
  }
  return 0;
}
