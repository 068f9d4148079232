#include "sdk/providers/sqlite/packed_tree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>
#include <vector>

namespace fdo_sqlite {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

typedef std::vector<std::int64_t> Rows;

FgfBox Box(double minX, double minY, double maxX, double maxY) {
  FgfBox box;
  box.Expand(minX, minY);
  box.Expand(maxX, maxY);
  return box;
}

std::vector<RowBox> RandomBoxes(std::mt19937& random, std::size_t count, double largest) {
  std::uniform_real_distribution<double> place(-100, 100);
  std::uniform_real_distribution<double> size(0, largest);
  std::vector<RowBox> boxes;
  for (std::size_t i = 0; i < count; ++i) {
    double const x = place(random);
    double const y = place(random);
    double const width = largest == 0 ? 0 : size(random);
    boxes.push_back({x, y, x + width, y + width, static_cast<std::int64_t>(i) * 7 - 50});
  }
  return boxes;
}

Rows Scan(std::vector<RowBox> const& boxes, FgfBox const& box) {
  Rows rows;
  for (RowBox const& each : boxes) {
    if (each.Intersects(box)) rows.push_back(each.row);
  }
  std::sort(rows.begin(), rows.end());
  return rows;
}

Rows Find(TreeNodes& tree, FgfBox const& box) {
  Rows rows;
  EXPECT_TRUE(FindRows(tree, box, rows));
  std::sort(rows.begin(), rows.end());
  return rows;
}

// Sizes around one and several full nodes and levels.
TEST(PackedTree, FindsWhatAScanFinds) {
  std::mt19937 random(1);
  for (std::size_t count : {1u, 2u, 101u, 102u, 168u, 169u, 1000u, 10201u, 10202u, 40000u}) {
    for (double largest : {0.0, 5.0}) {
      std::vector<RowBox> const boxes = RandomBoxes(random, count, largest);
      std::vector<RowBox> built = boxes;
      MemoryTree tree(built);
      for (int query = 0; query < 20; ++query) {
        std::uniform_real_distribution<double> place(-110, 110);
        FgfBox const box = Box(place(random), place(random), place(random), place(random));
        ASSERT_EQ(Find(tree, box), Scan(boxes, box)) << count << " boxes, query " << query;
      }
    }
  }
}

TEST(PackedTree, EdgesTouch) {
  std::vector<RowBox> boxes{{0, 0, 1, 1, 5}, {1, 1, 2, 2, 6}};
  MemoryTree tree(boxes);
  EXPECT_EQ(Find(tree, Box(1, 1, 1, 1)), (Rows{5, 6}));
  EXPECT_EQ(Find(tree, Box(2, 2, 3, 3)), (Rows{6}));
  EXPECT_EQ(Find(tree, Box(std::nextafter(2, 3), 0, 3, 3)), (Rows{}));
}

TEST(PackedTree, SamePlacesAndInfiniteOrdinatesAreFound) {
  std::vector<RowBox> boxes(500, RowBox{3, 3, 3, 3, 1});
  boxes.push_back({-kInfinity, -kInfinity, kInfinity, kInfinity, 2});
  boxes.push_back({kInfinity, 0, kInfinity, 0, 3});
  boxes.push_back({-1e308, -1e308, 1e308, 1e308, 4});
  MemoryTree tree(boxes);
  EXPECT_EQ(Find(tree, Box(3, 3, 3, 3)).size(), 502u);
  EXPECT_EQ(Find(tree, Box(kInfinity, -1, kInfinity, 1)), (Rows{2, 3}));
}

TEST(PackedTree, ANodeFitsOnePage) {
  std::mt19937 random(1);
  for (double largest : {0.0, 5.0}) {
    std::vector<RowBox> boxes = RandomBoxes(random, 5000, largest);
    std::size_t longest = 0;
    BuildPackedTree(boxes, [&](void const*, std::size_t size) { longest = std::max(longest, size); });
    // What SQLite keeps of a row on one page of 4096 bytes, less the head of the record.
    EXPECT_LE(longest, 4061u - 4u);
    EXPECT_GT(longest, 4000u);
  }
}

TEST(PackedTree, TheExtentIsThatOfTheRowsThatArePresent) {
  std::mt19937 random(2);
  std::vector<RowBox> const boxes = RandomBoxes(random, 20000, 3);
  std::vector<RowBox> built = boxes;
  MemoryTree tree(built);
  for (int rest : {1, 2, 50}) {
    auto const isPresent = [&](std::int64_t row) { return row % rest == 0; };
    FgfBox expected;
    for (RowBox const& each : boxes) {
      if (!isPresent(each.row)) continue;
      expected.Expand(each.minX, each.minY);
      expected.Expand(each.maxX, each.maxY);
    }
    FgfBox box;
    int asked = 0;
    ASSERT_TRUE(GrowByExtent(
        tree, [&](std::int64_t row) { return ++asked, isPresent(row); }, box));
    EXPECT_EQ(box.minX, expected.minX);
    EXPECT_EQ(box.minY, expected.minY);
    EXPECT_EQ(box.maxX, expected.maxX);
    EXPECT_EQ(box.maxY, expected.maxY);
    EXPECT_LT(asked, 2000);
  }
  FgfBox none;
  EXPECT_TRUE(GrowByExtent(
      tree, [](std::int64_t) { return false; }, none));
  EXPECT_TRUE(none.IsEmpty());
}

TEST(PackedTree, TheShareOfLeavesTellsHowMuchABoxReaches) {
  std::mt19937 random(3);
  std::vector<RowBox> boxes = RandomBoxes(random, 50000, 0);
  MemoryTree tree(boxes);
  auto const part = [&](FgfBox const& box) {
    TreeShare share;
    EXPECT_TRUE(ReachedLeaves(tree, box, share));
    return static_cast<double>(share.reached) / static_cast<double>(share.all);
  };
  EXPECT_GT(part(Box(-100, -100, 100, 100)), 0.9);
  EXPECT_LT(part(Box(-100, -100, 100, 100)), 1.1);
  EXPECT_LT(part(Box(0, 0, 20, 20)), 0.1);
  EXPECT_EQ(part(Box(200, 200, 300, 300)), 0);
}

// A tree in a file that somebody has damaged.
class DamagedTree : public TreeNodes {
 public:
  explicit DamagedTree(std::vector<std::vector<unsigned char>> nodes) : nodes_(std::move(nodes)) {}
  std::int64_t NodeCount() const override { return static_cast<std::int64_t>(nodes_.size()); }
  bool Node(std::int64_t number, NodeView& node) override {
    auto const& bytes = nodes_[static_cast<std::size_t>(number)];
    return node.Read(bytes.data(), bytes.size());
  }

 private:
  std::vector<std::vector<unsigned char>> nodes_;
};

TEST(PackedTree, ADamagedTreeIsRefusedOrSearchedInBounds) {
  std::mt19937 random(4);
  std::vector<RowBox> boxes = RandomBoxes(random, 30000, 1);
  std::vector<std::vector<unsigned char>> nodes;
  BuildPackedTree(boxes, [&](void const* bytes, std::size_t size) {
    auto const* const begin = static_cast<unsigned char const*>(bytes);
    nodes.emplace_back(begin, begin + size);
  });
  FgfBox const all = Box(-1000, -1000, 1000, 1000);
  int refused = 0;
  for (int round = 0; round < 300; ++round) {
    auto damaged = nodes;
    // The upper nodes, which lead the search.
    auto& bytes = damaged[damaged.size() - 1 - random() % 3];
    if (round % 3 == 0) bytes.resize(random() % bytes.size());
    for (int i = 0; i < 3 && !bytes.empty(); ++i) {
      bytes[random() % std::min<std::size_t>(bytes.size(), round % 2 == 0 ? 8 : 5000)] =
          static_cast<unsigned char>(random());
    }
    DamagedTree tree(std::move(damaged));
    Rows rows;
    TreeShare share;
    FgfBox extent;
    refused += !FindRows(tree, all, rows);
    EXPECT_LE(rows.size(), 200u * nodes.size() * 168u);
    ReachedLeaves(tree, all, share);
    GrowByExtent(
        tree, [](std::int64_t) { return true; }, extent);
  }
  EXPECT_GT(refused, 100);
}

}  // namespace
}  // namespace fdo_sqlite
