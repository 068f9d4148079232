#include "ogr_backend/source_creator.h"

#include <fdo/text_conversion.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <vector>

#include "ogr_backend/column_types.h"
#include "ogr_backend/schema_reader.h"
#include "values/number_text.h"

namespace fdo::internal {
namespace {

namespace fs = std::filesystem;

char const kCreateDataset[] = "DCAP_CREATE";
char const kVector[] = "DCAP_VECTOR";
char const kRaster[] = "DCAP_RASTER";
char const kExtensions[] = "DMD_EXTENSIONS";

// What a driver is told about a layer beyond what the interface has arguments for. %id and %geometry
// stand for the names of the two columns; an option for a column that is absent, or that has only the
// name that is shown where a format has none, is left out.
struct LayerOption {
  char const* driver;
  char const* name;
  char const* value;
};

constexpr LayerOption kLayerOptions[] = {
    {"GPKG", "FID", "%id"},
    {"GPKG", "GEOMETRY_NAME", "%geometry"},
    {"SQLite", "FID", "%id"},
    {"SQLite", "GEOMETRY_NAME", "%geometry"},
    {"SQLite", "LAUNDER", "NO"},  // names stay as they are
    {"PostgreSQL", "FID", "%id"},
    {"PostgreSQL", "GEOMETRY_NAME", "%geometry"},
    {"PostgreSQL", "LAUNDER", "NO"},
    {"ESRI Shapefile", "ENCODING", "UTF-8"},
    {"GeoJSON", "SIGNIFICANT_FIGURES", "17"},  // as many as tell any two doubles apart
    {"GeoJSONSeq", "SIGNIFICANT_FIGURES", "17"},
    {"CSV", "CREATE_CSVT", "YES"},  // otherwise every column reads back as text
    {"CSV", "GEOMETRY", "AS_WKT"},
};

// Files that a format keeps beside the one that is named, and would overwrite.
struct Companion {
  char const* driver;
  char const* extension;
};

constexpr Companion kCompanions[] = {
    {"ESRI Shapefile", ".shx"}, {"ESRI Shapefile", ".dbf"}, {"ESRI Shapefile", ".prj"},
    {"ESRI Shapefile", ".cpg"}, {"CSV", ".csvt"},           {"MapInfo File", ".dat"},
    {"MapInfo File", ".map"},   {"MapInfo File", ".id"},    {"MapInfo File", ".mid"},
};

fs::path PathOf(std::string const& utf8) { return fs::path(std::u8string(utf8.begin(), utf8.end())); }

// The path, or a file that would be overwritten with it; "" when there is none.
std::string FirstExisting(std::string const& path, char const* driver) {
  std::error_code ignored;
  if (fs::exists(PathOf(path), ignored)) return path;
  for (Companion const& companion : kCompanions) {
    if (std::strcmp(companion.driver, driver) != 0) continue;
    fs::path const beside = PathOf(path).replace_extension(companion.extension);
    std::u8string const name = beside.u8string();
    if (fs::exists(beside, ignored)) return std::string(name.begin(), name.end());
  }
  return "";
}

bool HasCapability(GdalApi const& gdal, GdalDriverH driver, char const* capability) {
  char const* const value = gdal.GDALGetMetadataItem(driver, capability, nullptr);
  return value != nullptr && std::strcmp(value, "YES") == 0;
}

bool IsInteger(ColumnDef const& column) {
  return column.Type() == ColumnDef::kInt16 || column.Type() == ColumnDef::kInt32 ||
         column.Type() == ColumnDef::kInt64;
}

// Whether the layer's own id takes that column's place.
bool IsLayerId(TableDef const& table, int column) {
  return column == table.IndexOfID() && IsInteger(table[column]);
}

// The name of the id or geometry column; "" when there is none, or none that a format had.
std::string OwnName(TableDef const& table, int column, char const* shownName) {
  if (column < 0 || std::strcmp(table[column].NameUTF8(), shownName) == 0) return "";
  return table[column].NameUTF8();
}

// Whether a column that becomes a field has that name, in which formats do not tell case apart.
bool IsFieldName(TableDef const& table, std::string const& name) {
  for (int column = 0; column < table.ColumnCount(); ++column) {
    if (IsLayerId(table, column) || column == table.IndexOfGeom()) continue;
    std::wstring const wide = ToWide(name.c_str());
    if (EqualIgnoringCase(table[column].Name(), wide.c_str())) return true;
  }
  return false;
}

class LayerCreator {
 public:
  // ordinates: kWkbZ, kWkbM or kWkbZM where the layers are to hold more than X and Y.
  LayerCreator(GdalApi const& gdal, GdalDatasetH dataset, char const* driver, unsigned ordinates)
      : gdal_(gdal), dataset_(dataset), driver_(driver), ordinates_(ordinates) {}

  // Errors: false; error says why, or is left empty when GDAL said it.
  bool Create(TableDef const& table, std::string& error) {
    if (!CheckColumns(table, error)) return false;
    if (!table.HasGeom() && TraitsOf(driver_).losesRowsWithoutGeometry) {
      error = std::string(driver_) + " keeps no rows without a geometry, and " + ToUtf8(table.Name()) +
              " has no geometry column";
      return false;
    }
    std::vector<std::string> const options = Options(table);
    std::vector<char const*> optionTexts;
    for (std::string const& option : options) optionTexts.push_back(option.c_str());
    optionTexts.push_back(nullptr);
    OgrSpatialReferenceH const srs = MakeSrs(table);
    // Which of the point types, say, the rows have is not known before they come.
    unsigned const geometryType = table.HasGeom() ? kWkbUnknown + ordinates_ : kWkbNone;
    OgrLayerH const layer = gdal_.GDALDatasetCreateLayer(dataset_, ToUtf8(table.Name()).c_str(), srs,
                                                         geometryType, optionTexts.data());
    if (srs != nullptr) gdal_.OSRRelease(srs);
    if (layer == nullptr) return false;
    for (int column = 0; column < table.ColumnCount(); ++column) {
      if (IsLayerId(table, column) || column == table.IndexOfGeom()) continue;
      if (!CreateField(layer, table[column])) return false;
    }
    return true;
  }

 private:
  static bool CheckColumns(TableDef const& table, std::string& error) {
    for (int column = 0; column < table.ColumnCount(); ++column) {
      if (column == table.IndexOfGeom() || FieldFor(table[column].Type()) != nullptr) continue;
      bool const isGeometry = table[column].Type() == ColumnDef::kGeometry;
      error = std::string("the column \"") + table[column].NameUTF8() + "\" of " + ToUtf8(table.Name()) +
              (isGeometry ? " is a second geometry" : " has a type that no field holds");
      return false;
    }
    return true;
  }

  std::vector<std::string> Options(TableDef const& table) const {
    int const idColumn = table.HasID() && IsLayerId(table, table.IndexOfID()) ? table.IndexOfID() : -1;
    std::string idName = OwnName(table, idColumn, kFidColumnName);
    // The id must not meet a column of the same name, which GeoJSON, say, may have beside it.
    if (IsFieldName(table, idName)) idName.clear();
    if (idName.empty() && IsFieldName(table, "fid")) idName = kFidColumnName;
    std::vector<std::string> options;
    for (LayerOption const& option : kLayerOptions) {
      if (std::strcmp(option.driver, driver_) != 0) continue;
      if (std::strcmp(option.value, "AS_WKT") == 0 && !table.HasGeom()) continue;
      std::string value = option.value;
      if (value == "%id") value = idName;
      if (value == "%geometry") value = OwnName(table, table.IndexOfGeom(), kGeometryColumnName);
      if (!value.empty()) options.push_back(std::string(option.name) + "=" + value);
    }
    return options;
  }

  // The coordinate system of the geometry column; null without one, and for one that GDAL cannot read.
  OgrSpatialReferenceH MakeSrs(TableDef const& table) const {
    if (!table.HasGeom() || table.Geom().SRS() == nullptr) return nullptr;
    CoordSys const& system = *table.Geom().SRS();
    bool const hasWkt = *system.Wkt() != L'\0';
    std::string const text = ToUtf8(hasWkt ? system.Wkt() : system.Code());
    if (text.empty()) return nullptr;
    OgrSpatialReferenceH const srs = gdal_.OSRNewSpatialReference(nullptr);
    if (gdal_.OSRSetFromUserInput(srs, text.c_str()) != kOgrErrNone) {
      gdal_.OSRRelease(srs);
      return nullptr;
    }
    // Ordinates are x, y in the stream, also where the system's authority has the latitude first.
    constexpr int kTraditionalOrder = 0;
    gdal_.OSRSetAxisMappingStrategy(srs, kTraditionalOrder);
    return srs;
  }

  bool CreateField(OgrLayerH layer, ColumnDef const& column) const {
    ColumnField const& field = *FieldFor(column.Type());
    OgrFieldDefnH const definition = gdal_.OGR_Fld_Create(column.NameUTF8(), field.fieldType);
    if (field.subType != kOfstNone) gdal_.OGR_Fld_SetSubType(definition, field.subType);
    bool const created = gdal_.OGR_L_CreateField(layer, definition, /*approximate=*/1) == kOgrErrNone;
    gdal_.OGR_Fld_Destroy(definition);
    return created;
  }

  GdalApi const& gdal_;
  GdalDatasetH dataset_;
  char const* driver_;
  unsigned ordinates_;
};

bool HasGeometry(DatabaseDef const& def) {
  for (int i = 0; i < def.Count(); ++i) {
    if (def[i].HasGeom()) return true;
  }
  return false;
}

// Creates the data source and its layers.
// Errors: null; error is set unless GDAL said why, and nothing is left at path.
GdalDatasetH MakeDataset(GdalApi const& gdal, GdalDriverH driver, std::string const& path,
                         DatabaseDef const& def, unsigned ordinates, std::string& error) {
  constexpr int kUnknownDataType = 0;
  // A SQLite file with a list of geometry columns shows no tables but those in the list.
  char const* const noMetadata[] = {"METADATA=NO", nullptr};
  bool const isPlainSqlite =
      std::strcmp(gdal.GDALGetDriverShortName(driver), "SQLite") == 0 && !HasGeometry(def);
  GdalDatasetH const dataset =
      gdal.GDALCreate(driver, path.c_str(), 0, 0, 0, kUnknownDataType, isPlainSqlite ? noMetadata : nullptr);
  if (dataset == nullptr) return nullptr;
  LayerCreator creator(gdal, dataset, gdal.GDALGetDriverShortName(driver), ordinates);
  for (int i = 0; i < def.Count(); ++i) {
    if (creator.Create(def[i], error)) continue;
    gdal.GDALClose(dataset);
    gdal.GDALDeleteDataset(driver, path.c_str());
    return nullptr;
  }
  return dataset;
}

}  // namespace

std::unique_ptr<GdalSource> CreateSource(GdalApi const& gdal, std::string const& path,
                                         std::string const& driver, DatabaseDef const& def,
                                         std::string& error) {
  GdalErrorScope scope(gdal);
  GdalDriverH const handle = gdal.GDALGetDriverByName(driver.c_str());
  if (handle == nullptr || !HasCapability(gdal, handle, kVector) ||
      !HasCapability(gdal, handle, kCreateDataset)) {
    error = "GDAL has no driver \"" + driver + "\" that creates vector data";
    return nullptr;
  }
  char const* const driverName = gdal.GDALGetDriverShortName(handle);
  if (std::string const existing = FirstExisting(path, driverName); !existing.empty()) {
    error = existing + " exists already";
    return nullptr;
  }
  GdalDatasetH const dataset = MakeDataset(gdal, handle, path, def, /*ordinates=*/0, error);
  if (dataset == nullptr) {
    if (error.empty()) error = scope.Message();
    return nullptr;
  }
  auto source = std::make_unique<GdalSource>(gdal, dataset, path, /*readOnly=*/false, /*created=*/true);
  DriverTraits const& traits = source->Traits();
  // With several tables the first row of one would end the layers of the others.
  if (traits.oneDimensionality && !traits.firstRowDecides && def.Count() == 1 && def[0].HasGeom()) {
    auto const kept = std::make_shared<DatabaseDef>();
    kept->CopyFrom(def);
    source->AwaitFirstRow([&gdal, handle, path, kept](bool z, bool m) {
      gdal.GDALDeleteDataset(handle, path.c_str());
      std::string ignored;
      return MakeDataset(gdal, handle, path, *kept, z && m ? kWkbZM : z ? kWkbZ : kWkbM, ignored);
    });
  }
  return source;
}

std::string DriverNameForPath(GdalApi const& gdal, std::string const& path) {
  std::u8string const dotted = PathOf(path).extension().u8string();
  if (dotted.size() < 2) return "";
  std::string extension(dotted.begin() + 1, dotted.end());
  std::transform(extension.begin(), extension.end(), extension.begin(),
                 [](char unit) { return unit >= 'A' && unit <= 'Z' ? static_cast<char>(unit + 32) : unit; });
  std::string const wanted = std::string(" ") + extension + " ";
  std::string found;
  for (int i = 0; i < gdal.GDALGetDriverCount(); ++i) {
    GdalDriverH const driver = gdal.GDALGetDriver(i);
    char const* const extensions = gdal.GDALGetMetadataItem(driver, kExtensions, nullptr);
    if (extensions == nullptr || (std::string(" ") + extensions + " ").find(wanted) == std::string::npos)
      continue;
    if (!HasCapability(gdal, driver, kVector) || !HasCapability(gdal, driver, kCreateDataset)) continue;
    // Drivers that are for vector data alone go before those that mean rasters in the first place.
    if (!HasCapability(gdal, driver, kRaster)) return gdal.GDALGetDriverShortName(driver);
    if (found.empty()) found = gdal.GDALGetDriverShortName(driver);
  }
  return found;
}

}  // namespace fdo::internal
