#include "fdo_backend/date_texts.h"

#include <string>

#include "values/date_text.h"

namespace fdo::internal {

DateTexts::Text& DateTexts::TextOf(int column) {
  for (Text& text : texts_) {
    if (text.column == column) return text;
  }
  return texts_.emplace_back(Text{column, Value()});
}

void DateTexts::Write(FdoDateTime const& moment, int column, Value& cell) {
  Text& text = TextOf(column);
  TakeBack(text, cell);
  if (text.kept.IsNull()) {
    text.kept.Reset(std::wstring(kDateTextSize - 1, L' ').c_str(), /*copy=*/true);
    text.address = text.kept;
  }
  if (text.address == nullptr) {
    text.kept.Reset();
    return cell.Reset();
  }
  // Of these characters this class is the only owner, through the value that it keeps.
  auto* const room = const_cast<wchar_t*>(text.address);
  if (FormatDateTime(moment, *reinterpret_cast<wchar_t(*)[kDateTextSize]>(room)) > 0) {
    cell = std::move(text.kept);
  } else {
    cell.Reset();
  }
}

}  // namespace fdo::internal
