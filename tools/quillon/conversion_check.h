// Holds what was written against what was to be written.
#ifndef TOOLS_QUILLON_CONVERSION_CHECK_H_
#define TOOLS_QUILLON_CONVERSION_CHECK_H_

#include <fdo/table.h>

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

#include "tools/quillon/cell_comparison.h"
#include "tools/quillon/selection.h"

namespace fdo::tool {

// What happened to the values of one column.
struct ColumnChanges {
  std::array<std::int64_t, static_cast<std::size_t>(Change::kCount)> counts{};
  double largestDeviation = 0;

  std::int64_t& Count(Change change) { return counts[static_cast<std::size_t>(change)]; }
  std::int64_t Count(Change change) const { return counts[static_cast<std::size_t>(change)]; }
  std::int64_t Total() const;
};

struct ConversionChanges {
  std::vector<ColumnChanges> columns;  // as in Conversion
  std::int64_t missingRows = 0;        // written, but not found; negative for rows too many

  bool Any() const;
};

// What is to be compared.
struct Conversion {
  Table& source;
  BoundSelection const& selection;               // what was read
  std::vector<int> const& columns;               // positions in the source
  std::vector<int> const& matches;               // the position in the target for each of them, or -1
  std::vector<std::int64_t> const& refusedRows;  // of the source, counted from 0, ascending
  Table& target;
};

// Walks both tables at once and compares row by row. Where that finds differences that rows out of
// step would make, the values of each column are compared as sets as well, whatever their order: a
// format that sorts its rows keeps them all the same. What finds less than half of the other's
// differences counts. That takes 8 bytes for each value and table.
// step is called after each row and may throw to end the check.
// Errors: throws FdoException* for a broken geometry.
ConversionChanges CheckConversion(Conversion const& conversion, std::function<void()> const& step);

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_CONVERSION_CHECK_H_
