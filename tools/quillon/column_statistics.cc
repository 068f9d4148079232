#include "tools/quillon/column_statistics.h"

#include <Fdo.h>

#include <cmath>
#include <set>

#include "tools/quillon/cell_text.h"

namespace fdo::tool {

namespace {

void CountRows(Table& table, int column, FdoFilter* filter, ColumnStatistics& statistics) {
  constexpr bool kAscending = true;
  table.SetDesiredFields(&column, 1);
  table.Query(filter, nullptr, kAscending);
  while (Row const* row = table.Next()) ++(IsNothing((*row)[column]) ? statistics.nulls : statistics.count);
  table.EndQuery();
  table.SetDesiredFields(static_cast<int const*>(nullptr), 0);
}

}  // namespace

ColumnStatistics ComputeStatistics(Table& table, int column, FdoFilter* filter) {
  ColumnDef const& def = (*table.Def())[column];
  ColumnStatistics statistics;
  CountRows(table, column, filter, statistics);

  // The table's own minimum stays null when the first record has none, so that the ordered set of
  // values is the better source.
  std::set<Value> values;
  constexpr bool kIncludeNull = true;
  table.GetDistinctValues(values, def.Name(), !kIncludeNull, filter);
  statistics.distinct = static_cast<std::int64_t>(values.size());
  if (!values.empty()) {
    statistics.min.CopyFrom(*values.begin());
    statistics.max.CopyFrom(*values.rbegin());
  }
  if (IsNumeric(def.Type()) && statistics.count > 0) {
    double variance = 0, mean = 0;
    table.GetStats(variance, mean, def.Name(), filter);
    statistics.mean = mean;
    statistics.deviation = std::sqrt(variance);
    table.GetMedian(statistics.median, def.Name(), filter);
  }
  table.EndQuery();
  return statistics;
}

}  // namespace fdo::tool
