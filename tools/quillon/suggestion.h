// "Did you mean": the name that somebody most likely wanted to type.
#ifndef TOOLS_QUILLON_SUGGESTION_H_
#define TOOLS_QUILLON_SUGGESTION_H_

#include <string>
#include <string_view>
#include <vector>

namespace fdo::tool {

// The least number of single-character insertions, deletions, replacements and exchanges of
// neighbours that turn one text into the other.
int EditDistance(std::wstring_view left, std::wstring_view right);

// The candidate that is closest to the name, case aside, if it is close enough to be meant: at most a
// third of the name's length away, and at least one edit. The first of equals; "" when none is.
std::wstring Suggest(std::wstring_view name, std::vector<std::wstring> const& candidates);

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_SUGGESTION_H_
