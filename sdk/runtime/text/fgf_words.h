// The words of geometry text, each listed once, and what their geometries are made of.
#ifndef SDK_RUNTIME_TEXT_FGF_WORDS_H_
#define SDK_RUNTIME_TEXT_FGF_WORDS_H_

#include <string_view>

#include "Common/GeometryType.h"

namespace fdo_sdk {

// The body of a geometry, in text and in bytes.
enum class FgfBody { kPosition, kLine, kRings, kCurve, kCurveRings, kParts, kCollection };

struct FgfType {
  FdoGeometryType type;
  std::wstring_view word;
  FgfBody body;
  FdoGeometryType part;  // of kParts
};

inline constexpr FgfType kFgfTypes[] = {
    {FdoGeometryType_Point, L"POINT", FgfBody::kPosition, FdoGeometryType_None},
    {FdoGeometryType_LineString, L"LINESTRING", FgfBody::kLine, FdoGeometryType_None},
    {FdoGeometryType_Polygon, L"POLYGON", FgfBody::kRings, FdoGeometryType_None},
    {FdoGeometryType_MultiPoint, L"MULTIPOINT", FgfBody::kParts, FdoGeometryType_Point},
    {FdoGeometryType_MultiLineString, L"MULTILINESTRING", FgfBody::kParts, FdoGeometryType_LineString},
    {FdoGeometryType_MultiPolygon, L"MULTIPOLYGON", FgfBody::kParts, FdoGeometryType_Polygon},
    {FdoGeometryType_MultiGeometry, L"GEOMETRYCOLLECTION", FgfBody::kCollection, FdoGeometryType_None},
    {FdoGeometryType_CurveString, L"CURVESTRING", FgfBody::kCurve, FdoGeometryType_None},
    {FdoGeometryType_CurvePolygon, L"CURVEPOLYGON", FgfBody::kCurveRings, FdoGeometryType_None},
    {FdoGeometryType_MultiCurveString, L"MULTICURVESTRING", FgfBody::kParts, FdoGeometryType_CurveString},
    {FdoGeometryType_MultiCurvePolygon, L"MULTICURVEPOLYGON", FgfBody::kParts, FdoGeometryType_CurvePolygon},
};

// Null when no geometry has that number.
constexpr FgfType const* FindFgfType(int type) {
  for (FgfType const& known : kFgfTypes) {
    if (known.type == type) return &known;
  }
  return nullptr;
}

struct FgfDimension {
  std::wstring_view word;
  int dimensionality;
};

// The first word of a dimensionality is the one that is written.
inline constexpr FgfDimension kFgfDimensions[] = {
    {L"XY", 0}, {L"XYZ", 1}, {L"XYM", 2}, {L"XYZM", 3}, {L"Z", 1}, {L"M", 2}, {L"ZM", 3},
};

constexpr int OrdinatesOf(int dimensionality) { return 2 + (dimensionality & 1) + (dimensionality >> 1); }
static_assert(OrdinatesOf(0) == 2 && OrdinatesOf(1) == 3 && OrdinatesOf(2) == 3 && OrdinatesOf(3) == 4);

inline constexpr std::wstring_view kArcWord = L"CIRCULARARCSEGMENT";
inline constexpr std::wstring_view kLineWord = L"LINESTRINGSEGMENT";
inline constexpr std::wstring_view kEmptyWord = L"EMPTY";

inline constexpr wchar_t kInvalidFgf[] = L"Invalid FGF stream!";

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_TEXT_FGF_WORDS_H_
