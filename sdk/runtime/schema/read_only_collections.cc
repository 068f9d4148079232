#include "Fdo/Schema/ReadOnlyDataPropertyDefinitionCollection.h"
#include "Fdo/Schema/ReadOnlyPropertyDefinitionCollection.h"

namespace {

// Gives: one reference.
template <class Collection>
FdoIDisposableCollection* ItemsOf(Collection* collection) {
  FdoPtr<FdoIDisposableCollection> items = FdoIDisposableCollection::Create();
  FdoInt32 const count = collection == nullptr ? 0 : collection->GetCount();
  for (FdoInt32 i = 0; i < count; ++i) {
    FdoPtr<FdoIDisposable> item = collection->GetItem(i);
    items->Add(item);
  }
  return items.Detach();
}

}  // namespace

#define FDO_SDK_DEFINE_READ_ONLY_COLLECTION(Collection, Source, Item)                   \
  Collection* Collection::Create(Source* properties) {                                  \
    FdoPtr<FdoIDisposableCollection> items = ItemsOf(properties);                       \
    return new Collection(items);                                                       \
  }                                                                                     \
  Collection::Collection(FdoIDisposableCollection* items) { SetBaseCollection(items); } \
  Collection::~Collection() = default;                                                  \
  void Collection::Dispose() { delete this; }                                           \
  FdoInt32 Collection::GetCount() { return Base::GetCount(); }                          \
  Item* Collection::GetItem(FdoInt32 index) { return Base::GetItem(index); }            \
  Item* Collection::GetItem(FdoString* name) { return Base::GetItem(name); }            \
  bool Collection::Contains(Item* value) { return Base::Contains(value); }              \
  FdoInt32 Collection::IndexOf(Item* value) { return Base::IndexOf(value); }

FDO_SDK_DEFINE_READ_ONLY_COLLECTION(FdoReadOnlyPropertyDefinitionCollection, FdoPropertyDefinitionCollection,
                                    FdoPropertyDefinition)
FDO_SDK_DEFINE_READ_ONLY_COLLECTION(FdoReadOnlyDataPropertyDefinitionCollection,
                                    FdoDataPropertyDefinitionCollection, FdoDataPropertyDefinition)
