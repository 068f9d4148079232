// The cells of a column, as a provider shows them.
#ifndef FDO_BACKEND_VISITED_COLUMN_H_
#define FDO_BACKEND_VISITED_COLUMN_H_

#include <Fdo.h>
#include <fdo/table_fdo.h>

#include "access/cell_visitor.h"
#include "sdk/extensions/column_visits.h"

namespace fdo::internal {

// Stands in for Next: each cell becomes that of the table's row, on which it is shown.
class VisitedColumn final : public fdo_sdk::ColumnVisitor {
 public:
  // Requires: the table's select, which is about to be visited, has that column alone.
  VisitedColumn(TableFdo& table, int column, CellVisitor& visitor)
      : table_(table), column_(column), cell_(table.cells_[column]), visitor_(visitor) {}
  // The table's query is at its end then.
  ~VisitedColumn();
  VisitedColumn(VisitedColumn const&) = delete;
  VisitedColumn& operator=(VisitedColumn const&) = delete;

  void VisitCell(fdo_sdk::DirectKind kind, fdo_sdk::DirectCell const& read,
                 FdoIFeatureReader& reader) override;

 private:
  void Take(fdo_sdk::DirectKind kind, fdo_sdk::DirectCell const& read, FdoIFeatureReader& reader);

  TableFdo& table_;
  int const column_;
  Value& cell_;
  CellVisitor& visitor_;
};

}  // namespace fdo::internal

#endif  // FDO_BACKEND_VISITED_COLUMN_H_
