#include <fdo/geometry_stream.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "testing/caught_message.h"
#include "testing/fgf_builder.h"

namespace fdo {
namespace {

using Bytes = std::vector<unsigned char>;

// Writes what it is told, one word for each call, and stops at the call of that number.
class Scribe : public FgfVisitor {
 public:
  explicit Scribe(int stopAt = -1) : stopAt_(stopAt) {}

  bool BeginGeometry(FgfGeometry const& geometry) override {
    text_ << '<' << geometry.type << " in " << geometry.parentType << '[' << geometry.index << "] dim "
          << geometry.dimensionality << " count " << geometry.count;
    return Next();
  }
  bool BeginRing(std::int32_t index, std::int32_t count) override {
    text_ << "ring " << index << " of " << count;
    return Next();
  }
  bool Positions(FgfPositions const& positions) override { return List("", positions); }
  bool Start(FgfPositions const& position) override { return List("start", position); }
  bool Segment(std::int32_t type, FgfPositions const& positions) override {
    return List(type == kFgfArc ? "arc" : type == kFgfLine ? "line" : "?", positions);
  }
  bool EndRing() override {
    text_ << "end ring";
    return Next();
  }
  bool EndGeometry(FgfGeometry const& geometry) override {
    text_ << geometry.type << '[' << geometry.index << "] in " << geometry.parentType << '>';
    return Next();
  }
  bool UnknownType(std::int32_t type) override {
    text_ << "unknown " << type;
    return Next();
  }

  std::string Text() const { return text_.str(); }
  int Calls() const { return calls_; }

 private:
  bool List(char const* what, FgfPositions const& positions) {
    text_ << what << '(';
    for (std::int32_t i = 0; i < positions.count; ++i) {
      if (i > 0) text_ << ',';
      for (int k = 0; k < positions.ordinates; ++k) text_ << (k > 0 ? " " : "") << positions.Ordinate(i, k);
    }
    text_ << ')';
    return Next();
  }
  bool Next() {
    text_ << '\n';
    return calls_++ != stopAt_;
  }

  std::ostringstream text_;
  int stopAt_;
  int calls_ = 0;
};

std::string Visited(Bytes const& bytes) {
  Scribe scribe;
  EXPECT_EQ(VisitFgf(bytes.data(), bytes.data() + bytes.size(), scribe), bytes.data() + bytes.size());
  return scribe.Text();
}

TEST(VisitFgf, PiecesComeInStreamOrder) {
  EXPECT_EQ(Visited(Fgf("POINT ZM (1 2 3 4)")),
            "<1 in 0[0] dim 3 count 1\n"
            "(1 2 3 4)\n"
            "1[0] in 0>\n");
  EXPECT_EQ(Visited(Fgf("POLYGON M ((1 2 3, 4 5 6), EMPTY)")),
            "<3 in 0[0] dim 2 count 2\n"
            "ring 0 of 2\n"
            "(1 2 3,4 5 6)\n"
            "end ring\n"
            "ring 1 of 0\n"
            "()\n"
            "end ring\n"
            "3[0] in 0>\n");
  EXPECT_EQ(Visited(Fgf("CURVEPOLYGON ((0 0 (CIRCULARARCSEGMENT (1 1, 2 0), LINESTRINGSEGMENT (0 0))))")),
            "<11 in 0[0] dim 0 count 1\n"
            "ring 0 of 2\n"
            "start(0 0)\n"
            "arc(1 1,2 0)\n"
            "line(0 0)\n"
            "end ring\n"
            "11[0] in 0>\n");
}

TEST(VisitFgf, PartsKnowTheirPlaceAndTheirParent) {
  EXPECT_EQ(
      Visited(Fgf("GEOMETRYCOLLECTION (GEOMETRYCOLLECTION EMPTY, GEOMETRYCOLLECTION (MULTIPOINT (1 2, 3 4)), "
                  "CURVESTRING (0 0 (LINESTRINGSEGMENT (1 1))), LINESTRING EMPTY)")),
      "<7 in 0[0] dim -1 count 4\n"
      "<7 in 7[0] dim -1 count 0\n"
      "7[0] in 7>\n"
      "<7 in 7[1] dim -1 count 1\n"
      "<4 in 7[0] dim -1 count 2\n"
      "<1 in 4[0] dim 0 count 1\n"
      "(1 2)\n"
      "1[0] in 4>\n"
      "<1 in 4[1] dim 0 count 1\n"
      "(3 4)\n"
      "1[1] in 4>\n"
      "4[0] in 7>\n"
      "7[1] in 7>\n"
      "<10 in 7[2] dim 0 count 1\n"
      "start(0 0)\n"
      "line(1 1)\n"
      "10[2] in 7>\n"
      "<2 in 7[3] dim 0 count 0\n"
      "()\n"
      "2[3] in 7>\n"
      "7[0] in 0>\n");
}

TEST(VisitFgf, UnknownTypeIsReportedAndPassed) {
  Bytes bytes{7, 0, 0, 0, 2, 0, 0, 0, 99, 0, 0, 0};
  Bytes const point = Fgf("POINT (1 2)");
  bytes.insert(bytes.end(), point.begin(), point.end());
  EXPECT_EQ(Visited(bytes),
            "<7 in 0[0] dim -1 count 2\n"
            "unknown 99\n"
            "<1 in 7[1] dim 0 count 1\n"
            "(1 2)\n"
            "1[1] in 7>\n"
            "7[0] in 0>\n");
}

TEST(VisitFgf, VisitorMayStopAtEveryCall) {
  Bytes const bytes =
      Fgf("GEOMETRYCOLLECTION (POLYGON ((1 2), (3 4)), GEOMETRYCOLLECTION EMPTY, "
          "CURVEPOLYGON ((0 0 (LINESTRINGSEGMENT (1 1), CIRCULARARCSEGMENT (1 2, 3 4)))), "
          "CURVESTRING (0 0 (LINESTRINGSEGMENT (1 1))), POINT (5 6))");
  Scribe whole;
  VisitFgf(bytes.data(), bytes.data() + bytes.size(), whole);
  ASSERT_GT(whole.Calls(), 20);
  for (int stopAt = 0; stopAt < whole.Calls(); ++stopAt) {
    Scribe scribe(stopAt);
    EXPECT_EQ(VisitFgf(bytes.data(), bytes.data() + bytes.size(), scribe), nullptr) << stopAt;
    EXPECT_EQ(scribe.Calls(), stopAt + 1);
  }
}

TEST(VisitFgf, BrokenStreamIsInvalidAfterWhatWasSound) {
  Bytes bytes = Fgf("MULTIPOINT (1 2, 3 4)");
  bytes.pop_back();
  Scribe scribe;
  EXPECT_EQ(CaughtMessage([&] { VisitFgf(bytes.data(), bytes.data() + bytes.size(), scribe); }),
            L"Invalid FGF stream!");
  EXPECT_EQ(scribe.Text(),
            "<4 in 0[0] dim -1 count 2\n"
            "<1 in 4[0] dim 0 count 1\n"
            "(1 2)\n"
            "1[0] in 4>\n");
}

}  // namespace
}  // namespace fdo
