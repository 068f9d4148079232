// Text, dates, and the choice between arguments.
#include <chrono>
#include <string>

#include "expr/functions.h"
#include "values/date_text.h"

namespace fdo::internal {
namespace {

// Takes the count and all arguments but the last off and leaves result in that one's place; where there is
// no argument, in that of the count.
// Requires: result is not borrowed from what is taken off.
void LeaveInLastArgument(Value*& top, long long count, Value&& result) {
  for (; count > 0; --count) {
    top->Reset();
    --top;
  }
  *top = std::move(result);
}

}  // namespace

void ToText(Value*& top) {
  if (top->Type() == Value::kString) return;
  Value text;
  text.Reset(static_cast<wchar_t const*>(*top), /*copy=*/true);
  *top = std::move(text);
}

void CurrentDate(Value*& top) {
  std::chrono::year_month_day const today(
      std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now()));
  FdoDateTime const date(static_cast<FdoInt16>(static_cast<int>(today.year())),
                         static_cast<FdoInt8>(static_cast<unsigned>(today.month())),
                         static_cast<FdoInt8>(static_cast<unsigned>(today.day())));
  wchar_t text[kDateTextSize];
  FormatDateTime(date, text);
  ++top;
  top->Reset(text, /*copy=*/true);
}

void Concatenate(Value*& top) {
  long long const count = static_cast<__int64>(*top);
  std::wstring all;
  for (long long i = 1; i <= count; ++i) {
    wchar_t const* const text = static_cast<wchar_t const*>(top[-i]);
    if (text != nullptr) all += text;
  }
  Value result;
  result.Reset(all.c_str(), /*copy=*/true);
  LeaveInLastArgument(top, count, std::move(result));
}

void If(Value*& top) {
  Value chosen(top->AsBool() ? top[-1] : top[-2]);
  top->Reset();
  (--top)->Reset();
  --top;
  *top = std::move(chosen);
}

void Lookup(Value*& top) {
  long long const count = static_cast<__int64>(*top);
  auto const argument = [&](long long position) -> Value const& { return top[-position]; };
  Value const* selected = count >= 2 ? &argument(2) : nullptr;
  for (long long key = 3; key < count; key += 2) {
    if (argument(1) == argument(key)) {
      selected = &argument(key + 1);
      break;
    }
  }
  Value result;
  if (selected != nullptr) result.CopyFrom(*selected);
  LeaveInLastArgument(top, count, std::move(result));
}

}  // namespace fdo::internal
