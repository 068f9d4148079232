// A connection to a store in an SQLite file.
#ifndef SDK_PROVIDERS_SQLITE_CONNECTION_H_
#define SDK_PROVIDERS_SQLITE_CONNECTION_H_

#include <memory>
#include <string>

#include "Fdo.h"
#include "sdk/providers/base/connection_string.h"
#include "sdk/providers/sqlite/database.h"
#include "sdk/providers/sqlite/spatial_indexes.h"
#include "sdk/providers/sqlite/store_schema.h"
#include "sdk/providers/sqlite/write_batch.h"

namespace fdo_sqlite {

class Transaction;

// Threads: one at a time, with its commands and readers.
class Connection : public FdoIConnection {
 public:
  Connection();

  static wchar_t const* ProviderTitle() { return L"The SQLite provider"; }

  FdoIConnectionCapabilities* GetConnectionCapabilities() override;
  FdoISchemaCapabilities* GetSchemaCapabilities() override;
  FdoICommandCapabilities* GetCommandCapabilities() override;
  FdoIFilterCapabilities* GetFilterCapabilities() override;
  FdoIExpressionCapabilities* GetExpressionCapabilities() override;
  FdoIRasterCapabilities* GetRasterCapabilities() override;
  FdoITopologyCapabilities* GetTopologyCapabilities() override;
  FdoIGeometryCapabilities* GetGeometryCapabilities() override;
  FdoString* GetConnectionString() override;
  void SetConnectionString(FdoString* value) override;
  FdoIConnectionInfo* GetConnectionInfo() override;
  FdoConnectionState GetConnectionState() override;
  // Units: milliseconds, for which a locked file is waited for.
  FdoInt32 GetConnectionTimeout() override { return busyMilliseconds_; }
  void SetConnectionTimeout(FdoInt32 value) override;
  FdoConnectionState Open() override;
  // Errors: FdoCommandException* when inserts that are not yet on disk cannot be put there; the connection is
  // closed and they are lost.
  void Close() override;
  FdoITransaction* BeginTransaction() override;
  FdoICommand* CreateCommand(FdoInt32 commandType) override;
  FdoPhysicalSchemaMapping* CreateSchemaMapping() override;
  // There is nothing to configure: the document is ignored.
  void SetConfiguration(FdoIoStream* configStream) override;
  void Flush() override;

  // For the commands. Borrowed: until Close. Errors: FdoCommandException* while the connection is closed.
  Database& OpenedDatabase();
  StoreSchema& Schema();
  // Whoever writes rows notes it there: Close then brings the indexes up to date.
  SpatialIndexes& Indexes();

  // To be called before writing, by an insert for each row: the rows that one owner writes share a
  // transaction, until LeaveWrites. Any address is an owner; it is never looked into.
  //
  // Errors: FdoCommandException* when the transaction that a program began was undone by a failure.
  void JoinWrites(void const* owner);
  // What cannot be put on disk now is left to the next SettleWrites. Nothing happens while closed.
  void LeaveWrites(void const* owner) noexcept;

  // To be called before writing by every other command: puts on disk what inserts have written, so that the
  // command's own work is on disk when it returns.
  // Errors: as JoinWrites; FdoCommandException* when it cannot be put there.
  void SettleWrites();

  // Errors: FdoCommandException* when the transaction is not the one that is open here.
  void CheckTransaction(FdoITransaction* transaction);

  // What new tables store geometry as, by the setting GeometryFormat.
  GeometryFormat NewGeometryFormat() const;

 protected:
  ~Connection() override;
  void Dispose() override;

 private:
  friend class Transaction;

  void RequireClosed() const;
  void RequireSoundTransaction() const;
  void CloseStore() noexcept;

  fdo_provider::Settings settings_;
  std::wstring connectionString_;
  FdoInt32 busyMilliseconds_;
  Database database_;
  std::unique_ptr<StoreSchema> schema_;      // null while closed
  std::unique_ptr<SpatialIndexes> indexes_;  // null while closed
  std::unique_ptr<WriteBatch> batch_;        // null while closed
  Transaction* transaction_ = nullptr;       // the open one; it tells when it ends
};

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_CONNECTION_H_
