// The commands on schemas, spatial contexts and data stores.
#include "testing/memory_provider/spatial_context_base.h"
#include "testing/recording_provider/commands.h"
#include "testing/recording_provider/live_command.h"
#include "testing/recording_provider/log_text.h"
#include "testing/recording_provider/reader.h"

namespace recording_provider {
namespace {

class DescribeSchema : public memory_provider::CommandBase<FdoIDescribeSchema, Connection> {
 public:
  using memory_provider::CommandBase<FdoIDescribeSchema, Connection>::CommandBase;

  FdoString* GetSchemaName() override { return Lent(schemaName_); }
  void SetSchemaName(FdoString* value) override { Copy(schemaName_, value); }
  FdoStringCollection* GetClassNames() override { return Shared(classNames_); }
  void SetClassNames(FdoStringCollection* value) override { Share(classNames_, value); }
  FdoFeatureSchemaCollection* Execute() override {
    Recorder& recorder = connection_.p->Executing();
    recorder.Note(L"describe 4" + SettingText(L"schema", schemaName_));
    return recorder.Schemas(schemaName_);
  }

 private:
  std::wstring schemaName_;
  FdoPtr<FdoStringCollection> classNames_ = FdoStringCollection::Create();
};

class ApplySchema : public memory_provider::CommandBase<FdoIApplySchema, Connection> {
 public:
  using memory_provider::CommandBase<FdoIApplySchema, Connection>::CommandBase;

  FdoFeatureSchema* GetFeatureSchema() override { return Shared(schema_); }
  void SetFeatureSchema(FdoFeatureSchema* value) override { Share(schema_, value); }
  FdoPhysicalSchemaMapping* GetPhysicalMapping() override {
    return Given<FdoPhysicalSchemaMapping*>(nullptr);
  }
  void SetPhysicalMapping(FdoPhysicalSchemaMapping* value) override {
    Enter();
    if (value != nullptr) throw FdoCommandException::Create(L"The provider has no schema mappings.");
  }
  FdoBoolean GetIgnoreStates() override { return Given(ignoreStates_); }
  void SetIgnoreStates(FdoBoolean ignoreStates) override { Take(ignoreStates_, ignoreStates); }
  void Execute() override {
    Recorder& recorder = connection_.p->Executing();
    if (schema_ == nullptr) throw FdoCommandException::Create(L"There is no schema to apply.");
    recorder.Note(std::wstring(L"apply 6") + (ignoreStates_ ? L" ignoring states" : L"") +
                  SchemaText(*schema_));
    schema_->AcceptChanges();
  }

 private:
  FdoPtr<FdoFeatureSchema> schema_;
  bool ignoreStates_ = false;
};

class CreateSpatialContext : public memory_provider::CreateSpatialContextBase<Connection> {
 public:
  using memory_provider::CreateSpatialContextBase<Connection>::CreateSpatialContextBase;

  void Execute() override {
    connection_.p->Executing().Note(L"context 9" + SettingText(L"name", context_.name) +
                                    SettingText(L"system", context_.coordinateSystem) +
                                    SettingText(L"wkt", context_.wkt) +
                                    (updateExisting_ ? L" updating" : L""));
  }
};

class GetSpatialContexts : public memory_provider::GetSpatialContextsBase<Connection> {
 public:
  using memory_provider::GetSpatialContextsBase<Connection>::GetSpatialContextsBase;

  FdoISpatialContextReader* Execute() override {
    Recorder& recorder = connection_.p->Executing();
    recorder.Note(std::wstring(L"contexts 11") + (activeOnly_ ? L" active" : L""));
    if (recorder.answers.nullResults.count(FdoCommandType_GetSpatialContexts) > 0) return nullptr;
    return MakeSpatialContextReader(connection_.p->SharedRecorder(), recorder.answers.spatialContexts);
  }
};

// Works on a closed connection too.
class CreateDataStore : public memory_provider::CommandBase<FdoICreateDataStore, Connection> {
 public:
  using memory_provider::CommandBase<FdoICreateDataStore, Connection>::CommandBase;

  FdoIDataStorePropertyDictionary* GetDataStoreProperties() override {
    Enter();
    return new PropertyDictionary<FdoIDataStorePropertyDictionary>(connection_.p->SharedRecorder(),
                                                                   settings_);
  }
  void Execute() override {
    Enter();
    std::wstring line = L"store 48";
    for (auto const& setting : *settings_) line += SettingText(setting.first.c_str(), setting.second);
    connection_.p->SharedRecorder()->Note(line);
  }

 private:
  std::shared_ptr<Settings> settings_ = std::make_shared<Settings>();
};

}  // namespace

FdoICommand* MakeDescribeSchema(Connection* connection) { return MakeLive<DescribeSchema>(connection); }

FdoICommand* MakeApplySchema(Connection* connection) { return MakeLive<ApplySchema>(connection); }

FdoICommand* MakeCreateSpatialContext(Connection* connection) {
  return MakeLive<CreateSpatialContext>(connection);
}

FdoICommand* MakeGetSpatialContexts(Connection* connection) {
  return MakeLive<GetSpatialContexts>(connection);
}

FdoICommand* MakeCreateDataStore(Connection* connection) { return MakeLive<CreateDataStore>(connection); }

}  // namespace recording_provider
