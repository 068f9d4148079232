// Numbers read from text and written to it.
#include "values/number_text.h"

#include <fdo/value.h>
#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <limits>
#include <random>
#include <string>

namespace fdo::internal {
namespace {

constexpr long long kMaxInt = std::numeric_limits<long long>::max();
constexpr long long kMinInt = std::numeric_limits<long long>::min();

TEST(ReadInteger, TakesTheLeadingNumber) {
  struct {
    wchar_t const* text;
    long long number;
    int length;  // of what was read
  } const cases[] = {
      {L"42", 42, 2},
      {L"42x", 42, 2},
      {L"0042", 42, 4},
      {L"  \t\n\v\f\r-7", -7, 9},
      {L"+7", 7, 2},
      {L"-0", 0, 2},
      {L"9223372036854775807", kMaxInt, 19},
      {L"9223372036854775808", kMaxInt, 19},
      {L"99999999999999999999999", kMaxInt, 23},
      {L"-9223372036854775808", kMinInt, 20},
      {L"-9223372036854775809", kMinInt, 20},
      {L"1.9", 1, 1},
      {L"1e3", 1, 1},
      {L"0x10", 0, 1},
      {L"", 0, 0},
      {L"x", 0, 0},
      {L"-", 0, 0},
      {L"+-1", 0, 0},
      {L"- 1", 0, 0},
      {L"\xA0"
       L"1",
       0, 0},             // a no-break space is no blank of the C locale
      {L"\x0661", 0, 0},  // nor are the digits of other scripts its digits
  };
  for (auto const& c : cases) {
    long long number = -1;
    wchar_t const* const end = ReadInteger(c.text, number);
    EXPECT_EQ(c.number, number) << c.text;
    EXPECT_EQ(c.length, end - c.text) << c.text;
  }
}

// Not by wcstod, which rounds twice in some libraries. The texts are ASCII.
template <class Real>
Real ByTheLibrary(std::wstring const& text, std::ptrdiff_t& length) {
  std::string const narrow(text.begin(), text.end());
  char* end = nullptr;
  Real const number = static_cast<Real>(sizeof(Real) == sizeof(double) ? std::strtod(narrow.c_str(), &end)
                                                                       : std::strtof(narrow.c_str(), &end));
  length = end - narrow.c_str();
  return number;
}

// Whether the library takes only letters and digits between the brackets of a nan, as the standard of C does.
bool NansAreComparable() {
  std::ptrdiff_t length = 0;
  ByTheLibrary<double>(L"nan(-)", length);
  return length == 3;
}

template <class Real>
void ExpectAsTheLibrary(std::wstring const& text) {
  static bool const nansAreComparable = NansAreComparable();
  if (!nansAreComparable && text.find(L'(') != std::wstring::npos) return;
  std::ptrdiff_t expectedLength = 0;
  Real const expected = ByTheLibrary<Real>(text, expectedLength);
  Real number = -1;
  wchar_t const* const end = ReadReal(text.c_str(), number);
  EXPECT_EQ(expectedLength, end - text.c_str()) << text;
  if (std::isnan(expected)) {
    EXPECT_TRUE(std::isnan(number)) << text;
  } else {
    EXPECT_EQ(expected, number) << text;
    // Where there is no number some libraries give the zero the sign that they have read.
    if (expectedLength != 0) {
      EXPECT_EQ(std::signbit(expected), std::signbit(number)) << text;
    }
  }
}

TEST(ReadReal, AgreesWithTheCLibraryOnEachForm) {
  std::wstring const cases[] = {
      L"",
      L"x",
      L".",
      L"-",
      L"+.",
      L"0",
      L"-0",
      L"1.5",
      L"-1.5x",
      L"  2.5",
      L".5",
      L"5.",
      L"+.5e1",
      L"1e5",
      L"1e",
      L"1e+",
      L"1e-x",
      L"1E+05",
      L"1.e3",
      L".e3",
      L"1e400",
      L"-1e400",
      L"1e-400",
      L"-1e-400",
      L"1e-320",
      L"4.9e-324",
      L"2.4e-324",
      L"1.7976931348623159e308",
      L"inf",
      L"-INF",
      L"infinity",
      L"infinit",
      L"in",
      L"nan",
      L"-nan",
      L"nan(12)",
      L"nan(a_1)x",
      L"nan(1",
      L"nan(-)",
      L"na",
      L"0x",
      L"0xg",
      L"0x1",
      L"0x1p3",
      L"0x1p",
      L"0x1p-x",
      L"0x.8",
      L"0x.",
      L"0X1.8P-1",
      L"0x.p1",
      L"0x1p-1075",
      L"0x1.8p-1075",
      L"0x1p2000",
      L"0x1p-2000",
      L"1,5",
      L"1 5",
      L"1e99999999999999999999",
      L"1e-99999999999999999999",
      L"0e99999999999999999999",
      L"0.1",
      L"9007199254740993",
      L"9007199254740992.5",
      L"123456789012345678901234567890",
      L"0.000000000000000000000000000000000000000000000000001",
      L"1" + std::wstring(400, L'0'),
      L"0." + std::wstring(400, L'0') + L"1",
      L"1" + std::wstring(400, L'0') + L"e-400",
      std::wstring(300, L'7') + L"." + std::wstring(300, L'7'),
      L"16777217",
      L"16777216.5",
      L"3.4028236e38",
      L"1.0e-46",
  };
  for (std::wstring const& text : cases) {
    ExpectAsTheLibrary<double>(text);
    ExpectAsTheLibrary<float>(text);
  }
}

TEST(ReadReal, AgreesWithTheCLibraryOnRandomText) {
  constexpr unsigned kSeed = 7;
  std::mt19937 random(kSeed);
  wchar_t const alphabet[] = L"0123456789012345678901234567890123456789....eE+-xXpP inaf";
  for (int i = 0; i < 200000; ++i) {
    std::wstring text;
    for (auto length = random() % 24; length > 0; --length)
      text += alphabet[random() % (std::size(alphabet) - 1)];
    SCOPED_TRACE("seed " + std::to_string(kSeed));
    ExpectAsTheLibrary<double>(text);
    ExpectAsTheLibrary<float>(text);
    if (HasFailure()) break;
  }
}

TEST(FormatReal, AgreesWithTheCLibraryOnRandomBits) {
  std::mt19937_64 random(11);
  for (int i = 0; i < 200000; ++i) {
    std::uint64_t const bits = random();
    double number;
    std::memcpy(&number, &bits, sizeof(number));
    if (i % 2 == 0) number = static_cast<double>(static_cast<std::int64_t>(bits) >> 20) / 1000.0;
    if (std::isnan(number)) continue;
    char expected[64];
    std::snprintf(expected, sizeof(expected), "%.16g", number);
    wchar_t text[kNumberTextSize];
    int const length = FormatReal(number, text);
    ASSERT_EQ(std::string(expected), std::string(text, text + length)) << "seed 11";
  }
}

TEST(NumberText, KeepsToTheCLocale) {
  struct Restore {
    std::string old = std::setlocale(LC_ALL, nullptr);
    ~Restore() { std::setlocale(LC_ALL, old.c_str()); }
  } const restore;
  // Where one of these is installed its comma must not show; where none is, there is nothing to see.
  for (char const* name : {"de_DE.UTF-8", "fr_FR.UTF-8", "German_Germany.1252"}) {
    if (std::setlocale(LC_ALL, name) != nullptr) break;
  }
  EXPECT_STREQ(L"2.5", static_cast<wchar_t const*>(Value(2.5)));
  EXPECT_EQ(2.5, static_cast<double>(Value(L"2.5")));
  EXPECT_EQ(2.0, static_cast<double>(Value(L"2,5")));
}

TEST(EqualIgnoringCase, FoldsLatinLettersOnly) {
  EXPECT_TRUE(EqualIgnoringCase(L"", L""));
  EXPECT_TRUE(EqualIgnoringCase(L"aZ[", L"Az["));
  EXPECT_FALSE(EqualIgnoringCase(L"a", L"aa"));
  EXPECT_FALSE(EqualIgnoringCase(L"aa", L"a"));
  EXPECT_FALSE(EqualIgnoringCase(L"[", L"{"));
  EXPECT_FALSE(EqualIgnoringCase(L"\xE9", L"\xC9"));
}

}  // namespace
}  // namespace fdo::internal
