// FgfBuilder appends the fields of a geometry stream one after the other.
#ifndef SDK_RUNTIME_GEOMETRY_FGF_BUILDER_H_
#define SDK_RUNTIME_GEOMETRY_FGF_BUILDER_H_

#include <cmath>
#include <cstring>
#include <vector>

#include "sdk/runtime/geometry/fgf_walk.h"

namespace fdo_sdk {

class FgfBuilder {
 public:
  std::size_t Size() const { return bytes_.size(); }
  // Borrowed: until the next change.
  FdoByte const* Data() const { return bytes_.data(); }
  // Keeps the room.
  void Clear() { bytes_.clear(); }

  void Bytes(void const* data, std::size_t size) {
    std::size_t const at = bytes_.size();
    bytes_.resize(at + size);
    if (size > 0) std::memcpy(bytes_.data() + at, data, size);
  }
  void Byte(FdoByte value) { bytes_.push_back(value); }
  void Int32(FdoInt32 value) { Bytes(&value, sizeof(value)); }
  void Uint32(std::uint32_t value) { Bytes(&value, sizeof(value)); }
  void Double(double value) { Bytes(&value, sizeof(value)); }
  void Positions(PositionSpan const& positions) {
    Bytes(positions.data,
          static_cast<std::size_t>(positions.count) * PositionBytes(positions.dimensionality));
  }

  // Writes a field again that was not known when its place came. Requires: at + 4 <= Size().
  void SetInt32(std::size_t at, FdoInt32 value) { std::memcpy(bytes_.data() + at, &value, sizeof(value)); }

  // The same for several fields, and whether they hold that. Requires: at + fields.Size() <= Size().
  void SetBytes(std::size_t at, FgfBuilder const& fields) {
    std::memcpy(bytes_.data() + at, fields.bytes_.data(), fields.Size());
  }
  bool SameBytes(std::size_t at, FgfBuilder const& fields) const {
    return std::memcmp(bytes_.data() + at, fields.bytes_.data(), fields.Size()) == 0;
  }

  // Requires: at + 8 <= Size().
  bool IsNanAt(std::size_t at) const { return std::isnan(Load<double>(bytes_.data() + at)); }

  // Gives: one reference. Errors: throws FdoException* for more bytes than an array holds.
  FdoByteArray* ToArray() const;

 private:
  std::vector<FdoByte> bytes_;
};

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_GEOMETRY_FGF_BUILDER_H_
