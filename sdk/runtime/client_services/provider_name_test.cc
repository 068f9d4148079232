#include <gtest/gtest.h>

#include <vector>

#include "Fdo.h"

namespace fdo_sdk {
namespace {

TEST(ProviderNameTokens, TakesNamesApart) {
  struct Case {
    FdoString* name;
    FdoString* names;
    std::vector<double> version;
    FdoString* local;
  };
  Case const cases[] = {
      {L"Company.Provider.3.9", L"Company, Provider", {3, 9}, L"Provider"},
      {L"Company.Provider", L"Company, Provider", {}, L"Provider"},
      {L"Company.Provider.10", L"Company, Provider", {10}, L"Provider"},
      {L"Company.Data.Store.1.2.3.4", L"Company, Data, Store", {1, 2, 3, 4}, L"Data.Store"},
      {L"Provider", L"Provider", {}, L"Provider"},
      {L"Company.Provider.3a", L"Company, Provider, 3a", {}, L"Provider.3a"},
      {L"3.4", L"3", {4}, L"3"},
      {L"Company..Provider.", L"Company, Provider", {}, L"Provider"},
      {L"", L"", {}, L""},
      {nullptr, L"", {}, L""},
  };
  for (Case const& c : cases) {
    SCOPED_TRACE(FdoStringP(c.name).operator char const*());
    FdoPtr<FdoProviderNameTokens> tokens = FdoProviderNameTokens::Create(c.name);
    EXPECT_STREQ(tokens->GetNameTokens()->ToString(), c.names);
    EXPECT_STREQ(tokens->GetLocalName(), c.local);
    FdoVectorP const version = tokens->GetVersionTokens();
    ASSERT_EQ(version->GetCount(), static_cast<FdoInt32>(c.version.size()));
    for (FdoInt32 i = 0; i < version->GetCount(); ++i) {
      EXPECT_EQ(FdoVectorElementP(version->GetItem(i))->GetValue(), c.version[static_cast<std::size_t>(i)]);
    }
  }
}

}  // namespace
}  // namespace fdo_sdk
