// Properties that hold for every stream, over the whole catalogue.
#include <fdo/geometry_stream.h>
#include <gtest/gtest.h>

#include <limits>

#include "testing/fgf_catalogue.h"

namespace fdo {
namespace {

using Bytes = std::vector<unsigned char>;

constexpr double kLargest = std::numeric_limits<double>::max();

Bytes Converted(std::size_t (*convert)(unsigned char const*, std::size_t, unsigned char*), Bytes const& from,
                std::size_t bound) {
  Bytes to(bound);
  to.resize(convert(from.data(), from.size(), to.data()));
  return to;
}

TEST(GeometryStreams, SkipConsumesExactlyTheStream) {
  for (CataloguedStream const& entry : FgfCatalogue()) {
    Bytes bytes = entry.stream.bytes;
    bytes.insert(bytes.end(), 100, 0xFF);  // what follows is not looked at
    EXPECT_EQ(SkipGeometry(bytes.data(), bytes.data() + bytes.size()) - bytes.data(),
              static_cast<std::ptrdiff_t>(entry.stream.bytes.size()))
        << entry.text;
  }
}

TEST(GeometryStreams, BoxIsThatOfAScanOverAllPositions) {
  for (CataloguedStream const& entry : FgfCatalogue()) {
    double expected[4] = {kLargest, kLargest, -kLargest, -kLargest};
    for (std::array<double, 4> const& position : entry.stream.positions) {
      for (std::size_t axis = 0; axis < 2; ++axis) {
        if (position[axis] < expected[axis]) expected[axis] = position[axis];
        if (position[axis] > expected[axis + 2]) expected[axis + 2] = position[axis];
      }
    }
    Bytes const& bytes = entry.stream.bytes;
    double box[4] = {};
    EXPECT_EQ(FgfBox(bytes.data(), bytes.data() + bytes.size(), box), bytes.data() + bytes.size())
        << entry.text;
    for (int i = 0; i < 4; ++i) EXPECT_EQ(box[i], expected[i]) << i << " of " << entry.text;
  }
}

TEST(GeometryStreams, ThereAndBackThroughIsoWkbIsTheIdentity) {
  for (CataloguedStream const& entry : FgfCatalogue()) {
    Bytes const& fgf = entry.stream.bytes;
    Bytes const wkb = Converted(FgfToIsoWkb, fgf, FgfToIsoWkbBound(fgf.size()));
    if (!entry.inIsoWkb) {
      EXPECT_EQ(wkb.size(), 0u) << entry.text;
      continue;
    }
    ASSERT_GT(wkb.size(), 0u) << entry.text;
    EXPECT_EQ(Converted(IsoWkbToFgf, wkb, IsoWkbToFgfBound(wkb.size())), fgf) << entry.text;
  }
}

TEST(GeometryStreams, ThereAndBackThroughOlderWkbIsTheIdentityButForMultiWithZ) {
  int pinnedElsewhere = 0;
  for (CataloguedStream const& entry : FgfCatalogue()) {
    Bytes const& fgf = entry.stream.bytes;
    Bytes const wkb = Converted(FgfToWkb, fgf, FgfToWkbBound(fgf.size()));
    if (!entry.inOldWkb && entry.stream.positions.size() > 0) {
      EXPECT_EQ(wkb.size(), 0u) << entry.text;
      continue;
    }
    if (!entry.inOldWkb) continue;  // empty: nothing tells that it had M
    ASSERT_GT(wkb.size(), 0u) << entry.text;
    bool const isMultiWithZ = entry.dimensionality == 1 && fgf.front() >= 4 && fgf[4] > 0;
    if (isMultiWithZ) {
      ++pinnedElsewhere;
    } else {
      EXPECT_EQ(Converted(WkbToFgf, wkb, WkbToFgfBound(wkb.size())), fgf) << entry.text;
    }
  }
  EXPECT_EQ(pinnedElsewhere, 9);
}

TEST(GeometryStreams, PlainXyIsTheSameInBothWkbForms) {
  int compared = 0;
  for (CataloguedStream const& entry : FgfCatalogue()) {
    if (!entry.inOldWkb || entry.dimensionality != 0) continue;
    Bytes const& fgf = entry.stream.bytes;
    EXPECT_EQ(Converted(FgfToWkb, fgf, FgfToWkbBound(fgf.size())),
              Converted(FgfToIsoWkb, fgf, FgfToIsoWkbBound(fgf.size())))
        << entry.text;
    ++compared;
  }
  EXPECT_EQ(compared, 30);
}

}  // namespace
}  // namespace fdo
