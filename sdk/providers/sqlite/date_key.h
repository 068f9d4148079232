// A date key is the text as which a date-time compares with others: that of date_text.h, with a blank before
// times that have no date, and a colon before years of five digits, because the one sorts before every digit
// and the other behind. So times come first, and a date comes before every time of its day.
#ifndef SDK_PROVIDERS_SQLITE_DATE_KEY_H_
#define SDK_PROVIDERS_SQLITE_DATE_KEY_H_

#include <string>

#include "FdoCommon.h"

namespace fdo_sqlite {

// Errors: empty for what is no date or time.
std::string DateTextOf(FdoDateTime const& value);
std::string DateKeyOf(FdoDateTime const& value);

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_DATE_KEY_H_
