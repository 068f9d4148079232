// Several threads asking about the same geometries at once.
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "FdoSpatial.h"
#include "sdk/runtime/spatial/geos_family.h"
#include "testing/fgf_builder.h"

namespace {

constexpr std::uint64_t kSeed = 7;

std::string AllAnswers(std::vector<FdoPtr<FdoIGeometry>> const& geometries) {
  std::string answers;
  for (auto const& left : geometries) {
    for (auto const& right : geometries) {
      for (int operation = 0; operation < 11; ++operation) {
        bool const holds =
            FdoSpatialUtility::Evaluate(left.p, static_cast<FdoSpatialOperations>(operation), right.p);
        answers += holds ? 'T' : '-';
      }
    }
  }
  return answers;
}

TEST(EvaluateThreads, ShareGeometriesAndAgree) {
  std::vector<std::vector<unsigned char>> streams;
  for (std::string const& text : fdo_sdk::GeosFamily(40, kSeed)) streams.push_back(fdo::Fgf(text));
  FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
  std::vector<FdoPtr<FdoIGeometry>> geometries;
  for (auto const& stream : streams) {
    geometries.push_back(factory->CreateGeometryFromFgf(stream.data(), static_cast<FdoInt32>(stream.size())));
  }
  std::string const expected = AllAnswers(geometries);
  std::atomic<int> agreed{0};
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) threads.emplace_back([&] { agreed += AllAnswers(geometries) == expected; });
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(agreed, 4);
}

TEST(EvaluateThreads, TakeTheFactoryFromTheFirstUseOn) {
  std::atomic<int> made{0};
  std::vector<unsigned char> const stream = fdo::Fgf("POLYGON ((0 0, 4 0, 4 4, 0 0))");
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&] {
      for (int round = 0; round < 1000; ++round) {
        FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
        FdoPtr<FdoIGeometry> geometry =
            factory->CreateGeometryFromFgf(stream.data(), static_cast<FdoInt32>(stream.size()));
        FdoPtr<FdoIEnvelope> envelope = geometry->GetEnvelope();
        made += envelope->GetMaxX() == 4;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(made, 4000);
}

}  // namespace
