#include "bench/provider_rows.h"

#include <algorithm>

#include "bench/cell_checksum.h"

namespace fdo::bench {
namespace {

constexpr FdoString* kProperties[] = {L"id",   L"wide",   L"narrow", L"number",
                                      L"word", L"moment", L"flag",   L"shape"};

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

}  // namespace

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

void InsertRows(FdoIConnection* connection, std::span<KeptRow const> rows, Shape shape, std::size_t batch) {
  for (std::size_t begin = 0; begin < rows.size(); begin += batch) {
    HeldInsert insert(connection, shape);
    std::size_t const end = std::min(rows.size(), begin + batch);
    for (std::size_t i = begin; i < end; ++i) insert.Add(rows[i]);
  }
}

}  // namespace fdo::bench
