// Threads that come to the pool, and to the platforms behind it, all at once.
#include <Fdo.h>
#include <fdo/database_fdo.h>
#include <fdo/db_pool.h>
#include <fdo/expr_eval.h>
#include <gtest/gtest.h>

#include <atomic>
#include <latch>
#include <string>
#include <thread>
#include <vector>

#include "testing/captured_diagnostics.h"
#include "testing/one_table_store.h"
#include "testing/scratch_directory.h"

namespace fdo {
namespace {

constexpr int kThreads = 8;

// Runs body(i) on that many threads, which begin together.
template <class Body>
void Together(int count, Body body) {
  std::latch start(count);
  std::vector<std::thread> threads;
  for (int i = 0; i < count; ++i) {
    threads.emplace_back([&, i] {
      start.arrive_and_wait();
      body(i);
    });
  }
  for (std::thread& thread : threads) thread.join();
}

// A new store with an empty table "town".
std::wstring MakeStore(ScratchDirectory const& scratch, std::string const& name) {
  std::wstring const path = scratch.File(name);
  DatabaseFdo database;
  MakeOneTableStore(database, path, L"town", L"id:Int64 name:String");
  return path;
}

// The first use of the registry, of GDAL and of the table of functions, each by all threads. This test comes
// first, and so finds none of them in use.
TEST(DbPoolThreads, EverythingMayBeUsedFirstByAllAtOnce) {
  CapturedDiagnostics const diagnostics;
  ScratchDirectory const scratch;
  std::wstring const missing = scratch.File("missing.gpkg");
  std::atomic<int> right{0};
  Together(kThreads, [&](int) {
    FdoPtr<FdoExpression> const sum = FdoExpression::Parse(L"Round(pow(3, 2) + 0.5)");
    Value result;
    TableDef const def;
    Row const row(&def);
    bool const calculated = ExprEval(sum, nullptr, nullptr).Eval(&row, &result);
    bool const opened = DbPool::GetConnection(missing.c_str()) != nullptr;
    if (calculated && static_cast<double>(result) == 10 && !opened && DbPool::LastAttempts().size() == 4)
      ++right;
  });
  EXPECT_EQ(right, kThreads);
}

TEST(DbPoolThreads, ManyReadWhileOneWrites) {
  constexpr int kBatch = 50, kBatches = 20;
  ScratchDirectory const scratch;
  std::wstring const path = MakeStore(scratch, "town.sqlite");
  std::atomic<bool> written{false};
  std::atomic<int> scans{0}, faults{0};
  Together(kThreads, [&](int thread) {
    if (thread == 0) {
      for (int batch = 0; batch < kBatches; ++batch) {
        DbHandle const connection(DbPool::GetConnection(path.c_str()));
        if (!connection) return void(++faults);
        Table& table = (*static_cast<Database*>(connection))[0];
        Row row(table.Def());
        row[L"name"] = L"x";
        table.BeginWrite();
        for (int i = 0; i < kBatch; ++i) faults += table.Insert(row, nullptr, true) ? 0 : 1;
        table.CommitWrite();
      }
      written = true;
      return;
    }
    __int64 before = 0;
    for (bool last = false; !last;) {
      last = written;
      DbHandle const connection(DbPool::GetConnection(path.c_str()));
      if (!connection) return void(++faults);
      Table& table = (*static_cast<Database*>(connection))[0];
      __int64 count = 0;
      table.Query();
      while (table.Next() != nullptr) ++count;
      table.EndQuery();
      if (count % kBatch != 0 || count < before || (last && count != kBatch * kBatches)) ++faults;
      before = count;
      ++scans;
    }
  });
  EXPECT_EQ(faults, 0) << "whole batches, never fewer than before, all of them in the end";
  EXPECT_GE(scans, kThreads - 1);
  EXPECT_EQ(DbPool::Counters().inUse, 0);
  DbPool::CloseAllFreeConnections();
}

}  // namespace
}  // namespace fdo
