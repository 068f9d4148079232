#ifndef FDO_ROW_H_
#define FDO_ROW_H_

#include <fdo/export.h>
#include <fdo/schema.h>
#include <fdo/value.h>

namespace fdo {

class Table;

// A Row is one record: a cell for each column of a table definition, in column order.
//
// A free-standing row is built from a definition and filled by its owner. A bound row shows the
// current record of a table: its cells are undefined until they are asked for, and then fetched from
// the table once. Geometry is an FGF stream (docs/fgf_format.md) in a cell that holds bytes.
//
// Errors: none is reported; positions and names are trusted. What a failed fetch leaves in the cell,
// or throws, is the table's matter.
// Threads: one at a time, that of the table where the row is bound.
class QUILLON_EXPORT Row {
 public:
  // A free-standing row of undefined cells.
  // Borrowed: def must outlive the row.
  explicit Row(TableDef const* def);
  // A bound row over the table's definition.
  // Borrowed: the table must outlive the row.
  explicit Row(Table const* table);
  // A free-standing copy, see CopyFrom. It owns its cells.
  // Borrowed: other's definition, which must outlive the copy, too: that of a table lives until its Database
  // clears the schema.
  Row(Row const& other);
  Row& operator=(Row const& other);
  ~Row();

  TableDef const* Def() const { return def_; }

  // Makes every cell undefined, so that it is fetched again.
  void Invalidate();

  // The cell, fetched if need be.
  // Requires: 0 <= column && column < Def()->ColumnCount()
  Value& operator[](int column) { return Cell(column); }
  Value const& operator[](int column) const { return Cell(column); }
  // Requires: Def()->IndexOf(column) >= 0
  Value& operator[](wchar_t const* column) { return Cell(def_->IndexOf(column)); }
  Value const& operator[](wchar_t const* column) const { return Cell(def_->IndexOf(column)); }

  // The identity as Value converts it; 0, without a fetch, when the table has no identity column.
  __int64 ID() const;
  // The main geometry's stream; null when there is none.
  // Borrowed: until the cell changes.
  void const* Geom() const;
  // Its length in bytes; 0 when there is no geometry column.
  int GeomLen() const;
  // The box of the geometry in that column, or of the main geometry when column is -1.
  // Units: minX, minY, maxX, maxY. Without a geometry the box is (+inf, +inf, -inf, -inf); a stream
  // of unknown type gives (DBL_MAX, DBL_MAX, -DBL_MAX, -DBL_MAX). Both are inverted, which is how an
  // empty box is recognised.
  // Errors: throws FdoException "Invalid FGF stream!" for a stream that breaks off or makes no sense.
  // Requires: column names a column, or is -1 and the table has a geometry column or none at all.
  void GeomBBOX(double* const box, int column) const;

  // Copies every cell, fetching those of a bound source first, so that a copy never holds an unfetched
  // cell. With another definition than its own the row takes over the source's and is free-standing
  // from then on; otherwise it stays bound as it is.
  void CopyFrom(Row const& other);

 private:
  friend class ExprEval;

  // Fetching changes a cell only from unknown to known, so it is allowed through a const row.
  Value& Cell(int column) const {
    Value& cell = values_[column];
    if (!cell.IsValid() && table_ != nullptr) Fetch(cell, column);
    return cell;
  }
  void Fetch(Value& cell, int column) const;

  Value* values_ = nullptr;        // owned, one for each column
  TableDef const* def_ = nullptr;  // not owned
  Table const* table_ = nullptr;   // not owned; null for a free-standing row
};

}  // namespace fdo

#endif  // FDO_ROW_H_
