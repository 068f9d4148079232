// Any bytes as FGF: refused with an exception, or a geometry whose every part can be looked at, that
// measures itself and comes back as it was.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "sdk/runtime/geometry/geometry_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
  FdoPtr<FdoIGeometry> geometry;
  try {
    geometry = factory->CreateGeometryFromFgf(data, static_cast<FdoInt32>(size));
  } catch (FdoException* raised) {
    raised->Release();
    return 0;
  }
  FdoPtr<FdoByteArray> fgf = factory->GetFgf(geometry);
  if (std::memcmp(fgf->GetData(), data, static_cast<std::size_t>(fgf->GetCount())) != 0) std::abort();
  fdo_sdk::LookAtEverything(geometry);

  // What FGF can say WKB can say too.
  FdoPtr<FdoByteArray> wkb = factory->GetWkb(geometry);
  FdoPtr<FdoIGeometry> back = factory->CreateGeometryFromWkb(wkb);
  FdoPtr<FdoByteArray> again = factory->GetWkb(back);
  if (!fdo_sdk::SameBytes(*wkb, *again)) std::abort();
  return 0;
}
