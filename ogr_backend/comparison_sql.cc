#include "ogr_backend/comparison_sql.h"

#include <optional>
#include <utility>

#include "expr/sql_values.h"
#include "expr/text_reading.h"
#include "ogr_backend/sql_literal.h"

namespace fdo::internal {
namespace {

constexpr wchar_t const* kNoLanguage = L"nobody knows what a condition means to this driver of GDAL's";

struct Comparison {
  char const* sql;
  FdoComparisonOperations negated;
};

// In the order of the enumeration; LIKE is written apart.
constexpr Comparison kComparisons[] = {
    {" = ", FdoComparisonOperations_NotEqualTo},           {" <> ", FdoComparisonOperations_EqualTo},
    {" > ", FdoComparisonOperations_LessThanOrEqualTo},    {" >= ", FdoComparisonOperations_LessThan},
    {" < ", FdoComparisonOperations_GreaterThanOrEqualTo}, {" <= ", FdoComparisonOperations_GreaterThan},
};
static_assert(FdoComparisonOperations_EqualTo == 0 && FdoComparisonOperations_LessThanOrEqualTo == 5 &&
              FdoComparisonOperations_Like == 6);

// In bytes, which is what SQLite takes.
constexpr std::size_t kLongestGlob = 50000;

SqlCondition Never() { return {"(1 = 0)", L""}; }

std::string InParentheses(std::string const& sql) { return std::string("(") + sql + ")"; }

bool Is(SqlOperand const& operand, ComparedAs kind) { return operand.kind == kind; }

std::wstring ReasonOf(SqlOperand const& left, SqlOperand const& right, FilterLanguage language) {
  if (!left.rowsOnly.empty()) return left.rowsOnly;
  if (!right.rowsOnly.empty()) return right.rowsOnly;
  return language == FilterLanguage::kUnknown ? kNoLanguage : L"";
}

void RefuseWhatHasNoOrder(SqlOperand const& operand) {
  if (Is(operand, ComparedAs::kGeometry)) throw FilterRefused{L"it compares geometry"};
  if (Is(operand, ComparedAs::kBytes)) throw FilterRefused{L"it compares bytes"};
}

// A text literal is the number, or date, that it is beside the other side.
void ReadBeside(SqlOperand const& other, SqlOperand& operand, FilterLanguage language) {
  if (!Is(operand, ComparedAs::kText) || !operand.literal) return;
  auto const* const text = static_cast<wchar_t const*>(*operand.literal);
  if (Is(other, ComparedAs::kNumber)) {
    Value const number = NumberInText(text);
    if (number.IsNull()) {
      throw FilterRefused{std::wstring(L"it compares a number with the text \"") + text +
                          L"\", which is none"};
    }
    operand = NumberOperand(number, language);
  } else if (Is(other, ComparedAs::kDate) && DateInText(text).IsNull()) {
    throw FilterRefused{std::wstring(L"it compares a date with the text \"") + text + L"\", which is none"};
  }
}

// Whether the two compare as doubles as they do exactly.
bool ComparesAsDouble(SqlOperand const& whole, SqlOperand const& real) {
  constexpr auto kExact = static_cast<double>(kExactIntegers);
  // The bound of 2^53 + 1 is 2^53.
  return whole.bound < kExact || (real.literal && real.bound < kExact);
}

SqlCondition NumbersSql(SqlOperand const& left, FdoComparisonOperations operation, SqlOperand const& right,
                        FilterLanguage language) {
  bool const hasReal = left.isReal || right.isReal;
  auto const compared = [&](char const* sign) { return InParentheses(left.sql + sign + right.sql); };
  SqlCondition made{compared(kComparisons[operation].sql), L""};
  if (language == FilterLanguage::kSqlite || !hasReal) return made;
  bool const isMixed = left.isReal != right.isReal;
  if (isMixed && !(left.isReal ? ComparesAsDouble(right, left) : ComparesAsDouble(left, right))) {
    return ForRows(L"it compares integers beyond 2^53 with doubles");
  }
  if (language == FilterLanguage::kPostgreSql) {
    made.rowsOnly = L"PostgreSQL has an order for what is no number";
  } else if (operation == FdoComparisonOperations_NotEqualTo) {
    // What is no number differs from every number in GDAL's dialect, but is neither less nor greater.
    made.sql = InParentheses(compared(" < ") + " OR " + compared(" > "));
  }
  return made;
}

SqlCondition TextsSql(SqlOperand const& left, FdoComparisonOperations operation, SqlOperand const& right,
                      FilterLanguage language) {
  std::string const compared = left.sql + kComparisons[operation].sql + right.sql;
  // A column may be declared to compare without regard to case.
  if (language == FilterLanguage::kSqlite) return {InParentheses(compared + " COLLATE BINARY"), L""};
  SqlCondition made = ForRows(language == FilterLanguage::kGdal
                                  ? L"it compares texts, which GDAL does without regard to case"
                                  : L"it compares texts, which PostgreSQL does as the database is set up");
  // The same text is equal to itself everywhere.
  if (operation == FdoComparisonOperations_EqualTo) made.sql = InParentheses(compared);
  return made;
}

// SQLite's GLOB has the sets of LIKE, and tells upper from lower case. Errors: nothing where it differs.
std::optional<std::wstring> GlobOf(std::wstring const& pattern) {
  std::wstring glob;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    wchar_t const unit = pattern[i];
    if (unit == L'%') {
      glob += L'*';
    } else if (unit == L'_') {
      glob += L'?';
    } else if (unit == L'*' || unit == L'?') {
      glob += {L'[', unit, L']'};
    } else if (unit == L'[') {
      std::size_t const set = i + 1 + (i + 1 < pattern.size() && pattern[i + 1] == L'^' ? 1 : 0);
      std::size_t const end = pattern.find(L']', set);
      if (end == set) return {};  // a set that begins with its end
      if (end == std::wstring::npos) {
        glob += L"[[]";
      } else {
        glob += pattern.substr(i, end - i + 1);
        i = end;
      }
    } else {
      glob += unit;
    }
  }
  return glob;
}

}  // namespace

SqlCondition ForRows(std::wstring reason) { return {"", std::move(reason)}; }

SqlCondition Joined(bool isAnd, std::vector<SqlCondition> conditions) {
  SqlCondition joined;
  int count = 0;
  bool some = true;  // every one of them is sql
  for (SqlCondition& condition : conditions) {
    if (joined.rowsOnly.empty()) joined.rowsOnly = std::move(condition.rowsOnly);
    if (condition.sql.empty()) {
      some = false;
      continue;
    }
    if (++count > 1) joined.sql += isAnd ? " AND " : " OR ";
    joined.sql += condition.sql;
  }
  if (!isAnd && !some) {
    joined.sql.clear();
  } else if (count > 1) {
    joined.sql = InParentheses(joined.sql);
  }
  return joined;
}

FdoComparisonOperations Negated(FdoComparisonOperations operation) { return kComparisons[operation].negated; }

SqlCondition ComparisonSql(SqlOperand left, FdoComparisonOperations operation, SqlOperand right,
                           FilterLanguage language) {
  RefuseWhatHasNoOrder(left);
  RefuseWhatHasNoOrder(right);
  ReadBeside(right, left, language);
  ReadBeside(left, right, language);
  // Nothing is true of NULL.
  if (!left.kind || !right.kind) return Never();
  bool const hasDate = Is(left, ComparedAs::kDate) || Is(right, ComparedAs::kDate);
  if (hasDate && (Is(left, ComparedAs::kNumber) || Is(right, ComparedAs::kNumber))) {
    throw FilterRefused{L"it compares a date with a number"};
  }
  if (hasDate) return ForRows(L"it compares dates, which every format of GDAL's writes in a way of its own");
  if (std::wstring reason = ReasonOf(left, right, language); !reason.empty())
    return ForRows(std::move(reason));
  if (left.kind != right.kind) return ForRows(L"it compares texts with numbers");
  return Is(left, ComparedAs::kNumber) ? NumbersSql(left, operation, right, language)
                                       : TextsSql(left, operation, right, language);
}

SqlCondition LikeSql(SqlOperand const& left, SqlOperand const& right, bool negated, FilterLanguage language) {
  bool const fits = (!left.kind || Is(left, ComparedAs::kText) || Is(left, ComparedAs::kDate)) &&
                    (!right.kind || Is(right, ComparedAs::kText));
  if (!fits) throw FilterRefused{L"LIKE compares text with a pattern"};
  if (!left.kind || !right.kind) return Never();
  if (std::wstring reason = ReasonOf(left, right, language); !reason.empty())
    return ForRows(std::move(reason));
  SqlCondition made = ForRows(L"it has LIKE, in which GDAL takes letters or their case in another way");
  if (!Is(left, ComparedAs::kText) || !right.literal) return made;
  std::wstring const pattern = static_cast<wchar_t const*>(*right.literal);
  if (language == FilterLanguage::kSqlite) {
    std::optional<std::wstring> const glob = GlobOf(pattern);
    std::optional<std::string> const text = glob ? QuotedText(*glob, language) : std::nullopt;
    if (text && text->size() <= kLongestGlob) {
      made = {InParentheses(left.sql + (negated ? " NOT GLOB " : " GLOB ") + *text), L""};
    }
  } else if (language == FilterLanguage::kGdal && !negated) {
    // What the text begins with, if that is something.
    std::size_t const end = pattern.find_first_of(L"%_[");
    std::wstring const begin = pattern.substr(0, end) + (end == std::wstring::npos ? L"" : L"%");
    std::optional<std::string> const text = QuotedText(begin, language);
    if (end != 0 && text) made.sql = InParentheses(left.sql + " LIKE " + *text);
  }
  return made;
}

SqlCondition InSql(SqlOperand const& column, std::vector<SqlOperand> const& values, bool negated,
                   FilterLanguage language) {
  RefuseWhatHasNoOrder(column);
  // In an empty list is nothing, whatever the column.
  if (values.empty()) return negated ? SqlCondition{"(1 = 1)", L""} : Never();
  FdoComparisonOperations const operation =
      negated ? FdoComparisonOperations_NotEqualTo : FdoComparisonOperations_EqualTo;
  std::vector<SqlCondition> single;
  std::string list;
  bool isList = language == FilterLanguage::kSqlite;
  for (SqlOperand value : values) {
    single.push_back(ComparisonSql(column, operation, value, language));
    ReadBeside(column, value, language);
    isList = isList && value.kind && single.back().rowsOnly.empty();
    list += (list.empty() ? "" : ", ") + value.sql;
  }
  if (!isList) return Joined(/*isAnd=*/negated, std::move(single));
  // Lists have any length, but chains of conditions only up to some depth.
  char const* const collation = Is(column, ComparedAs::kText) ? " COLLATE BINARY" : "";
  return {InParentheses(column.sql + collation + (negated ? " NOT IN (" : " IN (") + list + ")"), L""};
}

SqlCondition NullSql(SqlOperand const& column, bool negated, FilterLanguage language) {
  if (std::wstring reason = ReasonOf(column, column, language); !reason.empty()) {
    return ForRows(std::move(reason));
  }
  return {InParentheses(column.sql + (negated ? " IS NOT NULL" : " IS NULL")), L""};
}

}  // namespace fdo::internal
