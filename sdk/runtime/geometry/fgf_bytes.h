// FgfBytes is a stretch of a geometry stream: borrowed from a caller, or kept alive by its array.
#ifndef SDK_RUNTIME_GEOMETRY_FGF_BYTES_H_
#define SDK_RUNTIME_GEOMETRY_FGF_BYTES_H_

#include "sdk/runtime/geometry/fgf_walk.h"

namespace fdo_sdk {

struct FgfBytes {
  FdoByte const* data = nullptr;
  std::size_t size = 0;
  FdoPtr<FdoByteArray> array;  // null when the bytes are borrowed from outside

  FgfCursor Cursor(std::size_t offset = 0) const { return FgfCursor(data + offset, size - offset); }

  // The bytes from there on, kept alive in the same way.
  FgfBytes From(std::size_t offset) const { return {data + offset, size - offset, array}; }
};

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_GEOMETRY_FGF_BYTES_H_
