#ifndef TOOLS_QUILLON_ROW_COPIER_H_
#define TOOLS_QUILLON_ROW_COPIER_H_

#include <fdo/table.h>

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "tools/quillon/selection.h"

namespace fdo::tool {

// What became of the rows.
struct CopiedRows {
  std::int64_t read = 0;
  std::int64_t written = 0;
  std::vector<std::int64_t> refused;            // of those read, counted from 0
  std::map<std::string, std::int64_t> reasons;  // why, and how many of them
};

// What is asked and told while rows are copied.
struct CopyEvents {
  std::function<std::string()> whyRefused;        // of the latest row
  std::function<void()> allRead;                  // and the target still has them to settle
  std::function<void(CopiedRows const&)> copied;  // after each row; may throw
};

// Writes the selected rows of one table into another that has just been created from the columns (see
// DefineTarget): beside its identity and its geometry it has a field for each other column, in order.
CopiedRows CopyRows(Table& source, BoundSelection const& selection, std::vector<int> const& columns,
                    Table& target, bool geometryAsText, CopyEvents const& events);

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_ROW_COPIER_H_
