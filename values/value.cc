#include <fdo/value.h>

#include <cassert>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <new>
#include <utility>

#include "values/number_text.h"

namespace fdo {
namespace {

// The low bits of a cached text's address hold the kind of its value.
constexpr std::uint64_t kCacheAlignment = 16;
static_assert(__STDCPP_DEFAULT_NEW_ALIGNMENT__ >= kCacheAlignment, "the cache needs four free address bits");

// "true" and "false" as 8-bit text, two characters to a little-endian 16-bit unit.
constexpr wchar_t kTrueText[] = {0x7274, 0x6575, 0};
constexpr wchar_t kFalseText[] = {0x6166, 0x736C, 0x0065, 0};

void* CopyOfMemory(void const* source, std::size_t lengthBytes) {
  // One byte at least, because malloc(0) may give the null address of a failure.
  void* copy = std::malloc(lengthBytes == 0 ? 1 : lengthBytes);
  if (copy != nullptr && lengthBytes != 0) std::memcpy(copy, source, lengthBytes);
  return copy;
}

// A value whose memory could not be had has no address.
wchar_t const* TextOrEmpty(wchar_t const* text) { return text == nullptr ? L"" : text; }

int CompareTexts(wchar_t const* left, wchar_t const* right) {
  left = TextOrEmpty(left);
  right = TextOrEmpty(right);
  if (*left != *right) return *left < *right ? -1 : 1;
  return std::wcscmp(left, right);
}

bool TextBefore(Value const& left, Value const& right) {
  return CompareTexts(left.operator wchar_t const*(), right.operator wchar_t const*()) < 0;
}

bool Never(Value const&, Value const&) { return false; }
bool Always(Value const&, Value const&) { return true; }
bool IntegerLess(Value const& left, Value const& right) {
  return static_cast<__int64>(left) < static_cast<__int64>(right);
}
// The negated test makes an integer or a flag less than a NaN, the plain one makes no double so.
bool NotGreaterOrEqual(Value const& left, Value const& right) {
  return !(static_cast<double>(left) >= static_cast<double>(right));
}
bool DoubleLess(Value const& left, Value const& right) {
  return static_cast<double>(left) < static_cast<double>(right);
}

using Less = bool (*)(Value const& left, Value const& right);
constexpr std::size_t kKindCount = 7;

// Rows are the left kind, columns the right. The diagonal is not used.
constexpr Less kLess[kKindCount][kKindCount] = {
    // undefined, null, flag, integer, double, text, bytes
    {Never, Never, Never, Never, Never, Never, Never},                          // undefined
    {Always, Never, Always, Always, Always, Always, Always},                    // null
    {Never, Never, Never, IntegerLess, NotGreaterOrEqual, TextBefore, Always},  // flag
    {Never, Never, IntegerLess, Never, NotGreaterOrEqual, TextBefore, Always},  // integer
    {Never, Never, DoubleLess, DoubleLess, Never, TextBefore, Always},          // double
    {Never, Never, TextBefore, TextBefore, TextBefore, Never, Always},          // text
    {Never, Never, Never, Never, Never, Never, Never},                          // bytes
};

// Integers wrap, which only unsigned arithmetic promises; dividing is left to the processor.
struct Plus {
  long long operator()(long long a, long long b) const {
    return static_cast<long long>(static_cast<unsigned long long>(a) + static_cast<unsigned long long>(b));
  }
  double operator()(double a, double b) const { return a + b; }
};
struct Minus {
  long long operator()(long long a, long long b) const {
    return static_cast<long long>(static_cast<unsigned long long>(a) - static_cast<unsigned long long>(b));
  }
  double operator()(double a, double b) const { return a - b; }
};
struct Times {
  long long operator()(long long a, long long b) const {
    return static_cast<long long>(static_cast<unsigned long long>(a) * static_cast<unsigned long long>(b));
  }
  double operator()(double a, double b) const { return a * b; }
};
struct Over {
  long long operator()(long long a, long long b) const { return a / b; }
  double operator()(double a, double b) const { return a / b; }
};

}  // namespace

Value::Value(wchar_t const* text) : Value() { SetString(text, true); }

Value::Value(void const* bytes, int lengthBytes) : Value() { SetBlob(bytes, lengthBytes, true); }

Value::Value(Value const& other) : word_(kUndef), payload_{0} { CopyFrom(other); }

Value& Value::operator=(Value const& other) {
  if (this != &other) CopyFrom(other);
  return *this;
}

void Value::Release() {
  switch (Type()) {
    case kString:
      std::free(payload_.text);
      break;
    case kBlob:
      std::free(payload_.bytes);
      break;
    case kBool:
    case kInt:
    case kDouble:
      if (word_ >= kCacheAlignment) ::operator delete(reinterpret_cast<void*>(word_ & ~kCodeMask));
      break;
    default:
      break;  // borrowed, or nothing to free
  }
}

void Value::SetString(wchar_t const* text, bool copy) {
  if (text == nullptr) {
    SetNull();
    return;
  }
  word_ = copy ? kString : kBorrowedString;
  payload_.text = copy ? static_cast<wchar_t*>(CopyOfMemory(text, (std::wcslen(text) + 1) * sizeof(wchar_t)))
                       : const_cast<wchar_t*>(text);
  assert(IsConsistent());
}

void Value::SetBlob(void const* bytes, int lengthBytes, bool copy) {
  if (bytes == nullptr) {
    SetNull();
    return;
  }
  word_ = (std::uint64_t{static_cast<std::uint32_t>(lengthBytes)} << 32) |
          static_cast<std::uint64_t>(copy ? kBlob : kBorrowedBlob);
  if (copy) {
    payload_.bytes = static_cast<unsigned char*>(
        CopyOfMemory(bytes, lengthBytes > 0 ? static_cast<std::size_t>(lengthBytes) : 0));
    if (payload_.bytes == nullptr) word_ = kBlob;  // no memory, no length
  } else {
    payload_.bytes = static_cast<unsigned char*>(const_cast<void*>(bytes));
  }
  assert(IsConsistent());
}

void Value::Reset(wchar_t const* text, bool copy) {
  if (MayOwnMemory()) Release();
  SetString(text, copy);
}

void Value::Reset(void const* bytes, int lengthBytes, bool copy) {
  if (MayOwnMemory()) Release();
  SetBlob(bytes, lengthBytes, copy);
}

void Value::CopyFrom(Value const& other) {
  // A copy of memory is made before the release: other may be this value, or borrowed from it.
  Value copy;
  switch (other.Type() & kKindMask) {
    case kString:
      copy.SetString(other.payload_.text, true);
      break;
    case kBlob:
      copy.SetBlob(other.payload_.bytes, other.BlobLen(), true);
      break;
    default:
      copy.word_ = other.word_ & kCodeMask;
      copy.payload_ = other.payload_;
      break;
  }
  *this = std::move(copy);
}

bool Value::AsBool() const {
  switch (Type()) {
    case kBool:
    case kInt:
      return payload_.integer != 0;
    case kString:
    case kBorrowedString:
      return internal::EqualIgnoringCase(TextOrEmpty(payload_.text), L"true");
    default:
      return false;
  }
}

__int64 Value::TextAsInteger() const {
  if ((Type() & kKindMask) != kString) return 0;
  long long number;
  internal::ReadInteger(TextOrEmpty(payload_.text), number);
  return number;
}

double Value::TextAsDouble() const {
  if ((Type() & kKindMask) != kString) return 0.0;
  double number;
  internal::ReadReal(TextOrEmpty(payload_.text), number);
  return number;
}

wchar_t const* Value::CachedStringPtr() const {
  if (word_ >= kCacheAlignment) return reinterpret_cast<wchar_t const*>(word_ & ~kCodeMask);
  wchar_t formatted[internal::kNumberTextSize];
  wchar_t const* text = formatted;
  int length = 0;
  switch (Type()) {
    case kInt:
      length = internal::FormatInteger(payload_.integer, formatted);
      break;
    case kDouble:
      length = internal::FormatReal(payload_.number, formatted);
      break;
    case kBool:
      text = payload_.integer != 0 ? kTrueText : kFalseText;
      length = payload_.integer != 0 ? 2 : 3;
      break;
    default:
      return nullptr;
  }
  std::size_t const size = (static_cast<std::size_t>(length) + 1) * sizeof(wchar_t);
  void* cache = ::operator new(size, std::nothrow);
  if (cache == nullptr) return nullptr;
  std::memcpy(cache, text, size);
  word_ |= reinterpret_cast<std::uint64_t>(cache);
  assert(IsConsistent());
  return static_cast<wchar_t const*>(cache);
}

int Value::CompareMemory(Value const& right) const {
  assert((Type() & kKindMask) == (right.Type() & kKindMask) && (Type() & kKindMask) >= kString);
  if ((Type() & kKindMask) == kString) return CompareTexts(payload_.text, right.payload_.text);
  int const length = BlobLen();
  if (length != right.BlobLen()) return length < right.BlobLen() ? -1 : 1;
  return length > 0 ? std::memcmp(payload_.bytes, right.payload_.bytes, static_cast<std::size_t>(length)) : 0;
}

bool Value::DuckTypeLess(Value const& right) const {
  return kLess[Type() & kKindMask][right.Type() & kKindMask](*this, right);
}

template <class Operation>
void Value::Calculate(Value& result, Value const& left, Value const& right, Operation operation) {
  // Every number is taken before result, which may be an operand, is changed.
  if (left.Type() != right.Type()) {
    result.Reset(operation(static_cast<double>(left), static_cast<double>(right)));
  } else if (left.Type() == kInt) {
    result.Reset(operation(left.payload_.integer, right.payload_.integer));
  } else if (left.Type() == kDouble) {
    result.Reset(operation(left.payload_.number, right.payload_.number));
  }
}

void Value::Add(Value& result, Value const& left, Value const& right) {
  Calculate(result, left, right, Plus());
}
void Value::Sub(Value& result, Value const& left, Value const& right) {
  Calculate(result, left, right, Minus());
}
void Value::Mul(Value& result, Value const& left, Value const& right) {
  Calculate(result, left, right, Times());
}
void Value::Div(Value& result, Value const& left, Value const& right) {
  Calculate(result, left, right, Over());
}

void Value::Neg(Value& value) {
  if (value.Type() == kInt) {
    value.Reset(Minus()(0LL, value.payload_.integer));
  } else {
    value.Reset(-static_cast<double>(value));
  }
}

bool Value::IsConsistent() const {
  switch (Type()) {
    case kUndef:
    case kNull:
      return word_ < kCacheAlignment && payload_.integer == 0;
    case kBool:
      return payload_.integer == 0 || payload_.integer == 1;
    case kInt:
    case kDouble:
      return true;
    case kString:
    case kBorrowedString:
      return word_ < kCacheAlignment;
    case kBlob:
    case kBorrowedBlob:
      return (word_ & 0xFFFFFFF0u) == 0;  // nothing between the code and the length
    default:
      return false;
  }
}

}  // namespace fdo
