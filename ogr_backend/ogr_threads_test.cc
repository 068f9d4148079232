// GDAL is bound at the first use, whichever threads come first, and databases of different threads do not
// meet.
#include <fdo/database_ogr.h>
#include <fdo/row.h>

#include <gtest/gtest.h>

#include <atomic>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "testing/scratch_directory.h"

namespace fdo {
namespace {

TEST(OgrThreads, TheFirstUseMayBeOnManyAtOnce) {
  ScratchDirectory scratch;
  std::wstring const good = scratch.File("good.geojson");
  std::wstring const bad = scratch.File("bad.geojson");
  std::ofstream(scratch.Path() / "good.geojson")
      << R"({"type":"Feature","properties":{"n":5},"geometry":{"type":"Point","coordinates":[1,2]}})";
  constexpr int kThreads = 8;
  constexpr int kRounds = 20;
  std::atomic<int> waiting{kThreads};
  std::atomic<int> opened{0};
  std::atomic<int> failed{0};
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back([&] {
      for (--waiting; waiting > 0;) std::this_thread::yield();
      for (int round = 0; round < kRounds; ++round) {
        DatabaseOgr database;
        if (!database.Connect(bad.c_str(), nullptr, nullptr, true, true) &&
            std::wstring(database.LastError()).find(L"bad.geojson") != std::wstring::npos) {
          ++failed;
        }
        if (!database.Connect(good.c_str(), nullptr, nullptr, true, true)) continue;
        database[0].Query();
        Row const* const row = database[0].Next();
        if (row != nullptr && static_cast<__int64>((*row)[L"n"]) == 5) ++opened;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(opened, kThreads * kRounds);
  EXPECT_EQ(failed, kThreads * kRounds) << "each thread hears of its own failures";
}

}  // namespace
}  // namespace fdo
