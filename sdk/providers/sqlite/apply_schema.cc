// Brings the tables of a store to what a schema says. The whole schema takes effect, or nothing of it.
#include "sdk/providers/sqlite/change_scope.h"
#include "sdk/providers/sqlite/column_types.h"
#include "sdk/providers/sqlite/command_base.h"
#include "sdk/providers/sqlite/commands.h"
#include "sdk/providers/sqlite/table_definition.h"

namespace fdo_sqlite {
namespace {

[[noreturn]] void Refuse(FdoSchemaElement& element, std::wstring const& reason) {
  std::wstring const message =
      L"\"" + std::wstring(static_cast<FdoString*>(element.GetQualifiedName())) + L"\" " + reason + L".";
  throw FdoSchemaException::Create(message.c_str());
}

// Whether a column can be what the property says, without a change to the table. Types that are declared
// alike differ in the metadata only.
bool IsSameColumn(StoreColumn const& column, FdoPropertyDefinition& property) {
  auto* data = dynamic_cast<FdoDataPropertyDefinition*>(&property);
  if (data == nullptr) {
    return column.kind == StoreColumn::Kind::kGeometry &&
           dynamic_cast<FdoGeometricPropertyDefinition*>(&property) != nullptr;
  }
  if (column.kind != StoreColumn::Kind::kData) return false;
  if (column.isRowId) return IsIntegerType(data->GetDataType());
  FdoDataType const stored = TypeOfDeclaration(DeclarationOf(data->GetDataType(), 0)).type;
  return column.type == data->GetDataType() || column.type == stored;
}

class ApplySchema : public CommandBase<FdoIApplySchema> {
 public:
  using CommandBase<FdoIApplySchema>::CommandBase;

  FdoFeatureSchema* GetFeatureSchema() override { return FDO_SAFE_ADDREF(schema_.p); }
  void SetFeatureSchema(FdoFeatureSchema* value) override { schema_ = FDO_SAFE_ADDREF(value); }
  FdoPhysicalSchemaMapping* GetPhysicalMapping() override { return nullptr; }
  void SetPhysicalMapping(FdoPhysicalSchemaMapping* value) override {
    if (value != nullptr) throw FdoCommandException::Create(L"The SQLite provider has no schema mappings.");
  }
  FdoBoolean GetIgnoreStates() override { return ignoreStates_; }
  void SetIgnoreStates(FdoBoolean ignoreStates) override { ignoreStates_ = ignoreStates; }

  // The name of the schema does not matter: all classes are in the one schema that a store has.
  void Execute() override;

 private:
  FdoSchemaElementState StateOf(FdoSchemaElement& element) const {
    return ignoreStates_ ? FdoSchemaElementState_Modified : element.GetElementState();
  }
  void ApplyClass(TableDefinition& tables, FdoClassDefinition& definition);
  void ApplyProperties(TableDefinition& tables, StoreClass const& present, FdoClassDefinition& definition);

  FdoPtr<FdoFeatureSchema> schema_;
  bool ignoreStates_ = false;
};

void ApplySchema::Execute() {
  Database& database = OpenedDatabase();
  if (schema_ == nullptr) throw FdoCommandException::Create(L"There is no schema to apply.");
  connection_.p->SettleWrites();
  ChangeScope change(database);
  TableDefinition tables(database, Schema(), connection_.p->NewGeometryFormat());
  FdoPtr<FdoClassCollection> classes = schema_->GetClasses();
  for (FdoInt32 i = 0; i < classes->GetCount(); ++i) {
    FdoPtr<FdoClassDefinition> definition = classes->GetItem(i);
    ApplyClass(tables, *definition);
  }
  change.Finish();
  Schema().Forget();
  schema_->AcceptChanges();
}

void ApplySchema::ApplyClass(TableDefinition& tables, FdoClassDefinition& definition) {
  FdoSchemaElementState const state = StateOf(definition);
  std::wstring const name = definition.GetName() == nullptr ? L"" : definition.GetName();
  StoreClassPtr const present = Schema().FindClass(name);
  if (state == FdoSchemaElementState_Unchanged || state == FdoSchemaElementState_Detached) return;
  if (state == FdoSchemaElementState_Deleted) {
    if (present == nullptr) Refuse(definition, L"cannot be deleted: there is no such class");
    tables.Drop(*present);
  } else if (present == nullptr) {
    if (state == FdoSchemaElementState_Modified && !ignoreStates_) {
      Refuse(definition, L"cannot be changed: there is no such class");
    }
    tables.Create(definition);
  } else if (state == FdoSchemaElementState_Added) {
    Refuse(definition, L"cannot be added: there is such a class already");
  } else {
    ApplyProperties(tables, *present, definition);
  }
}

void ApplySchema::ApplyProperties(TableDefinition& tables, StoreClass const& present,
                                  FdoClassDefinition& definition) {
  FdoPtr<FdoPropertyDefinitionCollection> properties = definition.GetProperties();
  for (FdoInt32 i = 0; i < properties->GetCount(); ++i) {
    FdoPtr<FdoPropertyDefinition> property = properties->GetItem(i);
    FdoSchemaElementState const state = StateOf(*property);
    StoreColumn const* column = present.Column(property->GetName());
    if (state == FdoSchemaElementState_Unchanged || state == FdoSchemaElementState_Detached) continue;
    if (column == nullptr) {
      if (state == FdoSchemaElementState_Deleted)
        Refuse(*property, L"cannot be deleted: there is no such property");
      tables.AddColumn(present, definition, *property);
      continue;
    }
    if (state == FdoSchemaElementState_Deleted) {
      tables.DropColumn(present, *column);
      continue;
    }
    if (state == FdoSchemaElementState_Added)
      Refuse(*property, L"cannot be added: there is such a property already");
    if (!IsSameColumn(*column, *property)) {
      Refuse(*property, L"cannot be changed: SQLite cannot alter the type of a column");
    }
    if (!ignoreStates_) tables.Describe(present, *column, *property);
  }
}

}  // namespace

FdoICommand* MakeApplySchema(Connection* connection) { return new ApplySchema(connection); }

}  // namespace fdo_sqlite
