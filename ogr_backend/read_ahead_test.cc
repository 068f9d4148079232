#include "ogr_backend/read_ahead.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

namespace fdo::internal {
namespace {

// Features that know whether they have been destroyed.
class ReadAheadTest : public testing::Test {
 protected:
  ReadAheadTest() {
    alive_.clear();
    gdal_.OGR_F_Destroy = [](OgrFeatureH feature) { EXPECT_EQ(alive_.erase(feature), 1u); };
  }

  // Gives feature after feature, and null from the end on.
  OgrFeatureH Next() {
    ++calls_;
    if (made_ == end_) return nullptr;
    auto const feature = reinterpret_cast<OgrFeatureH>(&features_[made_++]);
    alive_.insert(feature);
    return feature;
  }
  bool Fetch(ReadAhead& ahead, bool oneOnly = false) {
    return ahead.Fetch(oneOnly, [this] { return Next(); });
  }
  // Takes and destroys everything; returns how much that was.
  int TakeAll(ReadAhead& ahead) {
    int taken = 0;
    for (; !ahead.IsEmpty(); ++taken) {
      OgrFeatureH const feature = ahead.Take();
      EXPECT_EQ(feature, reinterpret_cast<OgrFeatureH>(&features_[shown_++])) << "in their order";
      gdal_.OGR_F_Destroy(feature);
    }
    return taken;
  }

  static inline std::set<OgrFeatureH> alive_;
  GdalApi gdal_;
  char features_[1000] = {};
  int end_ = 1000;
  int made_ = 0;
  int shown_ = 0;
  int calls_ = 0;
};

TEST_F(ReadAheadTest, RunsGrowFromOneFeature) {
  ReadAhead ahead(gdal_);
  for (int const length : {1, 2, 4, 8, 16, 16, 16}) {
    EXPECT_TRUE(Fetch(ahead));
    EXPECT_EQ(TakeAll(ahead), length);
  }
}

TEST_F(ReadAheadTest, OneOnlyStaysOne) {
  ReadAhead ahead(gdal_);
  for (int i = 0; i < 20; ++i) {
    EXPECT_TRUE(Fetch(ahead, /*oneOnly=*/true));
    EXPECT_EQ(TakeAll(ahead), 1);
  }
}

TEST_F(ReadAheadTest, TheEndKeepsWhatCameBeforeIt) {
  for (int const end : {0, 1, 2, 3, 5, 7, 15}) {
    SCOPED_TRACE(end);
    end_ = end;
    made_ = shown_ = calls_ = 0;
    ReadAhead ahead(gdal_);
    int taken = 0;
    while (Fetch(ahead)) taken += TakeAll(ahead);
    taken += TakeAll(ahead);
    EXPECT_EQ(taken, end);
    EXPECT_EQ(calls_, end + 1) << "nothing is asked for after the end";
  }
}

TEST_F(ReadAheadTest, DiscardDestroysTheRestAndBeginsAnew) {
  ReadAhead ahead(gdal_);
  for (int i = 0; i < 3; ++i) {
    Fetch(ahead);
    TakeAll(ahead);
  }
  Fetch(ahead);  // eight, of which one is taken
  gdal_.OGR_F_Destroy(ahead.Take());
  EXPECT_EQ(alive_.size(), 7u);
  ahead.Discard();
  EXPECT_TRUE(ahead.IsEmpty());
  EXPECT_TRUE(alive_.empty());
  int const before = made_;
  Fetch(ahead);
  EXPECT_EQ(made_ - before, 1);
}

TEST_F(ReadAheadTest, DestructionDestroysTheRest) {
  {
    ReadAhead ahead(gdal_);
    Fetch(ahead);
    TakeAll(ahead);
    Fetch(ahead);
    EXPECT_EQ(alive_.size(), 2u);
  }
  EXPECT_TRUE(alive_.empty());
}

}  // namespace
}  // namespace fdo::internal
