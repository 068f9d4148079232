// The operations of FdoFgfGeometryFactory that make geometries of objects and ordinates.
#include <cmath>
#include <memory>

#include "FdoGeometry.h"
#include "sdk/runtime/geometry/fgf_curve_types.h"
#include "sdk/runtime/geometry/fgf_geometry.h"
#include "sdk/runtime/geometry/fgf_simple_types.h"
#include "sdk/runtime/geometry/geometry_append.h"

using namespace fdo_sdk;

namespace {

FgfBytes ToBytes(FgfBuilder const& fgf) {
  FdoPtr<FdoByteArray> array = fgf.ToArray();
  FdoByte const* const data = array->GetData();
  return {data, static_cast<std::size_t>(array->GetCount()), array};
}

// The type asked for is the type that was written.
template <class Interface>
Interface* Make(FgfBuilder const& fgf) {
  return static_cast<Interface*>(MakeGeometry(ToBytes(fgf)));
}

// Gives the number of positions that the ordinates make.
FdoInt32 CountOf(FdoInt32 dimensionality, FdoInt32 numOrdinates, double const* ordinates) {
  if (!IsDimensionality(dimensionality)) ThrowFailure(L"The dimensionality is not valid.");
  if (numOrdinates < 0 || numOrdinates % OrdinateCount(dimensionality) != 0) {
    ThrowFailure(L"The ordinates are no whole number of positions.");
  }
  if (numOrdinates > 0 && ordinates == nullptr) ThrowFailure(L"There are no ordinates.");
  return numOrdinates / OrdinateCount(dimensionality);
}

void Append(FgfBuilder& out, FdoInt32 dimensionality, FdoInt32 numOrdinates, double const* ordinates) {
  out.Int32(CountOf(dimensionality, numOrdinates, ordinates));
  out.Bytes(ordinates, sizeof(double) * static_cast<std::size_t>(numOrdinates));
}

FgfBuilder Begin(FdoGeometryType type, FdoInt32 dimensionality) {
  FgfBuilder out;
  out.Int32(type);
  out.Int32(dimensionality);
  return out;
}

// A multi type from the collection of its parts.
template <class Interface, class Collection>
Interface* MakeOfParts(FdoGeometryType type, FdoInt32 partType, Collection* parts) {
  if (parts == nullptr) ThrowFailure(L"There are no parts.");
  FgfBuilder out = Begin(type, parts->GetCount());
  for (FdoInt32 i = 0; i < parts->GetCount(); ++i) {
    FdoPtr part = parts->GetItem(i);
    AppendGeometry(out, part, partType, 2);
  }
  return Make<Interface>(out);
}

template <class Interface, class Ring, class Rings, class AppendOne>
Interface* MakeOfRings(FdoGeometryType type, Ring* exterior, Rings* interiors, AppendOne append) {
  if (exterior == nullptr) ThrowFailure(L"A polygon needs an exterior ring.");
  FdoInt32 const dimensionality = exterior->GetDimensionality();
  FdoInt32 const interiorCount = interiors == nullptr ? 0 : interiors->GetCount();
  FgfBuilder out = Begin(type, dimensionality);
  out.Int32(interiorCount + 1);
  append(out, exterior, dimensionality);
  for (FdoInt32 i = 0; i < interiorCount; ++i) {
    FdoPtr interior = interiors->GetItem(i);
    append(out, interior, dimensionality);
  }
  return Make<Interface>(out);
}

FdoILineStringSegment* MakeLineSegment(FgfBuilder const& positions, FdoInt32 dimensionality) {
  FgfBytes const bytes = ToBytes(positions);
  PositionSpan const all{bytes.data, static_cast<FdoInt32>(bytes.size / PositionBytes(dimensionality)),
                         dimensionality};
  if (all.count == 0) ThrowFailure(L"A segment needs its start position.");
  return new FgfLineSegment(bytes, {all.data, 1, dimensionality}, {all.At(1), all.count - 1, dimensionality});
}

}  // namespace

FdoILineString* FdoFgfGeometryFactory::CreateLineString(FdoDirectPositionCollection* positions) {
  FdoInt32 const dimensionality = DimensionalityOf(positions);
  FgfBuilder out = Begin(FdoGeometryType_LineString, dimensionality);
  AppendPositions(out, positions, dimensionality);
  return Make<FdoILineString>(out);
}

FdoILineString* FdoFgfGeometryFactory::CreateLineString(FdoInt32 dimensionType, FdoInt32 numOrdinates,
                                                        double* ordinates) {
  FgfBuilder out = Begin(FdoGeometryType_LineString, dimensionType);
  Append(out, dimensionType, numOrdinates, ordinates);
  return Make<FdoILineString>(out);
}

FdoIGeometry* FdoFgfGeometryFactory::CreateGeometry(FdoIGeometry* geometry) {
  FgfBacked const* const own = AsFgfBacked(geometry);
  // What lies in an array never changes; borrowed bytes may go before the copy does.
  if (own != nullptr && own->Bytes().array != nullptr) return MakeGeometry(own->Bytes());
  FgfBuilder out;
  AppendGeometry(out, geometry);
  return Make<FdoIGeometry>(out);
}

FdoIGeometry* FdoFgfGeometryFactory::CreateGeometry(FdoIEnvelope* envelope) {
  if (envelope == nullptr || envelope->GetIsEmpty()) ThrowFailure(L"An empty envelope is no geometry.");
  double const minX = envelope->GetMinX();
  double const minY = envelope->GetMinY();
  double const maxX = envelope->GetMaxX();
  double const maxY = envelope->GetMaxY();
  // From the least corner, by way of the greatest, back to the least: programs read it at fixed places.
  double const ring[] = {minX, minY, maxX, minY, maxX, maxY, minX, maxY, minX, minY};
  FgfBuilder out = Begin(FdoGeometryType_Polygon, FdoDimensionality_XY);
  out.Int32(1);
  Append(out, FdoDimensionality_XY, static_cast<FdoInt32>(std::size(ring)), ring);
  return Make<FdoIGeometry>(out);
}

FdoIPoint* FdoFgfGeometryFactory::CreatePoint(FdoIDirectPosition* position) {
  if (position == nullptr) ThrowFailure(L"A point needs a position.");
  FgfBuilder out = Begin(FdoGeometryType_Point, position->GetDimensionality());
  AppendPosition(out, position, position->GetDimensionality());
  return Make<FdoIPoint>(out);
}

FdoIPoint* FdoFgfGeometryFactory::CreatePoint(FdoInt32 dimensionality, double* ordinates) {
  if (ordinates == nullptr) ThrowFailure(L"There are no ordinates.");
  if (!IsDimensionality(dimensionality)) ThrowFailure(L"The dimensionality is not valid.");
  FgfBuilder out = Begin(FdoGeometryType_Point, dimensionality);
  out.Bytes(ordinates, PositionBytes(dimensionality));
  return Make<FdoIPoint>(out);
}

FdoILinearRing* FdoFgfGeometryFactory::CreateLinearRing(FdoDirectPositionCollection* positions) {
  FdoInt32 const dimensionality = DimensionalityOf(positions);
  FgfBuilder out;
  AppendPositions(out, positions, dimensionality);
  return new FgfLinearRing(ToBytes(out), dimensionality);
}

FdoILinearRing* FdoFgfGeometryFactory::CreateLinearRing(FdoInt32 dimensionality, FdoInt32 numOrdinates,
                                                        double* ordinates) {
  FgfBuilder out;
  Append(out, dimensionality, numOrdinates, ordinates);
  return new FgfLinearRing(ToBytes(out), dimensionality);
}

FdoILineStringSegment* FdoFgfGeometryFactory::CreateLineStringSegment(
    FdoDirectPositionCollection* positions) {
  FdoInt32 const dimensionality = DimensionalityOf(positions);
  FgfBuilder out;
  for (FdoInt32 i = 0; i < positions->GetCount(); ++i) {
    FdoPtr position = positions->GetItem(i);
    AppendPosition(out, position, dimensionality);
  }
  return MakeLineSegment(out, dimensionality);
}

FdoILineStringSegment* FdoFgfGeometryFactory::CreateLineStringSegment(FdoInt32 dimtype, FdoInt32 numOrdinates,
                                                                      double* ordinates) {
  CountOf(dimtype, numOrdinates, ordinates);
  FgfBuilder out;
  out.Bytes(ordinates, sizeof(double) * static_cast<std::size_t>(numOrdinates));
  return MakeLineSegment(out, dimtype);
}

FdoIPolygon* FdoFgfGeometryFactory::CreatePolygon(FdoILinearRing* exteriorRing,
                                                  FdoLinearRingCollection* interiorRings) {
  return MakeOfRings<FdoIPolygon>(FdoGeometryType_Polygon, exteriorRing, interiorRings, AppendLinearRing);
}

FdoIMultiPoint* FdoFgfGeometryFactory::CreateMultiPoint(FdoPointCollection* points) {
  return MakeOfParts<FdoIMultiPoint>(FdoGeometryType_MultiPoint, FdoGeometryType_Point, points);
}

FdoIMultiPoint* FdoFgfGeometryFactory::CreateMultiPoint(FdoInt32 dimensionality, FdoInt32 numOrdinates,
                                                        double* ordinates) {
  FdoInt32 const count = CountOf(dimensionality, numOrdinates, ordinates);
  FgfBuilder out = Begin(FdoGeometryType_MultiPoint, count);
  for (FdoInt32 i = 0; i < count; ++i) {
    out.Int32(FdoGeometryType_Point);
    out.Int32(dimensionality);
    out.Bytes(ordinates + static_cast<std::ptrdiff_t>(i) * OrdinateCount(dimensionality),
              PositionBytes(dimensionality));
  }
  return Make<FdoIMultiPoint>(out);
}

FdoIMultiLineString* FdoFgfGeometryFactory::CreateMultiLineString(FdoLineStringCollection* lineStrings) {
  return MakeOfParts<FdoIMultiLineString>(FdoGeometryType_MultiLineString, FdoGeometryType_LineString,
                                          lineStrings);
}

FdoIMultiPolygon* FdoFgfGeometryFactory::CreateMultiPolygon(FdoPolygonCollection* polygons) {
  return MakeOfParts<FdoIMultiPolygon>(FdoGeometryType_MultiPolygon, FdoGeometryType_Polygon, polygons);
}

FdoICircularArcSegment* FdoFgfGeometryFactory::CreateCircularArcSegment(FdoIDirectPosition* startPosition,
                                                                        FdoIDirectPosition* midPosition,
                                                                        FdoIDirectPosition* endPosition) {
  if (startPosition == nullptr) ThrowFailure(L"An arc needs three positions.");
  FdoInt32 const dimensionality = startPosition->GetDimensionality();
  FgfBuilder out;
  AppendPosition(out, startPosition, dimensionality);
  AppendPosition(out, midPosition, dimensionality);
  AppendPosition(out, endPosition, dimensionality);
  FgfBytes const bytes = ToBytes(out);
  return new FgfArcSegment(bytes, {bytes.data, 1, dimensionality},
                           {bytes.data + PositionBytes(dimensionality), 2, dimensionality});
}

FdoICurveString* FdoFgfGeometryFactory::CreateCurveString(FdoCurveSegmentCollection* curveSegments) {
  FdoInt32 const dimensionality = DimensionalityOf(curveSegments);
  FgfBuilder out = Begin(FdoGeometryType_CurveString, dimensionality);
  AppendSegments(out, curveSegments, dimensionality);
  return Make<FdoICurveString>(out);
}

FdoIMultiCurveString* FdoFgfGeometryFactory::CreateMultiCurveString(FdoCurveStringCollection* curveStrings) {
  return MakeOfParts<FdoIMultiCurveString>(FdoGeometryType_MultiCurveString, FdoGeometryType_CurveString,
                                           curveStrings);
}

FdoIRing* FdoFgfGeometryFactory::CreateRing(FdoCurveSegmentCollection* curveSegments) {
  FdoInt32 const dimensionality = DimensionalityOf(curveSegments);
  FgfBuilder out;
  AppendSegments(out, curveSegments, dimensionality);
  return new FgfRing(ToBytes(out), dimensionality);
}

FdoICurvePolygon* FdoFgfGeometryFactory::CreateCurvePolygon(FdoIRing* exteriorRing,
                                                            FdoRingCollection* interiorRings) {
  return MakeOfRings<FdoICurvePolygon>(FdoGeometryType_CurvePolygon, exteriorRing, interiorRings, AppendRing);
}

FdoIMultiCurvePolygon* FdoFgfGeometryFactory::CreateMultiCurvePolygon(
    FdoCurvePolygonCollection* curvePolygons) {
  return MakeOfParts<FdoIMultiCurvePolygon>(FdoGeometryType_MultiCurvePolygon, FdoGeometryType_CurvePolygon,
                                            curvePolygons);
}

FdoIMultiGeometry* FdoFgfGeometryFactory::CreateMultiGeometry(FdoGeometryCollection* geometries) {
  return MakeOfParts<FdoIMultiGeometry>(FdoGeometryType_MultiGeometry, 0, geometries);
}
