// The commands on schemas and data stores.
#include "sdk/providers/base/property_dictionary.h"
#include "testing/memory_provider/command_base.h"
#include "testing/memory_provider/commands.h"
#include "testing/memory_provider/schema_copy.h"
#include "testing/memory_provider/settings.h"

namespace memory_provider {
namespace {

class DescribeSchema : public CommandBase<FdoIDescribeSchema> {
 public:
  using CommandBase<FdoIDescribeSchema>::CommandBase;

  FdoString* GetSchemaName() override { return schemaName_; }
  void SetSchemaName(FdoString* value) override { schemaName_ = value; }
  FdoStringCollection* GetClassNames() override { return FDO_SAFE_ADDREF(classNames_.p); }
  void SetClassNames(FdoStringCollection* value) override { classNames_ = FDO_SAFE_ADDREF(value); }

  FdoFeatureSchemaCollection* Execute() override {
    Store& store = OpenedStore();
    FdoPtr<FdoFeatureSchemaCollection> described = FdoFeatureSchemaCollection::Create(nullptr);
    for (FdoInt32 i = 0; i < store.schemas->GetCount(); ++i) {
      FdoPtr<FdoFeatureSchema> schema = store.schemas->GetItem(i);
      if (schemaName_.GetLength() > 0 && !(schemaName_ == schema->GetName())) continue;
      FdoPtr<FdoFeatureSchema> copy = CopySchema(*schema);
      copy->AcceptChanges();
      described->Add(copy);
    }
    if (schemaName_.GetLength() > 0 && described->GetCount() == 0) {
      std::wstring const message =
          L"There is no schema \"" + std::wstring(schemaName_) + L"\" in the data store.";
      throw FdoSchemaException::Create(message.c_str());
    }
    return described.Detach();
  }

 private:
  FdoStringP schemaName_;
  FdoPtr<FdoStringCollection> classNames_ = FdoStringCollection::Create();
};

class ApplySchema : public CommandBase<FdoIApplySchema> {
 public:
  using CommandBase<FdoIApplySchema>::CommandBase;

  FdoFeatureSchema* GetFeatureSchema() override { return FDO_SAFE_ADDREF(schema_.p); }
  void SetFeatureSchema(FdoFeatureSchema* value) override { schema_ = FDO_SAFE_ADDREF(value); }
  FdoPhysicalSchemaMapping* GetPhysicalMapping() override { return nullptr; }
  void SetPhysicalMapping(FdoPhysicalSchemaMapping* value) override {
    if (value != nullptr) throw FdoCommandException::Create(L"The memory provider has no schema mappings.");
  }
  FdoBoolean GetIgnoreStates() override { return ignoreStates_; }
  void SetIgnoreStates(FdoBoolean ignoreStates) override { ignoreStates_ = ignoreStates; }

  void Execute() override {
    Store& store = OpenedStore();
    if (schema_ == nullptr) throw FdoCommandException::Create(L"There is no schema to apply.");
    FdoPtr<FdoFeatureSchema> present = store.schemas->FindItem(schema_->GetName());
    if (present != nullptr && !ignoreStates_) {
      std::wstring const message =
          L"There is a schema \"" + std::wstring(schema_->GetName()) + L"\" in the data store already.";
      throw FdoSchemaException::Create(message.c_str());
    }
    store.Merge(*schema_);
    schema_->AcceptChanges();
  }

 private:
  FdoPtr<FdoFeatureSchema> schema_;
  bool ignoreStates_ = false;
};

class CreateDataStore : public CommandBase<FdoICreateDataStore> {
 public:
  using CommandBase<FdoICreateDataStore>::CommandBase;

  FdoIDataStorePropertyDictionary* GetDataStoreProperties() override {
    FdoPtr<CreateDataStore> command(FDO_SAFE_ADDREF(this));
    return new fdo_provider::PropertyDictionary<FdoIDataStorePropertyDictionary>(
        settings_, [command](fdo_provider::Settings const& settings) { command.p->settings_ = settings; });
  }
  void Execute() override { CreateStore(settings_.Value(kFile)); }

 private:
  fdo_provider::Settings settings_{KnownSettings()};
};

}  // namespace

FdoICommand* MakeDescribeSchema(Connection* connection) { return new DescribeSchema(connection); }

FdoICommand* MakeApplySchema(Connection* connection) { return new ApplySchema(connection); }

FdoICommand* MakeCreateDataStore(Connection* connection) { return new CreateDataStore(connection); }

}  // namespace memory_provider
