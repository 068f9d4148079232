// FdoPropertyValue is a property with the value that an insert or update gives it.
#ifndef FDO_COMMANDS_PROPERTY_VALUE_H_
#define FDO_COMMANDS_PROPERTY_VALUE_H_

#include "FdoStd.h"

class FdoIStreamReader;
class FdoIdentifier;
class FdoValueExpression;

// Owns: a reference to everything that it is given. Every part may be null.
class FDO_API FdoPropertyValue : public FdoIDisposable {
 public:
  // Give: one reference.
  static FdoPropertyValue* Create();
  static FdoPropertyValue* Create(FdoIdentifier* name, FdoValueExpression* value);
  static FdoPropertyValue* Create(FdoString* name, FdoValueExpression* value);

  // Gives: one reference, or null. A text becomes an identifier.
  FdoIdentifier* GetName();
  void SetName(FdoIdentifier* value);
  void SetName(FdoString* value);

  // Gives: one reference, or null. A text is parsed.
  // Errors: the text form throws FdoExpressionException* when it cannot be parsed, FdoCommandException*
  // when it is no value; the old value stays.
  FdoValueExpression* GetValue();
  void SetValue(FdoValueExpression* value);
  void SetValue(FdoString* value);

  // Where a large value is read from instead. Gives: one reference, or null.
  void SetStreamReader(FdoIStreamReader* stream);
  FdoIStreamReader* GetStreamReader();

 protected:
  FdoPropertyValue();
  ~FdoPropertyValue() override;
  void Dispose() override;

 private:
  FdoPtr<FdoIdentifier> m_name;
  FdoPtr<FdoValueExpression> m_value;
  FdoPtr<FdoIStreamReader> m_streamReader;
};

typedef FdoPtr<FdoPropertyValue> FdoPropertyValueP;

#endif  // FDO_COMMANDS_PROPERTY_VALUE_H_
