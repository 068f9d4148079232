#include "bench/vector_files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>

#include "bench/layer_scan.h"

namespace fdo::bench {
namespace {

class VectorFiles : public testing::Test {
 protected:
  VectorFiles() {
    bench_.rows = 50;
    bench_.seed = 4;
    bench_.dataDirectory = std::filesystem::path(testing::TempDir()) / "bench_vector_files_test";
    std::filesystem::remove_all(bench_.dataDirectory);
  }
  ~VectorFiles() override { std::filesystem::remove_all(bench_.dataDirectory); }

  Workbench bench_;
};

TEST_F(VectorFiles, HoldTheSameRowsInEveryFormat) {
  char const* const shapes[] = {"points", "polygons"};
  for (std::string const shape : shapes) {
    std::uint64_t const inFgb = LayerScan(VectorFile(bench_, "fgb " + shape)).ReadField("narrow").checksum;
    for (std::string const format : {"gpkg ", "shp "}) {
      LayerScan scan(VectorFile(bench_, format + shape));
      EXPECT_EQ(scan.ReadAll().amount, 50) << format << shape;
      EXPECT_EQ(scan.ReadField("narrow").checksum, inFgb) << format << shape;
    }
  }
}

TEST_F(VectorFiles, AreMadeOnce) {
  std::filesystem::path const file = VectorFile(bench_, "fgb points");
  auto const written = std::filesystem::last_write_time(file);
  EXPECT_EQ(VectorFile(bench_, "fgb points"), file);
  EXPECT_EQ(std::filesystem::last_write_time(file), written);
}

TEST_F(VectorFiles, WhatAnInterruptedRunLeftIsMadeAnew) {
  std::filesystem::path const directory = VectorFile(bench_, "shp points").parent_path();
  std::filesystem::path partial = directory;
  partial += ".partial";
  std::filesystem::rename(directory, partial);
  LayerScan scan(VectorFile(bench_, "shp points"));
  EXPECT_EQ(scan.ReadAll().amount, 50);
  EXPECT_FALSE(std::filesystem::exists(partial));
}

TEST_F(VectorFiles, OtherSeedsAndRowsAreOtherFiles) {
  Workbench more = bench_;
  more.rows = 60;
  Workbench seeded = bench_;
  seeded.seed = 5;
  EXPECT_NE(VectorFile(bench_, "fgb points"), VectorFile(more, "fgb points"));
  EXPECT_NE(LayerScan(VectorFile(bench_, "fgb points")).ReadAll().checksum,
            LayerScan(VectorFile(seeded, "fgb points")).ReadAll().checksum);
}

TEST_F(VectorFiles, UnknownDataIsRefused) {
  EXPECT_THROW(VectorFile(bench_, "dxf points"), std::invalid_argument);
}

}  // namespace
}  // namespace fdo::bench
