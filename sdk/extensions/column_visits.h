// What a select may offer beside the published interface: the values of its one property, shown row after row
// without a call that moves from one to the next. A program asks a select command for it with dynamic_cast,
// and executes the command where there is none.
#ifndef SDK_EXTENSIONS_COLUMN_VISITS_H_
#define SDK_EXTENSIONS_COLUMN_VISITS_H_

#include "sdk/extensions/direct_cells.h"

class FdoIFeatureReader;

namespace fdo_sdk {

class ColumnVisitor {
 public:
  // What DirectCells::ReadCell gives for the property in the next row. Where that is kNone, the reader stands
  // on the row to be asked, with the property in its place 0.
  // Borrowed: text, bytes and moment until this returns. The reader is always the same, and may be held on
  //   to, but has no row after the last.
  // Requires: the reader is not moved or closed, and its connection neither written through nor closed.
  virtual void VisitCell(DirectKind kind, DirectCell const& cell, FdoIFeatureReader& reader) = 0;

 protected:
  ColumnVisitor() = default;
  ~ColumnVisitor() = default;
};

class ColumnVisits {
 public:
  // Visits the rows that the reader of Execute would read, in the same order. The type is that of the
  // property, as ReadCell takes it.
  // Gives: false where the command is to be executed instead; nothing has been visited then.
  // Errors: what Execute or moving its reader throws; what the visitor throws, which ends the visits.
  virtual bool VisitColumn(FdoInt32 type, ColumnVisitor& visitor) = 0;

 protected:
  ColumnVisits() = default;
  ~ColumnVisits() = default;
};

}  // namespace fdo_sdk

#endif  // SDK_EXTENSIONS_COLUMN_VISITS_H_
