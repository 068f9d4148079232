// Reads rows that were selected before; the base of every reader of the memory provider.
#ifndef TESTING_MEMORY_PROVIDER_READER_H_
#define TESTING_MEMORY_PROVIDER_READER_H_

#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "Fdo.h"
#include "testing/memory_provider/store.h"

namespace memory_provider {

// The columns of a result and its rows. A row may have more values than there are columns: positions says
// where the value of each column is.
struct Result {
  std::vector<Column> columns;
  std::vector<std::size_t> positions;
  std::vector<std::shared_ptr<Row const>> rows;
};

// What is lent is copied for each row and gone when the reader moves, so that programs which keep it too
// long fail here and not only elsewhere.
class Cursor {
 public:
  explicit Cursor(Result result) : result_(std::move(result)) {}

  Result const& GetResult() const { return result_; }

  // Rows count from 0; -1 stands before the first. Errors: false when there is no such row.
  bool MoveTo(std::ptrdiff_t row);
  std::ptrdiff_t Place() const { return row_; }
  std::ptrdiff_t Count() const { return static_cast<std::ptrdiff_t>(result_.rows.size()); }
  void Close();

  // Errors: FdoCommandException* for what there is not.
  std::size_t IndexOf(FdoString* name) const;
  Column const& ColumnAt(FdoInt32 index) const;

  // Borrowed: while the row lives. Null for a null.
  // Errors: FdoCommandException* when the reader stands on no row.
  FdoLiteralValue* ValueAt(FdoInt32 index) const;

  // The value as what it must be. Errors: FdoCommandException* for a null and for another type.
  template <class Value>
  Value& TypedAt(FdoInt32 index) const {
    FdoLiteralValue* value = ValueAt(index);
    Value* typed = dynamic_cast<Value*>(value);
    if (typed == nullptr) RefuseType(index, value == nullptr);
    return *typed;
  }

  // Decimal and Double. There is no getter for Decimal of its own.
  double DoubleAt(FdoInt32 index) const;

  // Borrowed: until the reader moves or closes.
  FdoString* LendText(FdoInt32 index);
  FdoByte const* LendGeometry(FdoInt32 index, FdoInt32* count);

 private:
  [[noreturn]] void RefuseType(FdoInt32 index, bool isNull) const;

  Result result_;
  std::ptrdiff_t row_ = -1;
  bool closed_ = false;
  std::deque<std::wstring> texts_;
  std::deque<std::vector<FdoByte>> geometries_;
};

// Implements FdoIReader for one of its heirs, but for the name forms.
template <class Interface>
class ReaderBase : public Interface {
 public:
  explicit ReaderBase(Result result) : cursor_(std::move(result)) {}

  FdoString* GetPropertyName(FdoInt32 index) override { return cursor_.ColumnAt(index).name.c_str(); }
  FdoInt32 GetPropertyIndex(FdoString* name) override { return static_cast<FdoInt32>(cursor_.IndexOf(name)); }
  bool GetBoolean(FdoInt32 index) override {
    return cursor_.template TypedAt<FdoBooleanValue>(index).GetBoolean();
  }
  FdoByte GetByte(FdoInt32 index) override { return cursor_.template TypedAt<FdoByteValue>(index).GetByte(); }
  FdoDateTime GetDateTime(FdoInt32 index) override {
    return cursor_.template TypedAt<FdoDateTimeValue>(index).GetDateTime();
  }
  double GetDouble(FdoInt32 index) override { return cursor_.DoubleAt(index); }
  FdoInt16 GetInt16(FdoInt32 index) override {
    return cursor_.template TypedAt<FdoInt16Value>(index).GetInt16();
  }
  FdoInt32 GetInt32(FdoInt32 index) override {
    return cursor_.template TypedAt<FdoInt32Value>(index).GetInt32();
  }
  FdoInt64 GetInt64(FdoInt32 index) override {
    return cursor_.template TypedAt<FdoInt64Value>(index).GetInt64();
  }
  float GetSingle(FdoInt32 index) override {
    return cursor_.template TypedAt<FdoSingleValue>(index).GetSingle();
  }
  FdoString* GetString(FdoInt32 index) override { return cursor_.LendText(index); }
  FdoLOBValue* GetLOB(FdoInt32 index) override {
    FdoLOBValue& value = cursor_.template TypedAt<FdoLOBValue>(index);
    return FDO_SAFE_ADDREF(&value);
  }
  FdoIStreamReader* GetLOBStreamReader(FdoInt32 index) override {
    FdoPtr<FdoByteArray> data = cursor_.template TypedAt<FdoLOBValue>(index).GetData();
    FdoPtr<FdoIoMemoryStream> stream = FdoIoMemoryStream::Create();
    if (data->GetCount() > 0) stream->Write(data->GetData(), static_cast<FdoSize>(data->GetCount()));
    stream->Reset();
    return FdoIoByteStreamReader::Create(stream);
  }
  bool IsNull(FdoInt32 index) override { return cursor_.ValueAt(index) == nullptr; }
  FdoByteArray* GetGeometry(FdoInt32 index) override {
    return cursor_.template TypedAt<FdoGeometryValue>(index).GetGeometry();
  }
  FdoIRaster* GetRaster(FdoInt32) override {
    throw FdoCommandException::Create(L"The memory provider has no rasters.");
  }
  bool ReadNext() override { return cursor_.MoveTo(cursor_.Place() + 1); }
  void Close() override { cursor_.Close(); }

 protected:
  void Dispose() override { delete this; }

  FdoInt32 At(FdoString* name) const { return static_cast<FdoInt32>(cursor_.IndexOf(name)); }

  Cursor cursor_;
};

// Implements FdoIFeatureReader, or the reader that moves both ways.
template <class Interface>
class FeatureReaderBase : public ReaderBase<Interface> {
 public:
  // Owns: a reference to the definition of what is selected.
  FeatureReaderBase(Result result, FdoClassDefinition* definition)
      : ReaderBase<Interface>(std::move(result)), definition_(FDO_SAFE_ADDREF(definition)) {}

  FdoClassDefinition* GetClassDefinition() override { return FDO_SAFE_ADDREF(definition_.p); }
  FdoInt32 GetDepth() override { return 0; }
  using ReaderBase<Interface>::GetGeometry;
  FdoByte const* GetGeometry(FdoString* name, FdoInt32* count) override {
    return GetGeometry(this->At(name), count);
  }
  FdoByte const* GetGeometry(FdoInt32 index, FdoInt32* count) override {
    return this->cursor_.LendGeometry(index, count);
  }
  FdoIFeatureReader* GetFeatureObject(FdoString*) override { return GetFeatureObject(FdoInt32{0}); }
  FdoIFeatureReader* GetFeatureObject(FdoInt32) override {
    throw FdoCommandException::Create(L"The memory provider has no object properties.");
  }

 private:
  FdoPtr<FdoClassDefinition> definition_;
};

// Give: one reference.
FdoIFeatureReader* MakeFeatureReader(Result result, FdoClassDefinition* definition);
FdoIScrollableFeatureReader* MakeScrollableReader(Result result, FdoClassDefinition* definition);
FdoIDataReader* MakeDataReader(Result result);

}  // namespace memory_provider

#endif  // TESTING_MEMORY_PROVIDER_READER_H_
