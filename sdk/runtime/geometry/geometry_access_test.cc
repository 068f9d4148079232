// What the geometry interfaces show of a stream, and what the factory makes of their objects.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "FdoGeometry.h"
#include "testing/caught_message.h"
#include "testing/fgf_builder.h"
#include "testing/fgf_catalogue.h"

namespace {

using fdo::CataloguedStream;
using fdo::CaughtMessage;
using fdo::FgfCatalogue;

using Bytes = std::vector<unsigned char>;

FdoPtr<FdoFgfGeometryFactory> Factory() { return FdoFgfGeometryFactory::GetInstance(); }

FdoPtr<FdoIGeometry> FromFgf(Bytes const& bytes) {
  FdoPtr<FdoByteArray> array = FdoByteArray::Create(bytes.data(), static_cast<FdoInt32>(bytes.size()));
  return Factory()->CreateGeometryFromFgf(array);
}

// Requires: the text is of the interface's type.
template <class Interface>
FdoPtr<Interface> From(char const* text) {
  FdoPtr<FdoIGeometry> geometry = FromFgf(fdo::Fgf(text));
  return static_cast<Interface*>(geometry.Detach());
}

Bytes FgfOf(FdoIGeometry* geometry) {
  FdoPtr<FdoByteArray> array = Factory()->GetFgf(geometry);
  return Bytes(array->GetData(), array->GetData() + array->GetCount());
}

std::string Show(FdoIDirectPosition* position) {
  std::string shown;
  int const ordinates = 2 + (position->GetDimensionality() & 1) + (position->GetDimensionality() >> 1);
  for (int i = 0; i < ordinates; ++i) {
    shown += (i == 0 ? "" : " ") + std::to_string(std::lround(position->GetOrdinates()[i]));
  }
  return shown;
}

TEST(Point, ShowsItsPosition) {
  FdoPtr<FdoIPoint> point = From<FdoIPoint>("POINT M (1 2 3)");
  EXPECT_EQ(point->GetDimensionality(), FdoDimensionality_M);
  FdoPtr<FdoIDirectPosition> position = point->GetPosition();
  EXPECT_EQ(Show(position), "1 2 3");
  EXPECT_TRUE(std::isnan(position->GetZ()));
  EXPECT_EQ(position->GetM(), 3);
  EXPECT_EQ(point->GetOrdinates()[2], 3);
  double x = 0;
  double z = 0;
  FdoInt32 dimensionality = 0;
  point->GetPositionByMembers(&x, nullptr, &z, nullptr, &dimensionality);
  EXPECT_EQ(x, 1);
  EXPECT_TRUE(std::isnan(z));
  EXPECT_EQ(dimensionality, FdoDimensionality_M);
}

TEST(LineString, ShowsItsPositions) {
  FdoPtr<FdoILineString> line = From<FdoILineString>("LINESTRING Z (1 2 3, 4 5 6, 1 2 3)");
  EXPECT_EQ(line->GetCount(), 3);
  EXPECT_TRUE(line->GetIsClosed());
  FdoPtr<FdoIDirectPosition> second = line->GetItem(1);
  EXPECT_EQ(Show(second), "4 5 6");
  FdoPtr<FdoIDirectPosition> end = line->GetEndPosition();
  EXPECT_EQ(Show(end), "1 2 3");
  FdoPtr<FdoDirectPositionCollection> positions = line->GetPositions();
  EXPECT_EQ(positions->GetCount(), 3);
  EXPECT_EQ(line->GetOrdinates()[5], 6);
  double z = 0;
  line->GetItemByMembers(1, nullptr, nullptr, &z, nullptr, nullptr);
  EXPECT_EQ(z, 6);
  for (FdoInt32 outside : {-1, 3}) {
    EXPECT_NE(CaughtMessage([&] { line->GetItem(outside); }), L"");
    EXPECT_NE(
        CaughtMessage([&] { line->GetItemByMembers(outside, nullptr, nullptr, nullptr, nullptr, nullptr); }),
        L"");
  }
}

TEST(LineString, ClosedNeedsEveryOrdinate) {
  EXPECT_FALSE(From<FdoILineString>("LINESTRING Z (1 2 3, 4 5 6, 1 2 4)")->GetIsClosed());
  EXPECT_FALSE(From<FdoILineString>("LINESTRING EMPTY")->GetIsClosed());
}

TEST(LineString, WithoutPositionsLendsNoneAndHasNoEnds) {
  FdoPtr<FdoILineString> line = From<FdoILineString>("LINESTRING EMPTY");
  EXPECT_EQ(line->GetOrdinates(), nullptr);
  EXPECT_NE(CaughtMessage([&] { line->GetStartPosition(); }), L"");
  EXPECT_NE(CaughtMessage([&] { line->GetEndPosition(); }), L"");
}

TEST(Polygon, ShowsItsRingsInAnyOrder) {
  FdoPtr<FdoIPolygon> polygon =
      From<FdoIPolygon>("POLYGON ((0 0, 9 0, 9 9, 0 0), (1 1, 2 1, 2 2, 1 1), (3 3, 4 3, 4 4, 5 5, 3 3))");
  EXPECT_EQ(polygon->GetInteriorRingCount(), 2);
  FdoPtr<FdoILinearRing> last = polygon->GetInteriorRing(1);
  EXPECT_EQ(last->GetCount(), 5);
  FdoPtr<FdoILinearRing> first = polygon->GetInteriorRing(0);
  EXPECT_EQ(first->GetOrdinates()[0], 1);
  FdoPtr<FdoILinearRing> exterior = polygon->GetExteriorRing();
  FdoPtr<FdoIEnvelope> envelope = exterior->GetEnvelope();
  EXPECT_EQ(envelope->GetMaxX(), 9);
  EXPECT_NE(CaughtMessage([&] { polygon->GetInteriorRing(2); }), L"");
  EXPECT_NE(CaughtMessage([&] { From<FdoIPolygon>("POLYGON EMPTY")->GetExteriorRing(); }), L"");
}

TEST(MultiPoint, LendsAllOrdinatesAsItsDimensionalitySays) {
  FdoPtr<FdoIMultiPoint> points = From<FdoIMultiPoint>("MULTIPOINT Z (1 2 3, 4 5 6)");
  EXPECT_EQ(points->GetDimensionality(), FdoDimensionality_Z);
  EXPECT_EQ(points->GetOrdinates()[5], 6);
  EXPECT_EQ(From<FdoIMultiPoint>("MULTIPOINT EMPTY")->GetOrdinates(), nullptr);
}

TEST(MultiGeometry, ShowsItsPartsAndTheirDimensionalitiesTogether) {
  FdoPtr<FdoIMultiGeometry> all = From<FdoIMultiGeometry>(
      "GEOMETRYCOLLECTION (POINT (1 2), LINESTRING Z (1 2 3, 4 5 6), POINT M (1 2 3))");
  EXPECT_EQ(all->GetDimensionality(), FdoDimensionality_Z | FdoDimensionality_M);
  FdoPtr<FdoIGeometry> last = all->GetItem(2);
  EXPECT_EQ(last->GetDimensionality(), FdoDimensionality_M);
  FdoPtr<FdoIGeometry> first = all->GetItem(0);
  EXPECT_EQ(FgfOf(first), fdo::Fgf("POINT (1 2)"));
  EXPECT_NE(CaughtMessage([&] { all->GetItem(3); }), L"");
}

constexpr char kCurve[] = "CURVESTRING (0 0 (LINESTRINGSEGMENT (1 0, 2 0), CIRCULARARCSEGMENT (3 1, 4 0)))";

TEST(CurveString, SegmentsBeginWhereTheOneBeforeEnds) {
  FdoPtr<FdoICurveString> curve = From<FdoICurveString>(kCurve);
  ASSERT_EQ(curve->GetCount(), 2);
  FdoPtr<FdoICurveSegmentAbstract> arc = curve->GetItem(1);
  ASSERT_EQ(arc->GetDerivedType(), FdoGeometryComponentType_CircularArcSegment);
  FdoPtr<FdoIDirectPosition> start = arc->GetStartPosition();
  EXPECT_EQ(Show(start), "2 0");
  FdoPtr<FdoIDirectPosition> mid = static_cast<FdoICircularArcSegment*>(arc.p)->GetMidPoint();
  EXPECT_EQ(Show(mid), "3 1");
  FdoPtr<FdoIDirectPosition> arcEnd = arc->GetEndPosition();
  FdoPtr<FdoIDirectPosition> end = curve->GetEndPosition();
  EXPECT_EQ(Show(arcEnd), "4 0");
  EXPECT_EQ(Show(end), "4 0");

  FdoPtr<FdoICurveSegmentAbstract> segment = curve->GetItem(0);
  ASSERT_EQ(segment->GetDerivedType(), FdoGeometryComponentType_LineStringSegment);
  auto* const line = static_cast<FdoILineStringSegment*>(segment.p);
  EXPECT_EQ(line->GetCount(), 3);
  EXPECT_EQ(line->GetOrdinates()[4], 2);
  FdoPtr<FdoDirectPositionCollection> positions = line->GetPositions();
  EXPECT_EQ(positions->GetCount(), 3);
  EXPECT_FALSE(curve->GetIsClosed());
}

TEST(CurvePolygon, ShowsItsRings) {
  FdoPtr<FdoICurvePolygon> polygon = From<FdoICurvePolygon>(
      "CURVEPOLYGON ((0 0 (CIRCULARARCSEGMENT (4 4, 8 0), LINESTRINGSEGMENT (0 0))), "
      "(2 1 (LINESTRINGSEGMENT (3 1, 3 2, 2 1))))");
  FdoPtr<FdoIRing> hole = polygon->GetInteriorRing(0);
  EXPECT_EQ(hole->GetCount(), 1);
  FdoPtr<FdoIRing> exterior = polygon->GetExteriorRing();
  FdoPtr<FdoCurveSegmentCollection> segments = exterior->GetCurveSegments();
  EXPECT_EQ(segments->GetCount(), 2);
  FdoPtr<FdoIEnvelope> envelope = exterior->GetEnvelope();
  EXPECT_EQ(envelope->GetMaxY(), 4);
}

// The geometry, taken apart through the interfaces and made again by the factory.
FdoPtr<FdoIGeometry> Remake(FdoIGeometry* geometry);

template <class Interface, class Collection>
FdoPtr<Collection> RemakeParts(FdoIGeometry* geometry) {
  FdoPtr<Collection> parts = Collection::Create();
  auto* const aggregate = static_cast<Interface*>(geometry);
  for (FdoInt32 i = 0; i < aggregate->GetCount(); ++i) {
    FdoPtr part = aggregate->GetItem(i);
    FdoPtr<FdoIGeometry> again = Remake(part);
    parts->Add(static_cast<decltype(part.p)>(again.p));
  }
  return parts;
}

FdoPtr<FdoILinearRing> Remake(FdoPtr<FdoILinearRing> const& ring) {
  FdoPtr<FdoDirectPositionCollection> positions = ring->GetPositions();
  return Factory()->CreateLinearRing(positions);
}

FdoPtr<FdoCurveSegmentCollection> Remake(FdoCurveSegmentCollection* segments) {
  FdoPtr<FdoCurveSegmentCollection> made = FdoCurveSegmentCollection::Create();
  for (FdoInt32 i = 0; i < segments->GetCount(); ++i) {
    FdoPtr<FdoICurveSegmentAbstract> segment = segments->GetItem(i);
    FdoPtr<FdoICurveSegmentAbstract> again;
    if (segment->GetDerivedType() == FdoGeometryComponentType_CircularArcSegment) {
      FdoPtr<FdoIDirectPosition> start = segment->GetStartPosition();
      FdoPtr<FdoIDirectPosition> mid = static_cast<FdoICircularArcSegment*>(segment.p)->GetMidPoint();
      FdoPtr<FdoIDirectPosition> end = segment->GetEndPosition();
      again = Factory()->CreateCircularArcSegment(start, mid, end);
    } else {
      FdoPtr<FdoDirectPositionCollection> positions =
          static_cast<FdoILineStringSegment*>(segment.p)->GetPositions();
      again = Factory()->CreateLineStringSegment(positions);
    }
    made->Add(again);
  }
  return made;
}

FdoPtr<FdoIRing> Remake(FdoPtr<FdoIRing> const& ring) {
  FdoPtr<FdoCurveSegmentCollection> segments = ring->GetCurveSegments();
  return Factory()->CreateRing(Remake(segments.p));
}

template <class Polygon, class Rings, class Create>
FdoPtr<FdoIGeometry> RemakePolygon(FdoIGeometry* geometry, Create create) {
  auto* const polygon = static_cast<Polygon*>(geometry);
  FdoPtr exterior = polygon->GetExteriorRing();
  FdoPtr<Rings> interiors = Rings::Create();
  for (FdoInt32 i = 0; i < polygon->GetInteriorRingCount(); ++i) {
    FdoPtr interior = polygon->GetInteriorRing(i);
    interiors->Add(Remake(interior));
  }
  return create(Remake(exterior), interiors);
}

FdoPtr<FdoIGeometry> Remake(FdoIGeometry* geometry) {
  FdoPtr<FdoFgfGeometryFactory> factory = Factory();
  switch (geometry->GetDerivedType()) {
    case FdoGeometryType_Point: {
      FdoPtr<FdoIDirectPosition> position = static_cast<FdoIPoint*>(geometry)->GetPosition();
      return factory->CreatePoint(position);
    }
    case FdoGeometryType_LineString: {
      auto* const line = static_cast<FdoILineString*>(geometry);
      // A collection without positions cannot say how many ordinates they would have.
      if (line->GetCount() == 0) return factory->CreateLineString(line->GetDimensionality(), 0, nullptr);
      FdoPtr<FdoDirectPositionCollection> positions = line->GetPositions();
      return factory->CreateLineString(positions);
    }
    case FdoGeometryType_Polygon:
      return RemakePolygon<FdoIPolygon, FdoLinearRingCollection>(
          geometry, [&](FdoILinearRing* exterior, FdoLinearRingCollection* interiors) {
            return factory->CreatePolygon(exterior, interiors);
          });
    case FdoGeometryType_MultiPoint:
      return factory->CreateMultiPoint(RemakeParts<FdoIMultiPoint, FdoPointCollection>(geometry));
    case FdoGeometryType_MultiLineString:
      return factory->CreateMultiLineString(
          RemakeParts<FdoIMultiLineString, FdoLineStringCollection>(geometry));
    case FdoGeometryType_MultiPolygon:
      return factory->CreateMultiPolygon(RemakeParts<FdoIMultiPolygon, FdoPolygonCollection>(geometry));
    case FdoGeometryType_MultiGeometry:
      return factory->CreateMultiGeometry(RemakeParts<FdoIMultiGeometry, FdoGeometryCollection>(geometry));
    case FdoGeometryType_CurveString: {
      FdoPtr<FdoCurveSegmentCollection> segments =
          static_cast<FdoICurveString*>(geometry)->GetCurveSegments();
      return factory->CreateCurveString(Remake(segments.p));
    }
    case FdoGeometryType_CurvePolygon:
      return RemakePolygon<FdoICurvePolygon, FdoRingCollection>(
          geometry, [&](FdoIRing* exterior, FdoRingCollection* interiors) {
            return factory->CreateCurvePolygon(exterior, interiors);
          });
    case FdoGeometryType_MultiCurveString:
      return factory->CreateMultiCurveString(
          RemakeParts<FdoIMultiCurveString, FdoCurveStringCollection>(geometry));
    case FdoGeometryType_MultiCurvePolygon:
      return factory->CreateMultiCurvePolygon(
          RemakeParts<FdoIMultiCurvePolygon, FdoCurvePolygonCollection>(geometry));
    case FdoGeometryType_None:
      break;
  }
  return nullptr;
}

TEST(GeometryFactory, MakesEveryCataloguedGeometryOfItsPieces) {
  int made = 0;
  for (CataloguedStream const& entry : FgfCatalogue()) {
    // Neither polygons without rings nor curves without segments are made of objects, and a ring without
    // positions cannot say how many ordinates they would have.
    bool const ofPieces =
        entry.text.find("POLYGON") != std::string::npos || entry.text.find("CURVE") != std::string::npos;
    if (ofPieces && entry.text.find("EMPTY") != std::string::npos) continue;
    SCOPED_TRACE(entry.text);
    FdoPtr<FdoIGeometry> geometry = FromFgf(entry.stream.bytes);
    FdoPtr<FdoIGeometry> again;
    ASSERT_EQ(CaughtMessage([&] { again = Remake(geometry.p); }), L"");
    EXPECT_EQ(FgfOf(again), entry.stream.bytes);
    ++made;
  }
  EXPECT_GE(made, 150);
}

TEST(GeometryFactory, MakesGeometriesOfOrdinates) {
  double ordinates[] = {1, 2, 3, 4, 5, 6};
  FdoPtr<FdoILineString> line = Factory()->CreateLineString(FdoDimensionality_Z, 6, ordinates);
  EXPECT_EQ(FgfOf(line), fdo::Fgf("LINESTRING Z (1 2 3, 4 5 6)"));
  FdoPtr<FdoIMultiPoint> points = Factory()->CreateMultiPoint(FdoDimensionality_XY, 6, ordinates);
  EXPECT_EQ(FgfOf(points), fdo::Fgf("MULTIPOINT (1 2, 3 4, 5 6)"));
  FdoPtr<FdoIPoint> point = Factory()->CreatePoint(FdoDimensionality_M, ordinates);
  EXPECT_EQ(FgfOf(point), fdo::Fgf("POINT M (1 2 3)"));
  FdoPtr<FdoILineStringSegment> segment =
      Factory()->CreateLineStringSegment(FdoDimensionality_XY, 4, ordinates);
  EXPECT_EQ(segment->GetCount(), 2);
  FdoPtr<FdoILinearRing> ring = Factory()->CreateLinearRing(FdoDimensionality_XY, 6, ordinates);
  EXPECT_EQ(ring->GetCount(), 3);
  EXPECT_NE(CaughtMessage([&] { Factory()->CreateLineString(FdoDimensionality_Z, 5, ordinates); }), L"");
  EXPECT_NE(CaughtMessage([&] { Factory()->CreateLineString(FdoDimensionality_XY, -2, ordinates); }), L"");
  EXPECT_NE(CaughtMessage([&] { Factory()->CreateLineString(4, 2, ordinates); }), L"");
  EXPECT_NE(CaughtMessage([&] { Factory()->CreateLineString(FdoDimensionality_XY, 2, nullptr); }), L"");
}

// Programs read the corners at bytes 16, 24, 48 and 56.
TEST(GeometryFactory, EnvelopePolygonRunsFromTheLeastCornerByWayOfTheGreatest) {
  FdoPtr<FdoIEnvelope> envelope = Factory()->CreateEnvelopeXY(1, 2, 3, 4);
  FdoPtr<FdoIGeometry> polygon = Factory()->CreateGeometry(envelope.p);
  EXPECT_EQ(FgfOf(polygon), fdo::Fgf("POLYGON ((1 2, 3 2, 3 4, 1 4, 1 2))"));
  FdoPtr<FdoIEnvelope> empty = FdoEnvelopeImpl::Create();
  EXPECT_NE(CaughtMessage([&] { Factory()->CreateGeometry(empty.p); }), L"");
}

TEST(GeometryFactory, RefusesPiecesThatDoNotFit) {
  FdoPtr<FdoIDirectPosition> flat = Factory()->CreatePositionXY(1, 2);
  FdoPtr<FdoIDirectPosition> high = Factory()->CreatePositionXYZ(1, 2, 3);
  FdoPtr<FdoDirectPositionCollection> mixed = FdoDirectPositionCollection::Create();
  mixed->Add(flat);
  mixed->Add(high);
  EXPECT_EQ(CaughtMessage([&] { Factory()->CreateLineString(mixed); }),
            L"The parts of the geometry differ in dimensionality.");
  EXPECT_NE(CaughtMessage([&] { Factory()->CreateCircularArcSegment(flat, flat, high); }), L"");
  EXPECT_NE(CaughtMessage([&] { Factory()->CreateCircularArcSegment(flat, nullptr, flat); }), L"");
  EXPECT_NE(CaughtMessage([&] { Factory()->CreatePoint(nullptr); }), L"");
  EXPECT_NE(CaughtMessage([&] { Factory()->CreatePolygon(nullptr, nullptr); }), L"");
  EXPECT_NE(CaughtMessage([&] { Factory()->CreateMultiPoint(nullptr); }), L"");
  FdoPtr<FdoCurveSegmentCollection> none = FdoCurveSegmentCollection::Create();
  EXPECT_EQ(CaughtMessage([&] { Factory()->CreateCurveString(none); }),
            L"A curve needs at least one segment.");
}

TEST(GeometryFactory, RefusesACurveWithAGap) {
  double first[] = {0, 0, 1, 1};
  double second[] = {1, 2, 3, 3};
  FdoPtr<FdoCurveSegmentCollection> segments = FdoCurveSegmentCollection::Create();
  FdoPtr<FdoILineStringSegment> one = Factory()->CreateLineStringSegment(FdoDimensionality_XY, 4, first);
  FdoPtr<FdoILineStringSegment> two = Factory()->CreateLineStringSegment(FdoDimensionality_XY, 4, second);
  segments->Add(one);
  segments->Add(two);
  EXPECT_EQ(CaughtMessage([&] { Factory()->CreateCurveString(segments); }),
            L"A segment of the curve does not start where the one before it ends.");
}

TEST(GeometryFactory, SharedInstanceIsOneObject) {
  FdoPtr<FdoFgfGeometryFactory> first = FdoFgfGeometryFactory::GetInstance();
  FdoPtr<FdoFgfGeometryFactory> second = FdoFgfGeometryFactory::GetInstance();
  EXPECT_EQ(first.p, second.p);
  FdoPtr<FdoFgfGeometryFactory> own = FdoFgfGeometryFactory::GetPrivateInstance(1, 1, 1, 1, 1);
  EXPECT_NE(own.p, first.p);
}

TEST(GeometryFactory, PrivateInstanceHandsArraysOutAgain) {
  FdoPtr<FdoFgfGeometryFactory> own = FdoFgfGeometryFactory::GetPrivateInstance(1, 0, 0, 0, 0);
  FdoPtr<FdoByteArray> array = FdoByteArray::Create(64);
  FdoByteArray* const address = array.p;
  own->TakeReleasedByteArray(array.Detach());
  FdoPtr<FdoByteArray> again = own->GetByteArray();
  EXPECT_EQ(again.p, address);
  EXPECT_EQ(again->GetCount(), 0);
  FdoPtr<FdoByteArray> held = again;
  own->TakeReleasedByteArray(again.Detach());
  FdoPtr<FdoByteArray> other = own->GetByteArray();
  EXPECT_NE(other.p, address);
}

TEST(GeometryReferences, AGeometryKeepsItsArrayAndLetsItGo) {
  Bytes const bytes = fdo::Fgf("MULTILINESTRING ((1 2, 3 4), (5 6, 7 8))");
  FdoPtr<FdoByteArray> array = FdoByteArray::Create(bytes.data(), static_cast<FdoInt32>(bytes.size()));
  {
    FdoPtr<FdoIGeometry> geometry = Factory()->CreateGeometryFromFgf(array);
    EXPECT_EQ(array.p->GetRefCount(), 2);
    FdoPtr<FdoILineString> part = static_cast<FdoIMultiLineString*>(geometry.p)->GetItem(1);
    EXPECT_EQ(array.p->GetRefCount(), 3);
    EXPECT_EQ(geometry.p->GetRefCount(), 1);
    FdoPtr<FdoByteArray> given = Factory()->GetFgf(geometry);
    EXPECT_EQ(given.p, array.p);
    geometry.Release();
    EXPECT_EQ(part->GetOrdinates()[0], 5);
  }
  EXPECT_EQ(array.p->GetRefCount(), 1);
}

TEST(GeometryReferences, ARefusedArrayIsLetGo) {
  Bytes const bytes(5, 1);
  FdoPtr<FdoByteArray> array = FdoByteArray::Create(bytes.data(), static_cast<FdoInt32>(bytes.size()));
  EXPECT_EQ(CaughtMessage([&] { Factory()->CreateGeometryFromFgf(array); }), L"Invalid FGF stream!");
  EXPECT_EQ(array.p->GetRefCount(), 1);
}

TEST(GeometryReferences, ACopyDoesNotNeedTheBorrowedBytes) {
  Bytes bytes = fdo::Fgf("LINESTRING (1 2, 3 4)");
  Bytes const before = bytes;
  FdoPtr<FdoIGeometry> borrowing =
      Factory()->CreateGeometryFromFgf(bytes.data(), static_cast<FdoInt32>(bytes.size()));
  FdoPtr<FdoIGeometry> copy = Factory()->CreateGeometry(borrowing.p);
  bytes.assign(bytes.size(), 0);
  EXPECT_EQ(FgfOf(copy), before);
}

// Neither at 8 bytes, where a view would do, nor anywhere else may an ordinate be lent unaligned.
TEST(GeometryReferences, LentOrdinatesAreAlignedWhereverTheBytesLie) {
  Bytes const bytes = fdo::Fgf("LINESTRING ZM (1 2 3 4, 5 6 7 8)");
  for (std::size_t shift = 0; shift < 8; ++shift) {
    Bytes shifted(shift, 0);
    shifted.insert(shifted.end(), bytes.begin(), bytes.end());
    FdoPtr<FdoIGeometry> geometry =
        Factory()->CreateGeometryFromFgf(shifted.data() + shift, static_cast<FdoInt32>(bytes.size()));
    double const* const ordinates = static_cast<FdoILineString*>(geometry.p)->GetOrdinates();
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(ordinates) % alignof(double), 0u);
    EXPECT_EQ(ordinates[7], 8);
  }
}

TEST(GeometryText, ReadsAndWritesTheTextOfEveryCataloguedGeometry) {
  for (CataloguedStream const& entry : FgfCatalogue()) {
    // A multi type without parts has lost its dimensionality in the bytes; the others come back whole.
    SCOPED_TRACE(entry.text);
    FdoPtr<FdoIGeometry> geometry = FromFgf(entry.stream.bytes);
    std::wstring const text = geometry->GetText();
    FdoPtr<FdoIGeometry> back = Factory()->CreateGeometry(text.c_str());
    std::wstring const again = back->GetText();
    EXPECT_EQ(again, text);
    // NaN has more than one form in bytes, and one in text.
    if (text.find(L"NaN") == std::wstring::npos) {
      EXPECT_EQ(FgfOf(back), entry.stream.bytes);
    }
  }
}

TEST(GeometryText, WrongTextIsRefusedWithItsPlace) {
  EXPECT_NE(CaughtMessage([] { Factory()->CreateGeometry(L"POINT (1"); }).find(L"Character "),
            std::wstring::npos);
  EXPECT_NE(CaughtMessage([] { Factory()->CreateGeometry(L""); }), L"");
  EXPECT_NE(CaughtMessage([] { Factory()->CreateGeometry(static_cast<FdoString*>(nullptr)); }), L"");
  FdoPtr<FdoFgfGeometryFactory> own = Factory();
  FdoPtr<FdoIGeometry> geometry =
      static_cast<FdoGeometryFactoryAbstract*>(own.p)->CreateGeometry(L"POINT XYZ (1 2 3)");
  EXPECT_EQ(FgfOf(geometry), fdo::Fgf("POINT Z (1 2 3)"));
}

}  // namespace
