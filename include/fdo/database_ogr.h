#ifndef FDO_DATABASE_OGR_H_
#define FDO_DATABASE_OGR_H_

#include <fdo/database.h>
#include <fdo/export.h>

#include <memory>
#include <string>

namespace fdo {

namespace internal {
class GdalSource;
}

// Which way a table of DatabaseOgr goes to find the rows that meet a filter.
struct FilterPlan {
  enum Way {
    kCondition,  // GDAL runs it, as the condition
    kRowByRow,   // the program is computed for each row that GDAL gives, by the condition if there is one
    kRefused,    // there is no way
  };

  Way way = kRefused;
  std::wstring condition;  // in GDAL's dialect or, for a format that is a database, in its SQL
  std::wstring reason;     // why GDAL cannot run the whole filter or, if it is refused, why nothing can
  std::wstring program;    // of kRowByRow: see ExprEval::Listing
  // Of kRowByRow: GDAL gives only rows whose geometry meets the box, unless the query has a box of its own.
  bool narrows = false;
  double box[4] = {0, 0, 0, 0};  // Units: minX, minY, maxX, maxY
};

// A vector data source that GDAL opens: each layer is a table, each feature a row. GDAL is loaded at
// the first call that needs it, and its drivers are registered then, once in the process; the
// environment variable QUILLON_GDAL_LIBRARY names another library than the one that is found.
//
// Every table has the feature id in column 0 and the geometry in column 1, named as the layer names
// them or "OGR_FID" and "OGR_GEOMETRY"; the layer's fields follow. Geometry that a stream cannot hold
// is null. The text of a date has a time of day for every kind of date field, and no time zone. List
// fields have the type kUnset; they are always null and never written.
//
// What tables of this back end do differently from what Table says:
// - Next and Query(id) fill the whole row (or the desired fields of it); nothing is fetched later.
//   Text, bytes and geometry are borrowed until the next feature is read.
// - Query(filter, ...) keeps the box of the last box query and does not order; a row count or an extent
//   with a filter keeps it, too. Query() and QueryRange drop it. Which rows meet a box is GDAL's
//   matter: those whose geometry does, not only its envelope.
// - GetRowCount, IsEmpty and GetExtent end the running query.
// - In many formats a write makes the running query begin anew, so that Next shows rows again that it has
//   shown, new ones among them: an insert for each row that is shown may never come to an end. End the query
//   first, or read through a duplicate.
// - A filter means what it means to an ExprEval with ExprOptions::AsInSql, in every format. GDAL runs what
//   has that meaning to it: comparisons of numbers and the test for null in most formats, of text and LIKE
//   too where the format is a SQLite file. Where that is not the whole filter, the table computes it for each
//   row that GDAL finds by the parts joined by AND that it can run, and near the geometry of a spatial
//   condition that must hold; such rows are counted by a scan only. A driver of which nobody knows what a
//   condition means to it is given none. What has no value or meaning is refused: names that are no columns,
//   numbers beside text that is none, dates beside numbers, geometry or bytes compared, calculations with
//   text, parameters, sub-selects, unknown functions and functions of what they are not made for. A refused
//   filter gives no rows, the count -1, and one diagnostic line; a filter that fails for a row ends the
//   query, with one line. ExplainFilter tells which of these comes.
// - Update(row, filter) ignores the filter: column 0 of the row says which feature is rewritten.
//   Gives: 1, or -1 on failure.
// - Update(row, id) is not supported: it does nothing and returns false.
// - Delete(filter) must not be called: it ends the process.
// - A shapefile has no identities of its own: after Delete(id) the rows behind that one move up by one as
//   soon as the next query starts, so an id that was kept from before names another row then.
// - Closing a FlatGeobuf file that was changed sorts and counts its rows anew, so identities are others then.
//   Insert into CSV and GeoJSON lines gives 0 for the new identity, which the row has not.
// - Insert and Update write every column: a null or undefined number as 0, unless KeepNullNumbers asks
//   for null, and other such cells as null. A number beyond a 32-bit field becomes the nearest that it holds.
// - A row is refused that the format would not give back: with a geometry that is broken, has curves,
//   ordinates or empty parts that the format or the layer does not hold, or is absent where the format
//   then drops the row; with a number that the format would cut. The first row of a new shapefile or
//   FlatGeobuf file decides which ordinates all have.
// - GetExtent without a filter asks the layer; zeros when the layer cannot tell.
// - The row stands free of the table, so a cell outside the desired fields stays undefined. A row that
//   is bound to such a table by hand must not be read where it is undefined: FetchCurrentValue makes
//   the cell null and throws the text "not implemented yet" (char const*).
// - BeginWrite and CommitWrite bracket a transaction where the format has one. A commit that fails is a
//   diagnostic line, and so is a source that could not be written when it was closed.
//
// Threads: one at a time; different objects may be used on different threads.
class QUILLON_EXPORT DatabaseOgr : public Database {
 public:
  DatabaseOgr();
  DatabaseOgr(DatabaseOgr const&) = delete;
  DatabaseOgr& operator=(DatabaseOgr const&) = delete;
  ~DatabaseOgr() override;

  // Opens the source, a path or another name that GDAL knows, for reading or for update; provider and
  // configuration are not used. ProviderName() is then GDAL's name of the driver.
  // Errors: false when GDAL is not installed or does not open the source; nothing is printed, and
  // LastError() says why.
  bool Connect(wchar_t const* source, wchar_t const* provider, wchar_t const* configuration, bool readOnly,
               bool loadSchema) override;
  void Disconnect() override;
  // Not supported: prints a diagnostic line and returns false.
  bool SetSchema(DatabaseDef const& def) override;
  // A table with a source and a layer of its own, so that both can be read side by side. It is for
  // reading only, and sees what this connection has written, but not what an open BeginWrite holds.
  // Requires: it is destroyed before Disconnect.
  // Errors: null for a source that was just created, and for one that cannot be opened twice.
  Table* DuplicateTable(Table* table) override;
  void DestroyTable(Table* table) override;

  // Creates a data source with the tables of def and leaves it open for inserting; what was open before
  // is closed. Formats that are written in one go cannot be read, or written to again, before it is
  // closed: queries give no rows, those of FlatGeobuf with a diagnostic line. driver is GDAL's short name;
  // null or "" is the one for the path's extension.
  //
  // The identity column, when it is an integer, and the main geometry become the layer's own; the other
  // columns become fields in their order, of the type that comes nearest. So Def() afterwards has the
  // identity, the geometry and then those columns, with the names and types that the format gave them.
  // A coordinate system that GDAL cannot read is left out.
  // Errors: false when the path exists, for a driver that cannot create vector data, more tables than
  // the format takes, a second geometry column, or a column that no field can hold. Nothing is left at
  // the path, nothing is printed, and LastError() says why.
  bool Create(wchar_t const* path, wchar_t const* driver, DatabaseDef const& def);
  // GDAL's short name of the driver that creates vector data under the path's extension; "" if none.
  static std::wstring DriverForPath(wchar_t const* path);

  // How a query with that filter would be run; nothing is read, and a query that runs goes on.
  // Errors: kRefused for a null filter, and for a table of another database. What the filter's own nodes
  // throw is a diagnostic line and kRefused.
  FilterPlan ExplainFilter(Table const& table, FdoFilter* filter) const;

  // Makes tables write a null number as null, from now on, instead of as 0.
  void KeepNullNumbers(bool keep);

  // Why the last operation of this object or its tables that failed did so, mostly in GDAL's words; ""
  // before any failure. Connect and Create begin anew.
  // Borrowed: until the next operation.
  wchar_t const* LastError() const { return lastError_.c_str(); }

 private:
  void Opened(wchar_t const* name);
  void ReadSchema();

  std::unique_ptr<internal::GdalSource> source_;  // null when disconnected
  bool keepNullNumbers_ = false;
  std::wstring lastError_;
};

}  // namespace fdo

#endif  // FDO_DATABASE_OGR_H_
