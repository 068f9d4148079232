#ifndef FDO_DATABASE_FDO_H_
#define FDO_DATABASE_FDO_H_

#include <fdo/database.h>
#include <fdo/export.h>

class FdoIConnection;

namespace fdo {

// A store that an FDO provider opens: each feature class is a table, a TableFdo.
//
//   DatabaseFdo::Create(L"parcels.sqlite", nullptr);
//   DatabaseFdo database;
//   database.Connect(L"parcels.sqlite", nullptr, nullptr, false, true);
//   database.SetSchema(def);
//
// The provider is the first one that FDO's registry knows by a name that contains the wanted one. Without
// any, libraries of known names are looked for, and a diagnostic line says so.
//
// For the provider name "OSGeo.SQLite", and that exactly, tables read by position and a class's definition
// is learned by selecting from it; all others are read by name and believed to describe their classes.
//
// Errors: an exception of the provider becomes a diagnostic line and the result that stands at each
// operation; none leaves. Exceptions that are not FDO's pass.
// Threads: one at a time, with its tables.
class QUILLON_EXPORT DatabaseFdo : public Database {
 public:
  DatabaseFdo() = default;
  // Deliberate: a copy shares the tables and the connection and holds no reference of its own, so that only
  // one of the two may ever be disconnected or destroyed (DatabaseFdoTest.CopiesShareWithoutAReference).
  DatabaseFdo(DatabaseFdo const&) = default;
  DatabaseFdo& operator=(DatabaseFdo const&) = default;
  ~DatabaseFdo() override;

  // Opens a store. Without a provider (null or ""), source is a file whose extension tells the provider;
  // else it is a complete connection string. The configuration is a document for the provider and may be
  // null or "". mode is not used.
  // Requires: source is not null.
  // Errors: false and a diagnostic line. When only the schema cannot be read, the connection stays open,
  // without tables; Disconnect closes it, or only gives it up where the provider threw what was not about
  // describing the schema.
  bool Connect(wchar_t const* source, wchar_t const* provider, wchar_t const* configuration, bool mode,
               bool loadSchema) override;
  // Adopts an open connection, which the caller has to close, and reads its schema; a schema that cannot be
  // read leaves it without tables.
  // Deliberate: ProviderName() stays what it was, so that a new object reads by name
  // (DatabaseFdoTest.AnAdoptedConnectionIsReleasedAndNotClosed).
  // Owns: a reference to the connection.
  // Errors: false for null, and with a diagnostic line when the provider fails; the connection is then
  // adopted all the same.
  bool Connect(FdoIConnection* connection);
  // Tables of DuplicateTable have to be destroyed before.
  void Disconnect() override;

  // Creates an empty store in a file. Without a provider (null) the file's extension tells it.
  // Requires: file is not null.
  // Errors: false and a diagnostic line.
  static bool Create(wchar_t const* file, wchar_t const* provider);

  // Adds the tables of def, and the coordinate systems of their main geometry columns as spatial contexts,
  // to the store; then reads the store's schema anew. Lengths of text stay the provider's. Spatial contexts
  // that the store refuses, as it may those it has, are a diagnostic line; the tables are written all the
  // same.
  // Errors: false and a diagnostic line.
  bool SetSchema(DatabaseDef const& def) override;
  // Shares the definition of the table.
  // Requires: it is destroyed before the schema is read anew or the database is disconnected.
  Table* DuplicateTable(Table* table) override;
  void DestroyTable(Table* table) override;

  // Whether tables read by name: unless the provider is exactly "OSGeo.SQLite".
  bool MustAccessByName() const;
  // Gives: one reference; null when there is no connection.
  FdoIConnection* FdoConnection() const;

 private:
  // False when the store describes no schema.
  // Errors: throws FdoException*; there are no tables then.
  bool InitSchema();
  bool SetCoordSys(DatabaseDef const& def);

  FdoIConnection* connection_ = nullptr;  // one reference
  bool ownsConnection_ = false;           // it was opened here and is closed here
};

}  // namespace fdo

#endif  // FDO_DATABASE_FDO_H_
