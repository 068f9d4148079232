#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "Fdo.h"
#include "sdk/runtime/client_services/testing/registry_in_folder.h"
#include "sdk/runtime/thrown.h"

namespace fdo_sdk {
namespace {

class ProviderRegistry : public RegistryInFolder {};

TEST_F(ProviderRegistry, WithoutAFileItIsEmpty) {
  FdoPtr<FdoProviderRegistry> registry = Open();
  EXPECT_EQ(registry->GetProviders()->GetCount(), 0);
  EXPECT_EQ(registry->GetProviders()->IndexOf(L"Company.Provider.1.0"), -1);
  EXPECT_FALSE(registry->GetProviders()->Contains(nullptr));
  for (int const index : {-1, 0}) {
    MessageThrownBy<FdoClientServiceException>([&] { registry->GetProviders()->GetItem(index); });
  }
}

TEST_F(ProviderRegistry, WhatIsRegisteredIsReadBackByAnotherOne) {
  FdoPtr<FdoProviderRegistry> registry = Open();
  FdoProviderCollection const* providers = registry->GetProviders();
  std::wstring const streetLibrary = (folder_ / "libStreet.so").wstring();
  registry->RegisterProvider(L"Company.Stra\u00DFe.1.0", L"Stra\u00DFe <& \u65E5\u672C>", L"\"a\" ]]>",
                             L"1.0.0.0", L"4.0", streetLibrary.c_str(), true);
  registry->RegisterProvider(L"Company.Path.2.0", nullptr, nullptr, nullptr, nullptr, L"sub/libPath.so",
                             false);
  EXPECT_EQ(registry->GetProviders(), providers);
  EXPECT_EQ(providers->GetCount(), 2);

  FdoPtr<FdoProviderRegistry> other = Open();
  ASSERT_EQ(other->GetProviders()->GetCount(), 2);
  EXPECT_EQ(other->GetProviders()->IndexOf(L"Company.Path.2.0"), 1);
  FdoPtr<FdoProvider> street = other->GetProviders()->GetItem(0);
  EXPECT_STREQ(street->GetName(), L"Company.Stra\u00DFe.1.0");
  EXPECT_STREQ(street->GetDisplayName(), L"Stra\u00DFe <& \u65E5\u672C>");
  EXPECT_STREQ(street->GetDescription(), L"\"a\" ]]>");
  EXPECT_STREQ(street->GetVersion(), L"1.0.0.0");
  EXPECT_STREQ(street->GetFeatureDataObjectsVersion(), L"4.0");
  EXPECT_STREQ(street->GetLibraryPath(), streetLibrary.c_str());
  EXPECT_TRUE(street->GetIsManaged());
  FdoPtr<FdoProvider> path = other->GetProviders()->GetItem(1);
  EXPECT_STREQ(path->GetDisplayName(), L"");
  EXPECT_FALSE(path->GetIsManaged());
  EXPECT_EQ(std::filesystem::path(FdoStringP(path->GetLibraryPath()).operator char const*()),
            folder_ / "sub" / "libPath.so");
}

TEST_F(ProviderRegistry, NothingIsLeftBesideTheFile) {
  FdoPtr<FdoProviderRegistry> registry = Open();
  Register(registry, L"Company.A.1.0", L"libA.so");
  Register(registry, L"Company.B.1.0", L"libB.so");
  registry->UnregisterProvider(L"Company.A.1.0");
  int files = 0;
  for (auto const& entry : std::filesystem::directory_iterator(folder_)) {
    ++files;
    EXPECT_EQ(entry.path().filename(), "providers.xml");
  }
  EXPECT_EQ(files, 1);
}

TEST_F(ProviderRegistry, UnregisteringLeavesTheOthers) {
  FdoPtr<FdoProviderRegistry> registry = Open();
  Register(registry, L"Company.A.1.0", L"libA.so");
  Register(registry, L"Company.A.2.0", L"./libA.so");
  FdoPtr<FdoProvider> held = registry->GetProviders()->GetItem(0);
  registry->UnregisterProvider(L"Company.A.1.0");
  EXPECT_EQ(registry->GetProviders()->GetCount(), 1);
  EXPECT_TRUE(registry->GetProviders()->Contains(L"Company.A.2.0"));
  EXPECT_STREQ(held->GetName(), L"Company.A.1.0");
  EXPECT_EQ(held->GetRefCount(), 1);
  EXPECT_NE(Content().find("<LibraryPath>./libA.so</LibraryPath>"), std::string::npos);
  for (FdoString* name : {L"Company.A.1.0", L"Company.A", L""}) {
    MessageThrownBy<FdoClientServiceException>([&] { registry->UnregisterProvider(name); });
  }
  MessageThrownBy<FdoClientServiceException>([&] { registry->UnregisterProvider(nullptr); });
}

TEST_F(ProviderRegistry, BadRegistrationsAreRefused) {
  FdoPtr<FdoProviderRegistry> registry = Open();
  Register(registry, L"Company.A.1.0", L"libA.so");
  std::string const before = Content();
  for (FdoString* name : {L"Company.A.1.0", L"Company.A", L"Company", L"", L"Company.1.0"}) {
    std::wstring const message =
        MessageThrownBy<FdoClientServiceException>([&] { Register(registry, name, L"libA.so"); });
    EXPECT_NE(message.find(std::wstring(L"\"") + name + L"\""), std::wstring::npos);
  }
  MessageThrownBy<FdoClientServiceException>([&] { Register(registry, nullptr, L"libA.so"); });
  MessageThrownBy<FdoClientServiceException>([&] { Register(registry, L"Company.B.1.0", L""); });
  MessageThrownBy<FdoClientServiceException>([&] { Register(registry, L"Company.B.1.0", nullptr); });
  EXPECT_EQ(Content(), before);
}

TEST_F(ProviderRegistry, ChangesOfAnotherProcessAreKept) {
  FdoPtr<FdoProviderRegistry> first = Open();
  FdoPtr<FdoProviderRegistry> second = Open();
  Register(first, L"Company.A.1.0", L"libA.so");
  Register(second, L"Company.B.1.0", L"libB.so");
  EXPECT_EQ(second->GetProviders()->GetCount(), 2);
  MessageThrownBy<FdoClientServiceException>([&] { Register(second, L"Company.A.1.0", L"libA.so"); });
}

TEST_F(ProviderRegistry, ABrokenFileIsNamed) {
  struct Case {
    char const* content;
    wchar_t const* reason;
  };
  Case const cases[] = {
      {"", L"line 1"},
      {"no xml", L"line 1"},
      {"<R>\n<P><Name>A.B.1</Name>\n", L"line 3"},
      {"<R>\n<P><Name>A.B.1</Nam></P></R>", L"line 2"},
      {"<R><P>\n<Version>1</Version></P></R>", L"without a name, line 2"},
      {"<?xml version=\"1.0\" encoding=\"x-unknown\"?><R/>", L"encoding"},
      {"<R><P><Name>\xFF\xFE</Name></P></R>", L"line 1"},
  };
  for (Case const& c : cases) {
    Write(c.content);
    std::wstring const message = MessageThrownBy<FdoClientServiceException>([&] { Open(); });
    EXPECT_NE(message.find(L"providers.xml"), std::wstring::npos) << c.content;
    EXPECT_NE(message.find(c.reason), std::wstring::npos)
        << c.content << ": " << FdoStringP(message.c_str()).operator char const*();
  }
}

TEST_F(ProviderRegistry, ABrokenFileIsNeitherReplacedNorForgotten) {
  FdoPtr<FdoProviderRegistry> registry = Open();
  Register(registry, L"Company.A.1.0", L"libA.so");
  Write("broken");
  MessageThrownBy<FdoClientServiceException>([&] { Register(registry, L"Company.B.1.0", L"libB.so"); });
  MessageThrownBy<FdoClientServiceException>([&] { registry->UnregisterProvider(L"Company.A.1.0"); });
  EXPECT_EQ(Content(), "broken");
  EXPECT_EQ(registry->GetProviders()->GetCount(), 1);
}

TEST_F(ProviderRegistry, ReadsForeignEncodingsAndNames) {
  std::string utf16 = "\xFF\xFE";
  for (char c : std::string("<?xml version=\"1.0\" encoding=\"UTF-16\"?><R><P><Name>A.B.1</Name></P></R>")) {
    utf16.push_back(c);
    utf16.push_back('\0');
  }
  struct Case {
    std::string content;
    FdoString* name;
  };
  Case const cases[] = {
      {"<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><R><P><Name>A.Stra\xDF"
       "e.1</Name></P></R>",
       L"A.Stra\u00DFe.1"},
      {utf16, L"A.B.1"},
      {"\xEF\xBB\xBF<Any><Thing>\n <Name> A.B.1\n </Name></Thing></Any>", L"A.B.1"},
      {"<R><!-- <P/> --><P x='1'><Other>z<Name>no</Name></Other><Name>A.<![CDATA[B]]>.1</Name></P></R>",
       L"A.B.1"},
  };
  for (Case const& c : cases) {
    Write(c.content);
    FdoPtr<FdoProviderRegistry> registry = Open();
    ASSERT_EQ(registry->GetProviders()->GetCount(), 1) << c.content;
    EXPECT_STREQ(FdoPtr<FdoProvider>(registry->GetProviders()->GetItem(0))->GetName(), c.name);
  }
}

TEST_F(ProviderRegistry, ReadsFilesLongerThanOnePiece) {
  std::string content = "<R>";
  for (int i = 0; i < 500; ++i) {
    content += "<P><Name>Company.Provider" + std::to_string(i) + ".1.0</Name></P>\n";
  }
  Write(content + "</R>");
  EXPECT_EQ(Open()->GetProviders()->GetCount(), 500);
}

TEST(FeatureAccessManager, GivesTheSameObjectsEachTime) {
  FdoPtr<IProviderRegistry> registry = FdoFeatureAccessManager::GetProviderRegistry();
  FdoPtr<IConnectionManager> manager = FdoFeatureAccessManager::GetConnectionManager();
  FdoInt32 const registryCount = registry->GetRefCount();
  FdoInt32 const managerCount = manager->GetRefCount();
  {
    FdoPtr<IProviderRegistry> again = FdoFeatureAccessManager::GetProviderRegistry();
    EXPECT_EQ(again.p, registry.p);
    FdoPtr<IConnectionManager> managerAgain = FdoFeatureAccessManager::GetConnectionManager();
    EXPECT_EQ(managerAgain.p, manager.p);
  }
  EXPECT_EQ(registry->GetRefCount(), registryCount);
  EXPECT_EQ(manager->GetRefCount(), managerCount);
}

}  // namespace
}  // namespace fdo_sdk
