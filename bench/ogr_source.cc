#include "bench/ogr_source.h"

#include <stdexcept>

namespace fdo::bench {

OgrSource::OgrSource(std::filesystem::path const& path) {
  constexpr bool kReadOnly = true;
  constexpr bool kLoadSchema = true;
  if (!database_.Connect(path.wstring().c_str(), nullptr, nullptr, kReadOnly, kLoadSchema) ||
      database_.Count() == 0) {
    throw std::runtime_error("the library does not open " + path.string());
  }
}

}  // namespace fdo::bench
