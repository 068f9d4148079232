// Spatial and distance conditions in SQL.
#include <cmath>

#include "sdk/providers/sqlite/condition_sql.h"
#include "sdk/providers/sqlite/spatial_operand.h"

namespace fdo_sqlite {
namespace {

char const* SqlNameOfOperation(FdoSpatialOperations operation) {
  for (SpatialFunction const& row : kSpatialFunctions) {
    if (row.operation == operation) return row.sqlName;
  }
  Refuse(L"A spatial operation is unknown.");
}

StoreColumn const& GeometryColumn(FdoGeometricCondition& condition, SqlScope const& scope) {
  FdoPtr<FdoIdentifier> const name = condition.GetPropertyName();
  if (name == nullptr) Refuse(L"A spatial condition has no property.");
  StoreColumn const& column = ColumnNamed(*name, scope);
  if (column.kind != StoreColumn::Kind::kGeometry) {
    Refuse(L"A spatial condition needs a geometry, and the property \"" + column.name + L"\" is none.");
  }
  if (column.format == GeometryFormat::kUnsupported) {
    Refuse(L"The geometries of the property \"" + column.name + L"\" are stored in an unknown format.");
  }
  return column;
}

// Null for a null geometry.
FdoPtr<FdoByteArray> Constant(FdoExpression* given, SqlScope const& scope) {
  FdoPtr<FdoLiteralValue> value;
  if (auto* parameter = dynamic_cast<FdoParameter*>(given)) {
    FdoPtr<FdoParameterValue> const found =
        scope.parameters == nullptr ? nullptr : scope.parameters->FindItem(parameter->GetName());
    value = found == nullptr ? nullptr : found->GetValue();
    if (value == nullptr) {
      Refuse(std::wstring(L"The parameter \"") + parameter->GetName() + L"\" has no value.");
    }
    given = value;
  }
  if (auto* data = dynamic_cast<FdoDataValue*>(given); data != nullptr && data->IsNull()) return {};
  auto* geometry = dynamic_cast<FdoGeometryValue*>(given);
  if (geometry == nullptr) {
    Refuse(L"A spatial condition needs a geometry literal, or a parameter with one, for its second side.");
  }
  FdoPtr<FdoByteArray> bytes = geometry->GetGeometry();
  if (bytes == nullptr || bytes->GetCount() == 0) return {};
  return bytes;
}

SqlFragment CallOf(char const* name, StoreColumn const& column, SqlScope const& scope, SqlParameter operand) {
  return SqlFragment::Call(
      name, {SqlFragment(SqlNameOf(column, scope)), SqlFragment::Parameter(std::move(operand))});
}

std::optional<BoxCondition> BoxOf(SpatialOperand const& operand, StoreColumn const& column,
                                  SqlScope const& scope, bool decides) {
  if (operand.Box().IsEmpty()) return std::nullopt;
  auto const place = &column - scope.ofClass.columns.data();
  return BoxCondition{static_cast<int>(place), operand.Box(), decides};
}

}  // namespace

SqlCondition SpatialSql(FdoSpatialCondition& condition, SqlScope const& scope) {
  StoreColumn const& column = GeometryColumn(condition, scope);
  char const* const name = SqlNameOfOperation(condition.GetOperation());
  FdoPtr<FdoExpression> const given = condition.GetGeometry();
  FdoPtr<FdoByteArray> const constant = Constant(given, scope);
  if (constant == nullptr) return {SqlFragment("NULL"), std::nullopt};
  auto const operand =
      std::make_shared<SpatialOperand const>(constant, condition.GetOperation(), column.format);
  SqlCondition made{CallOf(name, column, scope, operand), std::nullopt};
  // Every other operation needs the two to have a point in common.
  if (condition.GetOperation() != FdoSpatialOperations_Disjoint) {
    bool const decides = condition.GetOperation() == FdoSpatialOperations_EnvelopeIntersects;
    made.box = BoxOf(*operand, column, scope, decides);
  }
  return made;
}

SqlCondition DistanceSql(FdoDistanceCondition& condition, SqlScope const& scope) {
  StoreColumn const& column = GeometryColumn(condition, scope);
  double const distance = condition.GetDistance();
  if (!std::isfinite(distance) || distance < 0) Refuse(L"A distance must be a number of at least 0.");
  FdoPtr<FdoExpression> const given = condition.GetGeometry();
  FdoPtr<FdoByteArray> const constant = Constant(given, scope);
  if (constant == nullptr) return {SqlFragment("NULL"), std::nullopt};
  bool const isWithin = condition.GetOperation() == FdoDistanceOperations_Within;
  auto const operand =
      std::make_shared<SpatialOperand const>(constant, condition.GetOperation(), distance, column.format);
  SqlCondition made{CallOf(isWithin ? kWithinDistance : kBeyond, column, scope, operand), std::nullopt};
  if (isWithin) made.box = BoxOf(*operand, column, scope, false);
  return made;
}

}  // namespace fdo_sqlite
