#include "tools/quillon/json_text.h"

#include <gtest/gtest.h>

#include <clocale>
#include <limits>
#include <nlohmann/json.hpp>

namespace fdo::tool {
namespace {

std::string Quoted(std::wstring_view text) {
  std::string out;
  AppendJsonString(out, text);
  return out;
}

std::string Number(double number) {
  std::string out;
  AppendJsonNumber(out, number);
  return out;
}

TEST(JsonString, EscapesWhatJsonWantsEscaped) {
  EXPECT_EQ(Quoted(L"a\"b\\c/d"), R"("a\"b\\c/d")");
  EXPECT_EQ(Quoted(L"\n\r\t\x01\x1f"), R"("\n\r\t\u0001\u001f")");
  EXPECT_EQ(Quoted(L"S\u00e3o"), "\"S\xc3\xa3o\"");
}

TEST(JsonString, EveryUnitBelow0x120ReadsBackAsItself) {
  for (wchar_t unit = 1; unit < 0x120; ++unit) {
    auto const parsed = nlohmann::json::parse(Quoted(std::wstring(1, unit)));
    std::string bytes = parsed.get<std::string>();
    EXPECT_EQ(bytes.size(), unit < 0x80 ? 1u : 2u) << static_cast<int>(unit);
  }
}

TEST(JsonNumber, HasTheShortestDigitsThatReadBack) {
  EXPECT_EQ(Number(0.1), "0.1");
  EXPECT_EQ(Number(-0.0), "-0");
  EXPECT_EQ(Number(177), "177");
  EXPECT_EQ(Number(1e300), "1e+300");
  for (double number : {1.0 / 3, 5e-324, 1.7976931348623157e308, 123456789.123456789}) {
    EXPECT_EQ(nlohmann::json::parse(Number(number)).get<double>(), number);
  }
}

TEST(JsonNumber, WhatIsNotFiniteIsNull) {
  EXPECT_EQ(Number(std::numeric_limits<double>::infinity()), "null");
  EXPECT_EQ(Number(-std::numeric_limits<double>::infinity()), "null");
  EXPECT_EQ(Number(std::numeric_limits<double>::quiet_NaN()), "null");
}

TEST(JsonDocument, IndentsAndSeparates) {
  JsonDocument document;
  document.BeginObject();
  document.Text("name", std::string_view("a"));
  document.BeginArray("list");
  document.Integer({}, 1);
  document.Number({}, 2.5);
  document.BeginObject();
  document.EndObject();
  document.EndArray();
  document.BeginArray("none");
  document.EndArray();
  document.Flag("flag", true);
  document.Null("nothing");
  document.EndObject();
  EXPECT_EQ(std::move(document).Finish(), R"({
  "name": "a",
  "list": [
    1,
    2.5,
    {}
  ],
  "none": [],
  "flag": true,
  "nothing": null
}
)");
}

}  // namespace
}  // namespace fdo::tool
