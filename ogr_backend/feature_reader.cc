#include "ogr_backend/feature_reader.h"

#include <fdo/geometry_stream.h>
#include <fdo/text_conversion.h>

#include <algorithm>
#include <cstring>
#include <limits>

#include "geometry/unaligned.h"
#include "geometry/wkb_layout.h"
#include "ogr_backend/column_types.h"
#include "values/date_text.h"

namespace fdo::internal {
namespace {

constexpr auto kLongestCell = static_cast<std::size_t>(std::numeric_limits<int>::max());

// The marks that GDAL leaves in all three words of a field without a value.
constexpr int kUnsetMark = -21121;
constexpr int kNullMark = -21122;

bool HasValue(OgrField const& field) {
  int const mark = field.set.marker1;
  if (mark != kUnsetMark && mark != kNullMark) return true;
  return field.set.marker2 != mark || field.set.marker3 != mark;
}

void ReadInteger32(FeatureReader::FieldCell& cell, OgrField const& field) {
  cell.value->Reset(field.integer);
}

void ReadInteger64(FeatureReader::FieldCell& cell, OgrField const& field) {
  cell.value->Reset(static_cast<long long>(field.integer64));
}

void ReadDouble(FeatureReader::FieldCell& cell, OgrField const& field) { cell.value->Reset(field.real); }

void ReadText(FeatureReader::FieldCell& cell, OgrField const& field) {
  char const* const text = field.string == nullptr ? "" : field.string;
  // One character for each byte, at most. Longer text than an int counts is beyond any driver's limit.
  std::size_t const length = std::strlen(text);
  std::size_t const room = (length + 1) * sizeof(wchar_t);
  if (room > kLongestCell) return cell.value->Reset();
  auto* wide = reinterpret_cast<wchar_t*>(cell.buffer.Reserve(room));
  Utf8ToWide(text, static_cast<int>(length), wide, static_cast<int>(room));
  cell.value->Reset(wide, /*copy=*/false);
}

void ReadDateTime(FeatureReader::FieldCell& cell, OgrField const& field) {
  using Text = wchar_t[kDateTextSize];
  Text& text = *reinterpret_cast<Text*>(cell.buffer.Reserve(sizeof(Text)));
  FdoDateTime value;
  value.year = field.date.year;
  value.month = static_cast<FdoInt8>(field.date.month);
  value.day = static_cast<FdoInt8>(field.date.day);
  value.hour = static_cast<FdoInt8>(field.date.hour);
  value.minute = static_cast<FdoInt8>(field.date.minute);
  value.seconds = field.date.second;
  if (FormatDateTime(value, text) == 0) return cell.value->Reset();
  cell.value->Reset(static_cast<wchar_t const*>(text), /*copy=*/false);
}

void ReadBytes(FeatureReader::FieldCell& cell, OgrField const& field) {
  auto const length = static_cast<std::size_t>(std::max(field.binary.count, 0));
  unsigned char* const bytes = cell.buffer.Reserve(std::max<std::size_t>(length, 1));
  if (length > 0) std::memcpy(bytes, field.binary.data, length);
  cell.value->Reset(static_cast<void const*>(bytes), static_cast<int>(length), /*copy=*/false);
}

struct TypeReader {
  ColumnDef::DataType type;
  FeatureReader::ReadField read;
};

// Int32 columns stand for OFTInteger alone, Int64 for OFTInteger64, and so on: a column's type says
// which member of the field holds the value.
constexpr TypeReader kTypeReaders[] = {
    {ColumnDef::kInt32, ReadInteger32},   {ColumnDef::kInt64, ReadInteger64},
    {ColumnDef::kDouble, ReadDouble},     {ColumnDef::kString, ReadText},
    {ColumnDef::kDateTime, ReadDateTime}, {ColumnDef::kBlob, ReadBytes},
};

FeatureReader::ReadField ReaderFor(ColumnDef::DataType type) {
  for (TypeReader const& reader : kTypeReaders) {
    if (reader.type == type) return reader.read;
  }
  return [](FeatureReader::FieldCell& cell, OgrField const&) { cell.value->Reset(); };
}

// A point, a line string and a polygon are the same bytes in WKB and FGF but for the head: byte order
// and type code in one, type and dimensionality in the other.
constexpr std::size_t kFgfHeadBytes = 8;
constexpr std::size_t kHeadDifference = kFgfHeadBytes - kWkbHeaderBytes;

// Makes such a geometry FGF where it lies, beginning kHeadDifference before the WKB.
// Gives: false, with nothing changed, for any other type.
// Requires: little-endian ISO WKB with kHeadDifference bytes before it.
bool ReplaceHead(unsigned char* wkb, std::size_t length) {
  if (length < kWkbHeaderBytes) return false;
  auto const code = Load<std::uint32_t>(wkb + 1);
  std::uint32_t const type = code % kIsoDimensionality;
  std::uint32_t const dimensionality = code / kIsoDimensionality;
  if (type < kFgfPoint || type > kFgfPolygon || dimensionality > (kDimensionalityZ | kDimensionalityM)) {
    return false;
  }
  Store(wkb - kHeadDifference, type);
  Store(wkb - kHeadDifference + sizeof(type), dimensionality);
  return true;
}

}  // namespace

void CellBuffer::Grow(std::size_t bytes) {
  std::size_t const capacity = std::max(bytes, capacity_ + capacity_ / 2);
  memory_.reset(new unsigned char[capacity]);
  capacity_ = capacity;
}

FeatureReader::FeatureReader(GdalApi const& gdal, Row& row) : gdal_(gdal), row_(row) {
  SetColumns(std::vector<bool>(static_cast<std::size_t>(row.Def()->ColumnCount()), true));
}

void FeatureReader::SetColumns(std::vector<bool> const& wanted) {
  row_.Invalidate();
  TableDef const& def = *row_.Def();
  id_ = wanted[kIdColumn] ? &row_[kIdColumn] : nullptr;
  geometry_ = wanted[kGeometryColumn] ? &row_[kGeometryColumn] : nullptr;
  fields_.clear();
  for (int column = kFirstField; column < def.ColumnCount(); ++column) {
    if (!wanted[static_cast<std::size_t>(column)]) continue;
    fields_.push_back({column - kFirstField, &row_[column], ReaderFor(def[column].Type()), CellBuffer()});
  }
}

void FeatureReader::Read(OgrFeatureH feature) {
  if (id_ != nullptr) id_->Reset(static_cast<long long>(gdal_.OGR_F_GetFID(feature)));
  if (geometry_ != nullptr) ReadGeometry(feature);
  for (FieldCell& cell : fields_) {
    OgrField const* const field = gdal_.OGR_F_GetRawFieldRef(feature, cell.field);
    if (field != nullptr && HasValue(*field)) {
      cell.read(cell, *field);
    } else {
      cell.value->Reset();
    }
  }
}

void FeatureReader::ReadGeometry(OgrFeatureH feature) {
  OgrGeometryH const geometry = gdal_.OGR_F_GetGeometryRef(feature);
  int const wkbLength = geometry == nullptr ? 0 : gdal_.OGR_G_WkbSize(geometry);
  if (wkbLength <= 0) return geometry_->Reset();
  auto const wkbBytes = static_cast<std::size_t>(wkbLength);
  unsigned char* const wkb = wkb_.Reserve(wkbBytes + kHeadDifference) + kHeadDifference;
  if (gdal_.OGR_G_ExportToIsoWkb(geometry, kWkbLittleEndian, wkb) != kOgrErrNone) return geometry_->Reset();
  if (wkbBytes + kHeadDifference <= kLongestCell && ReplaceHead(wkb, wkbBytes)) {
    geometry_->Reset(static_cast<void const*>(wkb - kHeadDifference),
                     static_cast<int>(wkbBytes + kHeadDifference), /*copy=*/false);
    return;
  }
  unsigned char* const fgf = fgf_.Reserve(IsoWkbToFgfBound(wkbBytes));
  std::size_t const fgfBytes = IsoWkbToFgf(wkb, wkbBytes, fgf);
  if (fgfBytes == 0 || fgfBytes > kLongestCell) return geometry_->Reset();
  geometry_->Reset(static_cast<void const*>(fgf), static_cast<int>(fgfBytes), /*copy=*/false);
}

}  // namespace fdo::internal
