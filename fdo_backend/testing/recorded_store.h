// A store in the recording provider, which every registered name of the test's registry leads to.
#ifndef FDO_BACKEND_TESTING_RECORDED_STORE_H_
#define FDO_BACKEND_TESTING_RECORDED_STORE_H_

#include <gtest/gtest.h>

#include <memory>

#include "testing/captured_diagnostics.h"
#include "testing/recording_provider/recorder.h"

namespace fdo {

// The schema Land has two classes: parcel with the identity id, whose tag is 7, name and shape in the
// spatial context WGS84, and owner with the identity id alone.
class RecordedStore : public testing::Test {
 protected:
  RecordedStore() {
    using namespace recording_provider;
    recorder_->answers.spatialContexts.emplace_back();
    recorder_->answers.spatialContexts[0].name = L"WGS84";
    recorder_->answers.spatialContexts[0].coordinateSystem = L"EPSG:4326";
    recorder_->answers.spatialContexts[0].wkt = L"GEOGCS[]";
    recorder_->answers.schemas = {SchemaOf(
        L"Land", {ClassOf(L"parcel", {Id(L"id", FdoDataType_Int64, L"7"), Data(L"name", FdoDataType_String),
                                      Geometry(L"shape", L"WGS84")}),
                  ClassOf(L"owner", {Id(L"id")})})};
    SetLibraryRecorder(recorder_);
  }
  ~RecordedStore() override { recording_provider::SetLibraryRecorder(nullptr); }

  std::shared_ptr<recording_provider::Recorder> const recorder_ =
      std::make_shared<recording_provider::Recorder>();
  CapturedDiagnostics diagnostics_;
};

}  // namespace fdo

#endif  // FDO_BACKEND_TESTING_RECORDED_STORE_H_
