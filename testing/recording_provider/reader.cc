#include "testing/recording_provider/reader.h"

#include <utility>

#include "testing/memory_provider/spatial_context_base.h"

namespace recording_provider {
namespace {

// Each operation is a call, and the reader behind answers.
template <class Interface>
class CountingReader : public Interface {
 public:
  // Takes over the reference to the reader behind.
  CountingReader(std::shared_ptr<Recorder> recorder, Interface* behind)
      : live_(std::move(recorder)), behind_(behind) {}

  FdoString* GetPropertyName(FdoInt32 index) override { return Behind().GetPropertyName(index); }
  FdoInt32 GetPropertyIndex(FdoString* name) override { return Behind().GetPropertyIndex(name); }
  bool GetBoolean(FdoString* name) override { return Behind().GetBoolean(name); }
  FdoByte GetByte(FdoString* name) override { return Behind().GetByte(name); }
  FdoDateTime GetDateTime(FdoString* name) override { return Behind().GetDateTime(name); }
  double GetDouble(FdoString* name) override { return Behind().GetDouble(name); }
  FdoInt16 GetInt16(FdoString* name) override { return Behind().GetInt16(name); }
  FdoInt32 GetInt32(FdoString* name) override { return Behind().GetInt32(name); }
  FdoInt64 GetInt64(FdoString* name) override { return Behind().GetInt64(name); }
  float GetSingle(FdoString* name) override { return Behind().GetSingle(name); }
  FdoString* GetString(FdoString* name) override { return Behind().GetString(name); }
  FdoLOBValue* GetLOB(FdoString* name) override { return Behind().GetLOB(name); }
  FdoIStreamReader* GetLOBStreamReader(wchar_t const* name) override {
    return Behind().GetLOBStreamReader(name);
  }
  bool IsNull(FdoString* name) override { return Behind().IsNull(name); }
  FdoByteArray* GetGeometry(FdoString* name) override { return Lent(Behind().GetGeometry(name)); }
  FdoIRaster* GetRaster(FdoString* name) override { return Behind().GetRaster(name); }
  bool GetBoolean(FdoInt32 index) override { return Behind().GetBoolean(index); }
  FdoByte GetByte(FdoInt32 index) override { return Behind().GetByte(index); }
  FdoDateTime GetDateTime(FdoInt32 index) override { return Behind().GetDateTime(index); }
  double GetDouble(FdoInt32 index) override { return Behind().GetDouble(index); }
  FdoInt16 GetInt16(FdoInt32 index) override { return Behind().GetInt16(index); }
  FdoInt32 GetInt32(FdoInt32 index) override { return Behind().GetInt32(index); }
  FdoInt64 GetInt64(FdoInt32 index) override { return Behind().GetInt64(index); }
  float GetSingle(FdoInt32 index) override { return Behind().GetSingle(index); }
  FdoString* GetString(FdoInt32 index) override { return Behind().GetString(index); }
  FdoLOBValue* GetLOB(FdoInt32 index) override { return Behind().GetLOB(index); }
  FdoIStreamReader* GetLOBStreamReader(FdoInt32 index) override { return Behind().GetLOBStreamReader(index); }
  bool IsNull(FdoInt32 index) override { return Behind().IsNull(index); }
  FdoByteArray* GetGeometry(FdoInt32 index) override { return Lent(Behind().GetGeometry(index)); }
  FdoIRaster* GetRaster(FdoInt32 index) override { return Behind().GetRaster(index); }
  bool ReadNext() override { return Behind().ReadNext(); }
  void Close() override {
    Behind().Close();
    live_.Shared()->Note(L"close reader");
  }

 protected:
  void Dispose() override { delete this; }

  Interface& Behind() const {
    live_.Called();
    return *behind_;
  }

 private:
  // A copy that nobody else holds, so that it is seen when it is not released.
  FdoByteArray* Lent(FdoByteArray* given) const {
    FdoPtr<FdoByteArray> original(given);
    FdoByteArray* copy = FdoByteArray::Create(original->GetData(), original->GetCount());
    live_.Shared()->Watch(copy);
    return copy;
  }

  LiveObject live_;
  FdoPtr<Interface> behind_;
};

template <class Interface>
class CountingFeatureReader : public CountingReader<Interface> {
 public:
  using CountingReader<Interface>::CountingReader;

  FdoClassDefinition* GetClassDefinition() override { return this->Behind().GetClassDefinition(); }
  FdoInt32 GetDepth() override { return this->Behind().GetDepth(); }
  using CountingReader<Interface>::GetGeometry;
  FdoByte const* GetGeometry(FdoString* name, FdoInt32* count) override {
    return this->Behind().GetGeometry(name, count);
  }
  FdoByte const* GetGeometry(FdoInt32 index, FdoInt32* count) override {
    return this->Behind().GetGeometry(index, count);
  }
  FdoIFeatureReader* GetFeatureObject(FdoString* name) override {
    return this->Behind().GetFeatureObject(name);
  }
  FdoIFeatureReader* GetFeatureObject(FdoInt32 index) override {
    return this->Behind().GetFeatureObject(index);
  }
};

class CountingScrollableReader : public CountingFeatureReader<FdoIScrollableFeatureReader> {
 public:
  using CountingFeatureReader<FdoIScrollableFeatureReader>::CountingFeatureReader;

  FdoInt32 Count() override { return Behind().Count(); }
  FdoBoolean ReadFirst() override { return Behind().ReadFirst(); }
  FdoBoolean ReadLast() override { return Behind().ReadLast(); }
  FdoBoolean ReadPrevious() override { return Behind().ReadPrevious(); }
  FdoBoolean ReadAt(FdoPropertyValueCollection* key) override { return Behind().ReadAt(key); }
  FdoBoolean ReadAtIndex(unsigned int recordindex) override { return Behind().ReadAtIndex(recordindex); }
  unsigned int IndexOf(FdoPropertyValueCollection* key) override { return Behind().IndexOf(key); }
};

class CountingDataReader : public CountingReader<FdoIDataReader> {
 public:
  using CountingReader<FdoIDataReader>::CountingReader;

  FdoInt32 GetPropertyCount() override { return Behind().GetPropertyCount(); }
  FdoDataType GetDataType(FdoString* name) override { return Behind().GetDataType(name); }
  FdoPropertyType GetPropertyType(FdoString* name) override { return Behind().GetPropertyType(name); }
  FdoDataType GetDataType(FdoInt32 index) override { return Behind().GetDataType(index); }
  FdoPropertyType GetPropertyType(FdoInt32 index) override { return Behind().GetPropertyType(index); }
};

class CountingSpatialContextReader : public FdoISpatialContextReader {
 public:
  CountingSpatialContextReader(std::shared_ptr<Recorder> recorder, std::vector<SpatialContext> contexts)
      : live_(std::move(recorder)), behind_(new memory_provider::SpatialContextReader(std::move(contexts))) {}

  FdoString* GetName() override { return Behind().GetName(); }
  FdoString* GetDescription() override { return Behind().GetDescription(); }
  FdoString* GetCoordinateSystem() override { return Behind().GetCoordinateSystem(); }
  FdoString* GetCoordinateSystemWkt() override { return Behind().GetCoordinateSystemWkt(); }
  FdoSpatialContextExtentType GetExtentType() override { return Behind().GetExtentType(); }
  FdoByteArray* GetExtent() override { return Behind().GetExtent(); }
  double const GetXYTolerance() override { return Behind().GetXYTolerance(); }
  double const GetZTolerance() override { return Behind().GetZTolerance(); }
  bool const IsActive() override { return Behind().IsActive(); }
  bool ReadNext() override { return Behind().ReadNext(); }
  void Dispose() override { delete this; }

 private:
  FdoISpatialContextReader& Behind() const {
    live_.Called();
    return *behind_;
  }

  LiveObject live_;
  FdoPtr<FdoISpatialContextReader> behind_;
};

}  // namespace

FdoIFeatureReader* MakeFeatureReader(std::shared_ptr<Recorder> const& recorder,
                                     memory_provider::Result result, FdoClassDefinition* definition) {
  return new CountingFeatureReader<FdoIFeatureReader>(
      recorder, memory_provider::MakeFeatureReader(std::move(result), definition));
}

FdoIScrollableFeatureReader* MakeScrollableReader(std::shared_ptr<Recorder> const& recorder,
                                                  memory_provider::Result result,
                                                  FdoClassDefinition* definition) {
  return new CountingScrollableReader(recorder,
                                      memory_provider::MakeScrollableReader(std::move(result), definition));
}

FdoIDataReader* MakeDataReader(std::shared_ptr<Recorder> const& recorder, memory_provider::Result result) {
  return new CountingDataReader(recorder, memory_provider::MakeDataReader(std::move(result)));
}

FdoISpatialContextReader* MakeSpatialContextReader(std::shared_ptr<Recorder> const& recorder,
                                                   std::vector<SpatialContext> contexts) {
  return new CountingSpatialContextReader(recorder, std::move(contexts));
}

}  // namespace recording_provider
