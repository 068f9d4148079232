// The rate at which filter text becomes a tree. Nothing else reads this grammar, so what is beside it is no
// peer but a floor: a loop that only cuts the same text into words.
#include <Fdo.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "bench/job_table.h"
#include "bench/workbench.h"

namespace fdo::bench {
namespace {

constexpr wchar_t const* kText = L"pop > 1000 AND name = 'x' OR area <= 2.5";

// Both sides count the comparisons that they find.
std::uint64_t Comparisons(FdoFilter* filter) {
  if (auto* const both = dynamic_cast<FdoBinaryLogicalOperator*>(filter)) {
    FdoPtr<FdoFilter> left = both->GetLeftOperand();
    FdoPtr<FdoFilter> right = both->GetRightOperand();
    return Comparisons(left) + Comparisons(right);
  }
  return dynamic_cast<FdoComparisonCondition*>(filter) != nullptr ? 1 : 0;
}

std::vector<std::wstring> Words(std::wstring_view text) {
  std::vector<std::wstring> words;
  while (!text.empty()) {
    std::size_t const end = std::min(text.find(L' '), text.size());
    words.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return words;
}

std::uint64_t Comparisons(std::vector<std::wstring> const& words) {
  return static_cast<std::uint64_t>(std::count_if(words.begin(), words.end(), [](std::wstring const& word) {
    return word == L">" || word == L"=" || word == L"<=";
  }));
}

template <class Count>
Work CountAll(std::int64_t times, Count count) {
  Work work{static_cast<double>(times), 0};
  for (std::int64_t i = 0; i < times; ++i) work.checksum += count();
  return work;
}

}  // namespace

Sides ParseFilterJob(Workbench const& bench, std::string_view data) {
  if (data != "three comparisons") throw std::invalid_argument("no filter \"" + std::string(data) + "\"");
  std::int64_t const times = bench.rows / 10 + 1;
  return {
      [times] {
        return CountAll(times, [] {
          FdoPtr<FdoFilter> filter = FdoFilter::Parse(kText);
          return Comparisons(filter.p);
        });
      },
      [times] { return CountAll(times, [] { return Comparisons(Words(kText)); }); },
  };
}

}  // namespace fdo::bench
