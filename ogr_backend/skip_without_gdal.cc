// Skips every test of a program that is about files of GDAL, where GDAL is missing and may be.
#include <gtest/gtest.h>

#include "ogr_backend/gdal_absence.h"

namespace fdo {
namespace {

class SkipWithoutGdal : public testing::Environment {
  void SetUp() override {
    if (IsWithoutGdal()) GTEST_SKIP() << kWithoutGdal;
  }
};

testing::Environment* const environment = testing::AddGlobalTestEnvironment(new SkipWithoutGdal());

}  // namespace
}  // namespace fdo
