// Reads features: of a select, or the identity of one that was just inserted.
#ifndef SDK_PROVIDERS_SQLITE_FEATURE_READER_H_
#define SDK_PROVIDERS_SQLITE_FEATURE_READER_H_

#include <cstdint>
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

// A reader of rows of one property, whose values are lent to it.
class LentRow {
 public:
  // Requires: the shape has one column.
  LentRow(Connection* connection, FeatureShapePtr shape);
  // Somebody else may have the reader still, which then is closed.
  ~LentRow() { cursor_.Close(); }
  LentRow(LentRow const&) = delete;
  LentRow& operator=(LentRow const&) = delete;

  // On a row of that value: what DirectCells::ReadCell gives then.
  fdo_sdk::DirectKind Read(sqlite3_value* value, FdoInt32 type, fdo_sdk::DirectCell& cell) {
    cursor_.StandOn(value);
    return cursor_.ReadDirectly(0, type, cell);
  }
  FdoIFeatureReader& Reader() const { return *reader_.p; }

 private:
  FdoPtr<FdoIFeatureReader> reader_;
  ResultCursor& cursor_;  // of the reader
};

// Gives readers of one row, the identity of a feature that was just inserted. A program that inserts many
// mostly has let go of a reader before the next is made, which then is the same object again.
// Owns: a reference to the last reader.
class IdentityReaders {
 public:
  // Gives: one reference. Requires: each column of the shape, which is always the same, is the id.
  FdoIFeatureReader* Of(Connection* connection, std::int64_t id, FeatureShapePtr const& shape);

 private:
  FdoPtr<FdoIFeatureReader> last_;
};

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_FEATURE_READER_H_
