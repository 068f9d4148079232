// The layout of FGF and its WKB counterparts, listed once; skip, box, walk and the conversions all
// look here. docs/fgf_format.md shows the same to a reader (FgfFormat.PageListsEveryType).
#ifndef GEOMETRY_FGF_LAYOUT_H_
#define GEOMETRY_FGF_LAYOUT_H_

#include <array>
#include <cstddef>
#include <cstdint>

namespace fdo {

inline constexpr std::int32_t kFgfPoint = 1;
inline constexpr std::int32_t kFgfLineString = 2;
inline constexpr std::int32_t kFgfPolygon = 3;
inline constexpr std::int32_t kFgfMultiPoint = 4;
inline constexpr std::int32_t kFgfMultiLineString = 5;
inline constexpr std::int32_t kFgfMultiPolygon = 6;
inline constexpr std::int32_t kFgfMultiGeometry = 7;
inline constexpr std::int32_t kFgfCurveString = 10;
inline constexpr std::int32_t kFgfCurvePolygon = 11;
inline constexpr std::int32_t kFgfMultiCurveString = 12;
inline constexpr std::int32_t kFgfMultiCurvePolygon = 13;

// What follows the type word. All but parts begin with the dimensionality.
enum class FgfBody : std::uint8_t {
  kNone,        // of an unknown type: nothing that could be read
  kPosition,    // one position
  kPositions,   // count, positions
  kRings,       // count, then for each ring: count, positions
  kSegments,    // start position, count, segments
  kCurveRings,  // count, then for each ring: start position, count, segments
  kParts,       // count, complete geometries
};

struct FgfLayout {
  std::int32_t type;
  char const* name;
  FgfBody body;
  std::int32_t partType;   // of every part; 0 where a part may be anything or there are none
  std::uint32_t isoWkb;    // type code in ISO WKB, without the thousands
  std::int32_t plainMask;  // geometric kinds of the type in the older WKB form; 0 if it has no such type
};

inline constexpr FgfLayout kFgfLayouts[] = {
    {kFgfPoint, "Point", FgfBody::kPosition, 0, 1, 1},
    {kFgfLineString, "LineString", FgfBody::kPositions, 0, 2, 2},
    {kFgfPolygon, "Polygon", FgfBody::kRings, 0, 3, 4},
    {kFgfMultiPoint, "MultiPoint", FgfBody::kParts, kFgfPoint, 4, 1},
    {kFgfMultiLineString, "MultiLineString", FgfBody::kParts, kFgfLineString, 5, 2},
    {kFgfMultiPolygon, "MultiPolygon", FgfBody::kParts, kFgfPolygon, 6, 4},
    {kFgfMultiGeometry, "MultiGeometry", FgfBody::kParts, 0, 7, 0},
    {kFgfCurveString, "CurveString", FgfBody::kSegments, 0, 9, 0},
    {kFgfCurvePolygon, "CurvePolygon", FgfBody::kCurveRings, 0, 10, 0},
    {kFgfMultiCurveString, "MultiCurveString", FgfBody::kParts, kFgfCurveString, 11, 0},
    {kFgfMultiCurvePolygon, "MultiCurvePolygon", FgfBody::kParts, kFgfCurvePolygon, 12, 0},
};

namespace internal {

inline constexpr std::size_t kTypeCodes = 14;  // 0 to 13, with gaps

// One entry for each type code that there is and for the gaps between them.
template <class Entry, class Choose>
consteval std::array<Entry, kTypeCodes> ByTypeCode(Entry gap, Choose choose) {
  std::array<Entry, kTypeCodes> entries{};
  entries.fill(gap);
  for (FgfLayout const& layout : kFgfLayouts) entries[std::size_t(layout.type)] = choose(layout);
  return entries;
}

inline constexpr auto kLayoutOfType =
    ByTypeCode<FgfLayout const*>(nullptr, [](FgfLayout const& layout) { return &layout; });
inline constexpr auto kBodyOfType =
    ByTypeCode(FgfBody::kNone, [](FgfLayout const& layout) { return layout.body; });
inline constexpr auto kIsoWkbOfType =
    ByTypeCode<std::uint32_t>(0, [](FgfLayout const& layout) { return layout.isoWkb; });
inline constexpr auto kPartOfType =
    ByTypeCode<std::int32_t>(0, [](FgfLayout const& layout) { return layout.partType; });

}  // namespace internal

// Null for a type code that is none of FGF's.
constexpr FgfLayout const* LayoutOf(std::int32_t type) {
  auto const code = static_cast<std::uint32_t>(type);
  return code < internal::kTypeCodes ? internal::kLayoutOfType[code] : nullptr;
}

constexpr FgfBody BodyOf(std::int32_t type) {
  auto const code = static_cast<std::uint32_t>(type);
  return code < internal::kTypeCodes ? internal::kBodyOfType[code] : FgfBody::kNone;
}

// Whether a geometry of that type may be a part of the other; 0 is the parent of what stands alone.
// Requires: parentType is 0 or a multi type.
constexpr bool MayHold(std::int32_t parentType, std::int32_t type) {
  std::int32_t const partType = internal::kPartOfType[static_cast<std::size_t>(parentType)];
  return partType == 0 || partType == type;
}

// Requires: type is one of FGF's.
constexpr std::uint32_t IsoWkbOf(std::int32_t type) {
  return internal::kIsoWkbOfType[static_cast<std::size_t>(type)];
}

inline constexpr int kDimensionalityZ = 1;
inline constexpr int kDimensionalityM = 2;
inline constexpr int kNoDimensionality = -1;  // of the multi types, whose parts have one each

constexpr int OrdinateCount(int dimensionality) {
  return 2 + (dimensionality & kDimensionalityZ) + (dimensionality >> 1);
}
static_assert(OrdinateCount(0) == 2 && OrdinateCount(1) == 3 && OrdinateCount(2) == 3 &&
              OrdinateCount(3) == 4);

constexpr std::size_t PositionBytes(int ordinates) { return std::size_t(ordinates) * sizeof(double); }

inline constexpr std::size_t kSingleHeadBytes = 8;  // type code and dimensionality

// The fewest bytes that one counted thing takes. A count is refused when so many do not fit.
inline constexpr std::size_t kSmallestPart = 4;     // the type word of an unknown type
inline constexpr std::size_t kSmallestRing = 4;     // a point count of zero
inline constexpr std::size_t kSmallestSegment = 8;  // a line of no points

}  // namespace fdo

#endif  // GEOMETRY_FGF_LAYOUT_H_
