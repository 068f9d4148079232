#include "sdk/providers/sqlite/date_key.h"

#include "sdk/providers/sqlite/date_text.h"

namespace fdo_sqlite {

std::string DateTextOf(FdoDateTime const& value) {
  char text[kDateTextSize];
  return std::string(text, static_cast<std::size_t>(FormatDateText(value, text)));
}

std::string DateKeyOf(FdoDateTime const& value) {
  std::string text = DateTextOf(value);
  if (text.empty()) return text;
  if (value.year > 9999) text.insert(text.begin(), ':');
  if (value.year == -1) text.insert(text.begin(), ' ');
  return text;
}

}  // namespace fdo_sqlite
