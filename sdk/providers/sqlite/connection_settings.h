// What a connection to an SQLite file, and a new file, can be told.
#ifndef SDK_PROVIDERS_SQLITE_CONNECTION_SETTINGS_H_
#define SDK_PROVIDERS_SQLITE_CONNECTION_SETTINGS_H_

#include <vector>

#include "sdk/providers/base/connection_string.h"
#include "sdk/providers/sqlite/store_schema.h"

namespace fdo_sqlite {

enum Setting { kFile, kUseFdoMetadata, kGeometryFormat };

inline std::vector<fdo_provider::SettingInfo> const& ConnectionSettings() {
  static std::vector<fdo_provider::SettingInfo> const settings = {
      // name           required  file   standard  values
      {L"File", true, true, L"", {}},
      {L"UseFdoMetadata", false, false, L"FALSE", {L"TRUE", L"FALSE"}},
      {L"GeometryFormat", false, false, L"FGF", {L"FGF", L"WKB"}},
  };
  return settings;
}

// The first of them: what is written in a new file.
inline std::vector<fdo_provider::SettingInfo> const& DataStoreSettings() {
  static std::vector<fdo_provider::SettingInfo> const settings(
      ConnectionSettings().begin(), ConnectionSettings().begin() + kGeometryFormat);
  return settings;
}

inline bool UsesFdoMetadata(fdo_provider::Settings const& settings) {
  return settings.Effective(kUseFdoMetadata) == L"TRUE";
}

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_CONNECTION_SETTINGS_H_
