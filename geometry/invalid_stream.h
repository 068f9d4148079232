// The one failure of the geometry streams.
#ifndef GEOMETRY_INVALID_STREAM_H_
#define GEOMETRY_INVALID_STREAM_H_

namespace fdo {

// Errors: always throws FdoException* "Invalid FGF stream!". Gives: one reference.
[[noreturn]] void ThrowInvalidStream();

}  // namespace fdo

#endif  // GEOMETRY_INVALID_STREAM_H_
