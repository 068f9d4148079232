// The bundled SDK's geometries against GEOS, which holds ready geometries of its own.
#include <FdoSpatial.h>
#include <geos_c.h>

#include <cmath>
#include <cstring>
#include <memory>
#include <numbers>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/geometry_streams.h"
#include "bench/job_table.h"

namespace fdo::bench {
namespace {

class Geos {
 public:
  Geos() : handle_(GEOS_init_r()), reader_(GEOSWKBReader_create_r(handle_)) {}
  ~Geos() {
    for (GEOSGeometry* geometry : kept_) GEOSGeom_destroy_r(handle_, geometry);
    GEOSWKBReader_destroy_r(handle_, reader_);
    GEOS_finish_r(handle_);
  }
  Geos(Geos const&) = delete;
  Geos& operator=(Geos const&) = delete;

  GEOSContextHandle_t Handle() const { return handle_; }
  GEOSWKBReader* Reader() const { return reader_; }

  GEOSGeometry const* Keep(GEOSGeometry* geometry) {
    if (geometry == nullptr) throw std::runtime_error("GEOS refused a geometry");
    kept_.push_back(geometry);
    return geometry;
  }

 private:
  GEOSContextHandle_t handle_;
  GEOSWKBReader* reader_;
  std::vector<GEOSGeometry*> kept_;
};

std::uint64_t BoxChecksum(double minX, double minY, double maxX, double maxY) {
  double const box[] = {minX, minY, maxX, maxY};
  std::uint64_t bits[4];
  std::memcpy(bits, box, sizeof(bits));
  return bits[0] + 3 * bits[1] + 5 * bits[2] + 7 * bits[3];
}

// measure(at) measures one geometry and returns the checksum of its box.
template <class Measure>
Work MeasureAll(GeometryStreams const& streams, Measure measure) {
  Work work;
  for (int pass = 0; pass < streams.passes; ++pass) {
    for (std::size_t at = 0; at < streams.bytes.size(); at += streams.lengthEach) {
      work.checksum += measure(streams.bytes.data() + at);
      work.amount += 1;
    }
  }
  return work;
}

// The same geometries, in the same order and as often.
GeometryStreams ToWkb(GeometryStreams const& fgf) {
  FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
  GeometryStreams wkb{{}, 0, fgf.passes};
  for (std::size_t at = 0; at < fgf.bytes.size(); at += fgf.lengthEach) {
    FdoPtr<FdoIGeometry> geometry =
        factory->CreateGeometryFromFgf(fgf.bytes.data() + at, static_cast<FdoInt32>(fgf.lengthEach));
    FdoPtr<FdoByteArray> bytes = factory->GetWkb(geometry);
    wkb.bytes.insert(wkb.bytes.end(), bytes->GetData(), bytes->GetData() + bytes->GetCount());
    wkb.lengthEach = static_cast<std::size_t>(bytes->GetCount());
  }
  return wkb;
}

// A polygon and points around it, the same for both sides.
struct Points {
  std::vector<double> ordinates;
  std::vector<double> polygon;  // closed
};

Points MakePoints(Workbench const& bench) {
  constexpr int kVertices = 1000;
  std::mt19937_64 random(bench.seed);
  std::uniform_real_distribution<double> reach(70, 100);
  std::uniform_real_distribution<double> place(-100, 100);
  Points points;
  for (int i = 0; i < kVertices; ++i) {
    double const angle = 2 * std::numbers::pi * i / kVertices;
    double const distance = reach(random);
    points.polygon.push_back(distance * std::cos(angle));
    points.polygon.push_back(distance * std::sin(angle));
  }
  points.polygon.push_back(points.polygon[0]);
  points.polygon.push_back(points.polygon[1]);
  for (std::int64_t i = 0; i < bench.rows / 50 + 1; ++i) {
    points.ordinates.push_back(place(random));
    points.ordinates.push_back(place(random));
  }
  return points;
}

struct ReadyPoints {
  FdoPtr<FdoIGeometry> polygon;
  std::vector<FdoPtr<FdoIGeometry>> points;
};

std::shared_ptr<ReadyPoints const> ReadyOfSdk(Points& from) {
  auto ready = std::make_shared<ReadyPoints>();
  FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
  FdoPtr<FdoILinearRing> ring = factory->CreateLinearRing(
      FdoDimensionality_XY, static_cast<FdoInt32>(from.polygon.size()), from.polygon.data());
  ready->polygon = factory->CreatePolygon(ring, nullptr);
  for (std::size_t i = 0; i < from.ordinates.size(); i += 2) {
    ready->points.push_back(
        FdoPtr<FdoIGeometry>(factory->CreatePoint(FdoDimensionality_XY, from.ordinates.data() + i)));
  }
  return ready;
}

struct ReadyGeosPoints {
  Geos geos;
  GEOSGeometry const* polygon;
  std::vector<GEOSGeometry const*> points;
};

std::shared_ptr<ReadyGeosPoints const> ReadyOfGeos(Points const& from) {
  auto ready = std::make_shared<ReadyGeosPoints>();
  GEOSContextHandle_t const handle = ready->geos.Handle();
  GEOSCoordSequence* const ring = GEOSCoordSeq_copyFromBuffer_r(
      handle, from.polygon.data(), static_cast<unsigned>(from.polygon.size() / 2), 0, 0);
  ready->polygon = ready->geos.Keep(
      GEOSGeom_createPolygon_r(handle, GEOSGeom_createLinearRing_r(handle, ring), nullptr, 0));
  for (std::size_t i = 0; i < from.ordinates.size(); i += 2) {
    ready->points.push_back(
        ready->geos.Keep(GEOSGeom_createPointFromXY_r(handle, from.ordinates[i], from.ordinates[i + 1])));
  }
  return ready;
}

}  // namespace

Sides GeometryFromFgfJob(Workbench const& bench, std::string_view data) {
  auto const fgf = std::make_shared<GeometryStreams const>(MakeGeometryStreams(bench, data, Encoding::kFgf));
  auto const wkb = std::make_shared<GeometryStreams const>(ToWkb(*fgf));
  auto const geos = std::make_shared<Geos>();
  return {
      [fgf] {
        FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
        auto const size = static_cast<FdoInt32>(fgf->lengthEach);
        return MeasureAll(*fgf, [&](unsigned char const* at) {
          FdoPtr<FdoIGeometry> geometry = factory->CreateGeometryFromFgf(at, size);
          FdoPtr<FdoIEnvelope> box = geometry->GetEnvelope();
          // All at once, as the peer's call gives them: minX, minY, minZ, maxX, maxY, maxZ.
          double const* const extent = box->GetOrdinates();
          return BoxChecksum(extent[0], extent[1], extent[3], extent[4]);
        });
      },
      [wkb, geos] {
        return MeasureAll(*wkb, [&](unsigned char const* at) {
          GEOSGeometry* const geometry =
              GEOSWKBReader_read_r(geos->Handle(), geos->Reader(), at, wkb->lengthEach);
          double box[4] = {};
          GEOSGeom_getExtent_r(geos->Handle(), geometry, &box[0], &box[1], &box[2], &box[3]);
          GEOSGeom_destroy_r(geos->Handle(), geometry);
          return BoxChecksum(box[0], box[1], box[2], box[3]);
        });
      },
  };
}

Sides SpatialEvaluateJob(Workbench const& bench, std::string_view data) {
  if (data != "points in one polygon")
    throw std::invalid_argument("no geometries \"" + std::string(data) + "\"");
  Points points = MakePoints(bench);
  std::shared_ptr<ReadyPoints const> const ours = ReadyOfSdk(points);
  std::shared_ptr<ReadyGeosPoints const> const peer = ReadyOfGeos(points);
  return {
      [ours] {
        Work work{static_cast<double>(ours->points.size()), 0};
        for (auto const& point : ours->points) {
          work.checksum += FdoSpatialUtility::Evaluate(point.p, FdoSpatialOperations_Within, ours->polygon.p);
        }
        return work;
      },
      [peer] {
        Work work{static_cast<double>(peer->points.size()), 0};
        for (GEOSGeometry const* point : peer->points) {
          work.checksum += GEOSWithin_r(peer->geos.Handle(), point, peer->polygon) == 1;
        }
        return work;
      },
  };
}

}  // namespace fdo::bench
