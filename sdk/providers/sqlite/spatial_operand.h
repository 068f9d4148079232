// SpatialOperand is the constant side of a spatial or distance condition: read once when the filter becomes
// SQL, bound to the statement as a pointer, and asked about the geometry of every row.
#ifndef SDK_PROVIDERS_SQLITE_SPATIAL_OPERAND_H_
#define SDK_PROVIDERS_SQLITE_SPATIAL_OPERAND_H_

#include <sqlite3.h>

#include <memory>
#include <optional>

#include "Fdo/Filter/DistanceOperations.h"
#include "FdoSpatial.h"
#include "sdk/providers/sqlite/stored_geometry.h"

namespace fdo_sqlite {

// All of them are one SQL function, whose operation comes with its operand; the names are for who reads the
// SQL.
struct SpatialFunction {
  FdoSpatialOperations operation;
  char const* sqlName;
};

inline constexpr SpatialFunction kSpatialFunctions[] = {
    {FdoSpatialOperations_Contains, "fdo_contains"},
    {FdoSpatialOperations_Crosses, "fdo_crosses"},
    {FdoSpatialOperations_Disjoint, "fdo_disjoint"},
    {FdoSpatialOperations_Equals, "fdo_equals"},
    {FdoSpatialOperations_Intersects, "fdo_intersects"},
    {FdoSpatialOperations_Overlaps, "fdo_overlaps"},
    {FdoSpatialOperations_Touches, "fdo_touches"},
    {FdoSpatialOperations_Within, "fdo_within"},
    {FdoSpatialOperations_CoveredBy, "fdo_coveredby"},
    {FdoSpatialOperations_Inside, "fdo_inside"},
    {FdoSpatialOperations_EnvelopeIntersects, "fdo_envelopeintersects"},
};
inline constexpr char kWithinDistance[] = "fdo_withindistance";
inline constexpr char kBeyond[] = "fdo_beyond";

// Threads: one at a time.
class SpatialOperand {
 public:
  // Of a condition on geometries stored in that format.
  // Errors: FdoException* for bytes that are no geometry.
  SpatialOperand(FdoByteArray* fgf, FdoSpatialOperations operation, GeometryFormat storedAs);
  // Requires: distance is finite and not negative. Distances up to 1e-10 count as none.
  SpatialOperand(FdoByteArray* fgf, FdoDistanceOperations operation, double distance,
                 GeometryFormat storedAs);

  // The box of the constant, larger by the distance. Empty for a geometry without positions.
  fdo_sdk::FgfBox const& Box() const { return box_; }

  // Whether the condition holds for a stored geometry: the stored one stands to its left.
  // Nothing when that is null, or nothing that its format knows.
  // Errors: FdoException* for geometries that the operation cannot be asked about.
  std::optional<bool> Holds(sqlite3_value* stored) const;

  // Binds it; the statement shares it until it is bound anew. Gives: SQLite's result code.
  static int Bind(sqlite3_stmt* statement, int position,
                  std::shared_ptr<SpatialOperand const> const& operand);
  // Errors: null for a value that Bind did not make.
  static SpatialOperand const* Of(sqlite3_value* value);

 private:
  void Read(FdoByteArray* fgf);

  FdoPtr<FdoFgfGeometryFactory> factory_ = FdoFgfGeometryFactory::GetInstance();
  FdoPtr<FdoIGeometry> geometry_;
  FdoSpatialOperations operation_;
  double tolerance_ = 0;
  bool negated_ = false;
  fdo_sdk::FgfBox box_;
  mutable StoredGeometry stored_;  // its buffer alone changes
};

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_SPATIAL_OPERAND_H_
