#include "port/dynamic_library.h"

#include <gtest/gtest.h>

namespace fdo::port {
namespace {

#if defined(_WIN32)
constexpr char const* kCLibrary = "msvcrt.dll";
#else
constexpr char const* kCLibrary = "libc.so.6";
#endif

TEST(DynamicLibrary, FindsAFunctionOfALoadedLibrary) {
  void* library = LoadLibraryByName(kCLibrary);
  ASSERT_NE(library, nullptr);
  auto* length = reinterpret_cast<unsigned long long (*)(char const*)>(FindSymbol(library, "strlen"));
  ASSERT_NE(length, nullptr);
  EXPECT_EQ(length("four"), 4u);
}

TEST(DynamicLibrary, UnknownNamesGiveNull) {
  EXPECT_EQ(LoadLibraryByName("no-such-library-of-this-name"), nullptr);
  void* library = LoadLibraryByName(kCLibrary);
  ASSERT_NE(library, nullptr);
  EXPECT_EQ(FindSymbol(library, "no_such_function_of_this_name"), nullptr);
}

TEST(DynamicLibrary, AFailureIsExplained) {
  ASSERT_EQ(LoadLibraryByName("no-such-library-of-this-name"), nullptr);
  EXPECT_NE(LoadFailure(), "");
}

TEST(DynamicLibrary, AnAddressLeadsToItsFile) {
  std::string const path = LibraryPathOf(reinterpret_cast<void const*>(&LoadLibraryByName));
  EXPECT_NE(path.find("dynamic_library_test"), std::string::npos) << path;
  EXPECT_EQ(LibraryPathOf(nullptr), "");
}

}  // namespace
}  // namespace fdo::port
