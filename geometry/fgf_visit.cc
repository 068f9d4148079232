#include <fdo/geometry_stream.h>

#include "geometry/fgf_walk.h"
#include "geometry/invalid_stream.h"

namespace fdo {

unsigned char const* VisitFgf(unsigned char const* begin, unsigned char const* end, FgfVisitor& visitor) {
  StreamCursor in(begin, end);
  FgfNesting nesting;
  bool const complete = WalkFgf(in, visitor, nesting);
  if (in.Failed()) ThrowInvalidStream();
  return complete ? in.At() : nullptr;
}

}  // namespace fdo
