#include "tools/quillon/cell_comparison.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "tools/quillon/cell_text.h"
#include "tools/quillon/date_reading.h"
#include "tools/quillon/geometry_shape.h"
#include "tools/quillon/hash.h"
#include "tools/quillon/utf8.h"

namespace fdo::tool {

namespace {

// What is called rounding: a relative difference of no more than that.
constexpr double kRounding = 1e-6;

// A whole number or any other.
struct Numeral {
  bool isInteger;
  std::int64_t integer;
  double number;
};

Numeral FromInteger(std::int64_t integer) { return {true, integer, static_cast<double>(integer)}; }

Numeral FromDouble(double number) {
  constexpr double kLimit = 9223372036854775808.0;  // 2^63, the first that no 64-bit integer holds
  bool const isInteger = number >= -kLimit && number < kLimit && number == std::floor(number);
  return {isInteger, isInteger ? static_cast<std::int64_t>(number) : 0, number};
}

// The number that the whole text says, or a flag's word.
std::optional<Numeral> FromText(std::string const& text) {
  if (text == "true" || text == "false") return FromInteger(text == "true" ? 1 : 0);
  char const* const begin = text.data();
  char const* const end = begin + text.size();
  std::int64_t integer = 0;
  auto const asInteger = std::from_chars(begin, end, integer);
  if (asInteger.ec == std::errc() && asInteger.ptr == end) return FromInteger(integer);
  double number = 0;
  auto const asDouble = std::from_chars(begin, end, number);
  if (asDouble.ec == std::errc() && asDouble.ptr == end) return FromDouble(number);
  return std::nullopt;
}

std::optional<Numeral> ReadNumeral(Value const& cell) {
  if (IsText(cell)) return FromText(Utf8(Text(cell)));
  if (IsBytes(cell)) return std::nullopt;
  return cell.Type() == Value::kDouble ? FromDouble(Number(cell)) : FromInteger(Integer(cell));
}

bool SameNumber(Numeral const& left, Numeral const& right) {
  if (left.isInteger != right.isInteger) return false;
  if (left.isInteger) return left.integer == right.integer;
  return left.number == right.number || (std::isnan(left.number) && std::isnan(right.number));
}

// Of integers exactly, as far as a double tells: near 2^63 many of them are the same double.
double Deviation(Numeral const& left, Numeral const& right) {
  auto const between = [](std::uint64_t low, std::uint64_t high) { return static_cast<double>(high - low); };
  auto const& [lesser, greater] = std::minmax(left, right, [](Numeral const& a, Numeral const& b) {
    return a.isInteger && b.isInteger ? a.integer < b.integer : a.number < b.number;
  });
  if (lesser.isInteger && greater.isInteger) {
    return between(static_cast<std::uint64_t>(lesser.integer), static_cast<std::uint64_t>(greater.integer));
  }
  if (lesser.number != greater.number) return greater.number - lesser.number;
  // One is 2^63, which is no integer of 64 bits, the other an integer near it.
  constexpr std::uint64_t kTwoTo63 = std::uint64_t{1} << 63;
  return between(static_cast<std::uint64_t>(left.isInteger ? left.integer : right.integer), kTwoTo63);
}

CellChange CompareNumbers(Value const& source, Value const& target) {
  auto const before = ReadNumeral(source), after = ReadNumeral(target);
  if (!before || !after) return {Change::kNumberChanged};
  if (SameNumber(*before, *after)) return {};
  using Limits = std::numeric_limits<std::int32_t>;
  if (before->isInteger && after->isInteger) {
    std::int64_t const cut = before->integer > Limits::max() ? Limits::max() : Limits::min();
    bool const isOutside = before->integer > Limits::max() || before->integer < Limits::min();
    if (isOutside && after->integer == cut) return {Change::kIntegerCut};
  }
  double const deviation = Deviation(*before, *after);
  if (deviation <= kRounding * std::abs(before->number)) return {Change::kNumberRounded, deviation};
  bool const lostItsFraction = deviation < 1 && after->isInteger && !before->isInteger;
  return {lostItsFraction ? Change::kNumberRounded : Change::kNumberChanged, deviation};
}

std::wstring WideText(Value const& cell) {
  if (IsText(cell)) return Text(cell);
  std::string text;
  AppendCellText(text, cell, ColumnDef::kString);
  std::wstring wide;
  WideFromUtf8(text, wide);
  return wide;
}

CellChange CompareTexts(Value const& source, Value const& target) {
  std::wstring const before = WideText(source), after = WideText(target);
  if (before == after) return {};
  return {before.compare(0, after.size(), after) == 0 ? Change::kTextCut : Change::kTextChanged};
}

CellChange CompareDates(Value const& source, Value const& target) {
  auto const before = ReadDate(WideText(source)), after = ReadDate(WideText(target));
  if (!before || !after) return CompareTexts(source, target);
  if (*before == *after) return {};
  DateReading reduced = *before;
  reduced.seconds = std::floor(reduced.seconds);
  if (reduced == *after) return {Change::kFractionDropped};
  reduced.hour = reduced.minute = 0;
  reduced.seconds = 0;
  return {reduced == *after ? Change::kTimeDropped : Change::kDateTimeChanged};
}

bool SameBytes(Value const& left, Value const& right) {
  return left.BlobLen() == right.BlobLen() &&
         std::memcmp(left.AsBlob(), right.AsBlob(), static_cast<std::size_t>(left.BlobLen())) == 0;
}

CellChange CompareGeometries(Value const& source, Value const& target) {
  if (SameBytes(source, target)) return {};
  Shape const before = CanonicalShape(source), after = CanonicalShape(target);
  double const deviation = LargestDeviation(before, after);
  if (deviation == 0) return {};
  if (deviation > 0 && deviation <= kRounding * std::max(1.0, LargestOrdinate(before))) {
    return {Change::kCoordinatesRounded, deviation};
  }
  if (!HasZ(before) && HasZ(after) && HasOnlyZeroZ(after) && SameShape(before, WithoutZ(after))) {
    return {Change::kZAdded};
  }
  bool const losesZ = HasZ(before) && !HasZ(after), losesM = HasM(before) && !HasM(after);
  if (!losesZ && !losesM) return {Change::kGeometryChanged};
  Shape reduced = before;
  if (losesZ) reduced = WithoutZ(std::move(reduced));
  if (losesM) reduced = WithoutM(std::move(reduced));
  if (!SameShape(reduced, after)) return {Change::kGeometryChanged};
  if (losesZ && losesM) return {Change::kZAndMDropped};
  return {losesZ ? Change::kZDropped : Change::kMDropped};
}

bool IsEmptyText(Value const& cell) { return IsText(cell) && Text(cell)[0] == L'\0'; }

CellChange CompareWithNothing(Value const& source, Value const& target) {
  if (IsNothing(source) && IsNothing(target)) return {};
  if (IsNothing(target)) return {IsEmptyText(source) ? Change::kEmptyTextAsNull : Change::kLost};
  if (IsEmptyText(target)) return {Change::kNullAsEmptyText};
  bool const isZero = !IsText(target) && !IsBytes(target) && Number(target) == 0;
  return {isZero ? Change::kNullAsZero : Change::kNullAsValue};
}

std::uint64_t HashText(std::wstring const& text) {
  std::uint64_t hash = text.size();
  for (wchar_t unit : text) hash = Mix(hash, static_cast<std::uint64_t>(unit));
  return hash;
}

}  // namespace

CellChange CompareCells(Value const& source, ColumnDef::DataType type, Value const& target) {
  if (IsNothing(source) || IsNothing(target)) return CompareWithNothing(source, target);
  if (IsBytes(source)) {
    if (!IsBytes(target)) return {Change::kBytesChanged};
    if (type == ColumnDef::kGeometry) return CompareGeometries(source, target);
    return {SameBytes(source, target) ? Change::kNone : Change::kBytesChanged};
  }
  if (!IsText(source)) return CompareNumbers(source, target);
  return type == ColumnDef::kDateTime ? CompareDates(source, target) : CompareTexts(source, target);
}

std::uint64_t HashCell(Value const& cell, ColumnDef::DataType sourceType) {
  constexpr std::uint64_t kNothing = 0x6e6f7468696e67u;
  if (IsNothing(cell)) return kNothing;
  if (IsBytes(cell)) {
    if (sourceType == ColumnDef::kGeometry) return HashShape(CanonicalShape(cell));
    std::uint64_t hash = 0;
    for (int i = 0; i < cell.BlobLen(); ++i) hash = Mix(hash, cell.AsBlob()[i]);
    return hash;
  }
  if (IsNumeric(sourceType) || sourceType == ColumnDef::kBoolean) {
    if (auto const numeral = ReadNumeral(cell)) {
      return numeral->isInteger ? Mix(1, static_cast<std::uint64_t>(numeral->integer))
                                : MixNumber(2, numeral->number);
    }
  }
  if (sourceType == ColumnDef::kDateTime) {
    if (auto const date = ReadDate(WideText(cell))) {
      std::uint64_t hash = 3;
      for (int part : {date->year, date->month, date->day, date->hour, date->minute}) {
        hash = Mix(hash, static_cast<std::uint64_t>(part));
      }
      return MixNumber(hash, date->seconds);
    }
  }
  return HashText(WideText(cell));
}

}  // namespace fdo::tool
