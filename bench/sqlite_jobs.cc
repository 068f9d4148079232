// The SQLite provider, used through the SDK alone, against loops over SQLite.
#include <Fdo.h>

#include <algorithm>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/cell_checksum.h"
#include "bench/job_table.h"
#include "bench/raw_sqlite.h"
#include "bench/sqlite_store.h"

namespace fdo::bench {
namespace {

// The properties in the order in which OfFeature reads them.
constexpr FdoString* kProperties[] = {L"id",   L"wide",   L"narrow", L"number",
                                      L"word", L"moment", L"flag",   L"shape"};

// The sides of jobs throw heirs of std::exception, the interface throws pointers.
template <class Body>
Work Translated(Body body) {
  try {
    return body();
  } catch (FdoException* raised) {
    FdoPtr<FdoException> failure(raised);
    FdoStringP const message(failure->GetExceptionMessage());
    throw std::runtime_error(static_cast<char const*>(message));
  }
}

FdoPtr<FdoIConnection> OpenProvider(std::filesystem::path const& path) {
  FdoPtr<IConnectionManager> manager = FdoFeatureAccessManager::GetConnectionManager();
  FdoPtr<FdoIConnection> connection = manager->CreateConnection(L"SQLiteProvider");
  connection->SetConnectionString((L"File=\"" + path.wstring() + L"\";UseFdoMetadata=TRUE").c_str());
  connection->Open();
  return connection;
}

FdoPtr<FdoISelect> SelectOf(FdoIConnection* connection, std::vector<FdoString*> const& properties) {
  FdoPtr<FdoISelect> select = static_cast<FdoISelect*>(connection->CreateCommand(FdoCommandType_Select));
  select->SetFeatureClassName(L"rows");
  FdoPtr<FdoIdentifierCollection> names = select->GetPropertyNames();
  for (FdoString* property : properties) {
    FdoPtr<FdoIdentifier> name = FdoIdentifier::Create(property);
    names->Add(name);
  }
  return select;
}

std::vector<FdoString*> AllProperties() { return {std::begin(kProperties), std::end(kProperties)}; }

// Every column of the row that the reader stands on, each asked first whether it is null.
std::uint64_t OfFeature(FdoIFeatureReader* reader) {
  std::uint64_t sum = 0;
  if (!reader->IsNull(FdoInt32{0})) sum += OfInteger(reader->GetInt64(FdoInt32{0}));
  if (!reader->IsNull(1)) sum += OfInteger(reader->GetInt64(1));
  if (!reader->IsNull(2)) sum += OfInteger(reader->GetInt32(2));
  if (!reader->IsNull(3)) sum += OfReal(reader->GetDouble(3));
  if (!reader->IsNull(4)) sum += OfCharacter(static_cast<std::uint32_t>(reader->GetString(4)[0]));
  if (!reader->IsNull(5)) sum += OfYearDigit(reader->GetDateTime(5).year % 10);
  if (!reader->IsNull(6)) sum += OfInteger(reader->GetBoolean(6) ? 1 : 0);
  if (!reader->IsNull(7)) {
    FdoInt32 size = 0;
    FdoByte const* const fgf = reader->GetGeometry(7, &size);
    sum += OfGeometry(fgf, static_cast<std::size_t>(size));
  }
  return sum;
}

template <class OfOne>
Work ReadAll(FdoISelect* select, OfOne ofOne) {
  return Translated([&] {
    Work work;
    FdoPtr<FdoIFeatureReader> reader = select->Execute();
    while (reader->ReadNext()) {
      work.checksum += ofOne(reader.p);
      ++work.amount;
    }
    return work;
  });
}

// Values of one feature, which are changed from row to row; the command is held until the batch is full.
class HeldInsert {
 public:
  HeldInsert(FdoIConnection* connection, Shape shape) : shape_(shape) {
    command_ = static_cast<FdoIInsert*>(connection->CreateCommand(FdoCommandType_Insert));
    command_->SetFeatureClassName(L"rows");
    FdoPtr<FdoPropertyValueCollection> values = command_->GetPropertyValues();
    FdoValueExpression* const all[] = {wide_, narrow_, number_, word_, moment_, flag_, geometry_};
    for (std::size_t i = 0; i < std::size(all); ++i) {
      FdoPtr<FdoPropertyValue> value = FdoPropertyValue::Create(kProperties[i + 1], all[i]);
      values->Add(value);
    }
  }

  void Add(KeptRow const& kept) {
    SeededRow const& row = kept.row;
    wide_->SetInt64(row.wide);
    narrow_->SetInt32(row.narrow);
    number_->SetDouble(row.real);
    word_->SetString(kept.word.c_str());
    moment_->SetDateTime(FdoDateTime(static_cast<FdoInt16>(row.year), static_cast<FdoInt8>(row.month),
                                     static_cast<FdoInt8>(row.day), static_cast<FdoInt8>(row.hour),
                                     static_cast<FdoInt8>(row.minute), static_cast<float>(row.second)));
    flag_->SetBoolean(row.flag);
    bytes_.clear();
    AppendFgf(row, shape_, bytes_);
    FdoPtr<FdoByteArray> array = FdoByteArray::Create(bytes_.data(), static_cast<FdoInt32>(bytes_.size()));
    geometry_->SetGeometry(array);
    FdoPtr<FdoIFeatureReader> inserted = command_->Execute();
  }

 private:
  Shape shape_;
  FdoPtr<FdoIInsert> command_;
  FdoPtr<FdoInt64Value> wide_ = FdoInt64Value::Create();
  FdoPtr<FdoInt32Value> narrow_ = FdoInt32Value::Create();
  FdoPtr<FdoDoubleValue> number_ = FdoDoubleValue::Create();
  FdoPtr<FdoStringValue> word_ = FdoStringValue::Create();
  FdoPtr<FdoDateTimeValue> moment_ = FdoDateTimeValue::Create();
  FdoPtr<FdoBooleanValue> flag_ = FdoBooleanValue::Create();
  FdoPtr<FdoGeometryValue> geometry_ = FdoGeometryValue::Create();
  std::vector<unsigned char> bytes_;
};

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
      for (std::size_t begin = 0; begin < rows->size(); begin += SqliteStore::kBatch) {
        HeldInsert insert(connection, shape);
        std::size_t const end = std::min(rows->size(), begin + SqliteStore::kBatch);
        for (std::size_t i = begin; i < end; ++i) insert.Add((*rows)[i]);
      }
      return Work{static_cast<double>(rows->size()), 0};
    });
  };
  return {ours, [raw, rows, shape] { return raw->Insert(*rows, shape, SqliteStore::kBatch); }};
}

}  // namespace fdo::bench
