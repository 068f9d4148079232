// Any bytes as an FGF stream: every routine stays inside, and they agree with each other.
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

// Where a routine ends, or null when it finds the stream invalid.
template <class Call>
unsigned char const* EndOf(Call call) {
  unsigned char const* end = nullptr;
  std::wstring const message = CaughtMessage([&] { end = call(); });
  Require(message.empty() ? end != nullptr : message == L"Invalid FGF stream!");
  return end;
}

void Check(unsigned char const* bytes, std::size_t size) {
  unsigned char const* const end = bytes + size;
  unsigned char const* const skipped = EndOf([&] { return SkipGeometry(bytes, end); });
  double box[4] = {};
  Require(EndOf([&] { return FgfBox(bytes, end, box); }) == skipped);
  for (double const bound : box) Require(bound == bound);
  FgfVisitor visitor;
  Require(EndOf([&] { return VisitFgf(bytes, end, visitor); }) == skipped);

  // Buffers of exactly the promised sizes, for the address sanitizer to watch.
  std::vector<unsigned char> wkb(FgfToWkbBound(size));
  std::size_t plain = 0;
  CaughtMessage([&] { plain = FgfToWkb(bytes, size, wkb.data()); });
  Require(plain == 0 || skipped != nullptr);

  std::vector<unsigned char> isoWkb(FgfToIsoWkbBound(size));
  std::size_t const written = FgfToIsoWkb(bytes, size, isoWkb.data());
  if (written == 0) return;
  Require(skipped != nullptr);
  std::vector<unsigned char> const exact(isoWkb.begin(),
                                         isoWkb.begin() + static_cast<std::ptrdiff_t>(written));
  std::vector<unsigned char> back(IsoWkbToFgfBound(written));
  std::size_t const length = IsoWkbToFgf(exact.data(), written, back.data());
  Require(length == static_cast<std::size_t>(skipped - bytes));
  Require(std::memcmp(back.data(), bytes, length) == 0);
}

}  // namespace
}  // namespace fdo

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  fdo::Check(data, size);
  return 0;
}
