// How rows reach a layer. The other half of TableOgr, the queries, is in table_ogr.cc.
#include "ogr_backend/table_ogr.h"

#include <fdo/text_conversion.h>

#include "access/boundary.h"
#include "access/diagnostics.h"
#include "ogr_backend/column_types.h"
#include "ogr_backend/geometry_needs.h"

namespace fdo::internal {

FeatureWriter& TableOgr::Writer() {
  if (!writer_) writer_.emplace(gdal_, source_.Traits(), layer_, *def_);
  return *writer_;
}

void TableOgr::FitToFirstRow(Row const& row) {
  Value const& cell = row[kGeometryColumn];
  unsigned char const* const fgf = cell.AsBlob();
  if (fgf == nullptr || cell.BlobLen() <= 0) return;
  GeometryNeeds needs;
  try {
    VisitFgf(fgf, fgf + cell.BlobLen(), needs);
  } catch (FdoException* raised) {
    FdoPtr<FdoException> const broken(raised);  // which is for the writer to refuse
    return;
  }
  if (needs.IsEmpty()) return;
  bool const fits = source_.FitTo(needs.Z(), needs.M());
  layer_ = fits ? gdal_.GDALDatasetGetLayer(source_.Dataset(), layerIndex_) : nullptr;
  writer_.reset();
}

bool TableOgr::Insert(Row const& row, __int64* newId, bool storeMakesId) {
  if (newId != nullptr) *newId = 0;
  return AtBoundary(false, [&] {
    GdalErrorScope scope(gdal_);
    if (source_.AwaitsFirstRow()) FitToFirstRow(row);
    if (layer_ == nullptr) {
      Remember(scope);
      return false;
    }
    std::string refusal;
    OgrFeatureH const feature = Writer().Write(row, source_.KeepsNullNumbers(), refusal);
    if (feature == nullptr) {
      lastError_ = ToWide(refusal.c_str());
      return false;
    }
    if (storeMakesId) gdal_.OGR_F_SetFID(feature, kOgrNullFid);
    bool const done = gdal_.OGR_L_CreateFeature(layer_, feature) == kOgrErrNone;
    __int64 const id = gdal_.OGR_F_GetFID(feature);
    gdal_.OGR_F_Destroy(feature);
    if (!done) Remember(scope);
    if (done && newId != nullptr && id != kOgrNullFid) *newId = id;
    return done;
  });
}

__int64 TableOgr::Update(Row const& row, FdoFilter* /*filter*/) {
  constexpr __int64 kFailed = -1;
  return AtBoundary(kFailed, [&] {
    GdalErrorScope scope(gdal_);
    std::string refusal;
    OgrFeatureH const feature = Writer().Write(row, source_.KeepsNullNumbers(), refusal);
    if (feature == nullptr) {
      lastError_ = ToWide(refusal.c_str());
      return kFailed;
    }
    bool const done = gdal_.OGR_L_SetFeature(layer_, feature) == kOgrErrNone;
    gdal_.OGR_F_Destroy(feature);
    if (!done) Remember(scope);
    return done ? std::int64_t{1} : kFailed;
  });
}

bool TableOgr::Update(Row const& /*row*/, __int64 /*id*/) { return false; }

// Nothing is handled here, so this ends the process.
__int64 TableOgr::Delete(FdoFilter* /*filter*/) { throw; }

bool TableOgr::Delete(__int64 id) {
  GdalErrorScope scope(gdal_);
  bool const done = gdal_.OGR_L_DeleteFeature(layer_, id) == kOgrErrNone;
  if (!done) Remember(scope);
  return done;
}

void TableOgr::BeginWrite() {
  GdalErrorScope scope(gdal_);
  source_.BeginBatch();
}

void TableOgr::CommitWrite() {
  GdalErrorScope scope(gdal_);
  if (source_.CommitBatch()) return;
  // There is no result to tell it by, and rows that were reported as written are lost.
  Remember(scope);
  ReportError((L"The writes could not be committed: " + lastError_).c_str());
}

}  // namespace fdo::internal
