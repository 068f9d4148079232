// FdoDataValue is the base of the typed values; any of them may be null.
#ifndef FDO_EXPRESSION_DATA_VALUE_H_
#define FDO_EXPRESSION_DATA_VALUE_H_

#include "Fdo/Expression/LiteralValue.h"
#include "Fdo/Schema/DataType.h"

// A value of one type is made from a value of another by these rules, in Create(dataType, src, ...) and
// in the like of it that each heir has:
// - null gives null;
// - a number with a fraction goes into an integer type rounded (half away from zero) with shift;
// - a number out of the target's range becomes the nearest one there with truncate;
// - TRUE is 1 and FALSE is 0, and other numbers are out of the range of Boolean;
// - a text is read, and a value written, in the text form of expressions; a text for a text stays as it is.
// All else is incompatible, and so is what shift or truncate would have allowed.
// Errors: an incompatible value throws FdoExpressionException*, or gives null with nullIfIncompatible.
class FDO_API FdoDataValue : public FdoLiteralValue {
 public:
  // Gives: one reference. The first form gives a null value of that type.
  static FdoDataValue* Create(FdoDataType dataType);
  static FdoDataValue* Create(bool value);
  static FdoDataValue* Create(FdoByte value);
  static FdoDataValue* Create(FdoDateTime value);
  // Requires: Double or Decimal, or throws.
  static FdoDataValue* Create(double value, FdoDataType dataType);
  static FdoDataValue* Create(FdoInt16 value);
  static FdoDataValue* Create(FdoInt32 value);
  static FdoDataValue* Create(FdoInt64 value);
  static FdoDataValue* Create(float value);
  static FdoDataValue* Create(FdoString* value);
  // Requires: BLOB or CLOB, or throws. The first form copies the bytes, the second shares the array.
  static FdoDataValue* Create(FdoByte* value, FdoInt32 length, FdoDataType dataType);
  static FdoDataValue* Create(FdoByteArray* value, FdoDataType dataType);
  static FdoDataValue* Create(FdoDataType dataType, FdoDataValue* src, FdoBoolean nullIfIncompatible = false,
                              FdoBoolean shift = true, FdoBoolean truncate = false);

  virtual FdoDataType GetDataType() = 0;

  virtual bool IsNull();
  virtual void SetNull();

  FdoLiteralValueType GetLiteralValueType() const override;
  FdoExpressionItemType GetExpressionType() override;

  // The text read as a value of the type, by the rules above.
  static FdoDataValue* Create(FdoString* value, FdoDataType dataType);

 protected:
  FdoDataValue();
  ~FdoDataValue() override;

  // Numbers compare as numbers whatever their types; nulls and values of other kinds are Undefined. A date
  // or time compares with a fuller one by the parts that both have, and is at most PartlyEqual to it.
  FdoCompareType Compare(FdoDataValue* other);
  virtual FdoCompareType DoCompare(FdoDataValue* other);

  bool m_isNull;
};

#endif  // FDO_EXPRESSION_DATA_VALUE_H_
