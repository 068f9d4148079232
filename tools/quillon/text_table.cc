#include "tools/quillon/text_table.h"

#include <algorithm>
#include <utility>

#include "tools/quillon/utf8.h"

namespace fdo::tool {

namespace {

constexpr char kEllipsis[] = "\xe2\x80\xa6";

// Appends what fits into that many columns; returns how many it takes.
int AppendFitting(std::string& out, std::string const& text, int room) {
  bool const fits = DisplayWidth(text) <= room;
  int const end = fits ? room : room - 1;
  int width = 0;
  for (std::size_t position = 0; position < text.size();) {
    char32_t const character = NextCharacter(text, position);
    int const next = width + DisplayWidth(character);
    if (next > end) break;
    AppendUtf8(out, IsControl(character) ? U' ' : character);
    width = next;
  }
  if (fits) return width;
  out += kEllipsis;
  return width + 1;
}

std::size_t Size(int count) { return static_cast<std::size_t>(std::max(count, 0)); }

}  // namespace

void TextTable::AddColumn(std::string name, Align align) {
  int const width = std::clamp(DisplayWidth(name), 1, kWidest);
  columns_.push_back({std::move(name), align, width});
}

void TextTable::Measure(std::vector<std::string> const& cells) {
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    columns_[i].width = std::max(columns_[i].width, std::min(DisplayWidth(cells[i]), kWidest));
  }
}

std::string TextTable::Header() const {
  std::vector<std::string> names, rules;
  for (Column const& column : columns_) {
    names.push_back(column.name);
    rules.emplace_back(Size(column.width), '-');
  }
  return Line(names) + Line(rules);
}

std::string TextTable::Line(std::vector<std::string> const& cells) const {
  std::string line;
  std::string cell;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    Column const& column = columns_[i];
    cell.clear();
    std::size_t const padding = Size(column.width - AppendFitting(cell, cells[i], column.width));
    if (i > 0) line += "  ";
    if (column.align == Align::kRight) line.append(padding, ' ');
    line += cell;
    if (column.align == Align::kLeft) line.append(padding, ' ');
  }
  line.erase(line.find_last_not_of(' ') + 1);
  line += '\n';
  return line;
}

}  // namespace fdo::tool
