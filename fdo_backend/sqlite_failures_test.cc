// Every public operation on a SQLite store with every call of SQLite failing in turn: the operation ends as
// documented, says why in a line or an exception that names the file, leaks nothing, and the same objects go
// on with what the file then holds, which is sound.
#include <Fdo.h>
#include <fdo/database_fdo.h>
#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <initializer_list>
#include <memory>
#include <new>
#include <set>
#include <string>
#include <vector>

#include "port/live_allocations.h"
#include "testing/captured_diagnostics.h"
#include "testing/caught_message.h"
#include "testing/fgf_builder.h"
#include "testing/schema_builder.h"
#include "testing/sqlite_faults.h"
#include "testing/sqlite_file.h"

namespace fdo {
namespace {

// What the file holds, seen from outside.
constexpr char kState[] = "SELECT group_concat(n) FROM (SELECT n FROM parcels ORDER BY n)";
constexpr char kTables[] = "SELECT group_concat(name) FROM sqlite_schema WHERE type = 'table'";

FdoPtr<FdoFilter> Filter(wchar_t const* text) { return FdoPtr<FdoFilter>(FdoFilter::Parse(text)); }

// The n of the rest of the rows, with the cells that could not be read.
std::string RestText(Table& table) {
  std::string text;
  while (Row const* row = table.Next()) {
    for (int i = 0; i < row->Def()->ColumnCount(); ++i) {
      if (!(*row)[i].IsValid()) text += "?";
    }
    text += std::to_string(static_cast<__int64>((*row)[1])) + ",";
  }
  return text;
}

std::string BoxText(double const* box) {
  return box[0] > box[2] ? "inverted" : std::to_string(box[0]) + " to " + std::to_string(box[2]);
}

// A row with that n; its text takes several pages of the file.
void FillRow(Row& row, int n) {
  row[1].Reset(n);
  row[2].Reset(std::wstring(3000, L'a').c_str(), /*copy=*/true);
  auto const shape = Fgf("POINT (" + std::to_string(n) + " 2)");
  row[3].Reset(shape.data(), static_cast<int>(shape.size()), /*copy=*/true);
}

struct Operation {
  char const* name;
  // Gives the result as text. Uses the connected database.
  std::function<std::string(DatabaseFdo&)> run;
  std::string whole;  // the result when nothing fails
  // What else it may be when a call fails, as a pattern.
  std::string failing;
  // A result other than the whole one may come without a line or an exception.
  bool isSilent = false;
};

Table& Parcels(DatabaseFdo& database) { return *database[L"parcels"]; }

// Some of the rows, of which values may be missing.
constexpr char kSomeRows[] = "(\\?*[0-9]+,)*";

std::vector<Operation> Readings() {
  return {
      {"Query",
       [](DatabaseFdo& database) {
         Parcels(database).Query();
         return RestText(Parcels(database));
       },
       "10,20,30,", kSomeRows},
      {"Query(filter, order)",
       [](DatabaseFdo& database) {
         Parcels(database).Query(Filter(L"n > 10"), L"n", false);
         return RestText(Parcels(database));
       },
       "30,20,", kSomeRows},
      {"Query with desired fields",
       [](DatabaseFdo& database) {
         int const columns[] = {0, 1};
         Parcels(database).SetDesiredFields(columns, 2);
         Parcels(database).Query();
         std::string const rest = RestText(Parcels(database));
         Parcels(database).SetDesiredFields(static_cast<int const*>(nullptr), 0);
         return rest;
       },
       "??10,??20,??30,", kSomeRows},
      {"Query(id)",
       [](DatabaseFdo& database) {
         Row const* const row = Parcels(database).Query(2);
         return row == nullptr ? std::string("null") : std::to_string(static_cast<__int64>((*row)[1]));
       },
       "20", "null"},
      {"Query(box)",
       [](DatabaseFdo& database) {
         double const box[] = {15, 0, 40, 5};
         Parcels(database).Query(box, nullptr);
         return RestText(Parcels(database));
       },
       "20,30,", kSomeRows},
      {"QueryRange",
       [](DatabaseFdo& database) {
         Parcels(database).QueryRange(2, 9);
         return RestText(Parcels(database));
       },
       "20,30,", kSomeRows},
      {"EndQuery",
       [](DatabaseFdo& database) {
         Parcels(database).Query();
         Parcels(database).EndQuery();
         return std::string(Parcels(database).Next() == nullptr ? "ended" : "runs");
       },
       "ended", "ended"},
      {"IsEmpty", [](DatabaseFdo& database) { return std::to_string(Parcels(database).IsEmpty(nullptr)); },
       "0", "1"},
      {"GetRowCount",
       [](DatabaseFdo& database) {
         return std::to_string(Parcels(database).GetRowCount(Filter(L"n > 10"), true));
       },
       "2", "-1"},
      {"GetRowCount without a scan",
       [](DatabaseFdo& database) { return std::to_string(Parcels(database).GetRowCount(nullptr, false)); },
       "3", "-1", /*isSilent=*/true},
      {"GetExtent",
       [](DatabaseFdo& database) {
         double box[4];
         Parcels(database).GetExtent(box, nullptr);
         return BoxText(box);
       },
       "10.000000 to 30.000000", ".*"},
      {"GetMinMax",
       [](DatabaseFdo& database) {
         Value min;
         Value max;
         Parcels(database).GetMinMax(min, max, L"n", nullptr);
         return std::to_string(static_cast<__int64>(min)) + " to " +
                std::to_string(static_cast<__int64>(max));
       },
       "10 to 30", "[0-9]+ to [0-9]+"},
      {"GetStats",
       [](DatabaseFdo& database) {
         double variance = 0;
         double mean = 0;
         Parcels(database).GetStats(variance, mean, L"n", nullptr);
         return std::to_string(mean);
       },
       "20.000000", ".*"},
      {"GetMedian",
       [](DatabaseFdo& database) {
         Value median;
         Parcels(database).GetMedian(median, L"n", nullptr);
         return std::to_string(static_cast<__int64>(median));
       },
       "20", "[0-9]+"},
      {"GetDistinctValues",
       [](DatabaseFdo& database) {
         std::set<Value> values;
         Parcels(database).GetDistinctValues(values, L"n", true, nullptr);
         return std::to_string(values.size());
       },
       "3", "[0-3]"},
      {"DuplicateTable",
       [](DatabaseFdo& database) {
         auto const destroy = [&](Table* table) { database.DestroyTable(table); };
         std::unique_ptr<Table, decltype(destroy)> const twin(database.DuplicateTable(&Parcels(database)),
                                                              destroy);
         twin->Query();
         return RestText(*twin);
       },
       "10,20,30,", kSomeRows},
  };
}

struct Change {
  Operation operation;
  // What the file holds afterwards, done or, when a call failed, undone.
  std::vector<std::string> states;
};

std::string Inserted(DatabaseFdo& database, std::initializer_list<int> numbers) {
  std::string results;
  for (int const n : numbers) {
    Row row(Parcels(database).Def());
    FillRow(row, n);
    results += Parcels(database).Insert(row, nullptr, /*storeMakesId=*/true) ? "i" : "-";
  }
  return results;
}

std::vector<Change> Changes() {
  return {
      {{"Insert", [](DatabaseFdo& database) { return Inserted(database, {40}); }, "i", "-"},
       {"10,20,30,40", "10,20,30"}},
      {{"a batch of inserts",
        [](DatabaseFdo& database) {
          Parcels(database).BeginWrite();
          std::string const results = Inserted(database, {40, 50, 60});
          Parcels(database).CommitWrite();
          return results;
        },
        "iii", "[i-]{3}"},
       // A row that fails takes those before it along when it undoes the batch; those after it are a batch
       // of their own.
       {"10,20,30,40,50,60", "10,20,30", "10,20,30,50,60", "10,20,30,60", "10,20,30,40,50", "10,20,30,40,60",
        "10,20,30,40", "10,20,30,50"}},
      {{"Update",
        [](DatabaseFdo& database) {
          Row row(Parcels(database).Def());
          row[1].Reset(15);
          return std::to_string(Parcels(database).Update(row, Filter(L"n < 25")));
        },
        "2", "-1"},
       {"15,15,30", "10,20,30"}},
      {{"Update by id",
        [](DatabaseFdo& database) {
          Row row(Parcels(database).Def());
          FillRow(row, 99);
          return std::to_string(Parcels(database).Update(row, static_cast<__int64>(1)));
        },
        "1", "0"},
       {"20,30,99", "10,20,30"}},
      {{"Delete",
        [](DatabaseFdo& database) { return std::to_string(Parcels(database).Delete(Filter(L"n < 25"))); },
        "2", "0"},
       {"30", "10,20,30"}},
      {{"Delete by id",
        [](DatabaseFdo& database) {
          return std::to_string(Parcels(database).Delete(static_cast<__int64>(1)));
        },
        "1", "0"},
       {"20,30", "10,20,30"}},
  };
}

class SqliteFailures : public testing::Test {
 protected:
  static void SetUpTestSuite() { ASSERT_TRUE(FailingSqlite::PrepareMemory()); }

  SqliteFailures() {
    CapturedDiagnostics const ignored;  // that no registry names the provider
    EXPECT_TRUE(DatabaseFdo::Create(store_.File().c_str(), nullptr));
    DatabaseFdo database;
    Connect(database);
    DatabaseDef def;
    SetTables(def, L"Default",
              {MakeTableDef(L"Default", L"parcels", L"id:Int64 n:Int32 name:String shape:Geometry")});
    EXPECT_TRUE(database.SetSchema(def));
    EXPECT_EQ(Inserted(database, {10, 20, 30}), "iii");
    database.Disconnect();
    std::filesystem::copy_file(file_, original_);
  }

  bool Connect(DatabaseFdo& database) const {
    return database.Connect(store_.File().c_str(), nullptr, nullptr, /*readOnly=*/false, /*loadSchema=*/true);
  }

  void BeginAgain() const {
    // Not every C++ library overwrites a file when it is asked to.
    std::filesystem::remove(file_);
    std::filesystem::copy_file(original_, file_);
    std::filesystem::remove(file_.string() + "-journal");
  }

  // Lets each call of body() fail in turn. body(arm) calls arm() where the calls begin to count, and gives
  // whether one has failed.
  void Sweep(std::string const& name,
             std::function<bool(FailingSqlite&, std::function<void()> const&)> const& body) {
    {
      FailingSqlite sqlite;
      BeginAgain();
      body(sqlite, [] {});  // what is kept from the first use on is there
    }
    for (FaultCase const& fault : kFaults) {
      FailingSqlite sqlite;
      int const step = StepOf(fault);
      bool failed = true;
      for (int n = 1; failed; n += step) {
        SCOPED_TRACE(name + ", " + fault.name + ", call " + std::to_string(n) + " fails");
        BeginAgain();
        long long const before = port::LiveAllocations();
        failed = body(sqlite, [&] { sqlite.FailAt(fault.fault, n, fault.lasting); });
        EXPECT_EQ(port::LiveAllocations(), before);
        EXPECT_EQ(store_.Rows("PRAGMA integrity_check"), "ok");
        if (HasFatalFailure() || HasNonfatalFailure()) return;
      }
    }
  }

  // Runs the operation with that call failing. Gives whether it was the whole result.
  bool RunsWhole(Operation const& operation, DatabaseFdo& database, FailingSqlite& sqlite,
                 CapturedDiagnostics& lines, std::function<void()> const& arm) const {
    lines.Forget();
    std::string result;
    arm();
    std::wstring const thrown = CaughtMessage([&] { result = operation.run(database); });
    bool const failed = sqlite.HasFailed();
    sqlite.Heal();
    bool const told = !thrown.empty() || !lines.Lines().empty();
    if (!thrown.empty()) {
      EXPECT_THAT(thrown, testing::HasSubstr(L"store.sqlite"));
    } else if (result != operation.whole) {
      EXPECT_THAT(result, testing::MatchesRegex(operation.failing));
    }
    EXPECT_TRUE(failed || (!told && result == operation.whole)) << result;
    EXPECT_TRUE(told || operation.isSilent || result == operation.whole) << result;
    EXPECT_THAT(lines.Lines(), testing::Each(testing::HasSubstr(L"store.sqlite")));
    return thrown.empty() && lines.Lines().empty() && result == operation.whole;
  }

  SqliteFile store_;
  std::filesystem::path const file_ = store_.Directory().Path() / "store.sqlite";
  std::filesystem::path const original_ = store_.Directory().Path() / "original";
};

TEST_F(SqliteFailures, Reading) {
  for (Operation const& operation : Readings()) {
    auto const body = [&](FailingSqlite& sqlite, std::function<void()> const& arm) {
      CapturedDiagnostics lines;
      DatabaseFdo database;
      EXPECT_TRUE(Connect(database));
      RunsWhole(operation, database, sqlite, lines, arm);
      bool const failed = sqlite.HasFailed();
      lines.Forget();
      EXPECT_EQ(operation.run(database), operation.whole) << "afterwards";
      EXPECT_EQ(Inserted(database, {40}), "i");
      database.Disconnect();
      EXPECT_THAT(lines.Lines(), testing::IsEmpty());
      EXPECT_EQ(store_.Rows(kState), "10,20,30,40");
      return failed;
    };
    Sweep(operation.name, body);
    if (HasFailure()) return;
  }
}

TEST_F(SqliteFailures, Writing) {
  for (Change const& change : Changes()) {
    Operation const& operation = change.operation;
    auto const body = [&](FailingSqlite& sqlite, std::function<void()> const& arm) {
      CapturedDiagnostics lines;
      DatabaseFdo database;
      EXPECT_TRUE(Connect(database));
      bool whole = RunsWhole(operation, database, sqlite, lines, arm);
      bool const failed = sqlite.HasFailed();
      lines.Forget();
      // A batch that could not be settled when its command went is told of by the next write.
      if (Inserted(database, {1}) == "-") {
        EXPECT_TRUE(failed);
        EXPECT_THAT(lines.Lines(), testing::Each(testing::HasSubstr(L"store.sqlite")));
        EXPECT_EQ(lines.Lines().size(), 1u);
        whole = false;
        EXPECT_EQ(Inserted(database, {1}), "i");
      }
      EXPECT_EQ(Parcels(database).Delete(Filter(L"n = 1")), 1);
      Parcels(database).Query();
      std::string const read = RestText(Parcels(database));
      EXPECT_EQ(read.find('?'), std::string::npos);
      database.Disconnect();
      std::string const state = store_.Rows(kState);
      EXPECT_THAT(change.states, testing::Contains(state));
      EXPECT_TRUE(!whole || state == change.states[0]) << state;
      return failed;
    };
    Sweep(operation.name, body);
    if (HasFailure()) return;
  }
}

// An exception that is not FDO's passes, also on the ways that end queries and batches.
TEST_F(SqliteFailures, WithoutMemory) {
  constexpr int kStep = 23;  // of the allocations, each in some operation
  std::vector<Operation> operations = Readings();
  for (Change const& change : Changes()) operations.push_back(change.operation);
  int start = 0;
  for (Operation const& operation : operations) {
    {
      BeginAgain();
      CapturedDiagnostics const lines;
      DatabaseFdo database;
      EXPECT_TRUE(Connect(database));
      operation.run(database);  // what is kept from the first use on is there
    }
    bool failed = true;
    for (int n = 1 + start++ % kStep; failed; n += kStep) {
      SCOPED_TRACE(std::string(operation.name) + ", allocation " + std::to_string(n) + " fails");
      BeginAgain();
      long long const before = port::LiveAllocations();
      {
        CapturedDiagnostics const lines;
        DatabaseFdo database;
        EXPECT_TRUE(Connect(database));
        port::FailAllocation(n);
        try {
          operation.run(database);
        } catch (std::bad_alloc const&) {
        } catch (FdoException* raised) {
          FdoPtr<FdoException> const released(raised);
        }
        failed = port::FailAllocation(0);
        Parcels(database).CommitWrite();
        Parcels(database).SetDesiredFields(static_cast<int const*>(nullptr), 0);
        EXPECT_EQ(Inserted(database, {40}), "i");
        Parcels(database).Query();
        std::string const read = RestText(Parcels(database));
        EXPECT_EQ(read.find('?'), std::string::npos) << read;
        EXPECT_NE(read.find("40,"), std::string::npos) << read;
      }
      EXPECT_EQ(port::LiveAllocations(), before);
      EXPECT_EQ(store_.Rows("PRAGMA integrity_check"), "ok");
      if (HasFailure()) return;
    }
  }
}

TEST_F(SqliteFailures, Connecting) {
  Sweep("Connect", [&](FailingSqlite& sqlite, std::function<void()> const& arm) {
    CapturedDiagnostics lines;
    DatabaseFdo database;
    arm();
    bool const connected = Connect(database);
    bool const failed = sqlite.HasFailed();
    sqlite.Heal();
    EXPECT_TRUE(connected || failed);
    bool const told = std::any_of(lines.Lines().begin(), lines.Lines().end(), [](std::wstring const& line) {
      return line.rfind(L"FDO connection failure: ", 0) == 0 &&
             line.find(L"store.sqlite") != std::wstring::npos;
    });
    EXPECT_NE(connected, told);
    EXPECT_TRUE(Connect(database)) << "afterwards";
    Parcels(database).Query();
    EXPECT_EQ(RestText(Parcels(database)), "10,20,30,");
    return failed;
  });
}

TEST_F(SqliteFailures, MakingTables) {
  std::string const undone = store_.Rows(kTables);
  auto const body = [&](FailingSqlite& sqlite, std::function<void()> const& arm) {
    CapturedDiagnostics lines;
    DatabaseFdo database;
    EXPECT_TRUE(Connect(database));
    lines.Forget();
    DatabaseDef def;
    SetTables(def, L"Default", {MakeTableDef(L"Default", L"roads", L"id:Int64 shape:Geometry")});
    arm();
    bool const succeeded = database.SetSchema(def);
    bool const failed = sqlite.HasFailed();
    sqlite.Heal();
    EXPECT_TRUE(succeeded || failed);
    EXPECT_TRUE(succeeded || !lines.Lines().empty());
    EXPECT_THAT(lines.Lines(), testing::Each(testing::HasSubstr(L"store.sqlite")));
    std::string const state = store_.Rows(kTables);
    EXPECT_TRUE(!succeeded || state != undone);
    EXPECT_TRUE(Connect(database)) << "afterwards";
    EXPECT_EQ(database[L"roads"] != nullptr, state != undone);
    Parcels(database).Query();
    EXPECT_EQ(RestText(Parcels(database)), "10,20,30,");
    return failed;
  };
  Sweep("SetSchema", body);
}

TEST_F(SqliteFailures, MakingFiles) {
  Sweep("Create", [&](FailingSqlite& sqlite, std::function<void()> const& arm) {
    std::filesystem::remove(file_);
    CapturedDiagnostics lines;
    arm();
    bool const created = DatabaseFdo::Create(store_.File().c_str(), nullptr);
    bool const failed = sqlite.HasFailed();
    sqlite.Heal();
    EXPECT_TRUE(created || failed);
    EXPECT_EQ(std::filesystem::exists(file_), created);
    bool const told =
        !lines.Lines().empty() && lines.Lines().back().rfind(L"Failed to create database, because: ", 0) == 0;
    EXPECT_NE(created, told);
    DatabaseFdo database;
    EXPECT_EQ(created || DatabaseFdo::Create(store_.File().c_str(), nullptr), true) << "afterwards";
    EXPECT_TRUE(Connect(database));
    EXPECT_EQ(database.Count(), 0);
    return failed;
  });
}

}  // namespace
}  // namespace fdo
