#ifndef TOOLS_QUILLON_COLUMN_STATISTICS_H_
#define TOOLS_QUILLON_COLUMN_STATISTICS_H_

#include <fdo/table.h>

#include <cstdint>
#include <optional>
#include <vector>

namespace fdo::tool {

struct ColumnStatistics {
  std::int64_t count = 0;  // of values that are not null
  std::int64_t nulls = 0;
  std::int64_t distinct = 0;
  Value min, max;                   // null without values
  std::optional<double> mean;       // of numbers only
  std::optional<double> deviation;  // the root of the sample variance; 0 for one value
  Value median;
};

// Statistics of one column over the rows that match a filter, which may be null.
// Requires: the table is not being queried; it is left without a query
ColumnStatistics ComputeStatistics(Table& table, int column, FdoFilter* filter);

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_COLUMN_STATISTICS_H_
