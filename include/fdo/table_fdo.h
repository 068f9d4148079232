#ifndef FDO_TABLE_FDO_H_
#define FDO_TABLE_FDO_H_

#include <FdoCommon.h>
#include <fdo/export.h>
#include <fdo/row.h>
#include <fdo/table.h>

#include <memory>
#include <vector>

class FdoComparisonCondition;
class FdoIConnection;
class FdoIDelete;
class FdoIFeatureReader;
class FdoIInsert;
class FdoISelect;
class FdoIUpdate;

namespace fdo_sdk {
class DirectCells;
class DirectInsert;
}  // namespace fdo_sdk

namespace fdo {

namespace internal {
class DateTexts;
class InsertValues;
class VisitedColumn;
}  // namespace internal

// One feature class behind an FDO connection. Commands are made when they are first needed and kept.
//
// Cells are fetched from the reader when they are first asked for, so that a caller who reads two
// columns of a wide table converts two values; with desired fields Next fetches those at once. Text and
// geometry are borrowed from the reader until the next Next, Query or EndQuery; numbers, date-times
// (as text) and large objects are the cell's own. A decimal is read as a double. A cell outside the
// desired fields is undefined where values are read by position.
//
// What this back end does differently from what Table says:
// - Query(filter, ...) orders where the provider lists command 53 (extended select), and silently not
//   elsewhere. Deliberate: the order stays for all later queries of the table, until another takes its
//   place (TableFdoQuery.TheOrderStaysForLaterQueries); so does the name of a column that is not there, with
//   which each of them may fail.
// - IsEmpty lifts the restriction of SetDesiredFields, as the statistics do.
// - GetRowCount leaves the running query alone, and so does GetExtent where the provider has aggregates.
// - Insert starts from nulls, and a null or undefined cell writes nothing: such columns are null.
//   Deliberate: Update fills the same scratch values and leaves its own in them. The next Update sends
//   what is there for a cell that is null, and an Insert that follows stores it in columns that its row
//   leaves unset; only an Insert sets the values back to null
//   (TableFdoUpdate.NullsSendWhatTheScratchSetHolds, TableFdoInsert.AnUpdateLeavesItsValuesToTheNextInsert).
// - A cell without bytes in a geometry or large-object column writes nothing, a text that is no date-time
//   writes null.
// - A cell is written as Value converts it to the column's type, a text as the number that it begins with.
//   Deliberate: of an integer that is too large for a Byte, Int16 or Int32 column the low bits are stored,
//   without a word (InsertValuesTest.NumbersThatDoNotFitKeepTheirLowBits).
// - Update(row, id) and Delete(id) work with one comparison of the identity. Deliberate: when more than
//   one record has it all are changed; Update then gives false, Delete true (TableFdoUpdate.ByIdIsExactlyOne,
//   TableFdoDelete.ByIdIsAtLeastOne).
// - WARNING: an identity column that is not Int16, Int32 or Int64, or no identity column at all, prints
//   "unsupported feature ID type used", and Query(id), Update(row, id) and Delete(id) then run without a
//   filter: they read, change or delete EVERY record of the class. Look at Def() first
//   (TableFdoUpdate.ByAnUnsupportedIdReachesEveryRecord).
// - There are no transactions: each write takes effect on its own. BeginWrite lets Insert and Update keep
//   their commands until CommitWrite; it is the provider's matter whether rows written through one held
//   command settle together.
//
// Errors: a platform exception while a query by filter or identity, Next, a fetch, a count, or the
// execution of a write runs is a diagnostic line and the result that stands at the operation; the table
// can be used on. Query(), QueryRange and the box query, and whatever fails before a write is executed,
// throw FdoException* to the caller.
class QUILLON_EXPORT TableFdo : public Table {
 public:
  // accessByName: read by property name, for a provider whose readers do not keep the order of the
  // selected properties; otherwise by position.
  // Owns: a reference to the connection. Borrowed: def must outlive the table.
  TableFdo(FdoIConnection* connection, TableDef const* def, bool accessByName);
  TableFdo(TableFdo const&) = delete;
  TableFdo& operator=(TableFdo const&) = delete;
  ~TableFdo() override;

  // newId becomes 0 when the store reports none or the identity is no integer; it stays as it is when
  // the insert fails.
  bool Insert(Row const& row, __int64* newId, bool storeMakesId) override;
  __int64 Update(Row const& row, FdoFilter* filter) override;
  bool Update(Row const& row, __int64 id) override;
  // Errors: 0.
  __int64 Delete(FdoFilter* filter) override;
  bool Delete(__int64 id) override;

  // Errors: a diagnostic line, and the query gives no rows.
  void Query(FdoFilter* filter, wchar_t const* orderBy, bool ascending) override;
  Row const* Query(__int64 id) override;
  // Errors: throw FdoException*, also without a geometry or identity column.
  void Query(double const* const box, FdoFilter* filter) override;
  void Query() override;
  void QueryRange(__int64 first, __int64 last) override;
  void EndQuery() override;

  void BeginWrite() override;
  void CommitWrite() override;

  // Deliberate: a query that fails counts as empty (TableFdoFailures.*).
  bool IsEmpty(FdoFilter* filter) override;
  // Asks the provider for the number, first of rows, then of identities; where it knows neither, and
  // allowScan is given, the rows are read.
  // Errors: -1.
  __int64 GetRowCount(FdoFilter* filter, bool allowScan) override;
  // Asks the provider for the extent; where it has none, the geometries are read.
  void GetExtent(double* const box, FdoFilter* filter) override;

  // Errors: null and a diagnostic line; the row is then as it was, and what it borrowed is gone.
  Row const* Next() override;
  Row const& At() override { return row_; }

  using Table::SetDesiredFields;
  // Where values are read by position, columns[k] is read from position k of the selected properties,
  // which are in column order: hence the ascending order that Table asks for.
  void SetDesiredFields(int const* columns, int count) override;

 protected:
  // Errors: a diagnostic line; the cell is undefined.
  void FetchCurrentValue(Value& cell, int column) const override;
  void ConvertValue(Value& cell, int column) const;
  // Through a provider that shows rows without being asked for each, all of them here.
  void QueryColumn(int column, FdoFilter* filter, internal::CellVisitor& visitor) override;

 private:
  friend class internal::VisitedColumn;

  // Readies the select command for a query of its own, with no filter.
  void InitSelect();
  void SelectProperties();
  void Execute(FdoFilter* filter);
  // Of the select that has been made ready. Errors: false, with no cell shown, where the provider has no such
  // way.
  bool VisitColumn(int column, FdoFilter* filter, internal::CellVisitor& visitor);
  // As ConvertValue, by the published operations of the reader.
  void ConvertPublished(Value& cell, int column) const;
  // Of the column in the rows of the running query; below 0 where it was not asked for.
  FdoInt32 PositionOf(int column) const {
    return shown_.positions.empty() ? column : shown_.positions[static_cast<std::size_t>(column)];
  }
  // The condition identity = id, which is kept and set to that id; null, with a diagnostic line, for an
  // identity that is no integer.
  FdoPtr<FdoFilter> GetIdFilter(__int64 id) const;
  // False where the provider does not count.
  bool CountByAggregate(wchar_t const* expression, FdoFilter* filter, __int64& count) const;
  __int64 CountByScan(FdoFilter* filter) const;
  bool ExtentByAggregate(double* box, FdoFilter* filter) const;
  void PrepareInsert();

  Row row_;                 // the current record
  Value* cells_ = nullptr;  // of row_; null without columns
  std::unique_ptr<internal::DateTexts> dateTexts_;
  // What a restriction to some columns says; both empty: all columns.
  struct DesiredFields {
    std::vector<FdoInt32> positions;  // of each column in the list that was given, or -1
    std::vector<int> columns;         // of the list, in ascending order
  };
  DesiredFields desired_;  // for later queries
  DesiredFields shown_;    // of the running query
  bool accessByName_;
  FdoPtr<FdoIConnection> connection_;
  FdoPtr<FdoIFeatureReader> reader_;             // of the running query
  fdo_sdk::DirectCells* directCells_ = nullptr;  // of reader_, by position; null where it has none
  FdoPtr<FdoIInsert> insert_;
  fdo_sdk::DirectInsert* directInsert_ = nullptr;  // of insert_; null where it has none
  FdoPtr<FdoIDelete> delete_;
  FdoPtr<FdoIUpdate> update_;
  FdoPtr<FdoISelect> select_;
  mutable FdoPtr<FdoComparisonCondition> idFilter_;
  std::unique_ptr<internal::InsertValues> insertValues_;  // those of the last insert command made
  bool extendedSelect_ = false;                           // select_ is an FdoIExtendedSelect
  bool writing_ = false;                                  // between BeginWrite and CommitWrite
};

}  // namespace fdo

#endif  // FDO_TABLE_FDO_H_
