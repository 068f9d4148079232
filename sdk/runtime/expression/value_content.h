// What a data value holds, apart from the width of its type.
#ifndef SDK_RUNTIME_EXPRESSION_VALUE_CONTENT_H_
#define SDK_RUNTIME_EXPRESSION_VALUE_CONTENT_H_

#include <string>
#include <variant>

#include "Fdo/Expression/DataValue.h"

namespace fdo_sdk {

// Nothing for a null value. A Boolean is an integer, 1 for true.
using ValueContent =
    std::variant<std::monostate, FdoInt64, double, std::wstring, FdoDateTime, FdoPtr<FdoByteArray>>;

ValueContent ContentOf(FdoDataValue& value);

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_EXPRESSION_VALUE_CONTENT_H_
