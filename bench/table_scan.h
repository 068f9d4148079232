// The library's side of scans: every row of a table, by the public interface alone.
#ifndef BENCH_TABLE_SCAN_H_
#define BENCH_TABLE_SCAN_H_

#include <fdo/database.h>

#include <vector>

#include "bench/job.h"

namespace fdo::bench {

// What the cells of a row add up to; every one is read.
// Errors: std::runtime_error for a column of a type that the data does not have.
class RowChecksum {
 public:
  explicit RowChecksum(TableDef const& def);
  std::uint64_t Of(Row const& row) const;

 private:
  std::vector<ColumnDef::DataType> types_;
};

// Reads every cell of the rows that the running query still gives.
Work ScanRest(Table& table);

// Reads every cell.
// Errors: std::runtime_error for a column of a type that the data does not have.
Work ScanTable(Table& table);

// Reads the cells of that column, the only one that is asked for.
// Errors: std::runtime_error when there is no such column.
Work ScanColumn(Table& table, wchar_t const* column);

}  // namespace fdo::bench

#endif  // BENCH_TABLE_SCAN_H_
