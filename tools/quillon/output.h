#ifndef TOOLS_QUILLON_OUTPUT_H_
#define TOOLS_QUILLON_OUTPUT_H_

#include <cstdio>
#include <string>
#include <string_view>

namespace fdo::tool {

// The stream that data goes to, in blocks of 64 KiB. What could not be written never stays unnoticed:
// a full disk and a closed pipe are failures, at the latest in Flush.
// Errors: throws Failure; whatever is written after that is dropped.
class Output {
 public:
  // Borrowed: stream must outlive the output.
  explicit Output(std::FILE* stream);
  Output(Output const&) = delete;
  Output& operator=(Output const&) = delete;

  void Write(std::string_view text) {
    buffer_ += text;
    if (buffer_.size() >= kBlockBytes) WriteBuffer();
  }
  // Requires: called once after the last Write, or what is left in the buffer is lost.
  void Flush();

 private:
  static constexpr std::size_t kBlockBytes = 64 * 1024;

  void WriteBuffer();
  [[noreturn]] void Fail();

  std::FILE* stream_;  // not owned
  std::string buffer_;
};

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_OUTPUT_H_
