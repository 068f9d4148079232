// Geometry text and geometry bytes from anywhere. The first byte says which of the two the rest is. Each is
// refused, or what it becomes turns back into the same.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "Common/StringP.h"
#include "sdk/runtime/text/fgf_text.h"
#include "sdk/runtime/text/text_error.h"

namespace {

void TryText(std::string const& bytes) {
  std::vector<FdoByte> fgf;
  try {
    fgf = fdo_sdk::TextToFgf(static_cast<FdoString*>(FdoStringP(bytes.c_str())));
  } catch (fdo_sdk::TextError const&) {
    return;
  }
  std::wstring const text = fdo_sdk::FgfToText(fgf.data(), fgf.size());
  std::vector<FdoByte> const again = fdo_sdk::TextToFgf(text);
  if (text != fdo_sdk::FgfToText(again.data(), again.size())) std::abort();
}

void TryBytes(std::string const& bytes) {
  std::wstring text;
  try {
    // A copy of the very size, so that the sanitizers see a read outside it.
    std::vector<FdoByte> const fgf(bytes.begin(), bytes.end());
    text = fdo_sdk::FgfToText(fgf.data(), fgf.size());
  } catch (fdo_sdk::TextError const&) {
    return;
  }
  std::vector<FdoByte> const again = fdo_sdk::TextToFgf(text);
  if (again.size() != bytes.size() || text != fdo_sdk::FgfToText(again.data(), again.size())) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  if (size == 0) return 0;
  std::string const rest(reinterpret_cast<char const*>(data) + 1, size - 1);
  if (data[0] == 'b') {
    TryBytes(rest);
  } else {
    TryText(rest);
  }
  return 0;
}
