// Envelopes against brute force, arcs against circles, and the two value-like classes.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <random>
#include <string>
#include <vector>

#include "FdoGeometry.h"
#include "testing/caught_message.h"
#include "testing/fgf_builder.h"
#include "testing/fgf_catalogue.h"

namespace {

using Bytes = std::vector<unsigned char>;

// By the operator's name: its published form takes no constant, so that since C++20 the sign could mean it
// either way round.
template <class Compared>
bool Same(FdoPtr<Compared> const& left, FdoPtr<Compared> const& right) {
  return left.p->operator==(*right.p);
}

FdoPtr<FdoIEnvelope> EnvelopeOf(Bytes const& bytes) {
  FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
  FdoPtr<FdoByteArray> array = FdoByteArray::Create(bytes.data(), static_cast<FdoInt32>(bytes.size()));
  FdoPtr<FdoIGeometry> geometry = factory->CreateGeometryFromFgf(array);
  return geometry->GetEnvelope();
}

TEST(Envelope, OfStraightGeometryIsTheLeastAndGreatestOfItsPositions) {
  int compared = 0;
  for (fdo::CataloguedStream const& entry : fdo::FgfCatalogue()) {
    if (entry.text.find("CIRCULARARC") != std::string::npos) continue;
    SCOPED_TRACE(entry.text);
    FdoPtr<FdoIEnvelope> expected = FdoEnvelopeImpl::Create();
    bool const hasZ = (entry.dimensionality & FdoDimensionality_Z) != 0;
    for (auto const& ordinates : entry.stream.positions) {
      FdoPtr<FdoDirectPositionImpl> position =
          hasZ ? FdoDirectPositionImpl::Create(ordinates[0], ordinates[1], ordinates[2])
               : FdoDirectPositionImpl::Create(ordinates[0], ordinates[1]);
      static_cast<FdoEnvelopeImpl*>(expected.p)->Expand(position);
    }
    FdoPtr<FdoIEnvelope> envelope = EnvelopeOf(entry.stream.bytes);
    // The catalogue does not say which positions of a mixed collection have a Z.
    if (entry.text.find("COLLECTION") != std::string::npos) {
      static_cast<FdoEnvelopeImpl*>(expected.p)->SetMinZ(envelope->GetMinZ());
      static_cast<FdoEnvelopeImpl*>(expected.p)->SetMaxZ(envelope->GetMaxZ());
    }
    FdoPtr<FdoEnvelopeImpl> same = FdoEnvelopeImpl::Create();
    same->Expand(envelope.p);
    EXPECT_TRUE(same.p->operator==(*static_cast<FdoEnvelopeImpl*>(expected.p)));
    EXPECT_EQ(envelope->GetIsEmpty(), expected->GetIsEmpty());
    ++compared;
  }
  EXPECT_GE(compared, 100);
}

TEST(Envelope, OutlivesTheCallersReferenceToItsGeometry) {
  FdoPtr<FdoIEnvelope> envelope = EnvelopeOf(fdo::Fgf("POLYGON Z ((1 2 3, 4 2 3, 4 5 6, 1 2 3))"));
  double const expected[] = {1, 2, 3, 4, 5, 6};
  EXPECT_TRUE(std::equal(expected, expected + 6, envelope->GetOrdinates()));
  FdoPtr<FdoIEnvelope> second = envelope;
  EXPECT_EQ(envelope.p->GetRefCount(), 2);
}

TEST(Envelope, OfRandomLinesOfEveryLengthIsExact) {
  std::mt19937_64 random(20261121);
  std::uniform_real_distribution<double> ordinate(-1e6, 1e6);
  FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
  for (FdoInt32 dimensionality = 0; dimensionality < 4; ++dimensionality) {
    int const stride = 2 + (dimensionality & 1) + (dimensionality >> 1);
    for (int count = 1; count < 70; ++count) {
      std::vector<double> ordinates(static_cast<std::size_t>(count * stride));
      for (double& value : ordinates) value = ordinate(random);
      FdoPtr<FdoILineString> line =
          factory->CreateLineString(dimensionality, count * stride, ordinates.data());
      FdoPtr<FdoIEnvelope> envelope = line->GetEnvelope();
      double least[3] = {INFINITY, INFINITY, INFINITY};
      double greatest[3] = {-INFINITY, -INFINITY, -INFINITY};
      for (int i = 0; i < count; ++i) {
        for (int o = 0; o < 2 + (dimensionality & 1); ++o) {
          least[o] = std::min(least[o], ordinates[static_cast<std::size_t>(i * stride + o)]);
          greatest[o] = std::max(greatest[o], ordinates[static_cast<std::size_t>(i * stride + o)]);
        }
      }
      ASSERT_EQ(envelope->GetMinX(), least[0]) << dimensionality << ", " << count;
      ASSERT_EQ(envelope->GetMinY(), least[1]);
      ASSERT_EQ(envelope->GetMaxX(), greatest[0]);
      ASSERT_EQ(envelope->GetMaxY(), greatest[1]);
      if (dimensionality & FdoDimensionality_Z) {
        ASSERT_EQ(envelope->GetMinZ(), least[2]);
        ASSERT_EQ(envelope->GetMaxZ(), greatest[2]);
      } else {
        ASSERT_TRUE(std::isnan(envelope->GetMinZ()));
      }
    }
  }
}

TEST(Envelope, OfArcsIsThatOfTheCurve) {
  struct {
    char const* text;
    double minX, minY, maxX, maxY;
  } const rows[] = {
      {"CURVESTRING (0 0 (CIRCULARARCSEGMENT (1 1, 2 0)))", 0, 0, 2, 1},
      {"CURVESTRING (0 0 (CIRCULARARCSEGMENT (1 -1, 2 0)))", 0, -1, 2, 0},
      {"CURVESTRING (0 -1 (CIRCULARARCSEGMENT (1 0, 0 1)))", 0, -1, 1, 1},
      {"CURVESTRING (0 1 (CIRCULARARCSEGMENT (0.6 0.8, 1 0)))", 0, 0, 1, 1},
      // Three quarters, whose greatest X and least Y lie between the positions.
      {"CURVESTRING (0 1 (CIRCULARARCSEGMENT (0.6 -0.8, -1 0)))", -1, -1, 1, 1},
      {"CURVESTRING (1 0 (CIRCULARARCSEGMENT (-1 0, 1 0)))", -1, -1, 1, 1},
      {"CURVESTRING (0 0 (CIRCULARARCSEGMENT (1 1, 2 2)))", 0, 0, 2, 2},
      {"CURVEPOLYGON ((0 0 (CIRCULARARCSEGMENT (1 1, 2 0), LINESTRINGSEGMENT (0 0))))", 0, 0, 2, 1},
      {"MULTICURVESTRING ((5 5 (LINESTRINGSEGMENT (6 6))), (0 0 (CIRCULARARCSEGMENT (1 1, 2 0))))", 0, 0, 6,
       6},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(row.text);
    FdoPtr<FdoIEnvelope> envelope = EnvelopeOf(fdo::Fgf(row.text));
    EXPECT_NEAR(envelope->GetMinX(), row.minX, 1e-12);
    EXPECT_NEAR(envelope->GetMinY(), row.minY, 1e-12);
    EXPECT_NEAR(envelope->GetMaxX(), row.maxX, 1e-12);
    EXPECT_NEAR(envelope->GetMaxY(), row.maxY, 1e-12);
  }
}

TEST(Envelope, OfRandomArcsHoldsTheWholeCurveAndNoMore) {
  std::mt19937_64 random(20261121);
  std::uniform_real_distribution<double> turn(-std::numbers::pi, std::numbers::pi);
  std::uniform_real_distribution<double> place(-1000, 1000);
  std::uniform_real_distribution<double> size(0.1, 100);
  FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
  for (int round = 0; round < 2000; ++round) {
    double const x = place(random);
    double const y = place(random);
    double const radius = size(random);
    double const begin = turn(random);
    double const sweep = 1.9 * turn(random);
    if (std::fabs(sweep) < 0.01) continue;
    FdoPtr<FdoIEnvelope> sampled = FdoEnvelopeImpl::Create();
    FdoPtr<FdoIDirectPosition> corners[3];
    constexpr int kSamples = 4000;
    for (int i = 0; i <= kSamples; ++i) {
      double const angle = begin + sweep * i / kSamples;
      FdoPtr<FdoIDirectPosition> position =
          factory->CreatePositionXY(x + radius * std::cos(angle), y + radius * std::sin(angle));
      static_cast<FdoEnvelopeImpl*>(sampled.p)->Expand(position);
      if (i % (kSamples / 2) == 0) corners[i / (kSamples / 2)] = position;
    }
    FdoPtr<FdoICircularArcSegment> arc =
        factory->CreateCircularArcSegment(corners[0], corners[1], corners[2]);
    FdoPtr<FdoIEnvelope> envelope = arc->GetEnvelope();
    for (int i = 0; i < 6; ++i) {
      if (i % 3 == 2) continue;
      ASSERT_NEAR(envelope->GetOrdinates()[i], sampled->GetOrdinates()[i], 1e-5 * radius)
          << "round " << round << ", ordinate " << i;
    }
  }
}

TEST(EnvelopeImpl, WithoutValuesIsEmptyAndGrows) {
  FdoPtr<FdoEnvelopeImpl> envelope = FdoEnvelopeImpl::Create();
  EXPECT_TRUE(envelope->GetIsEmpty());
  EXPECT_TRUE(std::isnan(envelope->GetMinX()));
  FdoPtr<FdoDirectPositionImpl> flat = FdoDirectPositionImpl::Create(3, 4);
  envelope->Expand(flat.p);
  EXPECT_FALSE(envelope->GetIsEmpty());
  EXPECT_EQ(envelope->GetMaxY(), 4);
  EXPECT_TRUE(std::isnan(envelope->GetMaxZ()));
  FdoPtr<FdoEnvelopeImpl> other = FdoEnvelopeImpl::Create(0, 1, 2, 10, 11, 12);
  envelope->Expand(other.p);
  FdoPtr<FdoEnvelopeImpl> expected = FdoEnvelopeImpl::Create(0, 1, 2, 10, 11, 12);
  EXPECT_TRUE(Same(envelope, expected));
  FdoPtr<FdoEnvelopeImpl> empty = FdoEnvelopeImpl::Create();
  envelope->Expand(empty.p);
  EXPECT_TRUE(Same(envelope, expected));
  envelope->SetMaxZ(20);
  EXPECT_FALSE(Same(envelope, expected));
  EXPECT_NE(fdo::CaughtMessage([&] { envelope->Expand(static_cast<FdoIEnvelope*>(nullptr)); }), L"");
}

TEST(EnvelopeImpl, IsMadeOfPositionsAndOrdinates) {
  FdoPtr<FdoDirectPositionImpl> low = FdoDirectPositionImpl::Create(1, 2, 3, 99);
  FdoPtr<FdoDirectPositionImpl> high = FdoDirectPositionImpl::Create(4, 5, 6, 99);
  FdoPtr<FdoEnvelopeImpl> ofPositions = FdoEnvelopeImpl::Create(low.p, high.p);
  double ordinates[] = {1, 2, 3, 99, 4, 5, 6, 99};
  FdoPtr<FdoEnvelopeImpl> ofOrdinates =
      FdoEnvelopeImpl::Create(FdoDimensionality_Z | FdoDimensionality_M, ordinates);
  EXPECT_TRUE(Same(ofPositions, ofOrdinates));
  EXPECT_EQ(ofOrdinates->GetMaxZ(), 6);
  double measured[] = {1, 2, 99, 4, 5, 99};
  FdoPtr<FdoEnvelopeImpl> withoutZ = FdoEnvelopeImpl::Create(FdoDimensionality_M, measured);
  EXPECT_EQ(withoutZ->GetMaxX(), 4);
  EXPECT_TRUE(std::isnan(withoutZ->GetMinZ()));
}

TEST(DirectPositionImpl, HasTheOrdinatesThatItsDimensionalitySays) {
  double const ordinates[] = {1, 2, 3, 4};
  struct {
    FdoInt32 dimensionality;
    double z, m;
  } const rows[] = {{0, 0, 0}, {1, 3, 0}, {2, 0, 3}, {3, 3, 4}};
  for (auto const& row : rows) {
    FdoPtr<FdoDirectPositionImpl> position = FdoDirectPositionImpl::Create(row.dimensionality, ordinates);
    EXPECT_EQ(position->GetDimensionality(), row.dimensionality);
    EXPECT_EQ(position->GetZ(), row.z) << row.dimensionality;
    EXPECT_EQ(position->GetM(), row.m) << row.dimensionality;
    EXPECT_TRUE(std::equal(ordinates, ordinates + 2 + (row.dimensionality & 1) + (row.dimensionality >> 1),
                           position->GetOrdinates()));
  }
  EXPECT_NE(fdo::CaughtMessage([&] { FdoDirectPositionImpl::Create(4, ordinates); }), L"");
}

TEST(DirectPositionImpl, CopiesAndCompares) {
  FdoPtr<FdoDirectPositionImpl> first = FdoDirectPositionImpl::Create(1, 2, 3);
  FdoPtr<FdoDirectPositionImpl> second = FdoDirectPositionImpl::Create(*first);
  EXPECT_TRUE(Same(first, second));
  second->SetZ(4);
  EXPECT_FALSE(Same(first, second));
  second->SetDimensionality(FdoDimensionality_XY);
  first->SetDimensionality(FdoDimensionality_XY);
  EXPECT_TRUE(Same(first, second));
  FdoPtr<FdoDirectPositionImpl> third = FdoDirectPositionImpl::Create();
  *third = *first;
  EXPECT_TRUE(Same(third, first));
  EXPECT_EQ(third.p->GetRefCount(), 1);
}

}  // namespace
