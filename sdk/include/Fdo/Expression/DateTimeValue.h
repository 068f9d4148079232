// FdoDateTimeValue is a date, a time of day, or both.
#ifndef FDO_EXPRESSION_DATE_TIME_VALUE_H_
#define FDO_EXPRESSION_DATE_TIME_VALUE_H_

#include "Fdo/Expression/DataValue.h"

class FDO_API FdoDateTimeValue : public FdoDataValue {
 public:
  // Gives: one reference. Without a value it is null; a conversion follows the rules of FdoDataValue.
  static FdoDateTimeValue* Create();
  static FdoDateTimeValue* Create(FdoDateTime value);
  static FdoDateTimeValue* Create(FdoDataValue* src, FdoBoolean nullIfIncompatible = false,
                                  FdoBoolean shift = true, FdoBoolean truncate = false);

  FdoDataType GetDataType() override;

  // Requires: !IsNull().
  FdoDateTime GetDateTime();
  void SetDateTime(FdoDateTime value);

  void Process(FdoIExpressionProcessor* p) override;
  FdoString* ToString() override;

  operator FdoDateTime();

 protected:
  FdoDateTimeValue();
  explicit FdoDateTimeValue(FdoDateTime value);
  ~FdoDateTimeValue() override;
  void Dispose() override;

 private:
  FdoDateTime m_data;
};

#endif  // FDO_EXPRESSION_DATE_TIME_VALUE_H_
