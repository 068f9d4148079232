// The types of an FGF stream with their names in the two text forms.
#ifndef TOOLS_QUILLON_GEOMETRY_KIND_H_
#define TOOLS_QUILLON_GEOMETRY_KIND_H_

#include <cstdint>

namespace fdo::tool {

enum GeometryType : std::int32_t {
  kNoGeometry = 0,
  kPoint = 1,
  kLineString = 2,
  kPolygon = 3,
  kMultiPoint = 4,
  kMultiLineString = 5,
  kMultiPolygon = 6,
  kMultiGeometry = 7,
  kCurveString = 10,
  kCurvePolygon = 11,
  kMultiCurveString = 12,
  kMultiCurvePolygon = 13,
};

struct GeometryKind {
  std::int32_t type;
  char const* geoJson;  // curves have no type of their own there
  char const* wkt;      // of SQL/MM part 3
  std::int32_t parts;   // the plain type that the parts of a multi type have, 0 for anything
  std::int32_t plain;   // what the type is when curves do not count
  bool isMulti;
};

inline constexpr GeometryKind kGeometryKinds[] = {
    {kPoint, "Point", "POINT", 0, kPoint, false},
    {kLineString, "LineString", "LINESTRING", 0, kLineString, false},
    {kPolygon, "Polygon", "POLYGON", 0, kPolygon, false},
    {kMultiPoint, "MultiPoint", "MULTIPOINT", kPoint, kMultiPoint, true},
    {kMultiLineString, "MultiLineString", "MULTILINESTRING", kLineString, kMultiLineString, true},
    {kMultiPolygon, "MultiPolygon", "MULTIPOLYGON", kPolygon, kMultiPolygon, true},
    {kMultiGeometry, "GeometryCollection", "GEOMETRYCOLLECTION", 0, kMultiGeometry, true},
    {kCurveString, "LineString", "COMPOUNDCURVE", 0, kLineString, false},
    {kCurvePolygon, "Polygon", "CURVEPOLYGON", 0, kPolygon, false},
    {kMultiCurveString, "MultiLineString", "MULTICURVE", kLineString, kMultiLineString, true},
    {kMultiCurvePolygon, "MultiPolygon", "MULTISURFACE", kPolygon, kMultiPolygon, true},
};

// Null for a code that is none of FGF's.
constexpr GeometryKind const* FindGeometryKind(std::int32_t type) {
  for (GeometryKind const& kind : kGeometryKinds) {
    if (kind.type == type) return &kind;
  }
  return nullptr;
}

// Whether a geometry may stand where its parent wants it; true for the outermost. (Without a pointer to
// compare, so that g++ evaluates it at compile time under the sanitizers, too.)
constexpr bool FitsParent(std::int32_t type, std::int32_t parentType) {
  std::int32_t plain = kNoGeometry, wanted = kNoGeometry;
  for (GeometryKind const& kind : kGeometryKinds) {
    if (kind.type == type) plain = kind.plain;
    if (kind.type == parentType) wanted = kind.parts;
  }
  return plain != kNoGeometry && (wanted == kNoGeometry || wanted == plain);
}

static_assert(FitsParent(kPoint, kNoGeometry) && FitsParent(kPolygon, kMultiCurvePolygon));
static_assert(FitsParent(kMultiPoint, kMultiGeometry) && !FitsParent(kPoint, kMultiPolygon));

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_GEOMETRY_KIND_H_
