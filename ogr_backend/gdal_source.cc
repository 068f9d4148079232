#include "ogr_backend/gdal_source.h"

#include <utility>

namespace fdo::internal {
namespace {

std::string DriverName(GdalApi const& gdal, GdalDatasetH dataset) {
  GdalDriverH const driver = gdal.GDALGetDatasetDriver(dataset);
  char const* name = driver == nullptr ? nullptr : gdal.GDALGetDriverShortName(driver);
  return name == nullptr ? "" : name;
}

}  // namespace

std::unique_ptr<GdalSource> GdalSource::Open(GdalApi const& gdal, std::string const& name, bool readOnly,
                                             char const* driver, std::string& error) {
  GdalErrorScope scope(gdal);
  char const* const drivers[] = {driver, nullptr};
  unsigned const flags =
      kGdalOpenVector | kGdalOpenVerboseError | (readOnly ? kGdalOpenReadOnly : kGdalOpenUpdate);
  GdalDatasetH const dataset =
      gdal.GDALOpenEx(name.c_str(), flags, driver == nullptr ? nullptr : drivers, nullptr, nullptr);
  if (dataset == nullptr) {
    error = scope.Message();
    return nullptr;
  }
  return std::make_unique<GdalSource>(gdal, dataset, name, readOnly, /*created=*/false);
}

GdalSource::GdalSource(GdalApi const& gdal, GdalDatasetH dataset, std::string name, bool readOnly,
                       bool created)
    : gdal_(gdal),
      dataset_(dataset),
      name_(std::move(name)),
      driver_(DriverName(gdal, dataset)),
      traits_(TraitsOf(driver_.c_str())),
      readOnly_(readOnly),
      created_(created) {}

GdalSource::~GdalSource() {
  std::string ignored;
  Close(ignored);
}

bool GdalSource::Close(std::string& error) {
  if (dataset_ == nullptr) return true;
  GdalErrorScope scope(gdal_);
  // A row whose insert was reported as done must not vanish because its bracket was never closed.
  if (inTransaction_) gdal_.GDALDatasetCommitTransaction(dataset_);
  inTransaction_ = false;
  gdal_.GDALClose(dataset_);
  dataset_ = nullptr;
  if (scope.Failed()) error = scope.Message();
  return !scope.Failed();
}

bool GdalSource::FitTo(bool z, bool m) {
  Remake const remake = std::exchange(remake_, nullptr);
  if (!z && !m) return true;
  gdal_.GDALClose(dataset_);
  dataset_ = remake(z, m);
  return dataset_ != nullptr;
}

void GdalSource::BeginBatch() {
  if (++openBatches_ > 1 || readOnly_) return;
  if (gdal_.GDALDatasetTestCapability(dataset_, "Transactions") == 0) return;
  inTransaction_ = gdal_.GDALDatasetStartTransaction(dataset_, /*force=*/0) == kOgrErrNone;
}

bool GdalSource::CommitBatch() {
  if (openBatches_ == 0 || --openBatches_ > 0 || !inTransaction_) return true;
  inTransaction_ = false;
  if (gdal_.GDALDatasetCommitTransaction(dataset_) == kOgrErrNone) return true;
  gdal_.GDALDatasetRollbackTransaction(dataset_);
  return false;
}

}  // namespace fdo::internal
