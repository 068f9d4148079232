#include "sdk/runtime/geometry/geometry_fuzz.h"

namespace fdo_sdk {

namespace {

template <class Aggregate>
void LookAtParts(FdoIGeometry* geometry) {
  auto* const aggregate = static_cast<Aggregate*>(geometry);
  for (FdoInt32 i = 0; i < aggregate->GetCount(); ++i) {
    FdoPtr part = aggregate->GetItem(i);
    LookAtEverything(part);
  }
}

template <class Segments>
void LookAtSegments(Segments* curve) {
  for (FdoInt32 i = 0; i < curve->GetCount(); ++i) {
    FdoPtr<FdoICurveSegmentAbstract> segment = curve->GetItem(i);
    FdoPtr<FdoIEnvelope> envelope = segment->GetEnvelope();
    FdoPtr<FdoIDirectPosition> end = segment->GetEndPosition();
  }
}

void LookAtRing(FdoILinearRing* ring) {
  FdoPtr<FdoIEnvelope> envelope = ring->GetEnvelope();
  ring->GetOrdinates();
}

void LookAtRing(FdoIRing* ring) {
  FdoPtr<FdoIEnvelope> envelope = ring->GetEnvelope();
  LookAtSegments(ring);
}

// A polygon without rings says so by an exception.
template <class Polygon>
void LookAtRings(FdoIGeometry* geometry) {
  auto* const polygon = static_cast<Polygon*>(geometry);
  try {
    FdoPtr exterior = polygon->GetExteriorRing();
    LookAtRing(exterior.p);
  } catch (FdoException* raised) {
    raised->Release();
  }
  for (FdoInt32 i = 0; i < polygon->GetInteriorRingCount(); ++i) {
    FdoPtr interior = polygon->GetInteriorRing(i);
    LookAtRing(interior.p);
  }
}

}  // namespace

void LookAtEverything(FdoIGeometry* geometry) {
  FdoPtr<FdoIEnvelope> envelope = geometry->GetEnvelope();
  geometry->GetDimensionality();
  switch (geometry->GetDerivedType()) {
    case FdoGeometryType_Point:
      static_cast<FdoIPoint*>(geometry)->GetOrdinates();
      return;
    case FdoGeometryType_LineString:
      static_cast<FdoILineString*>(geometry)->GetOrdinates();
      return;
    case FdoGeometryType_Polygon:
      return LookAtRings<FdoIPolygon>(geometry);
    case FdoGeometryType_CurveString:
      return LookAtSegments(static_cast<FdoICurveString*>(geometry));
    case FdoGeometryType_CurvePolygon:
      return LookAtRings<FdoICurvePolygon>(geometry);
    case FdoGeometryType_MultiPoint:
      static_cast<FdoIMultiPoint*>(geometry)->GetOrdinates();
      return LookAtParts<FdoIMultiPoint>(geometry);
    case FdoGeometryType_MultiLineString:
      return LookAtParts<FdoIMultiLineString>(geometry);
    case FdoGeometryType_MultiPolygon:
      return LookAtParts<FdoIMultiPolygon>(geometry);
    case FdoGeometryType_MultiGeometry:
      return LookAtParts<FdoIMultiGeometry>(geometry);
    case FdoGeometryType_MultiCurveString:
      return LookAtParts<FdoIMultiCurveString>(geometry);
    case FdoGeometryType_MultiCurvePolygon:
      return LookAtParts<FdoIMultiCurvePolygon>(geometry);
    case FdoGeometryType_None:
      return;
  }
}

}  // namespace fdo_sdk
