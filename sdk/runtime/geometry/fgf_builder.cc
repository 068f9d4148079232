#include "sdk/runtime/geometry/fgf_builder.h"

#include <limits>

namespace fdo_sdk {

FdoByteArray* FgfBuilder::ToArray() const {
  if (bytes_.size() > static_cast<std::size_t>(std::numeric_limits<FdoInt32>::max())) {
    ThrowFailure(L"The geometry is too large for one stream.");
  }
  return FdoByteArray::Create(bytes_.data(), static_cast<FdoInt32>(bytes_.size()));
}

}  // namespace fdo_sdk
