// Wide text decoded from UTF-8 into memory that is used again: a text that is read for every row allocates
// only while the longest so far grows.
#ifndef SDK_PROVIDERS_SQLITE_WIDE_BUFFER_H_
#define SDK_PROVIDERS_SQLITE_WIDE_BUFFER_H_

#include <cstddef>
#include <memory>
#include <string_view>

#include "sdk/runtime/core/utf8.h"

namespace fdo_sqlite {

class WideBuffer {
 public:
  // Bytes that are no character become U+FFFD.
  // Borrowed: until the next call; ends with 0.
  wchar_t const* Decode(std::string_view utf8) {
    if (utf8.size() >= capacity_) {
      std::size_t const capacity = utf8.size() + utf8.size() / 2 + 32;
      text_ = std::make_unique<wchar_t[]>(capacity);
      capacity_ = capacity;
    }
    text_[fdo_sdk::DecodeUtf8(utf8, text_.get())] = 0;
    return text_.get();
  }

 private:
  std::unique_ptr<wchar_t[]> text_;
  std::size_t capacity_ = 0;
};

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_WIDE_BUFFER_H_
