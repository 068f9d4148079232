// FdoStringValue is a text.
#ifndef FDO_EXPRESSION_STRING_VALUE_H_
#define FDO_EXPRESSION_STRING_VALUE_H_

#include "Fdo/Expression/DataValue.h"

class FDO_API FdoStringValue : public FdoDataValue {
 public:
  // Gives: one reference. Without a text it is null; a conversion follows the rules of FdoDataValue.
  static FdoStringValue* Create();
  static FdoStringValue* Create(FdoString* value);
  static FdoStringValue* Create(FdoDataValue* src, FdoBoolean nullIfIncompatible = false,
                                FdoBoolean shift = true, FdoBoolean truncate = false);

  FdoDataType GetDataType() override;

  void SetNull() override;

  // Borrowed: until the value changes. Null when the value is.
  FdoString* GetString();
  // A copy; null makes the value null.
  void SetString(FdoString* value);

  void Process(FdoIExpressionProcessor* p) override;
  FdoString* ToString() override;

  // As GetString; the text is not to be written to.
  operator wchar_t*();

 protected:
  FdoStringValue();
  explicit FdoStringValue(FdoString* value);
  ~FdoStringValue() override;
  void Dispose() override;

 private:
  wchar_t* m_data;
};

#endif  // FDO_EXPRESSION_STRING_VALUE_H_
