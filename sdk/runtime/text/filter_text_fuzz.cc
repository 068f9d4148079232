// Filter text from anywhere: it is refused, or it becomes a tree whose own text is the same tree.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "Fdo.h"
#include "sdk/runtime/text/tree_shape.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  std::string const bytes(reinterpret_cast<char const*>(data), size);
  FdoStringP const text(bytes.c_str());
  FdoPtr<FdoFilter> tree;
  try {
    tree = FdoFilter::Parse(text);
  } catch (FdoFilterException* caught) {
    FdoPtr<FdoException> failure(caught);
    if (failure->GetExceptionMessage() == nullptr) std::abort();
    return 0;
  }
  std::wstring const written = tree->ToString();
  FdoPtr<FdoFilter> again = FdoFilter::Parse(written.c_str());
  if (written != again->ToString() || fdo_sdk::ShapeOf(tree) != fdo_sdk::ShapeOf(again)) std::abort();
  return 0;
}
