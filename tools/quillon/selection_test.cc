#include "tools/quillon/selection.h"

#include <gtest/gtest.h>

#include "tools/quillon/failure.h"
#include "tools/quillon/filter.h"

namespace fdo::tool {
namespace {

TEST(ParseBox, FourNumbers) {
  EXPECT_EQ(ParseBox("-10,35,5.5,4e1"), (Box{-10, 35, 5.5, 40}));
  EXPECT_EQ(ParseBox("0, 0, 0, 0"), (Box{0, 0, 0, 0}));
}

TEST(ParseBox, NothingElse) {
  for (char const* const text : {"", "1", "1,2,3", "1,2,3,4,5", "1;2;3;4", "a,b,c,d", "3,0,1,1", "0,3,1,1",
                                 "1,2,3,inf", "1,2,3,nan", "1,2,3,4x"}) {
    EXPECT_THROW(ParseBox(text), Failure) << text;
  }
}

TEST(PositionInMessage, IsTheNumberInFront) {
  EXPECT_EQ(PositionInMessage("Character 7: expected a value"), 6);
  EXPECT_EQ(PositionInMessage("Character 0: x"), std::nullopt);
  EXPECT_EQ(PositionInMessage("a character 7"), std::nullopt);
  EXPECT_EQ(PositionInMessage(""), std::nullopt);
}

// The caret stands under the character, however wide those before it are.
TEST(ParseFilter, ShowsThePlaceOfTheError) {
  struct {
    char const *text, *shown;
  } const cases[] = {
      {"pop > > 1", "\n  pop > > 1\n        ^"},
      {"n\xc3\xa4me = ) ", "\n  n\xc3\xa4me = ) \n         ^"},
      {"'\xe5\x8c\x97' = ) ", "\n  '\xe5\x8c\x97' = ) \n         ^"},
  };
  for (auto const& [text, shown] : cases) {
    try {
      ParseFilter(text);
      ADD_FAILURE() << text;
    } catch (Failure const& failure) {
      EXPECT_EQ(failure.code, ExitCode::kUsage);
      EXPECT_NE(failure.message.find(shown), std::string::npos) << failure.message;
    }
  }
}

}  // namespace
}  // namespace fdo::tool
