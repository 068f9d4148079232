// The commands that read features.
#include <algorithm>

#include "testing/memory_provider/command_base.h"
#include "testing/memory_provider/commands.h"
#include "testing/memory_provider/filter_evaluation.h"
#include "testing/memory_provider/reader.h"
#include "testing/memory_provider/schema_copy.h"
#include "testing/memory_provider/value_comparison.h"

namespace memory_provider {
namespace {

struct OrderedBy {
  std::size_t position;
  FdoOrderingOption option;
};

// Nulls come first in ascending order.
bool ComesBefore(Row const& left, Row const& right, std::vector<OrderedBy> const& order) {
  for (OrderedBy const& by : order) {
    FdoLiteralValue* a = left[by.position];
    FdoLiteralValue* b = right[by.position];
    if (by.option == FdoOrderingOption_Descending) std::swap(a, b);
    if (a == nullptr && b != nullptr) return true;
    if (a != nullptr && b == nullptr) return false;
    FdoCompareType const comparison = CompareLiterals(a, b);
    if (comparison == FdoCompareType_Less) return true;
    if (comparison == FdoCompareType_Greater) return false;
  }
  return false;
}

// Both selects; they differ in their readers.
template <class Interface>
class SelectCommand : public FeatureSelectBase<Interface> {
 public:
  using FeatureSelectBase<Interface>::FeatureSelectBase;

  FdoIFeatureReader* Execute() override {
    FdoPtr<FdoClassDefinition> definition;
    Result result = Selected(definition);
    return MakeFeatureReader(std::move(result), definition);
  }

 protected:
  Result Selected(FdoPtr<FdoClassDefinition>& definition) {
    std::shared_ptr<Table> const table = this->ClassTable();
    Result result;
    for (std::wstring const& name : Names(*table)) {
      result.positions.push_back(table->ExistingPositionOf(name));
      result.columns.push_back(table->columns[result.positions.back()]);
    }
    for (std::shared_ptr<Row const> const& row : table->rows) {
      if (Holds(this->filter_, *table, *row, this->parameters_)) result.rows.push_back(row);
    }
    std::vector<OrderedBy> const order = Order(*table);
    std::stable_sort(result.rows.begin(), result.rows.end(), [&order](auto const& left, auto const& right) {
      return ComesBefore(*left, *right, order);
    });
    definition = CopyClass(*table->definition, Names(*table));
    return result;
  }

 private:
  std::vector<std::wstring> Names(Table const& table) const {
    std::vector<std::wstring> names;
    for (FdoInt32 i = 0; i < this->properties_->GetCount(); ++i) {
      FdoPtr<FdoIdentifier> property = this->properties_->GetItem(i);
      names.push_back(property->GetName());
    }
    if (!names.empty()) return names;
    for (Column const& column : table.columns) names.push_back(column.name);
    return names;
  }

  std::vector<OrderedBy> Order(Table const& table) const {
    std::vector<OrderedBy> order;
    for (FdoInt32 i = 0; i < this->ordering_->GetCount(); ++i) {
      FdoPtr<FdoIdentifier> property = this->ordering_->GetItem(i);
      order.push_back({table.ExistingPositionOf(property->GetName()), this->OptionOf(property->GetName())});
    }
    return order;
  }
};

typedef WithOneOption<SelectCommand<FdoISelect>> Select;

class ExtendedSelect : public ExtendedSelectBase<SelectCommand<FdoIExtendedSelect>> {
 public:
  using ExtendedSelectBase<SelectCommand<FdoIExtendedSelect>>::ExtendedSelectBase;

  FdoIScrollableFeatureReader* ExecuteScrollable() override {
    FdoPtr<FdoClassDefinition> definition;
    Result result = Selected(definition);
    return MakeScrollableReader(std::move(result), definition);
  }
};

}  // namespace

FdoICommand* MakeSelect(Connection* connection) { return new Select(connection); }

FdoICommand* MakeExtendedSelect(Connection* connection) { return new ExtendedSelect(connection); }

}  // namespace memory_provider
