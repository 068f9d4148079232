// Evaluate against GEOS called directly, over all pairs of a generated family.
#include <geos_c.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "FdoSpatial.h"
#include "sdk/runtime/spatial/geos_family.h"
#include "testing/fgf_builder.h"

namespace {

constexpr std::uint64_t kSeed = 20261121;
constexpr std::size_t kMembers = 320;  // 102,400 pairs
constexpr std::size_t kPredicateStride = 7;

class Peer {
 public:
  Peer() : handle_(GEOS_init_r()) {}
  ~Peer() {
    for (GEOSPreparedGeometry const* prepared : prepared_) GEOSPreparedGeom_destroy_r(handle_, prepared);
    for (GEOSGeometry* geometry : geometries_) GEOSGeom_destroy_r(handle_, geometry);
    GEOS_finish_r(handle_);
  }
  Peer(Peer const&) = delete;
  Peer& operator=(Peer const&) = delete;

  void Add(std::string const& text) {
    GEOSWKTReader* const reader = GEOSWKTReader_create_r(handle_);
    geometries_.push_back(GEOSWKTReader_read_r(handle_, reader, text.c_str()));
    prepared_.push_back(GEOSPrepare_r(handle_, geometries_.back()));
    GEOSWKTReader_destroy_r(handle_, reader);
  }

  // One character for each operation, in the order of the enumeration: from GEOS's predicates.
  std::string Answers(std::size_t left, std::size_t right) const {
    GEOSGeometry const* const a = geometries_[left];
    GEOSGeometry const* const b = geometries_[right];
    return Text({GEOSContains_r(handle_, a, b), GEOSCrosses_r(handle_, a, b), GEOSDisjoint_r(handle_, a, b),
                 GEOSEquals_r(handle_, a, b), GEOSIntersects_r(handle_, a, b), GEOSOverlaps_r(handle_, a, b),
                 GEOSTouches_r(handle_, a, b), GEOSWithin_r(handle_, a, b), GEOSCoveredBy_r(handle_, a, b),
                 GEOSPreparedContainsProperly_r(handle_, prepared_[right], a), BoxesMeet(a, b)});
  }

  // The same from GEOS's matrix of intersections, by the definitions of the OGC.
  std::string AnswersOfMatrix(std::size_t left, std::size_t right) const {
    GEOSGeometry const* const a = geometries_[left];
    GEOSGeometry const* const b = geometries_[right];
    int const dimensionA = GEOSGeom_getDimensions_r(handle_, a);
    int const dimensionB = GEOSGeom_getDimensions_r(handle_, b);
    char* const matrix = GEOSRelate_r(handle_, a, b);
    auto const is = [&](char const* pattern) { return GEOSRelatePatternMatch_r(handle_, matrix, pattern); };
    bool const disjoint = is("FF*FF****");
    bool const crosses = dimensionA < dimensionB   ? is("T*T******")
                         : dimensionA > dimensionB ? is("T*****T**")
                                                   : dimensionA == 1 && is("0********");
    bool const overlaps = dimensionA == dimensionB && is(dimensionA == 1 ? "1*T***T**" : "T*T***T**");
    bool const touches =
        dimensionA + dimensionB > 0 && (is("FT*******") || is("F**T*****") || is("F***T****"));
    bool const coveredBy = is("T*F**F***") || is("*TF**F***") || is("**FT*F***") || is("**F*TF***");
    std::string const answers =
        Text({is("T*****FF*"), crosses, disjoint, is("T*F**FFF*"), !disjoint, overlaps, touches,
              is("T*F**F***"), coveredBy, is("TFF*FF***"), BoxesMeet(a, b)});
    GEOSFree_r(handle_, matrix);
    return answers;
  }

 private:
  static std::string Text(std::initializer_list<int> answers) {
    std::string text;
    for (int answer : answers) text += answer == 2 ? '!' : answer == 1 ? 'T' : '-';
    return text;
  }

  bool BoxesMeet(GEOSGeometry const* a, GEOSGeometry const* b) const {
    double boxA[4];
    double boxB[4];
    GEOSGeom_getExtent_r(handle_, a, &boxA[0], &boxA[1], &boxA[2], &boxA[3]);
    GEOSGeom_getExtent_r(handle_, b, &boxB[0], &boxB[1], &boxB[2], &boxB[3]);
    return boxA[0] <= boxB[2] && boxB[0] <= boxA[2] && boxA[1] <= boxB[3] && boxB[1] <= boxA[3];
  }

  GEOSContextHandle_t handle_;
  std::vector<GEOSGeometry*> geometries_;
  std::vector<GEOSPreparedGeometry const*> prepared_;
};

TEST(EvaluateFamily, AgreesWithGeosOnEveryPairAndOperation) {
  std::vector<std::string> const texts = fdo_sdk::GeosFamily(kMembers, kSeed);
  FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
  Peer peer;
  std::vector<std::vector<unsigned char>> streams;
  std::vector<FdoPtr<FdoIGeometry>> geometries;
  for (std::string const& text : texts) {
    peer.Add(text);
    streams.push_back(fdo::Fgf(text));
  }
  for (auto const& stream : streams) {
    geometries.push_back(factory->CreateGeometryFromFgf(stream.data(), static_cast<FdoInt32>(stream.size())));
  }
  std::size_t compared = 0;
  std::size_t held[11] = {};
  for (std::size_t left = 0; left < texts.size(); ++left) {
    for (std::size_t right = 0; right < texts.size(); ++right) {
      std::string ours;
      for (int operation = 0; operation < 11; ++operation) {
        bool const holds = FdoSpatialUtility::Evaluate(
            geometries[left], static_cast<FdoSpatialOperations>(operation), geometries[right]);
        ours += holds ? 'T' : '-';
        held[operation] += holds;
      }
      ASSERT_EQ(ours, peer.AnswersOfMatrix(left, right))
          << "seed " << kSeed << ": " << texts[left] << " to " << texts[right];
      // The predicates, which take most of the time, at every pair that the stride meets.
      if (compared % kPredicateStride == 0) {
        ASSERT_EQ(ours, peer.Answers(left, right))
            << "seed " << kSeed << ": " << texts[left] << " to " << texts[right];
      }
      ++compared;
    }
  }
  EXPECT_GE(compared, 100000u);
  for (int operation = 0; operation < 11; ++operation) EXPECT_GE(held[operation], 100u) << operation;
}

}  // namespace
