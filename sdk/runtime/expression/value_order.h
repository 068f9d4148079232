// Compares values of any types, by the rules that FdoDataValue states.
#ifndef SDK_RUNTIME_EXPRESSION_VALUE_ORDER_H_
#define SDK_RUNTIME_EXPRESSION_VALUE_ORDER_H_

#include "Common/Compare.h"

class FdoDataValue;

namespace fdo_sdk {

FdoCompareType CompareValues(FdoDataValue& left, FdoDataValue& right);

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_EXPRESSION_VALUE_ORDER_H_
