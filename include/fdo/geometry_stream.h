// Geometries travel as FGF, a byte stream without a header, a length or a byte-order mark, held in
// the blob of a Value. These routines read that stream where it lies: they step over a geometry,
// measure it, walk it, and turn it into well-known binary (WKB) and back. docs/fgf_format.md shows
// both layouts, with one stream taken apart byte by byte.
//
// A stream is never trusted. Its length is known, every count is held against the bytes that are left
// before it is used, and geometries nest at most kFgfMaxLevels deep. Each routine reads one geometry
// from the front; what follows it is not looked at.
//
// Errors: unless stated otherwise a routine throws FdoException* "Invalid FGF stream!", with one
//   reference for the catcher, for a stream that ends early, a dimensionality outside 0 to 3, a
//   negative or too large count, a curve segment that is neither an arc nor a line, and for nesting
//   that is too deep. A ring count below 1 is no error: it means no rings.
// Threads: any; nothing is kept between calls and nothing is allocated but the exception.
#ifndef FDO_GEOMETRY_STREAM_H_
#define FDO_GEOMETRY_STREAM_H_

#include <fdo/export.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace fdo {

// A geometry that stands alone is level 1, a part is one level below what holds it.
inline constexpr int kFgfMaxLevels = 128;

// Returns the position after the geometry that starts at begin.
// Deliberate: of a geometry with an unknown type code only the type word is skipped
// (pinned by SkipGeometry.UnknownTypeIsItsTypeWord).
QUILLON_EXPORT unsigned char const* SkipGeometry(unsigned char const* begin, unsigned char const* end);

// Measures X and Y; returns the position after what it read, which is where SkipGeometry ends.
// A geometry without positions, or with an unknown type code, gives the empty box, and so do a line
// string of no points and a polygon whose only ring has none. A part without positions adds nothing
// to the box of its collection. An ordinate that is not a number adds nothing to its axis.
// Deliberate: an arc counts with its start, mid and end positions only, not with its bulge between
// them (pinned by FgfBox.ArcCountsItsControlPositionsOnly).
// Units: minX, minY, maxX, maxY; empty is inverted: the largest finite double, then its negation.
// Errors: as above; box is then untouched.
QUILLON_EXPORT unsigned char const* FgfBox(unsigned char const* begin, unsigned char const* end,
                                           double box[4]);

// There are two pairs of conversions. FgfToWkb and WkbToFgf know the older form of WKB: little-endian,
// types 1 to 6, and a Z ordinate told by the bit 0x80000000 of the type word.

// Room that FgfToWkb needs for an FGF stream of that many bytes. One byte more than the stream: a
// multi-geometry without parts has 8 bytes as FGF and 9 as WKB.
constexpr std::size_t FgfToWkbBound(std::size_t fgfLength) { return fgfLength + 1; }

// Writes the WKB of an FGF geometry; returns the bytes written.
// Returns 0 for what this form does not carry: types other than 1 to 6, positions with M, and a
// multi-geometry with a part of another type than its own.
// Deliberate: a multi-geometry with Z begins with the type of its parts and the Z bit, MultiPoint Z
// with 0x80000001, and the headers of its parts are without that bit. Other programs read this
// wrongly: use FgfToIsoWkb for those (pinned by FgfToWkb.MultiWithZBeginsWithThePartType).
// Requires: out has room for FgfToWkbBound(length) bytes and does not overlap the stream.
QUILLON_EXPORT std::size_t FgfToWkb(unsigned char const* fgf, std::size_t length, unsigned char* out);

constexpr std::size_t WkbToFgfBound(std::size_t wkbLength) { return 2 * wkbLength; }

// Writes the FGF of a WKB geometry; returns the bytes written, 0 for type words other than 1 to 6
// with or without the Z bit, and for a part of another type than that of its collection.
// Deliberate: byte-order bytes are stepped over unread, numbers are taken as little-endian (pinned by
// WkbToFgf.ByteOrderIsNotLookedAt).
// Requires: out has room for WkbToFgfBound(length) bytes and does not overlap the WKB.
QUILLON_EXPORT std::size_t WkbToFgf(unsigned char const* wkb, std::size_t length, unsigned char* out);

// The kinds of geometry, as a sum of 1 point, 2 curve, 4 surface, 8 solid, that a column of that WKB
// type holds. Types 1 to 6, with or without the Z bit, give the one kind they are made of, 0 (no
// geometry) gives 0, and every other code gives 15, which is all of them.
QUILLON_EXPORT std::int32_t FgfGeometryTypeMask(std::uint32_t wkbType);

// FgfToIsoWkb and IsoWkbToFgf know the ISO form and carry everything that FGF has: all eleven types with
// Z and M (type codes raised by 1000 for Z, 2000 for M, 3000 for both).
//
//   FGF                   WKB
//   1 to 6                the same
//   7 MultiGeometry       7 GeometryCollection, nested as it comes
//   10 CurveString        8 CircularString when it has arcs only, otherwise 9 CompoundCurve
//   11 CurvePolygon       10 CurvePolygon
//   12 MultiCurveString   11 MultiCurve
//   13 MultiCurvePolygon  12 MultiSurface
//
// Adjoining arcs share one CircularString. A ring, or a part of a MultiCurve, that is a single line
// segment is a LineString. From FGF to ISO WKB and back is the identity for every stream that
// FgfToIsoWkb accepts.
// Errors: these two never throw. The result is 0 for a broken stream, for nesting that is too deep,
//   and for what the other side cannot hold.

constexpr std::size_t FgfToIsoWkbBound(std::size_t fgfLength) { return 2 * fgfLength; }

// Writes little-endian ISO WKB; returns the bytes written. What WKB cannot hold: geometries of
// different dimensionality in one collection, a curve without segments, a line segment without
// positions, a part of another type than its multi-geometry asks for, a negative ring count and an
// unknown type code. A collection without any position is written as XY.
// Requires: out has room for FgfToIsoWkbBound(length) bytes and does not overlap the stream.
QUILLON_EXPORT std::size_t FgfToIsoWkb(unsigned char const* fgf, std::size_t length,
                                       unsigned char* out) noexcept;

constexpr std::size_t IsoWkbToFgfBound(std::size_t wkbLength) { return 2 * wkbLength; }

// Reads WKB in either byte order, each part by its own header, with ISO codes or the Z bit
// 0x80000000; returns the bytes of FGF written. Line strings and polygons inside MultiCurve and
// MultiSurface become curve strings and curve polygons of line segments. A point whose ordinates are
// not numbers (an empty point) keeps them. What FGF cannot hold: triangle, TIN, polyhedral surface
// and the abstract types, an empty curve, a compound curve with a gap, an arc string of an even
// number of points, and a curve whose members differ in dimensionality.
// Requires: out has room for IsoWkbToFgfBound(length) bytes and does not overlap the WKB.
QUILLON_EXPORT std::size_t IsoWkbToFgf(unsigned char const* wkb, std::size_t length,
                                       unsigned char* out) noexcept;

// Positions as they lie in the stream: X, Y, then Z and M as far as there are any.
// Borrowed: the bytes are the stream's. They may be unaligned: read them through Ordinate.
struct FgfPositions {
  unsigned char const* bytes;
  std::int32_t count;
  int ordinates;  // per position, 2 to 4

  // Requires: 0 <= position < count, 0 <= ordinate < ordinates.
  double Ordinate(std::int32_t position, int ordinate) const {
    double value;
    std::memcpy(&value, bytes + (std::size_t(position) * std::size_t(ordinates) + std::size_t(ordinate)) * 8,
                sizeof(value));
    return value;
  }
};

// What stands at the head of a geometry, and where it is among its siblings.
struct FgfGeometry {
  std::int32_t type;        // code of FdoGeometryType
  std::int32_t parentType;  // 0 for the outermost geometry
  std::int32_t index;       // among the parts of its parent, from 0
  int dimensionality;       // 0 XY, 1 XYZ, 2 XYM, 3 XYZM; -1 for the multi types, which have none
  std::int32_t count;       // of positions (types 1, 2), segments (10), parts (multi types) or rings
                            // (3, 11; as it stands in the stream, where less than 1 means none)
};

inline constexpr std::int32_t kFgfArc = 130;   // segment of two positions, mid and end
inline constexpr std::int32_t kFgfLine = 131;  // segment of any number of positions

// Receives a geometry piece by piece, in stream order:
//
//   Point, LineString   BeginGeometry  Positions  EndGeometry
//   Polygon             BeginGeometry  { BeginRing  Positions  EndRing }  EndGeometry
//   CurveString         BeginGeometry  Start  { Segment }  EndGeometry
//   CurvePolygon        BeginGeometry  { BeginRing  Start  { Segment }  EndRing }  EndGeometry
//   multi types         BeginGeometry  { the same for each part }  EndGeometry
//
// A piece has been checked against the end of the stream when it arrives. Each function returns
// whether to go on; override those that are of interest.
class FgfVisitor {
 public:
  virtual ~FgfVisitor() = default;
  virtual bool BeginGeometry(FgfGeometry const& /*geometry*/) { return true; }
  // count: positions of a Polygon's ring, segments of a CurvePolygon's.
  virtual bool BeginRing(std::int32_t /*index*/, std::int32_t /*count*/) { return true; }
  virtual bool Positions(FgfPositions const& /*positions*/) { return true; }
  // The one position that a curve starts from.
  virtual bool Start(FgfPositions const& /*position*/) { return true; }
  // type: kFgfArc or kFgfLine. The segment starts where what came before it ended.
  virtual bool Segment(std::int32_t /*type*/, FgfPositions const& /*positions*/) { return true; }
  virtual bool EndRing() { return true; }
  virtual bool EndGeometry(FgfGeometry const& /*geometry*/) { return true; }
  // A type code that is none of FGF's; the walk goes on after the type word, as SkipGeometry does.
  virtual bool UnknownType(std::int32_t /*type*/) { return true; }
};

// Walks the geometry at begin. Returns the position after it, or null when the visitor stopped.
QUILLON_EXPORT unsigned char const* VisitFgf(unsigned char const* begin, unsigned char const* end,
                                             FgfVisitor& visitor);

}  // namespace fdo

#endif  // FDO_GEOMETRY_STREAM_H_
