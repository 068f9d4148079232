#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "Fdo.h"
#include "port/dynamic_library.h"
#include "sdk/runtime/client_services/testing/registry_in_folder.h"
#include "sdk/runtime/thrown.h"

namespace fdo_sdk {
namespace {

// With its drive, where there are drives: without one it would be taken to go on from the registry's.
std::wstring const kLibraries = std::filesystem::absolute(FDO_TEST_LIBRARIES).wstring();

std::string FileOf(std::string const& baseName) {
  return fdo::port::kLibraryPrefix + baseName + fdo::port::kLibrarySuffix;
}

// Every library here fails in its own way, which tells which of them was reached.
class ConnectionManager : public RegistryInFolder {
 protected:
  std::wstring Failure(std::wstring const& name) {
    FdoPtr<FdoProviderRegistry> registry = Open();
    FdoPtr<FdoConnectionManager> manager(new Manager(registry));
    return MessageThrownBy<FdoClientServiceException>([&] { manager->CreateConnection(name.c_str()); });
  }
  static std::wstring Wide(std::string const& text) { return FdoStringP(text.c_str()).operator FdoString*(); }
  void ExpectFailure(std::wstring const& name, std::wstring const& part) {
    std::wstring const message = Failure(name);
    EXPECT_NE(message.find(part), std::wstring::npos) << FdoStringP(message.c_str()).operator char const*();
  }
};

TEST_F(ConnectionManager, UnknownNamesAreNamed) {
  ExpectFailure(L"Company.Unknown", L"\"Company.Unknown\"");
  ExpectFailure(L"/no/such/folder/libX.so", L"\"/no/such/folder/libX.so\"");
  ExpectFailure(L"", L"empty");
  FdoPtr<FdoProviderRegistry> registry = Open();
  FdoPtr<FdoConnectionManager> manager(new Manager(registry));
  MessageThrownBy<FdoClientServiceException>([&] { manager->CreateConnection(nullptr); });
}

TEST_F(ConnectionManager, AFolderAndABaseNameAreCompleted) {
  ExpectFailure(kLibraries + L"/fdo_test_no_entry_point", L"no entry point \"CreateConnection\"");
  ExpectFailure(kLibraries + L"/fdo_test_no_connection", L"made no connection");
  ExpectFailure(kLibraries + L"/" + Wide(FileOf("fdo_test_no_connection")), L"made no connection");
}

TEST_F(ConnectionManager, AFileThatIsNoLibraryIsNamed) {
  std::filesystem::path const broken = folder_ / FileOf("broken");
  std::ofstream(broken) << "no library";
  std::wstring const message = Failure(broken.wstring());
  EXPECT_NE(message.find(Wide(FileOf("broken"))), std::wstring::npos);
  EXPECT_NE(message.find(L"cannot be loaded"), std::wstring::npos);
}

TEST_F(ConnectionManager, TheNewestVersionServesANameWithoutOne) {
  FdoPtr<FdoProviderRegistry> registry = Open();
  Register(registry, L"Company.Data.3.9", (kLibraries + L"/fdo_test_no_connection").c_str());
  Register(registry, L"Company.Data.3.10", (kLibraries + L"/fdo_test_no_entry_point").c_str());
  Register(registry, L"Company.Data.2.11", L"/missing/two.so");
  struct Case {
    wchar_t const* name;
    wchar_t const* part;
  };
  Case const cases[] = {
      {L"Company.Data.3.9", L"made no connection"},
      {L"Company.Data.3.10", L"no entry point"},
      {L"Company.Data", L"no entry point"},
      {L"Company.Data.3", L"no entry point"},
      {L"Company.Data.2", L"two.so"},
      {L"Company.Data.4", L"\"Company.Data.4\""},
      {L"company.Data", L"\"company.Data\""},
      {L"Company", L"\"Company\""},
      {L"Company.Data.3.1", L"\"Company.Data.3.1\""},
  };
  for (Case const& c : cases) ExpectFailure(c.name, c.part);
}

TEST_F(ConnectionManager, ARelativeLibraryIsBesideTheRegistrysFile) {
  std::filesystem::create_directory(folder_ / "sub");
  std::filesystem::path const inside = folder_ / "sub" / FileOf("Near"), beside = folder_ / FileOf("Beside");
  std::ofstream(inside) << "no library";
  std::ofstream(beside) << "no library";
  FdoPtr<FdoProviderRegistry> registry = Open();
  Register(registry, L"Company.Near.1.0", L"./sub/Near");
  Register(registry, L"Company.Beside.1.0", L"Beside");
  ExpectFailure(L"Company.Near", inside.wstring());
  ExpectFailure(L"Company.Beside", beside.wstring());
}

TEST_F(ConnectionManager, AnUnregisteredProviderIsGone) {
  FdoPtr<FdoProviderRegistry> registry = Open();
  FdoPtr<FdoConnectionManager> manager(new Manager(registry));
  Register(registry, L"Company.Data.1.0", (kLibraries + L"/fdo_test_no_connection").c_str());
  MessageThrownBy<FdoClientServiceException>([&] { manager->CreateConnection(L"Company.Data"); });
  registry->UnregisterProvider(L"Company.Data.1.0");
  std::wstring const message =
      MessageThrownBy<FdoClientServiceException>([&] { manager->CreateConnection(L"Company.Data"); });
  EXPECT_NE(message.find(L"is not there"), std::wstring::npos);
  EXPECT_EQ(registry->GetRefCount(), 2);
  manager = nullptr;
  EXPECT_EQ(registry->GetRefCount(), 1);
}

}  // namespace
}  // namespace fdo_sdk
