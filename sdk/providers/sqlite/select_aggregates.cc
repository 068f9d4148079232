// The command that computes values over all features of a class, or over groups of them.
#include <cwctype>
#include <string>
#include <string_view>
#include <vector>

#include "sdk/providers/base/reads_by_name.h"
#include "sdk/providers/sqlite/command_base.h"
#include "sdk/providers/sqlite/commands.h"
#include "sdk/providers/sqlite/data_version.h"
#include "sdk/providers/sqlite/extent_polygon.h"
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

// The function of one property, or of none, that a computed property is.
struct PropertyFunction {
  std::wstring name;  // empty for everything else
  FdoPtr<FdoIdentifier> property;
};

PropertyFunction FunctionOf(FdoIdentifier& computed) {
  PropertyFunction none;
  if (computed.GetExpressionType() != FdoExpressionItemType_ComputedIdentifier) return none;
  FdoPtr<FdoExpression> expression = static_cast<FdoComputedIdentifier&>(computed).GetExpression();
  if (expression == nullptr || expression->GetExpressionType() != FdoExpressionItemType_Function) return none;
  auto& function = static_cast<FdoFunction&>(*expression);
  FdoPtr<FdoExpressionCollection> arguments = function.GetArguments();
  if (arguments->GetCount() == 0) return {function.GetName(), nullptr};
  FdoPtr<FdoExpression> argument = arguments->GetItem(0);
  if (arguments->GetCount() > 1 || argument->GetExpressionType() != FdoExpressionItemType_Identifier)
    return none;
  return {function.GetName(), FdoPtr<FdoIdentifier>(static_cast<FdoIdentifier*>(argument.Detach()))};
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
    while (true) {
      Database::ReadHold const hold(database);
      StoreClassPtr const storeClass = Schema().Class(className_);
      std::uint32_t const version = DataVersion(database);
      SqlScope scope = ScopeOf(*storeClass, parameters_);
      scope.aggregates = true;
      SelectedProperties const selected(storeClass, *properties_, scope);
      std::vector<SqlFragment> const values = SeparateValues(selected, scope);
      SqlFragment sql("SELECT ");
      if (values.empty()) {
        sql = OneQuery(selected, scope);
      } else {
        sql.Add(Joined(values), 0);
      }
      ResultCursor cursor(PrepareBound(database, sql, L"read"), selected.Shape()->columns, nullptr);
      // What was learned before the query is true of it, unless somebody has written in between. SQLite also
      // prepares a statement anew to look at a pattern that is bound to it.
      bool const isAsItWas = !cursor.WasPreparedAnew() && DataVersion(database) == version;
      if (isAsItWas || Schema().Class(className_) == storeClass) {
        return new fdo_provider::ReadsByName<DataReader>(connection_, std::move(cursor));
      }
    }
  }

 private:
  // Where every value has a shorter way than reading all rows, if it is asked for alone: each as a query of
  // its own, (SELECT count(*) FROM "t") and (SELECT max("a") FROM "t"). Otherwise empty.
  std::vector<SqlFragment> SeparateValues(SelectedProperties const& selected, SqlScope const& scope) {
    bool const isOfAll =
        filter_ == nullptr && grouping_->GetCount() == 0 && groupingFilter_ == nullptr && !distinct_;
    std::vector<SqlFragment> values;
    for (FdoInt32 i = 0; isOfAll && i < properties_->GetCount(); ++i) {
      FdoPtr<FdoIdentifier> computed = properties_->GetItem(i);
      PropertyFunction const function = FunctionOf(*computed);
      bool const isCount = IsSameWord(function.name, FDO_FUNCTION_COUNT) && function.property == nullptr;
      bool const isExtreme =
          IsSameWord(function.name, FDO_FUNCTION_MIN) || IsSameWord(function.name, FDO_FUNCTION_MAX);
      if (IsSameWord(function.name, FDO_FUNCTION_SPATIALEXTENTS) && HasIndex(function.property, scope)) {
        values.push_back(ExtentOf(*function.property, scope));
      } else if (isCount || (isExtreme && function.property != nullptr)) {
        SqlFragment value("(SELECT ");
        value.Add(selected.Items()[static_cast<std::size_t>(i)], 1);
        value.Add(SourceOf(nullptr, scope, connection_->Indexes()), 1);
        value.Add(")");
        values.push_back(value);
      } else {
        return {};
      }
    }
    return values;
  }

  static bool HasIndex(FdoIdentifier* property, SqlScope const& scope) {
    return property != nullptr && !scope.ofClass.rowIdName.empty() && !scope.ofClass.readOnly &&
           ColumnNamed(*property, scope).kind == StoreColumn::Kind::kGeometry;
  }

  SqlFragment ExtentOf(FdoIdentifier& property, SqlScope const& scope) {
    FgfBox box;
    IndexedColumn const column = IndexedColumnOf(scope.ofClass, ColumnNamed(property, scope));
    if (!connection_->Indexes().Of(column).Extent(box)) return SqlFragment("NULL");
    auto const polygon = ExtentPolygon(box);
    return SqlFragment::Parameter(SqlBytes(polygon.begin(), polygon.end()));
  }

  SqlFragment OneQuery(SelectedProperties const& selected, SqlScope const& scope) {
    SqlFragment sql(distinct_ ? "SELECT DISTINCT " : "SELECT ");
    sql.Add(Joined(selected.Items()), 0);
    sql.Add(SourceOf(filter_, ScopeOf(scope.ofClass, scope.parameters), connection_->Indexes()), 0);
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
