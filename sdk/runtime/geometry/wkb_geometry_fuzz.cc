// Any bytes as WKB: refused with an exception, or a geometry that is written and read again as it is.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "sdk/runtime/geometry/geometry_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
  FdoPtr<FdoByteArray> bytes = FdoByteArray::Create(data, static_cast<FdoInt32>(size));
  FdoPtr<FdoIGeometry> geometry;
  try {
    geometry = factory->CreateGeometryFromWkb(bytes);
  } catch (FdoException* raised) {
    raised->Release();
    return 0;
  }
  fdo_sdk::LookAtEverything(geometry);
  FdoPtr<FdoByteArray> fgf = factory->GetFgf(geometry);
  FdoPtr<FdoByteArray> wkb = factory->GetWkb(geometry);
  FdoPtr<FdoIGeometry> back = factory->CreateGeometryFromWkb(wkb);
  FdoPtr<FdoByteArray> again = factory->GetFgf(back);
  if (!fdo_sdk::SameBytes(*fgf, *again)) std::abort();
  return 0;
}
