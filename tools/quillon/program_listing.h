// The program of an expression in JSON.
#ifndef TOOLS_QUILLON_PROGRAM_LISTING_H_
#define TOOLS_QUILLON_PROGRAM_LISTING_H_

#include <string_view>

#include "tools/quillon/json_text.h"

namespace fdo::tool {

// The array "program", a text for each line of ExprEval::Listing.
// Requires: an object has been begun
inline void AddProgram(JsonDocument& json, std::wstring_view listing) {
  json.BeginArray("program");
  for (std::size_t end; (end = listing.find(L'\n')) != listing.npos; listing.remove_prefix(end + 1)) {
    json.Text({}, listing.substr(0, end));
  }
  json.EndArray();
}

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_PROGRAM_LISTING_H_
