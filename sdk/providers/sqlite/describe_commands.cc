// The commands that tell what a store has: its schema, or only the names in it.

#include "sdk/providers/sqlite/class_description.h"
#include "sdk/providers/sqlite/command_base.h"
#include "sdk/providers/sqlite/commands.h"

namespace fdo_sqlite {
namespace {

// Errors: FdoSchemaException* for the name of another schema than the one that there is. Empty is any.
void RequireSchema(std::wstring const& name) {
  if (name.empty() || name == kSchemaName) return;
  std::wstring const message =
      L"There is no schema \"" + name + L"\"; the only one of a store is \"" + kSchemaName + L"\".";
  throw FdoSchemaException::Create(message.c_str());
}

class DescribeSchema : public CommandBase<FdoIDescribeSchema> {
 public:
  using CommandBase<FdoIDescribeSchema>::CommandBase;

  FdoString* GetSchemaName() override { return schemaName_; }
  void SetSchemaName(FdoString* value) override { schemaName_ = value; }
  FdoStringCollection* GetClassNames() override { return FDO_SAFE_ADDREF(classNames_.p); }
  void SetClassNames(FdoStringCollection* value) override { classNames_ = FDO_SAFE_ADDREF(value); }

  FdoFeatureSchemaCollection* Execute() override {
    RequireSchema(static_cast<FdoString*>(schemaName_));
    std::vector<StoreClassPtr> classes = Schema().Classes();
    if (classNames_ != nullptr && classNames_->GetCount() > 0) {
      std::vector<StoreClassPtr> wanted;
      for (FdoInt32 i = 0; i < classNames_->GetCount(); ++i) {
        wanted.push_back(Schema().Class(std::wstring(classNames_->GetString(i))));
      }
      classes = wanted;
    }
    FdoPtr<FdoFeatureSchemaCollection> described = FdoFeatureSchemaCollection::Create(nullptr);
    FdoPtr<FdoFeatureSchema> schema = DescribeStore(classes);
    described->Add(schema);
    return described.Detach();
  }

 private:
  FdoStringP schemaName_;
  FdoPtr<FdoStringCollection> classNames_ = FdoStringCollection::Create();
};

class GetSchemaNames : public CommandBase<FdoIGetSchemaNames> {
 public:
  using CommandBase<FdoIGetSchemaNames>::CommandBase;

  FdoStringCollection* Execute() override {
    OpenedDatabase();
    FdoPtr<FdoStringCollection> names = FdoStringCollection::Create();
    names->Add(FdoStringP(kSchemaName));
    return names.Detach();
  }
};

class GetClassNames : public CommandBase<FdoIGetClassNames> {
 public:
  using CommandBase<FdoIGetClassNames>::CommandBase;

  FdoString* GetSchemaName() override { return schemaName_; }
  void SetSchemaName(FdoString* value) override { schemaName_ = value; }

  FdoStringCollection* Execute() override {
    RequireSchema(static_cast<FdoString*>(schemaName_));
    FdoPtr<FdoStringCollection> names = FdoStringCollection::Create();
    for (StoreClassPtr const& storeClass : Schema().Classes()) {
      names->Add(FdoStringP((std::wstring(kSchemaName) + L":" + storeClass->name).c_str()));
    }
    return names.Detach();
  }

 private:
  FdoStringP schemaName_;
};

}  // namespace

FdoICommand* MakeDescribeSchema(Connection* connection) { return new DescribeSchema(connection); }
FdoICommand* MakeGetSchemaNames(Connection* connection) { return new GetSchemaNames(connection); }
FdoICommand* MakeGetClassNames(Connection* connection) { return new GetClassNames(connection); }

}  // namespace fdo_sqlite
