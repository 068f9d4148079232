// The default of a column, as the table has it (SQL) and as a property has it: plain text for a String, the
// text of an expression for every other type.
#ifndef SDK_PROVIDERS_SQLITE_DEFAULT_TEXT_H_
#define SDK_PROVIDERS_SQLITE_DEFAULT_TEXT_H_

#include <optional>
#include <string>

#include "Fdo.h"

namespace fdo_sqlite {

// Empty for no default, for NULL, and for what is no literal of that type: such a default works when rows are
// inserted, but a property cannot say it.
std::wstring PropertyDefault(FdoDataType type, std::string const& sql);

// Nothing for a text that is no literal of that type. Requires: text is not empty.
std::optional<std::string> SqlDefault(FdoDataType type, std::wstring const& text);

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_DEFAULT_TEXT_H_
