#include "tools/quillon/date_reading.h"

namespace fdo::tool {

namespace {

// Takes an unsigned number of at most nine digits from the front of the text.
std::optional<int> TakeNumber(std::wstring_view& text) {
  constexpr std::size_t kMostDigits = 9;
  int number = 0;
  std::size_t digits = 0;
  while (digits < text.size() && text[digits] >= L'0' && text[digits] <= L'9') {
    if (digits == kMostDigits) return std::nullopt;
    number = number * 10 + static_cast<int>(text[digits] - L'0');
    ++digits;
  }
  if (digits == 0) return std::nullopt;
  text.remove_prefix(digits);
  return number;
}

bool Take(std::wstring_view& text, std::wstring_view oneOf) {
  if (text.empty() || oneOf.find(text.front()) == std::wstring_view::npos) return false;
  text.remove_prefix(1);
  return true;
}

bool ReadTime(std::wstring_view& text, int hour, DateReading& reading) {
  auto const minute = TakeNumber(text);
  if (!minute) return false;
  reading.hour = hour;
  reading.minute = *minute;
  if (!Take(text, L":")) return true;
  auto const seconds = TakeNumber(text);
  if (!seconds) return false;
  reading.seconds = *seconds;
  if (!Take(text, L".")) return true;
  for (double weight = 0.1; !text.empty() && text.front() >= L'0' && text.front() <= L'9'; weight /= 10) {
    reading.seconds += weight * static_cast<double>(text.front() - L'0');
    text.remove_prefix(1);
  }
  return true;
}

}  // namespace

std::optional<DateReading> ReadDate(std::wstring_view text) {
  DateReading reading;
  auto const first = TakeNumber(text);
  if (!first) return std::nullopt;
  if (Take(text, L":")) return ReadTime(text, *first, reading) ? std::optional(reading) : std::nullopt;

  if (!Take(text, L"-/")) return std::nullopt;
  auto const month = TakeNumber(text);
  if (!month || !Take(text, L"-/")) return std::nullopt;
  auto const day = TakeNumber(text);
  if (!day) return std::nullopt;
  reading.year = *first;
  reading.month = *month;
  reading.day = *day;
  if (text.empty()) return reading;
  if (!Take(text, L"T ")) return std::nullopt;
  auto const hour = TakeNumber(text);
  if (!hour || !Take(text, L":") || !ReadTime(text, *hour, reading)) return std::nullopt;
  return reading;
}

}  // namespace fdo::tool
