// The commands that make, remove and list files.
#include <filesystem>
#include <system_error>
#include <utility>

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

// Of the one store that a connection has, or of none.
class DataStoreReader : public FdoIDataStoreReader {
 public:
  DataStoreReader(fdo_provider::Settings settings, bool isThere)
      : settings_(std::move(settings)), place_(isThere ? Place::kBefore : Place::kBehind) {}

  FdoString* GetName() override { return Current().Value(kFile).c_str(); }
  FdoString* GetDescription() override {
    Current();
    return L"";
  }
  // Every file of SQLite can be read.
  bool GetIsFdoEnabled() override {
    Current();
    return true;
  }
  FdoIDataStorePropertyDictionary* GetDataStoreProperties() override {
    return new fdo_provider::PropertyDictionary<FdoIDataStorePropertyDictionary>(
        Current(), [](fdo_provider::Settings const&) {
          throw FdoCommandException::Create(
              L"The properties of a data store that is listed are for reading.");
        });
  }
  bool ReadNext() override {
    place_ = place_ == Place::kBefore ? Place::kOn : Place::kBehind;
    return place_ == Place::kOn;
  }
  void Close() override { place_ = Place::kBehind; }

 protected:
  void Dispose() override { delete this; }

 private:
  enum class Place { kBefore, kOn, kBehind };

  fdo_provider::Settings const& Current() const {
    if (place_ != Place::kOn) throw FdoCommandException::Create(L"The reader stands on no data store.");
    return settings_;
  }

  fdo_provider::Settings settings_;
  Place place_;
};

// The connection need not be open: the store is the file that its connection string names, if there is one.
class ListDataStores : public CommandBase<FdoIListDataStores> {
 public:
  using CommandBase<FdoIListDataStores>::CommandBase;

  bool GetIncludeNonFdoEnabledDatastores() override { return includesOthers_; }
  void SetIncludeNonFdoEnabledDatastores(bool include) override { includesOthers_ = include; }
  FdoIDataStoreReader* Execute() override {
    fdo_provider::Settings const connected =
        fdo_provider::ParseConnectionString(ConnectionSettings(), connection_->GetConnectionString());
    fdo_provider::Settings store{DataStoreSettings()};
    for (std::size_t const place : {kFile, kUseFdoMetadata}) store.Set(place, connected.Value(place));
    std::wstring const& file = store.Value(kFile);
    std::error_code ignored;  // a file that cannot be looked at is none
    return new DataStoreReader(store, !file.empty() && std::filesystem::exists(PathOf(file), ignored));
  }

 private:
  bool includesOthers_ = false;
};

}  // namespace

FdoICommand* MakeCreateDataStore(Connection* connection) { return new CreateDataStore(connection); }
FdoICommand* MakeDestroyDataStore(Connection* connection) { return new DestroyDataStore(connection); }
FdoICommand* MakeListDataStores(Connection* connection) { return new ListDataStores(connection); }

}  // namespace fdo_sqlite
