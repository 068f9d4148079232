// The collections of a command that a program executes over and over.
#ifndef SDK_PROVIDERS_SQLITE_WATCHED_COLLECTION_H_
#define SDK_PROVIDERS_SQLITE_WATCHED_COLLECTION_H_

#include <cstdint>

#include "Fdo.h"

namespace fdo_sqlite {

// Counts what is put in, taken out and replaced, so that whoever has looked at the items need not ask for
// each of them again. What changes within an item is not counted.
// Requires: Collection is one of the interface, of Item.
template <class Collection, class Item>
class WatchedCollection : public Collection {
 public:
  // Differs whenever the collection may hold other items, or in another order.
  std::uint64_t Changes() const { return changes_; }

  void SetItem(FdoInt32 index, Item* value) override {
    ++changes_;
    Collection::SetItem(index, value);
  }
  FdoInt32 Add(Item* value) override {
    ++changes_;
    return Collection::Add(value);
  }
  void Insert(FdoInt32 index, Item* value) override {
    ++changes_;
    Collection::Insert(index, value);
  }
  void Clear() override {
    ++changes_;
    Collection::Clear();
  }
  void Remove(Item const* value) override {
    ++changes_;
    Collection::Remove(value);
  }
  void RemoveAt(FdoInt32 index) override {
    ++changes_;
    Collection::RemoveAt(index);
  }

 protected:
  void Dispose() override { delete this; }

 private:
  std::uint64_t changes_ = 0;
};

typedef WatchedCollection<FdoPropertyValueCollection, FdoPropertyValue> WatchedValues;
typedef WatchedCollection<FdoIdentifierCollection, FdoIdentifier> WatchedIdentifiers;

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_WATCHED_COLLECTION_H_
