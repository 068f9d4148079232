// The command that adds a feature.
#include <algorithm>
#include <cstdint>
#include <memory>

#include "sdk/extensions/direct_insert.h"
#include "sdk/providers/sqlite/command_base.h"
#include "sdk/providers/sqlite/commands.h"
#include "sdk/providers/sqlite/data_version.h"
#include "sdk/providers/sqlite/feature_reader.h"
#include "sdk/providers/sqlite/given_values.h"
#include "sdk/providers/sqlite/query_source.h"
#include "sdk/providers/sqlite/sql_fragment.h"
#include "sdk/providers/sqlite/sql_names.h"

namespace fdo_sqlite {
namespace {

// How features with one set of properties are added to one class.
struct InsertPlan {
  StoreClassPtr storeClass;
  GivenValues given;
  Statement statement;
  FeatureShapePtr identity;  // of what the reader gives
  DataStamp learned;         // when the class was looked up
  IdentityReaders readers;
};

// INSERT INTO "table" ("a","b") VALUES (?,?), asking for the identity where it is not the rowid.
std::string InsertText(StoreClass const& storeClass, std::vector<StoreColumn const*> const& columns,
                       bool identityIsRowId) {
  std::string sql = "INSERT INTO " + QuotedName(storeClass.tableName);
  if (columns.empty()) {
    sql += " DEFAULT VALUES";
  } else {
    std::string marks;
    for (StoreColumn const* column : columns) {
      sql += (marks.empty() ? " (" : ",") + QuotedName(column->sqlName);
      marks += marks.empty() ? "?" : ",?";
    }
    sql += ") VALUES (" + marks + ")";
  }
  if (identityIsRowId || storeClass.identity.empty()) return sql;
  sql += " RETURNING ";
  for (std::size_t i = 0; i < storeClass.identity.size(); ++i) {
    StoreColumn const& column = storeClass.columns[static_cast<std::size_t>(storeClass.identity[i])];
    sql += (i == 0 ? "" : ",") + QuotedName(column.sqlName);
  }
  return sql;
}

using InsertBase = ClassCommand<FdoIInsert>;

// The inserts through one command share a transaction, which ends with the command at the latest; the
// statement stays prepared for the next row as long as the same properties are given.
class Insert : public InsertBase, public fdo_sdk::DirectInsert {
 public:
  using InsertBase::InsertBase;

  FdoPropertyValueCollection* GetPropertyValues() override { return FDO_SAFE_ADDREF(values_.p); }
  FdoBatchParameterValueCollection* GetBatchParameterValues() override { return FDO_SAFE_ADDREF(batch_.p); }

  // Errors: FdoCommandException*; nothing of this feature is written, and those before it stay.
  FdoIFeatureReader* Execute() override {
    FdoIFeatureReader* inserted = nullptr;
    InBatch([&](Database& database) {
      auto const bind = [&](InsertPlan& plan) {
        return plan.given.Bind(plan.statement, *values_, parameters_);
      };
      return Add(database, PlanFor(database, bind), &inserted);
    });
    return inserted;
  }

  bool ExecuteWith(fdo_sdk::DirectValue const* values, FdoIFeatureReader** inserted) override {
    return InBatch([&](Database& database) {
      auto const bind = [&](InsertPlan& plan) {
        return !plan.given.AreOfColumns() || plan.given.BindDirectly(plan.statement, *values_, values);
      };
      InsertPlan& plan = PlanFor(database, bind);
      return plan.given.AreOfColumns() && Add(database, plan, inserted);
    });
  }

 protected:
  void Dispose() override {
    plan_ = nullptr;
    connection_->LeaveWrites(this);
    delete this;
  }

 private:
  // Does the work, which gives whether it wrote something, in the transaction of this command.
  template <class Work>
  bool InBatch(Work work) {
    if (batch_->GetCount() > 0) Refuse(L"The SQLite provider inserts one feature at a time.");
    Database& database = OpenedDatabase();
    bool const beginsBatch = !database.InTransaction();
    connection_->JoinWrites(this);
    bool written = false;
    try {
      // What it writes in a batch of its own is noted again for each.
      if (beginsBatch && plan_ != nullptr) NoteWrite(*plan_->storeClass, connection_->Indexes());
      written = work(database);
    } catch (FdoException*) {
      // A batch of nothing would keep the file locked.
      if (beginsBatch) connection_->LeaveWrites(this);
      throw;
    }
    if (beginsBatch && !written) connection_->LeaveWrites(this);
    return written;
  }

  // Inserts what has been bound. inserted: null where nobody wants the reader. Gives: true.
  bool Add(Database& database, InsertPlan& plan, FdoIFeatureReader** inserted) {
    ResultCursor::KeptRow identity;
    bool const hasRow = plan.statement.Step();
    if (hasRow) {
      if (inserted != nullptr) identity = KeptIdentity(database, plan);
      plan.statement.Step();
    }
    plan.statement.Reset();
    if (inserted != nullptr) {
      *inserted =
          hasRow ? MakeFeatureReader(connection_, ResultCursor(std::move(identity), plan.identity->columns),
                                     plan.identity)
                 : plan.readers.Of(connection_, sqlite3_last_insert_rowid(database.Handle()), plan.identity);
    }
    if (WasPreparedAnew(plan.statement)) plan_ = nullptr;
    return true;
  }

  // The row on which the statement stands.
  static ResultCursor::KeptRow KeptIdentity(Database& database, InsertPlan& plan) {
    ResultCursor::KeptRow identity;
    for (int i = 0; i < plan.identity->columns->Count(); ++i) {
      identity.emplace_back(sqlite3_value_dup(sqlite3_column_value(plan.statement.Handle(), i)));
      if (identity.back() == nullptr) {
        plan.statement.Reset();
        database.Fail(SQLITE_NOMEM, L"give the identity of the new feature of");
      }
    }
    return identity;
  }

  // A plan whose statement is bound by bind(plan), which gives false where the plan is for other properties.
  // Within a transaction nobody else changes the table, so that the last plan mostly holds.
  template <class Bind>
  InsertPlan& PlanFor(Database& database, Bind bind) {
    bool const holds = plan_ != nullptr && plan_->learned.Holds(database) && IsPlannedClass() &&
                       plan_->statement.Handle() != nullptr;
    if (holds && bind(*plan_)) return *plan_;
    plan_ = MakePlan(database);
    bind(*plan_);
    return *plan_;
  }

  bool IsPlannedClass() const { return className_ != nullptr && plannedName_ == className_->GetText(); }

  std::unique_ptr<InsertPlan> MakePlan(Database& database) {
    DataStamp const learned(database);
    StoreClassPtr const storeClass = Schema().Class(className_);
    if (storeClass->readOnly) {
      Refuse(L"Nothing can be inserted into \"" + storeClass->name + L"\": it is a view.");
    }
    GivenValues given(storeClass, *values_);
    std::vector<int> const& key = storeClass->identity;
    for (int const place : key) {
      StoreColumn const& column = storeClass->columns[static_cast<std::size_t>(place)];
      bool const isMissing = std::count(given.Columns().begin(), given.Columns().end(), &column) == 0;
      if (isMissing && !column.isRowId && column.defaultText.empty()) {
        Refuse(L"The identity \"" + column.name + L"\" has no value, and the store makes none.");
      }
    }
    bool const isRowId = key.size() == 1 && storeClass->columns[static_cast<std::size_t>(key[0])].isRowId;
    Statement statement =
        database.Prepare(InsertText(*storeClass, given.Columns(), isRowId), L"insert a feature into");
    NoteWrite(*storeClass, connection_->Indexes());
    plannedName_ = className_->GetText();
    return std::make_unique<InsertPlan>(InsertPlan{
        storeClass, std::move(given), std::move(statement), ShapeOf(storeClass, key), learned, {}});
  }

  FdoPtr<WatchedValues> values_ = new WatchedValues();
  FdoPtr<FdoBatchParameterValueCollection> batch_ = FdoBatchParameterValueCollection::Create();
  std::unique_ptr<InsertPlan> plan_;
  std::wstring plannedName_;
};

}  // namespace

FdoICommand* MakeInsert(Connection* connection) { return new Insert(connection); }

}  // namespace fdo_sqlite
