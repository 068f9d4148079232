// SQL functions of stored geometries. What is null, or is no geometry of its format, gives null.
#include "sdk/providers/sqlite/spatial_operand.h"
#include "sdk/providers/sqlite/sql_functions.h"

namespace fdo_sqlite {
namespace {

GeometryFormat FormatIn(sqlite3_value* value) {
  return static_cast<GeometryFormat>(sqlite3_value_int(value));
}

// The stored geometry, and the operand that spatial_operand.h binds.
void Holds(sqlite3_context* context, int, sqlite3_value** arguments) {
  RunSqlFunction(context, [&] {
    SpatialOperand const* const operand = SpatialOperand::Of(arguments[1]);
    if (operand == nullptr)
      throw FdoException::Create(L"A spatial function needs the geometry of a condition.");
    std::optional<bool> const holds = operand->Holds(arguments[0]);
    if (holds.has_value()) sqlite3_result_int(context, *holds ? 1 : 0);
  });
}

// The stored geometry and its format, as for those that follow.
void HasGeometry(sqlite3_context* context, int, sqlite3_value** arguments) {
  RunSqlFunction(context, [&] {
    StoredGeometry stored(FormatIn(arguments[1]));
    sqlite3_result_int(context, stored.Fgf(arguments[0]).IsNull() ? 0 : 1);
  });
}

enum class Ordinate { kX, kY, kZ, kM };

// Of a point; one that it does not have is 0.
template <Ordinate ordinate>
void OrdinateOf(sqlite3_context* context, int, sqlite3_value** arguments) {
  RunSqlFunction(context, [&] {
    StoredGeometry stored(FormatIn(arguments[1]));
    GeometryBytes const fgf = stored.Fgf(arguments[0]);
    if (fgf.IsNull()) return;
    FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
    FdoPtr<FdoIGeometry> geometry = factory->CreateGeometryFromFgf(fgf.data, static_cast<FdoInt32>(fgf.size));
    if (geometry->GetDerivedType() != FdoGeometryType_Point) return;
    double x = 0, y = 0, z = 0, m = 0;
    FdoInt32 dimensionality = 0;
    static_cast<FdoIPoint*>(geometry.p)->GetPositionByMembers(&x, &y, &z, &m, &dimensionality);
    bool const hasZ = (dimensionality & FdoDimensionality_Z) != 0;
    bool const hasM = (dimensionality & FdoDimensionality_M) != 0;
    double const ordinates[] = {x, y, hasZ ? z : 0, hasM ? m : 0};
    sqlite3_result_double(context, ordinates[static_cast<int>(ordinate)]);
  });
}

SqlFunction Scalar(char const* name, decltype(SqlFunction::run) run) {
  return {name, 2, true, run, nullptr, nullptr};
}

}  // namespace

std::vector<SqlFunction> const& GeometryFunctions() {
  static std::vector<SqlFunction> const kFunctions = [] {
    std::vector<SqlFunction> functions = {
        Scalar(kWithinDistance, Holds),
        Scalar(kBeyond, Holds),
        Scalar("fdo_has_geometry", HasGeometry),
        Scalar("fdo_x", OrdinateOf<Ordinate::kX>),
        Scalar("fdo_y", OrdinateOf<Ordinate::kY>),
        Scalar("fdo_z", OrdinateOf<Ordinate::kZ>),
        Scalar("fdo_m", OrdinateOf<Ordinate::kM>),
    };
    for (SpatialFunction const& row : kSpatialFunctions) functions.push_back(Scalar(row.sqlName, Holds));
    return functions;
  }();
  return kFunctions;
}

}  // namespace fdo_sqlite
