// A folder of its own for each test, and registries whose file is there.
#ifndef SDK_RUNTIME_CLIENT_SERVICES_TESTING_REGISTRY_IN_FOLDER_H_
#define SDK_RUNTIME_CLIENT_SERVICES_TESTING_REGISTRY_IN_FOLDER_H_

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "Fdo.h"

namespace fdo_sdk {

class RegistryInFolder : public testing::Test {
 protected:
  RegistryInFolder() {
    testing::TestInfo const* test = testing::UnitTest::GetInstance()->current_test_info();
    folder_ = std::filesystem::canonical(testing::TempDir()) /
              (std::string(test->test_suite_name()) + "." + test->name());
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
  }
  ~RegistryInFolder() override { std::filesystem::remove_all(folder_); }

  class Registry : public FdoProviderRegistry {
   public:
    explicit Registry(FdoString* file) : FdoProviderRegistry(file) {}
  };
  class Manager : public FdoConnectionManager {
   public:
    explicit Manager(FdoProviderRegistry* registry) : FdoConnectionManager(registry) {}
  };

  std::filesystem::path File() const { return folder_ / "providers.xml"; }

  FdoPtr<FdoProviderRegistry> Open() const {
    return FdoPtr<FdoProviderRegistry>(new Registry(FdoStringP(File().string().c_str())));
  }

  void Write(std::string const& content) const { std::ofstream(File(), std::ios::binary) << content; }

  std::string Content() const {
    std::ostringstream content;
    content << std::ifstream(File(), std::ios::binary).rdbuf();
    return content.str();
  }

  static void Register(FdoProviderRegistry* registry, FdoString* name, FdoString* library) {
    registry->RegisterProvider(name, L"", L"", L"1.0", L"4.0", library, false);
  }

  std::filesystem::path folder_;
};

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_CLIENT_SERVICES_TESTING_REGISTRY_IN_FOLDER_H_
