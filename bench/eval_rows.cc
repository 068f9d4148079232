#include "bench/eval_rows.h"

#include <random>

namespace fdo::bench {

std::vector<EvalRow> MakeEvalRows(Workbench const& bench, std::int64_t count) {
  constexpr char const* kKinds[] = {"road", "river", "forest", "residential"};
  constexpr std::uint64_t kBelow = 1'000'000;
  std::mt19937_64 random(bench.seed);
  std::vector<EvalRow> rows(static_cast<std::size_t>(count));
  std::int64_t id = 0;
  for (EvalRow& row : rows) {
    row.id = ++id;
    row.narrow = static_cast<std::int64_t>(random() % kBelow);
    row.number = static_cast<double>(random() % (kBelow * 8)) / 8;
    row.kind = kKinds[random() % 4];
  }
  return rows;
}

}  // namespace fdo::bench
