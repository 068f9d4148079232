// Box queries of the SQLite provider.
#include <Fdo.h>

#include <algorithm>
#include <cmath>

#include <memory>
#include <random>
#include <string>
#include <vector>

#include "bench/job_table.h"
#include "bench/provider_rows.h"
#include "bench/raw_sqlite.h"
#include "bench/sqlite_store.h"

namespace fdo::bench {
namespace {

// Where seeded rows lie.
constexpr double kWidth = 340;
constexpr double kHeight = 160;

// Boxes that each hold that part of the rows.
std::vector<Box> RandomBoxes(std::uint64_t seed, double part, int count) {
  double const side = std::sqrt(part);
  std::mt19937_64 random(seed);
  auto const place = [&](double room) {
    return std::floor((static_cast<double>(random() % 1000) / 1000 - 0.5) * room * 64) / 64;
  };
  std::vector<Box> boxes;
  for (int i = 0; i < count; ++i) {
    double const x = place(kWidth * (1 - side));
    double const y = place(kHeight * (1 - side));
    double const halfWidth = std::floor(kWidth * side * 32) / 64;
    double const halfHeight = std::floor(kHeight * side * 32) / 64;
    boxes.push_back({x - halfWidth, y - halfHeight, x + halfWidth, y + halfHeight});
  }
  return boxes;
}

FdoPtr<FdoFilter> FilterOf(Box const& box) {
  double const ordinates[] = {box.minX, box.minY, box.maxX, box.minY, box.maxX,
                              box.maxY, box.minX, box.maxY, box.minX, box.minY};
  FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
  FdoPtr<FdoILinearRing> ring = factory->CreateLinearRing(
      FdoDimensionality_XY, static_cast<FdoInt32>(std::size(ordinates)), const_cast<double*>(ordinates));
  FdoPtr<FdoIPolygon> polygon = factory->CreatePolygon(ring, nullptr);
  FdoPtr<FdoByteArray> fgf = factory->GetFgf(polygon);
  FdoPtr<FdoGeometryValue> value = FdoGeometryValue::Create(fgf);
  return FdoPtr<FdoFilter>(
      FdoSpatialCondition::Create(L"shape", FdoSpatialOperations_EnvelopeIntersects, value));
}

// The same rows, with SQLite's own R*Tree beside them.
std::filesystem::path RtreeFile(Workbench const& bench, std::string_view data) {
  std::filesystem::path const plain = SqliteFile(bench, data);
  std::filesystem::path file = plain;
  file.replace_extension(".rtree.sqlite");
  if (!std::filesystem::exists(file)) {
    std::filesystem::path const partial = file.string() + ".partial";
    std::filesystem::copy_file(plain, partial, std::filesystem::copy_options::overwrite_existing);
    RawSqlite(partial).MakeBoxTree();
    std::filesystem::rename(partial, file);
  }
  return file;
}

Sides BoxJob(Workbench const& bench, std::string_view data, double part, int count) {
  auto const boxes = std::make_shared<std::vector<Box> const>(RandomBoxes(bench.seed, part, count));
  FdoPtr<FdoIConnection> connection = OpenProvider(SqliteFile(bench, data));
  FdoPtr<FdoISelect> select = SelectOf(connection, AllProperties());
  auto const raw = std::make_shared<RawSqlite>(RtreeFile(bench, data));
  return {[=]() mutable {
            Work work;
            for (Box const& box : *boxes) {
              FdoPtr<FdoFilter> const filter = FilterOf(box);
              select->SetFilter(filter);
              Work const found = ReadAll(select.p, OfFeature);
              work.amount += found.amount;
              work.checksum += found.checksum;
            }
            return work;
          },
          [=] { return raw->ReadBoxes(*boxes); }};
}

}  // namespace

Sides SqliteBox1PctJob(Workbench const& bench, std::string_view data) {
  return BoxJob(bench, data, 0.01, 10);
}

Sides SqliteBox001PctJob(Workbench const& bench, std::string_view data) {
  return BoxJob(bench, data, 0.0001, 300);
}

}  // namespace fdo::bench
