#include "fdo_backend/provider_connection.h"

#include <fdo/providers.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "fdo_backend/provider_table.h"
#include "testing/captured_diagnostics.h"
#include "testing/caught_message.h"
#include "testing/recording_provider/recorder.h"

namespace fdo::internal {
namespace {

using recording_provider::Recorder;
using Lines = std::vector<std::wstring>;

constexpr wchar_t kFallback[] = L"No FDO providers found. Missing providers.xml? Will try fallback now.";
constexpr wchar_t kUnknownExtension[] = L"Failed to map file extension to FDO provider";

TEST(ProviderTable, FourteenLibrariesAndEightExtensionsInTheirOrder) {
  std::wstring libraries;
  for (ProviderLibrary const& row : kProviderLibraries) {
    std::string const library = row.library;
    libraries += std::wstring(row.provider) + L"=" + std::wstring(library.begin(), library.end()) + L"\n";
  }
  EXPECT_EQ(libraries,
            L"OSGeo.SDF=SDFProvider\n"
            L"OSGeo.SHP=SHPProvider\n"
            L"OSGeo.SQLite=SQLiteProvider\n"
            L"Vendrix.Oracle=FdoRdbms\n"
            L"Vendrix.SqlServer=SqlServerProvider\n"
            L"OSGeo.SQLServerSpatial=SQLServerSpatialProvider\n"
            L"OSGeo.MySQL=MySQLProvider\n"
            L"OSGeo.ODBC=ODBCProvider\n"
            L"OSGeo.WFS=WFSProvider\n"
            L"OSGeo.WMS=WMSProvider\n"
            L"OSGeo.ArcSDE=ArcSDEProvider\n"
            L"Vendrix.DesignService=QrDsDesignService\n"
            L"OSGeo.PostgreSQL=PostgreSQLProvider\n"
            L"OSGeo.PostGIS=PostGISProvider\n");
  std::wstring extensions;
  for (FileExtension const& row : kFileExtensions) extensions += row.extension;
  EXPECT_EQ(extensions, L".sdf.shp.sdx.sqlite.db.orqdb.tvz.dwg");
}

TEST(ProviderFromFileExtension, EveryRow) {
  CapturedDiagnostics const diagnostics;
  struct {
    wchar_t const* path;
    wchar_t const* provider;
  } const cases[] = {
      {L"a.sdf", L"OSGeo.SDF"},
      {L"a.shp", L"OSGeo.SHP"},
      {L"a.sdx", L"OSGeo.SQLite"},
      {L"a.sqlite", L"OSGeo.SQLite"},
      {L"a.db", L"OSGeo.SQLite"},
      {L"a.orqdb", L"OSGeo.SQLite"},
      {L"a.tvz", L"OSGeo.SQLite"},
      {L"a.dwg", L"Vendrix.DesignService"},
      {L"C:\\data\\A.SHP", L"OSGeo.SHP"},
      {L"archive.tar.sdf", L"OSGeo.SDF"},
      {L"/dir.old/\u65E5\u672C.SqLite", L"OSGeo.SQLite"},
      {L".db", L"OSGeo.SQLite"},
  };
  for (auto const& c : cases) {
    wchar_t const* const provider = ProviderFromFileExtension(c.path);
    ASSERT_NE(provider, nullptr) << c.path;
    EXPECT_STREQ(provider, c.provider) << c.path;
    EXPECT_EQ(provider, ProviderFromFileExtension(c.path)) << "a constant";
  }
  EXPECT_TRUE(diagnostics.Lines().empty());
}

TEST(ProviderFromFileExtension, AnythingElseIsADiagnosticLine) {
  EXPECT_EQ(ProviderOfExtension(nullptr), nullptr);
  for (wchar_t const* path : {L"", L"file", L"dir.old\\file", L"dir.sdf/file", L"a.gpkg", L"a.sdf ", L"a.sd",
                              L"a.", L"sdf", L"a.sqlite.bak"}) {
    CapturedDiagnostics const diagnostics;
    EXPECT_EQ(ProviderFromFileExtension(path), nullptr) << path;
    EXPECT_EQ(diagnostics.Lines(), Lines{kUnknownExtension}) << path;
  }
}

// The registry of this test lists, in this order: OSGeo.WMS.1.0 and OSGeo.SHP.3.9, whose libraries are
// missing, OSGeo.SDF.3.9, which is the recording provider, OSGeo.SDF.4.0, whose library is missing, and
// OSGeo.SQLite.3.9, which is the recording provider again. Of the libraries of known names the loader finds
// FdoRdbms, which has no entry point, SqlServerProvider, which makes no connection, and QrDsDesignService.
class ProviderConnection : public testing::Test {
 protected:
  ProviderConnection() { recording_provider::SetLibraryRecorder(recorder_); }
  ~ProviderConnection() override { recording_provider::SetLibraryRecorder(nullptr); }

  std::shared_ptr<Recorder> const recorder_ = std::make_shared<Recorder>();
  CapturedDiagnostics diagnostics_;
};
class CreateProviderConnectionTest : public ProviderConnection {};
class OpenProviderConnectionTest : public ProviderConnection {};

// A newer version is registered, which cannot be loaded: so the registered name is asked for, and not the
// name that was given.
TEST_F(CreateProviderConnectionTest, TheFirstRegisteredNameThatContainsTheWantedOne) {
  for (wchar_t const* provider : {L"OSGeo.SDF", L"OSGeo.SDF.3.9", L"SDF", L"DF.3", L"OSGeo.SQLite"}) {
    FdoPtr<FdoIConnection> connection = CreateProviderConnection(provider);
    ASSERT_NE(connection, nullptr) << provider;
    EXPECT_EQ(recorder_->LiveObjects(), 1) << provider;
    EXPECT_EQ(connection->GetRefCount(), 1) << provider;
    EXPECT_EQ(connection->GetConnectionState(), FdoConnectionState_Closed) << provider;
    connection = nullptr;
    EXPECT_EQ(recorder_->LiveObjects(), 0) << provider;
  }
  EXPECT_EQ(diagnostics_.Lines(), Lines());
}

TEST_F(CreateProviderConnectionTest, PartOfANameIsEnough) {
  // SHP stands before SDF in this registry, and its library is missing.
  EXPECT_EQ(CreateProviderConnection(L"OSGeo.SH"), nullptr);
  EXPECT_EQ(diagnostics_.Lines(), (Lines{kFallback, L"Failed to load provider: SHPProvider"}));
  diagnostics_.Forget();
  EXPECT_NE(CreateProviderConnection(L"OSGeo.SD"), nullptr);
  EXPECT_EQ(diagnostics_.Lines(), Lines());
  // Among the libraries, Oracle comes first, then SqlServer, then DesignService.
  FdoPtr<FdoIConnection> const connection = CreateProviderConnection(L"Vendrix");
  ASSERT_NE(connection, nullptr);
  EXPECT_EQ(connection->GetRefCount(), 1);
  EXPECT_EQ(diagnostics_.Lines(), (Lines{kFallback, L"Failed to find FDO entry point: FdoRdbms"}));
}

TEST_F(CreateProviderConnectionTest, TheNameCountsWithItsCase) {
  EXPECT_EQ(CreateProviderConnection(L"osgeo.sdf"), nullptr);
  EXPECT_EQ(diagnostics_.Lines(), Lines{kFallback}) << "no row has it either";
}

TEST_F(CreateProviderConnectionTest, WhatEachLibraryLacksIsSaidOnOneLine) {
  struct {
    wchar_t const* provider;
    bool connects;
    Lines lines;
  } const cases[] = {
      {L"No.Such", false, {kFallback}},
      {L"OSGeo.ArcSDE", false, {kFallback, L"Failed to load provider: ArcSDEProvider"}},
      {L"Vendrix.Oracle", false, {kFallback, L"Failed to find FDO entry point: FdoRdbms"}},
      {L"Vendrix.SqlServer", false, {kFallback}},  // a null from the entry point is silent
      {L"Vendrix.DesignService", true, {kFallback}},
  };
  for (auto const& c : cases) {
    for (int again = 0; again < 2; ++again) {
      diagnostics_.Forget();
      FdoPtr<FdoIConnection> const connection = CreateProviderConnection(c.provider);
      EXPECT_EQ(connection != nullptr, c.connects) << c.provider;
      EXPECT_EQ(diagnostics_.Lines(), c.lines) << c.provider;
    }
  }
}

TEST_F(CreateProviderConnectionTest, AnExceptionOfTheRegistryIsSwallowedAndTheLibrariesAreTried) {
  EXPECT_EQ(CreateProviderConnection(L"OSGeo.SHP.3.9"), nullptr) << "no row contains the version";
  EXPECT_EQ(diagnostics_.Lines(), Lines{kFallback});
}

TEST_F(CreateProviderConnectionTest, WhatIsKnownAndWhatIsMissing) {
  std::vector<KnownProvider> const known = KnownProviders();
  ASSERT_EQ(known.size(), std::size(kProviderLibraries));
  for (std::size_t i = 0; i < known.size(); ++i) {
    EXPECT_EQ(known[i].name, kProviderLibraries[i].provider);
    diagnostics_.Forget();
    bool const connects = CreateProviderConnection(known[i].name.c_str()) != nullptr;
    EXPECT_EQ(known[i].problem.empty(), connects) << known[i].name << L": " << known[i].problem;
  }
  auto const of = [&](std::wstring const& name) {
    return *std::find_if(known.begin(), known.end(),
                         [&](KnownProvider const& each) { return each.name == name; });
  };
  EXPECT_EQ(of(L"OSGeo.SDF").registeredAs, L"OSGeo.SDF.3.9");
  EXPECT_EQ(of(L"OSGeo.SDF").library, L"SDFProvider");
  EXPECT_EQ(of(L"OSGeo.SDF").problem, L"");
  EXPECT_EQ(of(L"OSGeo.SHP").registeredAs, L"OSGeo.SHP.3.9");
  std::wstring const missing = std::filesystem::path("/there/is/no/provider").make_preferred().wstring();
  EXPECT_NE(of(L"OSGeo.SHP").problem.find(missing), std::wstring::npos) << of(L"OSGeo.SHP").problem;
  EXPECT_EQ(of(L"OSGeo.ArcSDE").registeredAs, L"");
  EXPECT_NE(of(L"OSGeo.ArcSDE").problem, L"");
  EXPECT_EQ(of(L"Vendrix.Oracle").problem, L"it has no entry point CreateConnection");
  EXPECT_EQ(of(L"Vendrix.SqlServer").problem, L"it makes no connection");
  EXPECT_EQ(of(L"Vendrix.DesignService").problem, L"");
}

TEST_F(CreateProviderConnectionTest, AskingWhatIsKnownSaysNothing) {
  KnownProviders();
  EXPECT_EQ(diagnostics_.Lines(), Lines());
}

TEST_F(OpenProviderConnectionTest, StringConfigurationAndOpenInThisOrder) {
  FdoPtr<FdoIConnection> const connection =
      OpenProviderConnection(L"File=\"a\"", L"OSGeo.SDF", L"<config name=\"stra\u00DFe\"/>", /*open=*/true);
  ASSERT_NE(connection, nullptr);
  EXPECT_EQ(recorder_->TakeLog(),
            "connection string File=\"a\"\n"
            "configuration <config name=\"stra\u00DFe\"/>\n"
            "open\n");
  EXPECT_EQ(recorder_->LiveObjects(), 1);
}

TEST_F(OpenProviderConnectionTest, NoConfigurationAndNotOpened) {
  for (wchar_t const* configuration : {static_cast<wchar_t const*>(nullptr), L""}) {
    FdoPtr<FdoIConnection> const connection =
        OpenProviderConnection(L"x", L"OSGeo.SDF", configuration, /*open=*/false);
    ASSERT_NE(connection, nullptr);
    EXPECT_EQ(recorder_->TakeLog(), "connection string x\n");
  }
}

TEST_F(OpenProviderConnectionTest, WithoutAProviderThereIsNoConnection) {
  EXPECT_EQ(OpenProviderConnection(L"x", L"No.Such", L"<c/>", /*open=*/true), nullptr);
  EXPECT_EQ(diagnostics_.Lines(), Lines{kFallback});
}

TEST_F(OpenProviderConnectionTest, AnExceptionPassesAndTheConnectionIsReleased) {
  int const calls = recording_provider::FailEveryCall(*recorder_, [this](int n) {
    bool opened = false;
    std::wstring const message = CaughtMessage(
        [&] { opened = OpenProviderConnection(L"x", L"OSGeo.SDF", L"<c/>", /*open=*/true) != nullptr; });
    EXPECT_EQ(opened, !recorder_->Threw());
    EXPECT_EQ(message, recorder_->Threw() ? Recorder::MessageOfCall(n) : L"");
    EXPECT_EQ(recorder_->LiveObjects(), 0) << n;
  });
  EXPECT_EQ(calls, 3) << "the string, the configuration, and opening";
  EXPECT_EQ(diagnostics_.Lines(), Lines());
}

}  // namespace
}  // namespace fdo::internal
