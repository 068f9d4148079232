#include "tools/quillon/output.h"

#include <cerrno>

#include "tools/quillon/messages.h"

namespace fdo::tool {

Output::Output(std::FILE* stream) : stream_(stream) { buffer_.reserve(2 * kBlockBytes); }

void Output::Flush() {
  WriteBuffer();
  if (std::fflush(stream_) != 0) Fail();
}

void Output::WriteBuffer() {
  errno = 0;
  std::size_t const written = std::fwrite(buffer_.data(), 1, buffer_.size(), stream_);
  bool const complete = written == buffer_.size();
  buffer_.clear();
  if (!complete) Fail();
}

void Output::Fail() { throw CannotWriteOutput(errno); }

}  // namespace fdo::tool
