#include "ogr_backend/filter_sql.h"

#include <Fdo.h>

#include <utility>

#include "ogr_backend/comparison_sql.h"
#include "ogr_backend/sql_operand.h"

namespace fdo::internal {
namespace {

// Writes conditions without NOT around a comparison: GDAL's dialect counts "NOT (a = 1)" as true where a is
// null. So negation travels down to the comparisons, which are negated themselves. Of what comes out only
// truth matters then, so that a part which is true more often makes the whole true more often, never less.
class ConditionWriter : public FdoIFilterProcessor {
 public:
  ConditionWriter(TableDef const& def, FilterTarget const& target, std::vector<bool>& columns)
      : language_(target.language), operands_(def, target, columns) {}

  SqlCondition Write(FdoFilter* filter) {
    if (filter == nullptr) throw FilterRefused{L"it is incomplete"};
    if (++depth_ > kMaxFilterDepth) throw FilterRefused{L"it is nested too deeply"};
    filter->Process(this);
    --depth_;
    return std::move(result_);
  }

  void ProcessBinaryLogicalOperator(FdoBinaryLogicalOperator& filter) override {
    bool const isAnd = (filter.GetOperation() == FdoBinaryLogicalOperations_And) != negated_;
    std::vector<SqlCondition> both;
    both.push_back(Write(FdoPtr<FdoFilter>(filter.GetLeftOperand())));
    both.push_back(Write(FdoPtr<FdoFilter>(filter.GetRightOperand())));
    result_ = Joined(isAnd, std::move(both));
  }

  void ProcessUnaryLogicalOperator(FdoUnaryLogicalOperator& filter) override {
    negated_ = !negated_;
    result_ = Write(FdoPtr<FdoFilter>(filter.GetOperand()));
    negated_ = !negated_;
  }

  void ProcessComparisonCondition(FdoComparisonCondition& filter) override {
    SqlOperand const left = operands_.Write(FdoPtr<FdoExpression>(filter.GetLeftExpression()));
    SqlOperand const right = operands_.Write(FdoPtr<FdoExpression>(filter.GetRightExpression()));
    FdoComparisonOperations const operation = filter.GetOperation();
    result_ = operation == FdoComparisonOperations_Like
                  ? LikeSql(left, right, negated_, language_)
                  : ComparisonSql(left, negated_ ? Negated(operation) : operation, right, language_);
  }

  void ProcessInCondition(FdoInCondition& filter) override {
    if (FdoPtr<FdoSubSelectExpression>(filter.GetSubSelect()) != nullptr) {
      throw FilterRefused{L"it has a sub-select"};
    }
    SqlOperand const column = WriteColumn(FdoPtr<FdoIdentifier>(filter.GetPropertyName()));
    FdoPtr<FdoValueExpressionCollection> const values = filter.GetValues();
    std::vector<SqlOperand> listed;
    for (FdoInt32 i = 0; values != nullptr && i < values->GetCount(); ++i) {
      listed.push_back(operands_.Write(FdoPtr<FdoValueExpression>(values->GetItem(i))));
    }
    result_ = InSql(column, listed, negated_, language_);
  }

  void ProcessNullCondition(FdoNullCondition& filter) override {
    SqlOperand const column = WriteColumn(FdoPtr<FdoIdentifier>(filter.GetPropertyName()));
    result_ = NullSql(column, negated_, language_);
  }

  void ProcessSpatialCondition(FdoSpatialCondition& filter) override {
    CheckGeometry(FdoPtr<FdoIdentifier>(filter.GetPropertyName()),
                  FdoPtr<FdoExpression>(filter.GetGeometry()));
    result_ = ForRows(L"it has a spatial condition");
  }

  void ProcessDistanceCondition(FdoDistanceCondition& filter) override {
    CheckGeometry(FdoPtr<FdoIdentifier>(filter.GetPropertyName()),
                  FdoPtr<FdoExpression>(filter.GetGeometry()));
    result_ = ForRows(L"it has a distance condition");
  }

 protected:
  void Dispose() override {}  // lives on the stack

 private:
  SqlOperand WriteColumn(FdoIdentifier* name) {
    if (name == nullptr) throw FilterRefused{L"it is incomplete"};
    return operands_.WriteColumn(*name);
  }

  void CheckGeometry(FdoIdentifier* name, FdoExpression* geometry) {
    SqlOperand const column = WriteColumn(name);
    SqlOperand const other = operands_.Write(geometry);
    if (column.kind != ComparedAs::kGeometry || (other.kind && other.kind != ComparedAs::kGeometry)) {
      throw FilterRefused{L"it looks for the place of something that is not geometry"};
    }
  }

  FilterLanguage const language_;
  SqlOperandWriter operands_;
  SqlCondition result_;
  bool negated_ = false;
  int depth_ = 0;
};

}  // namespace

FilterSql TranslateFilter(FdoFilter* filter, TableDef const& def, FilterTarget const& target) {
  FilterSql out;
  out.columns.assign(static_cast<std::size_t>(def.ColumnCount()), false);
  try {
    SqlCondition condition = ConditionWriter(def, target, out.columns).Write(filter);
    out.isExact = condition.rowsOnly.empty();
    out.reason = std::move(condition.rowsOnly);
    out.text = std::move(condition.sql);
  } catch (FilterRefused const& refused) {
    out.refused = true;
    out.reason = refused.reason;
  }
  return out;
}

}  // namespace fdo::internal
