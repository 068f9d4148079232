#include <fdo/connection_string.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "testing/scratch_directory.h"

namespace fdo {
namespace {

TEST(MakeConnectionString, FormOfEachProvider) {
  struct {
    wchar_t const* provider;
    wchar_t const* file;
    wchar_t const* expected;
  } const cases[] = {
      {L"OSGeo.SQLite", L"x.sqlite", L"File=\"x.sqlite\";UseFdoMetadata=TRUE"},
      {L"OSGeo.SQLite.3.9", L"x.sqlite", L"File=\"x.sqlite\";UseFdoMetadata=TRUE"},
      {L"OSGeo.SDF", L"/no/such.sdf", L"File=\"/no/such.sdf\"; ReadOnly=true"},
      {L"OSGeo.SDF.3.9", L"/no/such.sdf", L"File=\"/no/such.sdf\"; ReadOnly=true"},
      {L"OSGeo.SHP", L"C:\\data\\A.SHP", L"DefaultFileLocation=\"C:\\data\\A.SHP\";"},
      {L"OSGeo.SHP.3.9", L"a b.shp", L"DefaultFileLocation=\"a b.shp\";"},
      {L"Vendrix.DesignService", L"plan.dwg", L"File=\"plan.dwg\";ReadOnly=true"},
      {L"Vendrix.DesignService.1.0", L"plan.dwg", L"File=\"plan.dwg\";ReadOnly=true"},
      // The text has to be at the start, in its own case.
      {L"My.OSGeo.SDF", L"x.sdf", L"x.sdf"},
      {L"osgeo.sqlite", L"x.sqlite", L"x.sqlite"},
      {L"OSGeo.SQL", L"x.sqlite", L"x.sqlite"},
      {L"OSGeo.SQLServerSpatial", L"Service=here", L"Service=here"},
      {L"OSGeo.PostGIS", L"Service=a@b;Username=\"c\"", L"Service=a@b;Username=\"c\""},
      {L"", L"anything", L"anything"},
      // The file stands as it is.
      {L"OSGeo.SQLite", L"", L"File=\"\";UseFdoMetadata=TRUE"},
      {L"OSGeo.SQLite", L"a\"b;c.sqlite", L"File=\"a\"b;c.sqlite\";UseFdoMetadata=TRUE"},
      {L"OSGeo.SQLite", L"stra\u00DFe/\u65E5\u672C.sqlite",
       L"File=\"stra\u00DFe/\u65E5\u672C.sqlite\";UseFdoMetadata=TRUE"},
  };
  for (auto const& c : cases) EXPECT_EQ(c.expected, MakeConnectionString(c.provider, c.file)) << c.provider;
}

TEST(MakeConnectionString, SdfIsReadOnlyUnlessTheFileMayBeWritten) {
  ScratchDirectory const scratch;
  for (char const* name : {"plain.sdf", "stra\u00DFe \u65E5\u672C.sdf"}) {
    std::wstring const file = scratch.File(name);
    EXPECT_EQ(L"File=\"" + file + L"\"; ReadOnly=true", MakeConnectionString(L"OSGeo.SDF", file.c_str()))
        << name << " is missing";
    std::filesystem::path const path =
        scratch.Path() /
        std::filesystem::path(std::u8string(name, name + std::char_traits<char>::length(name)));
    std::ofstream(path) << "x";
    EXPECT_EQ(L"File=\"" + file + L"\"; ReadOnly=false", MakeConnectionString(L"OSGeo.SDF", file.c_str()))
        << name << " can be written";
    std::filesystem::permissions(path, std::filesystem::perms::owner_read);
    // Some users may write everything, whatever its permissions say, and whatever platforms say of them.
    bool const writable = std::ofstream(path, std::ios::app).is_open();
    std::wstring const made = MakeConnectionString(L"OSGeo.SDF", file.c_str());
    if (!writable || made != L"File=\"" + file + L"\"; ReadOnly=false") {
      EXPECT_EQ(L"File=\"" + file + L"\"; ReadOnly=true", made) << name;
    }
  }
}

}  // namespace
}  // namespace fdo
