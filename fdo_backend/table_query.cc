// How a table asks its provider for rows.
#include <Fdo.h>
#include <fdo/table_fdo.h>

#include <algorithm>
#include <limits>
#include <string>

#include "access/boundary.h"
#include "fdo_backend/box_filter.h"
#include "fdo_backend/table_command.h"

namespace fdo {
namespace {

bool ListsExtendedSelect(FdoIConnection* connection) {
  if (connection == nullptr) return false;
  FdoPtr<FdoICommandCapabilities> const capabilities = connection->GetCommandCapabilities();
  FdoInt32 count = 0;
  FdoInt32 const* const commands = capabilities->GetCommands(count);
  return commands != nullptr &&
         std::find(commands, commands + count, FdoCommandType_ExtendedSelect) != commands + count;
}

void AddIdentifier(FdoIdentifierCollection& identifiers, wchar_t const* name) {
  identifiers.Add(FdoPtr<FdoIdentifier>(FdoIdentifier::Create(name)));
}

FdoPtr<FdoFilter> Comparison(FdoIdentifier* property, FdoComparisonOperations operation, __int64 bound) {
  FdoPtr<FdoInt64Value> const literal = FdoInt64Value::Create(static_cast<FdoInt64>(bound));
  return FdoPtr<FdoFilter>(FdoComparisonCondition::Create(property, operation, literal));
}

template <class Integer>
bool Holds(__int64 id) {
  return id >= std::numeric_limits<Integer>::min() && id <= std::numeric_limits<Integer>::max();
}

// The identity as a literal of its column's type, or of 64 bits where it does not fit: cut to the type
// it would name another record. Null for a column that is no integer.
FdoPtr<FdoDataValue> IdLiteral(ColumnDef::DataType type, __int64 id) {
  switch (type) {
    case ColumnDef::kInt16:
      if (Holds<FdoInt16>(id)) {
        return FdoPtr<FdoDataValue>(FdoInt16Value::Create(static_cast<FdoInt16>(id)));
      }
      break;
    case ColumnDef::kInt32:
      if (Holds<FdoInt32>(id)) {
        return FdoPtr<FdoDataValue>(FdoInt32Value::Create(static_cast<FdoInt32>(id)));
      }
      break;
    case ColumnDef::kInt64:
      break;
    default:
      return FdoPtr<FdoDataValue>();
  }
  return FdoPtr<FdoDataValue>(FdoInt64Value::Create(static_cast<FdoInt64>(id)));
}

}  // namespace

void TableFdo::InitSelect() {
  EndQuery();
  if (select_ == nullptr) {
    bool const extended = ListsExtendedSelect(connection_);
    // The only command that takes the qualified name.
    std::wstring const className = std::wstring(def_->SchemaName()) + L":" + def_->Name();
    select_ = internal::MakeTableCommand<FdoISelect>(
        connection_, extended ? FdoCommandType_ExtendedSelect : FdoCommandType_Select, className.c_str());
    extendedSelect_ = extended;
  }
  SelectProperties();
  select_->SetFilter(static_cast<FdoFilter*>(nullptr));
  row_.Invalidate();
}

void TableFdo::SelectProperties() {
  FdoPtr<FdoIdentifierCollection> const names = select_->GetPropertyNames();
  if (!positions_.empty()) {
    names->Clear();
    for (int const column : desired_) AddIdentifier(*names, (*def_)[column].Name());
  } else if (accessByName_) {
    names->Clear();  // all of them
  } else if (names->GetCount() < def_->ColumnCount()) {
    names->Clear();
    for (int column = 0; column < def_->ColumnCount(); ++column) {
      AddIdentifier(*names, (*def_)[column].Name());
    }
  }
}

void TableFdo::Execute(FdoFilter* filter) {
  if (filter != nullptr) select_->SetFilter(filter);
  reader_ = select_->Execute();
}

void TableFdo::Query() {
  InitSelect();
  Execute(nullptr);
}

void TableFdo::QueryRange(__int64 first, __int64 last) {
  if (!def_->HasID()) throw FdoException::Create(L"The table has no identity column.");
  InitSelect();
  FdoPtr<FdoIdentifier> const id = FdoIdentifier::Create(def_->ID().Name());
  FdoPtr<FdoFilter> const from = Comparison(id, FdoComparisonOperations_GreaterThanOrEqualTo, first);
  FdoPtr<FdoFilter> const to = Comparison(id, FdoComparisonOperations_LessThan, last);
  FdoPtr<FdoFilter> const range = FdoBinaryLogicalOperator::Create(from, FdoBinaryLogicalOperations_And, to);
  Execute(range);
}

void TableFdo::Query(double const* const box, FdoFilter* filter) {
  if (!def_->HasGeom()) throw FdoException::Create(L"The table has no geometry column.");
  InitSelect();
  Execute(internal::BoxFilter(def_->Geom().Name(), box, filter));
}

Row const* TableFdo::Query(__int64 id) {
  bool const queried = AtBoundary(false, [&] {
    InitSelect();
    Execute(GetIdFilter(id));
    return true;
  });
  return queried ? Next() : nullptr;
}

void TableFdo::Query(FdoFilter* filter, wchar_t const* orderBy, bool ascending) {
  AtBoundary([&] {
    InitSelect();
    if (extendedSelect_ && orderBy != nullptr && *orderBy != 0) {
      FdoPtr<FdoIdentifierCollection> const ordering = select_->GetOrdering();
      ordering->Clear();
      AddIdentifier(*ordering, orderBy);
      static_cast<FdoIExtendedSelect*>(select_.p)->SetOrderingOption(
          orderBy, ascending ? FdoOrderingOption_Ascending : FdoOrderingOption_Descending);
    }
    Execute(filter);
  });
}

FdoPtr<FdoFilter> TableFdo::GetIdFilter(__int64 id) const {
  FdoPtr<FdoDataValue> const literal = IdLiteral(def_->HasID() ? def_->ID().Type() : ColumnDef::kUnset, id);
  if (literal == nullptr) {
    ReportError(L"unsupported feature ID type used");
    return FdoPtr<FdoFilter>();
  }
  if (idFilter_ == nullptr) {
    FdoPtr<FdoIdentifier> const property = FdoIdentifier::Create(def_->ID().Name());
    FdoPtr<FdoInt64Value> const unset = FdoInt64Value::Create();
    idFilter_ = FdoComparisonCondition::Create(property, FdoComparisonOperations_EqualTo, unset);
  }
  idFilter_->SetRightExpression(literal);
  return idFilter_;
}

}  // namespace fdo
