// A reader whose properties go by position alone gets the name forms of the interface from here.
#ifndef SDK_PROVIDERS_BASE_READS_BY_NAME_H_
#define SDK_PROVIDERS_BASE_READS_BY_NAME_H_

#include "Fdo.h"

namespace fdo_provider {

// Positional implements the position forms of FdoIReader or one of its heirs, and everything else. Every name
// is looked up with GetPropertyIndex.
template <class Positional>
class ReadsByName : public Positional {
 public:
  using Positional::Positional;

  using Positional::GetBoolean;
  using Positional::GetByte;
  using Positional::GetDateTime;
  using Positional::GetDouble;
  using Positional::GetGeometry;
  using Positional::GetInt16;
  using Positional::GetInt32;
  using Positional::GetInt64;
  using Positional::GetLOB;
  using Positional::GetLOBStreamReader;
  using Positional::GetRaster;
  using Positional::GetSingle;
  using Positional::GetString;
  using Positional::IsNull;

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
