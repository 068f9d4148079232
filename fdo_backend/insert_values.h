// The property values of an insert command, one for each column, filled from rows.
#ifndef FDO_BACKEND_INSERT_VALUES_H_
#define FDO_BACKEND_INSERT_VALUES_H_

#include <Fdo.h>
#include <fdo/row.h>
#include <fdo/schema.h>

#include <vector>

#include "sdk/extensions/direct_insert.h"

namespace fdo::internal {

// Each column's property holds an empty value of the column's type, which is filled and emptied in
// place: a row costs no object unless it has more than 64 KiB of geometry or large objects in one column, or
// the provider keeps the bytes of the row before. A column of a type that
// no value stands for has a property without a value, so that positions are those of the columns.
//
// Between two rows the values stay as they are, whoever used them last, until SetAllNull.
class InsertValues {
 public:
  // Adds the properties to the insert command's collection, which is empty.
  InsertValues(TableDef const& def, FdoPropertyValueCollection& properties);

  // Fills in the row's cells, fetching those of a bound row. A null or undefined cell, and one without
  // bytes where a column takes bytes, leaves what is there.
  // leaveOutId: the identity, where the row has one, becomes null.
  void FillFrom(Row const& row, bool leaveOutId);
  void SetAllNull();
  // Whether each value is null: nothing was filled in since they were made or set to null.
  bool AreNull() const { return areNull_; }

  // What FillFrom would make of the values when they are null, in the places of the properties; the values
  // stay null. Borrowed: until the next call, and while the row keeps its cells.
  fdo_sdk::DirectValue const* DirectlyFrom(Row const& row, bool leaveOutId);

  // Borrowed: while this lives.
  FdoPropertyValue* PropertyAt(int column) const { return slots_[static_cast<std::size_t>(column)].property; }

  // How a value of one column type is made, filled and emptied.
  struct ValueType {
    ColumnDef::DataType columnType;
    FdoValueExpression* (*make)();
    // spare: the bytes of an earlier row, which serve again where nobody else holds them.
    void (*set)(FdoValueExpression& value, Value const& cell, FdoPtr<FdoByteArray>& spare);
    // The same without the value. moment: room for a date-time.
    fdo_sdk::DirectKind (*take)(Value const& cell, fdo_sdk::DirectCell& taken, FdoDateTime& moment);
    void (*setNull)(FdoValueExpression& value);
  };

 private:
  struct Slot {
    FdoPtr<FdoPropertyValue> property;
    FdoPtr<FdoValueExpression> value;  // of the property; null together with the type
    ValueType const* type;
    FdoPtr<FdoByteArray> spare;
    FdoDateTime moment;  // of the row that is inserted directly
  };

  std::vector<Slot> slots_;                   // one for each column
  std::vector<fdo_sdk::DirectValue> direct_;  // of the last row that was inserted directly
  bool areNull_ = true;
  int idIndex_;
};

}  // namespace fdo::internal

#endif  // FDO_BACKEND_INSERT_VALUES_H_
