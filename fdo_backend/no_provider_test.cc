// Where FDO knows no provider at all: the registry of this test is empty.
#include <fdo/database_fdo.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "testing/captured_diagnostics.h"

namespace fdo {
namespace {

using Lines = std::vector<std::wstring>;
constexpr wchar_t kFallback[] = L"No FDO providers found. Missing providers.xml? Will try fallback now.";

TEST(NoProvider, TheWarningStandsOnceAndTheLibrariesAreTried) {
  CapturedDiagnostics diagnostics;
  DatabaseFdo database;
  EXPECT_FALSE(database.Connect(L"a.dwg", nullptr, nullptr, false, true));
  EXPECT_EQ(diagnostics.Lines(), (Lines{kFallback, L"Failed to load provider: QrDsDesignService"}));
  EXPECT_EQ(database.FdoConnection(), nullptr);
  EXPECT_EQ(database.Count(), 0);
}

TEST(NoProvider, ANameThatNoLibraryHasSaysNoMore) {
  CapturedDiagnostics diagnostics;
  DatabaseFdo database;
  EXPECT_FALSE(database.Connect(L"Service=a", L"No.Such", nullptr, false, true));
  EXPECT_EQ(diagnostics.Lines(), Lines{kFallback});
  diagnostics.Forget();
  EXPECT_FALSE(DatabaseFdo::Create(L"a", L"No.Such"));
  EXPECT_EQ(diagnostics.Lines(), Lines{kFallback});
}

TEST(NoProvider, LinesReachTheErrorStreamAsTheyStand) {
  testing::internal::CaptureStderr();
  DatabaseFdo database;
  EXPECT_FALSE(database.Connect(L"a.dwg", nullptr, nullptr, false, true));
  EXPECT_FALSE(database.Connect(L"a.unknown", nullptr, nullptr, false, true));
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "No FDO providers found. Missing providers.xml? Will try fallback now.\n"
            "Failed to load provider: QrDsDesignService\n"
            "Quillon error: Failed to map file extension to FDO provider\n");
}

}  // namespace
}  // namespace fdo
