#include "ogr_backend/schema_reader.h"

#include <fdo/geometry_stream.h>
#include <fdo/text_conversion.h>

#include <cstring>
#include <string>
#include <vector>

#include "ogr_backend/column_types.h"
#include "values/date_text.h"

namespace fdo::internal {
namespace {

std::wstring NameOr(char const* name, char const* fallback) {
  return ToWide(name == nullptr || *name == '\0' ? fallback : name);
}

std::wstring Wkt(GdalApi const& gdal, OgrSpatialReferenceH srs) {
  char* text = nullptr;
  std::wstring wkt;
  if (gdal.OSRExportToWkt(srs, &text) == kOgrErrNone) wkt = ToWide(text);
  gdal.VSIFree(text);
  return wkt;
}

// The text between single quotes, its doubled quotes undone; false when it is not quoted.
bool Unquote(char const* quoted, std::string& text) {
  std::size_t const length = std::strlen(quoted);
  if (length < 2 || quoted[0] != '\'' || quoted[length - 1] != '\'') return false;
  text.clear();
  for (std::size_t i = 1; i + 1 < length; ++i) {
    text += quoted[i];
    if (quoted[i] == '\'' && i + 2 < length && quoted[i + 1] == '\'') ++i;
  }
  return true;
}

}  // namespace

int GeometryMask(unsigned layerGeometryType) {
  // Z and M, the older 2.5D bit included, do not change the kind.
  unsigned const flat = layerGeometryType & 0x7FFFFFFFu;
  return FgfGeometryTypeMask(flat >= 1000 && flat < 4000 ? flat % 1000 : flat);
}

Value DefaultValueOf(GdalApi const& gdal, OgrFieldDefnH field) {
  char const* const sql = gdal.OGR_Fld_GetDefault(field);
  if (sql == nullptr) return Value();
  std::string unquoted;
  bool const isQuoted = Unquote(sql, unquoted);
  std::wstring const text = ToWide(isQuoted ? unquoted.c_str() : sql);
  switch (ColumnTypeOf(gdal.OGR_Fld_GetType(field))) {
    case ColumnDef::kInt32:
    case ColumnDef::kInt64:
      return Value(static_cast<long long>(static_cast<__int64>(Value(text.c_str()))));
    case ColumnDef::kDouble:
      return Value(static_cast<double>(Value(text.c_str())));
    case ColumnDef::kString:
      return isQuoted ? Value(text.c_str()) : Value();
    case ColumnDef::kDateTime: {
      // GDAL writes 'YYYY/MM/DD HH:MM:SS[.sss]'.
      std::wstring dashed = text;
      for (wchar_t& unit : dashed) unit = unit == L'/' ? L'-' : unit;
      FdoDateTime parsed;
      wchar_t formatted[kDateTextSize];
      if (!isQuoted || !ParseDateTime(dashed.c_str(), parsed)) return Value();
      if (FormatDateTime(parsed, formatted) == 0) return Value();
      return Value(static_cast<wchar_t const*>(formatted));
    }
    default:
      return Value();
  }
}

void ReadTableDef(GdalApi const& gdal, OgrLayerH layer, TableDef& def) {
  OgrFeatureDefnH const definition = gdal.OGR_L_GetLayerDefn(layer);
  std::wstring const name = ToWide(gdal.OGR_FD_GetName(definition));
  int const fieldCount = gdal.OGR_FD_GetFieldCount(definition);

  CoordSys srs;
  OgrSpatialReferenceH const reference = gdal.OGR_L_GetSpatialRef(layer);
  if (reference != nullptr) srs = CoordSys((name + L"_srs").c_str(), L"", Wkt(gdal, reference).c_str());

  std::vector<ColumnDef> columns(static_cast<std::size_t>(kFirstField + fieldCount));
  columns[kIdColumn].Initialize(NameOr(gdal.OGR_L_GetFIDColumn(layer), kFidColumnName).c_str(),
                                ColumnDef::kInt64, 0, Value(), nullptr);
  columns[kGeometryColumn].Initialize(
      NameOr(gdal.OGR_L_GetGeometryColumn(layer), kGeometryColumnName).c_str(), ColumnDef::kGeometry,
      GeometryMask(gdal.OGR_FD_GetGeomType(definition)), Value(), reference == nullptr ? nullptr : &srs);
  for (int i = 0; i < fieldCount; ++i) {
    OgrFieldDefnH const field = gdal.OGR_FD_GetFieldDefn(definition, i);
    columns[static_cast<std::size_t>(kFirstField + i)].Initialize(
        ToWide(gdal.OGR_Fld_GetNameRef(field)).c_str(), ColumnTypeOf(gdal.OGR_Fld_GetType(field)), 0,
        DefaultValueOf(gdal, field), nullptr);
  }
  def.Initialize(nullptr, name.c_str(), columns.data(), kFirstField + fieldCount, kIdColumn, kGeometryColumn,
                 /*tag=*/0);
}

}  // namespace fdo::internal
