#include "ogr_backend/filter_sql.h"

#include <Fdo.h>

#include <utility>

#include "ogr_backend/sql_operand.h"

namespace fdo::internal {
namespace {

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

// Conditions are written without NOT around a comparison: GDAL's dialect counts "NOT (a = 1)" as true
// where a is null. So negation travels down to the comparisons, which are negated themselves.
class ConditionWriter : public FdoIFilterProcessor {
 public:
  ConditionWriter(TableDef const& def, FilterTarget const& target, FilterSql& out)
      : target_(target), out_(out), operands_(def, target, out.columns) {}

  void Write(FdoFilter* filter) {
    if (filter == nullptr) throw FilterRefused{L"it is incomplete"};
    if (++depth_ > kMaxFilterDepth) throw FilterRefused{L"it is nested too deeply"};
    filter->Process(this);
    --depth_;
  }

  void ProcessBinaryLogicalOperator(FdoBinaryLogicalOperator& filter) override {
    bool const isAnd = (filter.GetOperation() == FdoBinaryLogicalOperations_And) != negated_;
    out_.text += '(';
    Write(FdoPtr<FdoFilter>(filter.GetLeftOperand()));
    out_.text += isAnd ? " AND " : " OR ";
    Write(FdoPtr<FdoFilter>(filter.GetRightOperand()));
    out_.text += ')';
  }

  void ProcessUnaryLogicalOperator(FdoUnaryLogicalOperator& filter) override {
    negated_ = !negated_;
    Write(FdoPtr<FdoFilter>(filter.GetOperand()));
    negated_ = !negated_;
  }

  void ProcessComparisonCondition(FdoComparisonCondition& filter) override {
    SqlOperand const left = operands_.Write(FdoPtr<FdoExpression>(filter.GetLeftExpression()));
    SqlOperand const right = operands_.Write(FdoPtr<FdoExpression>(filter.GetRightExpression()));
    FdoComparisonOperations const operation = filter.GetOperation();
    if (operation == FdoComparisonOperations_Like) {
      WriteLike(left, right);
    } else {
      WriteComparison(left, negated_ ? kComparisons[operation].negated : operation, right);
    }
  }

  void ProcessInCondition(FdoInCondition& filter) override {
    if (FdoPtr<FdoSubSelectExpression>(filter.GetSubSelect()) != nullptr) {
      throw FilterRefused{L"it has a sub-select"};
    }
    FdoPtr<FdoIdentifier> const name = filter.GetPropertyName();
    if (name == nullptr) throw FilterRefused{L"it is incomplete"};
    SqlOperand const column = operands_.WriteColumn(*name);
    FdoPtr<FdoValueExpressionCollection> const values = filter.GetValues();
    FdoInt32 const count = values == nullptr ? 0 : values->GetCount();
    if (count == 0) {
      // In an empty list is nothing, and outside it is everything that has a value.
      out_.text += negated_ ? std::string("(") + column.sql + " IS NOT NULL)" : "(1 = 0)";
      return;
    }
    FdoComparisonOperations const operation =
        negated_ ? FdoComparisonOperations_NotEqualTo : FdoComparisonOperations_EqualTo;
    // A store's SQL takes lists of any length, but chains of conditions only up to some depth.
    char const* const separator = target_.ownSql ? ", " : negated_ ? " AND " : " OR ";
    out_.text += target_.ownSql ? std::string("(") + column.sql + (negated_ ? " NOT IN (" : " IN (") : "(";
    for (FdoInt32 i = 0; i < count; ++i) {
      if (i > 0) out_.text += separator;
      SqlOperand const value = operands_.Write(FdoPtr<FdoValueExpression>(values->GetItem(i)));
      CheckComparable(column, value);
      if (target_.ownSql) {
        out_.text += value.sql;
      } else {
        WriteComparison(column, operation, value);
      }
    }
    out_.text += target_.ownSql ? "))" : ")";
  }

  void ProcessNullCondition(FdoNullCondition& filter) override {
    FdoPtr<FdoIdentifier> const name = filter.GetPropertyName();
    if (name == nullptr) throw FilterRefused{L"it is incomplete"};
    out_.text += '(';
    out_.text += operands_.WriteColumn(*name).sql;
    out_.text += negated_ ? " IS NOT NULL)" : " IS NULL)";
  }

  void ProcessSpatialCondition(FdoSpatialCondition&) override {
    throw FilterRefused{L"it has a spatial condition", /*holdsForRows=*/true};
  }

  void ProcessDistanceCondition(FdoDistanceCondition&) override {
    throw FilterRefused{L"it has a distance condition", /*holdsForRows=*/true};
  }

 protected:
  void Dispose() override {}  // lives on the stack

 private:
  static void CheckComparable(SqlOperand const& left, SqlOperand const& right) {
    if (left.kind == SqlOperand::kDate || right.kind == SqlOperand::kDate) {
      throw FilterRefused{L"it compares dates, which every format of GDAL's writes in a way of its own",
                          /*holdsForRows=*/true};
    }
    if (left.kind == SqlOperand::kGeometry || right.kind == SqlOperand::kGeometry) {
      throw FilterRefused{L"it compares geometry"};
    }
    if (left.kind != right.kind) throw FilterRefused{L"it compares text with a number"};
  }

  void WriteComparison(SqlOperand const& left, FdoComparisonOperations operation, SqlOperand const& right) {
    CheckComparable(left, right);
    bool const isEquality =
        operation == FdoComparisonOperations_EqualTo || operation == FdoComparisonOperations_NotEqualTo;
    if (left.kind == SqlOperand::kText && isEquality && !target_.ownSql) {
      WriteExactText(left, operation == FdoComparisonOperations_EqualTo, right);
    } else {
      out_.text += std::string("(") + left.sql + kComparisons[operation].sql + right.sql + ")";
    }
  }

  // In GDAL's dialect "=" compares text without regard to case; LIKE looks at it.
  void WriteExactText(SqlOperand const& left, bool equal, SqlOperand const& right) {
    SqlOperand const& literal = right.isLiteral ? right : left;
    SqlOperand const& other = right.isLiteral ? left : right;
    if (!literal.isLiteral) {
      throw FilterRefused{L"it compares two text columns, which GDAL does without regard to case",
                          /*holdsForRows=*/true};
    }
    std::wstring pattern;
    for (wchar_t const unit : literal.text) {
      if (unit == L'%' || unit == L'_' || unit == L'!') pattern += L'!';
      pattern += unit;
    }
    WriteLikeText(other, QuoteText(pattern, target_) + " ESCAPE '!'", equal);
  }

  void WriteLike(SqlOperand const& left, SqlOperand const& right) {
    bool const areTexts = left.kind == SqlOperand::kText && right.kind == SqlOperand::kText;
    if (!areTexts || !right.isLiteral) {
      throw FilterRefused{L"LIKE compares text with a pattern in quotes", /*holdsForRows=*/areTexts};
    }
    if (right.text.find(L'[') != std::wstring::npos) {
      throw FilterRefused{L"the pattern has brackets, which GDAL takes as they stand", /*holdsForRows=*/true};
    }
    if (!target_.ownSql && right.text.find(L'_') != std::wstring::npos) {
      throw FilterRefused{L"the pattern has an underscore, which GDAL holds against one byte of a letter",
                          /*holdsForRows=*/true};
    }
    WriteLikeText(left, right.sql, !negated_);
  }

  void WriteLikeText(SqlOperand const& operand, std::string const& pattern, bool matches) {
    std::string const like = operand.sql + " LIKE " + pattern;
    if (matches) {
      out_.text += std::string("(") + like + ")";
    } else if (operand.isLiteral) {
      out_.text += "(NOT (" + like + "))";
    } else {
      out_.text += std::string("(") + operand.sql + " IS NOT NULL AND NOT (" + like + "))";
    }
  }

  FilterTarget const& target_;
  FilterSql& out_;
  SqlOperandWriter operands_;
  bool negated_ = false;
  int depth_ = 0;
};

}  // namespace

FilterSql TranslateFilter(FdoFilter* filter, TableDef const& def, FilterTarget const& target) {
  FilterSql out;
  out.columns.assign(static_cast<std::size_t>(def.ColumnCount()), false);
  try {
    ConditionWriter(def, target, out).Write(filter);
  } catch (FilterRefused const& refused) {
    out.refused = true;
    out.refusal = refused.reason;
    out.holdsForRows = refused.holdsForRows;
  }
  return out;
}

}  // namespace fdo::internal
