#include "bench/sqlite_store.h"

#include <fdo/diagnostics.h>
#include <fdo/text_conversion.h>

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace fdo::bench {
namespace {

struct ColumnShape {
  wchar_t const* name;
  ColumnDef::DataType type;
};

constexpr ColumnShape kColumns[] = {
    {L"id", ColumnDef::kInt64},      {L"wide", ColumnDef::kInt64},     {L"narrow", ColumnDef::kInt32},
    {L"number", ColumnDef::kDouble}, {L"word", ColumnDef::kString},    {L"moment", ColumnDef::kDateTime},
    {L"flag", ColumnDef::kBoolean},  {L"shape", ColumnDef::kGeometry},
};
constexpr int kColumnCount = static_cast<int>(std::size(kColumns));
constexpr int kGeometryColumn = kColumnCount - 1;

// Keeps the diagnostic lines of a stretch for the message of a failure. Without a registry of providers
// there is one whenever a store is opened.
class KeptDiagnostics {
 public:
  KeptDiagnostics() { SetDiagnosticHandler(&KeptDiagnostics::Keep, this); }
  ~KeptDiagnostics() { SetDiagnosticHandler(nullptr, nullptr); }
  KeptDiagnostics(KeptDiagnostics const&) = delete;
  KeptDiagnostics& operator=(KeptDiagnostics const&) = delete;

  void Done(bool done, char const* what) const {
    if (!done) throw std::runtime_error(std::string("the library cannot ") + what + lines_);
  }

 private:
  static void Keep(wchar_t const* line, void* context) {
    static_cast<KeptDiagnostics*>(context)->lines_ += "; " + ToUtf8(line);
  }

  std::string lines_;
};

void DefineRows(DatabaseDef& def) {
  ColumnDef columns[kColumnCount];
  for (int i = 0; i < kColumnCount; ++i) {
    bool const isGeometry = i == kGeometryColumn;
    constexpr int kPointsAndSurfaces = 5;
    columns[i].Initialize(kColumns[i].name, kColumns[i].type, isGeometry ? kPointsAndSurfaces : 0, Value(),
                          nullptr);
  }
  auto* const tables = new TableDef[1];
  tables[0].Initialize(L"Default", L"rows", columns, kColumnCount, 0, kGeometryColumn, 0);
  def.Initialize(L"Default", tables, 1);
}

}  // namespace

SqliteStore::SqliteStore(std::filesystem::path const& path) { Open(path); }

void SqliteStore::Open(std::filesystem::path const& path) {
  KeptDiagnostics const diagnostics;
  database_ = std::make_unique<DatabaseFdo>();
  diagnostics.Done(database_->Connect(path.wstring().c_str(), nullptr, nullptr, false, true),
                   "open the file");
}

SqliteStore SqliteStore::Create(std::filesystem::path const& path) {
  std::filesystem::remove(path);
  {
    KeptDiagnostics const diagnostics;
    diagnostics.Done(DatabaseFdo::Create(path.wstring().c_str(), nullptr), "make the file");
  }
  SqliteStore store;
  store.Open(path);
  DatabaseDef def;
  DefineRows(def);
  KeptDiagnostics const diagnostics;
  diagnostics.Done(store.database_->SetSchema(def), "make the table");
  return store;
}

void SqliteStore::Insert(std::span<KeptRow const> rows, Shape shape) {
  Table& table = Rows();
  TableDef const& def = *table.Def();
  int columns[kColumnCount];
  for (int i = 0; i < kColumnCount; ++i) columns[i] = def.IndexOf(kColumns[i].name);
  Row row(&def);
  std::vector<unsigned char> fgf;
  for (std::size_t begin = 0; begin < rows.size(); begin += kBatch) {
    table.BeginWrite();
    for (KeptRow const& kept : rows.subspan(begin, std::min(kBatch, rows.size() - begin))) {
      fgf.clear();
      AppendFgf(kept.row, shape, fgf);
      row[columns[1]].Reset(static_cast<long long>(kept.row.wide));
      row[columns[2]].Reset(kept.row.narrow);
      row[columns[3]].Reset(kept.row.real);
      row[columns[4]].Reset(kept.word.c_str(), /*copy=*/false);
      row[columns[5]].Reset(kept.moment.c_str(), /*copy=*/false);
      row[columns[6]].Reset(kept.row.flag);
      row[columns[7]].Reset(fgf.data(), static_cast<int>(fgf.size()), /*copy=*/false);
      if (!table.Insert(row, nullptr, /*storeMakesId=*/true))
        throw std::runtime_error("a row is not inserted");
    }
    table.CommitWrite();
  }
}

Shape ShapeOf(std::string_view data) {
  if (data == "points") return Shape::kPoint;
  if (data == "polygons") return Shape::kPolygon;
  throw std::invalid_argument("no rows \"" + std::string(data) + "\"");
}

std::filesystem::path SqliteFile(Workbench const& bench, std::string_view data) {
  Shape const shape = ShapeOf(data);
  std::string const name =
      "sqlite-" + std::string(data) + "-" + std::to_string(bench.rows) + "-" + std::to_string(bench.seed);
  std::filesystem::path const file = bench.dataDirectory / (name + ".sqlite");
  if (!std::filesystem::exists(file)) {
    // It gets its name last, when it is whole.
    std::filesystem::create_directories(bench.dataDirectory);
    std::filesystem::path const partial = bench.dataDirectory / (name + ".partial.sqlite");
    SqliteStore::Create(partial).Insert(KeepRows(bench.seed, shape, bench.rows), shape);
    std::filesystem::rename(partial, file);
  }
  return file;
}

}  // namespace fdo::bench
