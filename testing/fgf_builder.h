// FGF and WKB streams from readable text, for tests: Fgf("LINESTRING Z (1 2 3, 4 5 6)").
//
// The text is well-known text: a type word, an optional Z, M or ZM, then EMPTY or a list. The
// dimensionality of a multi type is that of its parts; a collection's own is not stated. The points of
// a MULTIPOINT may stand in parentheses of their own. POINT EMPTY has ordinates that are not numbers.
// "nan" and "inf" are numbers.
//
// FGF has curves of its own:
//   CURVESTRING (0 0 (CIRCULARARCSEGMENT (1 1, 2 0), LINESTRINGSEGMENT (3 0, 4 0)))
//   CURVEPOLYGON ((0 0 (CIRCULARARCSEGMENT (1 1, 2 0), CIRCULARARCSEGMENT (1 -1, 0 0))))
//   MULTICURVESTRING and MULTICURVEPOLYGON, lists of these without their words
// and WKB has CIRCULARSTRING, COMPOUNDCURVE, CURVEPOLYGON, MULTICURVE and MULTISURFACE, whose members
// carry their word where it is not the plain one.
//
// Errors: text that is not understood throws std::invalid_argument.
#ifndef TESTING_FGF_BUILDER_H_
#define TESTING_FGF_BUILDER_H_

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

namespace fdo {

std::vector<unsigned char> Fgf(std::string_view text);

// The same with what a test may want to know about the bytes.
struct FgfStream {
  std::vector<unsigned char> bytes;
  std::vector<std::array<double, 4>> positions;  // in stream order
  std::vector<std::size_t> countOffsets;         // where the counts of parts, points and segments are
  std::vector<std::size_t> ringCountOffsets;
};
FgfStream BuildFgf(std::string_view text);

enum class WkbOrder { kLittleEndian, kBigEndian, kMixed };  // mixed: each geometry the other way round
enum class WkbZ { kThousands, kBit };                       // the bit can tell Z only, not M

struct WkbStream {
  std::vector<unsigned char> bytes;
  std::vector<std::size_t> countOffsets;
};
WkbStream BuildWkb(std::string_view text, WkbOrder order = WkbOrder::kLittleEndian,
                   WkbZ z = WkbZ::kThousands);

std::vector<unsigned char> Wkb(std::string_view text, WkbOrder order = WkbOrder::kLittleEndian,
                               WkbZ z = WkbZ::kThousands);

}  // namespace fdo

#endif  // TESTING_FGF_BUILDER_H_
