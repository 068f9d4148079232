// Date-times written and read, held against the C library's formatter and scanner.
#include "values/date_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cwchar>
#include <limits>
#include <random>
#include <string>

namespace fdo::internal {
namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

FdoDateTime Make(int year, int month, int day, int hour, int minute, float seconds) {
  FdoDateTime value;
  value.year = static_cast<FdoInt16>(year);
  value.month = static_cast<FdoInt8>(month);
  value.day = static_cast<FdoInt8>(day);
  value.hour = static_cast<FdoInt8>(hour);
  value.minute = static_cast<FdoInt8>(minute);
  value.seconds = seconds;
  return value;
}

std::wstring Formatted(FdoDateTime const& value) {
  wchar_t text[kDateTextSize];
  int const length = FormatDateTime(value, text);
  EXPECT_EQ(std::wcslen(text), static_cast<std::size_t>(length));
  return text;
}

TEST(DateText, ThreeForms) {
  EXPECT_EQ(L"2024-03-01", Formatted(Make(2024, 3, 1, -1, -1, 0)));
  EXPECT_EQ(L"2024-03-01T14:30:05.250", Formatted(Make(2024, 3, 1, 14, 30, 5.25f)));
  EXPECT_EQ(L"07:05:03.500", Formatted(Make(-1, -1, -1, 7, 5, 3.5f)));
}

TEST(DateText, NothingWithoutYearAndHour) {
  EXPECT_EQ(L"", Formatted(FdoDateTime()));
  EXPECT_EQ(L"", Formatted(Make(-1, 3, 1, -1, 30, 5)));
}

TEST(DateText, OtherFieldsAreWrittenAsTheyAre) {
  EXPECT_EQ(L"0007--1--1", Formatted(Make(7, -1, -1, -1, -1, 0)));
  EXPECT_EQ(L"-012-127--128", Formatted(Make(-12, 127, -128, -1, 0, 0)));
  EXPECT_EQ(L"12345-00-99T-5:-1:00.000", Formatted(Make(12345, 0, 99, -5, -1, 0)));
}

TEST(DateText, SecondsAreRoundedToTheNearestThousandth) {
  struct {
    float seconds;
    wchar_t const* text;
  } const cases[] = {
      {59.9995f, L"00:00:60.000"},  // the float is a little above

      {59.9999f, L"00:00:60.000"},  {0.0625f, L"00:00:00.062"},  // halves go to the even digit
      {0.1875f, L"00:00:00.188"},   {-0.0f, L"00:00:-0.000"},      {-5.25f, L"00:00:-5.250"},
      {123.5f, L"00:00:123.500"},   {1e6f, L"00:00:1000000.000"},  {kNaN, L"00:00:   nan"},
      {kInfinity, L"00:00:   inf"}, {-kInfinity, L"00:00:  -inf"},
  };
  for (auto const& c : cases) EXPECT_EQ(c.text, Formatted(Make(-1, -1, -1, 0, 0, c.seconds))) << c.seconds;
}

TEST(DateText, LongTextIsCut) {
  std::wstring const text = Formatted(Make(-32768, -128, -128, -128, -128, -3.4e38f));
  EXPECT_EQ(63u, text.size());
  EXPECT_EQ(L"-32768--128--128T-128:-128:-33999", text.substr(0, 33));
}

std::wstring ByTheLibrary(FdoDateTime const& v) {
  wchar_t text[128] = L"";
  if (v.year != -1 && v.hour != -1) {
    std::swprintf(text, std::size(text), L"%04d-%02d-%02dT%02d:%02d:%06.3f", v.year, v.month, v.day, v.hour,
                  v.minute, static_cast<double>(v.seconds));
  } else if (v.year != -1) {
    std::swprintf(text, std::size(text), L"%04d-%02d-%02d", v.year, v.month, v.day);
  } else if (v.hour != -1) {
    std::swprintf(text, std::size(text), L"%02d:%02d:%06.3f", v.hour, v.minute,
                  static_cast<double>(v.seconds));
  }
  return std::wstring(text).substr(0, 63);
}

TEST(DateText, AgreesWithTheCLibraryOnRandomDates) {
  std::mt19937 random(5);
  for (int i = 0; i < 200000; ++i) {
    bool const wild = i % 4 == 0;
    auto const below = [&](unsigned limit) { return static_cast<int>(random() % limit); };
    auto seconds = static_cast<float>(below(60000)) / 1000.0f;
    if (i % 3 == 0) seconds = std::ldexp(static_cast<float>(static_cast<int>(random())), below(60) - 50);
    FdoDateTime const value = wild ? Make(below(65536), below(256), below(256),
                                          below(8) == 0 ? -1 : below(256), below(256), seconds)
                                   : Make(below(8) == 0 ? -1 : below(3000), below(13), below(32),
                                          below(8) == 0 ? -1 : below(24), below(60), seconds);
    ASSERT_EQ(ByTheLibrary(value), Formatted(value)) << "seed 5, step " << i;
  }
}

// The description of the parser in terms of the C library's scanner.
bool ScanByTheLibrary(wchar_t const* text, FdoDateTime& value) {
  bool date = false, time = false, blank = false, letter = false;
  for (int i = 0; i < 30 && text[i] != 0 && !time && !blank && !letter; ++i) {
    date = date || text[i] == L'-';
    time = text[i] == L':';
    blank = text[i] == L' ';
    letter = text[i] == L'T';
  }
  int year = -1, month = -1, day = -1, hour = -1, minute = -1;
  float seconds = 0;
  int count = 0;
  if (!date && !time && !blank && !letter) return false;
  if (date && !time && !blank && !letter) {
    count = std::swscanf(text, L"%d-%d-%d", &year, &month, &day);
  } else if (time && !date) {
    count = std::swscanf(text, L"%d:%d:%f", &hour, &minute, &seconds);
  } else if (letter) {
    count = std::swscanf(text, L"%d-%d-%dT%d:%d:%f", &year, &month, &day, &hour, &minute, &seconds);
  } else {
    count = std::swscanf(text, L"%d-%d-%d %d:%d:%f", &year, &month, &day, &hour, &minute, &seconds);
  }
  if (count != 3 && count != 5 && count != 6) return false;
  value = Make(year, month, day, hour, minute, seconds);
  return true;
}

bool SameDate(FdoDateTime const& a, FdoDateTime const& b) {
  return a.year == b.year && a.month == b.month && a.day == b.day && a.hour == b.hour &&
         a.minute == b.minute && (a.seconds == b.seconds || (std::isnan(a.seconds) && std::isnan(b.seconds)));
}

std::string Shown(FdoDateTime const& v) {
  char text[128];
  std::snprintf(text, sizeof(text), "%d-%d-%d %d:%d:%.9g", v.year, v.month, v.day, v.hour, v.minute,
                static_cast<double>(v.seconds));
  return text;
}

// C leaves open what becomes of a number too large for an int, and not every library refuses a "0x" that no
// digit follows. Only a library that does both as the parser does is compared with it.
bool LibraryIsComparable() {
  int number = 0;
  float real = 0;
  return std::swscanf(L"4294967297", L"%d", &number) == 1 && number == 1 &&
         std::swscanf(L"0xp", L"%f", &real) != 1;
}

void ExpectAsTheLibrary(std::wstring const& text) {
  static bool const isComparable = LibraryIsComparable();
  if (!isComparable) return;
  FdoDateTime const untouched = Make(1, 2, 3, 4, 5, 6);
  FdoDateTime expected = untouched;
  FdoDateTime value = untouched;
  bool const expectedParsed = ScanByTheLibrary(text.c_str(), expected);
  EXPECT_EQ(expectedParsed, ParseDateTime(text.c_str(), value)) << text;
  EXPECT_TRUE(SameDate(expected, value)) << text << " gives " << Shown(value) << ", not " << Shown(expected);
}

TEST(ParseDate, EachForm) {
  struct {
    wchar_t const* text;
    FdoDateTime value;
  } const cases[] = {
      {L"2024-03-01", Make(2024, 3, 1, -1, -1, 0)},
      {L"14:30:05.5", Make(-1, -1, -1, 14, 30, 5.5f)},
      {L"2024-03-01T14:30:05.5", Make(2024, 3, 1, 14, 30, 5.5f)},
      {L"2024-03-01 14:30:05.5", Make(2024, 3, 1, 14, 30, 5.5f)},
      {L"2024-03-01 14:30", Make(2024, 3, 1, 14, 30, 0)},
      {L"2024-03-01T14:30", Make(2024, 3, 1, 14, 30, 0)},
      {L"2024-03-01T", Make(2024, 3, 1, -1, -1, 0)},
      {L"2024-03-01 ", Make(2024, 3, 1, -1, -1, 0)},
      {L"  2024-03-01", Make(2024, 3, 1, -1, -1, 0)},
      {L"2024-03-01   14:30", Make(2024, 3, 1, 14, 30, 0)},
      {L"2024-3-1 and more", Make(2024, 3, 1, -1, -1, 0)},
      {L"2024- 3- 1", Make(2024, 3, 1, -1, -1, 0)},
      {L"-5--6--7", Make(-5, -6, -7, -1, -1, 0)},
      {L"70000-300-1", Make(70000, 300, 1, -1, -1, 0)},  // low bits
      {L"4294969320-03-01", Make(2024, 3, 1, -1, -1, 0)},
      {L"1:2:1e1", Make(-1, -1, -1, 1, 2, 10)},
  };
  for (auto const& c : cases) {
    FdoDateTime value;
    EXPECT_TRUE(ParseDateTime(c.text, value)) << c.text;
    EXPECT_TRUE(SameDate(c.value, value)) << c.text << " gives " << Shown(value);
    ExpectAsTheLibrary(c.text);
  }
}

TEST(ParseDate, WhatDoesNotParseLeavesTheValue) {
  for (wchar_t const* text :
       {L"", L"20240301", L"14:30", L"2024-03", L"2024-03-01T14", L"abc", L"T", L"-", L":", L" ",
        L"2024/03/01", L"1:2:x", L"1:2:0x", L"1:2:infi", L"x2024-03-01", L"2024 -03-01"}) {
    FdoDateTime value = Make(1, 2, 3, 4, 5, 6);
    EXPECT_FALSE(ParseDateTime(text, value)) << text;
    EXPECT_TRUE(SameDate(Make(1, 2, 3, 4, 5, 6), value)) << text;
    ExpectAsTheLibrary(text);
  }
  FdoDateTime value;
  EXPECT_FALSE(ParseDateTime(nullptr, value));
}

TEST(ParseDate, OnlyTheFirstThirtyCharactersAreSearchedForMarks) {
  std::wstring const zeros(28, L'0');
  ExpectAsTheLibrary(zeros + L"1-2-3");
  ExpectAsTheLibrary(zeros + L"11-2-3");
  ExpectAsTheLibrary(zeros + L"111-2-3");
  FdoDateTime value;
  EXPECT_TRUE(ParseDateTime((zeros + L"1-2-3").c_str(), value));
  EXPECT_FALSE(ParseDateTime((zeros + L"11-2-3").c_str(), value));
}

TEST(ParseDate, AgreesWithTheCLibraryOnRandomText) {
  if (!LibraryIsComparable()) GTEST_SKIP() << "this C library scans numbers in another way";
  wchar_t const* const pieces[] = {L"0",          L"1",  L"9", L"12",  L"2024",
                                   L"-",          L"-",  L"-", L":",   L":",
                                   L":",          L"T",  L" ", L".",   L"5",
                                   L"e",          L"+",  L"x", L"inf", L"nan",
                                   L"inity",      L"0x", L"p", L"\t",  L"99999999999999999999",
                                   L"4294967297", L"f",  L"i", L"(1)"};
  std::mt19937 random(3);
  for (int i = 0; i < 300000; ++i) {
    std::wstring text;
    if (i % 3 != 0) text = i % 3 == 1 ? L"2024-03-01T12:30:" : L"12:30:";
    for (auto length = random() % 12; length > 0; --length) text += pieces[random() % std::size(pieces)];
    SCOPED_TRACE("seed 3");
    ExpectAsTheLibrary(text);
    if (HasFailure()) break;
  }
}

TEST(DateText, WhatIsWrittenReadsBack) {
  std::mt19937 random(9);
  auto const below = [&](unsigned limit) { return static_cast<int>(random() % limit); };
  for (int i = 0; i < 20000; ++i) {
    FdoDateTime const written = Make(below(10000), 1 + below(12), 1 + below(31), below(24), below(60),
                                     static_cast<float>(below(60000)) / 1000);
    FdoDateTime read;
    ASSERT_TRUE(ParseDateTime(Formatted(written).c_str(), read));
    ASSERT_TRUE(SameDate(written, read)) << Formatted(written) << ", seed 9";
  }
}

}  // namespace
}  // namespace fdo::internal
