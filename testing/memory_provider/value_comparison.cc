#include "testing/memory_provider/value_comparison.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <string>

namespace memory_provider {
namespace {

template <class T>
FdoCompareType Order(T const& left, T const& right) {
  if (left < right) return FdoCompareType_Less;
  if (right < left) return FdoCompareType_Greater;
  return left == right ? FdoCompareType_Equal : FdoCompareType_Undefined;
}

bool IsWhole(FdoDataType type) {
  return type == FdoDataType_Boolean || type == FdoDataType_Byte || type == FdoDataType_Int16 ||
         type == FdoDataType_Int32 || type == FdoDataType_Int64;
}

bool IsNumber(FdoDataType type) {
  return IsWhole(type) || type == FdoDataType_Double || type == FdoDataType_Decimal ||
         type == FdoDataType_Single;
}

// Without turning the whole number into a double, which cannot hold all of them.
FdoCompareType OrderMixed(FdoInt64 whole, double real) {
  if (std::isnan(real)) return FdoCompareType_Undefined;
  if (real >= 9223372036854775808.0) return FdoCompareType_Less;
  if (real < -9223372036854775808.0) return FdoCompareType_Greater;
  FdoInt64 const cut = static_cast<FdoInt64>(real);
  return cut == whole ? Order(0.0, real - std::trunc(real)) : Order(whole, cut);
}

FdoCompareType Reversed(FdoCompareType order) {
  if (order == FdoCompareType_Less) return FdoCompareType_Greater;
  return order == FdoCompareType_Greater ? FdoCompareType_Less : order;
}

FdoCompareType OrderNumbers(FdoDataValue* a, FdoDataValue* b) {
  bool const wholeA = IsWhole(a->GetDataType());
  bool const wholeB = IsWhole(b->GetDataType());
  if (wholeA && wholeB) return Order(WholeOf(a), WholeOf(b));
  if (wholeA) return OrderMixed(WholeOf(a), RealOf(b));
  if (wholeB) return Reversed(OrderMixed(WholeOf(b), RealOf(a)));
  return Order(RealOf(a), RealOf(b));
}

std::string Narrow(FdoDataValue* text) {
  return static_cast<char const*>(FdoStringP(static_cast<FdoStringValue*>(text)->GetString()));
}

// The number that a text is. Gives: one reference; null when it is none.
FdoDataValue* AsNumber(std::string text) {
  text.erase(0, text.find_first_not_of(" \t\r\n"));
  text.erase(text.find_last_not_of(" \t\r\n") + 1);
  if (text.find_first_not_of("0123456789+-.eE") != std::string::npos) return nullptr;
  if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.erase(0, 1);
  FdoInt64 whole = 0;
  double real = 0;
  char const* const end = text.data() + text.size();
  std::from_chars_result read = std::from_chars(text.data(), end, whole);
  if (read.ec == std::errc() && read.ptr == end) return FdoInt64Value::Create(whole);
  read = std::from_chars(text.data(), end, real);
  if (read.ec == std::errc() && read.ptr == end) return FdoDoubleValue::Create(real);
  return nullptr;
}

// A digit, a blank and a colon sort in this order, before and behind the digits.
std::wstring DateKey(FdoDataValue* value) {
  FdoDateTime const date = static_cast<FdoDateTimeValue*>(value)->GetDateTime();
  std::wstring const mark = date.year == -1 ? L" " : date.year > 9999 ? L":" : L"";
  return mark + DateText(date);
}

std::string Bytes(FdoDataValue* value) {
  FdoPtr<FdoByteArray> bytes = static_cast<FdoLOBValue*>(value)->GetData();
  return std::string(reinterpret_cast<char const*>(bytes->GetData()),
                     static_cast<std::size_t>(bytes->GetCount()));
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

bool IsWholeNumber(FdoLiteralValue* value) {
  auto* data = dynamic_cast<FdoDataValue*>(value);
  return data != nullptr && IsWhole(data->GetDataType());
}

FdoInt64 WholeOf(FdoLiteralValue* value) {
  auto* data = static_cast<FdoDataValue*>(value);
  if (!IsWholeNumber(value)) return static_cast<FdoInt64>(std::trunc(RealOf(value)));
  FdoPtr<FdoInt64Value> whole = FdoInt64Value::Create(data);
  return whole->GetInt64();
}

double RealOf(FdoLiteralValue* value) {
  FdoPtr<FdoDoubleValue> real = FdoDoubleValue::Create(static_cast<FdoDataValue*>(value));
  return real->GetDouble();
}

std::wstring DateText(FdoDateTime const& value) {
  char text[64] = "";
  int size = 0;
  if (value.year != -1) {
    size = std::snprintf(text, sizeof text, "%04d-%02d-%02d", value.year, value.month, value.day);
  }
  if (value.year != -1 && value.hour != -1) text[size++] = 'T';
  if (value.hour != -1) {
    double const seconds = double{value.seconds};
    int decimals = seconds == std::floor(seconds) ? 0 : 3;
    char digits[32];
    // As many as read back the same.
    do {
      std::snprintf(digits, sizeof digits, "%0*.*f", decimals == 0 ? 2 : decimals + 3, decimals, seconds);
      ++decimals;
    } while (std::strtof(digits, nullptr) != value.seconds);
    std::snprintf(text + size, sizeof text - static_cast<std::size_t>(size), "%02d:%02d:%s", value.hour,
                  value.minute, digits);
  }
  return static_cast<FdoString*>(FdoStringP(text));
}

FdoDataValue* DateInText(std::wstring const& text) {
  std::wstring parts = text;
  for (wchar_t& unit : parts) {
    if (unit == L'T') unit = L' ';
  }
  if (parts.empty() || parts[0] < L'0' || parts[0] > L'9') return nullptr;  // what parsing finds out slowly
  bool const hasDate = parts.find(L'-') != std::wstring::npos;
  bool const hasTime = parts.find(L':') != std::wstring::npos;
  std::wstring const word = hasDate && hasTime ? L"TIMESTAMP" : hasDate ? L"DATE" : L"TIME";
  try {
    FdoPtr<FdoExpression> literal = FdoExpression::Parse((word + L" '" + parts + L"'").c_str());
    if (auto* date = dynamic_cast<FdoDateTimeValue*>(literal.p)) return FDO_SAFE_ADDREF(date);
  } catch (FdoException* failure) {
    failure->Release();
  }
  return nullptr;
}

FdoCompareType CompareLiterals(FdoLiteralValue* left, FdoLiteralValue* right) {
  auto* a = dynamic_cast<FdoDataValue*>(left);
  auto* b = dynamic_cast<FdoDataValue*>(right);
  if (a == nullptr || b == nullptr || a->IsNull() || b->IsNull()) return FdoCompareType_Undefined;
  FdoDataType const typeA = a->GetDataType();
  FdoDataType const typeB = b->GetDataType();
  if (IsNumber(typeA) && IsNumber(typeB)) return OrderNumbers(a, b);
  if (typeB == FdoDataType_String && typeA != FdoDataType_String) return Reversed(CompareLiterals(b, a));
  if (typeA == FdoDataType_String && typeB != FdoDataType_String) {
    FdoPtr<FdoDataValue> const read = typeB == FdoDataType_DateTime
                                          ? DateInText(static_cast<FdoStringValue*>(a)->GetString())
                                      : IsNumber(typeB) ? AsNumber(Narrow(a))
                                                        : nullptr;
    return CompareLiterals(read, b);
  }
  if (typeA != typeB) return FdoCompareType_Undefined;
  if (typeA == FdoDataType_String) {
    int const order = std::wcscmp(static_cast<FdoStringValue*>(a)->GetString(),
                                  static_cast<FdoStringValue*>(b)->GetString());
    return Order(order, 0);
  }
  if (typeA == FdoDataType_DateTime) return Order(DateKey(a), DateKey(b));
  return Order(Bytes(a), Bytes(b));
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
