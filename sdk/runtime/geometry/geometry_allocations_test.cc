// Where the interface says that nothing is copied, nothing is allocated either.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "FdoSpatial.h"
#include "port/live_allocations.h"
#include "testing/fgf_builder.h"

namespace {

using fdo::Fgf;

using Bytes = std::vector<unsigned char>;

// Of the first use on a thread.
constexpr int kWarm = 4;
constexpr int kCounted = 100;

// How often an operation allocates once it is warm.
template <class Operation>
double AllocationsOf(Operation operation) {
  for (int i = 0; i < kWarm; ++i) operation();
  long long const before = fdo::port::AllocationsSoFar();
  for (int i = 0; i < kCounted; ++i) operation();
  return static_cast<double>(fdo::port::AllocationsSoFar() - before) / kCounted;
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
  FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
  Bytes const bytes = Fgf("POINT (1 2)");
  FdoPtr<FdoIGeometry> geometry =
      factory->CreateGeometryFromFgf(bytes.data(), static_cast<FdoInt32>(bytes.size()));
  auto* const point = static_cast<FdoIPoint*>(geometry.p);
  EXPECT_EQ(AllocationsOf([&] { EXPECT_EQ(point->GetOrdinates()[1], 2); }), 0);
}

TEST(GeometryAllocations, AskingWhereAPointLiesTakesNothing) {
  Bytes const square = Fgf("POLYGON ((0 0, 10 1, 11 11, 0 10, 0 0))");
  FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
  FdoPtr<FdoIGeometry> polygon =
      factory->CreateGeometryFromFgf(square.data(), static_cast<FdoInt32>(square.size()));
  Bytes const inside = Fgf("POINT (5 5)");
  FdoPtr<FdoIGeometry> point =
      factory->CreateGeometryFromFgf(inside.data(), static_cast<FdoInt32>(inside.size()));
  EXPECT_EQ(
      AllocationsOf([&] {
        EXPECT_TRUE(FdoSpatialUtility::Evaluate(point, FdoSpatialOperations_Within, polygon));
        EXPECT_TRUE(FdoSpatialUtility::Evaluate(point, FdoSpatialOperations_EnvelopeIntersects, polygon));
      }),
      0);
}

}  // namespace
