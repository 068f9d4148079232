#include "sdk/providers/sqlite/date_key.h"

#include "sdk/providers/sqlite/date_text.h"

namespace fdo_sqlite {

std::string DateTextOf(FdoDateTime const& value) {
  char text[kDateTextSize];
  return std::string(text, static_cast<std::size_t>(FormatDateText(value, text)));
}

std::string DateKeyOf(FdoDateTime const& value) {
  std::string text = DateTextOf(value);
  if (value.year > 9999 && !text.empty()) text.insert(text.begin(), ':');
  return text;
}

}  // namespace fdo_sqlite
