// A packed R-tree over the boxes of rows: sorted along a Hilbert curve, cut into full nodes, and never
// changed afterwards. It serves the file, where each node is a blob, and memory alike.
//
// Why not SQLite's own R*Tree module: that one keeps boxes as 32-bit floats and has to be asked row by row
// again, and it cannot be filled faster than row by row but by writing its private tables. Here boxes keep
// all their bits, so that what the tree finds needs no second look; a node fills one page; and a tree is
// written as fast as its nodes can be stored.
#ifndef SDK_PROVIDERS_SQLITE_PACKED_TREE_H_
#define SDK_PROVIDERS_SQLITE_PACKED_TREE_H_

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "sdk/runtime/geometry/fgf_box.h"

namespace fdo_sqlite {

using fdo_sdk::FgfBox;

// The box of one row, in X and Y.
struct RowBox {
  double minX, minY, maxX, maxY;
  std::int64_t row;

  bool Intersects(FgfBox const& box) const {
    return minX <= box.maxX && box.minX <= maxX && minY <= box.maxY && box.minY <= maxY;
  }
};

RowBox ToRowBox(std::int64_t row, FgfBox const& box);

// The bytes of a node, all numbers little-endian:
//   0  1  kind: 1 boxes of rows, 2 points of rows, 3 boxes of nodes
//   1  1  level: 0 for rows, otherwise one more than that of the nodes below
//   2  2  n, the number of entries, at least 1
//   4  4  zero
//   8     n times minX, n times minY, and but for points n times maxX, n times maxY; then n times the row, or
//         the position of the node below among the nodes of its tree
// Nodes are numbered from 0, lower levels first, so that the root is the last.
enum class NodeKind : std::uint8_t { kRowBoxes = 1, kRowPoints = 2, kNodeBoxes = 3 };

inline constexpr std::size_t kNodeHead = 8;
// A node with its key and the head of its record fits one page of 4096 bytes.
inline constexpr std::size_t kMostBoxes = 101;
inline constexpr std::size_t kMostPoints = 168;

// A borrowed look at the bytes of a node.
class NodeView {
 public:
  // Errors: false for bytes that are no node; nothing may then be asked.
  bool Read(void const* bytes, std::size_t size);

  bool IsLeaf() const { return kind_ != NodeKind::kNodeBoxes; }
  int Level() const { return level_; }
  std::size_t Count() const { return count_; }
  RowBox Entry(std::size_t index) const;

  // Appends the rows or nodes whose boxes intersect.
  void Find(FgfBox const& box, std::vector<std::int64_t>& found) const;

 private:
  unsigned char const* Column(std::size_t column) const;

  unsigned char const* bytes_ = nullptr;
  NodeKind kind_ = NodeKind::kRowBoxes;
  int level_ = 0;
  std::size_t count_ = 0;
};

// Sorts the boxes and hands over node after node, in the order of their numbers.
// Requires: not empty, at most 2^31; no NaN. Borrowed: the bytes, during the call.
// Gives: the number of nodes.
std::int64_t BuildPackedTree(std::vector<RowBox>& boxes,
                             std::function<void(void const* bytes, std::size_t size)> const& store);

// Where the nodes of a tree lie.
class TreeNodes {
 public:
  virtual ~TreeNodes() = default;

  virtual std::int64_t NodeCount() const = 0;
  // Borrowed: the node, until the next call. Errors: false when there is none, or none that can be read.
  virtual bool Node(std::int64_t number, NodeView& node) = 0;
};

// A tree in memory.
class MemoryTree : public TreeNodes {
 public:
  // Requires: as BuildPackedTree.
  explicit MemoryTree(std::vector<RowBox>& boxes);

  std::int64_t NodeCount() const override { return static_cast<std::int64_t>(ends_.size()); }
  bool Node(std::int64_t number, NodeView& node) override;

 private:
  std::vector<unsigned char> bytes_;
  std::vector<std::size_t> ends_;  // of each node
};

// These never trust a node that was read from a file. Errors: false for a broken tree; what was found is then
// not to be used.

// Appends the rows whose boxes intersect, in no order.
bool FindRows(TreeNodes& tree, FgfBox const& box, std::vector<std::int64_t>& rows);

// How many of the tree's leaves the box reaches, and how many there are, without looking into them.
struct TreeShare {
  std::int64_t reached = 0;
  std::int64_t all = 0;
};
bool ReachedLeaves(TreeNodes& tree, FgfBox const& box, TreeShare& share);

// Grows the box by the outermost rows that isPresent confirms. Rows far from the edges are not looked at.
bool GrowByExtent(TreeNodes& tree, std::function<bool(std::int64_t row)> const& isPresent, FgfBox& box);

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_PACKED_TREE_H_
