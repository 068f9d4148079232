// The classes of a store as objects of the interface.
#ifndef SDK_PROVIDERS_SQLITE_CLASS_DESCRIPTION_H_
#define SDK_PROVIDERS_SQLITE_CLASS_DESCRIPTION_H_

#include <vector>

#include "Fdo.h"
#include "sdk/providers/sqlite/store_schema.h"

namespace fdo_sqlite {

// A property definition. Gives: one reference.
FdoPropertyDefinition* DescribeColumn(StoreColumn const& column);

// The class with all its properties. Gives: one reference.
FdoClassDefinition* DescribeClass(StoreClass const& storeClass);

// The class with the properties of the columns at these places, in this order. Identity and geometry are
// those that are among them. Gives: one reference.
FdoClassDefinition* DescribeClass(StoreClass const& storeClass, std::vector<int> const& places);

// The schema of a store with these classes, in the state Unchanged. Gives: one reference.
FdoFeatureSchema* DescribeStore(std::vector<StoreClassPtr> const& classes);

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_CLASS_DESCRIPTION_H_
