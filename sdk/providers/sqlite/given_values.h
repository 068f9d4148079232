// What a program gives to the properties of a class, and where it goes.
#ifndef SDK_PROVIDERS_SQLITE_GIVEN_VALUES_H_
#define SDK_PROVIDERS_SQLITE_GIVEN_VALUES_H_

#include <cstdint>
#include <string>
#include <vector>

#include "Fdo.h"
#include "sdk/providers/sqlite/statement.h"
#include "sdk/providers/sqlite/store_schema.h"
#include "sdk/providers/sqlite/value_binder.h"
#include "sdk/providers/sqlite/watched_collection.h"

namespace fdo_sqlite {

// The properties of a collection of values as columns of a table. A property without a value expression is
// not given at all; one whose value is null is.
class GivenValues {
 public:
  // Errors: FdoCommandException* for a property that the class does not have or that is given twice.
  GivenValues(StoreClassPtr storeClass, WatchedValues& values);

  // The columns that are given, in the order of the collection.
  std::vector<StoreColumn const*> const& Columns() const { return columns_; }

  // Binds the values of the collection to the parameters 1, 2, ... of a statement, which is always the same.
  // Errors: false when the collection gives other properties than it did, or in another order; also as those
  // of ValueBinder::Bind and LiteralOf.
  bool Bind(Statement& statement, WatchedValues& values, FdoParameterValueCollection* parameters);

  // Whether each value object was of its column's type when the collection was looked at.
  bool AreOfColumns() const { return areOfColumns_; }

  // As Bind, with values in the places of the objects in the collection.
  // Requires: AreOfColumns(); direct has a value for each property, as DirectInsert has it.
  // Errors: false when the collection has changed.
  bool BindDirectly(Statement& statement, WatchedValues& values, fdo_sdk::DirectValue const* direct);

 private:
  struct Item {
    FdoPtr<FdoPropertyValue> property;
    std::wstring name;
    bool isGiven;
  };

  bool TakeProperties(WatchedValues& values);

  StoreClassPtr storeClass_;
  std::vector<Item> items_;  // of the collection
  std::uint64_t changes_;    // of the collection, when the items were taken from it
  std::vector<StoreColumn const*> columns_;
  bool areOfColumns_ = true;
  ValueBinder binder_{{}};
};

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_GIVEN_VALUES_H_
