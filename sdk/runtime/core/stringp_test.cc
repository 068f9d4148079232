#include "Common/StringP.h"

#include <gtest/gtest.h>

#include <string>

#include "FdoCommon.h"
#include "port/live_allocations.h"

namespace {

TEST(StringP, CopiesShareAndAllIsGivenBack) {
  long long const before = fdo::port::LiveAllocations();
  {
    FdoStringP first = L"some text that is longer than a short text";
    FdoStringP second = first;
    EXPECT_EQ(static_cast<FdoString*>(first), static_cast<FdoString*>(second));
    second += L"!";
    EXPECT_TRUE(second == first + L"!");
    EXPECT_STREQ(static_cast<char const*>(second), "some text that is longer than a short text!");
    auto* attached = new wchar_t[2]{L'x', 0};
    FdoStringP const taken(attached, true);
    EXPECT_STREQ(taken, L"x");
    FdoStringP const& itself = first;
    first = itself;
    EXPECT_EQ(first.GetLength(), 42u);
    EXPECT_GT(fdo::port::LiveAllocations(), before) << "what the SDK's library takes is counted";
  }
  EXPECT_EQ(fdo::port::LiveAllocations(), before);
}

TEST(StringP, NullAndEmptyAreTheEmptyText) {
  EXPECT_STREQ(FdoStringP(), L"");
  EXPECT_STREQ(FdoStringP(static_cast<FdoString*>(nullptr)), L"");
  EXPECT_STREQ(static_cast<char const*>(FdoStringP(static_cast<char const*>(nullptr))), "");
  EXPECT_TRUE(FdoStringP::mEmptyString == L"");
}

TEST(StringP, PartsOfATextAreFound) {
  FdoStringP text = L"schema:class:more";
  EXPECT_STREQ(text.Left(L":"), L"schema");
  EXPECT_STREQ(text.Right(L":"), L"class:more");
  EXPECT_TRUE(text.Left(L"?") == text);
  EXPECT_STREQ(text.Right(L"?"), L"");
  EXPECT_STREQ(text.Mid(7, 5), L"class");
  EXPECT_STREQ(text.Mid(99, 5), L"");
  EXPECT_STREQ(text.Replace(L":", L"::"), L"schema::class::more");
  EXPECT_TRUE(text.Upper().Lower() == text);
  EXPECT_TRUE(text.Contains(L"class"));
  EXPECT_EQ(FdoStringP(L"ABC").ICompare(L"abc"), 0);
  EXPECT_LT(FdoStringP(L"abc").ICompare(L"ABD"), 0);
  EXPECT_STREQ(FdoStringP::Format(L"%ls has %d", L"table", 5), L"table has 5");
}

TEST(StringP, NumbersAreReadAsInTheCLocale) {
  struct Row {
    wchar_t const* text;
    bool isNumber;
    FdoInt64 integer;
    double real;
    bool boolean;  // with true for what is neither
  };
  constexpr Row kRows[] = {
      {L"12", true, 12, 12, true},
      {L" -7 ", true, -7, -7, true},
      {L"+3", true, 3, 3, true},
      {L"1.5e1", true, 1, 15, true},
      {L"12abc", false, 12, 12, true},
      {L"abc", false, 0, 0, true},
      {L"", false, 0, 0, true},
      {L"1,5", false, 1, 1, true},
      {L"0", true, 0, 0, false},
      {L"False", false, 0, 0, false},
      {L"no", false, 0, 0, false},
      {L"nan", false, 0, 0, true},
      {L"9223372036854775807", true, FdoInt64Max, 9223372036854775807.0, true},
  };
  for (Row const& row : kRows) {
    FdoStringP const text = row.text;
    SCOPED_TRACE(static_cast<char const*>(text));
    EXPECT_EQ(text.IsNumber(), row.isNumber);
    EXPECT_EQ(text.ToInt64(), row.integer);
    EXPECT_EQ(text.ToDouble(), row.real);
    EXPECT_EQ(text.ToBoolean(true), row.boolean);
  }
}

TEST(StringP, Utf8OfEveryLengthAndOfWhatIsNotWellFormed) {
  struct Row {
    char const* bytes;
    wchar_t const* text;
    bool wellFormed;
  };
  constexpr Row kRows[] = {
      {"a", L"a", true},
      {"\xC3\xA9", L"\u00E9", true},
      {"\xE2\x82\xAC", L"\u20AC", true},
      {"\xF0\x90\x8D\x88", L"\U00010348", true},
      {"\xC0\x80", L"\uFFFD", false},          // longer than needed
      {"\xED\xA0\x80", L"\uFFFD", false},      // a surrogate
      {"\xF4\x90\x80\x80", L"\uFFFD", false},  // past the last character
      {"\xE2\x82"
       "a",
       L"\uFFFD"
       L"a",
       false},  // cut short
      {"\x80", L"\uFFFD", false},
      {"\xFF", L"\uFFFD", false},
  };
  for (Row const& row : kRows) {
    EXPECT_STREQ(FdoStringP(row.bytes), row.text);
    wchar_t wide[16];
    char narrow[16];
    if (row.wellFormed) {
      EXPECT_EQ(FdoStringP::Utf8ToUnicode(row.bytes, wide, 16), static_cast<int>(std::wcslen(row.text)));
      EXPECT_EQ(FdoStringP::Utf8FromUnicode(row.text, narrow, 16), static_cast<int>(std::strlen(row.bytes)));
      EXPECT_STREQ(narrow, row.bytes);
      EXPECT_EQ(FdoStringP::Utf8Len(row.bytes), 1);
      EXPECT_EQ(
          FdoStringP::Utf8FromUnicode(row.text, narrow, static_cast<int>(std::strlen(row.bytes)), false), 0);
    } else {
      EXPECT_EQ(FdoStringP::Utf8ToUnicode(row.bytes, wide, 16, false), 0);
      try {
        FdoStringP::Utf8ToUnicode(row.bytes, wide, 16);
        ADD_FAILURE();
      } catch (FdoException* caught) {
        FdoPtr<FdoException> failure(caught);
        EXPECT_STREQ(failure->GetExceptionMessage(), L"The text to convert is not well formed.");
      }
    }
  }
}

}  // namespace
