#include "sdk/providers/sqlite/given_values.h"

#include <algorithm>
#include <cwchar>

#include "sdk/providers/sqlite/sql_fragment.h"

namespace fdo_sqlite {

GivenValues::GivenValues(StoreClassPtr storeClass, WatchedValues& values)
    : storeClass_(std::move(storeClass)), changes_(values.Changes()) {
  for (FdoInt32 i = 0; i < values.GetCount(); ++i) {
    FdoPtr<FdoPropertyValue> value = values.GetItem(i);
    if (value == nullptr) Refuse(L"A property value is missing.");
    FdoPtr<FdoIdentifier> name = value->GetName();
    FdoPtr<FdoValueExpression> expression = value->GetValue();
    FdoPtr<FdoIStreamReader> stream = value->GetStreamReader();
    if (name == nullptr) Refuse(L"A property value has no name.");
    if (stream != nullptr) Refuse(L"The SQLite provider does not read property values from streams.");
    items_.push_back({value, name->GetName(), expression != nullptr});
    if (expression == nullptr) continue;
    StoreColumn const* const column = storeClass_->Column(items_.back().name);
    if (column == nullptr) {
      Refuse(L"The class \"" + storeClass_->name + L"\" has no property \"" + items_.back().name + L"\".");
    }
    if (std::find(columns_.begin(), columns_.end(), column) != columns_.end()) {
      Refuse(L"The property \"" + column->name + L"\" is given twice.");
    }
    columns_.push_back(column);
    areOfColumns_ = areOfColumns_ && IsLiteral(*expression.p) &&
                    ValueBinder::IsOfColumn(*column, static_cast<FdoLiteralValue&>(*expression.p));
  }
  binder_ = ValueBinder(columns_);
}

bool GivenValues::Bind(Statement& statement, WatchedValues& values, FdoParameterValueCollection* parameters) {
  if (values.Changes() != changes_ && !TakeProperties(values)) return false;
  std::size_t place = 0;
  for (Item const& item : items_) {
    // Nothing tells when a program gives a property another name or value.
    FdoPtr<FdoIdentifier> const name = item.property->GetName();
    FdoPtr<FdoValueExpression> const expression = item.property->GetValue();
    if (name == nullptr || (expression != nullptr) != item.isGiven ||
        std::wcscmp(name->GetName(), item.name.c_str()) != 0) {
      return false;
    }
    if (!item.isGiven) continue;
    if (binder_.BindAgain(statement, place, *expression.p)) {
      ++place;
    } else {
      FdoPtr<FdoLiteralValue> const literal = LiteralOf(expression, parameters);
      binder_.Bind(statement, place++, literal);
    }
  }
  return true;
}

bool GivenValues::BindDirectly(Statement& statement, WatchedValues& values,
                               fdo_sdk::DirectValue const* direct) {
  if (values.Changes() != changes_) return false;
  std::size_t place = 0;
  for (Item const& item : items_) {
    if (item.isGiven) binder_.BindDirectly(statement, place++, *direct);
    ++direct;
  }
  return true;
}

// Errors: false when there are more or fewer properties, or one is missing.
bool GivenValues::TakeProperties(WatchedValues& values) {
  if (static_cast<std::size_t>(values.GetCount()) != items_.size()) return false;
  for (std::size_t i = 0; i < items_.size(); ++i) {
    items_[i].property = values.GetItem(static_cast<FdoInt32>(i));
    if (items_[i].property == nullptr) return false;
  }
  changes_ = values.Changes();
  return true;
}

}  // namespace fdo_sqlite
