// PolygonIndex against LocateInPolygon and against GEOS, at points on, beside and far from edges and
// vertices.
#include "sdk/runtime/spatial/polygon_index.h"

#include <geos_c.h>
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>
#include <string>
#include <vector>

#include "FdoSpatial.h"

namespace fdo_sdk {
namespace {

constexpr std::uint64_t kSeed = 20261122;

using Ring = std::vector<Xy>;     // closed
using Rings = std::vector<Ring>;  // the outer one first
constexpr char const* kNames[] = {"exterior", "boundary", "interior"};

FdoPtr<FdoIPolygon> PolygonOf(Rings const& rings) {
  FdoPtr<FdoFgfGeometryFactory> const factory = FdoFgfGeometryFactory::GetInstance();
  FdoPtr<FdoILinearRing> outer;
  FdoPtr<FdoLinearRingCollection> const inner = FdoLinearRingCollection::Create();
  for (Ring const& ring : rings) {
    std::vector<double> ordinates;
    for (Xy const& at : ring) ordinates.insert(ordinates.end(), {at.x, at.y});
    FdoPtr<FdoILinearRing> const made = factory->CreateLinearRing(
        FdoDimensionality_XY, static_cast<FdoInt32>(ordinates.size()), ordinates.data());
    if (outer == nullptr) {
      outer = made;
    } else {
      inner.p->Add(made);
    }
  }
  return factory.p->CreatePolygon(outer, inner);
}

// One polygon, to our two ways and to GEOS.
class Subject {
 public:
  explicit Subject(Rings const& rings)
      : fgf_(FgfOf(rings)), index_(fgf_.p->GetData(), Size()), handle_(GEOS_init_r()) {
    std::vector<GEOSGeometry*> made;
    for (Ring const& ring : rings) {
      std::vector<double> ordinates;
      for (Xy const& at : ring) ordinates.insert(ordinates.end(), {at.x, at.y});
      made.push_back(GEOSGeom_createLinearRing_r(
          handle_, GEOSCoordSeq_copyFromBuffer_r(handle_, ordinates.data(),
                                                 static_cast<unsigned>(ring.size()), 0, 0)));
    }
    polygon_ =
        GEOSGeom_createPolygon_r(handle_, made[0], made.data() + 1, static_cast<unsigned>(made.size() - 1));
    prepared_ = GEOSPrepare_r(handle_, polygon_);
  }
  ~Subject() {
    GEOSPreparedGeom_destroy_r(handle_, prepared_);
    GEOSGeom_destroy_r(handle_, polygon_);
    GEOS_finish_r(handle_);
  }
  Subject(Subject const&) = delete;
  Subject& operator=(Subject const&) = delete;

  bool IsValid() const { return GEOSisValid_r(handle_, polygon_) == 1; }

  Location Indexed(Xy const& point) const { return index_.Locate(point); }
  Location Plain(Xy const& point) const { return LocateInPolygon(fgf_.p->GetData(), Size(), point); }
  Location OfGeos(Xy const& at) const {
    GEOSGeometry* const point = GEOSGeom_createPointFromXY_r(handle_, at.x, at.y);
    bool const covers = GEOSPreparedCovers_r(handle_, prepared_, point) == 1;
    bool const contains = GEOSPreparedContains_r(handle_, prepared_, point) == 1;
    GEOSGeom_destroy_r(handle_, point);
    return contains ? Location::kInterior : covers ? Location::kBoundary : Location::kExterior;
  }

 private:
  static FdoPtr<FdoByteArray> FgfOf(Rings const& rings) {
    FdoPtr<FdoFgfGeometryFactory> const factory = FdoFgfGeometryFactory::GetInstance();
    FdoPtr<FdoIPolygon> const polygon = PolygonOf(rings);
    return factory.p->GetFgf(polygon);
  }
  std::size_t Size() const { return static_cast<std::size_t>(fgf_.p->GetCount()); }

  FdoPtr<FdoByteArray> fgf_;
  PolygonIndex index_;
  GEOSContextHandle_t handle_;
  GEOSGeometry* polygon_ = nullptr;
  GEOSPreparedGeometry const* prepared_ = nullptr;
};

class Shapes {
 public:
  double Between(double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random_);
  }

  // A star around a centre, on whole numbers where the grid is above 0.
  Ring Star(Xy const& centre, double least, double most, int corners, double grid) {
    Ring ring;
    for (int i = 0; i < corners; ++i) {
      double const angle = 2 * std::numbers::pi * i / corners;
      double const reach = Between(least, most);
      Xy const at{centre.x + reach * std::cos(angle), centre.y + reach * std::sin(angle)};
      ring.push_back(grid > 0 ? Xy{std::round(at.x / grid) * grid, std::round(at.y / grid) * grid} : at);
    }
    ring.push_back(ring[0]);
    return ring;
  }

  // Teeth that each reach over the whole height, upright or leaning.
  Ring Comb(int teeth, double height, double lean) {
    Ring ring;
    for (int i = 0; i < teeth; ++i) {
      ring.push_back({4.0 * i, 0});
      ring.push_back({4.0 * i + lean, height});
      ring.push_back({4.0 * i + lean + 1, height});
      ring.push_back({4.0 * i + 1, 0});
    }
    ring.push_back({4.0 * teeth, -1});
    ring.push_back({0, -1});
    ring.push_back(ring[0]);
    return ring;
  }

  // On vertices and edges, the next double to them on every side, level with vertices, and anywhere.
  std::vector<Xy> PointsAround(Rings const& rings) {
    std::vector<Xy> points;
    FgfBox box;
    for (Ring const& ring : rings) {
      for (Xy const& at : ring) box.Expand(at.x, at.y);
    }
    double const width = box.maxX - box.minX;
    double const height = box.maxY - box.minY;
    for (Ring const& ring : rings) {
      for (std::size_t i = 0; i + 1 < ring.size(); ++i) {
        AddWithNeighbours(ring[i], points);
        double const part = Between(0, 1);
        AddWithNeighbours({(ring[i].x + ring[i + 1].x) / 2, (ring[i].y + ring[i + 1].y) / 2}, points);
        AddWithNeighbours(
            {ring[i].x + part * (ring[i + 1].x - ring[i].x), ring[i].y + part * (ring[i + 1].y - ring[i].y)},
            points);
        points.push_back({Between(box.minX, box.maxX), ring[i].y});
        points.push_back({box.maxX, ring[i].y});
        points.push_back({box.minX, ring[i].y});
      }
    }
    for (int i = 0; i < 1000; ++i) {
      points.push_back({Between(box.minX - width / 9, box.maxX + width / 9),
                        Between(box.minY - height / 9, box.maxY + height / 9)});
    }
    return points;
  }

 private:
  static void AddWithNeighbours(Xy const& at, std::vector<Xy>& points) {
    constexpr double kFar = INFINITY;
    points.push_back(at);
    for (double const way : {-kFar, kFar}) {
      points.push_back({std::nextafter(at.x, way), at.y});
      points.push_back({at.x, std::nextafter(at.y, way)});
    }
  }

  std::mt19937_64 random_{kSeed};
};

struct Seen {
  std::size_t of[3] = {};
};

void CompareAll(Rings const& rings, std::vector<Xy> const& points, Seen& seen) {
  Subject const subject(rings);
  bool const isValid = subject.IsValid();
  for (Xy const& point : points) {
    Location const indexed = subject.Indexed(point);
    ++seen.of[static_cast<int>(indexed)];
    ASSERT_STREQ(kNames[static_cast<int>(indexed)], kNames[static_cast<int>(subject.Plain(point))])
        << "seed " << kSeed << ", at " << std::hexfloat << point.x << " " << point.y;
    if (!isValid) continue;
    ASSERT_STREQ(kNames[static_cast<int>(indexed)], kNames[static_cast<int>(subject.OfGeos(point))])
        << "seed " << kSeed << ", at " << std::hexfloat << point.x << " " << point.y;
  }
}

TEST(PolygonIndex, AgreesWithGeosOnAndBesideEdgesOfStarsWithHoles) {
  Shapes shapes;
  Seen seen;
  Xy const centres[] = {{0, 0}, {500000.5, 4649776.25}, {-1e-3, 1e9}};
  for (Xy const& centre : centres) {
    for (int corners : {3, 4, 12, 100, 400}) {
      for (double grid : {0.0, 1.0}) {
        Rings rings{shapes.Star(centre, 60, 100, corners, grid)};
        if (corners >= 12) {
          rings.push_back(shapes.Star({centre.x - 20, centre.y}, 5, 9, corners / 3, 0));
          rings.push_back(shapes.Star({centre.x + 20, centre.y + 1}, 5, 9, corners / 4, grid / 8));
        }
        CompareAll(rings, shapes.PointsAround(rings), seen);
        ASSERT_FALSE(HasFatalFailure()) << corners << " corners around " << centre.x << " " << centre.y;
      }
    }
  }
  for (std::size_t count : seen.of) EXPECT_GE(count, 2000u);
}

TEST(PolygonIndex, AgreesWithGeosWhereMostEdgesAreLong) {
  Shapes shapes;
  Seen seen;
  for (double lean : {0.0, 0.3, 2.0}) {
    Rings const rings{shapes.Comb(60, 1000, lean)};
    CompareAll(rings, shapes.PointsAround(rings), seen);
    ASSERT_FALSE(HasFatalFailure()) << "leaning by " << lean;
  }
  for (std::size_t count : seen.of) EXPECT_GE(count, 200u);
}

TEST(PolygonIndex, AgreesRingByRingWherePolygonsAreNotValid) {
  Shapes shapes;
  Seen seen;
  Ring const outer{{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}};
  Ring const crossed{{0, 0}, {10, 10}, {10, 0}, {0, 10}, {0, 0}};
  Ring const outside{{20, 2}, {25, 2}, {25, 8}, {20, 8}, {20, 2}};
  Ring const across{{5, 5}, {15, 5}, {15, 15}, {5, 15}, {5, 5}};
  Ring const flat{{0, 3}, {4, 3}, {9, 3}, {0, 3}};
  Ring const slanted{{0, 0}, {10, 0}, {10, 10}, {4, 12}, {0, 0}};
  for (Rings const& rings :
       {Rings{crossed}, Rings{outer, outside}, Rings{outer, across}, Rings{outer, across, across},
        Rings{flat}, Rings{outer, flat}, Rings{slanted, crossed}}) {
    CompareAll(rings, shapes.PointsAround(rings), seen);
    ASSERT_FALSE(HasFatalFailure());
  }
  for (std::size_t count : seen.of) EXPECT_GE(count, 100u);
}

TEST(PolygonIndex, TellsAPointWhoseOrdinatesDifferLessThanTheirProductsCanSay) {
  // The products of these differences leave the range of doubles on either side.
  for (double scale : {1e-300, 1e-170, 1e160, 8e306}) {
    Rings const rings{{{0, 0}, {10 * scale, 0}, {12 * scale, 5 * scale}, {5 * scale, 9 * scale}, {0, 0}}};
    Subject const subject(rings);
    for (int x = -1; x < 14; ++x) {
      for (int y = -1; y < 11; ++y) {
        Xy const point{x * scale, y * scale};
        ASSERT_EQ(subject.Indexed(point), subject.Plain(point)) << scale << " times " << x << " " << y;
      }
    }
  }
}

TEST(PolygonIndex, HasNothingInAPolygonWithoutPositions) {
  FdoByte const rings[] = {3, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0};
  EXPECT_EQ(PolygonIndex(rings, sizeof(rings)).Locate({0, 0}), Location::kExterior);
  FdoByte const none[] = {3, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
  EXPECT_EQ(PolygonIndex(none, sizeof(none)).Locate({0, 0}), Location::kExterior);
}

TEST(PolygonIndex, LocatesAsWithoutIndexWhereOrdinatesAreNoNumbers) {
  double const odds[] = {std::nan(""), HUGE_VAL, -HUGE_VAL};
  for (double odd : odds) {
    for (int at = 0; at < 8; ++at) {
      Ring ring{{0, 0}, {10, 0}, {12, 5}, {10, 10}, {0, 0}};
      Xy& changed = ring[static_cast<std::size_t>(at / 2)];
      (at % 2 == 0 ? changed.x : changed.y) = odd;
      FdoPtr<FdoIPolygon> const polygon = PolygonOf({ring});
      FdoPtr<FdoFgfGeometryFactory> const factory = FdoFgfGeometryFactory::GetInstance();
      FdoPtr<FdoByteArray> const fgf = factory.p->GetFgf(polygon);
      auto const size = static_cast<std::size_t>(fgf.p->GetCount());
      PolygonIndex const index(fgf.p->GetData(), size);
      for (double x = -1; x < 14; x += 0.5) {
        for (double y = -1; y < 11; y += 0.5) {
          ASSERT_EQ(index.Locate({x, y}), LocateInPolygon(fgf.p->GetData(), size, {x, y}))
              << odd << " as ordinate " << at << ", at " << x << " " << y;
        }
      }
    }
  }
}

}  // namespace
}  // namespace fdo_sdk
