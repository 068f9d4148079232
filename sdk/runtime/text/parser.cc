#include "sdk/runtime/text/parser.h"

#include "Fdo/Expression/ExpressionException.h"
#include "Fdo/Filter/FilterException.h"
#include "sdk/runtime/text/grammar.h"
#include "sdk/runtime/text/text_error.h"

namespace fdo_sdk {

FdoFilter* ParseFilter(std::wstring_view text) {
  try {
    return Grammar(text).WholeFilter();
  } catch (TextError const& error) {
    throw FdoFilterException::Create(MessageWithPlace(error).c_str());
  }
}

FdoExpression* ParseExpression(std::wstring_view text) {
  try {
    return Grammar(text).WholeExpression();
  } catch (TextError const& error) {
    throw FdoExpressionException::Create(MessageWithPlace(error).c_str());
  }
}

FdoValueExpression* ParseValue(std::wstring_view text) {
  try {
    return Grammar(text).WholeValue();
  } catch (TextError const& error) {
    throw FdoExpressionException::Create(MessageWithPlace(error).c_str());
  }
}

}  // namespace fdo_sdk
