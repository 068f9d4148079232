#include "tools/quillon/suggestion.h"

#include <algorithm>
#include <cwctype>

namespace fdo::tool {

namespace {

std::wstring LowerCase(std::wstring_view text) {
  std::wstring lower(text);
  for (wchar_t& unit : lower) unit = static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(unit)));
  return lower;
}

}  // namespace

int EditDistance(std::wstring_view left, std::wstring_view right) {
  // Three rows of the table of distances between all beginnings are enough to know the next one.
  std::vector<int> beforeLast(right.size() + 1), last(right.size() + 1), row(right.size() + 1);
  for (std::size_t j = 0; j <= right.size(); ++j) row[j] = static_cast<int>(j);
  for (std::size_t i = 1; i <= left.size(); ++i) {
    beforeLast.swap(last);
    last.swap(row);
    row[0] = static_cast<int>(i);
    for (std::size_t j = 1; j <= right.size(); ++j) {
      int const replaced = last[j - 1] + (left[i - 1] == right[j - 1] ? 0 : 1);
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, replaced});
      bool const exchanged = i > 1 && j > 1 && left[i - 1] == right[j - 2] && left[i - 2] == right[j - 1];
      if (exchanged) row[j] = std::min(row[j], beforeLast[j - 2] + 1);
    }
  }
  return row[right.size()];
}

std::wstring Suggest(std::wstring_view name, std::vector<std::wstring> const& candidates) {
  std::wstring const wanted = LowerCase(name);
  int bestDistance = std::max(1, static_cast<int>(wanted.size()) / 3) + 1;
  std::wstring best;
  for (std::wstring const& candidate : candidates) {
    int const distance = EditDistance(wanted, LowerCase(candidate));
    if (distance < bestDistance) {
      bestDistance = distance;
      best = candidate;
    }
  }
  return best;
}

}  // namespace fdo::tool
