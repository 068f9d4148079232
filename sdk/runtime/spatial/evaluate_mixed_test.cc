// Evaluate on collections of several kinds, against what GEOS says of their parts.
#include <geos_c.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "FdoSpatial.h"
#include "sdk/runtime/spatial/collinear_cover.h"
#include "sdk/runtime/spatial/geos_family.h"
#include "testing/fgf_builder.h"

namespace {

constexpr std::uint64_t kSeed = 20261122;

FdoPtr<FdoIGeometry> From(std::string const& text) {
  std::vector<unsigned char> const bytes = fdo::Fgf(text);
  FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
  FdoPtr<FdoByteArray> array = FdoByteArray::Create(bytes.data(), static_cast<FdoInt32>(bytes.size()));
  return factory->CreateGeometryFromFgf(array);
}

// The letters of the operations that hold, in the order of the enumeration without the boxes.
constexpr char kLetters[] = "CXDEIOTWVN";

std::string Answers(FdoIGeometry* a, FdoIGeometry* b, double tolerance = 1e-10) {
  std::string answers;
  for (int operation = 0; operation < 10; ++operation) {
    bool const holds =
        FdoSpatialUtility::Evaluate(a, static_cast<FdoSpatialOperations>(operation), b, tolerance);
    answers += holds ? kLetters[operation] : '-';
  }
  return answers;
}

struct Pair {
  char const* left;
  char const* right;
  char const* answers;
};

TEST(EvaluateMixed, AnswersOfEveryOperation) {
#define SQUARE "POLYGON ((0 0, 10 1, 11 11, 0 10, 0 0))"
  Pair const rows[] = {
      // Contains X=Crosses Disjoint Equals Intersects Overlaps Touches Within coVered iNside
      // What lies within a greater part changes nothing.
      {"GEOMETRYCOLLECTION (POINT (5 5), " SQUARE ")", SQUARE, "C--EI--WV-"},
      {"GEOMETRYCOLLECTION (POINT (0 0), LINESTRING (0 0, 0 10), " SQUARE ")", SQUARE, "C--EI--WV-"},
      {"GEOMETRYCOLLECTION (POINT (0 0), LINESTRING (0 0, 9 0))", "LINESTRING (0 0, 9 0)", "C--EI--WV-"},
      // A line that leaves a surface and comes back along another line.
      {"LINESTRING (5 5, 50 5)", "GEOMETRYCOLLECTION (LINESTRING (3 5, 60 5), " SQUARE ")", "----I--WV-"},
      {"LINESTRING (12 5, 50 5)", "GEOMETRYCOLLECTION (LINESTRING (3 5, 60 5), " SQUARE ")", "----I--WVN"},
      {"LINESTRING (5 5, 50 5)", "GEOMETRYCOLLECTION (LINESTRING (20 5, 60 5), " SQUARE ")", "-X--I-----"},
      {"LINESTRING (5 5, 60 5)", "GEOMETRYCOLLECTION (LINESTRING (3 5, 60 5), " SQUARE ")", "----I--WV-"},
      {"GEOMETRYCOLLECTION (LINESTRING (3 5, 60 5), " SQUARE ")",
       "GEOMETRYCOLLECTION (LINESTRING (5 5, 60 5), " SQUARE ")", "C--EI--WV-"},
      // The same positions, cut in another way.
      {"GEOMETRYCOLLECTION (LINESTRING (0 10, 0 20, 5 20), " SQUARE ")",
       "GEOMETRYCOLLECTION (LINESTRING (5 20, 0 20), LINESTRING (0 20, 0 0), " SQUARE ")", "C--EI--WV-"},
      // By the greatest part: a line to points, a surface to lines.
      {"GEOMETRYCOLLECTION (POINT (1 1), LINESTRING (2 2, 3 3))",
       "POLYGON ((0 0, 1.5 0.2, 1.5 1.5, 0 1.5, 0 0))", "-X--I-----"},
      {"GEOMETRYCOLLECTION (POINT (50 50), LINESTRING (5 5, 20 20))", SQUARE, "-X--I-----"},
      {"GEOMETRYCOLLECTION (POINT (0 5), LINESTRING (0 0, 10 10))", "LINESTRING (0 10, 10 0)", "-X--I-----"},
      {"GEOMETRYCOLLECTION (POINT (0 5), LINESTRING (0 0, 10 0))", "LINESTRING (4 0, 14 0)", "----IO----"},
      {"GEOMETRYCOLLECTION (POINT (90 90), " SQUARE ")", "POLYGON ((5 5, 20 5, 20 20, 5 20, 5 5))",
       "----IO----"},
      {"GEOMETRYCOLLECTION (POINT (90 90), " SQUARE ")", "MULTIPOINT (90 90, 95 95)", "-X--I-----"},
      {"GEOMETRYCOLLECTION (POINT (90 90), " SQUARE ")", "POINT (90 90)", "C---I-----"},
      // Surfaces that touch do not overlap, although a line of one crosses the other: the shared interior
      // has to be a surface.
      {"GEOMETRYCOLLECTION (LINESTRING (-5 5, 5 5), POLYGON ((-9 0, 0 0, 0 10, -9 10, -9 0)))", SQUARE,
       "----I-----"},
      // A line on the boundary of a surface belongs to that boundary.
      {"GEOMETRYCOLLECTION (LINESTRING (0 2, 0 20), " SQUARE ")", "LINESTRING (0 1, 0 9)", "----I-T---"},
      {"GEOMETRYCOLLECTION (LINESTRING (0 2, 0 20), " SQUARE ")", "LINESTRING (0 1, 0 19)", "C---I-----"},
      {"GEOMETRYCOLLECTION (POINT (90 90), LINESTRING (0 0, 9 0))", "POINT (9 0)", "------T---"},
      {"GEOMETRYCOLLECTION (POINT (9 0), LINESTRING (0 0, 9 0))", "POINT (9 0)", "------T---"},
      // Lines that cross in the boundary of the surface of one of them.
      {"GEOMETRYCOLLECTION (LINESTRING (0 5, -9 5), POLYGON ((0 0, 9 0, 9 10, 0 10, 0 0)))",
       "LINESTRING (-3 2, 0 5, -3 8)", "----I-T---"},
      {"GEOMETRYCOLLECTION (LINESTRING (0 5, -9 5), POLYGON ((0 0, 9 0, 9 10, 0 10, 0 0)))",
       "LINESTRING (-3 2, -2 5, -3 8)", "-X--I-----"},
  };
#undef SQUARE
  for (Pair const& row : rows) {
    std::string expected = row.answers;
    if (expected.find('T') != std::string::npos) expected[4] = 'I';
    EXPECT_EQ(Answers(From(row.left), From(row.right)), expected) << row.left << " to " << row.right;
    std::string turned = Answers(From(row.right), From(row.left));
    EXPECT_EQ(turned[0] == 'C', expected[7] == 'W') << row.left << " to " << row.right;
    EXPECT_EQ(turned[7] == 'W', expected[0] == 'C') << row.left << " to " << row.right;
    EXPECT_EQ(turned.substr(1, 6), expected.substr(1, 6)) << row.left << " to " << row.right;
  }
}

TEST(EvaluateMixed, ToleranceSnapsTheParts) {
  FdoPtr<FdoIGeometry> mixed = From("GEOMETRYCOLLECTION (POINT (5.001 5), LINESTRING (0 0, 9 0))");
  FdoPtr<FdoIGeometry> near = From("GEOMETRYCOLLECTION (POINT (5 5), LINESTRING (0 0.001, 9 0))");
  EXPECT_EQ(Answers(mixed, near)[3], '-');
  EXPECT_EQ(Answers(mixed, near, 0.01)[3], 'E');
}

// Uses GEOS for one test.
class Peer {
 public:
  Peer()
      : handle_(GEOS_init_r()),
        reader_(GEOSWKTReader_create_r(handle_)),
        writer_(GEOSWKTWriter_create_r(handle_)) {
    GEOSWKTWriter_setTrim_r(handle_, writer_, 1);
    GEOSWKTWriter_setRoundingPrecision_r(handle_, writer_, 17);
  }
  ~Peer() {
    for (GEOSGeometry* geometry : kept_) GEOSGeom_destroy_r(handle_, geometry);
    GEOSWKTWriter_destroy_r(handle_, writer_);
    GEOSWKTReader_destroy_r(handle_, reader_);
    GEOS_finish_r(handle_);
  }
  Peer(Peer const&) = delete;
  Peer& operator=(Peer const&) = delete;

  GEOSContextHandle_t Handle() const { return handle_; }
  GEOSGeometry* Keep(GEOSGeometry* geometry) {
    EXPECT_NE(geometry, nullptr);
    kept_.push_back(geometry);
    return geometry;
  }
  GEOSGeometry* Read(std::string const& text) {
    return Keep(GEOSWKTReader_read_r(handle_, reader_, text.c_str()));
  }
  std::string Write(GEOSGeometry const* geometry) {
    char* const text = GEOSWKTWriter_write_r(handle_, writer_, geometry);
    std::string const copy = text;
    GEOSFree_r(handle_, text);
    return copy;
  }
  std::string Relate(GEOSGeometry const* a, GEOSGeometry const* b) {
    char* const matrix = GEOSRelate_r(handle_, a, b);
    std::string const copy = matrix;
    GEOSFree_r(handle_, matrix);
    return copy;
  }
  bool Matches(std::string const& matrix, char const* pattern) {
    return GEOSRelatePatternMatch_r(handle_, matrix.c_str(), pattern) == 1;
  }
  int Dimension(GEOSGeometry const* geometry) { return GEOSGeom_getDimensions_r(handle_, geometry); }

  // What the OGC says, by the matrix of intersections.
  std::string AnswersOf(std::string const& matrix, int dimensionA, int dimensionB) {
    auto const is = [&](char const* pattern) { return Matches(matrix, pattern); };
    bool const disjoint = is("FF*FF****");
    bool const crosses = dimensionA < dimensionB   ? is("T*T******")
                         : dimensionA > dimensionB ? is("T*****T**")
                                                   : dimensionA == 1 && is("0********");
    bool const overlaps = dimensionA == dimensionB && is(dimensionA == 2   ? "2*T***T**"
                                                         : dimensionA == 1 ? "1*T***T**"
                                                                           : "T*T***T**");
    bool const touches = is("FT*******") || is("F**T*****") || is("F***T****");
    bool const coveredBy = is("T*F**F***") || is("*TF**F***") || is("**FT*F***") || is("**F*TF***");
    bool const all[] = {is("T*****FF*"), crosses,        disjoint, is("**F**FFF*") && !disjoint,
                        !disjoint,       overlaps,       touches,  is("T*F**F***"),
                        coveredBy,       is("TFF*FF***")};
    std::string answers;
    for (int i = 0; i < 10; ++i) answers += all[i] ? kLetters[i] : '-';
    return answers;
  }

 private:
  GEOSContextHandle_t handle_;
  GEOSWKTReader* reader_;
  GEOSWKTWriter* writer_;
  std::vector<GEOSGeometry*> kept_;
};

std::string MatrixOfBoth(std::string const& near, std::string const& far) {
  std::string both;
  for (std::size_t i = 0; i < near.size(); ++i) {
    both += near[i] == 'F' ? far[i] : far[i] == 'F' ? near[i] : std::max(near[i], far[i]);
  }
  return both;
}

// Parts that lie far from each other relate one by one, and the matrices of GEOS together are the matrix of
// the collections.
TEST(EvaluateMixed, PartsFarApartAnswerAsGeosSaysOfEachPair) {
  Peer peer;
  std::vector<GEOSGeometry*> near;
  std::vector<GEOSGeometry*> far;
  constexpr std::size_t kMembers = 60;
  auto const moveEast = [](double* x, double*, void*) {
    *x += 128;
    return 1;
  };
  for (std::string const& text : fdo_sdk::GeosFamily(kMembers, kSeed)) {
    near.push_back(peer.Read(text));
    far.push_back(peer.Keep(GEOSGeom_transformXY_r(peer.Handle(), near.back(), moveEast, nullptr)));
  }
  std::mt19937_64 random(kSeed);
  std::size_t held[10] = {};
  int compared = 0;
  while (compared < 2000) {
    std::size_t pick[4];
    for (std::size_t& place : pick) place = random() % kMembers;
    // Equal and covering collections would be rare.
    if (random() % 3 == 0) pick[1] = pick[0];
    if (random() % 3 == 0) pick[3] = pick[2];
    GEOSGeometry* const parts[4] = {near[pick[0]], near[pick[1]], far[pick[2]], far[pick[3]]};
    int dimension[4];
    for (int i = 0; i < 4; ++i) dimension[i] = peer.Dimension(parts[i]);
    if (dimension[0] == dimension[2] && dimension[1] == dimension[3]) continue;
    ++compared;
    std::string const left =
        "GEOMETRYCOLLECTION (" + peer.Write(parts[0]) + ", " + peer.Write(parts[2]) + ")";
    std::string const right =
        "GEOMETRYCOLLECTION (" + peer.Write(parts[1]) + ", " + peer.Write(parts[3]) + ")";
    std::string const matrix = MatrixOfBoth(peer.Relate(parts[0], parts[1]), peer.Relate(parts[2], parts[3]));
    std::string const answers = Answers(From(left), From(right));
    ASSERT_EQ(answers, peer.AnswersOf(matrix, std::max(dimension[0], dimension[2]),
                                      std::max(dimension[1], dimension[3])))
        << "seed " << kSeed << ": " << left << " to " << right << ", " << matrix;
    for (int i = 0; i < 10; ++i) held[i] += answers[static_cast<std::size_t>(i)] != '-';
  }
  for (int i = 0; i < 10; ++i) EXPECT_GE(held[i], kLetters[i] == 'N' ? 1u : 20u) << kLetters[i];
}

// The geometry with thinner parts that lie within it: its boundary as lines, a chord, its positions as
// points.
std::string WithThinnerParts(Peer& peer, GEOSGeometry const* whole) {
  GEOSContextHandle_t const handle = peer.Handle();
  std::string text = "GEOMETRYCOLLECTION (" + peer.Write(whole);
  if (peer.Dimension(whole) == 2) {
    text += ", " + peer.Write(peer.Keep(GEOSBoundary_r(handle, whole)));
    GEOSGeometry* const middle = peer.Keep(GEOSPointOnSurface_r(handle, whole));
    double x = 0;
    double y = 0;
    GEOSGeomGetX_r(handle, middle, &x);
    GEOSGeomGetY_r(handle, middle, &y);
    std::string const chord = "LINESTRING (" + std::to_string(x) + " " + std::to_string(y) + ", " +
                              std::to_string(x + 0.01) + " " + std::to_string(y + 0.02) + ")";
    if (GEOSWithin_r(handle, peer.Read(chord), whole) == 1) text += ", " + chord;
  }
  GEOSGeometry* const positions = peer.Keep(GEOSGeom_extractUniquePoints_r(handle, whole));
  return text + ", " + peer.Write(positions) + ")";
}

TEST(EvaluateMixed, PartsWithinAGreaterOneChangeNoAnswer) {
  Peer peer;
  std::vector<std::string> texts;
  std::vector<FdoPtr<FdoIGeometry>> plain;
  std::vector<FdoPtr<FdoIGeometry>> mixed;
  std::vector<GEOSGeometry*> ready;
  for (std::string const& text : fdo_sdk::GeosFamily(60, kSeed)) {
    GEOSGeometry* const geometry = peer.Read(text);
    if (peer.Dimension(geometry) == 0) continue;
    texts.push_back(WithThinnerParts(peer, geometry));
    ready.push_back(geometry);
    plain.push_back(From(peer.Write(geometry)));
    mixed.push_back(From(texts.back()));
  }
  ASSERT_GT(texts.size(), 30u);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    for (std::size_t k = 0; k < texts.size(); ++k) {
      std::string const expected =
          peer.AnswersOf(peer.Relate(ready[i], ready[k]), peer.Dimension(ready[i]), peer.Dimension(ready[k]));
      ASSERT_EQ(Answers(mixed[i], plain[k]), expected) << texts[i] << " to plain " << texts[k];
      if (k % 3 == 0) {
        ASSERT_EQ(Answers(plain[i], mixed[k]), expected) << texts[i] << " plain to " << texts[k];
      } else if (k % 3 == 1) {
        ASSERT_EQ(Answers(mixed[i], mixed[k]), expected) << texts[i] << " to " << texts[k];
      }
    }
  }
}

}  // namespace
