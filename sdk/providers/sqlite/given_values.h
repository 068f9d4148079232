// What a program gives to the properties of a class, and where it goes.
#ifndef SDK_PROVIDERS_SQLITE_GIVEN_VALUES_H_
#define SDK_PROVIDERS_SQLITE_GIVEN_VALUES_H_

#include <string>
#include <vector>

#include "Fdo.h"
#include "sdk/providers/sqlite/statement.h"
#include "sdk/providers/sqlite/store_schema.h"
#include "sdk/providers/sqlite/value_binder.h"

namespace fdo_sqlite {

// The properties of a collection of values as columns of a table. A property without a value expression is
// not given at all; one whose value is null is.
class GivenValues {
 public:
  // Errors: FdoCommandException* for a property that the class does not have or that is given twice.
  GivenValues(StoreClassPtr storeClass, FdoPropertyValueCollection& values);

  // The columns that are given, in the order of the collection.
  std::vector<StoreColumn const*> const& Columns() const { return columns_; }

  // Binds the values of the collection to the parameters 1, 2, ...
  // Errors: false when the collection gives other properties than it did, or in another order; also as those
  // of ValueBinder::Bind and LiteralOf.
  bool Bind(Statement& statement, FdoPropertyValueCollection& values,
            FdoParameterValueCollection* parameters);

 private:
  struct Item {
    std::wstring name;
    bool isGiven;
  };

  StoreClassPtr storeClass_;
  std::vector<Item> items_;  // of the collection
  std::vector<StoreColumn const*> columns_;
  ValueBinder binder_{{}};
};

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_GIVEN_VALUES_H_
