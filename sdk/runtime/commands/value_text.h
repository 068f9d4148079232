// Values that a program gives a command as text.
#ifndef SDK_RUNTIME_COMMANDS_VALUE_TEXT_H_
#define SDK_RUNTIME_COMMANDS_VALUE_TEXT_H_

#include <string>

#include "Fdo/Commands/CommandException.h"
#include "Fdo/Expression/Expression.h"
#include "Fdo/Expression/LiteralValue.h"
#include "Fdo/Expression/ValueExpression.h"

namespace fdo_sdk {

// Gives: one reference. Errors: FdoExpressionException* for a text that cannot be parsed,
// FdoCommandException* for an expression that is no Value.
template <class Value>
Value* ParseValue(FdoString* text) {
  FdoPtr<FdoExpression> expression = FdoExpression::Parse(text);
  Value* value = dynamic_cast<Value*>(expression.p);
  if (value == nullptr) {
    std::wstring const message = L"\"" + std::wstring(text) + L"\" is not a single value.";
    throw FdoCommandException::Create(message.c_str());
  }
  expression.Detach();
  return value;
}

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_COMMANDS_VALUE_TEXT_H_
