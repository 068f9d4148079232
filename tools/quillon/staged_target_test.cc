#include "tools/quillon/staged_target.h"

#include <gtest/gtest.h>

#include <fstream>

#include "testing/scratch_directory.h"
#include "tools/quillon/failure.h"
#include "tools/quillon/path_text.h"
#include "tools/quillon/utf8.h"

namespace fdo::tool {
namespace {

namespace fs = std::filesystem;

class StagedTargetTest : public testing::Test {
 protected:
  std::string At(std::string const& name) const { return Utf8Of(scratch_.Path() / PathOf(name)); }
  void Write(std::string const& path, std::string const& content) const {
    std::ofstream(PathOf(path)) << content;
  }
  std::string Read(std::string const& name) const {
    std::ifstream file(PathOf(At(name)));
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }
  int Count() const {
    return static_cast<int>(std::distance(fs::directory_iterator(scratch_.Path()), fs::directory_iterator()));
  }

  ScratchDirectory scratch_;
};

TEST_F(StagedTargetTest, AppearsWithCommit) {
  StagedTarget target(At("a.txt"), Overwrite::kRefuse);
  Write(Utf8(target.Path()), "new");
  EXPECT_FALSE(fs::exists(PathOf(At("a.txt"))));
  target.Commit();
  EXPECT_EQ(Read("a.txt"), "new");
}

TEST_F(StagedTargetTest, LeavesNothingWithoutCommit) {
  {
    StagedTarget target(At("a.txt"), Overwrite::kRefuse);
    Write(Utf8(target.Path()), "new");
  }
  EXPECT_EQ(Count(), 0);
}

TEST_F(StagedTargetTest, AFamilyOfFilesIsReplacedWhole) {
  for (char const* const name : {"a.shp", "a.dbf", "a.qix"}) Write(At(name), "old");
  {
    StagedTarget target(At("a.shp"), Overwrite::kReplace);
    std::string const path = Utf8(target.Path());
    Write(path, "new");
    Write(path.substr(0, path.size() - 3) + "dbf", "new");
    target.Commit();
  }
  EXPECT_EQ(Read("a.shp"), "new");
  EXPECT_EQ(Read("a.dbf"), "new");
  EXPECT_EQ(Count(), 2) << "the index of the old data is gone";
}

TEST_F(StagedTargetTest, AJournalOfTheOldDataNeverMeetsTheNew) {
  Write(At("a.db-journal"), "old");
  EXPECT_THROW(StagedTarget(At("a.db"), Overwrite::kRefuse), Failure);
  EXPECT_EQ(Read("a.db-journal"), "old");
  {
    StagedTarget target(At("a.db"), Overwrite::kReplace);
    Write(Utf8(target.Path()), "new");
    target.Commit();
  }
  EXPECT_EQ(Read("a.db"), "new");
  EXPECT_EQ(Count(), 1);
}

TEST_F(StagedTargetTest, AFolderCanBeATarget) {
  StagedTarget target(At("a.gdb"), Overwrite::kRefuse);
  fs::create_directory(PathOf(Utf8(target.Path())));
  Write(Utf8(target.Path()) + "/part", "new");
  target.Commit();
  EXPECT_EQ(Read("a.gdb/part"), "new");
}

TEST_F(StagedTargetTest, WhatAppearedMeanwhileIsKept) {
  StagedTarget target(At("a.txt"), Overwrite::kRefuse);
  Write(Utf8(target.Path()), "new");
  Write(At("a.txt"), "of somebody else");
  EXPECT_THROW(target.Commit(), Failure);
  EXPECT_EQ(Read("a.txt"), "of somebody else");
}

TEST_F(StagedTargetTest, AFolderIsNeverReplaced) {
  fs::create_directory(PathOf(At("a")));
  Write(At("a/letters.txt"), "of somebody else");
  EXPECT_THROW(StagedTarget(At("a"), Overwrite::kReplace), Failure);
  EXPECT_EQ(Read("a/letters.txt"), "of somebody else");
}

TEST_F(StagedTargetTest, AFolderThatAppearedMeanwhileIsKept) {
  StagedTarget target(At("a"), Overwrite::kReplace);
  Write(Utf8(target.Path()), "new");
  fs::create_directory(PathOf(At("a")));
  Write(At("a/letters.txt"), "of somebody else");
  EXPECT_THROW(target.Commit(), Failure);
  EXPECT_EQ(Read("a/letters.txt"), "of somebody else");
}

TEST_F(StagedTargetTest, RefusesWhatExistsAndWhereNothingCanBe) {
  Write(At("a.txt"), "old");
  EXPECT_THROW(StagedTarget(At("a.txt"), Overwrite::kRefuse), Failure);
  EXPECT_THROW(StagedTarget(At("missing/a.txt"), Overwrite::kReplace), Failure);
  EXPECT_THROW(StagedTarget(At("a.txt/b.txt"), Overwrite::kReplace), Failure);
  EXPECT_EQ(Count(), 1);
}

}  // namespace
}  // namespace fdo::tool
