#include "expr/function_table.h"

#include <array>

#include "values/number_text.h"

namespace fdo::internal {
namespace {

constexpr std::array<FunctionInfo const*, kFunctionNumbers> kByNumber = [] {
  std::array<FunctionInfo const*, kFunctionNumbers> byNumber{};
  for (FunctionInfo const& info : kFunctions) {
    FunctionInfo const*& place = byNumber[static_cast<std::size_t>(info.number)];
    if (place == nullptr) place = &info;
  }
  return byNumber;
}();

}  // namespace

FunctionInfo const* FindFunction(long long number) {
  return number >= 0 && number < kFunctionNumbers ? kByNumber[static_cast<std::size_t>(number)] : nullptr;
}

FunctionInfo const* FindFunction(wchar_t const* name) {
  if (name == nullptr) return nullptr;
  for (FunctionInfo const& info : kFunctions) {
    if (info.name != nullptr && EqualIgnoringCase(info.name, name)) return &info;
  }
  return nullptr;
}

}  // namespace fdo::internal
