// Any bytes as WKB: both readers stay inside, and what the ISO reader accepts is sound FGF.
#include <fdo/geometry_stream.h>

#include <cstdlib>
#include <cstring>
#include <vector>

#include "testing/caught_message.h"

namespace fdo {
namespace {

void Require(bool claim) {
  if (!claim) std::abort();
}

void Check(unsigned char const* bytes, std::size_t size) {
  std::vector<unsigned char> fgf(WkbToFgfBound(size));
  std::size_t length = 0;
  std::wstring const message = CaughtMessage([&] { length = WkbToFgf(bytes, size, fgf.data()); });
  Require(message.empty() || message == L"Invalid FGF stream!");
  if (length > 0) Require(SkipGeometry(fgf.data(), fgf.data() + length) == fgf.data() + length);

  fgf.assign(IsoWkbToFgfBound(size), 0);
  length = IsoWkbToFgf(bytes, size, fgf.data());
  if (length == 0) return;
  Require(SkipGeometry(fgf.data(), fgf.data() + length) == fgf.data() + length);

  // Parts of different dimensionality are read, but not written again.
  std::vector<unsigned char> wkb(FgfToIsoWkbBound(length));
  std::size_t const written = FgfToIsoWkb(fgf.data(), length, wkb.data());
  if (written == 0) return;
  std::vector<unsigned char> back(IsoWkbToFgfBound(written));
  Require(IsoWkbToFgf(wkb.data(), written, back.data()) == length);
  Require(std::memcmp(back.data(), fgf.data(), length) == 0);
}

}  // namespace
}  // namespace fdo

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  fdo::Check(data, size);
  return 0;
}
