#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <thread>
#include <utility>
#include <vector>

#include "FdoGeometry.h"

namespace {

constexpr int kManyGeometries = 300;  // more than a thread keeps the memory of

// The bytes outlive the geometries that borrow them.
struct Geometries {
  std::vector<std::array<FdoByte, 24>> bytes;
  std::vector<FdoPtr<FdoIGeometry>> all;
};

// Points whose bytes are borrowed and points that hold their array, by turns.
Geometries MakePoints(double x) {
  FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
  Geometries points;
  points.bytes.resize(kManyGeometries);
  for (int y = 0; y < kManyGeometries; ++y) {
    FdoInt32 const head[] = {FdoGeometryType_Point, FdoDimensionality_XY};
    double const position[] = {x, static_cast<double>(y)};
    FdoByte* const bytes = points.bytes[static_cast<std::size_t>(y)].data();
    constexpr FdoInt32 kSize = sizeof(head) + sizeof(position);
    std::memcpy(bytes, head, sizeof(head));
    std::memcpy(bytes + sizeof(head), position, sizeof(position));
    if (y % 2 == 0) {
      points.all.push_back(FdoPtr<FdoIGeometry>(factory->CreateGeometryFromFgf(bytes, kSize)));
    } else {
      FdoPtr<FdoByteArray> array = FdoByteArray::Create(bytes, kSize);
      points.all.push_back(FdoPtr<FdoIGeometry>(factory->CreateGeometryFromFgf(array)));
    }
  }
  return points;
}

int CountRight(Geometries const& points, double x) {
  int right = 0;
  for (int y = 0; y < kManyGeometries; ++y) {
    FdoPtr<FdoIEnvelope> box = points.all[static_cast<std::size_t>(y)]->GetEnvelope();
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
      points.all.clear();
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
  Geometries points;
};
thread_local EndsLate endsLate;

TEST(GeometryThreads, AGeometryMayOutliveWhatItsThreadKeeps) {
  int right = 0;
  std::thread([&] {
    endsLate.points.all.clear();  // made before the thread keeps anything, so destroyed after that
    Geometries points = MakePoints(7);
    right = CountRight(points, 7);
    endsLate.points = std::move(points);
  }).join();
  EXPECT_EQ(right, kManyGeometries);
}

}  // namespace
