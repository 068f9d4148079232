// FdoParameterValue is the value that a command puts in the place of a parameter.
#ifndef FDO_COMMANDS_PARAMETER_VALUE_H_
#define FDO_COMMANDS_PARAMETER_VALUE_H_

#include "Fdo/Commands/ParameterDirection.h"
#include "FdoStd.h"

class FdoLiteralValue;

class FDO_API FdoParameterValue : public FdoIDisposable {
 public:
  // Give: one reference. The value is shared and may be null.
  static FdoParameterValue* Create();
  static FdoParameterValue* Create(FdoString* name);
  static FdoParameterValue* Create(FdoString* name, FdoLiteralValue* value);

  // Without the colon that stands before it in a text.
  FdoString* GetName();
  void SetName(FdoString* value);

  // Gives: one reference, or null. A text is parsed.
  // Errors: the text form throws FdoExpressionException* when it cannot be parsed, FdoCommandException*
  // when it is no literal; the old value stays.
  FdoLiteralValue* GetValue();
  void SetValue(FdoLiteralValue* value);
  void SetValue(FdoString* value);

  // Input, unless set.
  void SetDirection(FdoParameterDirection value);
  FdoParameterDirection GetDirection();

 protected:
  FdoParameterValue();
  ~FdoParameterValue() override;
  void Dispose() override;

 private:
  FdoStringP m_name;
  FdoPtr<FdoLiteralValue> m_value;
  FdoParameterDirection m_direction;
};

typedef FdoPtr<FdoParameterValue> FdoParameterValueP;

#endif  // FDO_COMMANDS_PARAMETER_VALUE_H_
