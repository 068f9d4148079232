// Streams that lie: cut short, with counts that nothing backs, nested without end. Input and output
// end at watched memory, so that a single byte outside stops the program.
#include <fdo/geometry_stream.h>
#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "port/guarded_bytes.h"
#include "port/small_stack.h"
#include "testing/caught_message.h"
#include "testing/fgf_builder.h"
#include "testing/fgf_catalogue.h"
#include "testing/iso_wkb_pairs.h"

namespace fdo {
namespace {

using Bytes = std::vector<unsigned char>;

enum class Outcome { kInvalid, kNothing, kDone };

struct Routine {
  char const* name;
  // Returns whether there is a result.
  bool (*run)(unsigned char const* begin, unsigned char const* end, unsigned char* out);
  std::size_t (*outputBound)(std::size_t);
};

std::size_t NoOutput(std::size_t) { return 0; }

enum FgfRoutine { kSkip, kBox, kVisit, kToWkb, kToIsoWkb };
constexpr Routine kFgfRoutines[] = {
    {"SkipGeometry",
     [](unsigned char const* begin, unsigned char const* end, unsigned char*) {
       return SkipGeometry(begin, end) <= end;
     },
     NoOutput},
    {"FgfBox",
     [](unsigned char const* begin, unsigned char const* end, unsigned char*) {
       double box[4];
       return FgfBox(begin, end, box) <= end;
     },
     NoOutput},
    {"VisitFgf",
     [](unsigned char const* begin, unsigned char const* end, unsigned char*) {
       FgfVisitor visitor;
       return VisitFgf(begin, end, visitor) <= end;
     },
     NoOutput},
    {"FgfToWkb",
     [](unsigned char const* begin, unsigned char const* end, unsigned char* out) {
       return FgfToWkb(begin, static_cast<std::size_t>(end - begin), out) > 0;
     },
     FgfToWkbBound},
    {"FgfToIsoWkb",
     [](unsigned char const* begin, unsigned char const* end, unsigned char* out) {
       return FgfToIsoWkb(begin, static_cast<std::size_t>(end - begin), out) > 0;
     },
     FgfToIsoWkbBound},
};

enum WkbRoutine { kToFgf, kIsoToFgf };
constexpr Routine kWkbRoutines[] = {
    {"WkbToFgf",
     [](unsigned char const* begin, unsigned char const* end, unsigned char* out) {
       return WkbToFgf(begin, static_cast<std::size_t>(end - begin), out) > 0;
     },
     WkbToFgfBound},
    {"IsoWkbToFgf",
     [](unsigned char const* begin, unsigned char const* end, unsigned char* out) {
       return IsoWkbToFgf(begin, static_cast<std::size_t>(end - begin), out) > 0;
     },
     IsoWkbToFgfBound},
};

class WatchedRun {
 public:
  Outcome operator()(Routine const& routine, unsigned char const* bytes, std::size_t size) {
    unsigned char* const in = in_.Last(size);
    if (size > 0) std::memcpy(in, bytes, size);
    unsigned char* const out = out_.Last(routine.outputBound(size));
    bool done = false;
    std::wstring const message = CaughtMessage([&] { done = routine.run(in, in + size, out); });
    if (!message.empty()) {
      EXPECT_EQ(message, L"Invalid FGF stream!") << routine.name;
      return Outcome::kInvalid;
    }
    return done ? Outcome::kDone : Outcome::kNothing;
  }

 private:
  port::GuardedBytes in_{1 << 21};
  port::GuardedBytes out_{1 << 22};
};

std::vector<WkbStream> EveryWkb() {
  std::vector<WkbStream> streams;
  for (IsoWkbPair const& pair : IsoWkbPairs()) {
    for (WkbOrder const order : {WkbOrder::kLittleEndian, WkbOrder::kBigEndian, WkbOrder::kMixed}) {
      for (WkbZ const z : {WkbZ::kThousands, WkbZ::kBit}) streams.push_back(BuildWkb(pair.wkb, order, z));
    }
  }
  return streams;
}

TEST(HostileStream, EveryPrefixOfEveryFgfStreamFailsCleanly) {
  WatchedRun run;
  for (CataloguedStream const& entry : FgfCatalogue()) {
    Bytes const& bytes = entry.stream.bytes;
    for (std::size_t size = 0; size < bytes.size(); ++size) {
      for (Routine const& routine : kFgfRoutines) {
        bool const mayBeInvalid = &routine != &kFgfRoutines[kToIsoWkb];
        bool const mayBeNothing = &routine == &kFgfRoutines[kToWkb] || !mayBeInvalid;
        Outcome const outcome = run(routine, bytes.data(), size);
        ASSERT_TRUE((outcome == Outcome::kInvalid && mayBeInvalid) ||
                    (outcome == Outcome::kNothing && mayBeNothing))
            << routine.name << ", " << size << " bytes of " << entry.text;
      }
    }
    for (Routine const& routine : {kFgfRoutines[kSkip], kFgfRoutines[kBox], kFgfRoutines[kVisit]}) {
      ASSERT_EQ(run(routine, bytes.data(), bytes.size()), Outcome::kDone)
          << routine.name << ", " << entry.text;
    }
  }
}

TEST(HostileStream, EveryPrefixOfEveryWkbStreamFailsCleanly) {
  WatchedRun run;
  for (WkbStream const& stream : EveryWkb()) {
    for (std::size_t size = 0; size < stream.bytes.size(); ++size) {
      // Big-endian numbers may look like anything to the older form, which takes them as they lie.
      run(kWkbRoutines[kToFgf], stream.bytes.data(), size);
      ASSERT_EQ(run(kWkbRoutines[kIsoToFgf], stream.bytes.data(), size), Outcome::kNothing) << size;
    }
    ASSERT_EQ(run(kWkbRoutines[kIsoToFgf], stream.bytes.data(), stream.bytes.size()), Outcome::kDone);
  }
  for (CataloguedStream const& entry : FgfCatalogue()) {
    if (!entry.inOldWkb || entry.dimensionality != 0) continue;
    Bytes wkb(FgfToWkbBound(entry.stream.bytes.size()));
    wkb.resize(FgfToWkb(entry.stream.bytes.data(), entry.stream.bytes.size(), wkb.data()));
    for (std::size_t size = 0; size < wkb.size(); ++size) {
      ASSERT_EQ(run(kWkbRoutines[kToFgf], wkb.data(), size), Outcome::kInvalid)
          << size << " bytes of " << entry.text;
    }
  }
}

// The last ones make count times 16, 24 or 32 overflow 32 bits to a small number.
constexpr std::int32_t kHostileCounts[] = {-1,         INT32_MIN,  INT32_MAX,  INT32_MAX - 1,
                                           0x10000001, 0x0AAAAAAB, 0x08000001, 0x40000000};

TEST(HostileStream, CountThatNothingBacksIsInvalid) {
  WatchedRun run;
  for (CataloguedStream const& entry : FgfCatalogue()) {
    for (std::size_t const at : entry.stream.countOffsets) {
      for (std::int32_t const count : kHostileCounts) {
        Bytes bytes = entry.stream.bytes;
        std::memcpy(&bytes[at], &count, sizeof(count));
        for (Routine const& routine : {kFgfRoutines[kSkip], kFgfRoutines[kBox], kFgfRoutines[kVisit]}) {
          ASSERT_EQ(run(routine, bytes.data(), bytes.size()), Outcome::kInvalid)
              << routine.name << ", " << count << " at " << at << " of " << entry.text;
        }
        ASSERT_NE(run(kFgfRoutines[kToWkb], bytes.data(), bytes.size()), Outcome::kDone) << entry.text;
        ASSERT_EQ(run(kFgfRoutines[kToIsoWkb], bytes.data(), bytes.size()), Outcome::kNothing) << entry.text;
      }
    }
  }
}

TEST(HostileStream, RingCountThatNothingBacksIsInvalidUnlessItIsBelowOne) {
  WatchedRun run;
  for (CataloguedStream const& entry : FgfCatalogue()) {
    bool const isSingle = entry.stream.ringCountOffsets == std::vector<std::size_t>{8};
    for (std::size_t const at : entry.stream.ringCountOffsets) {
      for (std::int32_t const count : kHostileCounts) {
        Bytes bytes = entry.stream.bytes;
        std::memcpy(&bytes[at], &count, sizeof(count));
        for (Routine const& routine : kFgfRoutines) {
          Outcome const outcome = run(routine, bytes.data(), bytes.size());
          if (count > 0) {
            ASSERT_NE(outcome, Outcome::kDone) << routine.name << ", " << count << " rings in " << entry.text;
          } else if (isSingle && routine.outputBound == NoOutput) {
            ASSERT_EQ(outcome, Outcome::kDone) << routine.name << ", " << count << " rings in " << entry.text;
          }
        }
      }
    }
  }
}

TEST(HostileStream, CountNearTheTruthStaysInside) {
  WatchedRun run;
  for (CataloguedStream const& entry : FgfCatalogue()) {
    std::vector<std::size_t> offsets = entry.stream.countOffsets;
    offsets.insert(offsets.end(), entry.stream.ringCountOffsets.begin(), entry.stream.ringCountOffsets.end());
    for (std::size_t const at : offsets) {
      for (std::int32_t const difference : {-2, -1, 1, 2, 1000}) {
        Bytes bytes = entry.stream.bytes;
        std::int32_t count;
        std::memcpy(&count, &bytes[at], sizeof(count));
        count += difference;
        std::memcpy(&bytes[at], &count, sizeof(count));
        Outcome const skipped = run(kFgfRoutines[kSkip], bytes.data(), bytes.size());
        ASSERT_EQ(run(kFgfRoutines[kBox], bytes.data(), bytes.size()), skipped)
            << count << " in " << entry.text;
        ASSERT_EQ(run(kFgfRoutines[kVisit], bytes.data(), bytes.size()), skipped)
            << count << " in " << entry.text;
        for (Routine const& routine : {kFgfRoutines[kToWkb], kFgfRoutines[kToIsoWkb]}) {
          if (run(routine, bytes.data(), bytes.size()) == Outcome::kDone) {
            ASSERT_EQ(skipped, Outcome::kDone) << routine.name << ", " << count << " in " << entry.text;
          }
        }
      }
    }
  }
}

TEST(HostileStream, WkbCountThatNothingBacksFailsCleanly) {
  WatchedRun run;
  for (WkbStream const& stream : EveryWkb()) {
    for (std::size_t const at : stream.countOffsets) {
      for (std::int32_t const count : kHostileCounts) {
        for (bool const swapped : {false, true}) {
          Bytes bytes = stream.bytes;
          std::memcpy(&bytes[at], &count, sizeof(count));
          if (swapped) std::swap(bytes[at], bytes[at + 3]), std::swap(bytes[at + 1], bytes[at + 2]);
          run(kWkbRoutines[kToFgf], bytes.data(), bytes.size());
          run(kWkbRoutines[kIsoToFgf], bytes.data(), bytes.size());
        }
      }
    }
  }
  // With the byte order known, there is one right answer.
  for (IsoWkbPair const& pair : IsoWkbPairs()) {
    WkbStream const stream = BuildWkb(pair.wkb);
    for (std::size_t const at : stream.countOffsets) {
      for (std::int32_t const count : kHostileCounts) {
        Bytes bytes = stream.bytes;
        std::memcpy(&bytes[at], &count, sizeof(count));
        ASSERT_EQ(run(kWkbRoutines[kIsoToFgf], bytes.data(), bytes.size()), Outcome::kNothing)
            << count << " in " << pair.wkb;
      }
    }
  }
}

// That many collections around a point.
Bytes NestedFgf(int depth) {
  Bytes bytes;
  for (int i = 0; i < depth; ++i) bytes.insert(bytes.end(), {7, 0, 0, 0, 1, 0, 0, 0});
  Bytes const point = Fgf("POINT (1 2)");
  bytes.insert(bytes.end(), point.begin(), point.end());
  return bytes;
}

Bytes NestedWkb(int depth) {
  Bytes bytes;
  for (int i = 0; i < depth; ++i) bytes.insert(bytes.end(), {1, 7, 0, 0, 0, 1, 0, 0, 0});
  Bytes const point = Wkb("POINT (1 2)");
  bytes.insert(bytes.end(), point.begin(), point.end());
  return bytes;
}

void TryNesting() {
  WatchedRun run;
  for (int const depth : {10, kFgfMaxLevels - 1, kFgfMaxLevels, 100000}) {
    bool const works = depth < kFgfMaxLevels;
    Bytes const fgf = NestedFgf(depth);
    for (Routine const& routine : {kFgfRoutines[kSkip], kFgfRoutines[kBox], kFgfRoutines[kVisit]}) {
      EXPECT_EQ(run(routine, fgf.data(), fgf.size()), works ? Outcome::kDone : Outcome::kInvalid)
          << routine.name << ", " << depth;
    }
    EXPECT_EQ(run(kFgfRoutines[kToWkb], fgf.data(), fgf.size()), Outcome::kNothing) << depth;
    EXPECT_EQ(run(kFgfRoutines[kToIsoWkb], fgf.data(), fgf.size()),
              works ? Outcome::kDone : Outcome::kNothing)
        << depth;
    Bytes const wkb = NestedWkb(depth);
    EXPECT_EQ(run(kWkbRoutines[kIsoToFgf], wkb.data(), wkb.size()),
              works ? Outcome::kDone : Outcome::kNothing)
        << depth;
  }
}

TEST(HostileStream, NestingIsBoundedOnASmallStack) {
  port::RunOnStack(
      256 * 1024, [](void*) { TryNesting(); }, nullptr);
}

TEST(HostileStream, InnermostLevelMayBeACollectionWithoutParts) {
  Bytes bytes = NestedFgf(kFgfMaxLevels - 1);
  bytes.resize(bytes.size() - 24);
  bytes.insert(bytes.end(), {7, 0, 0, 0, 0, 0, 0, 0});
  EXPECT_EQ(SkipGeometry(bytes.data(), bytes.data() + bytes.size()), bytes.data() + bytes.size());
}

TEST(HostileStream, RandomDamageStaysInsideAndRoutinesAgree) {
  constexpr unsigned kSeed = 6101;
  std::mt19937 random(kSeed);
  WatchedRun run;
  for (int round = 0; round < 20000; ++round) {
    CataloguedStream const& entry = FgfCatalogue()[random() % FgfCatalogue().size()];
    Bytes bytes = entry.stream.bytes;
    for (unsigned flips = 1 + random() % 4; flips > 0; --flips) {
      bytes[random() % bytes.size()] =
          static_cast<unsigned char>(random() % 3 == 0 ? random() : random() % 14);
    }
    Outcome const skipped = run(kFgfRoutines[kSkip], bytes.data(), bytes.size());
    ASSERT_EQ(run(kFgfRoutines[kBox], bytes.data(), bytes.size()), skipped)
        << "seed " << kSeed << ", round " << round;
    ASSERT_EQ(run(kFgfRoutines[kVisit], bytes.data(), bytes.size()), skipped)
        << "seed " << kSeed << ", round " << round;
    run(kFgfRoutines[kToWkb], bytes.data(), bytes.size());
    run(kFgfRoutines[kToIsoWkb], bytes.data(), bytes.size());
    run(kWkbRoutines[kToFgf], bytes.data(), bytes.size());
    run(kWkbRoutines[kIsoToFgf], bytes.data(), bytes.size());
  }
}

}  // namespace
}  // namespace fdo
