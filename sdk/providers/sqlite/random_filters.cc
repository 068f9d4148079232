#include "sdk/providers/sqlite/random_filters.h"

namespace fdo_sqlite {
namespace {

constexpr wchar_t const* kNumberNames[] = {L"Id",    L"Tiny", L"Short", L"Whole", L"Big",
                                           L"Price", L"Real", L"Half",  L"Flag"};
constexpr wchar_t const* kNumbers[] = {
    L"0",   L"1",    L"-1",   L"2",     L"5",   L"7",     L"255",  L"2147483647", L"9223372036854775807",
    L"0.5", L"-2.5", L"1e18", L"1e300", L"0.1", L"-1e-3", L"NULL", L"TRUE",       L"9007199254740993"};
constexpr wchar_t const* kTexts[] = {L"''",  L"'a'",   L"'A'",    L"'abc'",     L"'5'",  L"'5.0'",  L"'x%y'",
                                     L"'é'", L"' 7 '", L"'true'", L"'O''Hara'", L"NULL", L"'[a]*?'"};
constexpr wchar_t const* kNumbersInText[] = {L"'5'", L"'5.0'", L"' 7 '", L"'-2.5'", L"'1e18'", L"'+5'"};
constexpr wchar_t const* kDates[] = {L"DATE '2024-03-01'",
                                     L"DATE '0999-12-31'",
                                     L"DATE '12024-01-01'",
                                     L"TIME '14:30:05'",
                                     L"TIME '23:00:00'",
                                     L"TIMESTAMP '2024-03-01 14:30:05'",
                                     L"TIMESTAMP '2024-03-01 14:30:05.5'",
                                     L"TIMESTAMP '2024-03-01 00:00:00'",
                                     L"ToDate('2024-03-01T14:30')",
                                     L"NULL"};
constexpr wchar_t const* kDatesInText[] = {L"'2024-03-01'", L"'2024-03-01 14:30:05'", L"'14:30:05'"};
constexpr wchar_t const* kPatterns[] = {
    L"'%'",       L"'a%'",  L"'%c'", L"'_'", L"'_b_'", L"'[a-c]%'", L"'[^a]%'", L"'%[%'",   L"'%[%]%'",
    L"'[[]a]*?'", L"'%*?'", L"'5%'", L"''",  L"NULL",  L"'%é%'",    L"Name",    L"'[]-]%'", L"'%[a'"};
constexpr wchar_t const* kShapes[] = {L"'POINT (2 2)'",
                                      L"'POINT XYZ (5 5 1)'",
                                      L"'LINESTRING (0 0, 4 4)'",
                                      L"'LINESTRING (0 4, 4 0, 9 9)'",
                                      L"'LINESTRING EMPTY'",
                                      L"'POLYGON ((0 0, 4 0, 4 4, 0 4, 0 0))'",
                                      L"'POLYGON ((0 0, 9 0, 9 9, 0 9, 0 0), (2 2, 6 2, 6 6, 2 6, 2 2))'",
                                      L"'POLYGON ((3 3, 8 4, 5 9, 3 3))'",
                                      L"'MULTIPOINT (1 1, 2 2, 7 7)'",
                                      L"'MULTIPOLYGON (((0 0, 2 0, 2 2, 0 0)), ((5 5, 8 5, 8 8, 5 5)))'",
                                      L"'CURVESTRING (0 0 (CIRCULARARCSEGMENT (2 2, 4 0)))'"};
constexpr wchar_t const* kSpatial[] = {L"CONTAINS",   L"CROSSES",  L"DISJOINT",          L"EQUALS",
                                       L"INTERSECTS", L"OVERLAPS", L"TOUCHES",           L"WITHIN",
                                       L"COVEREDBY",  L"INSIDE",   L"ENVELOPEINTERSECTS"};
constexpr wchar_t const* kDistances[] = {L"0", L"0.5", L"1", L"2.5", L"100"};
constexpr wchar_t const* kComparisons[] = {L" = ", L" <> ", L" < ", L" <= ", L" > ", L" >= "};
constexpr wchar_t const* kNames[] = {L"Id",   L"Flag", L"Tiny", L"Short", L"Whole", L"Big",   L"Price",
                                     L"Real", L"Half", L"Name", L"Built", L"Data",  L"Shape", L"Outline"};
constexpr wchar_t const* kPointNames[] = {L"Shape", L"Outline"};
constexpr wchar_t const* kOfOneNumber[] = {L"Abs",  L"Ceil",    L"Floor",   L"Round",    L"Trunc",  L"Sign",
                                           L"Sqrt", L"ToInt32", L"ToInt64", L"ToDouble", L"ToFloat"};
constexpr wchar_t const* kOfTwoNumbers[] = {L"Mod", L"Remainder", L"NullValue"};

std::wstring Call(std::wstring const& name, std::initializer_list<std::wstring> arguments) {
  std::wstring call = name + L"(";
  for (std::wstring const& argument : arguments) call += (call.back() == L'(' ? L"" : L", ") + argument;
  return call + L")";
}

}  // namespace

std::wstring RandomFilters::Filter(int depth) {
  if (depth == 0 || Chance(20)) return Condition();
  switch (Below(5)) {
    case 0:
      return L"NOT (" + Filter(depth - 1) + L")";
    case 1:
    case 2:
      return L"(" + Filter(depth - 1) + L") AND (" + Filter(depth - 1) + L")";
    default:
      return L"(" + Filter(depth - 1) + L") OR (" + Filter(depth - 1) + L")";
  }
}

std::wstring RandomFilters::Condition() {
  switch (Below(10)) {
    case 0:
      return List();
    case 1:
      return NullTest();
    case 2:
      return Like();
    case 3:
    case 4:
      return Spatial();
    default:
      return Comparison();
  }
}

std::wstring RandomFilters::Comparison() {
  std::wstring const operation = Any(kComparisons);
  switch (Below(9)) {
    case 0:
    case 1:
    case 2:
      return Number(2) + operation + Number(2);
    case 3:
      return Text(2) + operation + Text(2);
    case 4:
      return Number(1) + operation + (Chance(50) ? Any(kNumbersInText) : L"Name");
    case 5:
      return (Chance(70) ? L"Name" : L"Concat(Name)") + operation + Date(1);
    case 6:
      return Date(1) + operation + (Chance(30) ? Any(kDatesInText) : Date(1));
    case 7:
      return Truth(1) + operation + Truth(1);
    default:
      return L"Data" + operation + (Chance(50) ? L"BLOB '00FF'" : L"BLOB '00'");
  }
}

std::wstring RandomFilters::List() {
  std::wstring list;
  std::wstring name;
  int const count = 1 + static_cast<int>(Below(4));
  unsigned const kind = Below(3);
  for (int i = 0; i < count; ++i) {
    std::wstring value = kind == 0 ? Any(kNumbers) : kind == 1 ? Any(kTexts) : Any(kDates);
    if (value[0] == L'T' && value[1] == L'o') value = L"DATE '2024-03-01'";
    list += (i == 0 ? L"" : L", ") + value;
  }
  if (kind == 0) name = Chance(15) ? L"Name" : Any(kNumberNames);
  if (kind == 1) name = L"Name";
  if (kind == 2) name = Chance(15) ? L"Name" : L"Built";
  return name + L" IN (" + list + L")";
}

std::wstring RandomFilters::NullTest() { return Any(kNames) + L" NULL"; }

std::wstring RandomFilters::Like() {
  return (Chance(20) ? L"Built" : Text(1)) + L" LIKE " + (Chance(10) ? L"'2024-%'" : Any(kPatterns));
}

std::wstring RandomFilters::Spatial() {
  std::wstring const name = Any(kPointNames);
  std::wstring const shape = L"GeomFromText(" + Any(kShapes) + L")";
  if (Chance(75)) return name + L" " + Any(kSpatial) + L" " + shape;
  return name + (Chance(50) ? L" BEYOND " : L" WITHINDISTANCE ") + shape + L" " + Any(kDistances);
}

std::wstring RandomFilters::Number(int depth) {
  if (depth == 0 || Chance(30)) return Chance(60) ? Any(kNumberNames) : Any(kNumbers);
  if (Chance(35)) return NumberFunction(depth - 1);
  if (Chance(10)) return L"-(" + Number(depth - 1) + L")";
  constexpr wchar_t const* kSigns[] = {L" + ", L" - ", L" * ", L" / "};
  return L"(" + Number(depth - 1) + Any(kSigns) + Number(depth - 1) + L")";
}

std::wstring RandomFilters::NumberFunction(int depth) {
  switch (Below(9)) {
    case 0:
    case 1:
    case 2:
      return Call(Any(kOfOneNumber), {Number(depth)});
    case 3:
      return Call(Any(kOfTwoNumbers), {L"0 + " + Number(depth), L"0 + " + Number(depth)});
    case 4:
      return Call(Chance(50) ? L"Round" : L"Trunc", {Number(depth), Chance(50) ? L"1" : L"-2"});
    case 5:
      return Call(Chance(50) ? L"Length" : L"ToDouble", {Text(depth)});
    case 6:
      return Call(L"Instr", {Text(depth), Text(0)});
    case 7:
      return Call(Chance(50) ? L"X" : L"Z", {Any(kPointNames)});
    default:
      return Call(L"If", {Truth(depth), L"0 + " + Number(depth), L"0 + " + Number(depth)});
  }
}

std::wstring RandomFilters::Text(int depth) {
  if (depth == 0 || Chance(40)) return Chance(60) ? L"Name" : Any(kTexts);
  switch (Below(7)) {
    case 0:
      return L"(" + Text(depth - 1) + L" + " + L"'" + (Chance(50) ? L"a" : L"") + L"')";
    case 1:
      return Call(L"Concat", {Text(depth - 1), Chance(50) ? Number(0) : Date(0)});
    case 2:
      return Call(Chance(50) ? L"Upper" : L"Lower", {Text(depth - 1)});
    case 3:
      return Call(L"Substr", {Text(depth - 1), Chance(50) ? L"2" : L"-2", L"2"});
    case 4:
      return Call(Chance(50) ? L"Trim" : L"Rtrim", {Text(depth - 1)});
    case 5:
      return Call(L"ToString", {Chance(50) ? Number(depth - 1) : Date(0)});
    default:
      return Call(L"Lookup", {Number(depth - 1), Text(0), L"5", L"'five'", L"1", Text(0)});
  }
}

std::wstring RandomFilters::Date(int depth) {
  if (depth == 0 || Chance(70)) return Chance(60) ? L"Built" : Any(kDates);
  return Call(L"If", {Truth(0), Date(0), L"DATE '2024-03-01'"});
}

std::wstring RandomFilters::Truth(int depth) {
  if (depth == 0 || Chance(70)) return Chance(60) ? L"Flag" : Chance(50) ? L"TRUE" : L"FALSE";
  return Call(L"NullValue", {L"Flag", L"TRUE"});
}

}  // namespace fdo_sqlite
