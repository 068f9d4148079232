// Reads features: of a select, or the identity of one that was just inserted.
#ifndef SDK_PROVIDERS_SQLITE_FEATURE_READER_H_
#define SDK_PROVIDERS_SQLITE_FEATURE_READER_H_

#include <memory>
#include <vector>

#include "sdk/providers/sqlite/reader_base.h"
#include "sdk/providers/sqlite/sql_value.h"
#include "sdk/providers/sqlite/store_schema.h"

namespace fdo_sqlite {

// What the features of a query are: those columns of the class, and behind them what is computed.
struct FeatureShape {
  StoreClassPtr storeClass;
  std::vector<int> places;  // in the class, by column of the result; -1 for what is computed
  ResultColumnsPtr columns;
};

typedef std::shared_ptr<FeatureShape const> FeatureShapePtr;

// The shape of those columns of a class.
FeatureShapePtr ShapeOf(StoreClassPtr storeClass, std::vector<int> places);

// The column that a property is in a result.
ResultColumn ResultColumnOf(StoreColumn const& column);

// The column that a translated expression is in a result.
ResultColumn ComputedColumn(std::wstring name, SqlValue const& value);

// Gives: one reference. Requires: the cursor has the columns of the shape.
FdoIFeatureReader* MakeFeatureReader(Connection* connection, ResultCursor&& cursor, FeatureShapePtr shape);

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_FEATURE_READER_H_
