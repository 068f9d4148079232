// A reader whose properties go by position alone gets the name forms of the interface from here.
#ifndef SDK_PROVIDERS_BASE_READS_BY_NAME_H_
#define SDK_PROVIDERS_BASE_READS_BY_NAME_H_

#include "Fdo.h"

namespace fdo_provider {

// Interface is FdoIReader or one of its heirs. Every name is looked up with GetPropertyIndex.
template <class Interface>
class ReadsByName : public Interface {
 public:
  using Interface::GetBoolean;
  using Interface::GetByte;
  using Interface::GetDateTime;
  using Interface::GetDouble;
  using Interface::GetGeometry;
  using Interface::GetInt16;
  using Interface::GetInt32;
  using Interface::GetInt64;
  using Interface::GetLOB;
  using Interface::GetLOBStreamReader;
  using Interface::GetRaster;
  using Interface::GetSingle;
  using Interface::GetString;
  using Interface::IsNull;

  bool GetBoolean(FdoString* name) override { return this->GetBoolean(this->GetPropertyIndex(name)); }
  FdoByte GetByte(FdoString* name) override { return this->GetByte(this->GetPropertyIndex(name)); }
  FdoDateTime GetDateTime(FdoString* name) override {
    return this->GetDateTime(this->GetPropertyIndex(name));
  }
  double GetDouble(FdoString* name) override { return this->GetDouble(this->GetPropertyIndex(name)); }
  FdoInt16 GetInt16(FdoString* name) override { return this->GetInt16(this->GetPropertyIndex(name)); }
  FdoInt32 GetInt32(FdoString* name) override { return this->GetInt32(this->GetPropertyIndex(name)); }
  FdoInt64 GetInt64(FdoString* name) override { return this->GetInt64(this->GetPropertyIndex(name)); }
  float GetSingle(FdoString* name) override { return this->GetSingle(this->GetPropertyIndex(name)); }
  FdoString* GetString(FdoString* name) override { return this->GetString(this->GetPropertyIndex(name)); }
  FdoLOBValue* GetLOB(FdoString* name) override { return this->GetLOB(this->GetPropertyIndex(name)); }
  FdoIStreamReader* GetLOBStreamReader(wchar_t const* name) override {
    return this->GetLOBStreamReader(this->GetPropertyIndex(name));
  }
  bool IsNull(FdoString* name) override { return this->IsNull(this->GetPropertyIndex(name)); }
  FdoByteArray* GetGeometry(FdoString* name) override {
    return this->GetGeometry(this->GetPropertyIndex(name));
  }
  FdoIRaster* GetRaster(FdoString* name) override { return this->GetRaster(this->GetPropertyIndex(name)); }
};

}  // namespace fdo_provider

#endif  // SDK_PROVIDERS_BASE_READS_BY_NAME_H_
