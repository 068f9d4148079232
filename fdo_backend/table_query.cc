// How a table asks its provider for rows.
#include <Fdo.h>
#include <fdo/table_fdo.h>

#include <algorithm>
#include <string>

#include "access/boundary.h"
#include "fdo_backend/query_filters.h"
#include "fdo_backend/reader_cell.h"
#include "fdo_backend/table_command.h"
#include "fdo_backend/visited_column.h"
#include "sdk/extensions/column_visits.h"
#include "sdk/extensions/direct_cells.h"

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

}  // namespace

void TableFdo::InitSelect() {
  EndQuery();
  shown_ = desired_;
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
  if (!shown_.positions.empty()) {
    names->Clear();
    for (int const column : shown_.columns) AddIdentifier(*names, (*def_)[column].Name());
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
  if (!accessByName_) directCells_ = dynamic_cast<fdo_sdk::DirectCells*>(reader_.p);
}

void TableFdo::Query() {
  InitSelect();
  Execute(nullptr);
}

void TableFdo::QueryRange(__int64 first, __int64 last) {
  if (!def_->HasID()) throw FdoException::Create(L"The table has no identity column.");
  InitSelect();
  Execute(internal::RangeFilter(def_->ID().Name(), first, last));
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

void TableFdo::QueryColumn(int column, FdoFilter* filter, internal::CellVisitor& visitor) {
  AtBoundary([&] {
    InitSelect();
    if (!VisitColumn(column, filter, visitor)) Execute(filter);
  });
}

bool TableFdo::VisitColumn(int column, FdoFilter* filter, internal::CellVisitor& visitor) {
  auto* const visits = accessByName_ ? nullptr : dynamic_cast<fdo_sdk::ColumnVisits*>(select_.p);
  if (visits == nullptr) return false;
  if (filter != nullptr) select_->SetFilter(filter);
  internal::VisitedColumn visited(*this, column, visitor);
  return visits->VisitColumn(internal::DirectType((*def_)[column].Type()), visited);
}

FdoPtr<FdoFilter> TableFdo::GetIdFilter(__int64 id) const {
  FdoPtr<FdoDataValue> const literal =
      internal::IdLiteral(def_->HasID() ? def_->ID().Type() : ColumnDef::kUnset, id);
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
