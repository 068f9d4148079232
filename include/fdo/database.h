#ifndef FDO_DATABASE_H_
#define FDO_DATABASE_H_

#include <fdo/export.h>
#include <fdo/schema.h>
#include <fdo/table.h>

#include <string>

namespace fdo {

// A Database is one open connection with its schema and one Table for each table of that schema.
//
// Ownership: a Database owns its definitions and its tables; they live until the schema is cleared,
// which Disconnect and the back end's destructor do.
// Threads: one at a time, with all of its tables.
class QUILLON_EXPORT Database {
 public:
  virtual ~Database() = default;

  // Opens a source. What the texts and flags mean is the back end's matter, except that a connection
  // that is already open is closed first.
  // Errors: false; the connection is closed.
  virtual bool Connect(wchar_t const* source, wchar_t const* provider, wchar_t const* configuration,
                       bool readOnly, bool loadSchema) = 0;
  // Closes the connection, if there is one, and destroys tables and schema; ConnectionString and
  // ProviderName stay what they were.
  virtual void Disconnect() = 0;
  // Makes the store's schema that of the definition.
  // Errors: false.
  virtual bool SetSchema(DatabaseDef const& def) = 0;
  // A second, independent cursor over the same table.
  // Gives: a table to be given back to DestroyTable; null when the back end has none to give.
  // Requires: table belongs to this Database.
  virtual Table* DuplicateTable(Table* table) = 0;
  // Requires: table came from DuplicateTable of this Database, or is null
  virtual void DestroyTable(Table* table) = 0;

  // Borrowed, all three: until the next Connect or SetConnId.
  // The key under which a pool keeps this connection; not what it was opened with.
  wchar_t const* ConnId() const { return connId_.c_str(); }
  void SetConnId(wchar_t const* connId) { connId_ = connId == nullptr ? L"" : connId; }
  // What serves the connection, and what it was opened with, in the back end's words; "" before the first.
  wchar_t const* ProviderName() const { return providerName_.c_str(); }
  wchar_t const* ConnectionString() const { return connectionString_.c_str(); }

  // Null before the schema is loaded.
  DatabaseDef const* Def() const { return def_; }
  // The number of tables, 0 without a schema.
  int Count() const { return def_ == nullptr ? 0 : def_->Count(); }
  // Requires: 0 <= i && i < Count()
  Table& operator[](int i) { return *tables_[i]; }
  Table const& operator[](int i) const { return *tables_[i]; }
  // The table of that name, which may be qualified as schema:table; null when there is none.
  Table* operator[](wchar_t const* name);
  Table const* operator[](wchar_t const* name) const;

 protected:
  Database() = default;
  // Deliberate: copies share the schema and the tables, which only one of them may clear
  // (Database.CopiesShareSchemaAndTables).
  Database(Database const&) = default;
  Database& operator=(Database const&) = default;

  // Destroys the tables and the schema, if there is one.
  void ClearSchema();

  Table** tables_ = nullptr;    // owned, as are the tables; null entries are allowed
  DatabaseDef* def_ = nullptr;  // owned
  std::wstring connId_;
  std::wstring providerName_;
  std::wstring connectionString_;
};

}  // namespace fdo

#endif  // FDO_DATABASE_H_
