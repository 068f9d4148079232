// A TableFdo over a provider that records what it is asked, for tests.
#ifndef FDO_BACKEND_RECORDED_TABLE_H_
#define FDO_BACKEND_RECORDED_TABLE_H_

#include <Fdo.h>
#include <fdo/table_fdo.h>
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "testing/captured_diagnostics.h"
#include "testing/recording_provider/recorder.h"
#include "testing/schema_builder.h"

namespace fdo {

enum class Access { kByPosition, kByName };

// The class Land:parcels on an open connection. At the end nothing of the provider may be live.
class RecordedTable : public ::testing::Test {
 protected:
  ~RecordedTable() override {
    Close();
    EXPECT_EQ(recorder_->LiveObjects(), 0);
  }

  // Anew, with columns as MakeTableDef takes them.
  TableFdo& Open(std::wstring_view columns, Access access = Access::kByPosition) {
    Close();
    def_ = MakeTableDef(L"Land", L"parcels", columns);
    connection_ = recording_provider::NewConnection(recorder_);
    connection_->Open();
    table_.emplace(connection_, &def_, access == Access::kByName);
    recorder_->TakeLog();
    return *table_;
  }
  void Close() {
    table_.reset();
    if (connection_ != nullptr) connection_->Close();
    connection_ = nullptr;
  }

  TableFdo& Parcels() { return *table_; }
  std::string Log() { return recorder_->TakeLog(); }
  // What the selects of the class find.
  recording_provider::Rows& Rows() { return recorder_->answers.selects[L"parcels"]; }

  std::shared_ptr<recording_provider::Recorder> recorder_ = std::make_shared<recording_provider::Recorder>();
  CapturedDiagnostics lines_;
  TableDef def_;
  FdoPtr<FdoIConnection> connection_;
  std::optional<TableFdo> table_;
};

inline FdoPtr<FdoFilter> Filter(wchar_t const* text) { return FdoPtr<FdoFilter>(FdoFilter::Parse(text)); }

}  // namespace fdo

#endif  // FDO_BACKEND_RECORDED_TABLE_H_
