#include "sdk/providers/sqlite/selected_properties.h"

namespace fdo_sqlite {
namespace {

SqlValue Translated(FdoComputedIdentifier& computed, SqlScope const& scope) {
  FdoPtr<FdoExpression> expression = computed.GetExpression();
  if (expression == nullptr) {
    Refuse(L"The property \"" + std::wstring(computed.GetName()) + L"\" has no expression.");
  }
  return TranslateExpression(*expression, scope);
}

bool IsComputed(FdoIdentifier& name) {
  return name.GetExpressionType() == FdoExpressionItemType_ComputedIdentifier;
}

}  // namespace

SelectedProperties::SelectedProperties(StoreClassPtr storeClass, FdoIdentifierCollection& names,
                                       SqlScope const& scope)
    : storeClass_(std::move(storeClass)), names_(names), scope_(scope) {
  for (FdoInt32 i = 0; i < names.GetCount(); ++i) {
    FdoPtr<FdoIdentifier> name = names.GetItem(i);
    if (IsComputed(*name)) {
      AddComputed(static_cast<FdoComputedIdentifier&>(*name));
    } else {
      AddStored(PlaceNamed(*name, scope));
    }
  }
  if (items_.empty()) {
    for (int const place : AllPlaces(*storeClass_)) AddStored(place);
  }
  if (items_.empty()) Refuse(L"The class \"" + storeClass_->name + L"\" has no properties to read.");
  auto shape = std::make_shared<FeatureShape>();
  shape->storeClass = storeClass_;
  shape->places = std::move(places_);
  shape->columns = std::make_shared<ResultColumns const>(std::move(columns_));
  shape_ = shape;
}

void SelectedProperties::AddStored(int place) {
  StoreColumn const& column = storeClass_->columns[static_cast<std::size_t>(place)];
  items_.emplace_back(SqlNameOf(column, scope_));
  places_.push_back(place);
  columns_.push_back(ResultColumnOf(column));
}

void SelectedProperties::AddComputed(FdoComputedIdentifier& computed) {
  SqlValue const value = Translated(computed, scope_);
  items_.push_back(value.sql);
  places_.push_back(-1);
  columns_.push_back(ComputedColumn(computed.GetName(), value));
}

SqlFragment SelectedProperties::Key(FdoIdentifier& by) const {
  if (IsComputed(by)) return Translated(static_cast<FdoComputedIdentifier&>(by), scope_).sql;
  FdoPtr<FdoIdentifier> selected = names_.FindItem(by.GetName());
  if (selected != nullptr && IsComputed(*selected)) {
    return Translated(static_cast<FdoComputedIdentifier&>(*selected), scope_).sql;
  }
  return SqlFragment(SqlNameOf(ColumnNamed(by, scope_), scope_));
}

SqlFragment SelectedProperties::OrderBy(FdoIdentifierCollection& ordering,
                                        std::function<FdoOrderingOption(FdoString*)> const& option) const {
  SqlFragment order;
  for (FdoInt32 i = 0; i < ordering.GetCount(); ++i) {
    FdoPtr<FdoIdentifier> by = ordering.GetItem(i);
    order.Add(i == 0 ? " ORDER BY " : ",");
    order.Add(Key(*by), 0);
    if (option(by->GetName()) == FdoOrderingOption_Descending) order.Add(" DESC");
  }
  return order;
}

std::vector<int> AllPlaces(StoreClass const& storeClass) {
  std::vector<int> places;
  for (std::size_t i = 0; i < storeClass.columns.size(); ++i) places.push_back(static_cast<int>(i));
  return places;
}

int PlaceNamed(FdoIdentifier& name, SqlScope const& scope) {
  return static_cast<int>(&ColumnNamed(name, scope) - scope.ofClass.columns.data());
}

SqlFragment Joined(std::vector<SqlFragment> const& items) {
  SqlFragment joined;
  for (SqlFragment const& item : items) {
    if (!joined.IsEmpty()) joined.Add(",");
    joined.Add(item, 0);
  }
  return joined;
}

}  // namespace fdo_sqlite
