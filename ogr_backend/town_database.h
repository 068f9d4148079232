// A database of one table of towns, in each format.
#ifndef OGR_BACKEND_TOWN_DATABASE_H_
#define OGR_BACKEND_TOWN_DATABASE_H_

#include <fdo/database_ogr.h>
#include <fdo/text_conversion.h>

#include <gtest/gtest.h>

#include <string>

#include "ogr_backend/ogr_test_files.h"
#include "ogr_backend/ogr_test_formats.h"
#include "testing/scratch_directory.h"

namespace fdo {

class TownDatabase : public ::testing::TestWithParam<OgrFormat> {
 protected:
  // Requires: path_ names the file.
  void Open(bool readOnly) {
    ASSERT_TRUE(database_.Connect(path_.c_str(), nullptr, nullptr, readOnly, /*loadSchema=*/true))
        << ToUtf8(database_.LastError());
    ASSERT_NE(database_[L"town"], nullptr);
  }
  // SQLite shows a table of its own beside it.
  Table& Only() { return *database_[L"town"]; }

  ScratchDirectory scratch_;
  std::wstring path_;
  DatabaseOgr database_;
};

}  // namespace fdo

#endif  // OGR_BACKEND_TOWN_DATABASE_H_
