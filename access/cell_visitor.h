#ifndef ACCESS_CELL_VISITOR_H_
#define ACCESS_CELL_VISITOR_H_

#include <fdo/value.h>

namespace fdo::internal {

// Is shown the cells of one column, one for each record.
class CellVisitor {
 public:
  // Borrowed: the cell, until this returns.
  virtual void Visit(Value const& cell) = 0;

 protected:
  CellVisitor() = default;
  ~CellVisitor() = default;
};

}  // namespace fdo::internal

#endif  // ACCESS_CELL_VISITOR_H_
