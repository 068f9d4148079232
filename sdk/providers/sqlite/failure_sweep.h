// Lets every call to the disk, and every wish for memory, fail in turn: what was to be done is done or not
// done, the exception says what happened, nothing leaks, and the file is sound.
#ifndef SDK_PROVIDERS_SQLITE_FAILURE_SWEEP_H_
#define SDK_PROVIDERS_SQLITE_FAILURE_SWEEP_H_

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>

#include "port/live_allocations.h"
#include "sdk/providers/sqlite/test_store.h"
#include "testing/sqlite_faults.h"

namespace fdo_sqlite {

using fdo::FaultCase;
using fdo::kFaults;

inline int ForEach(fdo::FailingSqlite& sqlite, FaultCase const& row, std::function<void()> const& body) {
  return fdo::ForEachFailure(sqlite, row.fault, body, row.lasting, fdo::StepOf(row));
}

class FailureSweep : public testing::Test {
 protected:
  static void SetUpTestSuite() { ASSERT_TRUE(fdo::FailingSqlite::PrepareMemory()); }

  // SQL makes the file with which each run begins.
  void Begin(std::string const& sql) {
    store_.Run(sql);
    std::filesystem::copy_file(file_, original_);
  }

  // Puts that file back.
  void BeginAgain() const {
    // Not every C++ library overwrites a file when it is asked to.
    std::filesystem::remove(file_);
    std::filesystem::copy_file(original_, file_);
    std::filesystem::remove(file_.string() + "-journal");
  }

  // The work is done with each call failing in turn. After each, `state` must
  // give one of the two results: that of before, or that of the work done.
  void Sweep(std::function<void()> const& work, char const* state) {
    std::string const undone = store_.Rows(state);
    work();
    std::string const done = store_.Rows(state);
    ASSERT_NE(undone, done);

    for (FaultCase const& row : kFaults) {
      SCOPED_TRACE(row.name);
      fdo::FailingSqlite sqlite;
      int const failures = ForEach(sqlite, row, [&] {
        BeginAgain();
        bool const succeeded = Runs(work);
        bool const failed = sqlite.HasFailed();
        sqlite.Heal();
        // Some failures do not matter: a page cache that cannot grow, say.
        EXPECT_TRUE(succeeded || failed);
        EXPECT_EQ(store_.Rows("PRAGMA integrity_check"), "ok");
        std::string const now = store_.Rows(state);
        EXPECT_TRUE(now == done || now == undone) << now;
        EXPECT_TRUE(!succeeded || now == done);
      });
      EXPECT_GT(failures, 0);
    }
  }

  // As Sweep, for work that only reads: it gives what it gives without failures, or throws.
  void SweepReading(std::function<std::string()> const& read) {
    std::string const expected = read();
    for (FaultCase const& row : kFaults) {
      SCOPED_TRACE(row.name);
      fdo::FailingSqlite sqlite;
      ForEach(sqlite, row, [&] {
        BeginAgain();
        std::string result;
        result.reserve(expected.size());  // so that it allocates nothing while that is counted
        bool const succeeded = Runs([&] {
          std::string const text = read();
          result.assign(text);
        });
        bool const failed = sqlite.HasFailed();
        sqlite.Heal();
        EXPECT_TRUE(succeeded || failed);
        EXPECT_TRUE(!succeeded || result == expected) << result;
        EXPECT_EQ(store_.Rows("PRAGMA integrity_check"), "ok");
      });
    }
  }

  // Whether the work comes to its end. It may throw an exception of the interface, which names the file.
  bool Runs(std::function<void()> const& work) {
    long long const before = fdo::port::LiveAllocations();
    bool succeeded = true;
    try {
      work();
    } catch (FdoException* raised) {
      FdoPtr<FdoException> failure(raised);
      succeeded = false;
      EXPECT_EQ(failure->GetRefCount(), 1);
      std::wstring const message = failure->GetExceptionMessage();
      EXPECT_NE(message.find(L"store.sqlite"), std::wstring::npos) << fdo_sdk::Utf8FromWide(message);
    }
    EXPECT_EQ(fdo::port::LiveAllocations(), before);
    return succeeded;
  }

  TestStore store_;
  std::filesystem::path const file_ = store_.Directory().Path() / "store.sqlite";

 private:
  std::filesystem::path const original_ = store_.Directory().Path() / "original";
};

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_FAILURE_SWEEP_H_
