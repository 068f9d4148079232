// The type words of well-known text, the WKB types they name, and how their bodies are built.
#ifndef SDK_PROVIDERS_SQLITE_WKT_WORDS_H_
#define SDK_PROVIDERS_SQLITE_WKT_WORDS_H_

#include <string_view>

#include "sdk/runtime/geometry/wkb_layout.h"

namespace fdo_sqlite {

enum class WktBody {
  kPosition,   // (1 2)
  kPositions,  // (1 2,3 4)
  kRings,      // ((1 2,3 4),(5 6,7 8))
  kBareParts,  // the same, each a part without its word
  kParts,      // parts with their words; those of plainPart may be without
};

struct WktWord {
  std::string_view word;
  fdo_sdk::WkbType type;
  WktBody body;
  std::uint32_t plainPart;  // type of a part that has no word; 0 where each must have one
};

inline constexpr WktWord kWktWords[] = {
    {"POINT", fdo_sdk::kWkbPoint, WktBody::kPosition, 0},
    {"LINESTRING", fdo_sdk::kWkbLineString, WktBody::kPositions, 0},
    {"POLYGON", fdo_sdk::kWkbPolygon, WktBody::kRings, 0},
    {"MULTIPOINT", fdo_sdk::kWkbMultiPoint, WktBody::kBareParts, fdo_sdk::kWkbPoint},
    {"MULTILINESTRING", fdo_sdk::kWkbMultiLineString, WktBody::kBareParts, fdo_sdk::kWkbLineString},
    {"MULTIPOLYGON", fdo_sdk::kWkbMultiPolygon, WktBody::kBareParts, fdo_sdk::kWkbPolygon},
    {"GEOMETRYCOLLECTION", fdo_sdk::kWkbGeometryCollection, WktBody::kParts, 0},
    {"CIRCULARSTRING", fdo_sdk::kWkbCircularString, WktBody::kPositions, 0},
    {"COMPOUNDCURVE", fdo_sdk::kWkbCompoundCurve, WktBody::kParts, fdo_sdk::kWkbLineString},
    {"CURVEPOLYGON", fdo_sdk::kWkbCurvePolygon, WktBody::kParts, fdo_sdk::kWkbLineString},
    {"MULTICURVE", fdo_sdk::kWkbMultiCurve, WktBody::kParts, fdo_sdk::kWkbLineString},
    {"MULTISURFACE", fdo_sdk::kWkbMultiSurface, WktBody::kParts, fdo_sdk::kWkbPolygon},
};

// Null where there is none.
constexpr WktWord const* WktWordOf(std::uint32_t type) {
  for (WktWord const& word : kWktWords) {
    if (word.type == type) return &word;
  }
  return nullptr;
}

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_WKT_WORDS_H_
