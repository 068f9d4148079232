// A spatial filter with one polygon over rows of points, against GEOS's prepared predicate over points that
// it has ready.
#include <Fdo.h>
#include <FdoSpatial.h>
#include <fdo/expr_eval.h>
#include <geos_c.h>

#include <cmath>
#include <memory>
#include <numbers>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/job_table.h"
#include "bench/workbench.h"

namespace fdo::bench {
namespace {

constexpr int kVertices = 100;

// X and Y of each, in turn.
struct Ordinates {
  std::vector<double> polygon;  // closed
  std::vector<double> points;
};

Ordinates MakeOrdinates(Workbench const& bench) {
  std::mt19937_64 random(bench.seed);
  std::uniform_real_distribution<double> reach(70, 100);
  std::uniform_real_distribution<double> place(-100, 100);
  Ordinates made;
  for (int i = 0; i < kVertices; ++i) {
    double const angle = 2 * std::numbers::pi * i / kVertices;
    double const distance = reach(random);
    made.polygon.push_back(distance * std::cos(angle));
    made.polygon.push_back(distance * std::sin(angle));
  }
  made.polygon.push_back(made.polygon[0]);
  made.polygon.push_back(made.polygon[1]);
  for (std::int64_t i = 0; i < 2 * bench.rows; ++i) made.points.push_back(place(random));
  return made;
}

struct PointRows {
  TableDef def;
  std::vector<Row> rows;
  std::unique_ptr<ExprEval> eval;
};

std::shared_ptr<PointRows> MakePointRows(Ordinates& from) {
  auto made = std::make_shared<PointRows>();
  ColumnDef columns[2];
  columns[0].Initialize(L"id", ColumnDef::kInt64, 0, Value(), nullptr);
  columns[1].Initialize(L"shape", ColumnDef::kGeometry, 1, Value(), nullptr);
  made->def.Initialize(L"points", L"", columns, 2, 0, 1, 0);
  FdoPtr<FdoFgfGeometryFactory> const factory = FdoFgfGeometryFactory::GetInstance();
  made->rows.reserve(from.points.size() / 2);
  for (std::size_t i = 0; i < from.points.size(); i += 2) {
    FdoPtr<FdoIPoint> const point = factory->CreatePoint(FdoDimensionality_XY, from.points.data() + i);
    FdoPtr<FdoByteArray> const fgf = factory->GetFgf(point);
    Row& row = made->rows.emplace_back(&made->def);
    row[0].Reset(static_cast<long long>(i / 2));
    row[1].Reset(fgf->GetData(), fgf->GetCount(), /*copy=*/true);
  }
  FdoPtr<FdoILinearRing> const ring = factory->CreateLinearRing(
      FdoDimensionality_XY, static_cast<FdoInt32>(from.polygon.size()), from.polygon.data());
  FdoPtr<FdoIPolygon> const polygon = factory->CreatePolygon(ring, nullptr);
  FdoPtr<FdoByteArray> const fgf = factory->GetFgf(polygon);
  FdoPtr<FdoGeometryValue> const literal = FdoGeometryValue::Create(fgf);
  FdoPtr<FdoSpatialCondition> const condition =
      FdoSpatialCondition::Create(L"shape", FdoSpatialOperations_Intersects, literal);
  made->eval = std::make_unique<ExprEval>(condition, &made->def, nullptr);
  return made;
}

class ReadyPoints {
 public:
  explicit ReadyPoints(Ordinates const& from) : handle_(GEOS_init_r()) {
    GEOSCoordSequence* const ring = GEOSCoordSeq_copyFromBuffer_r(
        handle_, from.polygon.data(), static_cast<unsigned>(from.polygon.size() / 2), 0, 0);
    polygon_ = GEOSGeom_createPolygon_r(handle_, GEOSGeom_createLinearRing_r(handle_, ring), nullptr, 0);
    prepared_ = GEOSPrepare_r(handle_, polygon_);
    for (std::size_t i = 0; i < from.points.size(); i += 2) {
      points_.push_back(GEOSGeom_createPointFromXY_r(handle_, from.points[i], from.points[i + 1]));
    }
  }
  ~ReadyPoints() {
    for (GEOSGeometry* point : points_) GEOSGeom_destroy_r(handle_, point);
    GEOSPreparedGeom_destroy_r(handle_, prepared_);
    GEOSGeom_destroy_r(handle_, polygon_);
    GEOS_finish_r(handle_);
  }
  ReadyPoints(ReadyPoints const&) = delete;
  ReadyPoints& operator=(ReadyPoints const&) = delete;

  Work Count() const {
    Work work{static_cast<double>(points_.size()), 0};
    for (GEOSGeometry const* point : points_) {
      work.checksum += GEOSPreparedIntersects_r(handle_, prepared_, point) == 1 ? 1 : 0;
    }
    return work;
  }

 private:
  GEOSContextHandle_t handle_;
  GEOSGeometry* polygon_;
  GEOSPreparedGeometry const* prepared_;
  std::vector<GEOSGeometry*> points_;
};

}  // namespace

Sides EvalSpatialJob(Workbench const& bench, std::string_view data) {
  if (data != "points in one polygon") throw std::invalid_argument("no rows \"" + std::string(data) + "\"");
  Ordinates ordinates = MakeOrdinates(bench);
  std::shared_ptr<PointRows> const rows = MakePointRows(ordinates);
  auto const ready = std::make_shared<ReadyPoints const>(ordinates);
  return {
      [rows] {
        Work work{static_cast<double>(rows->rows.size()), 0};
        for (Row const& row : rows->rows) work.checksum += rows->eval->Eval(&row, nullptr) ? 1 : 0;
        return work;
      },
      [ready] { return ready->Count(); },
  };
}

}  // namespace fdo::bench
