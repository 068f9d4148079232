// A StoredGeometry turns the geometry values of one column into FGF, and FGF into such values.
#ifndef SDK_PROVIDERS_SQLITE_STORED_GEOMETRY_H_
#define SDK_PROVIDERS_SQLITE_STORED_GEOMETRY_H_

#include <sqlite3.h>

#include <cstddef>

#include "sdk/providers/sqlite/geometry_format.h"
#include "sdk/runtime/geometry/fgf_box.h"
#include "sdk/runtime/geometry/fgf_builder.h"

namespace fdo_sqlite {

// Bytes that belong to somebody else. No data is a null geometry.
struct GeometryBytes {
  FdoByte const* data = nullptr;
  std::size_t size = 0;

  bool IsNull() const { return data == nullptr; }
};

// What is stored is never trusted: a value that is not in the column's format, or not whole, is a null
// geometry and never another one. So are NULL, an empty blob and an empty text. Bytes behind a complete
// geometry are ignored. FGF and WKB must be blobs and WKT must be text.
// Threads: one at a time; it keeps one buffer.
class StoredGeometry {
 public:
  explicit StoredGeometry(GeometryFormat format) : format_(format) {}

  GeometryFormat Format() const { return format_; }

  // Whether values are bound as text, not as blobs.
  bool IsText() const { return format_ == GeometryFormat::kWkt; }

  // The FGF of a value. Stored FGF is not copied.
  // Borrowed: until the next call, or as long as the value where it is FGF already.
  GeometryBytes Fgf(sqlite3_value* value);
  GeometryBytes Fgf(void const* stored, std::size_t size);

  // Measures X and Y, with the true extent of arcs; makes no FGF where the format can be measured itself.
  // Errors: false for a null geometry, and for one without any position.
  bool Box(sqlite3_value* value, fdo_sdk::FgfBox& box);
  bool Box(void const* stored, std::size_t size, fdo_sdk::FgfBox& box);

  // What to store for an FGF geometry: its bytes alone, or little-endian ISO WKB, each part of which says its
  // own ordinates, or the text of stored_wkt.h in UTF-8.
  // Borrowed: until the next call; FGF is not copied.
  // Errors: FdoException* for a stream that is not whole, or that the format cannot say.
  GeometryBytes Store(FdoByte const* fgf, std::size_t size);

 private:
  GeometryFormat format_;
  fdo_sdk::FgfBuilder buffer_;
};

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_STORED_GEOMETRY_H_
