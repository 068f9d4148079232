// The commands that add, change and remove features.
#include <algorithm>

#include "testing/memory_provider/command_base.h"
#include "testing/memory_provider/commands.h"
#include "testing/memory_provider/filter_evaluation.h"
#include "testing/memory_provider/reader.h"
#include "testing/memory_provider/schema_copy.h"
#include "testing/memory_provider/value_comparison.h"

namespace memory_provider {
namespace {

[[noreturn]] void Refuse(std::wstring const& what) { throw FdoCommandException::Create(what.c_str()); }

// The value as the column keeps it, shared with nobody; null for null.
FdoPtr<FdoLiteralValue> Stored(FdoLiteralValue* value, Column const& column) {
  if (auto* geometry = dynamic_cast<FdoGeometryValue*>(value)) {
    if (!column.isGeometry) Refuse(L"The property \"" + column.name + L"\" holds no geometry.");
    if (geometry->IsNull()) return FdoPtr<FdoLiteralValue>();
    FdoPtr<FdoByteArray> bytes = geometry->GetGeometry();
    FdoPtr<FdoByteArray> copy = FdoByteArray::Create(bytes->GetData(), bytes->GetCount());
    return FdoPtr<FdoLiteralValue>(FdoGeometryValue::Create(copy));
  }
  auto* data = dynamic_cast<FdoDataValue*>(value);
  if (data == nullptr || data->IsNull()) return FdoPtr<FdoLiteralValue>();
  if (column.isGeometry) Refuse(L"The property \"" + column.name + L"\" holds geometry.");
  if (auto* lob = dynamic_cast<FdoLOBValue*>(data)) {
    if (data->GetDataType() != column.type)
      Refuse(L"The property \"" + column.name + L"\" is of another type.");
    FdoPtr<FdoByteArray> bytes = lob->GetData();
    FdoPtr<FdoByteArray> copy = FdoByteArray::Create(bytes->GetData(), bytes->GetCount());
    return FdoPtr<FdoLiteralValue>(FdoDataValue::Create(copy, column.type));
  }
  return FdoPtr<FdoLiteralValue>(FdoDataValue::Create(column.type, data));
}

void Put(FdoPropertyValueCollection& values, Table const& table, Row const& before, Row& after,
         FdoParameterValueCollection* parameters) {
  for (FdoInt32 i = 0; i < values.GetCount(); ++i) {
    FdoPtr<FdoPropertyValue> given = values.GetItem(i);
    FdoPtr<FdoIdentifier> name = given->GetName();
    if (name == nullptr) Refuse(L"A property value has no name.");
    std::size_t const position = table.ExistingPositionOf(name->GetName());
    FdoPtr<FdoValueExpression> expression = given->GetValue();
    FdoPtr<FdoLiteralValue> value =
        expression == nullptr ? nullptr : Evaluate(expression, table, before, parameters);
    after[position] = Stored(value, table.columns[position]);
  }
}

bool IsGenerated(FdoDataType type) {
  return type == FdoDataType_Int16 || type == FdoDataType_Int32 || type == FdoDataType_Int64;
}

// Gives an identity to a row that has none, and keeps count of those that do.
void Identify(Table& table, Row& row) {
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    Column const& column = table.columns[i];
    if (!column.isIdentity) continue;
    if (row[i] == nullptr) {
      if (!IsGenerated(column.type)) Refuse(L"The identity \"" + column.name + L"\" is null.");
      FdoPtr<FdoDataValue> next = FdoInt64Value::Create(table.lastId + 1);
      row[i] = FdoPtr<FdoLiteralValue>(FdoDataValue::Create(column.type, next));
    }
    if (IsGenerated(column.type)) {
      FdoPtr<FdoInt64Value> id = FdoInt64Value::Create(static_cast<FdoDataValue*>(row[i].p));
      table.lastId = std::max(table.lastId, id->GetInt64());
    }
  }
}

bool HaveSameIdentity(Table const& table, Row const& left, Row const& right) {
  bool any = false;
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    if (!table.columns[i].isIdentity) continue;
    any = true;
    if (CompareLiterals(left[i], right[i]) != FdoCompareType_Equal) return false;
  }
  return any;
}

class Insert : public ClassCommandBase<FdoIInsert> {
 public:
  using ClassCommandBase<FdoIInsert>::ClassCommandBase;

  FdoPropertyValueCollection* GetPropertyValues() override { return FDO_SAFE_ADDREF(values_.p); }
  FdoBatchParameterValueCollection* GetBatchParameterValues() override { return FDO_SAFE_ADDREF(batch_.p); }

  FdoIFeatureReader* Execute() override {
    std::shared_ptr<Table> const table = ClassTable();
    Row const nothing(table->columns.size());
    Row row = nothing;
    Put(*values_, *table, nothing, row, parameters_);
    Identify(*table, row);
    for (std::shared_ptr<Row const> const& other : table->rows) {
      if (HaveSameIdentity(*table, *other, row)) Refuse(L"There is a feature of the same identity already.");
    }
    table->rows.push_back(std::make_shared<Row const>(row));

    Result inserted;
    std::vector<std::wstring> names;
    for (std::size_t i = 0; i < table->columns.size(); ++i) {
      if (!table->columns[i].isIdentity) continue;
      inserted.columns.push_back(table->columns[i]);
      inserted.positions.push_back(i);
      names.push_back(table->columns[i].name);
    }
    inserted.rows.push_back(table->rows.back());
    FdoPtr<FdoClassDefinition> definition = CopyClass(*table->definition, names);
    return MakeFeatureReader(std::move(inserted), definition);
  }

 private:
  FdoPtr<FdoPropertyValueCollection> values_ = FdoPropertyValueCollection::Create();
  FdoPtr<FdoBatchParameterValueCollection> batch_ = FdoBatchParameterValueCollection::Create();
};

class Update : public FeatureCommandBase<FdoIUpdate> {
 public:
  using FeatureCommandBase<FdoIUpdate>::FeatureCommandBase;

  FdoPropertyValueCollection* GetPropertyValues() override { return FDO_SAFE_ADDREF(values_.p); }

  FdoInt32 Execute() override {
    std::shared_ptr<Table> const table = ClassTable();
    // All rows are made before the first takes its place: an update that fails changes nothing.
    std::vector<std::shared_ptr<Row const>> rows = table->rows;
    FdoInt32 changed = 0;
    for (std::shared_ptr<Row const>& row : rows) {
      if (!Holds(filter_, *table, *row, parameters_)) continue;
      Row after = *row;
      Put(*values_, *table, *row, after, parameters_);
      row = std::make_shared<Row const>(after);
      ++changed;
    }
    table->rows.swap(rows);
    return changed;
  }

  FdoILockConflictReader* GetLockConflicts() override { RefuseLocks(); }

 private:
  FdoPtr<FdoPropertyValueCollection> values_ = FdoPropertyValueCollection::Create();
};

class Delete : public FeatureCommandBase<FdoIDelete> {
 public:
  using FeatureCommandBase<FdoIDelete>::FeatureCommandBase;

  FdoInt32 Execute() override {
    std::shared_ptr<Table> const table = ClassTable();
    std::vector<std::shared_ptr<Row const>> kept;
    for (std::shared_ptr<Row const> const& row : table->rows) {
      if (!Holds(filter_, *table, *row, parameters_)) kept.push_back(row);
    }
    FdoInt32 const removed = static_cast<FdoInt32>(table->rows.size() - kept.size());
    table->rows.swap(kept);
    return removed;
  }

  FdoILockConflictReader* GetLockConflicts() override { RefuseLocks(); }
};

}  // namespace

FdoICommand* MakeInsert(Connection* connection) { return new Insert(connection); }

FdoICommand* MakeUpdate(Connection* connection) { return new Update(connection); }

FdoICommand* MakeDelete(Connection* connection) { return new Delete(connection); }

}  // namespace memory_provider
