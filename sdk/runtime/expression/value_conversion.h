// Makes a value of one type from a value of another, by the rules that FdoDataValue states.
#ifndef SDK_RUNTIME_EXPRESSION_VALUE_CONVERSION_H_
#define SDK_RUNTIME_EXPRESSION_VALUE_CONVERSION_H_

#include "Fdo/Expression/DataValue.h"

namespace fdo_sdk {

struct ConversionRules {
  bool nullIfIncompatible = false;
  bool shift = true;
  bool truncate = false;
};

// Gives: one reference to a new value of that type; a null one for a null source or no source.
// Errors: throws FdoExpressionException*.
FdoDataValue* ConvertValue(FdoDataType type, FdoDataValue* source, ConversionRules const& rules);

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_EXPRESSION_VALUE_CONVERSION_H_
