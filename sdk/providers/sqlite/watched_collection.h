// The property values of a command that a program executes over and over.
#ifndef SDK_PROVIDERS_SQLITE_WATCHED_VALUES_H_
#define SDK_PROVIDERS_SQLITE_WATCHED_VALUES_H_

#include <cstdint>

#include "Fdo.h"

namespace fdo_sqlite {

// Counts what is put in, taken out and replaced, so that whoever has looked at the properties need not ask
// for each of them again. What changes within a property is not counted.
class WatchedValues : public FdoPropertyValueCollection {
 public:
  // Differs whenever the collection may hold other properties, or in another order.
  std::uint64_t Changes() const { return changes_; }

  void SetItem(FdoInt32 index, FdoPropertyValue* value) override {
    ++changes_;
    FdoPropertyValueCollection::SetItem(index, value);
  }
  FdoInt32 Add(FdoPropertyValue* value) override {
    ++changes_;
    return FdoPropertyValueCollection::Add(value);
  }
  void Insert(FdoInt32 index, FdoPropertyValue* value) override {
    ++changes_;
    FdoPropertyValueCollection::Insert(index, value);
  }
  void Clear() override {
    ++changes_;
    FdoPropertyValueCollection::Clear();
  }
  void Remove(FdoPropertyValue const* value) override {
    ++changes_;
    FdoPropertyValueCollection::Remove(value);
  }
  void RemoveAt(FdoInt32 index) override {
    ++changes_;
    FdoPropertyValueCollection::RemoveAt(index);
  }

 protected:
  void Dispose() override { delete this; }

 private:
  std::uint64_t changes_ = 0;
};

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_WATCHED_VALUES_H_
