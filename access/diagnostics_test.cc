// Where messages go, and how exceptions become messages.
#include <fdo/diagnostics.h>
#include <gtest/gtest.h>

#include <clocale>
#include <string>
#include <thread>
#include <vector>

#include "access/boundary.h"
#include "access/diagnostics.h"

namespace fdo {
namespace {

// What is written to the standard error stream meanwhile.
template <class Body>
std::string ErrorStream(Body body) {
  testing::internal::CaptureStderr();
  body();
  return testing::internal::GetCapturedStderr();
}

struct Collector {
  Collector() { SetDiagnosticHandler(&Collect, this); }
  ~Collector() { SetDiagnosticHandler(nullptr, nullptr); }
  Collector(Collector const&) = delete;
  Collector& operator=(Collector const&) = delete;

  static void Collect(wchar_t const* message, void* context) {
    static_cast<Collector*>(context)->messages.emplace_back(message);
  }
  std::vector<std::wstring> messages;
};

TEST(Diagnostics, OneLineWithoutAHandler) {
  EXPECT_EQ("Quillon error: no such file\n", ErrorStream([] { ReportError(L"no such file"); }));
  EXPECT_EQ("Quillon error: no such file\n", ErrorStream([] { ReportError("no such file"); }));
  EXPECT_EQ("Quillon error: 100%s\n", ErrorStream([] { ReportError("100%s"); })) << "a message is no format";
}

TEST(Diagnostics, ALineOfItsOwnWordsHasNothingInFront) {
  EXPECT_EQ("No providers found\n", ErrorStream([] { ReportLine("No providers found"); }));
  EXPECT_EQ("\xC3\xA9t\xC3\xA9\n", ErrorStream([] { ReportLine(L"\xE9t\xE9"); }));
  Collector collector;
  ReportLine(L"wide");
  ReportLine("narrow");
  EXPECT_EQ((std::vector<std::wstring>{L"wide", L"narrow"}), collector.messages);
}

TEST(Diagnostics, AWatchKeepsACopyOfWhatItsThreadReports) {
  Collector collector;
  DiagnosticWatch const outer;
  ReportError(L"one");
  {
    DiagnosticWatch const inner;
    ReportLine("two");
    std::thread([] { ReportError("another thread's"); }).join();
    EXPECT_EQ(inner.Lines(), L"two");
  }
  ReportError(L"three");
  EXPECT_EQ(outer.Lines(), L"one\ntwo\nthree");
  EXPECT_EQ(collector.messages.size(), 4u) << "which go their way all the same";
}

TEST(Diagnostics, Utf8EvenInTheCLocale) {
  ASSERT_STREQ("C", std::setlocale(LC_ALL, nullptr));
  struct {
    wchar_t const* message;
    char const* line;
  } const cases[] = {
      {L"\xE9t\xE9", "Quillon error: \xC3\xA9t\xC3\xA9\n"},
      {L"\x20AC", "Quillon error: \xE2\x82\xAC\n"},
      {L"\U0001F600", "Quillon error: \xF0\x9F\x98\x80\n"},
  };
  for (auto const& c : cases) EXPECT_EQ(c.line, ErrorStream([&] { ReportError(c.message); }));
  wchar_t const pair[] = {wchar_t(0xD83D), wchar_t(0xDE00), 0};
  EXPECT_EQ("Quillon error: \xF0\x9F\x98\x80\n", ErrorStream([&] { ReportError(pair); }));
  wchar_t const halves[] = {wchar_t(0xDE00), L'a', wchar_t(0xD83D), 0};
  EXPECT_EQ(
      "Quillon error: \xEF\xBF\xBD"
      "a\xEF\xBF\xBD\n",
      ErrorStream([&] { ReportError(halves); }));
  EXPECT_EQ("Quillon error: \xC3\xA9\n", ErrorStream([] { ReportError("\xC3\xA9"); }));
}

TEST(Diagnostics, ANullMessageIsEmpty) {
  EXPECT_EQ("Quillon error: \n", ErrorStream([] { ReportError(static_cast<wchar_t const*>(nullptr)); }));
  EXPECT_EQ("Quillon error: \n", ErrorStream([] { ReportError(static_cast<char const*>(nullptr)); }));
}

TEST(Diagnostics, AHandlerTakesTheMessageInsteadOfTheStream) {
  std::string const stream = ErrorStream([] {
    Collector collector;
    ReportError(L"wide \x4E2D");
    ReportError("narrow \xC3\xA9");
    ReportError(static_cast<wchar_t const*>(nullptr));
    EXPECT_EQ((std::vector<std::wstring>{L"wide \x4E2D", L"narrow \xE9", L""}), collector.messages);
  });
  EXPECT_EQ("", stream);
  EXPECT_EQ("Quillon error: again\n", ErrorStream([] { ReportError(L"again"); }))
      << "a null handler restores";
}

TEST(Diagnostics, AHandlerMaySetAnother) {
  struct Once {
    static void Take(wchar_t const*, void* context) {
      ++*static_cast<int*>(context);
      SetDiagnosticHandler(nullptr, nullptr);
    }
  };
  int taken = 0;
  SetDiagnosticHandler(&Once::Take, &taken);
  EXPECT_EQ("Quillon error: second\n", ErrorStream([] {
              ReportError(L"first");
              ReportError(L"second");
            }));
  EXPECT_EQ(1, taken);
}

TEST(Diagnostics, LinesOfTwoThreadsDoNotMix) {
  constexpr int kLines = 500;
  std::string const line = "Quillon error: " + std::string(200, 'x') + "\n";
  std::string const written = ErrorStream([] {
    auto const report = [] {
      for (int i = 0; i < kLines; ++i) ReportError(std::wstring(200, L'x').c_str());
    };
    std::thread other(report);
    report();
    other.join();
  });
  std::string expected;
  for (int i = 0; i < 2 * kLines; ++i) expected += line;
  EXPECT_EQ(expected, written);
}

TEST(Diagnostics, HandlersChangeWhileOthersReport) {
  struct Count {
    static void Take(wchar_t const*, void*) {}
  };
  SetDiagnosticHandler(&Count::Take, nullptr);
  std::thread reporting([] {
    for (int i = 0; i < 2000; ++i) ReportError(L"x");
  });
  for (int i = 0; i < 2000; ++i) SetDiagnosticHandler(&Count::Take, &i);
  reporting.join();
  SetDiagnosticHandler(nullptr, nullptr);
}

TEST(Boundary, GivesTheResult) {
  EXPECT_EQ("", ErrorStream([] { EXPECT_EQ(7, AtBoundary(-1, [] { return 7; })); }));
}

TEST(Boundary, AnExceptionIsReportedReleasedAndBecomesTheFailure) {
  FdoPtr<FdoException> const kept = FdoException::Create(L"it broke");
  std::string const stream =
      ErrorStream([&] { EXPECT_EQ(-1, AtBoundary(-1, [&]() -> int { throw FDO_SAFE_ADDREF(kept.p); })); });
  EXPECT_EQ("Quillon error: it broke\n", stream);
  EXPECT_EQ(1, kept->GetRefCount());
}

TEST(Boundary, AReportOfTheCallersOwnTakesTheMessage) {
  std::vector<std::wstring> taken;
  auto const take = [&taken](FdoString* message) {
    taken.emplace_back(message == nullptr ? L"(null)" : message);
  };
  EXPECT_EQ("", ErrorStream([&] {
              EXPECT_EQ(3, AtBoundaryReporting(-1, take, [] { return 3; }));
              EXPECT_EQ(-1, AtBoundaryReporting(-1, take,
                                                []() -> int { throw FdoException::Create(L"it broke"); }));
              EXPECT_EQ(-1, AtBoundaryReporting(-1, take, []() -> int { throw FdoException::Create(); }));
            }));
  EXPECT_EQ((std::vector<std::wstring>{L"it broke", L"(null)"}), taken);
}

TEST(Boundary, OperationsWithoutAResult) {
  bool ran = false;
  EXPECT_EQ("", ErrorStream([&] { AtBoundary([&] { ran = true; }); }));
  EXPECT_TRUE(ran);
  EXPECT_EQ("Quillon error: \n", ErrorStream([] { AtBoundary([] { throw FdoException::Create(); }); }))
      << "an exception without a message";
}

TEST(Boundary, OtherExceptionsPass) {
  EXPECT_THROW(AtBoundary(-1, []() -> int { throw 5; }), int);
}

}  // namespace
}  // namespace fdo
