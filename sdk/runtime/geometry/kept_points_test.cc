// A point may be made of one that ended before; nothing of that one shows.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "FdoSpatial.h"
#include "sdk/runtime/core/live_allocations.h"
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

// Of the first use on a thread.
constexpr int kWarm = 4;
constexpr int kCounted = 100;

// How often an operation allocates once it is warm.
template <class Operation>
double AllocationsOf(Operation operation) {
  for (int i = 0; i < kWarm; ++i) operation();
  long long const before = fdo_sdk::AllocationsSoFar();
  for (int i = 0; i < kCounted; ++i) operation();
  return static_cast<double>(fdo_sdk::AllocationsSoFar() - before) / kCounted;
}

std::string LineOf(int positions) {
  std::string text = "LINESTRING (";
  for (int i = 0; i < positions; ++i) text += (i == 0 ? "" : ", ") + std::to_string(i) + " 7";
  return text + ")";
}

TEST(GeometryAllocations, MakingAGeometryOfBytesCopiesNothing) {
#ifdef FDO_SDK_KEEPS_NO_MEMORY
  constexpr double kForTheObject = 1;
#else
  constexpr double kForTheObject = 0;
#endif
  FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
  for (std::string const& text : {std::string("POINT (1 2)"), std::string("POINT Z (1 2 3)"), LineOf(2),
                                  LineOf(10000), std::string("POLYGON ((0 0, 9 0, 9 9, 0 0))")}) {
    Bytes const bytes = Fgf(text);
    auto const size = static_cast<FdoInt32>(bytes.size());
    EXPECT_EQ(AllocationsOf([&] {
                FdoPtr<FdoIGeometry> geometry = factory->CreateGeometryFromFgf(bytes.data(), size);
                FdoPtr<FdoIEnvelope> box = geometry->GetEnvelope();
                EXPECT_EQ(box->GetMinX(), box->GetOrdinates()[0]);
              }),
              kForTheObject)
        << text.substr(0, 40);
    FdoPtr<FdoByteArray> array = FdoByteArray::Create(bytes.data(), size);
    EXPECT_EQ(AllocationsOf([&] {
                FdoPtr<FdoIGeometry> geometry = factory->CreateGeometryFromFgf(array);
                FdoPtr<FdoByteArray> same = factory->GetFgf(geometry);
                EXPECT_EQ(same.p, array.p);
              }),
              kForTheObject)
        << text.substr(0, 40);
  }
}

TEST(GeometryAllocations, LendingOrdinatesInPlaceCopiesNothing) {
  Bytes const bytes = Fgf("POINT (1 2)");
  FdoPtr<FdoIPoint> point = Borrowing(bytes);
  EXPECT_EQ(AllocationsOf([&] { EXPECT_EQ(point->GetOrdinates()[1], 2); }), 0);
}

TEST(GeometryAllocations, AskingWhereAPointLiesTakesNothing) {
  Bytes const square = Fgf("POLYGON ((0 0, 10 1, 11 11, 0 10, 0 0))");
  FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
  FdoPtr<FdoIGeometry> polygon =
      factory->CreateGeometryFromFgf(square.data(), static_cast<FdoInt32>(square.size()));
  Bytes const inside = Fgf("POINT (5 5)");
  FdoPtr<FdoIPoint> point = Borrowing(inside);
  EXPECT_EQ(
      AllocationsOf([&] {
        EXPECT_TRUE(FdoSpatialUtility::Evaluate(point, FdoSpatialOperations_Within, polygon));
        EXPECT_TRUE(FdoSpatialUtility::Evaluate(point, FdoSpatialOperations_EnvelopeIntersects, polygon));
      }),
      0);
}

}  // namespace
