// ExprEval over prepared rows against a loop by hand, SQLite and OGR, all with the same filter.
#include <Fdo.h>
#include <fdo/expr_eval.h>
#include <fdo/text_conversion.h>
#include <sqlite3.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

#include "bench/eval_rows.h"
#include "bench/gdal_c_interface.h"
#include "bench/job_table.h"

namespace fdo::bench {
namespace {

// As many rows as a cache of 512 KiB holds, so that evaluation is measured and not memory.
constexpr std::int64_t kRowsInCache = 4000;

// Those rows, and the meaning that filters have on every back end.
constexpr std::string_view kAsInSql = "in cache, as in SQL";

struct Extent {
  std::int64_t rows;
  int passes;
};

Extent ExtentOf(Workbench const& bench, std::string_view data) {
  if (data == "rows out of cache") return {bench.rows, 1};
  if (data != "rows in cache" && data != kAsInSql)
    throw std::invalid_argument("no rows \"" + std::string(data) + "\"");
  std::int64_t const rows = std::min(kRowsInCache, bench.rows);
  return {rows, static_cast<int>(bench.rows / rows)};
}

struct PreparedRows {
  TableDef def;
  std::vector<Row> rows;
  std::unique_ptr<ExprEval> eval;
};

std::shared_ptr<PreparedRows> Prepare(std::vector<EvalRow> const& from, ExprOptions const& options) {
  auto prepared = std::make_shared<PreparedRows>();
  constexpr struct {
    wchar_t const* name;
    ColumnDef::DataType type;
  } kColumns[] = {{L"id", ColumnDef::kInt64},
                  {L"narrow", ColumnDef::kInt32},
                  {L"number", ColumnDef::kDouble},
                  {L"kind", ColumnDef::kString}};
  ColumnDef columns[4];
  for (int i = 0; i < 4; ++i) columns[i].Initialize(kColumns[i].name, kColumns[i].type, 0, Value(), nullptr);
  prepared->def.Initialize(L"rows", L"", columns, 4, 0, -1, 0);
  prepared->rows.reserve(from.size());
  for (EvalRow const& row : from) {
    Row& made = prepared->rows.emplace_back(&prepared->def);
    made[0].Reset(row.id);
    made[1].Reset(row.narrow);
    made[2].Reset(row.number);
    made[3].Reset(ToWide(row.kind).c_str(), /*copy=*/true);
  }
  FdoPtr<FdoFilter> const filter = FdoFilter::Parse(kEvalFilter);
  prepared->eval = std::make_unique<ExprEval>(filter, &prepared->def, nullptr, options);
  return prepared;
}

Side EvalSide(std::vector<EvalRow> const& rows, int passes, ExprOptions const& options = {}) {
  std::shared_ptr<PreparedRows> const prepared = Prepare(rows, options);
  return [prepared, passes] {
    Work work{static_cast<double>(prepared->rows.size()) * passes, 0};
    ExprEval& eval = *prepared->eval;
    for (int pass = 0; pass < passes; ++pass) {
      for (Row const& row : prepared->rows) work.checksum += eval.Eval(&row, nullptr) ? 1 : 0;
    }
    return work;
  };
}

using Cell = std::variant<std::monostate, std::int64_t, double, std::wstring>;

// What one writes for the one filter: each cell is looked at for its type.
bool HoldsByHand(std::vector<Cell> const& row) {
  auto const* const narrow = std::get_if<std::int64_t>(&row[1]);
  if (narrow == nullptr || *narrow <= kEvalNarrow) return false;
  auto const* const number = std::get_if<double>(&row[2]);
  if (number == nullptr || *number * kEvalFactor > kEvalNumber) return false;
  auto const* const kind = std::get_if<std::wstring>(&row[3]);
  return kind != nullptr && *kind != kEvalKind;
}

struct SqliteClose {
  void operator()(sqlite3* database) const { sqlite3_close(database); }
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

struct SqliteTable {
  std::unique_ptr<sqlite3, SqliteClose> database;
  std::unique_ptr<sqlite3_stmt, SqliteClose> count;
  double rows;
};

std::unique_ptr<sqlite3_stmt, SqliteClose> Prepared(sqlite3* database, std::string const& sql) {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(database, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) {
    throw std::runtime_error(std::string("SQLite refuses ") + sql + ": " + sqlite3_errmsg(database));
  }
  return std::unique_ptr<sqlite3_stmt, SqliteClose>(statement);
}

void Run(sqlite3* database, char const* sql) {
  if (sqlite3_exec(database, sql, nullptr, nullptr, nullptr) != SQLITE_OK) {
    throw std::runtime_error(std::string("SQLite refuses ") + sql + ": " + sqlite3_errmsg(database));
  }
}

std::shared_ptr<SqliteTable> MakeSqliteTable(std::vector<EvalRow> const& rows) {
  auto table = std::make_shared<SqliteTable>();
  sqlite3* database = nullptr;
  sqlite3_open(":memory:", &database);
  table->database.reset(database);
  Run(database, "CREATE TABLE t (id INTEGER PRIMARY KEY, narrow INTEGER, number REAL, kind TEXT); BEGIN");
  auto const insert = Prepared(database, "INSERT INTO t VALUES (?, ?, ?, ?)");
  for (EvalRow const& row : rows) {
    sqlite3_bind_int64(insert.get(), 1, row.id);
    sqlite3_bind_int64(insert.get(), 2, row.narrow);
    sqlite3_bind_double(insert.get(), 3, row.number);
    sqlite3_bind_text(insert.get(), 4, row.kind, -1, SQLITE_STATIC);
    if (sqlite3_step(insert.get()) != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(database));
    sqlite3_reset(insert.get());
  }
  Run(database, "COMMIT");
  table->count = Prepared(database, "SELECT count(*) FROM t WHERE " + ToUtf8(kEvalFilter));
  table->rows = static_cast<double>(rows.size());
  return table;
}

struct MemoryLayer {
  GdalDataset dataset;
  OGRLayerH layer;
  double rows;
};

std::shared_ptr<MemoryLayer> MakeMemoryLayer(std::vector<EvalRow> const& rows) {
  GDALAllRegister();
  auto made = std::make_shared<MemoryLayer>();
  GDALDriverH const driver = GDALGetDriverByName("Memory");
  if (driver == nullptr) throw std::runtime_error("GDAL has no memory layers");
  made->dataset.reset(GDALCreate(driver, "rows", 0, 0, 0, 0, nullptr));
  made->layer = GDALDatasetCreateLayer(made->dataset.get(), "rows", nullptr, kWkbNone, nullptr);
  if (made->layer == nullptr) throw std::runtime_error("GDAL makes no memory layer");
  constexpr struct {
    char const* name;
    int type;
  } kFields[] = {{"narrow", kOftInteger64}, {"number", kOftReal}, {"kind", kOftString}};
  for (auto const& field : kFields) {
    OGRFieldDefnH const definition = OGR_Fld_Create(field.name, field.type);
    OGR_L_CreateField(made->layer, definition, 1);
    OGR_Fld_Destroy(definition);
  }
  for (EvalRow const& row : rows) {
    OgrFeature const feature(OGR_F_Create(OGR_L_GetLayerDefn(made->layer)));
    OGR_F_SetFieldInteger64(feature.get(), 0, row.narrow);
    OGR_F_SetFieldDouble(feature.get(), 1, row.number);
    OGR_F_SetFieldString(feature.get(), 2, row.kind);
    if (OGR_L_CreateFeature(made->layer, feature.get()) != kOgrErrNone) {
      throw std::runtime_error("GDAL does not take a row");
    }
  }
  if (OGR_L_SetAttributeFilter(made->layer, ToUtf8(kEvalFilter).c_str()) != kOgrErrNone) {
    throw std::runtime_error("GDAL does not take the filter");
  }
  made->rows = static_cast<double>(rows.size());
  return made;
}

}  // namespace

Sides EvalVariantJob(Workbench const& bench, std::string_view data) {
  Extent const extent = ExtentOf(bench, data);
  std::vector<EvalRow> const rows = MakeEvalRows(bench, extent.rows);
  auto byHand = std::make_shared<std::vector<std::vector<Cell>>>();
  for (EvalRow const& row : rows) byHand->push_back({row.id, row.narrow, row.number, ToWide(row.kind)});
  return {
      EvalSide(rows, extent.passes, data == kAsInSql ? ExprOptions::AsInSql() : ExprOptions()),
      [byHand, passes = extent.passes] {
        Work work{static_cast<double>(byHand->size()) * passes, 0};
        for (int pass = 0; pass < passes; ++pass) {
          for (std::vector<Cell> const& row : *byHand) work.checksum += HoldsByHand(row) ? 1 : 0;
        }
        return work;
      },
  };
}

Sides EvalSqliteJob(Workbench const& bench, std::string_view data) {
  Extent const extent = ExtentOf(bench, data);
  std::vector<EvalRow> const rows = MakeEvalRows(bench, extent.rows);
  std::shared_ptr<SqliteTable> const table = MakeSqliteTable(rows);
  return {
      EvalSide(rows, extent.passes),
      [table, passes = extent.passes] {
        Work work{table->rows * passes, 0};
        for (int pass = 0; pass < passes; ++pass) {
          sqlite3_step(table->count.get());
          work.checksum += static_cast<std::uint64_t>(sqlite3_column_int64(table->count.get(), 0));
          sqlite3_reset(table->count.get());
        }
        return work;
      },
  };
}

Sides EvalOgrJob(Workbench const& bench, std::string_view data) {
  Extent const extent = ExtentOf(bench, data);
  std::vector<EvalRow> const rows = MakeEvalRows(bench, extent.rows);
  std::shared_ptr<MemoryLayer> const layer = MakeMemoryLayer(rows);
  return {
      EvalSide(rows, extent.passes),
      [layer, passes = extent.passes] {
        Work work{layer->rows * passes, 0};
        for (int pass = 0; pass < passes; ++pass) {
          work.checksum += static_cast<std::uint64_t>(OGR_L_GetFeatureCount(layer->layer, /*force=*/1));
        }
        return work;
      },
  };
}

}  // namespace fdo::bench
