// Binds the values that a program gives to properties as the columns keep them.
#ifndef SDK_PROVIDERS_SQLITE_VALUE_BINDER_H_
#define SDK_PROVIDERS_SQLITE_VALUE_BINDER_H_

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Fdo.h"
#include "sdk/extensions/direct_insert.h"
#include "sdk/providers/sqlite/date_text.h"
#include "sdk/providers/sqlite/statement.h"
#include "sdk/providers/sqlite/store_schema.h"
#include "sdk/providers/sqlite/stored_geometry.h"

namespace fdo_sqlite {

// Each parameter of one statement, which nobody else binds, belongs to a column. What is bound stays good
// until the program changes the value, or the same parameter is bound again.
// Owns: a reference to the last value of each parameter.
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

  // The same for the object that the parameter was given last time, which now may hold another value: what it
  // is, is known. Errors: false, and nothing is done, for another object.
  bool BindAgain(Statement& statement, std::size_t place, FdoValueExpression& value) {
    Slot& slot = *slots_[place];
    if (slot.known.p != &value) return false;
    BindKnown(statement, static_cast<int>(place) + 1, slot);
    return true;
  }

  // The same as Bind, for a value of the column's type without an object around it.
  // Requires: value is of that kind or null. Errors: as Bind.
  void BindDirectly(Statement& statement, std::size_t place, fdo_sdk::DirectValue const& value);

  // Whether a literal, which may be null itself, has the type of the column.
  static bool IsOfColumn(StoreColumn const& column, FdoLiteralValue& literal);

 private:
  struct Slot {
    explicit Slot(StoreColumn const& of) : column(of), geometry(of.format) {}
    StoreColumn const& column;
    StoredGeometry geometry;
    FdoPtr<FdoLiteralValue> known;  // what was given last time
    bool isGeometry = false;        // the known value, whatever the column
    bool isOfColumn = false;        // the known value has the type of the column
    bool isBound = false;           // to anything but null
    std::string text;
    char dateText[kDateTextSize];
    FdoPtr<FdoLiteralValue> converted;
  };

  static void BindKnown(Statement& statement, int parameter, Slot& slot);
  static void BindNull(Statement& statement, int parameter, Slot& slot);
  static FdoDataValue& Converted(Slot& slot, FdoDataValue& value);
  // Requires: the value is of the column's type.
  static void BindData(Statement& statement, int parameter, Slot& slot, FdoDataValue& value);
  // Of a column of that kind.
  static void BindReal(Statement& statement, int parameter, Slot& slot, double value);
  static void BindMoment(Statement& statement, int parameter, Slot& slot, FdoDateTime const& value);
  static void BindString(Statement& statement, int parameter, Slot& slot, FdoString* value);
  static void BindLargeObject(Statement& statement, int parameter, Slot& slot, std::string_view bytes);
  static void BindGeometry(Statement& statement, int parameter, Slot& slot, std::string_view fgf);

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
