#include "sdk/providers/sqlite/condition_sql.h"

#include <algorithm>
#include <string>
#include <vector>

#include "sdk/providers/sqlite/like_pattern.h"

namespace fdo_sqlite {
namespace {

// Whole numbers of longer lists stand in the text, which has no limit on them.
constexpr FdoInt32 kLongestBoundList = 64;

struct Comparison {
  FdoComparisonOperations operation;
  char const* sql;
};

constexpr Comparison kComparisons[] = {
    {FdoComparisonOperations_EqualTo, "="},     {FdoComparisonOperations_NotEqualTo, "<>"},
    {FdoComparisonOperations_GreaterThan, ">"}, {FdoComparisonOperations_GreaterThanOrEqualTo, ">="},
    {FdoComparisonOperations_LessThan, "<"},    {FdoComparisonOperations_LessThanOrEqualTo, "<="},
};

// A column may be declared to compare without regard to case.
SqlFragment Collated(SqlFragment const& text) {
  SqlFragment made;
  made.AddWithin(text, SqlPower::kAtom, 0);
  made.Add(" COLLATE BINARY");
  return made;
}

bool IsTextColumn(SqlValue const& value) { return value.column != nullptr && value.kind == SqlKind::kText; }

// The text that LIKE looks at.
SqlFragment Matched(SqlValue const& value) {
  return value.kind == SqlKind::kDate ? AsDate(value, L"LIKE") : AsText(value, L"LIKE");
}

SqlFragment LikeSql(SqlValue const& left, SqlValue const& right) {
  SqlFragment const matched = Matched(left);
  SqlFragment pattern = AsText(right, L"LIKE");
  if (right.literal != nullptr) {
    std::string const glob = GlobOfLike(std::get<std::string>(pattern.Parameters()[0]));
    if (glob.size() > kLongestGlob) {
      Refuse(L"The pattern of LIKE is longer than " + std::to_wstring(kLongestGlob) + L" bytes.");
    }
    pattern = SqlFragment::Parameter(glob);
  } else if (right.kind == SqlKind::kText) {
    pattern = SqlFragment::Call("fdo_glob", {pattern});
  }
  return SqlFragment::Binary(matched, "GLOB", SqlPower::kComparison, pattern);
}

SqlFragment Listed(SqlValue const& value, SqlKind as, bool isLong) {
  SqlFragment listed = Comparable(value, as);
  bool const isWhole = listed.Text() == "?" && std::holds_alternative<std::int64_t>(listed.Parameters()[0]);
  if (isLong && isWhole) return SqlFragment(std::to_string(std::get<std::int64_t>(listed.Parameters()[0])));
  return listed;
}

SqlFragment ListSql(SqlValue const& property, std::vector<SqlValue> const& values, SqlKind as, bool isLong) {
  SqlFragment made("", SqlPower::kComparison);
  SqlFragment sought = Comparable(property, as);
  if (as == SqlKind::kText) sought = Collated(sought);
  made.AddWithin(sought, SqlPower::kSum, 0);
  made.Add(" IN (");
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (i > 0) made.Add(", ");
    made.Add(Listed(values[i], as, isLong), 5);
  }
  made.Add(")");
  return made;
}

}  // namespace

SqlFragment ComparisonSql(FdoComparisonCondition& condition, SqlScope const& scope) {
  FdoPtr<FdoExpression> const leftSide = condition.GetLeftExpression();
  FdoPtr<FdoExpression> const rightSide = condition.GetRightExpression();
  if (leftSide == nullptr || rightSide == nullptr) Refuse(L"A side of a comparison is missing.");
  SqlValue const left = TranslateExpression(*leftSide, scope);
  SqlValue const right = TranslateExpression(*rightSide, scope);
  if (condition.GetOperation() == FdoComparisonOperations_Like) return LikeSql(left, right);
  SqlKind const as = ComparedAs(left, right);
  SqlFragment const leftSql = Comparable(left, as);
  SqlFragment rightSql = Comparable(right, as);
  if (as == SqlKind::kText && (IsTextColumn(left) || IsTextColumn(right))) rightSql = Collated(rightSql);
  for (Comparison const& row : kComparisons) {
    if (row.operation == condition.GetOperation()) {
      return SqlFragment::Binary(leftSql, row.sql, SqlPower::kComparison, rightSql);
    }
  }
  Refuse(L"A comparison operation is unknown.");
}

SqlFragment InSql(FdoInCondition& condition, SqlScope const& scope) {
  FdoPtr<FdoSubSelectExpression> const subSelect = condition.GetSubSelect();
  if (subSelect != nullptr) Refuse(L"This provider has no sub-selects.");
  FdoPtr<FdoIdentifier> const name = condition.GetPropertyName();
  FdoPtr<FdoValueExpressionCollection> const values = condition.GetValues();
  if (name == nullptr) Refuse(L"A list of values has no property.");
  SqlValue const property = TranslateExpression(*name, scope);
  FdoInt32 const count = values == nullptr ? 0 : values->GetCount();
  if (count == 0) return SqlFragment("0");
  // Each value says as what the property is compared with it: a text with a number as a number. What has no
  // value says nothing, and is listed with the first of those that do.
  std::vector<SqlValue> listed;
  std::vector<SqlKind> kinds;
  std::vector<SqlKind> lists;
  for (FdoInt32 i = 0; i < count; ++i) {
    FdoPtr<FdoValueExpression> const value = values->GetItem(i);
    if (value == nullptr) Refuse(L"A value of a list is missing.");
    listed.push_back(TranslateExpression(*value, scope));
    bool const hasValue = listed.back().kind != SqlKind::kNull;
    kinds.push_back(ComparedAs(property, listed.back()));
    if (!hasValue) kinds.back() = SqlKind::kNull;
    if (hasValue && std::find(lists.begin(), lists.end(), kinds.back()) == lists.end())
      lists.push_back(kinds.back());
  }
  if (lists.empty()) lists.push_back(property.kind);
  std::replace(kinds.begin(), kinds.end(), SqlKind::kNull, lists.front());
  SqlFragment made;
  for (SqlKind const kind : lists) {
    std::vector<SqlValue> ofKind;
    for (std::size_t i = 0; i < listed.size(); ++i) {
      if (kinds[i] == kind) ofKind.push_back(listed[i]);
    }
    SqlFragment const list = ListSql(property, ofKind, kind, count > kLongestBoundList);
    made = kind == lists.front() ? list : SqlFragment::Binary(made, "OR", SqlPower::kOr, list);
  }
  return made;
}

SqlFragment NullSql(FdoNullCondition& condition, SqlScope const& scope) {
  FdoPtr<FdoIdentifier> const name = condition.GetPropertyName();
  if (name == nullptr) Refuse(L"A test for null has no property.");
  StoreColumn const& column = ColumnNamed(*name, scope);
  SqlFragment const sqlName(SqlNameOf(column, scope));
  SqlFragment made("", SqlPower::kComparison);
  if (column.kind == StoreColumn::Kind::kData) {
    made.Add(sqlName, 0);
    made.Add(" IS NULL");
    return made;
  }
  // Stored bytes that are no geometry read as null too.
  std::string const format = std::to_string(static_cast<int>(column.format));
  made.Add(SqlFragment::Call("fdo_has_geometry", {sqlName, SqlFragment(format)}), 0);
  made.Add(" = 0");
  return made;
}

}  // namespace fdo_sqlite
