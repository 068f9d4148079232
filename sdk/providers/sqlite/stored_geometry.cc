#include "sdk/providers/sqlite/stored_geometry.h"

#include <string_view>

#include "sdk/providers/sqlite/stored_wkt.h"
#include "sdk/runtime/geometry/fgf_scan.h"
#include "sdk/runtime/geometry/wkb_reader.h"
#include "sdk/runtime/geometry/wkb_writer.h"

namespace fdo_sqlite {

using fdo_sdk::FgfBox;
using fdo_sdk::FgfBuilder;
using fdo_sdk::FgfCursor;
using fdo_sdk::FgfSink;
using fdo_sdk::FgfWalk;

namespace {

// Size of the geometry at the front of the bytes, all of it checked. Errors: throws ThrowInvalidFgf().
std::size_t FgfSize(FdoByte const* fgf, std::size_t size) {
  FgfCursor in(fgf, size);
  FgfSink nothing;
  FgfWalk<FgfSink>(in, nothing).Geometry();
  return size - in.Left();
}

// What the stream routines throw for a stream they cannot read is a result here.
template <class Result, class Body>
Result UnlessUnreadable(Result unreadable, Body body) {
  try {
    return body();
  } catch (FdoException* raised) {
    FdoPtr<FdoException> released(raised);
    return unreadable;
  }
}

// The bytes of a value of the format's kind.
GeometryBytes BytesOf(sqlite3_value* value, bool isText) {
  if (sqlite3_value_type(value) != (isText ? SQLITE_TEXT : SQLITE_BLOB)) return {};
  void const* const data = isText ? sqlite3_value_text(value) : sqlite3_value_blob(value);
  return {static_cast<FdoByte const*>(data), static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

std::string_view TextOf(void const* stored, std::size_t size) {
  return {static_cast<char const*>(stored), size};
}

}  // namespace

GeometryBytes StoredGeometry::Fgf(sqlite3_value* value) {
  GeometryBytes const bytes = BytesOf(value, IsText());
  return Fgf(bytes.data, bytes.size);
}

GeometryBytes StoredGeometry::Fgf(void const* stored, std::size_t size) {
  if (stored == nullptr || size == 0) return {};
  auto const* const bytes = static_cast<FdoByte const*>(stored);
  return UnlessUnreadable(GeometryBytes{}, [&]() -> GeometryBytes {
    switch (format_) {
      case GeometryFormat::kFgf:
        if (fdo_sdk::IsPointXy(bytes, size)) return {bytes, fdo_sdk::kPointXyBytes};
        return {bytes, FgfSize(bytes, size)};
      case GeometryFormat::kWkb:
        buffer_.Clear();
        fdo_sdk::ReadWkb(bytes, size, buffer_);
        return {buffer_.Data(), buffer_.Size()};
      case GeometryFormat::kWkt:
        buffer_.Clear();
        if (!ReadWkt(TextOf(stored, size), buffer_)) return {};
        return {buffer_.Data(), buffer_.Size()};
      case GeometryFormat::kUnsupported:
        break;
    }
    return {};
  });
}

bool StoredGeometry::Box(sqlite3_value* value, FgfBox& box) {
  GeometryBytes const bytes = BytesOf(value, IsText());
  return Box(bytes.data, bytes.size, box);
}

bool StoredGeometry::Box(void const* stored, std::size_t size, FgfBox& box) {
  if (stored == nullptr || size == 0) return false;
  auto const* const bytes = static_cast<FdoByte const*>(stored);
  return UnlessUnreadable(false, [&] {
    switch (format_) {
      case GeometryFormat::kFgf:
        box = fdo_sdk::IsPointXy(bytes, size) ? fdo_sdk::ScanPointXy(bytes).box
                                              : fdo_sdk::ScanFgf(bytes, size).box;
        break;
      case GeometryFormat::kWkb:
        box = fdo_sdk::MeasureWkb(bytes, size);
        break;
      case GeometryFormat::kWkt: {
        GeometryBytes const fgf = Fgf(stored, size);
        if (fgf.IsNull()) return false;
        box = fdo_sdk::ScanFgf(fgf.data, fgf.size).box;
        break;
      }
      case GeometryFormat::kUnsupported:
        return false;
    }
    return !box.IsEmpty();
  });
}

GeometryBytes StoredGeometry::Store(FdoByte const* fgf, std::size_t size) {
  if (fgf == nullptr) fdo_sdk::ThrowInvalidFgf();
  switch (format_) {
    case GeometryFormat::kFgf:
      if (fdo_sdk::IsPointXy(fgf, size)) return {fgf, fdo_sdk::kPointXyBytes};
      return {fgf, FgfSize(fgf, size)};
    case GeometryFormat::kWkb:
      buffer_.Clear();
      fdo_sdk::WriteWkb(fgf, size, buffer_);
      return {buffer_.Data(), buffer_.Size()};
    case GeometryFormat::kWkt:
      buffer_.Clear();
      WriteWkt(fgf, size, buffer_);
      return {buffer_.Data(), buffer_.Size()};
    case GeometryFormat::kUnsupported:
      break;
  }
  fdo_sdk::ThrowFailure(L"The format of the geometry column is not supported.");
}

}  // namespace fdo_sqlite
