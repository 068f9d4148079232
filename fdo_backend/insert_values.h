// The property values of an insert command, one for each column, filled from rows.
#ifndef FDO_BACKEND_INSERT_VALUES_H_
#define FDO_BACKEND_INSERT_VALUES_H_

#include <Fdo.h>
#include <fdo/row.h>
#include <fdo/schema.h>

#include <vector>

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

  // Borrowed: while this lives.
  FdoPropertyValue* PropertyAt(int column) const { return slots_[static_cast<std::size_t>(column)].property; }

  // How a value of one column type is made, filled and emptied.
  struct ValueType {
    ColumnDef::DataType columnType;
    FdoValueExpression* (*make)();
    // spare: the bytes of an earlier row, which serve again where nobody else holds them.
    void (*set)(FdoValueExpression& value, Value const& cell, FdoPtr<FdoByteArray>& spare);
    void (*setNull)(FdoValueExpression& value);
  };

 private:
  struct Slot {
    FdoPtr<FdoPropertyValue> property;
    FdoPtr<FdoValueExpression> value;  // of the property; null together with the type
    ValueType const* type;
    FdoPtr<FdoByteArray> spare;
  };

  std::vector<Slot> slots_;  // one for each column
  int idIndex_;
};

}  // namespace fdo::internal

#endif  // FDO_BACKEND_INSERT_VALUES_H_
