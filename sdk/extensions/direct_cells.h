// What a reader may offer beside the published interface: a property's value in one call. A program asks a
// reader for it with dynamic_cast, and reads with the published operations where there is none.
#ifndef SDK_EXTENSIONS_DIRECT_CELLS_H_
#define SDK_EXTENSIONS_DIRECT_CELLS_H_

#include <FdoCommon.h>

#include <cstdint>

namespace fdo_sdk {

// Where a geometry is asked for, in the place of a FdoDataType.
inline constexpr FdoInt32 kDirectGeometry = -1;

// What a DirectCell has; kNone: nothing.
enum class DirectKind { kNone, kNull, kFlag, kInteger, kReal, kText, kMoment, kBytes };

// Borrowed: text and bytes until the reader moves or closes, a moment until the next value is read.
struct DirectCell {
  union {
    bool flag;
    std::int64_t integer;
    double real;
    FdoString* text;
    FdoDateTime const* moment;
    FdoByte const* bytes;  // of FGF
  };
  FdoInt32 size;  // of the bytes
};

class DirectCells {
 public:
  // What IsNull and then the getter of that type give for the property in that place of the current row; the
  // getter of a Decimal is GetDouble, that of a geometry the one that lends its bytes.
  // Gives: kNone where the caller is to ask IsNull and the getter, which know a value, or a failure, that
  //   this does not.
  // Errors: what IsNull throws.
  virtual DirectKind ReadCell(FdoInt32 index, FdoInt32 type, DirectCell& cell) = 0;

 protected:
  DirectCells() = default;
  ~DirectCells() = default;
};

}  // namespace fdo_sdk

#endif  // SDK_EXTENSIONS_DIRECT_CELLS_H_
