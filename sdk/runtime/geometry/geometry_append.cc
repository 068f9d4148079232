#include "sdk/runtime/geometry/geometry_append.h"

#include "sdk/runtime/geometry/fgf_curve_types.h"
#include "sdk/runtime/geometry/fgf_geometry.h"
#include "sdk/runtime/geometry/fgf_simple_types.h"

namespace fdo_sdk {

namespace {

template <class Object>
Object* NotNull(Object* object) {
  if (object == nullptr) ThrowFailure(L"A part of the geometry is null.");
  return object;
}

void CheckSame(FdoInt32 dimensionality, FdoInt32 required) {
  if (!IsDimensionality(dimensionality)) ThrowFailure(L"The dimensionality is not valid.");
  if (dimensionality != required) ThrowFailure(L"The parts of the geometry differ in dimensionality.");
}

void AppendOrdinates(FgfBuilder& out, double const* ordinates, FdoInt32 count, FdoInt32 dimensionality) {
  out.Bytes(ordinates, static_cast<std::size_t>(count) * PositionBytes(dimensionality));
}

// Line strings, rings and line segments of other makers.
template <class Line>
void AppendCounted(FgfBuilder& out, Line* line) {
  out.Int32(line->GetCount());
  AppendOrdinates(out, line->GetOrdinates(), line->GetCount(), line->GetDimensionality());
}

template <class Polygon, class Append>
void AppendPolygon(FgfBuilder& out, Polygon* polygon, Append append) {
  FdoInt32 const dimensionality = polygon->GetDimensionality();
  out.Int32(dimensionality);
  out.Int32(polygon->GetInteriorRingCount() + 1);
  FdoPtr exterior = polygon->GetExteriorRing();
  append(out, exterior, dimensionality);
  for (FdoInt32 i = 0; i < polygon->GetInteriorRingCount(); ++i) {
    FdoPtr interior = polygon->GetInteriorRing(i);
    append(out, interior, dimensionality);
  }
}

template <class Aggregate>
void AppendParts(FgfBuilder& out, FdoIGeometry* geometry, FdoInt32 partType, int level) {
  auto* const aggregate = static_cast<Aggregate*>(geometry);
  out.Int32(aggregate->GetCount());
  for (FdoInt32 i = 0; i < aggregate->GetCount(); ++i) {
    FdoPtr part = aggregate->GetItem(i);
    AppendGeometry(out, part, partType, level + 1);
  }
}

// The body of a geometry of another maker, after the type word.
void AppendForeign(FgfBuilder& out, FdoIGeometry* geometry, int level) {
  FdoInt32 const dimensionality = geometry->GetDimensionality();
  if (!IsDimensionality(dimensionality)) ThrowFailure(L"The dimensionality is not valid.");
  switch (geometry->GetDerivedType()) {
    case FdoGeometryType_Point:
      out.Int32(dimensionality);
      return AppendOrdinates(out, static_cast<FdoIPoint*>(geometry)->GetOrdinates(), 1, dimensionality);
    case FdoGeometryType_LineString:
      out.Int32(dimensionality);
      return AppendCounted(out, static_cast<FdoILineString*>(geometry));
    case FdoGeometryType_Polygon:
      return AppendPolygon(out, static_cast<FdoIPolygon*>(geometry), AppendLinearRing);
    case FdoGeometryType_CurveString: {
      FdoPtr segments = static_cast<FdoICurveString*>(geometry)->GetCurveSegments();
      out.Int32(dimensionality);
      return AppendSegments(out, segments, dimensionality);
    }
    case FdoGeometryType_CurvePolygon:
      return AppendPolygon(out, static_cast<FdoICurvePolygon*>(geometry), AppendRing);
    case FdoGeometryType_MultiPoint:
      return AppendParts<FdoIMultiPoint>(out, geometry, FdoGeometryType_Point, level);
    case FdoGeometryType_MultiLineString:
      return AppendParts<FdoIMultiLineString>(out, geometry, FdoGeometryType_LineString, level);
    case FdoGeometryType_MultiPolygon:
      return AppendParts<FdoIMultiPolygon>(out, geometry, FdoGeometryType_Polygon, level);
    case FdoGeometryType_MultiGeometry:
      return AppendParts<FdoIMultiGeometry>(out, geometry, 0, level);
    case FdoGeometryType_MultiCurveString:
      return AppendParts<FdoIMultiCurveString>(out, geometry, FdoGeometryType_CurveString, level);
    case FdoGeometryType_MultiCurvePolygon:
      return AppendParts<FdoIMultiCurvePolygon>(out, geometry, FdoGeometryType_CurvePolygon, level);
    case FdoGeometryType_None:
      break;
  }
  ThrowFailure(L"The geometry is of an unknown type.");
}

bool SamePosition(FdoIDirectPosition* left, FdoIDirectPosition* right, FdoInt32 dimensionality) {
  double const* const leftOrdinates = left->GetOrdinates();
  double const* const rightOrdinates = right->GetOrdinates();
  for (int i = 0; i < OrdinateCount(dimensionality); ++i) {
    if (leftOrdinates[i] != rightOrdinates[i]) return false;
  }
  return true;
}

void AppendSegment(FgfBuilder& out, FdoICurveSegmentAbstract* segment) {
  FdoInt32 const dimensionality = segment->GetDimensionality();
  out.Int32(segment->GetDerivedType());
  switch (segment->GetDerivedType()) {
    case FdoGeometryComponentType_CircularArcSegment: {
      FdoPtr mid = static_cast<FdoICircularArcSegment*>(segment)->GetMidPoint();
      FdoPtr end = segment->GetEndPosition();
      AppendPosition(out, mid, dimensionality);
      AppendPosition(out, end, dimensionality);
      return;
    }
    case FdoGeometryComponentType_LineStringSegment: {
      auto* const line = static_cast<FdoILineStringSegment*>(segment);
      FdoInt32 const rest = line->GetCount() - 1;
      out.Int32(rest);
      AppendOrdinates(out, line->GetOrdinates() + OrdinateCount(dimensionality), rest, dimensionality);
      return;
    }
    default:
      ThrowFailure(L"The segment is of an unknown type.");
  }
}

}  // namespace

void AppendGeometry(FgfBuilder& out, FdoIGeometry* geometry, FdoInt32 requiredType, int level) {
  if (level > kMaxLevels) ThrowFailure(L"The geometry nests too deep.");
  FdoInt32 const type = NotNull(geometry)->GetDerivedType();
  if (requiredType != 0 && type != requiredType) ThrowFailure(L"A part of the geometry is of a wrong type.");
  if (FgfBacked const* const own = AsFgfBacked(geometry))
    return out.Bytes(own->Bytes().data, own->Bytes().size);
  out.Int32(type);
  AppendForeign(out, geometry, level);
}

void AppendPosition(FgfBuilder& out, FdoIDirectPosition* position, FdoInt32 dimensionality) {
  CheckSame(NotNull(position)->GetDimensionality(), dimensionality);
  AppendOrdinates(out, position->GetOrdinates(), 1, dimensionality);
}

void AppendLinearRing(FgfBuilder& out, FdoILinearRing* ring, FdoInt32 dimensionality) {
  CheckSame(NotNull(ring)->GetDimensionality(), dimensionality);
  if (auto const* const own = dynamic_cast<FgfLinearRing const*>(ring)) {
    out.Int32(own->Positions().count);
    return out.Positions(own->Positions());
  }
  AppendCounted(out, ring);
}

void AppendRing(FgfBuilder& out, FdoIRing* ring, FdoInt32 dimensionality) {
  CheckSame(NotNull(ring)->GetDimensionality(), dimensionality);
  if (auto const* const own = dynamic_cast<FgfRing const*>(ring)) {
    return out.Bytes(own->Segments().Data(), own->Segments().Size());
  }
  FdoPtr segments = ring->GetCurveSegments();
  AppendSegments(out, segments, dimensionality);
}

void AppendSegments(FgfBuilder& out, FdoCurveSegmentCollection* segments, FdoInt32 dimensionality) {
  FdoInt32 const count = NotNull(segments)->GetCount();
  if (count == 0) ThrowFailure(L"A curve needs at least one segment.");
  FdoPtr<FdoIDirectPosition> at;
  for (FdoInt32 i = 0; i < count; ++i) {
    FdoPtr segment = segments->GetItem(i);
    CheckSame(NotNull(segment.p)->GetDimensionality(), dimensionality);
    FdoPtr start = segment->GetStartPosition();
    if (i == 0) {
      AppendPosition(out, start, dimensionality);
      out.Int32(count);
    } else if (!SamePosition(start, at, dimensionality)) {
      ThrowFailure(L"A segment of the curve does not start where the one before it ends.");
    }
    AppendSegment(out, segment);
    at = segment->GetEndPosition();
  }
}

FdoInt32 DimensionalityOf(FdoDirectPositionCollection* positions) {
  if (NotNull(positions)->GetCount() == 0) return FdoDimensionality_XY;
  FdoPtr first = positions->GetItem(0);
  return NotNull(first.p)->GetDimensionality();
}

FdoInt32 DimensionalityOf(FdoCurveSegmentCollection* segments) {
  if (NotNull(segments)->GetCount() == 0) return FdoDimensionality_XY;
  FdoPtr first = segments->GetItem(0);
  return NotNull(first.p)->GetDimensionality();
}

void AppendPositions(FgfBuilder& out, FdoDirectPositionCollection* positions, FdoInt32 dimensionality) {
  out.Int32(positions->GetCount());
  for (FdoInt32 i = 0; i < positions->GetCount(); ++i) {
    FdoPtr position = positions->GetItem(i);
    AppendPosition(out, position, dimensionality);
  }
}

}  // namespace fdo_sdk
