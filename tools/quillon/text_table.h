// Columns of text that line up on a terminal.
#ifndef TOOLS_QUILLON_TEXT_TABLE_H_
#define TOOLS_QUILLON_TEXT_TABLE_H_

#include <string>
#include <vector>

namespace fdo::tool {

enum class Align { kLeft, kRight };

// Lays out lines of cells, two spaces between columns, under a line of names and a rule.
// Control characters, which could move the cursor or worse, are shown as spaces.
class TextTable {
 public:
  // No column is wider than that; a longer cell ends with an ellipsis.
  static constexpr int kWidest = 40;

  void AddColumn(std::string name, Align align);

  // Widens the columns for a line that will be shown.
  // Requires: as many cells as columns
  void Measure(std::vector<std::string> const& cells);

  std::string Header() const;
  // The cells, each cut to its column's width.
  // Requires: as many cells as columns
  std::string Line(std::vector<std::string> const& cells) const;

 private:
  struct Column {
    std::string name;
    Align align;
    int width;
  };

  std::vector<Column> columns_;
};

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_TEXT_TABLE_H_
