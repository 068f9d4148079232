#include "tools/quillon/named_values.h"

#include <gtest/gtest.h>

#include "tools/quillon/cell_text.h"
#include "tools/quillon/failure.h"

namespace fdo::tool {
namespace {

TEST(ReadValue, KindsByTheirText) {
  struct {
    char const* text;
    int kind;
    char const* shown;
  } const cases[] = {
      {"12", Value::kInt, "12"},
      {"-9223372036854775808", Value::kInt, "-9223372036854775808"},
      {"9223372036854775808", Value::kDouble, "9223372036854775808"},
      {"1.50", Value::kDouble, "1.5"},
      {"-2e3", Value::kDouble, "-2000"},
      {"True", Value::kBool, "true"},
      {"false", Value::kBool, "false"},
      {"NULL", Value::kNull, ""},
      {"", Value::kString, ""},
      {"inf", Value::kString, "inf"},
      {"nan", Value::kString, "nan"},
      {"1 2", Value::kString, "1 2"},
      {"+1", Value::kString, "+1"},
      {"truest", Value::kString, "truest"},
      {"'12'", Value::kString, "12"},
      {"'null'", Value::kString, "null"},
      {"'it''s'", Value::kString, "it's"},
      {"''", Value::kString, ""},
      {"'", Value::kString, "'"},
      {"n\xc3\xa4h", Value::kString, "n\xc3\xa4h"},
  };
  for (auto const& [text, kind, shown] : cases) {
    Value const value = ReadValue(text);
    EXPECT_EQ(value.Type(), kind) << text;
    std::string printed;
    AppendCellText(printed, value, ColumnDef::kString);
    EXPECT_EQ(printed, shown) << text;
  }
}

TEST(NamedValues, TheFirstSignPartsNameAndValue) {
  NamedValues const values({"a=1", "b=x=y", "c="});
  EXPECT_EQ(values.Def().ColumnCount(), 3);
  EXPECT_EQ(Integer(values.Row()[L"a"]), 1);
  EXPECT_STREQ(Text(values.Row()[L"b"]), L"x=y");
  EXPECT_STREQ(Text(values.Row()[L"c"]), L"");
}

TEST(NamedValues, NoNameAndTheSameNameAreRefused) {
  using Assignments = std::vector<std::string>;
  for (Assignments const& wrong : {Assignments{"a"}, Assignments{"=1"}, Assignments{"a=1", "a=2"}}) {
    try {
      NamedValues const values(wrong);
      ADD_FAILURE() << wrong.back();
    } catch (Failure const& failure) {
      EXPECT_EQ(failure.code, ExitCode::kUsage);
    }
  }
}

}  // namespace
}  // namespace fdo::tool
