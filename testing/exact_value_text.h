// Values as text in which any two that differ do so, for tests that compare two ways to them.
#ifndef TESTING_EXACT_VALUE_TEXT_H_
#define TESTING_EXACT_VALUE_TEXT_H_

#include <fdo/value.h>

#include <cstdint>
#include <cstring>
#include <string>

namespace fdo {

// Every bit of it.
inline std::wstring ExactTextOf(double number) {
  std::int64_t bits = 0;
  std::memcpy(&bits, &number, sizeof bits);
  return std::to_wstring(number) + L" as " + std::to_wstring(bits);
}

inline std::wstring ExactTextOf(Value const& value) {
  std::wstring text = std::to_wstring(value.Type()) + L" ";
  if (value.AsBlob() != nullptr) {
    for (int i = 0; i < value.BlobLen(); ++i) text += std::to_wstring(value.AsBlob()[i]) + L",";
  } else if (wchar_t const* const own = value) {
    text += own;
  }
  return text + (value.Type() == Value::kDouble ? L" " + ExactTextOf(static_cast<double>(value)) : L"");
}

}  // namespace fdo

#endif  // TESTING_EXACT_VALUE_TEXT_H_
