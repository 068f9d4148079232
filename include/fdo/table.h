#ifndef FDO_TABLE_H_
#define FDO_TABLE_H_

#include <fdo/export.h>
#include <fdo/row.h>
#include <fdo/schema.h>
#include <fdo/value.h>

#include <set>

class FdoFilter;

namespace fdo {

namespace internal {
class CellVisitor;
}

// A Table is a cursor over one table of a Database: it runs one query at a time and shows the current
// record as a bound Row.
//
//   table.Query(filter, nullptr, true);
//   while (Row const* row = table.Next()) Use((*row)[L"name"]);
//
// A null filter means no condition; the caller keeps its reference. Cells that hold text or bytes may
// be borrowed from the back end and are good until the next call of Next.
//
// What a write does to a query that runs is the back end's matter, and so is whether CommitWrite is needed
// for others to see it; without one what was written is kept all the same when the Database disconnects.
//
// Ownership: a Database owns its tables and their definitions.
// Errors: each back end reports through the results documented here and a diagnostic line, or as its
// own header says.
// Threads: one at a time, that of the Database.
class QUILLON_EXPORT Table {
 public:
  virtual ~Table() = default;

  TableDef const* Def() const { return def_; }

  // A row to be written may be one that shows a table's current record, of this table or another.
  // Requires: it has the columns of Def(), in their order.
  //
  // Writes the row as a new record. With storeMakesId the store chooses the identity, whatever the row
  // holds. newId, unless null, receives the identity, 0 when it is not known.
  // Errors: false.
  virtual bool Insert(Row const& row, __int64* newId, bool storeMakesId) = 0;
  // Writes the row's set values into every record that matches.
  // Gives: the number of records; -1 on failure.
  virtual __int64 Update(Row const& row, FdoFilter* filter) = 0;
  // Errors: false, also when no record or more than one has that identity.
  virtual bool Update(Row const& row, __int64 id) = 0;
  // Gives: the number of records deleted.
  virtual __int64 Delete(FdoFilter* filter) = 0;
  virtual bool Delete(__int64 id) = 0;

  // Each query ends the one that ran before.
  //
  // Records that match, ordered by one column where the back end can order; a null orderBy means as
  // they come.
  virtual void Query(FdoFilter* filter, wchar_t const* orderBy, bool ascending) = 0;
  // The one record of that identity, or null; Next then gives null.
  // Borrowed: as from Next.
  virtual Row const* Query(__int64 id) = 0;
  // Records whose geometry's envelope meets the box and that match.
  // Units: minX, minY, maxX, maxY; corners in another order mean the same box, so that the inverted box of
  // nothing is everywhere (TableContract.ABoxIsTwoOppositeCornersInAnyOrder).
  // Requires: box is not null.
  virtual void Query(double const* const box, FdoFilter* filter) = 0;
  virtual void Query() = 0;
  // Records with first <= identity < last.
  virtual void QueryRange(__int64 first, __int64 last) = 0;
  // Ends the running query; the table may be queried anew at any time.
  virtual void EndQuery() = 0;

  // Bracket a run of writes, so that a back end can keep what it prepared for them. The base does
  // nothing.
  virtual void BeginWrite() {}
  virtual void CommitWrite() {}

  // Whether no record matches.
  virtual bool IsEmpty(FdoFilter* filter);
  // The number of records that match; -1 when the store cannot tell and allowScan is false.
  virtual __int64 GetRowCount(FdoFilter* filter, bool allowScan) = 0;

  // Statistics over the records that match, computed in one forward pass over one column, in place of
  // whatever query was running. Only GetExtent ends its query; the others read it to its end. An
  // unknown column leaves the outputs as its comment says and runs no query.

  // The box of all geometries.
  // Units: minX, minY, maxX, maxY; (DBL_MAX, DBL_MAX, -DBL_MAX, -DBL_MAX) when there is none.
  // Errors: throws FdoException "Invalid FGF stream!" for a geometry that makes no sense; the column
  // restriction is lifted then, too.
  virtual void GetExtent(double* const box, FdoFilter* filter);
  // The smallest and the largest value in the order of Value; null where there are no records.
  // Deliberate: the first record counts even when it is null, so that min then stays null
  // (TableStatistics.ANullFirstRowKeepsMinNull).
  virtual void GetMinMax(Value& min, Value& max, wchar_t const* column, FdoFilter* filter);
  // Adds the distinct values to what the set holds. Values that compare equal are one, whatever their
  // kinds.
  virtual void GetDistinctValues(std::set<Value>& values, wchar_t const* column, bool includeNull,
                                 FdoFilter* filter);
  // The sample variance (not its root) and the mean of the values that are not null, each as a double;
  // 0.0 and 0.0 without any, variance 0.0 with one.
  virtual void GetStats(double& variance, double& mean, wchar_t const* column, FdoFilter* filter);
  // The median of the values that are not null: an integer when all of them and the median are whole
  // integers, else a double; untouched without any.
  virtual void GetMedian(Value& median, wchar_t const* column, FdoFilter* filter);

  // The next record of the running query, or null at its end.
  // Borrowed: until the next call of Next or EndQuery; it is the same Row each time.
  virtual Row const* Next() = 0;
  // The row that shows the current record; without one its cells are undefined or what they were.
  virtual Row const& At() = 0;

  // Restricts what later queries fetch to the columns whose flag is set; no flag set, a null pointer
  // or a count of 0 or less lifts the restriction.
  virtual void SetDesiredFields(bool const* flags, int count);
  // The same by position; a null pointer or a count of 0 lifts the restriction. List the positions in
  // ascending order.
  // Requires: each position is that of a column
  virtual void SetDesiredFields(int const* columns, int count) = 0;

 protected:
  Table() = default;
  // Borrowed: def must outlive the table.
  explicit Table(TableDef const* def) : def_(def) {}
  Table(Table const&) = default;
  Table& operator=(Table const&) = default;

  // Stores the current record's value of that column into the cell.
  virtual void FetchCurrentValue(Value& cell, int column) const = 0;

  // Starts the query of a statistic of that column, to which fetching is restricted: Query(filter, nullptr,
  // true). A back end may show the visitor the cells of the first records, or of all, in a faster way, and
  // leave the rest to Next.
  virtual void QueryColumn(int column, FdoFilter* filter, internal::CellVisitor& visitor);

  TableDef const* def_ = nullptr;  // not owned

 private:
  friend class Row;

  // Queries one column and calls visit with the cell of each record; does nothing when there is no such
  // column.
  template <class Visit>
  void ScanColumn(wchar_t const* column, FdoFilter* filter, Visit visit);
};

}  // namespace fdo

#endif  // FDO_TABLE_H_
