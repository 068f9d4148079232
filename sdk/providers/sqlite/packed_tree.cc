#include "sdk/providers/sqlite/packed_tree.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>
#include <queue>
#include <utility>

namespace fdo_sqlite {

namespace {

static_assert(std::endian::native == std::endian::little, "nodes are read and written without conversion");

// Deeper than any tree of 2^63 rows in full nodes.
constexpr int kMostLevels = 12;

template <class Number>
Number LoadAt(unsigned char const* from, std::size_t index) {
  Number value;
  std::memcpy(&value, from + index * sizeof(value), sizeof(value));
  return value;
}

constexpr std::size_t Columns(NodeKind kind) { return kind == NodeKind::kRowPoints ? 3 : 5; }

// The place of a point of the grid along the curve, of the order 16: neighbours on the curve are neighbours
// on the grid.
std::uint32_t HilbertPlace(std::uint32_t x, std::uint32_t y) {
  constexpr std::uint32_t kSide = 1u << 16;
  std::uint32_t place = 0;
  for (std::uint32_t step = kSide / 2; step > 0; step /= 2) {
    std::uint32_t const right = (x & step) != 0;
    std::uint32_t const upper = (y & step) != 0;
    place += step * step * ((3 * right) ^ upper);
    if (upper == 0) {
      if (right == 1) {
        x = kSide - 1 - x;
        y = kSide - 1 - y;
      }
      std::swap(x, y);
    }
  }
  return place;
}

// Lays a grid over the centres of boxes.
class Grid {
 public:
  explicit Grid(std::vector<RowBox> const& boxes) {
    for (RowBox const& box : boxes) {
      double const x = Centre(box.minX, box.maxX);
      double const y = Centre(box.minY, box.maxY);
      if (std::isfinite(x) && std::isfinite(y)) extent_.Expand(x, y);
    }
    stepsX_ = Steps(extent_.minX, extent_.maxX);
    stepsY_ = Steps(extent_.minY, extent_.maxY);
  }

  std::uint32_t Place(RowBox const& box) const {
    return HilbertPlace(Cell(Centre(box.minX, box.maxX), extent_.minX, stepsX_),
                        Cell(Centre(box.minY, box.maxY), extent_.minY, stepsY_));
  }

 private:
  static constexpr double kLastCell = 65535;

  static double Centre(double low, double high) { return low / 2 + high / 2; }
  static double Steps(double low, double high) {
    double const width = high - low;
    return width > 0 && std::isfinite(width) ? kLastCell / width : 0;
  }
  static std::uint32_t Cell(double centre, double low, double steps) {
    double const cell = (centre - low) * steps;
    // Also for what is infinite or not a number.
    if (!(cell > 0)) return 0;
    return static_cast<std::uint32_t>(std::min(cell, kLastCell));
  }

  FgfBox extent_;
  double stepsX_ = 0;
  double stepsY_ = 0;
};

void SortAlongCurve(std::vector<RowBox>& boxes) {
  Grid const grid(boxes);
  // The place above, the index below: sorted as plain numbers.
  std::vector<std::uint64_t> order(boxes.size());
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    order[i] = (std::uint64_t{grid.Place(boxes[i])} << 32) | i;
  }
  std::sort(order.begin(), order.end());
  std::vector<RowBox> sorted(boxes.size());
  for (std::size_t i = 0; i < boxes.size(); ++i) sorted[i] = boxes[order[i] & 0xffffffffu];
  boxes.swap(sorted);
}

// Writes the nodes of one level and gives the boxes of the next.
std::vector<RowBox> StoreLevel(std::vector<RowBox> const& boxes, NodeKind kind, int level,
                               std::int64_t& number,
                               std::function<void(void const*, std::size_t)> const& store) {
  std::size_t const most = kind == NodeKind::kRowPoints ? kMostPoints : kMostBoxes;
  std::vector<RowBox> above;
  above.reserve(boxes.size() / most + 1);
  unsigned char bytes[kNodeHead + 40 * kMostBoxes];
  static_assert(sizeof(bytes) >= kNodeHead + 24 * kMostPoints);
  for (std::size_t begin = 0; begin < boxes.size(); begin += most) {
    std::size_t const count = std::min(most, boxes.size() - begin);
    std::memset(bytes, 0, kNodeHead);
    bytes[0] = static_cast<unsigned char>(kind);
    bytes[1] = static_cast<unsigned char>(level);
    auto const stored = static_cast<std::uint16_t>(count);
    std::memcpy(bytes + 2, &stored, sizeof(stored));
    FgfBox box;
    auto const put = [&](std::size_t column, std::size_t i, auto value) {
      static_assert(sizeof(value) == 8);
      std::memcpy(bytes + kNodeHead + (column * count + i) * 8, &value, 8);
    };
    for (std::size_t i = 0; i < count; ++i) {
      RowBox const& entry = boxes[begin + i];
      put(0, i, entry.minX);
      put(1, i, entry.minY);
      if (kind != NodeKind::kRowPoints) {
        put(2, i, entry.maxX);
        put(3, i, entry.maxY);
      }
      put(Columns(kind) - 1, i, entry.row);
      box.Expand(entry.minX, entry.minY);
      box.Expand(entry.maxX, entry.maxY);
    }
    store(bytes, kNodeHead + Columns(kind) * 8 * count);
    above.push_back(ToRowBox(number++, box));
  }
  return above;
}

// Calls visit(node) for the root and for each node below that select appends to its second argument.
template <class Visit>
bool Walk(TreeNodes& tree, Visit visit) {
  struct Pending {
    std::int64_t number;
    int level;  // -1 for the root, which has any
  };
  std::vector<Pending> pending;
  std::vector<std::int64_t> below;
  if (tree.NodeCount() > 0) pending.push_back({tree.NodeCount() - 1, -1});
  while (!pending.empty()) {
    Pending const next = pending.back();
    pending.pop_back();
    NodeView node;
    if (!tree.Node(next.number, node)) return false;
    // A level less with each step, so that the walk ends whatever a file says.
    if (next.level >= 0 ? node.Level() != next.level : node.Level() > kMostLevels) return false;
    below.clear();
    visit(node, below);
    int const level = node.Level() - 1;
    for (std::int64_t number : below) {
      if (number < 0 || number >= tree.NodeCount()) return false;
      pending.push_back({number, level});
    }
  }
  return true;
}

}  // namespace

RowBox ToRowBox(std::int64_t row, FgfBox const& box) { return {box.minX, box.minY, box.maxX, box.maxY, row}; }

bool NodeView::Read(void const* bytes, std::size_t size) {
  bytes_ = static_cast<unsigned char const*>(bytes);
  if (bytes_ == nullptr || size < kNodeHead) return false;
  if (bytes_[0] < 1 || bytes_[0] > 3) return false;
  kind_ = static_cast<NodeKind>(bytes_[0]);
  level_ = bytes_[1];
  count_ = LoadAt<std::uint16_t>(bytes_ + 2, 0);
  if (count_ == 0 || (level_ == 0) != IsLeaf()) return false;
  return size == kNodeHead + Columns(kind_) * 8 * count_;
}

unsigned char const* NodeView::Column(std::size_t column) const {
  return bytes_ + kNodeHead + column * count_ * 8;
}

RowBox NodeView::Entry(std::size_t index) const {
  bool const points = kind_ == NodeKind::kRowPoints;
  double const minX = LoadAt<double>(Column(0), index);
  double const minY = LoadAt<double>(Column(1), index);
  return {minX, minY, points ? minX : LoadAt<double>(Column(2), index),
          points ? minY : LoadAt<double>(Column(3), index),
          LoadAt<std::int64_t>(Column(Columns(kind_) - 1), index)};
}

void NodeView::Find(FgfBox const& box, std::vector<std::int64_t>& found) const {
  bool const points = kind_ == NodeKind::kRowPoints;
  unsigned char const* const minX = Column(0);
  unsigned char const* const minY = Column(1);
  unsigned char const* const maxX = points ? minX : Column(2);
  unsigned char const* const maxY = points ? minY : Column(3);
  unsigned char const* const rows = Column(Columns(kind_) - 1);
  for (std::size_t i = 0; i < count_; ++i) {
    // All four at once: which one fails is too hard to foresee for a branch each.
    int const apart = int{LoadAt<double>(minX, i) > box.maxX} | int{LoadAt<double>(maxX, i) < box.minX} |
                      int{LoadAt<double>(minY, i) > box.maxY} | int{LoadAt<double>(maxY, i) < box.minY};
    if (apart == 0) found.push_back(LoadAt<std::int64_t>(rows, i));
  }
}

std::int64_t BuildPackedTree(std::vector<RowBox>& boxes,
                             std::function<void(void const*, std::size_t)> const& store) {
  SortAlongCurve(boxes);
  bool const points = std::all_of(boxes.begin(), boxes.end(), [](RowBox const& box) {
    return box.minX == box.maxX && box.minY == box.maxY;
  });
  std::int64_t number = 0;
  std::vector<RowBox> level =
      StoreLevel(boxes, points ? NodeKind::kRowPoints : NodeKind::kRowBoxes, 0, number, store);
  for (int above = 1; level.size() > 1; ++above) {
    level = StoreLevel(level, NodeKind::kNodeBoxes, above, number, store);
  }
  return number;
}

MemoryTree::MemoryTree(std::vector<RowBox>& boxes) {
  bytes_.reserve(boxes.size() * 41 + kNodeHead);
  BuildPackedTree(boxes, [this](void const* bytes, std::size_t size) {
    auto const* const begin = static_cast<unsigned char const*>(bytes);
    bytes_.insert(bytes_.end(), begin, begin + size);
    ends_.push_back(bytes_.size());
  });
  bytes_.shrink_to_fit();
}

bool MemoryTree::Node(std::int64_t number, NodeView& node) {
  if (number < 0 || number >= NodeCount()) return false;
  auto const index = static_cast<std::size_t>(number);
  std::size_t const begin = index == 0 ? 0 : ends_[index - 1];
  return node.Read(bytes_.data() + begin, ends_[index] - begin);
}

bool FindRows(TreeNodes& tree, FgfBox const& box, std::vector<std::int64_t>& rows) {
  return Walk(tree, [&](NodeView const& node, std::vector<std::int64_t>& below) {
    node.Find(box, node.IsLeaf() ? rows : below);
  });
}

bool ReachedLeaves(TreeNodes& tree, FgfBox const& box, TreeShare& share) {
  if (tree.NodeCount() == 1) {
    ++share.reached;
    ++share.all;
    return true;
  }
  // The leaves are those that the nodes of level 1 have below them.
  std::int64_t leaves = 0;
  bool const whole = Walk(tree, [&](NodeView const& at, std::vector<std::int64_t>& below) {
    if (at.IsLeaf()) return;  // a lone node
    at.Find(box, below);
    if (at.Level() != 1) return;
    leaves += static_cast<std::int64_t>(below.size());
    below.clear();
  });
  if (!whole) return false;
  share.reached += leaves;
  // Each node but a level's last is full.
  share.all += tree.NodeCount() - tree.NodeCount() / static_cast<std::int64_t>(kMostBoxes);
  return true;
}

bool GrowByExtent(TreeNodes& tree, std::function<bool(std::int64_t row)> const& isPresent, FgfBox& box) {
  if (tree.NodeCount() == 0) return true;
  // One side after the other, turned so that the smallest value is the outermost.
  struct Side {
    double RowBox::*of;
    double FgfBox::*bound;
    double sign;
  };
  constexpr Side kSides[] = {{&RowBox::minX, &FgfBox::minX, 1},
                             {&RowBox::minY, &FgfBox::minY, 1},
                             {&RowBox::maxX, &FgfBox::maxX, -1},
                             {&RowBox::maxY, &FgfBox::maxY, -1}};
  struct Waiting {
    double value;
    std::int64_t id;  // of a node, or of a row
    int level;        // of the node; -1 for a row
    bool operator<(Waiting const& other) const { return value > other.value; }
  };
  constexpr double kOutermost = -std::numeric_limits<double>::infinity();
  for (Side const& side : kSides) {
    std::priority_queue<Waiting> waiting;
    NodeView node;
    if (!tree.Node(tree.NodeCount() - 1, node) || node.Level() > kMostLevels) return false;
    waiting.push({kOutermost, tree.NodeCount() - 1, node.Level()});
    while (!waiting.empty()) {
      Waiting const next = waiting.top();
      waiting.pop();
      double& bound = box.*side.bound;
      if (next.value >= bound * side.sign) break;
      if (next.level < 0) {
        if (!isPresent(next.id)) continue;
        bound = next.value * side.sign;
        break;
      }
      if (next.id < 0 || next.id >= tree.NodeCount()) return false;
      if (!tree.Node(next.id, node) || node.Level() != next.level) return false;
      for (std::size_t i = 0; i < node.Count(); ++i) {
        RowBox const entry = node.Entry(i);
        waiting.push({entry.*side.of * side.sign, entry.row, next.level - 1});
      }
    }
  }
  return true;
}

}  // namespace fdo_sqlite
