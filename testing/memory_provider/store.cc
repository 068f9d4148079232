#include "testing/memory_provider/store.h"

#include <map>
#include <mutex>

#include "testing/memory_provider/schema_copy.h"

namespace memory_provider {
namespace {

[[noreturn]] void Refuse(std::wstring const& what) { throw FdoCommandException::Create(what.c_str()); }

template <class Collection>
void AppendColumns(Collection& properties, FdoClassDefinition& definition, std::vector<Column>& columns) {
  FdoPtr<FdoDataPropertyDefinitionCollection> identity = definition.GetIdentityProperties();
  FdoPtr<FdoReadOnlyDataPropertyDefinitionCollection> inherited = definition.GetBaseIdentityProperties();
  FdoInt32 const count = properties.GetCount();
  for (FdoInt32 i = 0; i < count; ++i) {
    FdoPtr<FdoPropertyDefinition> property = properties.GetItem(i);
    Column column;
    column.name = property->GetName();
    column.isGeometry = property->GetPropertyType() == FdoPropertyType_GeometricProperty;
    if (auto* data = dynamic_cast<FdoDataPropertyDefinition*>(property.p)) {
      column.type = data->GetDataType();
      column.isIdentity = identity->IndexOf(data) >= 0 || inherited->IndexOf(data) >= 0;
    }
    columns.push_back(column);
  }
}

std::vector<Column> ColumnsOf(FdoClassDefinition& definition) {
  std::vector<Column> columns;
  FdoPtr<FdoReadOnlyPropertyDefinitionCollection> inherited = definition.GetBaseProperties();
  AppendColumns(*inherited, definition, columns);
  FdoPtr<FdoPropertyDefinitionCollection> own = definition.GetProperties();
  AppendColumns(*own, definition, columns);
  return columns;
}

// The rows with their values where the columns are now, null in new columns.
void SetColumns(Table& table, std::vector<Column> columns) {
  for (std::shared_ptr<Row const>& row : table.rows) {
    Row moved(columns.size());
    for (std::size_t i = 0; i < columns.size(); ++i) {
      int const old = table.PositionOf(columns[i].name);
      if (old >= 0) moved[i] = (*row)[static_cast<std::size_t>(old)];
    }
    row = std::make_shared<Row const>(moved);
  }
  table.columns = std::move(columns);
}

void AddMissingProperties(FdoClassDefinition& from, FdoClassDefinition& to) {
  FdoPtr<FdoPropertyDefinitionCollection> wanted = from.GetProperties();
  FdoPtr<FdoPropertyDefinitionCollection> present = to.GetProperties();
  for (FdoInt32 i = 0; i < wanted->GetCount(); ++i) {
    FdoPtr<FdoPropertyDefinition> property = wanted->GetItem(i);
    if (present->Contains(property->GetName())) continue;
    FdoPtr<FdoPropertyDefinition> copy = CopyProperty(*property);
    present->Add(copy);
  }
}

struct Stores {
  std::mutex lock;
  std::map<std::wstring, std::shared_ptr<Store>> byFile;
};

Stores& AllStores() {
  static Stores stores;
  return stores;
}

}  // namespace

int Table::PositionOf(std::wstring const& column) const {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (columns[i].name == column) return static_cast<int>(i);
  }
  return -1;
}

std::size_t Table::ExistingPositionOf(std::wstring const& column) const {
  int const position = PositionOf(column);
  if (position < 0) Refuse(L"There is no property \"" + column + L"\" in the class.");
  return static_cast<std::size_t>(position);
}

std::shared_ptr<Table> Store::TableOf(FdoIdentifier* className) const {
  std::wstring const schema = className == nullptr ? L"" : className->GetSchemaName();
  std::wstring const name = className == nullptr ? L"" : className->GetName();
  for (std::shared_ptr<Table> const& table : tables) {
    if (name != table->definition->GetName()) continue;
    FdoPtr<FdoFeatureSchema> tableSchema = table->definition->GetFeatureSchema();
    if (schema.empty() || schema == tableSchema->GetName()) return table;
  }
  Refuse(L"There is no class \"" + (schema.empty() ? name : schema + L":" + name) + L"\" in the data store.");
}

void Store::Merge(FdoFeatureSchema& schema) {
  // The copy refuses what cannot be kept before anything changes.
  FdoPtr<FdoFeatureSchema> wanted = CopySchema(schema);
  FdoPtr<FdoFeatureSchema> present = schemas->FindItem(schema.GetName());
  if (present == nullptr) {
    present = FdoFeatureSchema::Create(schema.GetName(), schema.GetDescription());
    schemas->Add(present);
  }
  FdoPtr<FdoClassCollection> wantedClasses = wanted->GetClasses();
  FdoPtr<FdoClassCollection> presentClasses = present->GetClasses();
  while (wantedClasses->GetCount() > 0) {
    FdoPtr<FdoClassDefinition> wantedClass = wantedClasses->GetItem(0);
    wantedClasses->RemoveAt(0);
    FdoPtr<FdoClassDefinition> presentClass = presentClasses->FindItem(wantedClass->GetName());
    if (presentClass == nullptr) {
      presentClasses->Add(wantedClass);
      tables.push_back(std::make_shared<Table>());
      tables.back()->definition = wantedClass;
    } else {
      AddMissingProperties(*wantedClass, *presentClass);
    }
  }
  for (FdoInt32 i = 0; i < presentClasses->GetCount(); ++i) {
    FdoPtr<FdoClassDefinition> presentClass = presentClasses->GetItem(i);
    FdoPtr<FdoClassDefinition> base = presentClass->GetBaseClass();
    if (base == nullptr) continue;
    // A class that is new may still derive from the copy of one that was there before.
    FdoPtr<FdoClassDefinition> presentBase = presentClasses->FindItem(base->GetName());
    if (presentBase.p != base.p) presentClass->SetBaseClass(presentBase);
  }
  present->AcceptChanges();
  for (std::shared_ptr<Table> const& table : tables) SetColumns(*table, ColumnsOf(*table->definition));
}

std::shared_ptr<Store> CreateStore(std::wstring const& file) {
  Stores& stores = AllStores();
  std::lock_guard<std::mutex> const hold(stores.lock);
  if (file.empty()) Refuse(L"A data store needs a name in \"File\".");
  std::shared_ptr<Store>& store = stores.byFile[file];
  if (store != nullptr) Refuse(L"There is a data store \"" + file + L"\" already.");
  store = std::make_shared<Store>();
  return store;
}

std::shared_ptr<Store> OpenStore(std::wstring const& file) {
  if (file.empty()) return std::make_shared<Store>();
  Stores& stores = AllStores();
  std::lock_guard<std::mutex> const hold(stores.lock);
  auto const found = stores.byFile.find(file);
  if (found == stores.byFile.end()) {
    throw FdoConnectionException::Create((L"There is no data store \"" + file + L"\".").c_str());
  }
  return found->second;
}

}  // namespace memory_provider
