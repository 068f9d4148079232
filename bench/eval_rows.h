// Rows of mixed columns and the one filter that the evaluators of the eval jobs run over them:
//
//   narrow > 250000 AND number * 2.5 <= 2000000.0 AND kind <> 'road'
#ifndef BENCH_EVAL_ROWS_H_
#define BENCH_EVAL_ROWS_H_

#include <cstdint>
#include <string>
#include <vector>

#include "bench/workbench.h"

namespace fdo::bench {

inline constexpr wchar_t const* kEvalFilter =
    L"narrow > 250000 AND number * 2.5 <= 2000000.0 AND kind <> 'road'";
inline constexpr std::int64_t kEvalNarrow = 250000;
inline constexpr double kEvalFactor = 2.5;
inline constexpr double kEvalNumber = 2000000.0;
inline constexpr wchar_t const* kEvalKind = L"road";

struct EvalRow {
  std::int64_t id;
  std::int64_t narrow;  // below 1,000,000
  double number;        // below 1,000,000
  char const* kind;     // one of four words
};

std::vector<EvalRow> MakeEvalRows(Workbench const& bench, std::int64_t count);

}  // namespace fdo::bench

#endif  // BENCH_EVAL_ROWS_H_
