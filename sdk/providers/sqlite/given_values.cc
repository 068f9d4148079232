#include "sdk/providers/sqlite/given_values.h"

#include <algorithm>
#include <cwchar>

#include "sdk/providers/sqlite/sql_fragment.h"

namespace fdo_sqlite {

GivenValues::GivenValues(StoreClassPtr storeClass, FdoPropertyValueCollection& values)
    : storeClass_(std::move(storeClass)) {
  for (FdoInt32 i = 0; i < values.GetCount(); ++i) {
    FdoPtr<FdoPropertyValue> value = values.GetItem(i);
    FdoPtr<FdoIdentifier> name = value->GetName();
    FdoPtr<FdoValueExpression> expression = value->GetValue();
    FdoPtr<FdoIStreamReader> stream = value->GetStreamReader();
    if (name == nullptr) Refuse(L"A property value has no name.");
    if (stream != nullptr) Refuse(L"The SQLite provider does not read property values from streams.");
    items_.push_back({name->GetName(), expression != nullptr});
    if (expression == nullptr) continue;
    StoreColumn const* const column = storeClass_->Column(items_.back().name);
    if (column == nullptr) {
      Refuse(L"The class \"" + storeClass_->name + L"\" has no property \"" + items_.back().name + L"\".");
    }
    if (std::find(columns_.begin(), columns_.end(), column) != columns_.end()) {
      Refuse(L"The property \"" + column->name + L"\" is given twice.");
    }
    columns_.push_back(column);
  }
  binder_ = ValueBinder(columns_);
}

bool GivenValues::Bind(Statement& statement, FdoPropertyValueCollection& values,
                       FdoParameterValueCollection* parameters) {
  if (static_cast<std::size_t>(values.GetCount()) != items_.size()) return false;
  std::size_t place = 0;
  for (std::size_t i = 0; i < items_.size(); ++i) {
    FdoPtr<FdoPropertyValue> value = values.GetItem(static_cast<FdoInt32>(i));
    FdoPtr<FdoIdentifier> name = value->GetName();
    FdoPtr<FdoValueExpression> expression = value->GetValue();
    if (name == nullptr || (expression != nullptr) != items_[i].isGiven ||
        std::wcscmp(name->GetName(), items_[i].name.c_str()) != 0) {
      return false;
    }
    if (!items_[i].isGiven) continue;
    if (IsLiteral(*expression.p)) {
      binder_.Bind(statement, place++, static_cast<FdoLiteralValue*>(expression.p));
    } else {
      FdoPtr<FdoLiteralValue> literal = LiteralOf(expression, parameters);
      binder_.Bind(statement, place++, literal);
    }
  }
  return true;
}

}  // namespace fdo_sqlite
