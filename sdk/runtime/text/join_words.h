// The words of the joins in the text of a sub-select.
#ifndef SDK_RUNTIME_TEXT_JOIN_WORDS_H_
#define SDK_RUNTIME_TEXT_JOIN_WORDS_H_

#include <string_view>

#include "Fdo/Expression/JoinType.h"

namespace fdo_sdk {

struct JoinWords {
  FdoJoinType type;
  std::wstring_view words;
};

inline constexpr JoinWords kJoinWords[] = {
    {FdoJoinType_None, L"JOIN"},
    {FdoJoinType_Inner, L"INNER JOIN"},
    {FdoJoinType_RightOuter, L"RIGHT OUTER JOIN"},
    {FdoJoinType_LeftOuter, L"LEFT OUTER JOIN"},
    {FdoJoinType_FullOuter, L"FULL OUTER JOIN"},
    {FdoJoinType_Cross, L"CROSS JOIN"},
};

// Empty when the type means nothing.
constexpr std::wstring_view WordsOfJoin(FdoJoinType type) {
  for (JoinWords const& join : kJoinWords) {
    if (join.type == type) return join.words;
  }
  return {};
}

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_TEXT_JOIN_WORDS_H_
