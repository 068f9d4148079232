#include <fdo/geometry_stream.h>

#include "geometry/fgf_walk.h"
#include "geometry/invalid_stream.h"

namespace fdo {

unsigned char const* SkipGeometry(unsigned char const* begin, unsigned char const* end) {
  StreamCursor in(begin, end);
  PassingSink sink;
  WalkFgf(in, sink);
  if (in.Failed()) ThrowInvalidStream();
  return in.At();
}

unsigned char const* VisitFgf(unsigned char const* begin, unsigned char const* end, FgfVisitor& visitor) {
  StreamCursor in(begin, end);
  bool const complete = WalkFgf(in, visitor);
  if (in.Failed()) ThrowInvalidStream();
  return complete ? in.At() : nullptr;
}

}  // namespace fdo
