// Reads any text as a date-time, and what was read must survive being written and read again.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cwchar>
#include <string>

#include "values/date_text.h"

namespace {

void Require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  // Latin letters, so that a corpus can be read; the parser knows no others anyway.
  std::wstring const text(data, data + size);
  FdoDateTime first;
  if (!fdo::internal::ParseDateTime(text.c_str(), first)) return 0;

  wchar_t written[fdo::internal::kDateTextSize];
  int const length = fdo::internal::FormatDateTime(first, written);
  Require(length >= 0 && static_cast<std::size_t>(length) == std::wcslen(written));
  Require((length == 0) == (first.year == -1 && first.hour == -1));

  // A minus makes a time look like a date, and neither infinities nor cut texts come back.
  bool const plain = first.year >= -1 && first.month >= 0 && first.day >= 0 && first.hour >= -1 &&
                     first.minute >= 0 && first.seconds >= 0.0f && first.seconds < 1e6f;
  bool const complete = first.year != -1 || first.hour != -1;
  if (!plain || !complete) return 0;
  FdoDateTime second;
  Require(fdo::internal::ParseDateTime(written, second));
  Require(first.year == second.year && first.hour == second.hour);
  if (first.year != -1) Require(first.month == second.month && first.day == second.day);
  if (first.hour != -1) Require(first.minute == second.minute && second.seconds - first.seconds < 0.07f);
  return 0;
}
