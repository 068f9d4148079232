#include "sdk/runtime/geometry/stream_failure.h"

#include <string>

namespace fdo_sdk {

void ThrowInvalidFgf() { throw FdoException::Create(L"Invalid FGF stream!"); }

void ThrowInvalidWkb() { throw FdoException::Create(L"Invalid WKB stream!"); }

void ThrowFailure(FdoString* message) { throw FdoException::Create(message); }

void CheckIndex(FdoInt32 index, FdoInt32 count) {
  if (index >= 0 && index < count) return;
  std::wstring const message =
      L"Position " + std::to_wstring(index) + L" is outside 0 to " + std::to_wstring(count - 1) + L".";
  throw FdoException::Create(message.c_str());
}

}  // namespace fdo_sdk
