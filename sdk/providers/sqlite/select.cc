// The commands that read features.
#include <cstdint>
#include <cwchar>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "sdk/providers/sqlite/column_visits.h"
#include "sdk/providers/sqlite/command_base.h"
#include "sdk/providers/sqlite/commands.h"
#include "sdk/providers/sqlite/data_version.h"
#include "sdk/providers/sqlite/feature_reader.h"
#include "sdk/providers/sqlite/query_source.h"
#include "sdk/providers/sqlite/selected_properties.h"
#include "sdk/providers/sqlite/sql_names.h"
#include "sdk/providers/sqlite/watched_collection.h"

namespace fdo_sqlite {
namespace {

// Which features a select asks for, of those that need no translation.
enum class Wanted { kAll, kById, kOther };

// A select that is made over and over, with another identity each time: the look-up of a feature by its id,
// and all features of a class. The filter is looked at, but neither it nor the class is looked up again.
struct RepeatedSelect {
  explicit RepeatedSelect(DataStamp const& since) : known(since) {}

  Wanted wanted = Wanted::kOther;
  std::wstring className;
  struct Property {
    FdoPtr<FdoIdentifier> identifier;
    std::wstring name;
  };
  std::vector<Property> properties;  // as they were asked for
  std::uint64_t changes = 0;         // of their collection, when they were taken from it
  std::wstring idName;
  std::string sql;
  FeatureShapePtr shape;
  CursorSparesPtr spares;
  DataStamp known;  // when the class was last known to be as it was
};

// The number that an integer literal is. Errors: false, also for null.
bool IntegerOf(FdoExpression& expression, std::int64_t& number) {
  if (expression.GetExpressionType() != FdoExpressionItemType_DataValue) return false;
  auto& value = static_cast<FdoDataValue&>(expression);
  if (value.IsNull()) return false;
  switch (value.GetDataType()) {
    case FdoDataType_Int16:
      number = static_cast<FdoInt16Value&>(value).GetInt16();
      return true;
    case FdoDataType_Int32:
      number = static_cast<FdoInt32Value&>(value).GetInt32();
      return true;
    case FdoDataType_Int64:
      number = static_cast<FdoInt64Value&>(value).GetInt64();
      return true;
    default:
      return false;
  }
}

// Both selects; they differ in what the ordering options are and in the readers.
template <class Interface>
class SelectOf : public SelectCommand<Interface>, public fdo_sdk::ColumnVisits {
 public:
  using Base = SelectCommand<Interface>;

  explicit SelectOf(Connection* connection) : Base(connection) {
    this->properties_ = FDO_SAFE_ADDREF(watched_.p);
  }

  FdoLockType GetLockType() override { return FdoLockType_None; }
  void SetLockType(FdoLockType) override { RefuseLocks(); }
  FdoLockStrategy GetLockStrategy() override { return FdoLockStrategy_All; }
  void SetLockStrategy(FdoLockStrategy) override { RefuseLocks(); }
  FdoIFeatureReader* ExecuteWithLock() override { RefuseLocks(); }
  FdoILockConflictReader* GetLockConflicts() override { RefuseLocks(); }

  FdoIFeatureReader* Execute() override {
    Database& database = this->OpenedDatabase();
    std::int64_t id = 0;
    FdoPtr<FdoIdentifier> idName;
    Wanted const wanted = Asked(id, idName);
    if (wanted == Wanted::kOther) return ExecuteOnce(database);
    if (!Repeats(wanted, idName) && !Learn(wanted, idName)) return ExecuteOnce(database);
    FdoIFeatureReader* reader = ExecuteAgain(database, id);
    if (reader != nullptr) return reader;
    // The class has changed in the meantime.
    repeated_ = nullptr;
    if (Learn(wanted, idName)) reader = ExecuteAgain(database, id);
    return reader != nullptr ? reader : ExecuteOnce(database);
  }

  // For one stored property of rows in no order. SQLite finds the rows of an aggregate as it finds those of a
  // select of the same column, from the same tables under the same condition; not so where a view is put in
  // its place.
  bool VisitColumn(FdoInt32 type, fdo_sdk::ColumnVisitor& visitor) override {
    if (this->ordering_->GetCount() > 0) return false;
    Database& database = this->OpenedDatabase();
    Database::ReadHold const hold(database);
    StoreClassPtr const storeClass = this->Schema().Class(this->className_);
    if (storeClass->readOnly) return false;
    std::uint32_t const version = DataVersion(database);
    SqlScope const scope = ScopeOf(*storeClass, this->parameters_);
    SelectedProperties const selected(storeClass, *this->properties_, scope);
    FeatureShapePtr const shape = selected.Shape();
    bool const isOneProperty = shape->places.size() == 1 && shape->places[0] >= 0;
    if (!isOneProperty || shape->columns->At(0).type != type) return false;
    SqlFragment sql("SELECT ");
    sql.Add(SqlFragment::Call(kVisitFunction, selected.Items()), 0);
    sql.Add(SourceOf(this->filter_, scope, this->connection_.p->Indexes()), 0);
    // A spatial index that was brought up to date may have let the hold go.
    bool const isHeld = sqlite3_txn_state(database.Handle(), "main") != SQLITE_TXN_NONE;
    if (!isHeld || DataVersion(database) != version) return false;
    Statement statement = PrepareBound(database, sql, L"read");
    LentRow row(this->connection_, shape);
    VisitValues(statement, row, type, visitor);
    return true;
  }

 private:
  [[noreturn]] static void RefuseLocks() { Refuse(L"The SQLite provider has no locks."); }

  // id and its name are set for kById.
  Wanted Asked(std::int64_t& id, FdoPtr<FdoIdentifier>& idName) {
    if (this->className_ == nullptr || this->ordering_->GetCount() > 0) return Wanted::kOther;
    if (this->filter_ == nullptr) return Wanted::kAll;
    auto* comparison = dynamic_cast<FdoComparisonCondition*>(this->filter_.p);
    if (comparison == nullptr || comparison->GetOperation() != FdoComparisonOperations_EqualTo) {
      return Wanted::kOther;
    }
    FdoPtr<FdoExpression> left = comparison->GetLeftExpression();
    FdoPtr<FdoExpression> right = comparison->GetRightExpression();
    bool const isId = left != nullptr && right != nullptr &&
                      left->GetExpressionType() == FdoExpressionItemType_Identifier && IntegerOf(*right, id);
    if (!isId) return Wanted::kOther;
    idName = FDO_SAFE_ADDREF(static_cast<FdoIdentifier*>(left.p));
    return Wanted::kById;
  }

  // Whether the command is still the one that was learned.
  bool Repeats(Wanted wanted, FdoIdentifier* idName) {
    if (repeated_ == nullptr || repeated_->wanted != wanted) return false;
    if (repeated_->className != this->className_->GetText()) return false;
    if (idName != nullptr && repeated_->idName != idName->GetText()) return false;
    if (watched_->Changes() != repeated_->changes && !TakeProperties()) return false;
    // Nothing tells when a program gives an identifier another text.
    for (RepeatedSelect::Property const& property : repeated_->properties) {
      if (std::wcscmp(property.identifier->GetText(), property.name.c_str()) != 0) return false;
    }
    return true;
  }

  // Errors: false when there are more or fewer properties than were learned, or a computed one.
  bool TakeProperties() {
    std::vector<RepeatedSelect::Property>& properties = repeated_->properties;
    if (static_cast<std::size_t>(watched_->GetCount()) != properties.size()) return false;
    for (std::size_t i = 0; i < properties.size(); ++i) {
      properties[i].identifier = watched_->GetItem(static_cast<FdoInt32>(i));
      if (!IsStored(*properties[i].identifier)) return false;
    }
    repeated_->changes = watched_->Changes();
    return true;
  }

  static bool IsStored(FdoIdentifier& name) {
    return name.GetExpressionType() == FdoExpressionItemType_Identifier;
  }

  // Errors: false for what is not repeated after all; FdoCommandException* for what there is not.
  bool Learn(Wanted wanted, FdoIdentifier* idName) {
    StoreClassPtr const storeClass = this->Schema().Class(this->className_);
    SqlScope const scope = ScopeOf(*storeClass, this->parameters_);
    auto learned = std::make_unique<RepeatedSelect>(DataStamp(this->OpenedDatabase()));
    learned->wanted = wanted;
    learned->className = this->className_->GetText();
    learned->changes = watched_->Changes();
    std::vector<int> places;
    for (FdoInt32 i = 0; i < watched_->GetCount(); ++i) {
      FdoPtr<FdoIdentifier> name = watched_->GetItem(i);
      if (!IsStored(*name)) return false;
      learned->properties.push_back({name, name->GetText()});
      places.push_back(PlaceNamed(*name, scope));
    }
    if (places.empty()) places = AllPlaces(*storeClass);
    if (places.empty()) return false;
    for (int const place : places) {
      learned->sql += (learned->sql.empty() ? "SELECT " : ",") +
                      SqlNameOf(storeClass->columns[static_cast<std::size_t>(place)], scope);
    }
    learned->sql += " FROM " + QuotedName(storeClass->tableName);
    if (wanted == Wanted::kById) {
      StoreColumn const& column = ColumnNamed(*idName, scope);
      if (!column.isRowId) return false;
      learned->idName = idName->GetText();
      learned->sql += " WHERE " + SqlNameOf(column, scope) + "=?";
    }
    learned->shape = ShapeOf(storeClass, std::move(places));
    learned->spares = std::make_shared<CursorSpares>();
    repeated_ = std::move(learned);
    return true;
  }

  // Gives: null when the class is no longer what it was.
  FdoIFeatureReader* ExecuteAgain(Database& database, std::int64_t id) {
    RepeatedSelect& repeated = *repeated_;
    Statement statement = std::move(repeated.spares->statement);
    if (statement.Handle() == nullptr) statement = database.Prepare(repeated.sql);
    if (repeated.wanted == Wanted::kById) statement.Bind(1, id);
    std::optional<ResultCursor> cursor;
    try {
      cursor.emplace(std::move(statement), repeated.shape->columns, repeated.spares);
    } catch (FdoException* raised) {
      FdoPtr<FdoException> failure(raised);
      // What failed may have been a column that is gone.
      if (this->Schema().Class(this->className_) != repeated.shape->storeClass) return nullptr;
      throw failure.Detach();
    }
    if (cursor->WasPreparedAnew()) return nullptr;
    // The cursor has begun a transaction, which makes the number as fresh as the rows.
    if (!repeated.known.Holds(database)) {
      if (this->Schema().Class(this->className_) != repeated.shape->storeClass) return nullptr;
      repeated.known = DataStamp(database);
    }
    return MakeFeatureReader(this->connection_, std::move(*cursor), repeated.shape);
  }

  FdoOrderingOption OptionOf(FdoString* name) const {
    auto const option = this->options_.find(name);
    return option == this->options_.end() ? this->option_ : option->second;
  }

  // Everything else: translated each time. The statement's text mostly was there before, and is then
  // prepared.
  FdoIFeatureReader* ExecuteOnce(Database& database) {
    while (true) {
      Database::ReadHold const hold(database);
      StoreClassPtr const storeClass = this->Schema().Class(this->className_);
      std::uint32_t const version = DataVersion(database);
      SqlScope const scope = ScopeOf(*storeClass, this->parameters_);
      SelectedProperties const selected(storeClass, *this->properties_, scope);
      SqlFragment sql("SELECT ");
      sql.Add(Joined(selected.Items()), 0);
      sql.Add(SourceOf(this->filter_, scope, this->connection_.p->Indexes()), 0);
      sql.Add(selected.OrderBy(*this->ordering_, [this](FdoString* name) { return this->OptionOf(name); }),
              0);
      FeatureShapePtr const shape = selected.Shape();
      ResultCursor cursor(PrepareBound(database, sql, L"read"), shape->columns, nullptr);
      bool const isAsItWas = !cursor.WasPreparedAnew() && DataVersion(database) == version;
      if (isAsItWas || this->Schema().Class(this->className_) == storeClass) {
        return MakeFeatureReader(this->connection_, std::move(cursor), shape);
      }
    }
  }

  FdoPtr<WatchedIdentifiers> watched_ = new WatchedIdentifiers();  // is properties_
  std::unique_ptr<RepeatedSelect> repeated_;
};

class Select : public SelectOf<FdoISelect> {
 public:
  using Base = SelectOf<FdoISelect>;
  using Base::Base;

  void SetOrderingOption(FdoOrderingOption option) override { option_ = option; }
  FdoOrderingOption GetOrderingOption() override { return option_; }
};

class ExtendedSelect : public SelectOf<FdoIExtendedSelect> {
 public:
  using Base = SelectOf<FdoIExtendedSelect>;
  using Base::Base;

  void SetOrderingOption(FdoOrderingOption option) override { option_ = option; }
  FdoOrderingOption GetOrderingOption() override { return option_; }
  void SetOrderingOption(FdoString* propertyName, FdoOrderingOption option) override {
    options_[propertyName == nullptr ? L"" : propertyName] = option;
  }
  FdoOrderingOption GetOrderingOption(FdoString* propertyName) override {
    auto const option = options_.find(propertyName == nullptr ? L"" : propertyName);
    return option == options_.end() ? option_ : option->second;
  }
  void ClearOrderingOptions() override { options_.clear(); }
  FdoIScrollableFeatureReader* ExecuteScrollable() override {
    Refuse(L"The SQLite provider has no readers that scroll.");
  }
};

}  // namespace

FdoICommand* MakeSelect(Connection* connection) { return new Select(connection); }

FdoICommand* MakeExtendedSelect(Connection* connection) { return new ExtendedSelect(connection); }

}  // namespace fdo_sqlite
