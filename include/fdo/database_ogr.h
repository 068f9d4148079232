#ifndef FDO_DATABASE_OGR_H_
#define FDO_DATABASE_OGR_H_

#include <fdo/database.h>
#include <fdo/export.h>

namespace fdo {

// A vector data source that GDAL opens: each layer is a table, each feature a row. GDAL is loaded at
// the first call that needs it, and its drivers are registered then, once in the process.
//
// Every table has the feature id in column 0 and the geometry in column 1, named as the layer names
// them or "OGR_FID" and "OGR_GEOMETRY"; the layer's fields follow.
//
// What tables of this back end do differently from what Table says:
// - Next and Query(id) fill the whole row (or the desired fields of it); nothing is fetched later.
//   Text and geometry cells are borrowed until the next feature is read.
// - Query(filter, ...) keeps the box of the last box query and does not order. Query() drops both.
//   A filter is handed to GDAL as its FDO text; one that GDAL refuses gives no rows and one
//   diagnostic line.
// - Update(row, filter) ignores the filter: column 0 of the row says which feature is rewritten.
//   Gives: 1, or -1 on failure.
// - Update(row, id) is not supported: it does nothing and returns false.
// - Delete(filter) must not be called: it ends the process.
// - Insert and Update write a null number as 0; a null text, date or blob as null.
// - GetExtent without a filter asks the layer.
// - The row stands free of the table, so a cell outside the desired fields stays undefined. A row that
//   is bound to such a table by hand must not be read where it is undefined: FetchCurrentValue makes
//   the cell null and throws the text "not implemented yet" (char const*).
// - BeginWrite and CommitWrite bracket a transaction where the format has one.
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
  // Errors: false when GDAL is not installed or does not open the source; nothing is printed.
  bool Connect(wchar_t const* source, wchar_t const* provider, wchar_t const* configuration, bool readOnly,
               bool loadSchema) override;
  void Disconnect() override;
  // Not supported: prints a diagnostic line and returns false.
  bool SetSchema(DatabaseDef const& def) override;
  // A table with a layer of its own, so that both can be read side by side.
  Table* DuplicateTable(Table* table) override;
  void DestroyTable(Table* table) override;

 private:
  void ReadSchema();

  void* dataSource_ = nullptr;  // owned; null when disconnected
};

}  // namespace fdo

#endif  // FDO_DATABASE_OGR_H_
