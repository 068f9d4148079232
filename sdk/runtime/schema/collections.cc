// The collections of schema elements; what they do beyond FdoSchemaCollection stands below each.
#include <cwchar>
#include <string>

#include "Fdo/Schema/ClassCollection.h"
#include "Fdo/Schema/DataPropertyDefinitionCollection.h"
#include "Fdo/Schema/FeatureClassCollection.h"
#include "Fdo/Schema/FeatureSchemaCollection.h"
#include "Fdo/Schema/PropertyDefinitionCollection.h"

#define FDO_SDK_DEFINE_SCHEMA_COLLECTION(Collection, Item, owner)                                \
  Collection* Collection::Create(FdoSchemaElement* parent) { return new Collection(parent); }    \
  Collection::Collection(FdoSchemaElement* parent) : FdoSchemaCollection<Item>(parent, owner) {} \
  Collection::~Collection() = default;                                                           \
  void Collection::Dispose() { delete this; }

FDO_SDK_DEFINE_SCHEMA_COLLECTION(FdoFeatureSchemaCollection, FdoFeatureSchema, true)
FDO_SDK_DEFINE_SCHEMA_COLLECTION(FdoClassCollection, FdoClassDefinition, true)
FDO_SDK_DEFINE_SCHEMA_COLLECTION(FdoFeatureClassCollection, FdoFeatureClass, true)
FDO_SDK_DEFINE_SCHEMA_COLLECTION(FdoPropertyDefinitionCollection, FdoPropertyDefinition, true)
FDO_SDK_DEFINE_SCHEMA_COLLECTION(FdoDataPropertyDefinitionCollection, FdoDataPropertyDefinition, false)

FdoIDisposableCollection* FdoFeatureSchemaCollection::FindClass(wchar_t const* className) {
  FdoPtr<FdoIDisposableCollection> found = FdoIDisposableCollection::Create();
  std::wstring const wanted = className == nullptr ? L"" : className;
  std::size_t const colon = wanted.find(L':');
  std::wstring const schemaName = colon == std::wstring::npos ? L"" : wanted.substr(0, colon);
  std::wstring const name = colon == std::wstring::npos ? wanted : wanted.substr(colon + 1);
  FdoInt32 const count = GetCount();
  for (FdoInt32 i = 0; i < count; ++i) {
    FdoPtr<FdoFeatureSchema> schema = GetItem(i);
    if (colon != std::wstring::npos && schemaName != schema->GetName()) continue;
    FdoPtr<FdoClassCollection> classes = schema->GetClasses();
    FdoPtr<FdoClassDefinition> classOfName = classes->FindItem(name.c_str());
    if (classOfName != nullptr) found->Add(classOfName);
  }
  return found.Detach();
}

void FdoPropertyDefinitionCollection::Remove(FdoSchemaElement const* value) {
  FdoInt32 const count = GetCount();
  for (FdoInt32 i = 0; i < count; ++i) {
    FdoPtr<FdoPropertyDefinition> item = GetItem(i);
    if (item.p != value) continue;
    RemoveAt(i);
    return;
  }
  throw FdoSchemaException::Create(L"The item to remove is not in the collection.");
}

void FdoPropertyDefinitionCollection::RemoveAt(FdoInt32 index) {
  FdoSchemaCollection<FdoPropertyDefinition>::RemoveAt(index);
}

void FdoPropertyDefinitionCollection::ItemLeft(FdoPropertyDefinition* item) {
  if (FdoClassDefinition* parent = dynamic_cast<FdoClassDefinition*>(Parent())) parent->PropertyLeft(item);
}

void FdoDataPropertyDefinitionCollection::SetItem(FdoInt32 index, FdoDataPropertyDefinition* value) {
  FdoSchemaCollection<FdoDataPropertyDefinition>::SetItem(index, value);
}

FdoInt32 FdoDataPropertyDefinitionCollection::Add(FdoDataPropertyDefinition* value) {
  return FdoSchemaCollection<FdoDataPropertyDefinition>::Add(value);
}

void FdoDataPropertyDefinitionCollection::Insert(FdoInt32 index, FdoDataPropertyDefinition* value) {
  FdoSchemaCollection<FdoDataPropertyDefinition>::Insert(index, value);
}
