// The operations of FdoSpatialUtility other than Evaluate.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>
#include <vector>

#include "FdoSpatial.h"
#include "testing/caught_message.h"
#include "testing/fgf_builder.h"

namespace {

using fdo::CaughtMessage;

using Bytes = std::vector<unsigned char>;

FdoPtr<FdoByteArray> Array(char const* text) {
  Bytes const bytes = fdo::Fgf(text);
  return FdoByteArray::Create(bytes.data(), static_cast<FdoInt32>(bytes.size()));
}

FdoPtr<FdoIGeometry> From(char const* text) {
  FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
  return factory->CreateGeometryFromFgf(Array(text));
}

Bytes FgfOf(FdoIGeometry* geometry) {
  FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
  FdoPtr<FdoByteArray> array = factory->GetFgf(geometry);
  return Bytes(array->GetData(), array->GetData() + array->GetCount());
}

FdoPtr<FdoILinearRing> Ring(std::string const& positions) {
  FdoPtr<FdoIGeometry> polygon = From(("POLYGON ((" + positions + "))").c_str());
  return static_cast<FdoIPolygon*>(polygon.p)->GetExteriorRing();
}

TEST(Extents, AreThoseOfTheCurveWithZWhereThereIsOne) {
  double box[6];
  FdoSpatialUtility::GetExtents(Array("CURVESTRING Z (0 0 5 (CIRCULARARCSEGMENT (1 1 9, 2 0 7)))"), box[0],
                                box[1], box[2], box[3], box[4], box[5]);
  double const expected[] = {0, 0, 5, 2, 1, 9};
  for (int i = 0; i < 6; ++i) EXPECT_NEAR(box[i], expected[i], 1e-12) << i;
  FdoSpatialUtility::GetExtents(Array("LINESTRING (1 2, 3 4)"), box[0], box[1], box[2], box[3], box[4],
                                box[5]);
  EXPECT_EQ(box[4], 4);
  EXPECT_TRUE(std::isnan(box[2]) && std::isnan(box[5]));
  FdoSpatialUtility::GetExtents(Array("LINESTRING EMPTY"), box[0], box[1], box[2], box[3]);
  EXPECT_TRUE(std::isnan(box[0]) && std::isnan(box[3]));
  FdoPtr<FdoByteArray> broken = Array("POINT (1 2)");
  broken = FdoByteArray::SetSize(broken.Detach(), 9);
  EXPECT_EQ(CaughtMessage([&] { FdoSpatialUtility::GetExtents(broken, box[0], box[1], box[2], box[3]); }),
            L"Invalid FGF stream!");
}

TEST(PointInRing, InsideOnAndOutside) {
  FdoPtr<FdoILinearRing> ring = Ring("0 0, 10 0, 10 10, 5 5, 0 10, 0 0");
  struct {
    double x, y;
    bool inside, onBoundary;
  } const rows[] = {
      {5, 2, true, false},   {5, 5, false, true}, {5, 6, false, false},    {0, 0, false, true},
      {10, 10, false, true}, {1, 8, true, false}, {9, 8, true, false},     {-1, 0, false, false},
      {11, 0, false, false}, {5, 0, false, true}, {7.5, 7.5, false, true}, {-1, 10, false, false},
      {5, 10, false, false}, {0, 5, false, true}, {-1, 5, false, false},
  };
  for (auto const& row : rows) {
    bool onBoundary = !row.onBoundary;
    EXPECT_EQ(FdoSpatialUtility::PointInRing(ring, row.x, row.y, &onBoundary), row.inside)
        << row.x << " " << row.y;
    EXPECT_EQ(onBoundary, row.onBoundary) << row.x << " " << row.y;
    EXPECT_EQ(FdoSpatialUtility::PointInRing(ring, row.x, row.y), row.inside);
  }
}

// The products of the differences cannot be told apart in doubles.
TEST(PointInRing, IsExactBesideASlantedEdge) {
  FdoPtr<FdoILinearRing> ring = Ring("0 0, 12 12, 0 24, 0 0");
  double x = 0.5;
  for (int i = 0; i < 64; ++i, x = std::nextafter(x, 1)) {
    bool onBoundary = false;
    EXPECT_FALSE(FdoSpatialUtility::PointInRing(ring, x, x, &onBoundary));
    EXPECT_TRUE(onBoundary);
    EXPECT_FALSE(FdoSpatialUtility::PointInRing(ring, std::nextafter(x, 1), x, &onBoundary));
    EXPECT_FALSE(onBoundary);
    EXPECT_TRUE(FdoSpatialUtility::PointInRing(ring, std::nextafter(x, 0), x, &onBoundary));
    EXPECT_FALSE(onBoundary);
  }
}

TEST(PointInRing, BoundaryIsAsThickAsTheTolerance) {
  FdoPtr<FdoILinearRing> ring = Ring("0 0, 10 0, 10 10, 0 10, 0 0");
  bool onBoundary = false;
  EXPECT_FALSE(FdoSpatialUtility::PointInRing(ring, 10.05, 5, 0.1, &onBoundary));
  EXPECT_TRUE(onBoundary);
  EXPECT_FALSE(FdoSpatialUtility::PointInRing(ring, 9.95, 5, 0.1, &onBoundary));
  EXPECT_TRUE(onBoundary);
  EXPECT_TRUE(FdoSpatialUtility::PointInRing(ring, 9.8, 5, 0.1, &onBoundary));
  EXPECT_FALSE(onBoundary);
}

TEST(PointInPolygon, TellsTheBoundariesApart) {
  FdoPtr<FdoIGeometry> geometry = From("POLYGON ((0 0, 10 0, 10 10, 0 10, 0 0), (4 4, 6 4, 6 6, 4 6, 4 4))");
  auto* const polygon = static_cast<FdoIPolygon*>(geometry.p);
  struct {
    double x, y;
    bool inside, onOuter, onInner;
  } const rows[] = {{1, 1, true, false, false},
                    {5, 5, false, false, false},
                    {0, 5, false, true, false},
                    {4, 5, false, false, true},
                    {20, 5, false, false, false}};
  for (auto const& row : rows) {
    bool onOuter = true;
    bool onInner = true;
    EXPECT_EQ(FdoSpatialUtility::PointInPolygon(polygon, row.x, row.y, &onOuter, &onInner), row.inside)
        << row.x;
    EXPECT_EQ(onOuter, row.onOuter) << row.x;
    EXPECT_EQ(onInner, row.onInner) << row.x;
  }
  FdoPtr<FdoIGeometry> empty = From("POLYGON EMPTY");
  EXPECT_FALSE(FdoSpatialUtility::PointInPolygon(static_cast<FdoIPolygon*>(empty.p), 0, 0));
}

TEST(LinearRing, TurnAreaAndLength) {
  FdoPtr<FdoILinearRing> counter = Ring("1000000 0, 1000003 0, 1000003 4, 1000000 0");
  EXPECT_FALSE(FdoSpatialUtility::LinearRingIsClockwise(counter));
  EXPECT_EQ(FdoSpatialUtility::ComputeLinearRingArea(counter), 6);
  EXPECT_EQ(FdoSpatialUtility::ComputeLinearRingLength(counter), 12);
  FdoPtr<FdoILinearRing> clockwise = Ring("0 0, 0 4, 3 4, 0 0");
  EXPECT_TRUE(FdoSpatialUtility::LinearRingIsClockwise(clockwise));
  EXPECT_EQ(FdoSpatialUtility::ComputeLinearRingArea(clockwise), 6);
  FdoPtr<FdoILinearRing> flat = Ring("0 0, 5 5, 0 0");
  EXPECT_FALSE(FdoSpatialUtility::LinearRingIsClockwise(flat));
  EXPECT_EQ(FdoSpatialUtility::ComputeLinearRingArea(flat), 0);
  EXPECT_NE(CaughtMessage([] { FdoSpatialUtility::ComputeLinearRingArea(nullptr); }), L"");
}

TEST(CreateGeometryFromRings, RelatesIslandsInLakesOnIslands) {
  FdoPtr<FdoLinearRingCollection> rings = FdoLinearRingCollection::Create();
  rings->Add(Ring("4 4, 6 4, 6 6, 4 6, 4 4"));
  rings->Add(Ring("0 0, 10 0, 10 10, 0 10, 0 0"));
  rings->Add(Ring("2 2, 8 2, 8 8, 2 8, 2 2"));
  rings->Add(Ring("20 0, 30 0, 30 10, 20 0"));
  FdoPtr<FdoIGeometry> related = FdoSpatialUtility::CreateGeometryFromRings(rings, true);
  EXPECT_EQ(
      FgfOf(related),
      fdo::Fgf("MULTIPOLYGON (((4 4, 6 4, 6 6, 4 6, 4 4)), "
               "((0 0, 10 0, 10 10, 0 10, 0 0), (2 2, 8 2, 8 8, 2 8, 2 2)), ((20 0, 30 0, 30 10, 20 0)))"));
}

TEST(CreateGeometryFromRings, OneOuterRingMakesAPolygon) {
  FdoPtr<FdoLinearRingCollection> rings = FdoLinearRingCollection::Create();
  EXPECT_NE(CaughtMessage([&] { FdoSpatialUtility::CreateGeometryFromRings(rings, true); }), L"");
  rings->Add(Ring("0 0, 10 0, 10 10, 0 10, 0 0"));
  // It shares an edge with the outer ring, and all its positions are on it.
  rings->Add(Ring("0 0, 10 0, 10 10, 0 0"));
  for (bool relate : {true, false}) {
    FdoPtr<FdoIGeometry> polygon = FdoSpatialUtility::CreateGeometryFromRings(rings, relate);
    EXPECT_EQ(FgfOf(polygon), fdo::Fgf("POLYGON ((0 0, 10 0, 10 10, 0 10, 0 0), (0 0, 10 0, 10 10, 0 0))"));
  }
}

TEST(CircularArc, NeedsPositionsApart) {
  FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
  auto const isValid = [&](double midX, double midY, double endX, double endY) {
    FdoPtr<FdoIDirectPosition> start = factory->CreatePositionXY(0, 0);
    FdoPtr<FdoIDirectPosition> mid = factory->CreatePositionXY(midX, midY);
    FdoPtr<FdoIDirectPosition> end = factory->CreatePositionXY(endX, endY);
    FdoPtr<FdoICircularArcSegment> arc = factory->CreateCircularArcSegment(start, mid, end);
    return FdoSpatialUtility::IsCircularArcValid(arc, 0.01);
  };
  EXPECT_TRUE(isValid(1, 1, 2, 0));
  EXPECT_TRUE(isValid(1, 0, 0, 0));
  EXPECT_FALSE(isValid(0, 0, 0, 0));
  EXPECT_FALSE(isValid(1, 0, 2, 0));
  EXPECT_FALSE(isValid(1, 0.005, 2, 0));
  EXPECT_FALSE(isValid(0, 0.005, 2, 0));
  EXPECT_FALSE(isValid(1, 1, 0, 0.005));
}

TEST(VertexOrder, IsCheckedFixedAndReversed) {
  char const* const counter = "POLYGON ((0 0, 9 0, 9 9, 0 0), (2 1, 3 2, 3 1, 2 1))";
  char const* const clockwise = "POLYGON ((0 0, 9 9, 9 0, 0 0), (2 1, 3 1, 3 2, 2 1))";
  char const* const mixed = "POLYGON ((0 0, 9 0, 9 9, 0 0), (2 1, 3 1, 3 2, 2 1))";
  EXPECT_EQ(FdoSpatialUtility::CheckPolygonVertexOrder(From(counter)), FdoPolygonVertexOrderRule_CCW);
  EXPECT_EQ(FdoSpatialUtility::CheckPolygonVertexOrder(From(clockwise)), FdoPolygonVertexOrderRule_CW);
  EXPECT_EQ(FdoSpatialUtility::CheckPolygonVertexOrder(From(mixed)), FdoPolygonVertexOrderRule_None);
  EXPECT_EQ(FdoSpatialUtility::CheckPolygonVertexOrder(From("POINT (1 2)")), FdoPolygonVertexOrderRule_None);
  FdoPtr<FdoIGeometry> reversed = FdoSpatialUtility::ReversePolygonVertexOrder(From(counter));
  EXPECT_EQ(FgfOf(reversed), fdo::Fgf(clockwise));
  for (char const* from : {counter, clockwise, mixed}) {
    FdoPtr<FdoIGeometry> fixed =
        FdoSpatialUtility::FixPolygonVertexOrder(From(from), FdoPolygonVertexOrderRule_CCW);
    EXPECT_EQ(FgfOf(fixed), fdo::Fgf(counter)) << from;
    fixed = FdoSpatialUtility::FixPolygonVertexOrder(From(from), FdoPolygonVertexOrderRule_CW);
    EXPECT_EQ(FgfOf(fixed), fdo::Fgf(clockwise)) << from;
    FdoPtr<FdoIGeometry> left =
        FdoSpatialUtility::FixPolygonVertexOrder(From(from), FdoPolygonVertexOrderRule_None);
    EXPECT_EQ(FgfOf(left), fdo::Fgf(from));
  }
}

TEST(VertexOrder, GoesByTheArcsOfCurvePolygons) {
  char const* const counter =
      "GEOMETRYCOLLECTION (POINT Z (7 8 9), CURVEPOLYGON ((0 0 (LINESTRINGSEGMENT (1 0, 2 0), "
      "CIRCULARARCSEGMENT (1 1, 0 0)))), CURVESTRING (0 0 (LINESTRINGSEGMENT (1 1))))";
  char const* const clockwise =
      "GEOMETRYCOLLECTION (POINT Z (7 8 9), CURVEPOLYGON ((0 0 (CIRCULARARCSEGMENT (1 1, 2 0), "
      "LINESTRINGSEGMENT (1 0, 0 0)))), CURVESTRING (0 0 (LINESTRINGSEGMENT (1 1))))";
  EXPECT_EQ(FdoSpatialUtility::CheckPolygonVertexOrder(From(counter)), FdoPolygonVertexOrderRule_CCW);
  FdoPtr<FdoIGeometry> fixed =
      FdoSpatialUtility::FixPolygonVertexOrder(From(counter), FdoPolygonVertexOrderRule_CW);
  EXPECT_EQ(FgfOf(fixed), fdo::Fgf(clockwise));
  fixed = FdoSpatialUtility::ReversePolygonVertexOrder(fixed);
  EXPECT_EQ(FgfOf(fixed), fdo::Fgf(counter));
}

TEST(VertexOrder, ActionFollowsFromTheTwoRules) {
  constexpr auto kCcw = FdoPolygonVertexOrderRule_CCW;
  constexpr auto kCw = FdoPolygonVertexOrderRule_CW;
  constexpr auto kNone = FdoPolygonVertexOrderRule_None;
  struct {
    FdoPolygonVertexOrderRule source;
    bool sourceStrict;
    FdoPolygonVertexOrderRule target;
    bool targetStrict;
    FdoPolygonVertexOrderAction action;
  } const rows[] = {
      {kCcw, true, kCcw, true, FdoPolygonVertexOrderAction_None},
      {kCcw, true, kCw, true, FdoPolygonVertexOrderAction_Reverse},
      {kCcw, false, kCw, true, FdoPolygonVertexOrderAction_CheckAndReverse},
      {kCcw, false, kCcw, true, FdoPolygonVertexOrderAction_CheckAndReverse},
      {kNone, true, kCw, true, FdoPolygonVertexOrderAction_CheckAndReverse},
      {kCcw, true, kCw, false, FdoPolygonVertexOrderAction_None},
      {kCcw, true, kNone, true, FdoPolygonVertexOrderAction_None},
  };
  for (auto const& row : rows) {
    EXPECT_EQ(FdoSpatialUtility::GetPolygonVertexOrderAction(row.source, row.sourceStrict, row.target,
                                                             row.targetStrict),
              row.action);
  }
}

TEST(Approximation, TurnsCurveTypesIntoStraightOnes) {
  struct {
    char const* text;
    FdoGeometryType type;
  } const rows[] = {
      {"CURVESTRING (0 0 (CIRCULARARCSEGMENT (1 1, 2 0)))", FdoGeometryType_LineString},
      {"CURVEPOLYGON ((0 0 (CIRCULARARCSEGMENT (1 1, 2 0), LINESTRINGSEGMENT (0 0))))",
       FdoGeometryType_Polygon},
      {"MULTICURVESTRING ((0 0 (CIRCULARARCSEGMENT (1 1, 2 0))))", FdoGeometryType_MultiLineString},
      {"MULTICURVEPOLYGON (((0 0 (CIRCULARARCSEGMENT (1 1, 2 0), LINESTRINGSEGMENT (0 0)))))",
       FdoGeometryType_MultiPolygon},
      {"GEOMETRYCOLLECTION (CURVESTRING (0 0 (LINESTRINGSEGMENT (1 1))))", FdoGeometryType_MultiGeometry},
  };
  for (auto const& row : rows) {
    FdoPtr<FdoIGeometry> straight = FdoSpatialUtility::TesselateCurve(From(row.text));
    EXPECT_EQ(straight->GetDerivedType(), row.type) << row.text;
    FdoPtr<FdoIGeometry> again = FdoSpatialUtility::TesselateCurve(straight);
    EXPECT_EQ(again.p, straight.p);
  }
}

TEST(Approximation, KeepsOffsetSpacingAndTheGivenPositions) {
  FdoPtr<FdoIGeometry> curve =
      From("CURVESTRING ZM (0 0 10 1 (CIRCULARARCSEGMENT (100 100 20 1, 200 0 10 5)))");
  for (double offset : {0.0, 0.001, 0.1, 5.0}) {
    for (double spacing : {0.0, 0.5, 20.0}) {
      FdoPtr<FdoIGeometry> geometry =
          FdoSpatialUtility::ApproximateGeometryWithLineStrings(curve, spacing, offset, nullptr);
      auto* const line = static_cast<FdoILineString*>(geometry.p);
      double previous[2] = {0, 0};
      bool sawMid = false;
      for (FdoInt32 i = 0; i < line->GetCount(); ++i) {
        double const* const at = line->GetOrdinates() + 4 * i;
        ASSERT_NEAR(std::hypot(at[0] - 100, at[1]), 100, 1e-9);
        if (i > 0) {
          double const chord = std::hypot(at[0] - previous[0], at[1] - previous[1]);
          if (spacing > 0) {
            ASSERT_LE(chord, spacing * (1 + 1e-9));
          }
          if (offset > 0) {
            ASSERT_LE(100 - std::sqrt(100 * 100 - chord * chord / 4), offset * (1 + 1e-6));
          }
        }
        if (at[0] == 100 && at[1] == 100) {
          sawMid = true;
          EXPECT_EQ(at[2], 20);
          EXPECT_EQ(at[3], 1);
        }
        previous[0] = at[0];
        previous[1] = at[1];
      }
      EXPECT_TRUE(sawMid);
      double const* const last = line->GetOrdinates() + 4 * (line->GetCount() - 1);
      EXPECT_EQ(last[0], 200);
      EXPECT_EQ(last[2], 10);
      EXPECT_EQ(last[3], 5);
    }
  }
}

TEST(Validity, OfTypesComponentsAndDimensionality) {
  FdoGeometryType straight[] = {FdoGeometryType_LineString, FdoGeometryType_Polygon,
                                FdoGeometryType_MultiPolygon};
  FdoGeometryComponentType linear[] = {FdoGeometryComponentType_LinearRing};
  auto const validity = [&](char const* text, FdoInt32 dimensionality) {
    return FdoSpatialUtility::ValidateGeometryByType(From(text), 3, straight, 1, linear, dimensionality);
  };
  EXPECT_EQ(validity("LINESTRING (1 2, 3 4)", 0), FdoSpatialGeometryValidity_Valid);
  EXPECT_EQ(validity("POLYGON ((0 0, 1 0, 1 1, 0 0))", 3), FdoSpatialGeometryValidity_Valid);
  EXPECT_EQ(validity("MULTIPOLYGON (((0 0, 1 0, 1 1, 0 0)))", 0), FdoSpatialGeometryValidity_Valid);
  EXPECT_EQ(validity("POINT (1 2)", 0), FdoSpatialGeometryValidity_Invalid);
  EXPECT_EQ(validity("MULTIPOINT (1 2)", 0), FdoSpatialGeometryValidity_Invalid);
  EXPECT_EQ(validity("LINESTRING Z (1 2 3, 4 5 6)", 0),
            FdoSpatialGeometryValidity_InvalidDueToDimensionality);
  EXPECT_EQ(validity("LINESTRING Z (1 2 3, 4 5 6)", FdoDimensionality_Z), FdoSpatialGeometryValidity_Valid);
  EXPECT_EQ(validity("CURVEPOLYGON ((0 0 (CIRCULARARCSEGMENT (1 1, 2 0), LINESTRINGSEGMENT (0 0))))", 0),
            FdoSpatialGeometryValidity_InvalidButCanBeApproximated);
  EXPECT_EQ(validity("MULTICURVESTRING ((0 0 (CIRCULARARCSEGMENT (1 1, 2 0))))", 0),
            FdoSpatialGeometryValidity_Invalid);
  EXPECT_EQ(FdoSpatialUtility::ValidateGeometryByType(From("POLYGON ((0 0, 1 0, 1 1, 0 0))"), 3, straight, 0,
                                                      nullptr, 0),
            FdoSpatialGeometryValidity_Invalid);
}

}  // namespace
