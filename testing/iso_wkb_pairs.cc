#include "testing/iso_wkb_pairs.h"

#include <string_view>

namespace fdo {
namespace {

// "~" stands for the dimensionality word. A single letter is a position, the same one on both sides.

struct Shape {
  std::string_view fgf;
  std::string_view wkb;  // empty: the same as fgf
};

constexpr Shape kShapes[] = {
    {"POINT~ (a)", ""},
    {"POINT~ EMPTY", ""},
    {"LINESTRING~ (a, b, c)", ""},
    {"LINESTRING~ EMPTY", ""},
    {"POLYGON~ ((a, b, c, a), (d, e, f, d))", ""},
    {"POLYGON~ EMPTY", ""},
    {"MULTIPOINT~ (a, b)", ""},
    {"MULTILINESTRING~ ((a, b), (c, d, e))", ""},
    {"MULTIPOLYGON~ (((a, b, c, a), (d, e, f, d)), EMPTY)", ""},
    {"GEOMETRYCOLLECTION~ (POINT~ (a), GEOMETRYCOLLECTION~ (LINESTRING~ (b, c)), MULTIPOINT~ (d))", ""},
    {"CURVESTRING~ (a (CIRCULARARCSEGMENT (b, c)))", "CIRCULARSTRING~ (a, b, c)"},
    {"CURVESTRING~ (a (CIRCULARARCSEGMENT (b, c), CIRCULARARCSEGMENT (d, e)))",
     "CIRCULARSTRING~ (a, b, c, d, e)"},
    {"CURVESTRING~ (a (LINESTRINGSEGMENT (b, c)))", "COMPOUNDCURVE~ ((a, b, c))"},
    {"CURVESTRING~ (a (LINESTRINGSEGMENT (b), LINESTRINGSEGMENT (c)))", "COMPOUNDCURVE~ ((a, b), (b, c))"},
    {"CURVESTRING~ (a (CIRCULARARCSEGMENT (b, c), CIRCULARARCSEGMENT (d, e), LINESTRINGSEGMENT (f, g), "
     "CIRCULARARCSEGMENT (h, i)))",
     "COMPOUNDCURVE~ (CIRCULARSTRING~ (a, b, c, d, e), (e, f, g), CIRCULARSTRING~ (g, h, i))"},
    {"CURVEPOLYGON~ ((a (CIRCULARARCSEGMENT (b, c), CIRCULARARCSEGMENT (d, a))), (e (LINESTRINGSEGMENT (f, "
     "g, e))), "
     "(h (LINESTRINGSEGMENT (i), CIRCULARARCSEGMENT (j, h))))",
     "CURVEPOLYGON~ (CIRCULARSTRING~ (a, b, c, d, a), (e, f, g, e), COMPOUNDCURVE~ ((h, i), "
     "CIRCULARSTRING~ (i, j, h)))"},
    {"CURVEPOLYGON~ EMPTY", ""},
    {"MULTICURVESTRING~ ((a (LINESTRINGSEGMENT (b, c))), (d (CIRCULARARCSEGMENT (e, f))), "
     "(g (LINESTRINGSEGMENT (h), CIRCULARARCSEGMENT (i, j))))",
     "MULTICURVE~ ((a, b, c), CIRCULARSTRING~ (d, e, f), COMPOUNDCURVE~ ((g, h), CIRCULARSTRING~ (h, i, "
     "j)))"},
    {"MULTICURVEPOLYGON~ (((a (CIRCULARARCSEGMENT (b, a)))), EMPTY, ((c (LINESTRINGSEGMENT (d, e, c)))))",
     "MULTISURFACE~ (CURVEPOLYGON~ (CIRCULARSTRING~ (a, b, a)), CURVEPOLYGON~ EMPTY, "
     "CURVEPOLYGON~ ((c, d, e, c)))"},
    {"GEOMETRYCOLLECTION~ (CURVESTRING~ (a (CIRCULARARCSEGMENT (b, c))), CURVEPOLYGON~ ((d "
     "(LINESTRINGSEGMENT "
     "(e, f, d)))), MULTICURVESTRING~ ((g (LINESTRINGSEGMENT (h)))))",
     "GEOMETRYCOLLECTION~ (CIRCULARSTRING~ (a, b, c), CURVEPOLYGON~ ((d, e, f, d)), MULTICURVE~ ((g, h)))"},
};

std::string FillIn(std::string_view shape, int dimensionality) {
  constexpr char const* kWords[] = {"", " Z", " M", " ZM"};
  constexpr int kOrdinates[] = {2, 3, 3, 4};
  std::string text;
  for (char const c : shape) {
    if (c == '~') {
      text += kWords[dimensionality];
    } else if (c >= 'a' && c <= 'z') {
      for (int i = 0; i < kOrdinates[dimensionality]; ++i) {
        text += (i == 0 ? "" : " ") + std::to_string((c - 'a' + 1) * (i == 1 ? -3 : 10) + i) + ".5";
      }
    } else {
      text += c;
    }
  }
  return text;
}

}  // namespace

std::vector<IsoWkbPair> const& IsoWkbPairs() {
  static std::vector<IsoWkbPair> const pairs = [] {
    std::vector<IsoWkbPair> all{{"GEOMETRYCOLLECTION EMPTY", "GEOMETRYCOLLECTION EMPTY"},
                                {"MULTIPOINT EMPTY", "MULTIPOINT EMPTY"},
                                {"MULTICURVESTRING EMPTY", "MULTICURVE EMPTY"},
                                {"MULTICURVEPOLYGON EMPTY", "MULTISURFACE EMPTY"}};
    for (int dimensionality = 0; dimensionality < 4; ++dimensionality) {
      for (Shape const& shape : kShapes) {
        std::string_view const wkb = shape.wkb.empty() ? shape.fgf : shape.wkb;
        all.push_back({FillIn(shape.fgf, dimensionality), FillIn(wkb, dimensionality)});
      }
    }
    return all;
  }();
  return pairs;
}

}  // namespace fdo
