#include "sdk/providers/sqlite/date_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace fdo_sqlite {
namespace {

FdoDateTime Parts(int year, int month, int day, int hour, int minute, float seconds) {
  return FdoDateTime(static_cast<FdoInt16>(year), static_cast<FdoInt8>(month), static_cast<FdoInt8>(day),
                     static_cast<FdoInt8>(hour), static_cast<FdoInt8>(minute), seconds);
}

std::string TextOf(FdoDateTime const& value) {
  char text[kDateTextSize];
  return std::string(text, static_cast<std::size_t>(FormatDateText(value, text)));
}

bool AreSame(FdoDateTime const& a, FdoDateTime const& b) {
  return a.year == b.year && a.month == b.month && a.day == b.day && a.hour == b.hour &&
         a.minute == b.minute && a.seconds == b.seconds;
}

// Shows the parts as they are, "-" for a text that is no date.
std::string Read(std::string const& text) {
  FdoDateTime value = Parts(1, 2, 3, 4, 5, 6);
  FdoDateTime const before = value;
  if (!ParseDateText(text, value)) return AreSame(value, before) ? "-" : "touched";
  return std::to_string(value.year) + " " + std::to_string(value.month) + " " + std::to_string(value.day) +
         " " + std::to_string(value.hour) + " " + std::to_string(value.minute) + " " +
         std::to_string(std::lround(value.seconds * 1000));
}

TEST(FormatDateText, TheThreeForms) {
  EXPECT_EQ(TextOf(Parts(2024, 3, 1, -1, -1, 0)), "2024-03-01");
  EXPECT_EQ(TextOf(Parts(-1, -1, -1, 7, 5, 3)), "07:05:03");
  EXPECT_EQ(TextOf(Parts(2024, 3, 1, 14, 30, 5)), "2024-03-01T14:30:05");
  EXPECT_EQ(TextOf(Parts(0, 1, 1, 0, 0, 0)), "0000-01-01T00:00:00");
  EXPECT_EQ(TextOf(Parts(32767, 12, 31, -1, -1, 0)), "32767-12-31");
}

TEST(FormatDateText, FractionsHaveThreeDecimalsOrAsManyAsTheyNeed) {
  EXPECT_EQ(TextOf(Parts(2024, 3, 1, 14, 30, 5.5f)), "2024-03-01T14:30:05.500");
  EXPECT_EQ(TextOf(Parts(-1, -1, -1, 0, 0, 59.999f)), "00:00:59.999");
  EXPECT_EQ(TextOf(Parts(-1, -1, -1, 0, 0, 0.0625f)), "00:00:00.0625");
  EXPECT_EQ(TextOf(Parts(-1, -1, -1, 23, 59, 60.25f)), "23:59:60.250");
  EXPECT_LT(TextOf(Parts(32767, 12, 31, 23, 59, std::numeric_limits<float>::denorm_min())).size(),
            std::size_t{kDateTextSize});
}

TEST(FormatDateText, WhatIsNoDateHasNoText) {
  FdoDateTime const none[] = {FdoDateTime(),
                              Parts(2024, -1, -1, -1, -1, 0),
                              Parts(2024, 13, 1, -1, -1, 0),
                              Parts(2024, 0, 1, -1, -1, 0),
                              Parts(2024, 1, 32, -1, -1, 0),
                              Parts(-2, 1, 1, -1, -1, 0),
                              Parts(2024, 1, 1, 24, 0, 0),
                              Parts(-1, -1, -1, 12, -1, 0),
                              Parts(-1, -1, -1, 12, 60, 0),
                              Parts(-1, -1, -1, 12, 0, 61),
                              Parts(-1, -1, -1, 12, 0, -0.5f),
                              Parts(-1, -1, -1, 12, 0, std::nanf(""))};
  for (FdoDateTime const& value : none) EXPECT_EQ(TextOf(value), "") << value.year << " " << int{value.month};
}

TEST(ParseDateText, ReadsWhatOtherProgramsWrite) {
  struct {
    char const* text;
    char const* parts;
  } const claims[] = {
      {"2024-03-01", "2024 3 1 -1 -1 0"},
      {" 2024-03-01 ", "2024 3 1 -1 -1 0"},
      {"07:05:03", "-1 -1 -1 7 5 3000"},
      {"07:05", "-1 -1 -1 7 5 0"},
      {"2024-03-01T14:30:05.500", "2024 3 1 14 30 5500"},
      {"2024-03-01 14:30:05.5", "2024 3 1 14 30 5500"},
      {"2024-03-01T14:30", "2024 3 1 14 30 0"},
      {"2024-03-01 14:30Z", "2024 3 1 14 30 0"},
      {"2024-03-01T14:30:05Z", "2024 3 1 14 30 5000"},
      {"07:05:03Z", "-1 -1 -1 7 5 3000"},
      {"2024-03-01T14:30:05.25+00:00", "2024 3 1 14 30 5250"},
      {"2024-03-01T00:30:05.25+01:00", "2024 2 29 23 30 5250"},
      {"2023-12-31T23:30:00-0130", "2024 1 1 1 0 0"},
      {"2024-03-01T14:30:00+02", "2024 3 1 12 30 0"},
      {"12345-03-01", "12345 3 1 -1 -1 0"},
      {"2024-03-01T23:59:60", "2024 3 1 23 59 60000"},
  };
  for (auto const& claim : claims) EXPECT_EQ(Read(claim.text), claim.parts) << claim.text;
}

TEST(ParseDateText, RefusesAllElse) {
  for (char const* text : {"",
                           " ",
                           "2024",
                           "2024-03",
                           "2024-3-1",
                           "24-03-01",
                           "2024/03/01",
                           "2024-13-01",
                           "2024-00-01",
                           "2024-01-32",
                           "2024-03-01T",
                           "2024-03-01X14:30",
                           "2024-03-01T14",
                           "2024-03-01T24:00:00",
                           "2024-03-01T14:60:00",
                           "2024-03-01T14:30:61",
                           "2024-03-01T14:30:5",
                           "2024-03-01T14:30:05,5",
                           "2024-03-01T14:30:05ZZ",
                           "2024-03-01T14:30:05+1",
                           "2024-03-01T14:30:05+16:00",
                           "2024-03-01Z",
                           "07:05:03+01:00",
                           "07:",
                           "7:05:03",
                           "40000-01-01",
                           "-001-01-01",
                           "2024-03-01T14:30:05 more",
                           "now",
                           "0000-01-01T00:00:00+01:00"}) {
    EXPECT_EQ(Read(text), "-") << text;
  }
  EXPECT_EQ(Read(std::string("2024-03-01\0", 11)), "-");
}

// The usual form has a way of its own, which a blank behind it leads past.
TEST(ParseDateText, TheUsualFormReadsAsAnyOther) {
  for (std::string const usual : {"2024-03-01T14:30:05", "9999-12-31 23:59:60", "0000-01-01T00:00:00"}) {
    for (std::size_t at = 0; at < usual.size(); ++at) {
      for (int unit = 0; unit < 256; ++unit) {
        std::string text = usual;
        text[at] = static_cast<char>(unit);
        EXPECT_EQ(Read(text), Read(text + " ")) << text;
      }
    }
  }
}

TEST(DateText, RandomDatesReadBackTheSame) {
  constexpr unsigned kSeed = 20261121;
  std::mt19937 random(kSeed);
  auto const below = [&](int bound) { return static_cast<int>(random() % static_cast<unsigned>(bound)); };
  for (int i = 0; i < 100000; ++i) {
    FdoDateTime value;
    int const form = below(3);
    if (form != 0) value = Parts(below(32768), 1 + below(12), 1 + below(31), -1, -1, 0);
    if (form != 1) {
      value.hour = static_cast<FdoInt8>(below(24));
      value.minute = static_cast<FdoInt8>(below(60));
      value.seconds = static_cast<float>(random()) / 4294967296.0f * 60;
      if (below(2) == 0) value.seconds = static_cast<float>(below(60000)) / 1000;
    }
    FdoDateTime read;
    ASSERT_TRUE(ParseDateText(TextOf(value), read)) << "seed " << kSeed << " " << TextOf(value);
    ASSERT_TRUE(AreSame(value, read)) << "seed " << kSeed << " " << TextOf(value) << " " << TextOf(read);
  }
}

TEST(DateFromUnixSeconds, CountsFrom1970) {
  struct {
    std::int64_t seconds;
    char const* text;
  } const claims[] = {{0, "1970-01-01T00:00:00"},
                      {-1, "1969-12-31T23:59:59"},
                      {951782400, "2000-02-29T00:00:00"},
                      {1709303405, "2024-03-01T14:30:05"},
                      {-62167219200, "0000-01-01T00:00:00"},
                      {253402300799, "9999-12-31T23:59:59"}};
  for (auto const& claim : claims) {
    FdoDateTime value;
    ASSERT_TRUE(DateFromUnixSeconds(claim.seconds, value));
    EXPECT_EQ(TextOf(value), claim.text);
  }
  FdoDateTime untouched;
  EXPECT_FALSE(DateFromUnixSeconds(-62167219201, untouched));
  EXPECT_FALSE(DateFromUnixSeconds(253402300800, untouched));
  EXPECT_EQ(untouched.year, -1);
}

TEST(DateFromJulianDay, ShowsMilliseconds) {
  FdoDateTime value;
  ASSERT_TRUE(DateFromJulianDay(2440587.5, value));
  EXPECT_EQ(TextOf(value), "1970-01-01T00:00:00");
  ASSERT_TRUE(DateFromJulianDay(2460371.1042303243, value));
  EXPECT_EQ(TextOf(value), "2024-03-01T14:30:05.500");
  for (double const day : {std::nan(""), HUGE_VAL, -HUGE_VAL, 1e300, -1.0}) {
    EXPECT_FALSE(DateFromJulianDay(day, value)) << day;
  }
}

}  // namespace
}  // namespace fdo_sqlite
