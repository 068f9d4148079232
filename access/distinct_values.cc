#include "access/distinct_values.h"

#include <cstdint>
#include <cstring>
#include <cwchar>

namespace fdo::internal {
namespace {

constexpr int kKindMask = ~static_cast<int>(Value::kBorrowed);

std::uint64_t Mix(std::uint64_t hash, std::uint64_t bits) {
  hash = (hash ^ bits) * 0x9E3779B97F4A7C15;
  return hash ^ hash >> 32;
}

std::uint64_t BitsOf(double number) {
  std::uint64_t bits;
  std::memcpy(&bits, &number, sizeof(bits));
  return bits;
}

// Values of other kinds than these are rare enough in a column to go the long way.
bool IsHashed(int kind) { return kind >= Value::kNull && kind <= Value::kString; }

std::uint64_t HashOf(Value const& value, int kind) {
  std::uint64_t hash = Mix(0, static_cast<std::uint64_t>(kind));
  switch (kind) {
    case Value::kBool:
    case Value::kInt:
      return Mix(hash, static_cast<std::uint64_t>(static_cast<__int64>(value)));
    case Value::kDouble:
      return Mix(hash, BitsOf(static_cast<double>(value)));
    case Value::kString:
      for (wchar_t const* unit = value; *unit != 0; ++unit)
        hash = Mix(hash, static_cast<std::uint64_t>(*unit));
      return hash;
    default:
      return hash;
  }
}

// Whether both hold the same bits; values that only compare equal do not count.
bool IsSame(Value const& left, Value const& right, int kind) {
  if ((left.Type() & kKindMask) != kind) return false;
  switch (kind) {
    case Value::kBool:
    case Value::kInt:
      return static_cast<__int64>(left) == static_cast<__int64>(right);
    case Value::kDouble:
      return BitsOf(static_cast<double>(left)) == BitsOf(static_cast<double>(right));
    case Value::kString:
      return std::wcscmp(left, right) == 0;
    default:
      return true;
  }
}

}  // namespace

void DistinctValues::Add(Value const& value) {
  int const kind = value.Type() & kKindMask;
  if (!IsHashed(kind)) {
    values_.insert(value);
    return;
  }
  Value const*& recent = recent_[HashOf(value, kind) % kRecentSlots];
  if (recent != nullptr && IsSame(*recent, value, kind)) return;
  // insert looks the value up before it makes an element of it.
  recent = &*values_.insert(value).first;
}

}  // namespace fdo::internal
