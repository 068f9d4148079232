#include "sdk/providers/sqlite/filter_sql.h"

#include "sdk/providers/sqlite/condition_sql.h"

namespace fdo_sqlite {
namespace {

constexpr int kMaximumLevels = 255;

class FilterTranslation : public FdoIFilterProcessor {
 public:
  explicit FilterTranslation(SqlScope const& scope) : scope_(scope) {}

  // The operands of a chain of that one operator, from left to right, however it leans; programs build chains
  // of any length.
  std::vector<SqlCondition> Operands(FdoFilter* filter, FdoBinaryLogicalOperations operation) {
    std::vector<SqlCondition> operands;
    std::vector<FdoPtr<FdoFilter>> left;
    left.push_back(FdoPtr<FdoFilter>(FDO_SAFE_ADDREF(filter)));
    while (!left.empty()) {
      FdoPtr<FdoFilter> const next = left.back();
      left.pop_back();
      auto* pair = dynamic_cast<FdoBinaryLogicalOperator*>(next.p);
      if (pair != nullptr && pair->GetOperation() == operation) {
        left.push_back(FdoPtr<FdoFilter>(pair->GetRightOperand()));
        left.push_back(FdoPtr<FdoFilter>(pair->GetLeftOperand()));
      } else {
        operands.push_back(Of(next));
      }
    }
    return operands;
  }

  SqlCondition Of(FdoFilter* filter) {
    if (filter == nullptr) Refuse(L"A part of the filter is missing.");
    if (++levels_ > kMaximumLevels) Refuse(L"The filter is nested too deeply.");
    condition_ = SqlCondition();
    filter->Process(this);
    --levels_;
    return std::move(condition_);
  }

  void ProcessBinaryLogicalOperator(FdoBinaryLogicalOperator& filter) override {
    FdoBinaryLogicalOperations const operation = filter.GetOperation();
    if (operation != FdoBinaryLogicalOperations_And && operation != FdoBinaryLogicalOperations_Or) {
      Refuse(L"A logical operation is unknown.");
    }
    std::vector<SqlFragment> operands;
    for (SqlCondition& operand : Operands(&filter, operation)) operands.push_back(std::move(operand.sql));
    SqlPower const power = operation == FdoBinaryLogicalOperations_And ? SqlPower::kAnd : SqlPower::kOr;
    condition_ = {SqlFragment::List(std::move(operands), power), std::nullopt};
  }

  void ProcessUnaryLogicalOperator(FdoUnaryLogicalOperator& filter) override {
    FdoPtr<FdoFilter> operand = filter.GetOperand();
    bool negated = true;
    // Two negations are none, whatever the value.
    while (auto* inner = dynamic_cast<FdoUnaryLogicalOperator*>(operand.p)) {
      operand = inner->GetOperand();
      negated = !negated;
    }
    SqlFragment const sql = Of(operand).sql;
    SqlFragment made(negated ? "NOT " : "", negated ? SqlPower::kNot : sql.Power());
    made.AddWithin(sql, negated ? SqlPower::kAtom : SqlPower::kOr, negated ? 1 : 0);
    condition_ = {made, std::nullopt};
  }

  void ProcessComparisonCondition(FdoComparisonCondition& filter) override {
    condition_ = {ComparisonSql(filter, scope_), std::nullopt};
  }
  void ProcessInCondition(FdoInCondition& filter) override {
    condition_ = {InSql(filter, scope_), std::nullopt};
  }
  void ProcessNullCondition(FdoNullCondition& filter) override {
    condition_ = {NullSql(filter, scope_), std::nullopt};
  }
  void ProcessSpatialCondition(FdoSpatialCondition& filter) override {
    condition_ = SpatialSql(filter, scope_);
  }
  void ProcessDistanceCondition(FdoDistanceCondition& filter) override {
    condition_ = DistanceSql(filter, scope_);
  }

 protected:
  void Dispose() override {}  // lives on the stack

 private:
  SqlScope const& scope_;
  SqlCondition condition_;
  int levels_ = 0;
};

}  // namespace

SqlFragment FilterSql::Where(int without) const {
  std::vector<SqlFragment> operands;
  for (std::size_t i = 0; i < conditions.size(); ++i) {
    if (static_cast<int>(i) != without) operands.push_back(conditions[i].sql);
  }
  if (operands.empty()) return SqlFragment();
  return SqlFragment::List(std::move(operands), SqlPower::kAnd);
}

FilterSql TranslateFilter(FdoFilter* filter, SqlScope const& scope) {
  FilterSql made;
  if (filter == nullptr) return made;
  made.conditions = FilterTranslation(scope).Operands(filter, FdoBinaryLogicalOperations_And);
  made.Where();  // refuses now what all of them together are too much for
  return made;
}

}  // namespace fdo_sqlite
