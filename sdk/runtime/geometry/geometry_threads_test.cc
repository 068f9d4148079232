#include <gtest/gtest.h>

#include <cstring>
#include <thread>
#include <vector>

#include "FdoGeometry.h"

namespace {

constexpr int kManyGeometries = 300;  // more than a thread keeps the memory of

using Geometries = std::vector<FdoPtr<FdoIGeometry>>;

Geometries MakePoints(double x) {
  FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
  Geometries points;
  for (int y = 0; y < kManyGeometries; ++y) {
    FdoInt32 const head[] = {FdoGeometryType_Point, FdoDimensionality_XY};
    double const position[] = {x, static_cast<double>(y)};
    FdoByte bytes[sizeof(head) + sizeof(position)];
    std::memcpy(bytes, head, sizeof(head));
    std::memcpy(bytes + sizeof(head), position, sizeof(position));
    FdoPtr<FdoByteArray> array = FdoByteArray::Create(bytes, sizeof(bytes));
    points.push_back(FdoPtr<FdoIGeometry>(factory->CreateGeometryFromFgf(array)));
  }
  return points;
}

int CountRight(Geometries const& points, double x) {
  int right = 0;
  for (int y = 0; y < kManyGeometries; ++y) {
    FdoPtr<FdoIEnvelope> box = points[static_cast<std::size_t>(y)]->GetEnvelope();
    right += box->GetMinX() == x && box->GetMaxX() == x && box->GetMinY() == y && box->GetMaxY() == y;
  }
  return right;
}

TEST(GeometryThreads, AGeometryMayEndOnAnotherThreadThanItsMakers) {
  for (double round = 0; round < 20; ++round) {
    Geometries points;
    std::thread([&] { points = MakePoints(round); }).join();
    int right = 0;
    std::thread([&] {
      Geometries const own = MakePoints(-round);
      right = CountRight(points, round) + CountRight(own, -round);
      points.clear();
      // What the others gave back serves these.
      right += CountRight(MakePoints(round + 0.5), round + 0.5) + CountRight(own, -round);
    }).join();
    EXPECT_EQ(right, 4 * kManyGeometries) << "round " << round;
  }
}

TEST(GeometryThreads, ThreadsMakeAndEndGeometriesAtOnce) {
  std::vector<int> right(4);
  std::vector<std::thread> threads;
  for (std::size_t i = 0; i < right.size(); ++i) {
    threads.emplace_back([&right, i] {
      auto const x = static_cast<double>(i);
      for (int round = 0; round < 20; ++round) right[i] += CountRight(MakePoints(x), x);
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(right, std::vector<int>(right.size(), 20 * kManyGeometries));
}

// Ended after the thread's other objects, the last ones of all.
struct EndsLate {
  FdoPtr<FdoIGeometry> point;
};
thread_local EndsLate endsLate;

TEST(GeometryThreads, AGeometryMayOutliveWhatItsThreadKeeps) {
  int right = 0;
  std::thread([&] {
    endsLate.point = nullptr;  // made before the thread keeps anything, so destroyed after that
    Geometries points = MakePoints(7);
    right = CountRight(points, 7);
    endsLate.point = points.back();
  }).join();
  EXPECT_EQ(right, kManyGeometries);
}

}  // namespace
