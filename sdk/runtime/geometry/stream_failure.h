// What is thrown for a stream that cannot be read, and for other misuse of the geometry classes.
#ifndef SDK_RUNTIME_GEOMETRY_STREAM_FAILURE_H_
#define SDK_RUNTIME_GEOMETRY_STREAM_FAILURE_H_

#include "FdoCommon.h"

namespace fdo_sdk {

[[noreturn]] void ThrowInvalidFgf();
[[noreturn]] void ThrowInvalidWkb();
[[noreturn]] void ThrowFailure(FdoString* message);

// Errors: throws FdoException* for an index outside 0 to count - 1.
void CheckIndex(FdoInt32 index, FdoInt32 count);

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_GEOMETRY_STREAM_FAILURE_H_
