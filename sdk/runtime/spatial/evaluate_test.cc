// FdoSpatialUtility::Evaluate against GEOS called directly, and the cases that GEOS leaves open.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>
#include <string>
#include <vector>

#include "FdoSpatial.h"
#include "testing/caught_message.h"
#include "testing/fgf_builder.h"

namespace {

using fdo::CaughtMessage;

using Bytes = std::vector<unsigned char>;

constexpr int kOperations = 11;
constexpr char const* kNames[kOperations] = {"Contains",   "Crosses",  "Disjoint",          "Equals",
                                             "Intersects", "Overlaps", "Touches",           "Within",
                                             "CoveredBy",  "Inside",   "EnvelopeIntersects"};

FdoPtr<FdoIGeometry> FromFgf(Bytes const& bytes) {
  FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
  FdoPtr<FdoByteArray> array = FdoByteArray::Create(bytes.data(), static_cast<FdoInt32>(bytes.size()));
  return factory->CreateGeometryFromFgf(array);
}

FdoPtr<FdoIGeometry> From(std::string const& text) { return FromFgf(fdo::Fgf(text)); }

bool Evaluate(FdoIGeometry* a, int operation, FdoIGeometry* b) {
  return FdoSpatialUtility::Evaluate(a, static_cast<FdoSpatialOperations>(operation), b);
}

// The letters of the operations that hold, in the order of the enumeration; "-" for the others.
std::string Answers(FdoIGeometry* a, FdoIGeometry* b) {
  std::string answers;
  for (int operation = 0; operation < kOperations; ++operation) {
    answers += Evaluate(a, operation, b) ? "CXDEIOTWVNB"[operation] : '-';
  }
  return answers;
}

struct Pair {
  char const* left;
  char const* right;
  char const* answers;
};

TEST(Evaluate, AnswersOfEveryOperation) {
  Pair const rows[] = {
      // Contains X=Crosses Disjoint Equals Intersects Overlaps Touches Within coVered iNside Box
      {"POINT (5 5)", "POINT (5 5)", "C--EI--WVNB"},
      {"POINT (5 5)", "POINT (6 5)", "--D--------"},
      {"POINT (5 5)", "POLYGON ((0 0, 10 0, 10 10, 0 10, 0 0))", "----I--WVNB"},
      {"POINT (0 5)", "POLYGON ((0 0, 10 0, 10 10, 0 10, 0 0))", "----I-T-V-B"},
      {"POINT (0 0)", "POLYGON ((0 0, 10 0, 0 10, 0 0))", "----I-T-V-B"},
      {"POINT (9 9)", "POLYGON ((0 0, 10 0, 0 10, 0 0))", "--D-------B"},
      {"POLYGON ((0 0, 10 0, 0 10, 0 0))", "POINT (1 1)", "C---I-----B"},
      {"POINT (5 5)", "POLYGON ((0 0, 10 0, 10 10, 0 10, 0 0), (4 4, 6 4, 6 6, 4 6, 4 4))", "--D-------B"},
      {"POINT (4 5)", "POLYGON ((0 0, 10 0, 10 10, 0 10, 0 0), (4 4, 6 4, 6 6, 4 6, 4 4))", "----I-T-V-B"},
      {"LINESTRING (0 0, 10 10)", "LINESTRING (0 10, 10 0)", "-X--I-----B"},
      {"LINESTRING (0 0, 10 10)", "LINESTRING (10 10, 0 0)", "C--EI--WV-B"},
      {"LINESTRING (0 0, 5 5, 10 10)", "LINESTRING (0 0, 10 10)", "C--EI--WV-B"},
      {"LINESTRING (-5 5, 15 5)", "POLYGON ((0 0, 10 0, 10 10, 0 10, 0 0))", "-X--I-----B"},
      {"LINESTRING (2 5, 8 5)", "POLYGON ((0 0, 10 0, 10 10, 0 10, 0 0))", "----I--WVNB"},
      {"LINESTRING (0 5, 8 5)", "POLYGON ((0 0, 10 0, 10 10, 0 10, 0 0))", "----I--WV-B"},
      {"LINESTRING (0 2, 0 8)", "POLYGON ((0 0, 10 0, 10 10, 0 10, 0 0))", "----I-T-V-B"},
      {"POLYGON ((0 0, 10 0, 10 10, 0 10, 0 0))", "POLYGON ((10 10, 0 10, 0 0, 10 0, 10 10))", "C--EI--WV-B"},
      {"POLYGON ((0 0, 10 0, 10 10, 0 10, 0 0))", "POLYGON ((10 0, 20 0, 20 10, 10 10, 10 0))",
       "----I-T---B"},
      {"POLYGON ((0 0, 10 0, 10 10, 0 10, 0 0))", "POLYGON ((5 5, 20 5, 20 20, 5 20, 5 5))", "----IO----B"},
      {"POLYGON ((2 2, 4 2, 4 4, 2 4, 2 2))", "POLYGON ((0 0, 10 0, 10 10, 0 10, 0 0))", "----I--WVNB"},
      {"POLYGON ((0 0, 4 0, 4 4, 0 4, 0 0))", "POLYGON ((0 0, 10 0, 10 10, 0 10, 0 0))", "----I--WV-B"},
      {"MULTIPOINT (5 5, 50 50)", "POLYGON ((0 0, 10 0, 10 10, 0 10, 0 0))", "-X--I-----B"},
      {"POINT ZM (5 5 7 8)", "POINT (5 5)", "C--EI--WVNB"},
  };
  for (Pair const& row : rows) {
    EXPECT_EQ(Answers(From(row.left), From(row.right)), row.answers) << row.left << " to " << row.right;
  }
}

TEST(Evaluate, EmptyIsDisjointFromEverythingAndEqualToEmptyAlone) {
  for (char const* empty : {"POINT EMPTY", "LINESTRING EMPTY", "POLYGON EMPTY", "MULTIPOLYGON EMPTY",
                            "GEOMETRYCOLLECTION EMPTY", "GEOMETRYCOLLECTION (POINT EMPTY)"}) {
    for (char const* full : {"POINT (0 0)", "POLYGON ((0 0, 10 0, 0 10, 0 0))"}) {
      EXPECT_EQ(Answers(From(empty), From(full)), "--D--------") << empty;
      EXPECT_EQ(Answers(From(full), From(empty)), "--D--------") << empty;
    }
    EXPECT_EQ(Answers(From(empty), From("LINESTRING EMPTY")), "--DE-------") << empty;
  }
}

TEST(Evaluate, NullIsInNoRelation) {
  FdoPtr<FdoIGeometry> point = From("POINT (1 2)");
  for (int operation = 0; operation < kOperations; ++operation) {
    EXPECT_FALSE(Evaluate(nullptr, operation, point));
    EXPECT_FALSE(Evaluate(point, operation, nullptr));
    EXPECT_FALSE(Evaluate(nullptr, operation, nullptr));
  }
}

TEST(Evaluate, RefusesUnknownOperationsTolerancesAndPositions) {
  FdoPtr<FdoIGeometry> point = From("POINT (1 2)");
  FdoPtr<FdoIGeometry> line = From("LINESTRING (0 0, inf 5, 3 3)");
  EXPECT_NE(CaughtMessage([&] { Evaluate(point, 11, point); }), L"");
  for (double tolerance : {0.0, -1.0, std::nan("")}) {
    EXPECT_EQ(CaughtMessage(
                  [&] { FdoSpatialUtility::Evaluate(point, FdoSpatialOperations_Within, point, tolerance); }),
              L"A tolerance must be above 0.");
    EXPECT_EQ(CaughtMessage([&] {
                FdoSpatialUtility::Evaluate(point, FdoSpatialOperations_Within, point, 1, tolerance);
              }),
              L"A tolerance must be above 0.");
  }
  EXPECT_EQ(
      CaughtMessage([&] { Evaluate(line, FdoSpatialOperations_Crosses, From("LINESTRING (0 9, 9 0)")); }),
      L"The geometry has a position that is not finite.");
}

TEST(Evaluate, ToleranceMakesNearPositionsOne) {
  FdoPtr<FdoIGeometry> square = From("POLYGON ((0 0, 10 0, 10 10, 0 10, 0 0))");
  FdoPtr<FdoIGeometry> beside = From("POINT (10.05 5)");
  struct {
    FdoSpatialOperations operation;
    double tolerance;
    bool holds;
  } const rows[] = {
      {FdoSpatialOperations_Intersects, 0.01, false},
      {FdoSpatialOperations_Intersects, 0.1, true},
      {FdoSpatialOperations_Disjoint, 0.01, true},
      {FdoSpatialOperations_Disjoint, 0.1, false},
      {FdoSpatialOperations_Touches, 0.01, false},
      {FdoSpatialOperations_Touches, 0.1, true},
      {FdoSpatialOperations_CoveredBy, 0.1, true},
      {FdoSpatialOperations_Within, 0.1, false},
      {FdoSpatialOperations_EnvelopeIntersects, 0.01, false},
      {FdoSpatialOperations_EnvelopeIntersects, 0.1, true},
  };
  for (auto const& row : rows) {
    EXPECT_EQ(FdoSpatialUtility::Evaluate(beside, row.operation, square, row.tolerance), row.holds)
        << kNames[row.operation] << " at " << row.tolerance;
  }
  FdoPtr<FdoIGeometry> nearly = From("POLYGON ((0.001 0, 10 0.001, 10 10, 0 10, 0.001 0))");
  EXPECT_FALSE(Evaluate(square, FdoSpatialOperations_Equals, nearly));
  EXPECT_TRUE(FdoSpatialUtility::Evaluate(square, FdoSpatialOperations_Equals, nearly, 0.01));
}

TEST(Evaluate, CollectionOfOneKindIsTheMultiGeometryOfItsParts) {
  FdoPtr<FdoIGeometry> collection = From(
      "GEOMETRYCOLLECTION (POLYGON ((0 0, 6 0, 6 10, 0 10, 0 0)), "
      "GEOMETRYCOLLECTION (POLYGON ((4 0, 10 0, 10 10, 4 10, 4 0))))");
  FdoPtr<FdoIGeometry> joined = From("POLYGON ((0 0, 10 0, 10 10, 0 10, 0 0))");
  EXPECT_TRUE(Evaluate(collection, FdoSpatialOperations_Equals, joined));
  EXPECT_TRUE(Evaluate(From("LINESTRING (1 1, 9 9)"), FdoSpatialOperations_Within, collection));
}

TEST(Evaluate, CollectionOfSeveralKindsIsItsPartsTogether) {
  FdoPtr<FdoIGeometry> mixed = From("GEOMETRYCOLLECTION (POINT (1 1), LINESTRING (2 2, 3 3))");
  FdoPtr<FdoIGeometry> around = From("POLYGON ((0 0, 10 1, 11 11, 0 10, 0 0))");
  FdoPtr<FdoIGeometry> part = From("POLYGON ((0 0, 1.5 0.2, 1.5 1.5, 0 1.5, 0 0))");
  EXPECT_TRUE(Evaluate(From("POINT (3 3)"), FdoSpatialOperations_Intersects, mixed));
  EXPECT_TRUE(Evaluate(mixed, FdoSpatialOperations_Within, around));
  EXPECT_TRUE(Evaluate(around, FdoSpatialOperations_Contains, mixed));
  EXPECT_TRUE(Evaluate(mixed, FdoSpatialOperations_CoveredBy, around));
  EXPECT_TRUE(Evaluate(mixed, FdoSpatialOperations_Inside, around));
  EXPECT_FALSE(Evaluate(mixed, FdoSpatialOperations_Within, part));
  EXPECT_TRUE(Evaluate(mixed, FdoSpatialOperations_Intersects, part));
  EXPECT_FALSE(Evaluate(mixed, FdoSpatialOperations_Disjoint, part));
  EXPECT_FALSE(Evaluate(mixed, FdoSpatialOperations_Touches, part));
  EXPECT_TRUE(Evaluate(mixed, FdoSpatialOperations_Touches, From("POLYGON ((3 3, 3 0, 9 0, 9 9, 3 3))")));
  EXPECT_TRUE(Evaluate(mixed, FdoSpatialOperations_Crosses, part));
}

TEST(Evaluate, ArcsAreWithinOnePartIn100000OfTheRadius) {
  FdoPtr<FdoIGeometry> disc = From(
      "CURVEPOLYGON ((-100 0 (CIRCULARARCSEGMENT (0 100, 100 0), CIRCULARARCSEGMENT (0 -100, -100 0))))");
  FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
  for (int i = 0; i < 1000; ++i) {
    double const angle = 2 * std::numbers::pi * i / 1000;
    for (double reach : {99.998, 100.001}) {
      double ordinates[] = {reach * std::cos(angle), reach * std::sin(angle)};
      FdoPtr<FdoIPoint> point = factory->CreatePoint(FdoDimensionality_XY, ordinates);
      ASSERT_EQ(Evaluate(point, FdoSpatialOperations_Within, disc), reach < 100) << i << " at " << reach;
    }
  }
}

TEST(Evaluate, NeighboursThatShareAnArcTouch) {
  FdoPtr<FdoIGeometry> left = From(
      "CURVEPOLYGON ((0 0 (LINESTRINGSEGMENT (7.1 0.3), CIRCULARARCSEGMENT (9.3 5.7, 6.9 10.2), "
      "LINESTRINGSEGMENT (0 10, 0 0))))");
  FdoPtr<FdoIGeometry> right = From(
      "CURVEPOLYGON ((6.9 10.2 (CIRCULARARCSEGMENT (9.3 5.7, 7.1 0.3), LINESTRINGSEGMENT (20 0, 20 10, 6.9 "
      "10.2))))");
  EXPECT_TRUE(Evaluate(left, FdoSpatialOperations_Touches, right));
  EXPECT_FALSE(Evaluate(left, FdoSpatialOperations_Overlaps, right));
}

// A point of another maker, which shows itself through the interface alone.
class ForeignPoint : public FdoIPoint {
 public:
  ForeignPoint(double x, double y) : ordinates_{x, y} {}
  FdoIEnvelope* GetEnvelope() const override {
    return FdoEnvelopeImpl::Create(ordinates_[0], ordinates_[1], ordinates_[0], ordinates_[1]);
  }
  FdoInt32 GetDimensionality() const override { return FdoDimensionality_XY; }
  FdoGeometryType GetDerivedType() const override { return FdoGeometryType_Point; }
  FdoString* GetText() override { return L""; }
  FdoIDirectPosition* GetPosition() const override {
    return FdoDirectPositionImpl::Create(ordinates_[0], ordinates_[1]);
  }
  void GetPositionByMembers(double*, double*, double*, double*, FdoInt32*) const override {}
  double const* GetOrdinates() override { return ordinates_; }

 protected:
  void Dispose() override { delete this; }

 private:
  double ordinates_[2];
};

TEST(Evaluate, TakesGeometriesOfOtherMakers) {
  FdoPtr<FdoIGeometry> point = new ForeignPoint(5, 5);
  EXPECT_TRUE(Evaluate(point, FdoSpatialOperations_Within, From("POLYGON ((0 0, 10 0, 10 9, 0 10, 0 0))")));
  FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
  EXPECT_NE(CaughtMessage([&] { factory->GetFgf(point); }), L"");
  EXPECT_EQ(point.p->GetRefCount(), 1);
}

// The answer for a buffer must be that for what is in it now, whatever was in it before.
TEST(Evaluate, ReusedBuffersNeverGiveAnOldAnswer) {
  std::mt19937_64 random(20261121);
  std::uniform_int_distribution<int> choose(0, 11);
  std::vector<Bytes> polygons;
  for (int i = 0; i < 12; ++i) {
    std::string text = "POLYGON ((";
    for (int k = 0; k < 40; ++k) {
      double const angle = 2 * std::numbers::pi * k / 40;
      text +=
          std::to_string(100 * i + 40 * std::cos(angle)) + " " + std::to_string(40 * std::sin(angle)) + ", ";
    }
    text += std::to_string(100.0 * i + 40) + " 0.0))";
    polygons.push_back(fdo::Fgf(text));
  }
  FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
  Bytes buffer = polygons[0];
  FdoPtr<FdoIGeometry> kept =
      factory->CreateGeometryFromFgf(buffer.data(), static_cast<FdoInt32>(buffer.size()));
  for (int round = 0; round < 3000; ++round) {
    int const polygon = choose(random);
    int const at = choose(random);
    kept.Release();
    std::copy(polygons[static_cast<std::size_t>(polygon)].begin(),
              polygons[static_cast<std::size_t>(polygon)].end(), buffer.begin());
    kept = factory->CreateGeometryFromFgf(buffer.data(), static_cast<FdoInt32>(buffer.size()));
    double ordinates[] = {100.0 * at - 1, 0, 100.0 * at + 1, 0.5};
    FdoPtr<FdoILineString> line = factory->CreateLineString(FdoDimensionality_XY, 4, ordinates);
    for (int repeat = 0; repeat < 3; ++repeat) {
      ASSERT_EQ(Evaluate(line, FdoSpatialOperations_Within, kept), polygon == at) << "round " << round;
    }
  }
}

}  // namespace
