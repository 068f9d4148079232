#include "bench/compare.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace fdo::bench {
namespace {

// Runs sides that take the given seconds, on a clock that they move on; records who ran.
class Stopwatch {
 public:
  Side Taking(char who, std::vector<double> seconds, Work work) {
    return [this, who, seconds, work, call = std::size_t{0}]() mutable {
      order_ += who;
      now_ += seconds[std::min(call++, seconds.size() - 1)];
      return work;
    };
  }
  Clock Reading() {
    return [this] { return now_; };
  }
  std::string const& Order() const { return order_; }

 private:
  double now_ = 100;
  std::string order_;
};

constexpr Work kHundred{100, 7};

Job JobIn(Unit unit, double goal) { return {"job", "data", unit, goal, nullptr}; }

TEST(Compare, AlternatesAfterOnePairThatIsNotCounted) {
  Stopwatch watch;
  Sides const sides{watch.Taking('o', {50, 1}, kHundred), watch.Taking('p', {1}, kHundred)};
  Comparison const result = Compare(JobIn(kRowsPerSecond, 0), sides, {3, 0}, watch.Reading());
  EXPECT_EQ(watch.Order(), "opopopop");
  EXPECT_DOUBLE_EQ(result.ours, 100);
  EXPECT_DOUBLE_EQ(result.peer, 100);
  EXPECT_DOUBLE_EQ(result.lowestRatio, 1);
}

TEST(Compare, RatioIsTheMedianOfThePairsRatios) {
  Stopwatch watch;
  // Ratios 2, 0.5 and 4 within the pairs; the ratio of the medians would be 1.
  Sides const sides{watch.Taking('o', {1, 1, 4, 2}, kHundred), watch.Taking('p', {1, 2, 2, 8}, kHundred)};
  Comparison const result = Compare(JobIn(kRowsPerSecond, 0), sides, {3, 0}, watch.Reading());
  EXPECT_DOUBLE_EQ(result.ours, 50);
  EXPECT_DOUBLE_EQ(result.peer, 50);
  EXPECT_DOUBLE_EQ(result.ratio, 2);
  EXPECT_DOUBLE_EQ(result.lowestRatio, 0.5);
  EXPECT_DOUBLE_EQ(result.highestRatio, 4);
}

TEST(Compare, ShortSidesAreRepeated) {
  Stopwatch watch;
  Sides const sides{watch.Taking('o', {1}, kHundred), watch.Taking('p', {2}, kHundred)};
  Comparison const result = Compare(JobIn(kRowsPerSecond, 0), sides, {1, 4}, watch.Reading());
  EXPECT_EQ(watch.Order(),
            "op"
            "oooopp");
  EXPECT_DOUBLE_EQ(result.ours, 100);
  EXPECT_DOUBLE_EQ(result.peer, 50);
}

TEST(Compare, OtherWorkIsAnError) {
  struct {
    char const* name;
    Unit unit;
    Work peer;
    bool fails;
  } const cases[] = {
      {"the same", kRowsPerSecond, {100, 7}, false},
      {"another checksum", kRowsPerSecond, {100, 8}, true},
      {"fewer rows", kRowsPerSecond, {99, 7}, true},
      {"more memory", kMebibytes, {101, 7}, false},
      {"more memory, another checksum", kMebibytes, {101, 8}, true},
  };
  for (auto const& c : cases) {
    SCOPED_TRACE(c.name);
    Stopwatch watch;
    Sides const sides{watch.Taking('o', {1}, kHundred), watch.Taking('p', {1}, c.peer)};
    auto const run = [&] { Compare(JobIn(c.unit, 1), sides, {1, 0}, watch.Reading()); };
    if (c.fails) {
      EXPECT_THROW(run(), std::runtime_error);
    } else {
      EXPECT_NO_THROW(run());
    }
  }
}

TEST(Compare, WorkThatChangesFromRunToRunIsAnError) {
  Stopwatch watch;
  std::uint64_t checksum = 0;
  Side const ours = [&, inner = watch.Taking('o', {1}, kHundred)]() mutable {
    Work work = inner();
    work.checksum = checksum++;
    return work;
  };
  Side const peer = watch.Taking('p', {1}, {100, 0});
  EXPECT_THROW(Compare(JobIn(kRowsPerSecond, 0), {ours, peer}, {1, 2}, watch.Reading()), std::runtime_error);
}

TEST(Compare, GoalIsALeastRatioOrAGreatestAmount) {
  struct {
    Unit unit;
    double goal;
    double ours;
    double ratio;
    bool reached;
  } const cases[] = {
      {kRowsPerSecond, 0.5, 50, 0.5, true}, {kRowsPerSecond, 0.5, 25, 0.25, false},
      {kRowsPerSecond, 0, 1, 0.01, true},   {kMebibytes, 2, 1, 2, true},
      {kMebibytes, 2, 2, 1, true},          {kMebibytes, 2, 4, 0.5, false},
      {kMebibytes, 2, 0, 32, true},         {kMebibytes, 2, -3, 32, true},
      {kMebibytes, 2, 1.0 / 512, 32, true},
  };
  for (auto const& c : cases) {
    SCOPED_TRACE(std::string(c.unit.name) + " " + std::to_string(c.ours));
    Stopwatch watch;
    bool const rate = c.unit.measure == Measure::kRate;
    Sides const sides{watch.Taking('o', {rate ? 100 / c.ours : 1}, rate ? kHundred : Work{c.ours, 7}),
                      watch.Taking('p', {1}, kHundred)};
    Comparison const result = Compare(JobIn(c.unit, c.goal), sides, {1, 0}, watch.Reading());
    EXPECT_NEAR(result.ratio, c.ratio, 1e-12);
    EXPECT_EQ(result.reached, c.reached);
  }
}

}  // namespace
}  // namespace fdo::bench
