// The command that computes values over all features of a class, or over groups of them.
#include <cwctype>
#include <string_view>

#include "sdk/providers/sqlite/command_base.h"
#include "sdk/providers/sqlite/commands.h"
#include "sdk/providers/sqlite/filter_sql.h"
#include "sdk/providers/sqlite/query_source.h"
#include "sdk/providers/sqlite/reader_base.h"
#include "sdk/providers/sqlite/selected_properties.h"

namespace fdo_sqlite {
namespace {

class DataReader : public ReaderBase<FdoIDataReader> {
 public:
  using ReaderBase<FdoIDataReader>::ReaderBase;

  FdoInt32 GetPropertyCount() override { return cursor_.Columns().Count(); }
  FdoDataType GetDataType(FdoString* name) override { return GetDataType(cursor_.IndexOf(name)); }
  FdoPropertyType GetPropertyType(FdoString* name) override { return GetPropertyType(cursor_.IndexOf(name)); }
  FdoDataType GetDataType(FdoInt32 index) override {
    ResultColumn const& column = cursor_.ColumnAt(index);
    if (column.type == kGeometryColumn) Refuse(L"The property \"" + column.name + L"\" is geometry.");
    return static_cast<FdoDataType>(column.type);
  }
  FdoPropertyType GetPropertyType(FdoInt32 index) override {
    return cursor_.ColumnAt(index).type == kGeometryColumn ? FdoPropertyType_GeometricProperty
                                                           : FdoPropertyType_DataProperty;
  }
};

bool IsSameWord(std::wstring_view left, std::wstring_view right) {
  if (left.size() != right.size()) return false;
  for (std::size_t i = 0; i < left.size(); ++i) {
    if (std::towlower(static_cast<std::wint_t>(left[i])) !=
        std::towlower(static_cast<std::wint_t>(right[i]))) {
      return false;
    }
  }
  return true;
}

// Whether SQLite has a shorter way to that value than reading all rows, if it is all that a query asks for.
bool IsBestAlone(FdoIdentifier& name) {
  if (name.GetExpressionType() != FdoExpressionItemType_ComputedIdentifier) return false;
  FdoPtr<FdoExpression> expression = static_cast<FdoComputedIdentifier&>(name).GetExpression();
  if (expression == nullptr || expression->GetExpressionType() != FdoExpressionItemType_Function)
    return false;
  auto& function = static_cast<FdoFunction&>(*expression);
  FdoPtr<FdoExpressionCollection> arguments = function.GetArguments();
  if (IsSameWord(function.GetName(), FDO_FUNCTION_COUNT)) return arguments->GetCount() == 0;
  return (IsSameWord(function.GetName(), FDO_FUNCTION_MIN) ||
          IsSameWord(function.GetName(), FDO_FUNCTION_MAX)) &&
         arguments->GetCount() == 1;
}

using SelectAggregatesBase = SelectCommand<FdoISelectAggregates>;

class SelectAggregates : public SelectAggregatesBase {
 public:
  using SelectAggregatesBase::SelectAggregatesBase;

  void SetOrderingOption(FdoOrderingOption option) override { option_ = option; }
  FdoOrderingOption GetOrderingOption() override { return option_; }
  void SetDistinct(bool value) override { distinct_ = value; }
  bool GetDistinct() override { return distinct_; }
  FdoIdentifierCollection* GetGrouping() override { return FDO_SAFE_ADDREF(grouping_.p); }
  void SetGroupingFilter(FdoFilter* filter) override { groupingFilter_ = FDO_SAFE_ADDREF(filter); }
  FdoFilter* GetGroupingFilter() override { return FDO_SAFE_ADDREF(groupingFilter_.p); }

  FdoIDataReader* Execute() override {
    Database& database = OpenedDatabase();
    StoreClassPtr const storeClass = Schema().Class(className_);
    SqlScope scope{*storeClass, parameters_};
    scope.aggregates = true;
    SelectedProperties const selected(storeClass, *properties_, scope);
    SqlFragment const sql =
        IsOfSeparateValues() ? SeparateValues(selected, scope) : OneQuery(selected, scope);
    ResultCursor cursor(PrepareBound(database, sql, L"read"), selected.Shape()->columns, nullptr);
    return new DataReader(connection_, std::move(cursor));
  }

 private:
  bool IsOfSeparateValues() {
    bool const isPlain = filter_ == nullptr && grouping_->GetCount() == 0 && groupingFilter_ == nullptr &&
                         !distinct_ && properties_->GetCount() > 0;
    for (FdoInt32 i = 0; isPlain && i < properties_->GetCount(); ++i) {
      FdoPtr<FdoIdentifier> name = properties_->GetItem(i);
      if (!IsBestAlone(*name)) return false;
    }
    return isPlain;
  }

  // SELECT (SELECT count(*) FROM "t"),(SELECT max("a") FROM "t")
  SqlFragment SeparateValues(SelectedProperties const& selected, SqlScope const& scope) {
    std::vector<SqlFragment> values;
    for (SqlFragment const& item : selected.Items()) {
      SqlFragment value("(SELECT ");
      value.Add(item, 1);
      value.Add(SourceOf(nullptr, scope), 1);
      value.Add(")");
      values.push_back(value);
    }
    SqlFragment sql("SELECT ");
    sql.Add(Joined(values), 0);
    return sql;
  }

  SqlFragment OneQuery(SelectedProperties const& selected, SqlScope const& scope) {
    SqlFragment sql(distinct_ ? "SELECT DISTINCT " : "SELECT ");
    sql.Add(Joined(selected.Items()), 0);
    SqlScope const rowScope{scope.ofClass, scope.parameters};
    sql.Add(SourceOf(filter_, rowScope), 0);
    for (FdoInt32 i = 0; i < grouping_->GetCount(); ++i) {
      FdoPtr<FdoIdentifier> by = grouping_->GetItem(i);
      sql.Add(i == 0 ? " GROUP BY " : ",");
      sql.Add(selected.Key(*by), 0);
    }
    if (groupingFilter_ != nullptr) {
      if (grouping_->GetCount() == 0) Refuse(L"A filter of groups needs a grouping.");
      sql.Add(" HAVING ");
      sql.Add(TranslateFilter(groupingFilter_, scope).Where(), 0);
    }
    sql.Add(selected.OrderBy(*ordering_, [this](FdoString*) { return option_; }), 0);
    return sql;
  }

  bool distinct_ = false;
  FdoPtr<FdoIdentifierCollection> grouping_ = FdoIdentifierCollection::Create();
  FdoPtr<FdoFilter> groupingFilter_;
};

}  // namespace

FdoICommand* MakeSelectAggregates(Connection* connection) { return new SelectAggregates(connection); }

}  // namespace fdo_sqlite
