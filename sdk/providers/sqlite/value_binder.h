// Binds the values that a program gives to properties as the columns keep them.
#ifndef SDK_PROVIDERS_SQLITE_VALUE_BINDER_H_
#define SDK_PROVIDERS_SQLITE_VALUE_BINDER_H_

#include <memory>
#include <string>
#include <vector>

#include "Fdo.h"
#include "sdk/providers/sqlite/statement.h"
#include "sdk/providers/sqlite/store_schema.h"
#include "sdk/providers/sqlite/stored_geometry.h"

namespace fdo_sqlite {

// Each parameter of one statement belongs to a column. What is bound stays good until the same parameter is
// bound again, if the program's values live that long.
//
//   Boolean, integers          integer
//   Single, Double, Decimal    real; the file cannot hold what is not a number
//   DateTime                   text, see date_text.h
//   String                     text
//   BLOB                       blob
//   CLOB                       text where it is UTF-8 without a zero, else blob
//   geometry                   as the column is registered
class ValueBinder {
 public:
  explicit ValueBinder(std::vector<StoreColumn const*> columns);

  // Null for a null value and for no value. A value of another type is converted where nothing is lost.
  // Requires: 0 <= place && place < columns.size(); the column's parameter is place + 1.
  // Errors: FdoCommandException*, which names the property, for a value that the column cannot take; nothing
  //   is bound then.
  void Bind(Statement& statement, std::size_t place, FdoLiteralValue* value);

 private:
  struct Slot {
    explicit Slot(StoreColumn const& of) : column(of), geometry(of.format) {}
    StoreColumn const& column;
    StoredGeometry geometry;
    std::string bytes;
    FdoPtr<FdoLiteralValue> converted;
    FdoPtr<FdoByteArray> array;
  };

  // Requires: the value is of the column's type.
  static void BindData(Statement& statement, int parameter, Slot& slot, FdoDataValue& value);
  static void BindGeometry(Statement& statement, int parameter, Slot& slot, FdoByteArray& fgf);

  std::vector<std::unique_ptr<Slot>> slots_;
};

// Whether the expression is a FdoLiteralValue.
inline bool IsLiteral(FdoValueExpression& value) {
  FdoExpressionItemType const type = value.GetExpressionType();
  return type == FdoExpressionItemType_DataValue || type == FdoExpressionItemType_GeometryValue;
}

// The literal that a value expression is or stands for: itself, or the parameter's value.
// Gives: one reference; null for no value. Errors: FdoCommandException* for a parameter without a value, and
// for an expression that is neither.
FdoLiteralValue* LiteralOf(FdoValueExpression* value, FdoParameterValueCollection* parameters);

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_VALUE_BINDER_H_
