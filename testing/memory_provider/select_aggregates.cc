// The command that counts features and finds their extent.
#include "testing/memory_provider/command_base.h"
#include "testing/memory_provider/commands.h"
#include "testing/memory_provider/envelope.h"
#include "testing/memory_provider/filter_evaluation.h"
#include "testing/memory_provider/reader.h"

namespace memory_provider {
namespace {

[[noreturn]] void Refuse(std::wstring const& what) { throw FdoCommandException::Create(what.c_str()); }

class SelectAggregates : public WithOneOption<SelectBase<FdoISelectAggregates>> {
 public:
  using WithOneOption<SelectBase<FdoISelectAggregates>>::WithOneOption;

  FdoIDataReader* Execute() override {
    std::shared_ptr<Table> const table = ClassTable();
    if (grouping_->GetCount() > 0) Refuse(L"The memory provider has no groups.");
    std::vector<std::shared_ptr<Row const>> selected;
    for (std::shared_ptr<Row const> const& row : table->rows) {
      if (Holds(filter_, *table, *row, parameters_)) selected.push_back(row);
    }
    Result result;
    Row values;
    for (FdoInt32 i = 0; i < properties_->GetCount(); ++i) {
      FdoPtr<FdoIdentifier> property = properties_->GetItem(i);
      Column column;
      column.name = property->GetName();
      values.push_back(Aggregate(*property, *table, selected, column));
      result.positions.push_back(result.columns.size());
      result.columns.push_back(column);
    }
    result.rows.push_back(std::make_shared<Row const>(values));
    return MakeDataReader(std::move(result));
  }

  void SetDistinct(bool value) override {
    if (value) Refuse(L"The memory provider selects no distinct values.");
  }
  bool GetDistinct() override { return false; }
  FdoIdentifierCollection* GetGrouping() override { return FDO_SAFE_ADDREF(grouping_.p); }
  void SetGroupingFilter(FdoFilter* filter) override {
    if (filter != nullptr) Refuse(L"The memory provider has no groups.");
  }
  FdoFilter* GetGroupingFilter() override { return nullptr; }

 private:
  typedef std::vector<std::shared_ptr<Row const>> Rows;

  // Completes the column and gives its value.
  FdoPtr<FdoLiteralValue> Aggregate(FdoIdentifier& property, Table const& table, Rows const& rows,
                                    Column& column) {
    auto* computed = dynamic_cast<FdoComputedIdentifier*>(&property);
    FdoPtr<FdoExpression> expression = computed == nullptr ? nullptr : computed->GetExpression();
    auto* function = dynamic_cast<FdoFunction*>(expression.p);
    if (function == nullptr) Refuse(L"\"" + column.name + L"\" is no function of all rows.");
    std::wstring const name = function->GetName();
    FdoPtr<FdoExpressionCollection> arguments = function->GetArguments();
    FdoPtr<FdoExpression> argument = arguments->GetCount() == 1 ? arguments->GetItem(0) : nullptr;
    if (name == FDO_FUNCTION_COUNT && arguments->GetCount() <= 1) {
      column.type = FdoDataType_Int64;
      FdoInt64 count = 0;
      for (std::shared_ptr<Row const> const& row : rows) {
        FdoPtr<FdoLiteralValue> value =
            argument == nullptr ? nullptr : Evaluate(argument, table, *row, parameters_);
        if (argument == nullptr || value != nullptr) ++count;
      }
      return FdoPtr<FdoLiteralValue>(FdoInt64Value::Create(count));
    }
    if (name == FDO_FUNCTION_SPATIALEXTENTS && argument != nullptr) {
      column.isGeometry = true;
      Envelope all;
      for (std::shared_ptr<Row const> const& row : rows) {
        FdoPtr<FdoLiteralValue> value = Evaluate(argument, table, *row, parameters_);
        if (auto* geometry = dynamic_cast<FdoGeometryValue*>(value.p)) all.Include(EnvelopeOf(*geometry));
      }
      if (all.IsEmpty()) return FdoPtr<FdoLiteralValue>();
      FdoPtr<FdoByteArray> polygon = PolygonOf(all);
      return FdoPtr<FdoLiteralValue>(FdoGeometryValue::Create(polygon));
    }
    Refuse(L"The memory provider has no function \"" + name + L"\" of these arguments.");
  }

  FdoPtr<FdoIdentifierCollection> grouping_ = FdoIdentifierCollection::Create();
};

}  // namespace

FdoICommand* MakeSelectAggregates(Connection* connection) { return new SelectAggregates(connection); }

}  // namespace memory_provider
