#include "geometry/invalid_stream.h"

#include <FdoCommon.h>

namespace fdo {

void ThrowInvalidStream() { throw FdoException::Create(L"Invalid FGF stream!"); }

}  // namespace fdo
