#include "testing/memory_provider/function_evaluation.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <limits>

#include "FdoGeometry.h"
#include "testing/memory_provider/value_comparison.h"

namespace memory_provider {
namespace {

constexpr double kTwoTo63 = 9223372036854775808.0;

[[noreturn]] void Refuse(std::wstring const& what) { throw FdoCommandException::Create(what.c_str()); }

FdoLiteralValue* Whole(FdoInt64 value) { return FdoInt64Value::Create(value); }
FdoLiteralValue* Real(double value) { return std::isnan(value) ? nullptr : FdoDoubleValue::Create(value); }
FdoLiteralValue* Text(std::wstring const& value) { return FdoStringValue::Create(value.c_str()); }

// Null for what does not lie in the range.
FdoLiteralValue* Cut(double value, double end) {
  double const whole = std::trunc(value);
  return whole >= -end && whole < end ? Whole(static_cast<FdoInt64>(whole)) : nullptr;
}

bool IsText(FdoLiteralValue* value) { return dynamic_cast<FdoStringValue*>(value) != nullptr; }

std::wstring TextOf(FdoLiteralValue* value) { return static_cast<FdoStringValue*>(value)->GetString(); }

double LeadingNumber(std::wstring const& text) {
  std::wstring const known = text.substr(0, text.find_first_not_of(L"0123456789+-.eE \t\r\n"));
  return FdoStringP(known.c_str()).ToDouble();
}

double Number(FdoLiteralValue* value) { return IsText(value) ? LeadingNumber(TextOf(value)) : RealOf(value); }

std::wstring Shown(FdoLiteralValue* value) {
  if (IsText(value)) return TextOf(value);
  if (auto* truth = dynamic_cast<FdoBooleanValue*>(value)) return truth->GetBoolean() ? L"true" : L"false";
  if (auto* date = dynamic_cast<FdoDateTimeValue*>(value)) return DateText(date->GetDateTime());
  if (IsWholeNumber(value)) return std::to_wstring(WholeOf(value));
  char text[40];
  std::snprintf(text, sizeof text, "%.16g", RealOf(value));
  return static_cast<FdoString*>(FdoStringP(text));
}

double PowerOfTen(FdoInt64 exponent) {
  double power = 1;
  double factor = 10;
  for (FdoInt64 left = exponent < 0 ? -exponent : exponent; left > 0; left /= 2, factor *= factor) {
    if (left % 2 == 1) power *= factor;
  }
  return exponent < 0 ? 1 / power : power;
}

double RoundHalfUp(double value) { return std::floor(value + 0.5); }

FdoLiteralValue* Mod(FdoLiteralValue* a, FdoLiteralValue* b) {
  FdoPtr<FdoLiteralValue> const left = IsWholeNumber(a) ? Whole(WholeOf(a)) : Cut(RealOf(a), kTwoTo63);
  FdoPtr<FdoLiteralValue> const right = IsWholeNumber(b) ? Whole(WholeOf(b)) : Cut(RealOf(b), kTwoTo63);
  if (left == nullptr || right == nullptr || WholeOf(right) == 0) return nullptr;
  return Whole(WholeOf(right) == -1 ? 0 : WholeOf(left) % WholeOf(right));
}

// Null for what is no point.
FdoLiteralValue* Ordinate(FdoLiteralValue* value, wchar_t which) {
  auto* geometry = dynamic_cast<FdoGeometryValue*>(value);
  if (geometry == nullptr) Refuse(L"An ordinate is asked of what is no geometry.");
  FdoPtr<FdoByteArray> bytes = geometry->GetGeometry();
  FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
  FdoPtr<FdoIGeometry> shape = factory->CreateGeometryFromFgf(bytes);
  if (shape->GetDerivedType() != FdoGeometryType_Point) return nullptr;
  FdoPtr<FdoIDirectPosition> position = static_cast<FdoIPoint*>(shape.p)->GetPosition();
  FdoInt32 const has = position->GetDimensionality();
  if (which == L'x') return Real(position->GetX());
  if (which == L'y') return Real(position->GetY());
  if (which == L'z') return Real((has & FdoDimensionality_Z) != 0 ? position->GetZ() : 0);
  return Real((has & FdoDimensionality_M) != 0 ? position->GetM() : 0);
}

bool IsTrue(FdoLiteralValue* value) {
  if (value == nullptr) return false;
  if (IsText(value)) return FdoStringP(TextOf(value).c_str()).ICompare(L"true") == 0;
  return WholeOf(value) != 0;
}

FdoLiteralValue* Lookup(Arguments const& a) {
  for (std::size_t i = 2; i + 1 < a.size(); i += 2) {
    if (CompareLiterals(a[0], a[i]) == FdoCompareType_Equal) return FDO_SAFE_ADDREF(a[i + 1].p);
  }
  return FDO_SAFE_ADDREF(a[1].p);
}

// Of texts whose characters are one unit each.
FdoLiteralValue* Substr(Arguments const& a) {
  std::wstring const text = TextOf(a[0]);
  FdoInt64 const size = static_cast<FdoInt64>(text.size());
  FdoInt64 const asked = WholeOf(a[1]);
  FdoInt64 const first = asked < 0 ? size + asked : asked == 0 ? 0 : asked - 1;
  FdoInt64 const length = a.size() > 2 ? WholeOf(a[2]) : size;
  if (first < 0 || first >= size || length <= 0) return Text(L"");
  return Text(text.substr(static_cast<std::size_t>(first), static_cast<std::size_t>(length)));
}

std::wstring Trimmed(std::wstring text, bool left, bool right) {
  while (left && !text.empty() && text.front() == L' ') text.erase(0, 1);
  while (right && !text.empty() && text.back() == L' ') text.pop_back();
  return text;
}

struct Function {
  wchar_t const* name;
  FdoLiteralValue* (*call)(Arguments const&);
};

// Those that take nulls.
constexpr Function kOfNulls[] = {
    {L"concat",
     [](Arguments const& a) {
       std::wstring whole;
       for (FdoPtr<FdoLiteralValue> const& part : a) whole += part == nullptr ? L"" : Shown(part);
       return Text(whole);
     }},
    {L"if", [](Arguments const& a) { return FDO_SAFE_ADDREF((IsTrue(a[0]) ? a[1] : a[2]).p); }},
    {L"lookup", Lookup},
    {L"nullvalue", [](Arguments const& a) { return FDO_SAFE_ADDREF((a[0] != nullptr ? a[0] : a[1]).p); }},
};

constexpr Function kOfValues[] = {
    {L"tostring", [](Arguments const& a) { return Text(Shown(a[0])); }},
    {L"todouble", [](Arguments const& a) { return Real(Number(a[0])); }},
    {L"tofloat",
     [](Arguments const& a) {
       double const number = Number(a[0]);
       bool const stays = (!IsWholeNumber(a[0]) && !IsText(a[0])) ||
                          std::fabs(number) > double{std::numeric_limits<float>::max()};
       return Real(stays ? number : double{static_cast<float>(number)});
     }},
    {L"toint32",
     [](Arguments const& a) {
       return IsWholeNumber(a[0]) ? Whole(WholeOf(a[0])) : Cut(Number(a[0]), 2147483648.0);
     }},
    {L"toint64",
     [](Arguments const& a) {
       return IsWholeNumber(a[0]) ? Whole(WholeOf(a[0])) : Cut(Number(a[0]), kTwoTo63);
     }},
    {L"todate",
     [](Arguments const& a) -> FdoLiteralValue* {
       return IsText(a[0]) ? DateInText(TextOf(a[0])) : FDO_SAFE_ADDREF(a[0].p);
     }},
    {L"sin", [](Arguments const& a) { return Real(std::sin(RealOf(a[0]))); }},
    {L"atan2", [](Arguments const& a) { return Real(std::atan2(RealOf(a[0]), RealOf(a[1]))); }},
    {L"sqrt", [](Arguments const& a) { return Real(std::sqrt(RealOf(a[0]))); }},
    {L"ln", [](Arguments const& a) { return Real(std::log(RealOf(a[0]))); }},
    {L"exp", [](Arguments const& a) { return Real(std::exp(RealOf(a[0]))); }},
    {L"power", [](Arguments const& a) { return Real(std::pow(RealOf(a[0]), RealOf(a[1]))); }},
    {L"floor", [](Arguments const& a) { return Real(std::floor(RealOf(a[0]))); }},
    {L"ceil", [](Arguments const& a) { return Real(std::ceil(RealOf(a[0]))); }},
    {L"abs", [](Arguments const& a) { return Real(std::fabs(RealOf(a[0]))); }},
    {L"sign",
     [](Arguments const& a) {
       double const number = RealOf(a[0]);
       return Whole(number > 0 ? 1 : number == 0 ? 0 : -1);
     }},
    {L"trunc",
     [](Arguments const& a) {
       if (a.size() == 1) return IsWholeNumber(a[0]) ? Whole(WholeOf(a[0])) : Cut(RealOf(a[0]), kTwoTo63);
       double const factor = PowerOfTen(WholeOf(a[1]));
       return Real(std::trunc(RealOf(a[0]) * factor) / factor);
     }},
    {L"round",
     [](Arguments const& a) {
       double const factor = a.size() == 1 ? 1 : PowerOfTen(WholeOf(a[1]));
       return Real(RoundHalfUp(RealOf(a[0]) * factor) / factor);
     }},
    {L"remainder",
     [](Arguments const& a) {
       double const x = RealOf(a[0]);
       double const y = RealOf(a[1]);
       return Real(x - std::floor(x / y) * y);
     }},
    {L"mod", [](Arguments const& a) { return Mod(a[0], a[1]); }},
    {L"upper",
     [](Arguments const& a) -> FdoLiteralValue* {
       return FdoStringValue::Create(FdoStringP(TextOf(a[0]).c_str()).Upper());
     }},
    {L"lower",
     [](Arguments const& a) -> FdoLiteralValue* {
       return FdoStringValue::Create(FdoStringP(TextOf(a[0]).c_str()).Lower());
     }},
    {L"length", [](Arguments const& a) { return Whole(static_cast<FdoInt64>(TextOf(a[0]).size())); }},
    {L"instr",
     [](Arguments const& a) {
       std::size_t const place = TextOf(a[0]).find(TextOf(a[1]));
       return Whole(place == std::wstring::npos ? 0 : static_cast<FdoInt64>(place) + 1);
     }},
    {L"substr", Substr},
    {L"trim", [](Arguments const& a) { return Text(Trimmed(TextOf(a[0]), true, true)); }},
    {L"ltrim", [](Arguments const& a) { return Text(Trimmed(TextOf(a[0]), true, false)); }},
    {L"rtrim", [](Arguments const& a) { return Text(Trimmed(TextOf(a[0]), false, true)); }},
    {L"x", [](Arguments const& a) { return Ordinate(a[0], L'x'); }},
    {L"y", [](Arguments const& a) { return Ordinate(a[0], L'y'); }},
    {L"z", [](Arguments const& a) { return Ordinate(a[0], L'z'); }},
    {L"m", [](Arguments const& a) { return Ordinate(a[0], L'm'); }},
};

constexpr FdoInt64 kLeast = std::numeric_limits<FdoInt64>::min();
constexpr FdoInt64 kGreatest = std::numeric_limits<FdoInt64>::max();

bool FitsProduct(FdoInt64 a, FdoInt64 b) {
  if (a == 0 || b == 0) return true;
  if (a == -1 || b == -1) return a != kLeast && b != kLeast;
  if (a > 0) return b > 0 ? a <= kGreatest / b : b >= kLeast / a;
  return b > 0 ? a >= kLeast / b : a >= kGreatest / b;
}

bool Fits(FdoInt64 a, FdoBinaryOperations operation, FdoInt64 b) {
  switch (operation) {
    case FdoBinaryOperations_Add:
      return b > 0 ? a <= kGreatest - b : a >= kLeast - b;
    case FdoBinaryOperations_Subtract:
      return b > 0 ? a >= kLeast + b : a <= kGreatest + b;
    case FdoBinaryOperations_Multiply:
      return FitsProduct(a, b);
    case FdoBinaryOperations_Divide:
      return a != kLeast || b != -1;
  }
  return false;
}

// Requires: Fits(a, operation, b); b is not 0 where it divides.
FdoInt64 WholeResult(FdoInt64 a, FdoBinaryOperations operation, FdoInt64 b) {
  switch (operation) {
    case FdoBinaryOperations_Add:
      return a + b;
    case FdoBinaryOperations_Subtract:
      return a - b;
    case FdoBinaryOperations_Multiply:
      return a * b;
    case FdoBinaryOperations_Divide:
      return a / b;
  }
  return 0;
}

}  // namespace

FdoLiteralValue* Calculate(FdoLiteralValue* left, FdoBinaryOperations operation, FdoLiteralValue* right) {
  if (left == nullptr || right == nullptr) return nullptr;
  if (IsText(left) && IsText(right)) {
    if (operation != FdoBinaryOperations_Add) Refuse(L"Texts can only be joined.");
    return Text(TextOf(left) + TextOf(right));
  }
  bool const isDivision = operation == FdoBinaryOperations_Divide;
  if (IsWholeNumber(left) && IsWholeNumber(right)) {
    FdoInt64 const b = WholeOf(right);
    if (isDivision && b == 0) return nullptr;
    if (Fits(WholeOf(left), operation, b)) return Whole(WholeResult(WholeOf(left), operation, b));
  }
  double const a = RealOf(left);
  double const b = RealOf(right);
  switch (operation) {
    case FdoBinaryOperations_Add:
      return Real(a + b);
    case FdoBinaryOperations_Subtract:
      return Real(a - b);
    case FdoBinaryOperations_Multiply:
      return Real(a * b);
    case FdoBinaryOperations_Divide:
      return b == 0 ? nullptr : Real(a / b);
  }
  Refuse(L"An unknown arithmetic operation cannot be evaluated.");
}

FdoLiteralValue* CallFunction(std::wstring const& name, Arguments const& arguments) {
  std::wstring sought = name;
  for (wchar_t& unit : sought) {
    if (unit >= L'A' && unit <= L'Z') unit = static_cast<wchar_t>(unit - L'A' + L'a');
  }
  for (Function const& function : kOfNulls) {
    if (sought == function.name) return function.call(arguments);
  }
  for (Function const& function : kOfValues) {
    if (sought != function.name) continue;
    for (FdoPtr<FdoLiteralValue> const& argument : arguments) {
      if (argument == nullptr) return nullptr;
    }
    return function.call(arguments);
  }
  Refuse(L"The memory provider has no function \"" + name + L"\".");
}

}  // namespace memory_provider
