// The parts of a provider's name, and which of two versions is the newer.
#ifndef SDK_RUNTIME_CLIENT_SERVICES_PROVIDER_NAME_H_
#define SDK_RUNTIME_CLIENT_SERVICES_PROVIDER_NAME_H_

#include <string>
#include <string_view>
#include <vector>

namespace fdo_sdk {

struct ProviderName {
  std::vector<std::wstring> names;  // company and provider
  std::vector<double> version;
};

// The version is all the numbers at the end; the first part is never one of them.
ProviderName SplitProviderName(std::wstring_view name);

// Whether the provider is what the wanted name asks for: the same names, and a version that starts
// as the wanted one does.
bool Satisfies(ProviderName const& provider, ProviderName const& wanted);

// Compares number by number: 3.10 is newer than 3.9, and 3.9.1 than 3.9.
bool IsNewer(ProviderName const& left, ProviderName const& right);

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_CLIENT_SERVICES_PROVIDER_NAME_H_
