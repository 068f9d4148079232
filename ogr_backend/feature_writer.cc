#include "ogr_backend/feature_writer.h"

#include <fdo/geometry_stream.h>
#include <fdo/text_conversion.h>

#include <cmath>
#include <cstdint>
#include <cwchar>
#include <limits>

#include "ogr_backend/column_types.h"
#include "ogr_backend/geometry_needs.h"
#include "values/date_text.h"

namespace fdo::internal {
namespace {

// The type of a layer: ISO's thousands tell Z and M, and so does the older bit for Z.
class GeometryType {
 public:
  explicit GeometryType(unsigned code) : old25D_((code & 0x80000000u) != 0), code_(code & 0x7FFFFFFFu) {}

  unsigned Flat() const { return code_ % 1000; }
  bool HasZ() const { return old25D_ || code_ / 1000 % 2 == 1; }
  bool HasM() const { return code_ / 1000 >= 2; }

 private:
  bool old25D_;
  unsigned code_;
};

}  // namespace

FeatureWriter::FeatureWriter(GdalApi const& gdal, DriverTraits const& traits, OgrLayerH layer,
                             TableDef const& def)
    : gdal_(gdal), layer_(layer), def_(def), traits_(traits) {
  holdsGeometry_ = gdal_.OGR_FD_GetGeomType(gdal_.OGR_L_GetLayerDefn(layer)) != kWkbNone;
  holdsCurves_ = gdal_.OGR_L_TestCapability(layer, "CurveGeometries") != 0;
  holdsM_ = gdal_.OGR_L_TestCapability(layer, "MeasuredGeometries") != 0 && !traits.losesM;
}

OgrFeatureH FeatureWriter::Write(Row const& row, bool keepNullNumbers, std::string& refusal) {
  OgrFeatureH const feature = gdal_.OGR_F_Create(gdal_.OGR_L_GetLayerDefn(layer_));
  gdal_.OGR_F_SetFID(feature, static_cast<__int64>(row[kIdColumn]));
  if (!WriteGeometry(feature, row[kGeometryColumn], refusal)) {
    gdal_.OGR_F_Destroy(feature);
    return nullptr;
  }
  for (int column = kFirstField; column < def_.ColumnCount(); ++column) {
    constexpr double kTooLong = 1e24;
    bool const isCut = traits_.cutsHugeNumbers && def_[column].Type() == ColumnDef::kDouble &&
                       !(std::abs(static_cast<double>(row[column])) < kTooLong);
    if (isCut) {
      refusal = std::string("the field \"") + def_[column].NameUTF8() + "\" does not hold so large a number";
      gdal_.OGR_F_Destroy(feature);
      return nullptr;
    }
    Value const& cell = row[column];
    if (keepNullNumbers && cell.IsNull()) {
      gdal_.OGR_F_SetFieldNull(feature, column - kFirstField);
    } else {
      WriteField(feature, column - kFirstField, def_[column].Type(), cell);
    }
  }
  return feature;
}

// Whether the first row is to decide the type of the layer.
bool FeatureWriter::IsUndecided() const {
  return traits_.firstRowDecides &&
         GeometryType(gdal_.OGR_FD_GetGeomType(gdal_.OGR_L_GetLayerDefn(layer_))).Flat() == kWkbUnknown;
}

// Why the layer would not keep a row whose geometry is absent or empty; null when it would.
char const* FeatureWriter::RefusalWithoutGeometry() const {
  if (!holdsGeometry_) return nullptr;
  if (traits_.losesRowsWithoutGeometry) return "the format keeps no row without a geometry";
  // It would make a layer that takes no geometry at all.
  return IsUndecided() ? "the first row decides the type of the layer, and it has no geometry" : nullptr;
}

// Why the layer would not give the geometry back; null when it would.
// Requires: the stream is a sound one, which has become WKB.
char const* FeatureWriter::RefusalOf(unsigned char const* fgf, std::size_t length) const {
  bool const holdsAll = holdsCurves_ && holdsM_ && !traits_.losesRowsWithoutGeometry &&
                        !traits_.losesEmptyParts && !traits_.oneDimensionality;
  if (holdsAll) return nullptr;
  GeometryNeeds needs;
  VisitFgf(fgf, fgf + length, needs);
  if (needs.IsEmpty()) {
    if (char const* const reason = RefusalWithoutGeometry()) return reason;
  }
  if (needs.Curves() && !holdsCurves_) return "the format holds no curves";
  if (needs.M() && !holdsM_) return "the format holds no M ordinates";
  if (needs.HasEmptyParts() && traits_.losesEmptyParts)
    return "the format holds no empty parts of geometries";
  if (!traits_.oneDimensionality || needs.IsEmpty()) return nullptr;
  if (IsUndecided()) return nullptr;
  GeometryType const type(gdal_.OGR_FD_GetGeomType(gdal_.OGR_L_GetLayerDefn(layer_)));
  if (type.HasZ() != needs.Z())
    return needs.Z() ? "the layer holds no Z ordinates" : "the layer wants Z ordinates";
  if (type.HasM() != needs.M())
    return needs.M() ? "the layer holds no M ordinates" : "the layer wants M ordinates";
  return nullptr;
}

bool FeatureWriter::WriteGeometry(OgrFeatureH feature, Value const& cell, std::string& refusal) {
  unsigned char const* const fgf = cell.AsBlob();
  int const fgfLength = fgf == nullptr ? 0 : cell.BlobLen();
  if (fgfLength <= 0) {
    if (char const* const reason = RefusalWithoutGeometry()) refusal = reason;
    return refusal.empty();
  }
  if (!holdsGeometry_) {
    refusal = "the layer holds no geometries";
    return false;
  }
  auto const fgfBytes = static_cast<std::size_t>(fgfLength);
  unsigned char* const wkb = wkb_.Reserve(FgfToIsoWkbBound(fgfBytes));
  std::size_t const wkbBytes = FgfToIsoWkb(fgf, fgfBytes, wkb);
  if (wkbBytes == 0 || wkbBytes > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
    refusal = "the geometry cannot be written as WKB";
    return false;
  }
  if (char const* const reason = RefusalOf(fgf, fgfBytes)) {
    refusal = reason;
    return false;
  }
  OgrGeometryH geometry = nullptr;
  int const error = gdal_.OGR_G_CreateFromWkb(wkb, gdal_.OGR_L_GetSpatialRef(layer_), &geometry,
                                              static_cast<int>(wkbBytes));
  if (error != kOgrErrNone || geometry == nullptr) {
    refusal = "GDAL does not take the geometry";
    return false;
  }
  // The feature owns the geometry from here on, also when it does not take it.
  return gdal_.OGR_F_SetGeometryDirectly(feature, geometry) == kOgrErrNone;
}

void FeatureWriter::WriteField(OgrFeatureH feature, int field, ColumnDef::DataType type, Value const& cell) {
  switch (type) {
    case ColumnDef::kInt32:
    case ColumnDef::kInt64:
      gdal_.OGR_F_SetFieldInteger64(feature, field, static_cast<__int64>(cell));
      break;
    case ColumnDef::kDouble:
      gdal_.OGR_F_SetFieldDouble(feature, field, static_cast<double>(cell));
      break;
    case ColumnDef::kString:
      WriteText(feature, field, cell);
      break;
    case ColumnDef::kDateTime:
      WriteDateTime(feature, field, cell);
      break;
    case ColumnDef::kBlob:
      if (unsigned char const* const bytes = cell.AsBlob()) {
        gdal_.OGR_F_SetFieldBinary(feature, field, cell.BlobLen(), bytes);
      } else {
        gdal_.OGR_F_SetFieldNull(feature, field);
      }
      break;
    default:
      break;  // a list column is carried, but never written
  }
}

void FeatureWriter::WriteText(OgrFeatureH feature, int field, Value const& cell) {
  wchar_t const* const text = cell;
  std::size_t const length = text == nullptr ? 0 : std::wcslen(text);
  // Six bytes for each character at most: a character above U+FFFF is two sequences of three.
  std::size_t const room = length * 6 + 1;
  if (text == nullptr || room > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
    gdal_.OGR_F_SetFieldNull(feature, field);
    return;
  }
  auto* const narrow = reinterpret_cast<char*>(text_.Reserve(room));
  WideToUtf8(text, static_cast<int>(length * sizeof(wchar_t)), narrow, static_cast<int>(room));
  gdal_.OGR_F_SetFieldString(feature, field, narrow);
}

void FeatureWriter::WriteDateTime(OgrFeatureH feature, int field, Value const& cell) {
  constexpr int kNoTimeZone = 0;
  FdoDateTime value;
  if (!ParseDateTime(cell, value)) {
    gdal_.OGR_F_SetFieldNull(feature, field);
    return;
  }
  // An absent part (-1) is one that the field's type has no place for, or that is zero there.
  auto const part = [](int number) { return number < 0 ? 0 : number; };
  gdal_.OGR_F_SetFieldDateTimeEx(feature, field, part(value.year), part(value.month), part(value.day),
                                 part(value.hour), part(value.minute), value.seconds, kNoTimeZone);
}

}  // namespace fdo::internal
