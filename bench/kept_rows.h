// Seeded rows in memory, with their texts in the forms that the writers want, so that a job that writes
// measures the writing only.
#ifndef BENCH_KEPT_ROWS_H_
#define BENCH_KEPT_ROWS_H_

#include <string>
#include <vector>

#include "bench/seeded_rows.h"

namespace fdo::bench {

struct KeptRow {
  SeededRow row;
  std::wstring word;
  std::wstring moment;       // as date-time cells have it
  std::string storedMoment;  // as SQLite files keep it
};

std::vector<KeptRow> KeepRows(std::uint64_t seed, Shape shape, std::int64_t count);

}  // namespace fdo::bench

#endif  // BENCH_KEPT_ROWS_H_
