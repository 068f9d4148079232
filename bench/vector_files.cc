#include "bench/vector_files.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "bench/gdal_c_interface.h"
#include "bench/seeded_rows.h"

namespace fdo::bench {
namespace {

struct Format {
  char const* driver;
  char const* fileName;
  int dateTimeType;  // the nearest that the format has
  char const* layerOptions[2];
  bool isSynced = false;  // each transaction waits for the disk, as SQLite's own default is
};

// A scan needs no index of the boxes, and making one takes longer than all the rest.
constexpr Format kGpkg{"GPKG", "rows.gpkg", kOftDateTime, {"SPATIAL_INDEX=NO", nullptr}};
// GDAL does not wait for the disk while it writes a new GeoPackage, unless it is told to.
constexpr Format kSyncedGpkg{"GPKG", "rows.gpkg", kOftDateTime, {"SPATIAL_INDEX=NO", nullptr}, true};
constexpr Format kIndexedGpkg{"GPKG", "rows.gpkg", kOftDateTime, {"SPATIAL_INDEX=YES", nullptr}};
constexpr Format kFgb{"FlatGeobuf", "rows.fgb", kOftDateTime, {"SPATIAL_INDEX=NO", nullptr}};
constexpr Format kShp{"ESRI Shapefile", "rows.shp", kOftDate, {"ENCODING=UTF-8", nullptr}};

struct VectorData {
  std::string_view name;
  Format const& format;
  Shape shape;
};

constexpr VectorData kVectorData[] = {
    {"gpkg points", kGpkg, Shape::kPoint},
    {"gpkg polygons", kGpkg, Shape::kPolygon},
    {"synced gpkg points", kSyncedGpkg, Shape::kPoint},
    {"synced gpkg polygons", kSyncedGpkg, Shape::kPolygon},
    {"indexed gpkg points", kIndexedGpkg, Shape::kPoint},
    {"indexed gpkg polygons", kIndexedGpkg, Shape::kPolygon},
    {"fgb points", kFgb, Shape::kPoint},
    {"fgb polygons", kFgb, Shape::kPolygon},
    {"shp points", kShp, Shape::kPoint},
    {"shp polygons", kShp, Shape::kPolygon},
};

VectorData const& FindVectorData(std::string_view name) {
  for (VectorData const& data : kVectorData) {
    if (data.name == name) return data;
  }
  throw std::invalid_argument("no vector file \"" + std::string(name) + "\"");
}

// A null handle, or any code of an error, ends the making of a file.
template <class Handle>
Handle Made(Handle handle, char const* what) {
  if (handle == nullptr) throw std::runtime_error(std::string("GDAL gives no ") + what);
  return handle;
}
void Done(int error, char const* what) {
  if (error != kOgrErrNone) throw std::runtime_error(std::string("GDAL cannot ") + what);
}

void CreateFields(OGRLayerH layer, Format const& format) {
  struct Field {
    char const* name;
    int type;
    int subType;
    int width;
  };
  Field const fields[] = {
      {"wide", kOftInteger64, 0, 0},
      {"narrow", kOftInteger, 0, 0},
      {"number", kOftReal, 0, 0},
      {"word", kOftString, 0, kTextLength},
      {"moment", format.dateTimeType, 0, 0},
      {"flag", kOftInteger, kOfstBoolean, 0},
  };
  for (Field const& field : fields) {
    OGRFieldDefnH const definition = Made(OGR_Fld_Create(field.name, field.type), "field");
    if (field.subType != 0) OGR_Fld_SetSubType(definition, field.subType);
    if (field.width != 0) OGR_Fld_SetWidth(definition, field.width);
    int const error = OGR_L_CreateField(layer, definition, 1);
    OGR_Fld_Destroy(definition);
    Done(error, "create a field");
  }
}

void SetFields(OGRFeatureH feature, SeededRow const& row) {
  OGR_F_SetFieldInteger64(feature, 0, row.wide);
  OGR_F_SetFieldInteger(feature, 1, row.narrow);
  OGR_F_SetFieldDouble(feature, 2, row.real);
  OGR_F_SetFieldString(feature, 3, row.text.data());
  constexpr int kUtc = 100;
  OGR_F_SetFieldDateTimeEx(feature, 4, row.year, row.month, row.day, row.hour, row.minute,
                           static_cast<float>(row.second), kUtc);
  OGR_F_SetFieldInteger(feature, 5, row.flag ? 1 : 0);
}

// Writes rows into a layer, one after another.
class FeatureWriter {
 public:
  FeatureWriter(OGRLayerH layer, Shape shape)
      : layer_(layer), definition_(Made(OGR_L_GetLayerDefn(layer), "definition")), shape_(shape) {}

  void Write(SeededRow const& row) {
    OgrFeature const feature(Made(OGR_F_Create(definition_), "feature"));
    SetFields(feature.get(), row);
    wkb_.clear();
    AppendWkb(row, shape_, wkb_);
    OGRGeometryH geometry = nullptr;
    Done(OGR_G_CreateFromWkb(wkb_.data(), nullptr, &geometry, static_cast<int>(wkb_.size())),
         "read a geometry");
    Done(OGR_F_SetGeometryDirectly(feature.get(), geometry), "set a geometry");
    Done(OGR_L_CreateFeature(layer_, feature.get()), "write a row");
  }

 private:
  OGRLayerH layer_;
  OGRFeatureDefnH definition_;
  Shape shape_;
  std::vector<unsigned char> wkb_;
};

// A new file with one layer.
struct NewFile {
  GdalDataset dataset;
  OGRLayerH layer;
};

NewFile CreateVectorFile(std::filesystem::path const& path, VectorData const& data) {
  GDALAllRegister();
  Format const& format = data.format;
  GDALDriverH const driver = Made(GDALGetDriverByName(format.driver), format.driver);
  constexpr int kUnknownDataType = 0;  // there is no raster
  CPLSetThreadLocalConfigOption("OGR_SQLITE_SYNCHRONOUS", format.isSynced ? "FULL" : nullptr);
  GdalDataset dataset(
      Made(GDALCreate(driver, path.string().c_str(), 0, 0, 0, kUnknownDataType, nullptr), "data source"));
  OGRLayerH const layer =
      Made(GDALDatasetCreateLayer(dataset.get(), "rows", nullptr,
                                  data.shape == Shape::kPoint ? kWkbPoint : kWkbPolygon, format.layerOptions),
           "layer");
  CreateFields(layer, format);
  return {std::move(dataset), layer};
}

void WriteVectorFile(std::filesystem::path const& path, VectorData const& data, Workbench const& bench) {
  NewFile const file = CreateVectorFile(path, data);
  // Only some formats have transactions; those are slow without.
  bool const inTransaction = GDALDatasetStartTransaction(file.dataset.get(), 0) == kOgrErrNone;
  SeededRows rows(bench.seed, data.shape);
  FeatureWriter writer(file.layer, data.shape);
  for (std::int64_t i = 0; i < bench.rows; ++i) writer.Write(rows.Next());
  if (inTransaction) Done(GDALDatasetCommitTransaction(file.dataset.get()), "commit");
}

std::string DirectoryName(VectorData const& data, Workbench const& bench) {
  std::string name(data.name);
  for (char& c : name) {
    if (c == ' ') c = '-';
  }
  return name + "-" + std::to_string(bench.rows) + "-" + std::to_string(bench.seed);
}

}  // namespace

std::filesystem::path VectorFile(Workbench const& bench, std::string_view name) {
  VectorData const& data = FindVectorData(name);
  std::filesystem::path const directory = bench.dataDirectory / DirectoryName(data, bench);
  if (!std::filesystem::exists(directory)) {
    // A format may write several files, so it is their directory that gets its name last.
    std::filesystem::path partial = directory;
    partial += ".partial";
    std::filesystem::remove_all(partial);
    std::filesystem::create_directories(partial);
    WriteVectorFile(partial / data.format.fileName, data, bench);
    std::filesystem::rename(partial, directory);
  }
  return directory / data.format.fileName;
}

struct NewVectorFile::Layer {
  explicit Layer(NewFile made, Shape shape) : file(std::move(made)), writer(file.layer, shape) {}

  NewFile file;
  FeatureWriter writer;
};

NewVectorFile::NewVectorFile(std::filesystem::path const& path, std::string_view name) {
  VectorData const& data = FindVectorData(name);
  std::filesystem::remove(path);
  layer_ = std::make_unique<Layer>(CreateVectorFile(path, data), data.shape);
}

NewVectorFile::~NewVectorFile() = default;

void NewVectorFile::Append(std::span<KeptRow const> rows, std::size_t batch) {
  GDALDatasetH const dataset = layer_->file.dataset.get();
  for (std::size_t begin = 0; begin < rows.size(); begin += batch) {
    Done(GDALDatasetStartTransaction(dataset, 0), "begin");
    for (KeptRow const& kept : rows.subspan(begin, std::min(batch, rows.size() - begin))) {
      layer_->writer.Write(kept.row);
    }
    Done(GDALDatasetCommitTransaction(dataset), "commit");
  }
}

}  // namespace fdo::bench
