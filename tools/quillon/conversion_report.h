#ifndef TOOLS_QUILLON_CONVERSION_REPORT_H_
#define TOOLS_QUILLON_CONVERSION_REPORT_H_

#include <string>
#include <vector>

#include "tools/quillon/conversion_check.h"
#include "tools/quillon/row_copier.h"

namespace fdo::tool {

// What a conversion did, for people and for programs.
struct ConversionReport {
  struct Column {
    std::string name;
    std::string targetName;  // "" when the target has no such column
    ColumnChanges changes;
  };

  std::string source, table, target, driver;
  CopiedRows rows;
  bool checked = false;
  std::int64_t surplusRows = 0;  // in the target, but never written
  std::vector<Column> columns;
  std::vector<std::string> leftColumns;  // of a type that cannot be written

  // Whether every row and every value arrived as it was, as far as that was looked at.
  bool IsComplete() const;
  // One line for each thing that is not as it was.
  std::vector<std::string> Notes() const;
  // One line, with its break.
  std::string Summary() const;
  std::string Json() const;
};

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_CONVERSION_REPORT_H_
