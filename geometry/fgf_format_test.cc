// Holds docs/fgf_format.md against the code.
#include <fdo/geometry_stream.h>
#include <gtest/gtest.h>

#include <array>
#include <charconv>
#include <fstream>
#include <string>
#include <vector>

#include "geometry/fgf_layout.h"
#include "testing/fgf_builder.h"

namespace fdo {
namespace {

using Bytes = std::vector<unsigned char>;

std::vector<std::string> PageLines() {
  std::ifstream page(QUILLON_FGF_FORMAT_PAGE);
  EXPECT_TRUE(page.is_open()) << QUILLON_FGF_FORMAT_PAGE;
  std::vector<std::string> lines;
  for (std::string line; std::getline(page, line);) lines.push_back(line);
  return lines;
}

// The cells of the rows of the table under that heading.
std::vector<std::vector<std::string>> TableUnder(std::string const& heading) {
  std::vector<std::vector<std::string>> rows;
  bool inside = false;
  for (std::string const& line : PageLines()) {
    if (line.starts_with("## ")) inside = line == "## " + heading;
    if (!inside || !line.starts_with("| ") || line.starts_with("| Code") || line.starts_with("| Offset"))
      continue;
    std::vector<std::string> cells;
    std::size_t begin = 2;
    for (std::size_t end; (end = line.find(" |", begin)) != std::string::npos; begin = end + 3) {
      cells.push_back(line.substr(begin, end - begin));
    }
    rows.push_back(cells);
  }
  return rows;
}

TEST(FgfFormat, PageListsEveryType) {
  std::vector<std::vector<std::string>> const rows = TableUnder("Types");
  ASSERT_EQ(rows.size(), std::size(kFgfLayouts));
  for (std::size_t i = 0; i < rows.size(); ++i) {
    FgfLayout const& layout = kFgfLayouts[i];
    ASSERT_EQ(rows[i].size(), 4u);
    EXPECT_EQ(rows[i][0], std::to_string(layout.type));
    EXPECT_EQ(rows[i][1], layout.name);
    EXPECT_TRUE(rows[i][3].starts_with(std::to_string(layout.isoWkb) + " ")) << rows[i][3];

    std::string const& content = rows[i][2];
    EXPECT_EQ(content.starts_with("dimensionality, "), layout.body != FgfBody::kParts) << content;
    EXPECT_EQ(content.find("ring count") != std::string::npos,
              layout.body == FgfBody::kRings || layout.body == FgfBody::kCurveRings)
        << content;
    EXPECT_EQ(content.find("curve") != std::string::npos,
              layout.body == FgfBody::kSegments || layout.body == FgfBody::kCurveRings)
        << content;
    if (layout.partType != 0) {
      EXPECT_TRUE(content.ends_with(std::string("k complete ") + LayoutOf(layout.partType)->name + "s"))
          << content;
    }
  }
}

TEST(FgfFormat, PageListsEveryDimensionality) {
  std::vector<std::vector<std::string>> const rows = TableUnder("Dimensionality");
  ASSERT_EQ(rows.size(), 4u);
  for (int dimensionality = 0; dimensionality < 4; ++dimensionality) {
    std::vector<std::string> const& row = rows[std::size_t(dimensionality)];
    EXPECT_EQ(row[0], std::to_string(dimensionality));
    EXPECT_EQ(row[1].size(), std::size_t(2 * OrdinateCount(dimensionality) - 1)) << row[1];
    EXPECT_EQ(row[2], std::to_string(PositionBytes(OrdinateCount(dimensionality))));
    EXPECT_EQ(row[3], std::to_string(1000 * dimensionality));
  }
}

TEST(FgfFormat, WorkedExampleIsThatStream) {
  Bytes bytes;
  for (std::vector<std::string> const& row : TableUnder("One stream, byte by byte")) {
    EXPECT_EQ(row[0], std::to_string(bytes.size()));
    std::string const& digits = row[1];
    for (std::size_t at = 1; at + 2 < digits.size(); at += 3) {
      unsigned char byte = 0;
      std::from_chars(&digits[at], &digits[at] + 2, byte, 16);
      bytes.push_back(byte);
    }
  }
  EXPECT_EQ(bytes, Fgf("MULTICURVESTRING Z ((0 0 1 (LINESTRINGSEGMENT (2 0 1), "
                       "CIRCULARARCSEGMENT (3 1 1, 2 2 1))))"));
  std::array<double, 4> box{};
  EXPECT_EQ(FgfBox(bytes.data(), bytes.data() + bytes.size(), box.data()), bytes.data() + bytes.size());
  EXPECT_EQ(box, (std::array<double, 4>{0, 0, 3, 2}));

  Bytes wkb(FgfToIsoWkbBound(bytes.size()));
  wkb.resize(FgfToIsoWkb(bytes.data(), bytes.size(), wkb.data()));
  EXPECT_EQ(wkb,
            Wkb("MULTICURVE Z (COMPOUNDCURVE Z ((0 0 1, 2 0 1), CIRCULARSTRING Z (2 0 1, 3 1 1, 2 2 1)))"));
}

}  // namespace
}  // namespace fdo
