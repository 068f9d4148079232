// A point may be made of one that ended before; nothing of that one shows.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "FdoSpatial.h"
#include "testing/fgf_builder.h"

namespace {

using fdo::Fgf;

using Bytes = std::vector<unsigned char>;

FdoPtr<FdoIPoint> Borrowing(Bytes const& bytes) {
  FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
  return FdoPtr<FdoIPoint>(static_cast<FdoIPoint*>(
      factory->CreateGeometryFromFgf(bytes.data(), static_cast<FdoInt32>(bytes.size()))));
}

TEST(KeptPoints, ANewPointHasNothingOfTheOneBefore) {
  Bytes const first = Fgf("POINT (1 2)");
  Bytes const second = Fgf("POINT (30 40)");
  Bytes unaligned(1, 0);
  unaligned.insert(unaligned.end(), second.begin(), second.end());
  for (int round = 0; round < 3; ++round) {
    {
      FdoPtr<FdoIPoint> point = Borrowing(first);
      point->EnableObjectThreadLocking(true);
      EXPECT_STREQ(point->GetText(), L"POINT (1 2)");
      EXPECT_EQ(point->GetOrdinates()[0], 1);
      FdoPtr<FdoIEnvelope> box = point->GetEnvelope();
      EXPECT_EQ(box->GetMaxY(), 2);
    }
    FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
    FdoPtr<FdoIPoint> point = static_cast<FdoIPoint*>(
        factory->CreateGeometryFromFgf(unaligned.data() + 1, static_cast<FdoInt32>(unaligned.size() - 1)));
    EXPECT_EQ(point->GetRefCount(), 1);
    EXPECT_STREQ(point->GetText(), L"POINT (30 40)");
    EXPECT_EQ(point->GetOrdinates()[0], 30);
    FdoPtr<FdoIDirectPosition> position = point->GetPosition();
    EXPECT_EQ(position->GetY(), 40);
    FdoPtr<FdoIEnvelope> box = point->GetEnvelope();
    EXPECT_EQ(box->GetMinX(), 30);
    EXPECT_EQ(box->GetOrdinates()[4], 40);
    EXPECT_TRUE(std::isnan(box->GetMinZ()));
    EXPECT_FALSE(box->GetIsEmpty());
    FdoPtr<FdoByteArray> fgf = factory->GetFgf(point);
    EXPECT_EQ(Bytes(fgf->GetData(), fgf->GetData() + fgf->GetCount()), second);
  }
}

TEST(KeptPoints, AnEmptyPointIsEmptyAndLeavesNothing) {
  Bytes const empty = Fgf("POINT EMPTY");
  Bytes const point = Fgf("POINT (1 2)");
  for (int round = 0; round < 3; ++round) {
    FdoPtr<FdoIEnvelope> none = FdoPtr<FdoIGeometry>(Borrowing(empty))->GetEnvelope();
    EXPECT_TRUE(none->GetIsEmpty());
    none = nullptr;
    FdoPtr<FdoIEnvelope> box = FdoPtr<FdoIGeometry>(Borrowing(point))->GetEnvelope();
    EXPECT_EQ(box->GetMinX(), 1);
    EXPECT_EQ(box->GetMaxY(), 2);
  }
}

TEST(KeptPoints, AnEnvelopeKeepsItsPointFromBeingMadeAnother) {
  Bytes const first = Fgf("POINT (1 2)");
  Bytes const second = Fgf("POINT (30 40)");
  FdoPtr<FdoIEnvelope> box = FdoPtr<FdoIGeometry>(Borrowing(first))->GetEnvelope();
  FdoPtr<FdoIPoint> other = Borrowing(second);
  EXPECT_EQ(box->GetMinX(), 1);
  EXPECT_EQ(FdoPtr<FdoIEnvelope>(other->GetEnvelope())->GetMinX(), 30);
}

TEST(KeptPoints, PointsThatLiveTogetherAreApart) {
  for (int count : {2, 3, 16, 17, 40}) {
    for (int round = 0; round < 3; ++round) {
      std::vector<Bytes> bytes;
      for (int i = 0; i < count; ++i) bytes.push_back(Fgf("POINT (" + std::to_string(i) + " 7)"));
      std::vector<FdoPtr<FdoIPoint>> points;
      for (Bytes const& each : bytes) points.push_back(Borrowing(each));
      for (int i = 0; i < count; ++i) {
        FdoPtr<FdoIEnvelope> box = points[static_cast<std::size_t>(i)]->GetEnvelope();
        ASSERT_EQ(box->GetMinX(), i) << count << " points";
        ASSERT_EQ(box->GetMaxY(), 7) << count << " points";
      }
    }
  }
}

// The constant of a filter is remembered from row to row: a point that looks like one before must not be
// taken for it.
TEST(KeptPoints, EveryPointAnswersForItself) {
  Bytes const square = Fgf("POLYGON ((0 0, 10 1, 11 11, 0 10, 0 0))");
  FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
  FdoPtr<FdoIGeometry> polygon =
      factory->CreateGeometryFromFgf(square.data(), static_cast<FdoInt32>(square.size()));
  Bytes const inside = Fgf("POINT (5 5)");
  Bytes const outside = Fgf("POINT (10.9 1)");
  for (int round = 0; round < 40; ++round) {
    FdoPtr<FdoIPoint> point = Borrowing(round % 3 == 0 ? outside : inside);
    EXPECT_EQ(FdoSpatialUtility::Evaluate(point, FdoSpatialOperations_Within, polygon), round % 3 != 0);
  }
}

}  // namespace
