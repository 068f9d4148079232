#include "bench/seeded_rows.h"

#include <fdo/geometry_stream.h>
#include <gtest/gtest.h>

#include <string>

namespace fdo::bench {
namespace {

TEST(SeededRows, TheSameForTheSameSeed) {
  SeededRows first(5, Shape::kPoint);
  SeededRows again(5, Shape::kPoint);
  SeededRows other(6, Shape::kPoint);
  int sameAsOther = 0;
  for (int i = 0; i < 100; ++i) {
    SeededRow const row = first.Next();
    SeededRow const repeated = again.Next();
    EXPECT_EQ(row.wide, repeated.wide);
    EXPECT_STREQ(row.text.data(), repeated.text.data());
    EXPECT_EQ(row.ordinates, repeated.ordinates);
    sameAsOther += row.wide == other.Next().wide ? 1 : 0;
  }
  EXPECT_EQ(sameAsOther, 0);
}

TEST(SeededRows, CellsStayWithinWhatEveryFormatHolds) {
  SeededRows rows(1, Shape::kPolygon);
  for (int i = 0; i < 1000; ++i) {
    SeededRow const& row = rows.Next();
    EXPECT_LT(std::abs(row.wide), 1'000'000'000'000'000);
    EXPECT_EQ(std::string(row.text.data()).size(), static_cast<std::size_t>(kTextLength));
    EXPECT_TRUE(row.month >= 1 && row.month <= 12 && row.day >= 1 && row.day <= 28);
    ASSERT_EQ(row.ordinates.size(), 2u * kRingPoints);
    EXPECT_EQ(row.ordinates[0], row.ordinates[2 * kRingPoints - 2]);
    EXPECT_EQ(row.ordinates[1], row.ordinates[2 * kRingPoints - 1]);
  }
}

TEST(SeededRows, StreamsAreOneGeometryEach) {
  for (Shape const shape : {Shape::kPoint, Shape::kPolygon}) {
    SeededRows rows(1, shape);
    SeededRow const& row = rows.Next();
    std::vector<unsigned char> fgf;
    std::vector<unsigned char> wkb;
    AppendFgf(row, shape, fgf);
    AppendWkb(row, shape, wkb);
    EXPECT_EQ(SkipGeometry(fgf.data(), fgf.data() + fgf.size()), fgf.data() + fgf.size());

    std::vector<unsigned char> converted(FgfToWkbBound(fgf.size()));
    converted.resize(FgfToWkb(fgf.data(), fgf.size(), converted.data()));
    EXPECT_EQ(converted, wkb);
  }
}

}  // namespace
}  // namespace fdo::bench
