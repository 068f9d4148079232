#ifndef FDO_VALUE_H_
#define FDO_VALUE_H_

#include <fdo/export.h>
#include <fdo/integer.h>

#include <cstdint>
#include <limits>
#include <type_traits>

namespace fdo {

class ExprEval;

// A Value is one cell of a row: nothing, a null, a flag, a 64-bit integer, a double, text or bytes.
//
// It is two machine words. Text and bytes are owned or borrowed: a borrowed Value points into its
// lender (a reader, a buffer, another Value) and must not outlive it; a copy of a borrowed Value is
// always owned. The text of a number or a flag is made when it is first asked for and is kept in the
// value, packed into the word that holds its kind.
//
// Type codes, as Type() gives them (7 to 12 and 15 never occur):
//
//    0 undefined   2 flag      4 double        5 text, owned       6 bytes, owned
//    1 null        3 integer                  13 text, borrowed   14 bytes, borrowed
//
// Errors: none is reported. A conversion without a sensible answer gives false, 0 or null, as stated
// on each. Memory that cannot be had leaves a null address behind.
// Threads: not even const use may be shared, because asking a number for its text fills a cache.
class QUILLON_EXPORT Value {
 public:
  // The codes 5 and 6 carry the borrowed flag, 8, when the value points at memory of somebody else.
  enum Kind : int {
    kUndef = 0,
    kNull = 1,
    kBool = 2,
    kInt = 3,
    kDouble = 4,
    kString = 5,
    kBlob = 6,
    kBorrowed = 8,
    kBorrowedString = kString | kBorrowed,
    kBorrowedBlob = kBlob | kBorrowed,
  };

  Value() noexcept : word_(kNull), payload_{0} {}
  Value(int value) noexcept : Value(static_cast<long long>(value)) {}
  Value(long value) noexcept : Value(static_cast<long long>(value)) {}
  Value(long long value) noexcept : word_(kInt), payload_{value} {}
  Value(bool value) noexcept : word_(kBool), payload_{value ? 1 : 0} {}
  Value(double value) noexcept : word_(kDouble), payload_{0} { payload_.number = value; }
  // An owned copy of the text; a null pointer gives a null value.
  Value(wchar_t const* text);
  // An owned copy of that many bytes; a null pointer gives a null value.
  Value(void const* bytes, int lengthBytes);
  // An owned copy; an undefined value gives an undefined one.
  Value(Value const& other);
  // Takes over what other owns and leaves it null.
  Value(Value&& other) noexcept : word_(other.word_), payload_(other.payload_) { other.SetNull(); }
  Value& operator=(Value const& other);
  Value& operator=(Value&& other) noexcept {
    if (this != &other) {
      if (MayOwnMemory()) Release();
      word_ = other.word_;
      payload_ = other.payload_;
      other.SetNull();
    }
    return *this;
  }
  ~Value() {
    if (MayOwnMemory()) Release();
  }

  // Any other pointer would silently become a flag.
  template <class T, class = std::enable_if_t<!std::is_same<std::remove_cv_t<T>, wchar_t>::value>>
  Value(T* pointer) = delete;

  // Each Reset releases the old contents first; the argument must not point into them.
  void Reset() {  // null
    if (MayOwnMemory()) Release();
    SetNull();
  }
  void Reset(int value) { Reset(static_cast<long long>(value)); }
  void Reset(long value) { Reset(static_cast<long long>(value)); }
  void Reset(long long value) {
    if (MayOwnMemory()) Release();
    SetInt(value);
  }
  void Reset(bool value) {
    if (MayOwnMemory()) Release();
    SetBool(value);
  }
  void Reset(double value) {
    if (MayOwnMemory()) Release();
    SetDouble(value);
  }
  void Reset(float value) { Reset(static_cast<double>(value)); }
  // copy: an owned copy of the text; otherwise it is borrowed.
  // Requires, to borrow: text outlives this value's use of it.
  // A null pointer gives a null value either way.
  void Reset(wchar_t const* text, bool copy);
  // The same for bytes. The length is kept as it is given.
  void Reset(void const* bytes, int lengthBytes, bool copy);
  template <class T, class = std::enable_if_t<!std::is_same<std::remove_cv_t<T>, wchar_t>::value>>
  void Reset(T* pointer) = delete;

  // Makes the value undefined: in a row of a table, "not fetched yet".
  void Invalidate() {
    if (MayOwnMemory()) Release();
    SetUndef();
  }

  // A deep copy: text and bytes, owned or borrowed, become owned copies. The other value's cached
  // text is not shared.
  void CopyFrom(Value const& other);

  // The code listed above, borrowed flag included.
  int Type() const { return static_cast<int>(word_ & kCodeMask); }
  bool IsNull() const { return Type() == kNull; }
  bool IsValid() const { return Type() != kUndef; }
  // Borrowed: until the value is next changed or destroyed. Null unless the value holds bytes.
  unsigned char const* AsBlob() const { return (Type() & kKindMask) == kBlob ? payload_.bytes : nullptr; }
  // The length in bytes of a value that holds bytes; 0 for every other kind without cached text.
  // Deliberate: the upper half of the first word is returned without a look at the kind, so it means
  // nothing for a flag or a number whose text has been asked for
  // (ValueTextCache.BlobLenIsHalfTheCacheAddress).
  int BlobLen() const { return static_cast<int>(static_cast<std::uint32_t>(word_ >> 32)); }

  // The flag; an integer other than 0; the text "true" in any case.
  // Deliberate: a double is never true, whatever its number (ValueToBool.DoubleIsNeverTrue).
  bool AsBool() const;
  operator bool() const { return AsBool(); }
  // 0 or 1; the integer; a double truncated toward zero (out of range and NaN give the least integer);
  // the number that a text begins with, clamped to 64 bits; else 0.
  operator __int64() const {
    switch (Type()) {
      case kBool:
      case kInt:
        return payload_.integer;
      case kDouble:
        return Truncate(payload_.number);
      default:
        return TextAsInteger();
    }
  }
  // The same as a double; 0.0 where there is no number.
  operator double() const {
    switch (Type()) {
      case kBool:
      case kInt:
        return static_cast<double>(payload_.integer);
      case kDouble:
        return payload_.number;
      default:
        return TextAsDouble();
    }
  }
  // The text itself; an integer in decimal; a double with 16 significant digits as "%.16g" of the C
  // locale; else null.
  // Borrowed: until the value is next changed or destroyed; twice asked, it is the same address.
  // Deliberate: a flag's text is its 8-bit word "true" or "false" read pairwise as 16-bit units, so it
  // is not the readable word (ValueText.FlagIsItsNarrowWordReadPairwise).
  operator wchar_t const*() const {
    int const kind = Type() & kKindMask;
    if (kind == kString) return payload_.text;
    return kind >= kBool && kind <= kDouble ? CachedStringPtr() : nullptr;
  }

  // An order over all kinds, the one that sets of values use. Null is below everything else, bytes
  // are above; numbers and flags compare as numbers with each other and as text with text (so 10 is
  // below "9"); an undefined value is less than nothing. Text compares unit by unit, bytes by length
  // first. A NaN is neither less nor greater than any double.
  bool operator<(Value const& right) const {
    int const kind = Type() & kKindMask;
    if (kind != (right.Type() & kKindMask)) return DuckTypeLess(right);
    switch (kind) {
      case kBool:
      case kInt:
        return payload_.integer < right.payload_.integer;
      case kDouble:
        return payload_.number < right.payload_.number;
      case kUndef:
      case kNull:
        return false;
      default:
        return CompareMemory(right) < 0;
    }
  }
  bool operator>(Value const& right) const { return right < *this; }
  bool operator<=(Value const& right) const { return !(right < *this); }
  bool operator>=(Value const& right) const { return !(*this < right); }
  bool operator==(Value const& right) const {
    int const kind = Type() & kKindMask;
    if (kind >= kString && kind == (right.Type() & kKindMask)) return CompareMemory(right) == 0;
    return !(*this < right) && !(right < *this);
  }
  bool operator!=(Value const& right) const { return !(*this == right); }
  // The part of the order that compares values of different kinds.
  // Requires: the kinds differ, borrowed or owned aside.
  bool DuckTypeLess(Value const& right) const;

  // result = left op right. Two integers give an integer (wrapping; Div truncates), everything else
  // of different codes gives the double of both numbers. result may be one of the operands.
  // Deliberate: two operands of one code that is neither integer nor double leave result untouched,
  // and owned and borrowed text are different codes (ValueArithmetic.*).
  // Deliberate: dividing integers by zero, or the least integer by -1, is not guarded.
  static void Add(Value& result, Value const& left, Value const& right);
  static void Sub(Value& result, Value const& left, Value const& right);
  static void Mul(Value& result, Value const& left, Value const& right);
  static void Div(Value& result, Value const& left, Value const& right);
  // Negates in place. What is neither integer nor double becomes the double of its negated number,
  // -0.0 where it has none.
  static void Neg(Value& value);

 private:
  friend class ExprEval;
  friend class ValueTestPeer;

  static constexpr std::uint64_t kCodeMask = 15;
  static constexpr int kKindMask = 7;  // the code without the borrowed flag

  // Whether the first word stands for memory of this value's: owned text or bytes, or a text cache.
  bool MayOwnMemory() const { return word_ > kDouble && (word_ & kBorrowed) == 0; }
  // Frees what this value owns; the fields keep their old bits.
  void Release();

  // The least integer for what does not fit, a NaN among it, as the processor's own conversion gives.
  static __int64 Truncate(double number) {
    constexpr double kLimit = 9223372036854775808.0;
    return number >= -kLimit && number < kLimit ? static_cast<__int64>(number)
                                                : std::numeric_limits<__int64>::min();
  }
  // The number a text begins with; 0 for every kind but text.
  __int64 TextAsInteger() const;
  double TextAsDouble() const;

  // Below 0, 0 or above 0, as two texts, or two blobs, compare.
  // Requires: both are text, or both are bytes.
  int CompareMemory(Value const& right) const;

  // The setters do not release what was there.
  void SetUndef() noexcept { word_ = kUndef, payload_.integer = 0; }
  void SetNull() noexcept { word_ = kNull, payload_.integer = 0; }
  void SetBool(bool value) noexcept { word_ = kBool, payload_.integer = value ? 1 : 0; }
  void SetInt(long long value) noexcept { word_ = kInt, payload_.integer = value; }
  void SetDouble(double value) noexcept { word_ = kDouble, payload_.number = value; }
  void SetString(wchar_t const* text, bool copy);
  void SetBlob(void const* bytes, int lengthBytes, bool copy);

  // Releases this value and makes it a borrowed view of the other's text or bytes, or a copy of its
  // number; a cached text stays with the other value.
  // Requires: this and other are two values, and other's text or bytes are not borrowed from this one.
  void ShallowCopy(Value const& other) {
    if (MayOwnMemory()) Release();
    std::uint64_t const code = other.word_ & kCodeMask;
    if (code < kString) {
      word_ = code;
    } else {
      word_ = other.word_ | kBorrowed;
    }
    payload_ = other.payload_;
  }

  // The text of a flag, an integer or a double; it stays until the value is released or replaced.
  wchar_t const* CachedStringPtr() const;

  template <class Operation>
  static void Calculate(Value& result, Value const& left, Value const& right, Operation operation);

  // Every rule that holds between the two words; asserted by the mutators in debug builds.
  bool IsConsistent() const;

  // Low 4 bits: the code. For bytes the upper 32 bits are their length. For a flag, an integer or a
  // double bits 4 to 63 are the address of the cached text, which is 16-byte aligned; below 16 there
  // is none.
  mutable std::uint64_t word_;
  union Payload {
    long long integer;  // of a flag, 0 or 1
    double number;
    wchar_t* text;
    unsigned char* bytes;
  } payload_;
};

static_assert(sizeof(Value) == 16, "a row is an array of two-word cells");
static_assert(sizeof(void*) == 8, "the text cache packs a 64-bit address");

}  // namespace fdo

#endif  // FDO_VALUE_H_
