// What the memory provider can be told.
#ifndef TESTING_MEMORY_PROVIDER_SETTINGS_H_
#define TESTING_MEMORY_PROVIDER_SETTINGS_H_

#include <vector>

#include "sdk/providers/base/connection_string.h"

namespace memory_provider {

inline constexpr std::size_t kFile = 0;

// Whatever is said of metadata, everything comes back.
inline std::vector<fdo_provider::SettingInfo> const& KnownSettings() {
  static std::vector<fdo_provider::SettingInfo> const settings = {
      {L"File", false, true, L"", {}},
      {L"UseFdoMetadata", false, false, L"", {}},
  };
  return settings;
}

}  // namespace memory_provider

#endif  // TESTING_MEMORY_PROVIDER_SETTINGS_H_
