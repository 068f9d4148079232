#include "testing/fgf_catalogue.h"

#include <charconv>
#include <iterator>
#include <string_view>

namespace fdo {
namespace {

// "~" stands for the dimensionality word, "@" for a position and "@*9" for nine of them, all different.
constexpr char const* kOldWkbShapes[] = {
    "POINT~ (@)",
    "POINT~ EMPTY",
    "LINESTRING~ EMPTY",
    "LINESTRING~ (@)",
    "LINESTRING~ (@*2)",
    "LINESTRING~ (@*3)",
    "LINESTRING~ (@*7)",
    "LINESTRING~ (@*8)",
    "LINESTRING~ (@*9)",
    "LINESTRING~ (@*13)",
    "LINESTRING~ (@*41)",
    "POLYGON~ EMPTY",
    "POLYGON~ (EMPTY)",
    "POLYGON~ ((@))",
    "POLYGON~ ((@*4))",
    "POLYGON~ ((@*21))",
    "POLYGON~ ((@*5), (@*4))",
    "POLYGON~ ((@*9), EMPTY, (@*10), (@*11))",
    "MULTIPOINT~ EMPTY",
    "MULTIPOINT~ (@)",
    "MULTIPOINT~ (@*2)",
    "MULTIPOINT~ (@*11)",
    "MULTIPOINT~ (@, EMPTY, @)",
    "MULTILINESTRING~ EMPTY",
    "MULTILINESTRING~ ((@*2))",
    "MULTILINESTRING~ ((@*3), EMPTY, (@*12))",
    "MULTIPOLYGON~ EMPTY",
    "MULTIPOLYGON~ (EMPTY)",
    "MULTIPOLYGON~ (((@*5)))",
    "MULTIPOLYGON~ (((@*5), (@*4)), EMPTY, ((@*14)))",
};

constexpr char const* kIsoWkbShapes[] = {
    "GEOMETRYCOLLECTION EMPTY",
    "GEOMETRYCOLLECTION (POINT~ (@))",
    "GEOMETRYCOLLECTION (POINT~ (@), LINESTRING~ (@*2))",
    "GEOMETRYCOLLECTION (LINESTRING~ EMPTY, POLYGON~ ((@*4)), POINT~ EMPTY)",
    "GEOMETRYCOLLECTION (GEOMETRYCOLLECTION EMPTY, MULTIPOINT~ EMPTY, GEOMETRYCOLLECTION (POINT~ (@)))",
    "GEOMETRYCOLLECTION (GEOMETRYCOLLECTION (GEOMETRYCOLLECTION (LINESTRING~ (@*3))), POINT~ (@))",
    "GEOMETRYCOLLECTION (MULTIPOINT~ (@*2), MULTILINESTRING~ ((@*2), (@*3)), MULTIPOLYGON~ (((@*4))))",
    "GEOMETRYCOLLECTION (CURVESTRING~ (@ (CIRCULARARCSEGMENT (@*2))), MULTICURVESTRING~ EMPTY, "
    "CURVEPOLYGON~ ((@ (LINESTRINGSEGMENT (@*3)))))",
    "GEOMETRYCOLLECTION (MULTICURVEPOLYGON~ (((@ (LINESTRINGSEGMENT (@*3))))), "
    "CURVESTRING~ (@ (LINESTRINGSEGMENT (@))), POINT~ (@))",
    "CURVESTRING~ (@ (CIRCULARARCSEGMENT (@*2)))",
    "CURVESTRING~ (@ (LINESTRINGSEGMENT (@)))",
    "CURVESTRING~ (@ (LINESTRINGSEGMENT (@*9)))",
    "CURVESTRING~ (@ (LINESTRINGSEGMENT (@*2), LINESTRINGSEGMENT (@), LINESTRINGSEGMENT (@)))",
    "CURVESTRING~ (@ (CIRCULARARCSEGMENT (@*2), CIRCULARARCSEGMENT (@*2), CIRCULARARCSEGMENT (@*2)))",
    "CURVESTRING~ (@ (CIRCULARARCSEGMENT (@*2), LINESTRINGSEGMENT (@*2)))",
    "CURVESTRING~ (@ (LINESTRINGSEGMENT (@*2), CIRCULARARCSEGMENT (@*2)))",
    "CURVESTRING~ (@ (CIRCULARARCSEGMENT (@*2), CIRCULARARCSEGMENT (@*2), LINESTRINGSEGMENT (@*10), "
    "CIRCULARARCSEGMENT (@*2), LINESTRINGSEGMENT (@), CIRCULARARCSEGMENT (@*2), CIRCULARARCSEGMENT (@*2)))",
    "CURVEPOLYGON~ EMPTY",
    "CURVEPOLYGON~ ((@ (CIRCULARARCSEGMENT (@*2), CIRCULARARCSEGMENT (@*2))))",
    "CURVEPOLYGON~ ((@ (LINESTRINGSEGMENT (@*4))))",
    "CURVEPOLYGON~ ((@ (LINESTRINGSEGMENT (@*2), CIRCULARARCSEGMENT (@*2))), (@ (LINESTRINGSEGMENT (@*3))))",
    "CURVEPOLYGON~ ((@ (CIRCULARARCSEGMENT (@*2))), (@ (CIRCULARARCSEGMENT (@*2), LINESTRINGSEGMENT (@))), "
    "(@ (LINESTRINGSEGMENT (@*2), LINESTRINGSEGMENT (@*2))))",
    "MULTICURVESTRING~ EMPTY",
    "MULTICURVESTRING~ ((@ (CIRCULARARCSEGMENT (@*2))))",
    "MULTICURVESTRING~ ((@ (LINESTRINGSEGMENT (@*5))))",
    "MULTICURVESTRING~ ((@ (LINESTRINGSEGMENT (@*2))), (@ (CIRCULARARCSEGMENT (@*2), "
    "LINESTRINGSEGMENT (@))), (@ (CIRCULARARCSEGMENT (@*2), CIRCULARARCSEGMENT (@*2))))",
    "MULTICURVEPOLYGON~ EMPTY",
    "MULTICURVEPOLYGON~ (EMPTY)",
    "MULTICURVEPOLYGON~ (((@ (CIRCULARARCSEGMENT (@*2), CIRCULARARCSEGMENT (@*2)))))",
    "MULTICURVEPOLYGON~ (((@ (LINESTRINGSEGMENT (@*3))), (@ (CIRCULARARCSEGMENT (@*2)))), "
    "((@ (CIRCULARARCSEGMENT (@*2), LINESTRINGSEGMENT (@*8)))))",
};

constexpr char const* kFgfOnlyShapes[] = {
    "CURVESTRING~ (@ EMPTY)",
    "CURVESTRING~ (@ (LINESTRINGSEGMENT EMPTY))",
    "CURVEPOLYGON~ ((@ EMPTY))",
    "MULTICURVESTRING~ ((@ (CIRCULARARCSEGMENT (@*2))), (@ EMPTY))",
    "GEOMETRYCOLLECTION (POINT~ (@), CURVESTRING~ (@ (CIRCULARARCSEGMENT (@*2), LINESTRINGSEGMENT EMPTY)))",
};

// Shapes of a fixed dimensionality: what is in a collection need not agree.
constexpr char const* kMixedShapes[] = {
    "GEOMETRYCOLLECTION (POINT (1 2), POINT Z (3 4 5))",
    "GEOMETRYCOLLECTION (LINESTRING M (1 2 3, 4 5 6), GEOMETRYCOLLECTION (POLYGON ZM ((7 8 9 10, 11 12 13 "
    "14))))",
    "GEOMETRYCOLLECTION (MULTIPOINT EMPTY, POINT Z (1 2 3), CURVESTRING (0 0 (CIRCULARARCSEGMENT (1 1, 2 "
    "0))))",
};

// Ordinates that go up and down and are never equal, so that no order of them hides an error.
class Ordinates {
 public:
  std::string Position(int ordinates) {
    std::string text;
    for (int i = 0; i < ordinates; ++i) {
      state_ = state_ * 6364136223846793005U + 1442695040888963407U;
      double const ordinate = static_cast<double>(static_cast<long long>(state_ >> 20)) / 1e9 - 8796.0;
      char digits[32];
      auto const [end, error] = std::to_chars(digits, digits + sizeof(digits), ordinate);
      if (i > 0) text += ' ';
      text.append(digits, end);
    }
    return text;
  }

 private:
  unsigned long long state_ = 20260501;
};

std::string FillIn(std::string_view shape, int dimensionality, Ordinates& ordinates) {
  constexpr char const* kWords[] = {"", " Z", " M", " ZM"};
  constexpr int kOrdinates[] = {2, 3, 3, 4};
  std::string text;
  for (std::size_t i = 0; i < shape.size(); ++i) {
    if (shape[i] == '~') {
      text += kWords[dimensionality];
    } else if (shape[i] != '@') {
      text += shape[i];
    } else {
      int repeat = 1;
      if (i + 1 < shape.size() && shape[i + 1] == '*') {
        auto const [end, error] = std::from_chars(shape.data() + i + 2, shape.data() + shape.size(), repeat);
        i = static_cast<std::size_t>(end - shape.data()) - 1;
      }
      for (int position = 0; position < repeat; ++position) {
        if (position > 0) text += ", ";
        text += ordinates.Position(kOrdinates[dimensionality]);
      }
    }
  }
  return text;
}

std::vector<CataloguedStream> BuildCatalogue() {
  std::vector<CataloguedStream> catalogue;
  Ordinates ordinates;
  auto const add = [&](std::string_view shape, int dimensionality, bool inIsoWkb, bool inOldWkb) {
    std::string text = FillIn(shape, dimensionality, ordinates);
    FgfStream stream = BuildFgf(text);
    catalogue.push_back({std::move(text), std::move(stream), dimensionality, inIsoWkb, inOldWkb});
  };
  for (int dimensionality = 0; dimensionality < 4; ++dimensionality) {
    for (char const* shape : kOldWkbShapes) add(shape, dimensionality, true, dimensionality < 2);
    for (char const* shape : kIsoWkbShapes) add(shape, dimensionality, true, false);
    for (char const* shape : kFgfOnlyShapes) add(shape, dimensionality, false, false);
  }
  for (char const* shape : kMixedShapes) add(shape, 0, false, false);
  return catalogue;
}

}  // namespace

std::vector<CataloguedStream> const& FgfCatalogue() {
  static std::vector<CataloguedStream> const catalogue = BuildCatalogue();
  return catalogue;
}

}  // namespace fdo
