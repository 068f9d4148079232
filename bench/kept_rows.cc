#include "bench/kept_rows.h"

#include <fmt/format.h>

namespace fdo::bench {

std::vector<KeptRow> KeepRows(std::uint64_t seed, Shape shape, std::int64_t count) {
  SeededRows rows(seed, shape);
  std::vector<KeptRow> kept;
  kept.reserve(static_cast<std::size_t>(count));
  for (std::int64_t i = 0; i < count; ++i) {
    SeededRow const& row = rows.Next();
    std::string const moment = fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}", row.year, row.month,
                                           row.day, row.hour, row.minute, row.second);
    std::string const word = row.text.data();
    kept.push_back({row, {word.begin(), word.end()}, {moment.begin(), moment.end()}, moment});
  }
  return kept;
}

}  // namespace fdo::bench
