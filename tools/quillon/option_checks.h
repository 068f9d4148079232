// What the command line checks of an option before a command sees it.
#ifndef TOOLS_QUILLON_OPTION_CHECKS_H_
#define TOOLS_QUILLON_OPTION_CHECKS_H_

#include <CLI/CLI.hpp>

#include <charconv>
#include <cstdint>
#include <limits>
#include <string>
#include <system_error>

namespace fdo::tool {

inline constexpr std::int64_t kAnyWholeNumber = std::numeric_limits<std::int64_t>::min();

// Of an option: that it is a whole number of 64 bits in decimal digits, and not below least.
inline CLI::Validator WholeNumber(std::int64_t least) {
  auto const complaint = [least](std::string& text) -> std::string {
    std::int64_t number = 0;
    char const* const end = text.data() + text.size();
    auto const read = std::from_chars(text.data(), end, number);
    if (read.ec == std::errc() && read.ptr == end && number >= least) return {};
    std::string const from = least == kAnyWholeNumber ? "" : " from " + std::to_string(least) + " on";
    return '"' + text + "\" is no whole number" + from;
  };
  return {complaint, /*description in the help=*/std::string()};
}

// Of an option that narrows something: an empty text, from a variable of a shell that is not set, would not.
inline CLI::Validator NotEmpty() {
  auto const complaint = [](std::string& text) -> std::string { return text.empty() ? "it is empty" : ""; };
  return {complaint, /*description in the help=*/std::string()};
}

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_OPTION_CHECKS_H_
