#include "sdk/runtime/client_services/provider_name.h"

#include <algorithm>

#include "Fdo/ClientServices/ProviderNameTokens.h"

namespace fdo_sdk {
namespace {

bool IsNumber(std::wstring const& text) {
  // No version is that long; a longer run of digits would lose some as a number.
  return !text.empty() && text.size() <= 15 && text.find_first_not_of(L"0123456789") == std::wstring::npos;
}

}  // namespace

ProviderName SplitProviderName(std::wstring_view name) {
  ProviderName split;
  std::size_t start = 0;
  while (start <= name.size()) {
    std::size_t const end = std::min(name.find(L'.', start), name.size());
    if (end > start) split.names.emplace_back(name.substr(start, end - start));
    start = end + 1;
  }
  while (split.names.size() > 1 && IsNumber(split.names.back())) {
    split.version.insert(split.version.begin(), static_cast<double>(std::stoll(split.names.back())));
    split.names.pop_back();
  }
  return split;
}

bool Satisfies(ProviderName const& provider, ProviderName const& wanted) {
  return !wanted.names.empty() && provider.names == wanted.names &&
         provider.version.size() >= wanted.version.size() &&
         std::equal(wanted.version.begin(), wanted.version.end(), provider.version.begin());
}

bool IsNewer(ProviderName const& left, ProviderName const& right) { return left.version > right.version; }

}  // namespace fdo_sdk

FdoProviderNameTokens* FdoProviderNameTokens::Create(FdoString* name) {
  return new FdoProviderNameTokens(name);
}

FdoProviderNameTokens::FdoProviderNameTokens(FdoString* name)
    : m_nameTokens(FdoStringCollection::Create()), m_versionTokens(FdoVector::Create()) {
  fdo_sdk::ProviderName const split = fdo_sdk::SplitProviderName(name == nullptr ? L"" : name);
  for (std::wstring const& token : split.names) m_nameTokens->Add(FdoStringP(token.c_str()));
  for (double const number : split.version) {
    FdoVectorElementP element = FdoVectorElement::Create(number);
    m_versionTokens->Add(element);
  }
}

FdoProviderNameTokens::~FdoProviderNameTokens() = default;

void FdoProviderNameTokens::Dispose() { delete this; }

FdoStringsP FdoProviderNameTokens::GetNameTokens() const { return m_nameTokens; }

FdoVectorP FdoProviderNameTokens::GetVersionTokens() const { return m_versionTokens; }

FdoStringP FdoProviderNameTokens::GetLocalName() const {
  FdoInt32 const count = m_nameTokens->GetCount();
  if (count == 0) return FdoStringP();
  if (count == 1) return m_nameTokens->GetString(0);
  FdoStringP local = m_nameTokens->GetString(1);
  for (FdoInt32 i = 2; i < count; ++i) local = local + L"." + m_nameTokens->GetString(i);
  return local;
}
