#include <fdo/geometry_stream.h>

#include "geometry/fgf_walk.h"
#include "geometry/invalid_stream.h"

namespace fdo {

unsigned char const* SkipGeometry(unsigned char const* begin, unsigned char const* end) {
  StreamCursor in(begin, end);
  FgfNesting nesting;
  PassingSink sink;
  WalkFgf(in, sink, nesting);
  if (in.Failed()) ThrowInvalidStream();
  return in.At();
}

}  // namespace fdo
