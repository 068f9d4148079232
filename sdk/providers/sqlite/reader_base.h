// The readers of the SQLite provider: a ResultCursor as the interface has it, but for the name forms.
#ifndef SDK_PROVIDERS_SQLITE_READER_BASE_H_
#define SDK_PROVIDERS_SQLITE_READER_BASE_H_

#include <utility>

#include "sdk/providers/sqlite/connection.h"
#include "sdk/providers/sqlite/result_cursor.h"

namespace fdo_sqlite {

// What is made is a fdo_provider::ReadsByName of an heir.
// Owns: a reference to the connection. A connection that is closed ends the reader: moving it throws.
template <class Interface>
class ReaderBase : public Interface {
 public:
  ReaderBase(Connection* connection, ResultCursor&& cursor)
      : connection_(FDO_SAFE_ADDREF(connection)), cursor_(std::move(cursor)) {}

  FdoString* GetPropertyName(FdoInt32 index) override { return cursor_.ColumnAt(index).name.c_str(); }
  FdoInt32 GetPropertyIndex(FdoString* name) override { return cursor_.IndexOf(name); }
  bool GetBoolean(FdoInt32 index) override { return cursor_.Boolean(index); }
  FdoByte GetByte(FdoInt32 index) override {
    return cursor_.template IntegerAt<FdoByte>(index, FdoDataType_Byte);
  }
  FdoDateTime GetDateTime(FdoInt32 index) override { return cursor_.DateTime(index); }
  double GetDouble(FdoInt32 index) override { return cursor_.Double(index); }
  FdoInt16 GetInt16(FdoInt32 index) override {
    return cursor_.template IntegerAt<FdoInt16>(index, FdoDataType_Int16);
  }
  FdoInt32 GetInt32(FdoInt32 index) override {
    return cursor_.template IntegerAt<FdoInt32>(index, FdoDataType_Int32);
  }
  FdoInt64 GetInt64(FdoInt32 index) override {
    return cursor_.template IntegerAt<FdoInt64>(index, FdoDataType_Int64);
  }
  float GetSingle(FdoInt32 index) override { return cursor_.Single(index); }
  FdoString* GetString(FdoInt32 index) override { return cursor_.Text(index); }
  FdoLOBValue* GetLOB(FdoInt32 index) override {
    FdoPtr<FdoByteArray> bytes = ArrayOf(cursor_.Bytes(index));
    return static_cast<FdoLOBValue*>(
        FdoDataValue::Create(bytes, static_cast<FdoDataType>(cursor_.ColumnAt(index).type)));
  }
  FdoIStreamReader* GetLOBStreamReader(FdoInt32 index) override {
    std::string_view const bytes = cursor_.Bytes(index);
    FdoPtr<FdoIoMemoryStream> stream = FdoIoMemoryStream::Create();
    if (!bytes.empty()) {
      FdoPtr<FdoByteArray> copy = ArrayOf(bytes);
      stream->Write(copy->GetData(), static_cast<FdoSize>(copy->GetCount()));
    }
    stream->Reset();
    return FdoIoByteStreamReader::Create(stream);
  }
  bool IsNull(FdoInt32 index) override { return cursor_.IsNull(index); }
  FdoByteArray* GetGeometry(FdoInt32 index) override {
    GeometryBytes const fgf = cursor_.Geometry(index);
    return FdoByteArray::Create(fgf.data, static_cast<FdoInt32>(fgf.size));
  }
  FdoIRaster* GetRaster(FdoInt32) override {
    throw FdoCommandException::Create(L"The SQLite provider has no rasters.");
  }
  bool ReadNext() override { return cursor_.MoveNext(); }
  void Close() override { cursor_.Close(); }

 protected:
  void Dispose() override { delete this; }

  FdoPtr<Connection> connection_;
  ResultCursor cursor_;

 private:
  static FdoByteArray* ArrayOf(std::string_view bytes) {
    return FdoByteArray::Create(reinterpret_cast<FdoByte const*>(bytes.data()),
                                static_cast<FdoInt32>(bytes.size()));
  }
};

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_READER_BASE_H_
