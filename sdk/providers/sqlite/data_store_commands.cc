// The commands that make and remove files.
#include "sdk/providers/base/property_dictionary.h"
#include "sdk/providers/sqlite/change_scope.h"
#include "sdk/providers/sqlite/command_base.h"
#include "sdk/providers/sqlite/commands.h"
#include "sdk/providers/sqlite/connection_settings.h"
#include "sdk/providers/sqlite/file_path.h"
#include "sdk/providers/sqlite/metadata_tables.h"

namespace fdo_sqlite {
namespace {

// Neither needs the connection to be open.
template <class Interface>
class DataStoreCommand : public CommandBase<Interface> {
 public:
  using CommandBase<Interface>::CommandBase;

  FdoIDataStorePropertyDictionary* GetDataStoreProperties() override {
    FdoPtr<DataStoreCommand> command(FDO_SAFE_ADDREF(this));
    return new fdo_provider::PropertyDictionary<FdoIDataStorePropertyDictionary>(
        settings_, [command](fdo_provider::Settings const& settings) { command.p->settings_ = settings; });
  }

 protected:
  fdo_provider::Settings settings_{DataStoreSettings()};
};

class CreateDataStore : public DataStoreCommand<FdoICreateDataStore> {
 public:
  using DataStoreCommand<FdoICreateDataStore>::DataStoreCommand;

  void Execute() override {
    settings_.RequireComplete();
    std::wstring const& file = settings_.Value(kFile);
    Database database;
    database.Create(file, connection_->GetConnectionTimeout());
    try {
      ChangeScope change(database);
      CreateMetadataTables(database, UsesFdoMetadata(settings_));
      change.Finish();
    } catch (FdoException*) {
      database.Close();
      RemoveUnfinished(file);
      throw;
    }
  }
};

class DestroyDataStore : public DataStoreCommand<FdoIDestroyDataStore> {
 public:
  using DataStoreCommand<FdoIDestroyDataStore>::DataStoreCommand;

  // Only a file that is an SQLite database, and that nobody else is writing to, is removed.
  void Execute() override {
    settings_.RequireComplete();
    std::wstring const& file = settings_.Value(kFile);
    {
      Database database;
      database.Open(file, connection_->GetConnectionTimeout());
      database.BeginWriting();
      database.Rollback();
    }
    std::error_code failure;
    if (std::filesystem::remove(PathOf(file), failure)) return;
    std::wstring const cause = fdo_sdk::WideFromUtf8(failure.message());
    throw FdoCommandException::Create(FailureMessage(file, L"remove", cause).c_str());
  }
};

}  // namespace

FdoICommand* MakeCreateDataStore(Connection* connection) { return new CreateDataStore(connection); }
FdoICommand* MakeDestroyDataStore(Connection* connection) { return new DestroyDataStore(connection); }

}  // namespace fdo_sqlite
