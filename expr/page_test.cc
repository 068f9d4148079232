// Holds docs/expression_machine.md against the tables of the code. With QUILLON_WRITE_PAGE set the tables of
// the page are written anew instead.
#include <fdo/text_conversion.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "expr/column_kinds.h"
#include "expr/function_table.h"
#include "expr/op_table.h"

namespace fdo {
namespace {

using Lines = std::vector<std::string>;

char const* OperandName(internal::Operand operand) {
  switch (operand) {
    case internal::Operand::kNone:
      return "";
    case internal::Operand::kLiteral:
      return "the literal";
    case internal::Operand::kColumnName:
      return "column name";
    case internal::Operand::kColumn:
      return "column position";
    case internal::Operand::kFunction:
      return "function number";
    case internal::Operand::kSpatialOperation:
      return "spatial operation";
    case internal::Operand::kCount:
      return "count";
    case internal::Operand::kDistanceOperation:
      return "distance operation";
  }
  return nullptr;
}

std::string Pops(internal::OpInfo const& info) {
  if (info.pops != internal::kPopsByOperand) return std::to_string(info.pops);
  return info.operand == internal::Operand::kCount ? "count + 1" : "its arguments";
}

Lines InstructionRows() {
  Lines rows;
  for (internal::OpInfo const& info : internal::kOps) {
    rows.push_back("| " + std::to_string(info.op) + " | `" + ToUtf8(info.name) + "` | " +
                   OperandName(info.operand) + " | " + Pops(info) + " | " + info.effect + " |");
  }
  return rows;
}

Lines FunctionRows() {
  Lines rows;
  for (int number = 0; number < internal::kFunctionNumbers; ++number) {
    std::string names;
    internal::FunctionInfo const* first = nullptr;
    for (internal::FunctionInfo const& info : internal::kFunctions) {
      if (info.number != number) continue;
      if (first == nullptr) first = &info;
      if (info.name != nullptr) names += (names.empty() ? "`" : ", `") + ToUtf8(info.name) + "`";
    }
    if (first == nullptr) continue;
    for (internal::TwoArgumentForm const& form : internal::kTwoArgumentForms) {
      if (form.twoArguments != number) continue;
      names = "`" + ToUtf8(internal::FindFunction(static_cast<long long>(form.oneArgument))->name) + "`";
    }
    rows.push_back("| " + std::to_string(number) + " | " + names + " | " +
                   (first->arguments == internal::kAnyCount ? "any" : std::to_string(first->arguments)) +
                   " | " + (first->ofNull == internal::OfNull::kIsNull ? "null" : "") + " | " +
                   first->result + " |");
  }
  return rows;
}

Lines ColumnRows() {
  Lines rows;
  for (internal::ColumnKind const& kind : internal::kColumnKinds) {
    rows.push_back(std::string("| ") + kind.name + " | " + kind.cells + " |");
  }
  return rows;
}

struct Table {
  char const* heading;
  Lines (*rows)();
};
constexpr Table kTables[] = {{"## Instructions", InstructionRows},
                             {"## Functions", FunctionRows},
                             {"## What columns hold", ColumnRows}};

Lines PageLines() {
  std::ifstream page(QUILLON_EXPRESSION_PAGE);
  EXPECT_TRUE(page.is_open()) << QUILLON_EXPRESSION_PAGE;
  Lines lines;
  for (std::string line; std::getline(page, line);) lines.push_back(line);
  return lines;
}

// The first row behind the rule of the table under that heading, and the first line behind its rows.
std::pair<std::size_t, std::size_t> RowsUnder(Lines const& page, std::string_view heading) {
  std::size_t at = 0;
  while (at < page.size() && page[at] != heading) ++at;
  while (at < page.size() && !page[at].starts_with("|---")) ++at;
  if (at == page.size()) {
    ADD_FAILURE() << "no table under " << heading;
    return {at, at};
  }
  std::size_t end = at + 1;
  while (end < page.size() && page[end].starts_with("|")) ++end;
  return {at + 1, end};
}

TEST(ExpressionPage, TablesAreThoseOfTheCode) {
  Lines page = PageLines();
  bool const write = std::getenv("QUILLON_WRITE_PAGE") != nullptr;
  for (Table const& table : kTables) {
    auto const [begin, end] = RowsUnder(page, table.heading);
    auto const first = page.begin() + static_cast<std::ptrdiff_t>(begin);
    auto const behind = page.begin() + static_cast<std::ptrdiff_t>(end);
    Lines const rows = table.rows();
    if (write) {
      page.insert(page.erase(first, behind), rows.begin(), rows.end());
    } else {
      EXPECT_EQ(Lines(first, behind), rows) << table.heading;
    }
  }
  if (!write) return;
  std::ofstream out(QUILLON_EXPRESSION_PAGE);
  for (std::string const& line : page) out << line << '\n';
}

}  // namespace
}  // namespace fdo
