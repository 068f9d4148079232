#include <fdo/geometry_stream.h>
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "testing/caught_message.h"
#include "testing/fgf_builder.h"

namespace fdo {
namespace {

using Bytes = std::vector<unsigned char>;

std::size_t Skipped(Bytes const& bytes) {
  return static_cast<std::size_t>(SkipGeometry(bytes.data(), bytes.data() + bytes.size()) - bytes.data());
}

void SetInt(Bytes& bytes, std::size_t at, std::int32_t value) {
  std::memcpy(&bytes[at], &value, sizeof(value));
}

TEST(SkipGeometry, PointZmIsFortyBytes) {
  EXPECT_EQ(Skipped(Fgf("POINT ZM (1 2 3 4)")), 4u + 4 + 32);
  EXPECT_EQ(Skipped(Fgf("POINT M (1 2 3)")), 4u + 4 + 24);
}

TEST(SkipGeometry, UnknownTypeIsItsTypeWord) {
  for (std::int32_t const type : {0, 8, 9, 14, 130, 1001, -1, INT32_MIN, INT32_MAX}) {
    Bytes bytes = Fgf("LINESTRING (1 2, 3 4)");
    SetInt(bytes, 0, type);
    EXPECT_EQ(Skipped(bytes), 4u) << type;
  }
}

TEST(SkipGeometry, UnknownTypeAsAPartIsItsTypeWord) {
  Bytes bytes = Fgf("GEOMETRYCOLLECTION EMPTY");
  SetInt(bytes, 4, 2);
  bytes.insert(bytes.end(), {99, 0, 0, 0});
  Bytes const point = Fgf("POINT (1 2)");
  bytes.insert(bytes.end(), point.begin(), point.end());
  EXPECT_EQ(Skipped(bytes), 8u + 4 + 24);
}

TEST(SkipGeometry, PartsOfAMultiTypeMayBeOfAnyType) {
  Bytes bytes = Fgf("GEOMETRYCOLLECTION (POINT (1 2), LINESTRING Z (1 2 3))");
  bytes[0] = 4;
  EXPECT_EQ(Skipped(bytes), bytes.size());
}

TEST(SkipGeometry, NegativeRingCountIsNoRings) {
  for (char const* text : {"POLYGON EMPTY", "CURVEPOLYGON Z EMPTY"}) {
    Bytes bytes = Fgf(text);
    SetInt(bytes, 8, -5);
    EXPECT_EQ(Skipped(bytes), 12u) << text;
  }
}

TEST(SkipGeometry, SegmentOfAnotherTypeIsInvalid) {
  for (std::int32_t const segment : {132, 129, 0, -1}) {
    Bytes bytes = Fgf("CURVESTRING (0 0 (CIRCULARARCSEGMENT (1 1, 2 0)))");
    SetInt(bytes, 28, segment);
    EXPECT_EQ(CaughtMessage([&] { Skipped(bytes); }), L"Invalid FGF stream!") << segment;
  }
}

TEST(SkipGeometry, DimensionalityIsZeroToThree) {
  for (std::int32_t const dimensionality : {-1, 4, 7, INT32_MIN, INT32_MAX}) {
    Bytes bytes = Fgf("POINT ZM (1 2 3 4)");
    SetInt(bytes, 4, dimensionality);
    bytes.resize(1000);
    EXPECT_EQ(CaughtMessage([&] { Skipped(bytes); }), L"Invalid FGF stream!") << dimensionality;
  }
}

TEST(SkipGeometry, NoBytesAreNoGeometry) {
  EXPECT_EQ(CaughtMessage([] { SkipGeometry(nullptr, nullptr); }), L"Invalid FGF stream!");
}

}  // namespace
}  // namespace fdo
