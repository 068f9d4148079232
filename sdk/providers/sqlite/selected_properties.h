// The property list of a select: as SQL, and as the columns of its result.
#ifndef SDK_PROVIDERS_SQLITE_SELECTED_PROPERTIES_H_
#define SDK_PROVIDERS_SQLITE_SELECTED_PROPERTIES_H_

#include <functional>
#include <vector>

#include "Fdo.h"
#include "sdk/providers/sqlite/expression_sql.h"
#include "sdk/providers/sqlite/feature_reader.h"
#include "sdk/providers/sqlite/query_source.h"

namespace fdo_sqlite {

class SelectedProperties {
 public:
  // An empty list means all properties of the class. Borrowed: the list and the scope.
  // Errors: FdoCommandException* for what there is not, or cannot be translated.
  SelectedProperties(StoreClassPtr storeClass, FdoIdentifierCollection& names, SqlScope const& scope);

  // One for each column of the result.
  std::vector<SqlFragment> const& Items() const { return items_; }
  FeatureShapePtr Shape() const { return shape_; }

  // What an ordering or a grouping names: a computed property of the list, a property of the class, or an
  // expression of its own.
  SqlFragment Key(FdoIdentifier& by) const;

  // " ORDER BY a,b DESC"; empty without an order. option tells the order of one property.
  SqlFragment OrderBy(FdoIdentifierCollection& ordering,
                      std::function<FdoOrderingOption(FdoString*)> const& option) const;

 private:
  void AddStored(int place);
  void AddComputed(FdoComputedIdentifier& computed);

  StoreClassPtr storeClass_;
  FdoIdentifierCollection& names_;
  SqlScope const& scope_;
  std::vector<SqlFragment> items_;
  std::vector<int> places_;
  std::vector<ResultColumn> columns_;
  FeatureShapePtr shape_;
};

// The places of all properties of a class.
std::vector<int> AllPlaces(StoreClass const& storeClass);

// The place of a property that is not computed.
// Errors: FdoCommandException* for one that the class does not have.
int PlaceNamed(FdoIdentifier& name, SqlScope const& scope);

// Joined by commas. Requires: neither is empty.
SqlFragment Joined(std::vector<SqlFragment> const& items);

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_SELECTED_PROPERTIES_H_
