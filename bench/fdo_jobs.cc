// Tables of a SQLite store through the library, against loops over SQLite and GDAL.
#include <Fdo.h>
#include <fdo/db_pool.h>
#include <fdo/scroller.h>

#include <algorithm>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "bench/cell_checksum.h"
#include "bench/job_table.h"
#include "bench/layer_scan.h"
#include "bench/raw_sqlite.h"
#include "bench/sqlite_store.h"
#include "bench/table_scan.h"
#include "bench/vector_files.h"

namespace fdo::bench {
namespace {

// Both sides on one file.
struct Stores {
  std::shared_ptr<SqliteStore> ours;
  std::shared_ptr<RawSqlite> raw;
};

Stores OpenStores(Workbench const& bench, std::string_view data) {
  std::filesystem::path const file = SqliteFile(bench, data);
  return {std::make_shared<SqliteStore>(file), std::make_shared<RawSqlite>(file)};
}

std::vector<std::int64_t> Ids(Workbench const& bench) {
  constexpr std::size_t kLookUps = 20'000;
  std::mt19937_64 random(bench.seed);
  std::vector<std::int64_t> ids(kLookUps);
  for (std::int64_t& id : ids) {
    id = 1 + static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(bench.rows));
  }
  return ids;
}

// Of 200 million possible numbers those above 80: a tenth of the rows.
constexpr wchar_t kFilter[] = L"narrow > 79999999";
constexpr char kCondition[] = "narrow > 79999999";

// A tenth of the rows, as writing is slower than reading.
std::vector<KeptRow> KeptRows(Workbench const& bench, Shape shape) {
  return KeepRows(bench.seed, shape, std::max<std::int64_t>(bench.rows / 10, 1));
}

std::filesystem::path WrittenFile(Workbench const& bench, char const* name) {
  std::filesystem::path const directory = bench.dataDirectory / "written";
  std::filesystem::create_directories(directory);
  return directory / name;
}

Work Written(std::vector<KeptRow> const& rows) { return {static_cast<double>(rows.size()), 0}; }

}  // namespace

Sides FdoScanJob(Workbench const& bench, std::string_view data) {
  Stores const stores = OpenStores(bench, data);
  return {[=] { return ScanTable(stores.ours->Rows()); }, [=] { return stores.raw->ReadAll(""); }};
}

Sides FdoScanVsOgrJob(Workbench const& bench, std::string_view data) {
  auto const ours = std::make_shared<SqliteStore>(SqliteFile(bench, data));
  auto const layer = std::make_shared<LayerScan>(VectorFile(bench, "gpkg " + std::string(data)));
  return {[=] { return ScanTable(ours->Rows()); }, [=] { return layer->ReadAll(); }};
}

Sides FdoLazyJob(Workbench const& bench, std::string_view data) {
  Stores const stores = OpenStores(bench, data);
  auto const ours = [=] {
    Table& table = stores.ours->Rows();
    int const narrow = table.Def()->IndexOf(L"narrow");
    int const word = table.Def()->IndexOf(L"word");
    Work work;
    table.Query();
    while (Row const* const row = table.Next()) {
      work.checksum += OfInteger(static_cast<__int64>((*row)[narrow]));
      work.checksum += OfCharacter(static_cast<std::uint32_t>(static_cast<wchar_t const*>((*row)[word])[0]));
      ++work.amount;
    }
    return work;
  };
  return {ours, [=] { return stores.raw->ReadAllSumTwo(); }};
}

Sides FdoFilterJob(Workbench const& bench, std::string_view data) {
  Stores const stores = OpenStores(bench, data);
  auto const ours = [=] {
    FdoPtr<FdoFilter> const filter = FdoFilter::Parse(kFilter);
    stores.ours->Rows().Query(filter, nullptr, true);
    return ScanRest(stores.ours->Rows());
  };
  return {ours, [=] { return stores.raw->ReadAll(kCondition); }};
}

Sides FdoByIdJob(Workbench const& bench, std::string_view data) {
  Stores const stores = OpenStores(bench, data);
  auto const ids = std::make_shared<std::vector<std::int64_t> const>(Ids(bench));
  auto const ours = [=] {
    RowChecksum const checksum(*stores.ours->Rows().Def());
    Work work;
    for (std::int64_t const id : *ids) {
      Row const* const row = stores.ours->Rows().Query(id);
      if (row == nullptr) throw std::runtime_error("a row is missing");
      work.checksum += checksum.Of(*row);
      ++work.amount;
    }
    stores.ours->Rows().EndQuery();
    return work;
  };
  return {ours, [=] { return stores.raw->LookUp(*ids); }};
}

Sides ScrollerJob(Workbench const& bench, std::string_view data) {
  std::filesystem::path const file = SqliteFile(bench, data);
  auto const raw = std::make_shared<RawSqlite>(file);
  auto const connection = std::make_shared<DbHandle>(DbPool::GetConnection(file.wstring().c_str()));
  if (!*connection || (*connection)->Count() == 0) throw std::runtime_error("the pool opens no table");
  Table& table = (**connection)[0];
  table.Query();
  auto const scroller = std::make_shared<Scroller>(*connection, &table);
  auto const checksum = std::make_shared<RowChecksum const>(*table.Def());
  auto const ids = std::make_shared<std::vector<std::int64_t> const>(Ids(bench));
  // The columns that the checksum was made for are the connection's.
  auto const ours = [=, keep = connection] {
    Work work;
    for (std::int64_t const id : *ids) {
      // Identities are counted from 1, positions from 0.
      Row const* const row = scroller->At(static_cast<std::uint64_t>(id) - 1);
      if (row == nullptr) throw std::runtime_error("a row is missing");
      work.checksum += checksum->Of(*row);
      ++work.amount;
    }
    return work;
  };
  return {ours, [=] { return raw->LookUp(*ids); }};
}

// Both sides append to files of their own, whose making and closing is not measured.
Sides FdoInsertJob(Workbench const& bench, std::string_view data) {
  Shape const shape = ShapeOf(data);
  auto const rows = std::make_shared<std::vector<KeptRow> const>(KeptRows(bench, shape));
  auto const ours = std::make_shared<SqliteStore>(SqliteStore::Create(WrittenFile(bench, "ours.sqlite")));
  std::filesystem::path const rawFile = WrittenFile(bench, "raw.sqlite");
  SqliteStore::Create(rawFile);
  auto const raw = std::make_shared<RawSqlite>(rawFile);
  return {[=] {
            ours->Insert(*rows, shape);
            return Written(*rows);
          },
          [=] { return raw->Insert(*rows, shape, SqliteStore::kBatch); }};
}

// "points" and "polygons", or "synced points" and "synced polygons".
Sides FdoInsertVsOgrJob(Workbench const& bench, std::string_view data) {
  constexpr std::string_view kSynced = "synced ";
  bool const isSynced = data.substr(0, kSynced.size()) == kSynced;
  std::string_view const rowsName = isSynced ? data.substr(kSynced.size()) : data;
  std::string const peer = (isSynced ? "synced gpkg " : "gpkg ") + std::string(rowsName);
  Shape const shape = ShapeOf(rowsName);
  auto const rows = std::make_shared<std::vector<KeptRow> const>(KeptRows(bench, shape));
  auto const ours = std::make_shared<SqliteStore>(SqliteStore::Create(WrittenFile(bench, "ours.sqlite")));
  auto const gpkg = std::make_shared<NewVectorFile>(WrittenFile(bench, "peer.gpkg"), peer);
  return {[=] {
            ours->Insert(*rows, shape);
            return Written(*rows);
          },
          [=] {
            gpkg->Append(*rows, SqliteStore::kBatch);
            return Written(*rows);
          }};
}

}  // namespace fdo::bench
