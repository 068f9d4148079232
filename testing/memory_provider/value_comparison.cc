#include "testing/memory_provider/value_comparison.h"

#include <cwchar>
#include <tuple>

namespace memory_provider {
namespace {

template <class T>
FdoCompareType Order(T const& left, T const& right) {
  if (left < right) return FdoCompareType_Less;
  if (right < left) return FdoCompareType_Greater;
  return left == right ? FdoCompareType_Equal : FdoCompareType_Undefined;
}

bool IsWhole(FdoDataType type) {
  return type == FdoDataType_Byte || type == FdoDataType_Int16 || type == FdoDataType_Int32 ||
         type == FdoDataType_Int64;
}

bool IsReal(FdoDataType type) {
  return type == FdoDataType_Double || type == FdoDataType_Decimal || type == FdoDataType_Single;
}

auto Parts(FdoDateTime const& value) {
  return std::make_tuple(value.year, value.month, value.day, value.hour, value.minute, value.seconds);
}

FdoInt64 Whole(FdoDataValue* value) {
  FdoPtr<FdoInt64Value> whole = FdoInt64Value::Create(value);
  return whole->GetInt64();
}

double Real(FdoDataValue* value) {
  FdoPtr<FdoDoubleValue> real = FdoDoubleValue::Create(value);
  return real->GetDouble();
}

// The end of the set that starts behind an opening bracket, at its closing one; null without one.
wchar_t const* EndOfSet(wchar_t const* set) {
  wchar_t const* place = *set == L'^' ? set + 1 : set;
  if (*place == L']') ++place;
  return std::wcschr(place, L']');
}

bool IsInSet(wchar_t character, wchar_t const* set, wchar_t const* end) {
  bool const negated = *set == L'^';
  bool found = false;
  for (wchar_t const* place = negated ? set + 1 : set; place < end; ++place) {
    if (place + 2 < end && place[1] == L'-') {
      found = found || (place[0] <= character && character <= place[2]);
      place += 2;
    } else {
      found = found || *place == character;
    }
  }
  return found != negated;
}

// Whether the first character of the text fits what the pattern starts with, and where that ends.
bool FitsOne(wchar_t character, wchar_t const* pattern, wchar_t const** rest) {
  *rest = pattern + 1;
  if (*pattern == L'_') return true;
  wchar_t const* end = *pattern == L'[' ? EndOfSet(pattern + 1) : nullptr;
  if (end == nullptr) return *pattern == character;
  *rest = end + 1;
  return IsInSet(character, pattern + 1, end);
}

}  // namespace

FdoCompareType CompareLiterals(FdoLiteralValue* left, FdoLiteralValue* right) {
  auto* a = dynamic_cast<FdoDataValue*>(left);
  auto* b = dynamic_cast<FdoDataValue*>(right);
  if (a == nullptr || b == nullptr || a->IsNull() || b->IsNull()) return FdoCompareType_Undefined;
  FdoDataType const typeA = a->GetDataType();
  FdoDataType const typeB = b->GetDataType();
  if (IsWhole(typeA) && IsWhole(typeB)) return Order(Whole(a), Whole(b));
  if ((IsWhole(typeA) || IsReal(typeA)) && (IsWhole(typeB) || IsReal(typeB))) return Order(Real(a), Real(b));
  if (typeA != typeB) return FdoCompareType_Undefined;
  if (typeA == FdoDataType_String) {
    int const order = std::wcscmp(static_cast<FdoStringValue*>(a)->GetString(),
                                  static_cast<FdoStringValue*>(b)->GetString());
    return Order(order, 0);
  }
  if (typeA == FdoDataType_Boolean) {
    return Order(static_cast<FdoBooleanValue*>(a)->GetBoolean(),
                 static_cast<FdoBooleanValue*>(b)->GetBoolean());
  }
  if (typeA == FdoDataType_DateTime) {
    return Order(Parts(static_cast<FdoDateTimeValue*>(a)->GetDateTime()),
                 Parts(static_cast<FdoDateTimeValue*>(b)->GetDateTime()));
  }
  return FdoCompareType_Undefined;
}

bool MatchesPattern(wchar_t const* text, wchar_t const* pattern) {
  // Where to go on when what follows the last % does not fit: that % then covers one character more.
  wchar_t const* retryText = nullptr;
  wchar_t const* retryPattern = nullptr;
  while (*text != 0) {
    wchar_t const* rest = nullptr;
    if (*pattern == L'%') {
      retryPattern = ++pattern;
      retryText = text;
    } else if (*pattern != 0 && FitsOne(*text, pattern, &rest)) {
      pattern = rest;
      ++text;
    } else if (retryPattern != nullptr) {
      pattern = retryPattern;
      text = ++retryText;
    } else {
      return false;
    }
  }
  while (*pattern == L'%') ++pattern;
  return *pattern == 0;
}

}  // namespace memory_provider
