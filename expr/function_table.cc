#include "expr/function_table.h"

#include <array>
#include <iterator>

#include "values/number_text.h"

namespace fdo::internal {
namespace {

// The place of each number in the table; -1 for one that is not there. Pointers would not be constant to g++
// where it instruments for undefined behaviour.
constexpr std::array<int, kFunctionNumbers> kPlaceOfNumber = [] {
  std::array<int, kFunctionNumbers> places{};
  places.fill(-1);
  for (int i = 0; i < static_cast<int>(std::size(kFunctions)); ++i) {
    int& place = places[static_cast<std::size_t>(kFunctions[i].number)];
    if (place < 0) place = i;
  }
  return places;
}();

}  // namespace

FunctionInfo const* FindFunction(long long number) {
  if (number < 0 || number >= kFunctionNumbers) return nullptr;
  int const place = kPlaceOfNumber[static_cast<std::size_t>(number)];
  return place < 0 ? nullptr : &kFunctions[place];
}

FunctionInfo const* FindFunction(wchar_t const* name) {
  if (name == nullptr) return nullptr;
  for (FunctionInfo const& info : kFunctions) {
    if (info.name != nullptr && EqualIgnoringCase(info.name, name)) return &info;
  }
  return nullptr;
}

}  // namespace fdo::internal
