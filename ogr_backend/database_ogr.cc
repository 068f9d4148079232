#include <fdo/database_ogr.h>
#include <fdo/text_conversion.h>

#include <cstring>
#include <memory>
#include <string>

#include "access/diagnostics.h"
#include "ogr_backend/gdal_source.h"
#include "ogr_backend/schema_reader.h"
#include "ogr_backend/source_creator.h"
#include "ogr_backend/table_ogr.h"

namespace fdo {
namespace {

using internal::Gdal;
using internal::GdalApi;
using internal::GdalErrorScope;
using internal::GdalSource;
using internal::OgrLayerH;
using internal::TableOgr;

constexpr wchar_t const* kSchemaName = L"OGRDefaultSchema";
constexpr wchar_t const* kNoGdal = L"GDAL is not installed";

bool SameColumns(TableDef const& left, TableDef const& right) {
  if (left.ColumnCount() != right.ColumnCount()) return false;
  for (int i = 0; i < left.ColumnCount(); ++i) {
    if (left[i].Type() != right[i].Type() || std::strcmp(left[i].NameUTF8(), right[i].NameUTF8()) != 0) {
      return false;
    }
  }
  return true;
}

// The position of the layer that has that definition; the likely position is looked at first. -1 if none.
int FindLayer(GdalSource const& source, TableDef const& def, int likely) {
  GdalApi const& gdal = source.Gdal();
  int const count = gdal.GDALDatasetGetLayerCount(source.Dataset());
  std::string const name = ToUtf8(def.Name());
  for (int i = 0; i < count; ++i) {
    int const position = (likely + i) % count;
    OgrLayerH const layer = gdal.GDALDatasetGetLayer(source.Dataset(), position);
    if (layer == nullptr || name != gdal.OGR_FD_GetName(gdal.OGR_L_GetLayerDefn(layer))) continue;
    TableDef found;
    ReadTableDef(gdal, layer, found);
    if (SameColumns(def, found)) return position;
  }
  return -1;
}

}  // namespace

DatabaseOgr::DatabaseOgr() = default;

DatabaseOgr::~DatabaseOgr() { Disconnect(); }

bool DatabaseOgr::Connect(wchar_t const* source, wchar_t const* /*provider*/,
                          wchar_t const* /*configuration*/, bool readOnly, bool loadSchema) {
  Disconnect();
  lastError_.clear();
  GdalApi const* const gdal = Gdal();
  if (gdal == nullptr) {
    lastError_ = kNoGdal;
    return false;
  }
  std::string error;
  source_ = GdalSource::Open(*gdal, ToUtf8(source), readOnly, /*driver=*/nullptr, error);
  if (source_ == nullptr) {
    lastError_ = ToWide(error.c_str());
    return false;
  }
  Opened(source);
  if (loadSchema) ReadSchema();
  return true;
}

bool DatabaseOgr::Create(wchar_t const* path, wchar_t const* driver, DatabaseDef const& def) {
  Disconnect();
  lastError_.clear();
  GdalApi const* const gdal = Gdal();
  if (gdal == nullptr) {
    lastError_ = kNoGdal;
    return false;
  }
  std::string const narrowPath = ToUtf8(path);
  std::string const driverName =
      driver == nullptr || *driver == L'\0' ? internal::DriverNameForPath(*gdal, narrowPath) : ToUtf8(driver);
  std::string error;
  source_ = CreateSource(*gdal, narrowPath, driverName, def, error);
  if (source_ == nullptr) {
    lastError_ = ToWide(error.c_str());
    return false;
  }
  Opened(path);
  ReadSchema();
  return true;
}

std::wstring DatabaseOgr::DriverForPath(wchar_t const* path) {
  GdalApi const* const gdal = Gdal();
  return gdal == nullptr ? L"" : ToWide(internal::DriverNameForPath(*gdal, ToUtf8(path)).c_str());
}

void DatabaseOgr::Disconnect() {
  ClearSchema();
  if (source_ == nullptr) return;
  std::string error;
  if (!source_->Close(error)) {
    // Formats that are written when they are closed fail here, and there is no result to tell it by.
    lastError_ = ToWide(error.c_str());
    ReportError((L"Closing " + ToWide(source_->Name().c_str()) + L" failed: " + lastError_).c_str());
  }
  source_.reset();
}

bool DatabaseOgr::SetSchema(DatabaseDef const& /*def*/) {
  ReportError("Ogr::SetSchema not implemented\n");
  return false;
}

Table* DatabaseOgr::DuplicateTable(Table* table) {
  auto* const original = dynamic_cast<TableOgr*>(table);
  if (original == nullptr || source_ == nullptr) return nullptr;
  if (source_->Created()) {
    lastError_ = TableOgr::kNewIsUnread;
    return nullptr;
  }
  GdalApi const& gdal = source_->Gdal();
  GdalErrorScope scope(gdal);
  // The second source sees what is in the file.
  if (!source_->ReadOnly() && !source_->InTransaction()) gdal.GDALFlushCache(source_->Dataset());
  std::string error;
  std::unique_ptr<GdalSource> source =
      GdalSource::Open(gdal, source_->Name(), /*readOnly=*/true, source_->Driver().c_str(), error);
  int const layer = source == nullptr ? -1 : FindLayer(*source, *original->Def(), original->LayerIndex());
  if (layer < 0) {
    lastError_ = error.empty() ? L"The table is not in the file any more" : ToWide(error.c_str());
    return nullptr;
  }
  return new TableOgr(std::move(source), layer, *original->Def(), lastError_);
}

void DatabaseOgr::DestroyTable(Table* table) { delete table; }

FilterPlan DatabaseOgr::ExplainFilter(Table const& table, FdoFilter* filter) const {
  auto const* const ogrTable = dynamic_cast<TableOgr const*>(&table);
  if (ogrTable != nullptr) return ogrTable->Explain(filter);
  FilterPlan refused;
  refused.reason = L"the table is of another database";
  return refused;
}

void DatabaseOgr::KeepNullNumbers(bool keep) {
  keepNullNumbers_ = keep;
  if (source_ != nullptr) source_->KeepNullNumbers(keep);
}

void DatabaseOgr::Opened(wchar_t const* name) {
  source_->KeepNullNumbers(keepNullNumbers_);
  providerName_ = ToWide(source_->Driver().c_str());
  connectionString_ = name;
}

void DatabaseOgr::ReadSchema() {
  GdalApi const& gdal = source_->Gdal();
  GdalErrorScope scope(gdal);
  int const count = gdal.GDALDatasetGetLayerCount(source_->Dataset());
  if (count <= 0) return;
  auto defs = std::make_unique<TableDef[]>(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    internal::ReadTableDef(gdal, gdal.GDALDatasetGetLayer(source_->Dataset(), i),
                           defs[static_cast<std::size_t>(i)]);
  }
  def_ = new DatabaseDef;
  def_->Initialize(kSchemaName, defs.release(), count);
  tables_ = new Table*[static_cast<std::size_t>(count)]();
  for (int i = 0; i < count; ++i) tables_[i] = new TableOgr(*source_, i, (*def_)[i], lastError_);
}

}  // namespace fdo
