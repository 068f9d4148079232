// The SQLite provider, used through the SDK alone, against loops over SQLite.
#include <Fdo.h>

#include <algorithm>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "bench/cell_checksum.h"
#include "bench/job_table.h"
#include "bench/provider_rows.h"
#include "bench/raw_sqlite.h"
#include "bench/sqlite_store.h"

namespace fdo::bench {
namespace {

// Looks up features of random identities. The transaction, if there is one, is kept as long as the side.
Sides LookUps(Workbench const& bench, std::string_view data, bool held) {
  std::filesystem::path const file = SqliteFile(bench, data);
  FdoPtr<FdoIConnection> connection = OpenProvider(file);
  FdoPtr<FdoISelect> select = SelectOf(connection, AllProperties());
  FdoPtr<FdoIdentifier> id = FdoIdentifier::Create(L"id");
  FdoPtr<FdoComparisonCondition> condition =
      FdoComparisonCondition::Create(id, FdoComparisonOperations_EqualTo, nullptr);
  select->SetFilter(condition);
  FdoPtr<FdoITransaction> transaction = held ? connection->BeginTransaction() : nullptr;
  auto const raw = std::make_shared<RawSqlite>(file);
  if (held) raw->Hold();
  constexpr std::size_t kLookUps = 20'000;
  auto const ids = std::make_shared<std::vector<std::int64_t>>(kLookUps);
  std::mt19937_64 random(bench.seed);
  for (std::int64_t& wanted : *ids) {
    wanted = 1 + static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(bench.rows));
  }
  Side const ours = [select, condition, transaction, ids]() mutable {
    return Translated([&] {
      Work work;
      for (std::int64_t const wanted : *ids) {
        FdoPtr<FdoInt64Value> value = FdoInt64Value::Create(static_cast<FdoInt64>(wanted));
        condition->SetRightExpression(value);
        FdoPtr<FdoIFeatureReader> reader = select->Execute();
        if (reader->ReadNext()) work.checksum += OfFeature(reader);
        ++work.amount;
      }
      return work;
    });
  };
  return {ours, [raw, ids] { return raw->LookUp(*ids); }};
}

}  // namespace

Sides SqliteScanJob(Workbench const& bench, std::string_view data) {
  std::filesystem::path const file = SqliteFile(bench, data);
  FdoPtr<FdoIConnection> connection = OpenProvider(file);
  FdoPtr<FdoISelect> select = SelectOf(connection, AllProperties());
  auto const raw = std::make_shared<RawSqlite>(file);
  return {[select]() mutable { return ReadAll(select.p, OfFeature); }, [raw] { return raw->ReadAll(""); }};
}

Sides SqliteOneColumnJob(Workbench const& bench, std::string_view data) {
  std::filesystem::path const file = SqliteFile(bench, data);
  FdoPtr<FdoIConnection> connection = OpenProvider(file);
  FdoPtr<FdoISelect> select = SelectOf(connection, {L"narrow"});
  auto const raw = std::make_shared<RawSqlite>(file);
  auto const ofNarrow = [](FdoIFeatureReader* reader) {
    return reader->IsNull(FdoInt32{0}) ? 0 : OfInteger(reader->GetInt32(FdoInt32{0}));
  };
  return {[select, ofNarrow]() mutable { return ReadAll(select.p, ofNarrow); },
          [raw] { return raw->ReadNarrow(); }};
}

Sides SqliteByIdJob(Workbench const& bench, std::string_view data) { return LookUps(bench, data, false); }

Sides SqliteByIdHeldJob(Workbench const& bench, std::string_view data) { return LookUps(bench, data, true); }

Sides SqliteInsertJob(Workbench const& bench, std::string_view data) {
  Shape const shape = ShapeOf(data);
  auto const rows = std::make_shared<std::vector<KeptRow> const>(
      KeepRows(bench.seed, shape, std::max<std::int64_t>(bench.rows / 10, 1)));
  std::filesystem::path const directory = bench.dataDirectory / "written";
  std::filesystem::create_directories(directory);
  std::filesystem::path const ourFile = directory / "provider.sqlite";
  std::filesystem::path const rawFile = directory / "raw-for-provider.sqlite";
  SqliteStore::Create(ourFile);
  SqliteStore::Create(rawFile);
  FdoPtr<FdoIConnection> connection = OpenProvider(ourFile);
  auto const raw = std::make_shared<RawSqlite>(rawFile);
  auto const ours = [connection, rows, shape]() mutable {
    return Translated([&] {
      InsertRows(connection, *rows, shape, SqliteStore::kBatch);
      return Work{static_cast<double>(rows->size()), 0};
    });
  };
  return {ours, [raw, rows, shape] { return raw->Insert(*rows, shape, SqliteStore::kBatch); }};
}

}  // namespace fdo::bench
