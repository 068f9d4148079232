#include "testing/memory_provider/reader.h"

#include "sdk/providers/base/reads_by_name.h"
#include "testing/memory_provider/value_comparison.h"

namespace memory_provider {
namespace {

using fdo_provider::ReadsByName;

[[noreturn]] void Refuse(std::wstring const& what) { throw FdoCommandException::Create(what.c_str()); }

class ScrollableReader : public FeatureReaderBase<FdoIScrollableFeatureReader> {
 public:
  using FeatureReaderBase<FdoIScrollableFeatureReader>::FeatureReaderBase;

  FdoInt32 Count() override { return static_cast<FdoInt32>(cursor_.Count()); }
  FdoBoolean ReadFirst() override { return cursor_.MoveTo(0); }
  FdoBoolean ReadLast() override { return cursor_.MoveTo(cursor_.Count() - 1); }
  FdoBoolean ReadPrevious() override { return cursor_.MoveTo(cursor_.Place() - 1); }
  FdoBoolean ReadAt(FdoPropertyValueCollection* key) override { return ReadAtIndex(IndexOf(key)); }
  FdoBoolean ReadAtIndex(unsigned int recordindex) override {
    return cursor_.MoveTo(static_cast<std::ptrdiff_t>(recordindex) - 1);
  }
  unsigned int IndexOf(FdoPropertyValueCollection* key) override {
    std::vector<std::shared_ptr<Row const>> const& rows = cursor_.GetResult().rows;
    for (std::size_t i = 0; i < rows.size(); ++i) {
      if (Matches(*rows[i], key)) return static_cast<unsigned int>(i + 1);
    }
    return 0;
  }

 private:
  bool Matches(Row const& row, FdoPropertyValueCollection* key) {
    FdoInt32 const count = key == nullptr ? 0 : key->GetCount();
    for (FdoInt32 i = 0; i < count; ++i) {
      FdoPtr<FdoPropertyValue> part = key->GetItem(i);
      FdoPtr<FdoIdentifier> name = part->GetName();
      FdoPtr<FdoValueExpression> wanted = part->GetValue();
      std::size_t const position = cursor_.GetResult().positions[cursor_.IndexOf(name->GetName())];
      if (CompareLiterals(row[position], dynamic_cast<FdoLiteralValue*>(wanted.p)) != FdoCompareType_Equal) {
        return false;
      }
    }
    return count > 0;
  }
};

class DataReader : public ReaderBase<FdoIDataReader> {
 public:
  using ReaderBase<FdoIDataReader>::ReaderBase;

  FdoInt32 GetPropertyCount() override { return static_cast<FdoInt32>(cursor_.GetResult().columns.size()); }
  FdoDataType GetDataType(FdoString* name) override { return GetDataType(At(name)); }
  FdoPropertyType GetPropertyType(FdoString* name) override { return GetPropertyType(At(name)); }
  FdoDataType GetDataType(FdoInt32 index) override { return cursor_.ColumnAt(index).type; }
  FdoPropertyType GetPropertyType(FdoInt32 index) override {
    return cursor_.ColumnAt(index).isGeometry ? FdoPropertyType_GeometricProperty
                                              : FdoPropertyType_DataProperty;
  }
};

}  // namespace

bool Cursor::MoveTo(std::ptrdiff_t row) {
  if (closed_) Refuse(L"The reader is closed.");
  texts_.clear();
  geometries_.clear();
  bool const exists = row >= 0 && row < Count();
  row_ = row < 0 ? -1 : exists ? row : Count();
  return exists;
}

void Cursor::Close() {
  texts_.clear();
  geometries_.clear();
  closed_ = true;
}

std::size_t Cursor::IndexOf(FdoString* name) const {
  std::wstring const wanted = name == nullptr ? L"" : name;
  for (std::size_t i = 0; i < result_.columns.size(); ++i) {
    if (result_.columns[i].name == wanted) return i;
  }
  Refuse(L"There is no property \"" + wanted + L"\" in the reader.");
}

Column const& Cursor::ColumnAt(FdoInt32 index) const {
  if (index < 0 || static_cast<std::size_t>(index) >= result_.columns.size()) {
    Refuse(L"There is no property at position " + std::to_wstring(index) + L" in the reader.");
  }
  return result_.columns[static_cast<std::size_t>(index)];
}

FdoLiteralValue* Cursor::ValueAt(FdoInt32 index) const {
  ColumnAt(index);
  if (closed_) Refuse(L"The reader is closed.");
  if (row_ < 0 || row_ >= Count()) Refuse(L"The reader stands on no row.");
  Row const& row = *result_.rows[static_cast<std::size_t>(row_)];
  return row[result_.positions[static_cast<std::size_t>(index)]];
}

double Cursor::DoubleAt(FdoInt32 index) const {
  FdoLiteralValue* value = ValueAt(index);
  if (auto* number = dynamic_cast<FdoDoubleValue*>(value)) return number->GetDouble();
  if (auto* number = dynamic_cast<FdoDecimalValue*>(value)) return number->GetDecimal();
  RefuseType(index, value == nullptr);
}

FdoString* Cursor::LendText(FdoInt32 index) {
  texts_.emplace_back(TypedAt<FdoStringValue>(index).GetString());
  return texts_.back().c_str();
}

FdoByte const* Cursor::LendGeometry(FdoInt32 index, FdoInt32* count) {
  FdoPtr<FdoByteArray> bytes = TypedAt<FdoGeometryValue>(index).GetGeometry();
  geometries_.emplace_back(bytes->GetData(), bytes->GetData() + bytes->GetCount());
  *count = bytes->GetCount();
  return geometries_.back().data();
}

void Cursor::RefuseType(FdoInt32 index, bool isNull) const {
  Refuse(L"The property \"" + ColumnAt(index).name + (isNull ? L"\" is null." : L"\" is of another type."));
}

FdoIFeatureReader* MakeFeatureReader(Result result, FdoClassDefinition* definition) {
  return new ReadsByName<FeatureReaderBase<FdoIFeatureReader>>(std::move(result), definition);
}

FdoIScrollableFeatureReader* MakeScrollableReader(Result result, FdoClassDefinition* definition) {
  return new ReadsByName<ScrollableReader>(std::move(result), definition);
}

FdoIDataReader* MakeDataReader(Result result) { return new ReadsByName<DataReader>(std::move(result)); }

}  // namespace memory_provider
