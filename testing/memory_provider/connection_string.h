// The connection strings of the memory provider: settings like File="parcels";UseFdoMetadata=TRUE.
#ifndef TESTING_MEMORY_PROVIDER_CONNECTION_STRING_H_
#define TESTING_MEMORY_PROVIDER_CONNECTION_STRING_H_

#include <string>

namespace memory_provider {

struct Settings {
  std::wstring file;
  std::wstring useFdoMetadata;
};

// The member of a setting's name, without regard to case; null for an unknown name.
std::wstring* SettingNamed(Settings& settings, std::wstring const& name);

// Errors: FdoConnectionException*, naming what is wrong.
Settings ParseConnectionString(std::wstring const& text);

// Only what is not empty, each value in double quotes.
std::wstring WriteConnectionString(Settings const& settings);

}  // namespace memory_provider

#endif  // TESTING_MEMORY_PROVIDER_CONNECTION_STRING_H_
