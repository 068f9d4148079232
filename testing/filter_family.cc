#include "testing/filter_family.h"

#include <iterator>

#include "testing/fgf_builder.h"

namespace fdo {

void FillFamilyRow(Row& row, std::mt19937& random) {
  constexpr long long kIntegers[] = {0, 1, -1, 3, -7, 100};
  constexpr long long kBig[] = {0, 5, -5, 2147483648, 9007199254740993, 9223372036854775807};
  constexpr double kDoubles[] = {0, 0.5, -2.5, 0.1, 2.5, 100, 1e18, 9007199254740992};
  constexpr wchar_t const* kTexts[] = {L"", L"a", L"A", L"abc", L"bc", L"x%y", L" 3 ", L"1e2"};
  constexpr wchar_t const* kMoments[] = {L"2024-03-01T14:30:05", L"1999-12-31T00:00:00",
                                         L"2024-03-01T14:30:06"};
  constexpr char const* kShapes[] = {"POINT (2 2)", "POINT (4 1)", "POINT (9 9)", "LINESTRING (0 0, 9 9)"};
  auto const any = [&](auto const& choices) { return choices[random() % std::size(choices)]; };
  auto const isNull = [&] { return random() % 6 == 0; };
  for (int i = 0; i < row.Def()->ColumnCount(); ++i) row[i].Reset();
  if (!isNull()) row[L"i"].Reset(any(kIntegers));
  if (!isNull()) row[L"big"].Reset(any(kBig));
  if (!isNull()) row[L"d"].Reset(any(kDoubles));
  if (!isNull()) row[L"t"].Reset(any(kTexts), /*copy=*/true);
  if (!isNull()) row[L"f"].Reset(random() % 2 == 0);
  if (!isNull()) row[L"w"].Reset(any(kMoments), /*copy=*/true);
  if (!isNull()) {
    auto const fgf = Fgf(any(kShapes));
    row[row.Def()->IndexOfGeom()].Reset(fgf.data(), static_cast<int>(fgf.size()), /*copy=*/true);
  }
}

std::wstring FilterFamily::Filter(int levels) {
  if (levels == 0 || Below(5) == 0) return Condition();
  switch (Below(3)) {
    case 0:
      return L"NOT (" + Filter(levels - 1) + L")";
    case 1:
      return L"(" + Filter(levels - 1) + L") AND (" + Filter(levels - 1) + L")";
    default:
      return L"(" + Filter(levels - 1) + L") OR (" + Filter(levels - 1) + L")";
  }
}

std::wstring FilterFamily::Condition() {
  constexpr wchar_t const* kComparisons[] = {L" = ", L" <> ", L" < ", L" <= ", L" > ", L" >= "};
  wchar_t const* const columns[] = {L"i", L"big", L"d", L"t", L"f", L"w", shape_};
  constexpr wchar_t const* kPatterns[] = {L"'a%'",     L"'A%'",    L"'%c'", L"'_'",
                                          L"'[a-c]%'", L"'[^a]%'", L"''",   L"'%'"};
  constexpr wchar_t const* kMoments[] = {L"TIMESTAMP '2024-03-01 14:30:05'",
                                         L"TIMESTAMP '1999-12-31 00:00:00'", L"w"};
  constexpr wchar_t const* kSpatial[] = {L"INTERSECTS", L"WITHIN", L"DISJOINT",          L"EQUALS",
                                         L"TOUCHES",    L"INSIDE", L"ENVELOPEINTERSECTS"};
  constexpr wchar_t const* kDistances[] = {L"WITHINDISTANCE", L"BEYOND"};
  constexpr wchar_t const* kShapes[] = {L"'POINT (2 2)'", L"'POLYGON ((0 0, 4 0, 4 4, 0 4, 0 0))'",
                                        L"'LINESTRING (0 5, 9 5)'"};
  constexpr wchar_t const* kNumberTexts[] = {L"'3'", L"' -1.0 '", L"'1e2'", L"'9007199254740993'"};
  switch (Below(12)) {
    case 0:
      return std::wstring(Any(columns)) + L" NULL";
    case 1:
      return L"i IN (" + Integer() + L", " + Integer() + L")";
    case 2:
      return L"t IN (" + TextLiteral() + L", " + (Below(2) == 0 ? L"'abc'" : Integer()) + L")";
    case 3:
      return Text(1) + L" LIKE " + Any(kPatterns);
    case 4:
      return std::wstring(shape_) + L" " + Any(kSpatial) + L" GeomFromText(" + Any(kShapes) + L")";
    case 5:
      return std::wstring(shape_) + L" " + Any(kDistances) + L" GeomFromText(" + Any(kShapes) + L") " +
             std::to_wstring(Below(4)) + L".5";
    case 6:
      return Text(1) + Any(kComparisons) + Text(1);
    case 7:
      return std::wstring(L"w") + Any(kComparisons) + Any(kMoments);
    case 8:
      return std::wstring(L"f = ") + (Below(2) == 0 ? L"TRUE" : L"FALSE");
    case 9:
      return Number(1) + Any(kComparisons) + Any(kNumberTexts);
    case 10:
      return (Below(2) == 0 ? L"t" : std::wstring(L"Concat(t, '1')")) + Any(kComparisons) + Number(1);
    default:
      return Number(2) + Any(kComparisons) + Number(2);
  }
}

std::wstring FilterFamily::Integer() {
  constexpr wchar_t const* kIntegers[] = {L"0", L"1", L"-1", L"3", L"100", L"9007199254740993", L"NULL"};
  return Any(kIntegers);
}

std::wstring FilterFamily::Number(int levels) {
  wchar_t const* const columns[] = {L"i", L"big", L"d", id_};
  wchar_t const* const integerColumns[] = {L"i", L"big", id_};
  constexpr wchar_t const* kReals[] = {L"2.5", L"0.1", L"1e18"};
  constexpr wchar_t const* kSigns[] = {L" + ", L" - "};
  constexpr wchar_t const* kFunctions[] = {L"Abs",      L"Floor", L"Ceil", L"Round", L"Sign",
                                           L"ToDouble", L"Sqrt",  L"Ln",   L"Log",   L"Atan"};
  constexpr wchar_t const* kOfTwo[] = {L"Power", L"Remainder", L"Atan2", L"Round", L"Trunc"};
  constexpr wchar_t const* kSecond[] = {L", 2)", L", -1)", L", 0)", L", i)"};
  if (levels == 0 || Below(3) == 0) {
    if (Below(3) > 0) return Any(columns);
    return Below(4) == 0 ? Any(kReals) : Integer();
  }
  switch (Below(7)) {
    case 2:
      return std::wstring(Any(kFunctions)) + L"(" + Number(levels - 1) + L")";
    case 4:
      return std::wstring(Any(kOfTwo)) + L"(" + Number(levels - 1) + Any(kSecond);
    case 5:
      return L"Lookup(i, " + Integer() + L", 1, " + Number(levels - 1) + L", 3, 2.5)";
    case 0:
      return L"Mod(i, " + Integer() + L")";
    case 1:
      return std::wstring(L"(") + Any(integerColumns) + L" / " +
             (Below(2) == 0 ? Integer() : std::wstring(Any(integerColumns))) + L")";
    case 3:
      return L"(" + Number(levels - 1) + L" * " + (Below(2) == 0 ? L"i" : Integer()) + L")";
    default:
      return L"(" + Number(levels - 1) + Any(kSigns) + Number(levels - 1) + L")";
  }
}

std::wstring FilterFamily::TextLiteral() {
  constexpr wchar_t const* kTexts[] = {L"''", L"'a'", L"'A'", L"'abc'", L"'b'", L"NULL"};
  return Any(kTexts);
}

std::wstring FilterFamily::Text(int levels) {
  if (levels == 0 || Below(3) > 0) return Below(2) == 0 ? L"t" : TextLiteral();
  return L"Concat(" + Text(levels - 1) + L", 'c')";
}

}  // namespace fdo
