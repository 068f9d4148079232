// Every call of the provider fails in turn: the documented result and one line, nothing is leaked, and the
// database can be used on.
#include <Fdo.h>
#include <fdo/database_fdo.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "fdo_backend/testing/recorded_store.h"
#include "testing/schema_builder.h"

namespace fdo {
namespace {

using recording_provider::FailEveryCall;
using recording_provider::Recorder;
using Lines = std::vector<std::wstring>;

class DatabaseFdoFaults : public RecordedStore {
 protected:
  // Runs the operation and gives its result; failed says whether the failing call was among its own, and
  // the lines are those that it said.
  bool Run(std::function<bool()> const& operation, bool& failed, Lines& lines) {
    diagnostics_.Forget();
    bool const threwBefore = recorder_->Threw();
    bool const result = operation();
    failed = recorder_->Threw() && !threwBefore;
    lines = diagnostics_.Lines();
    return result;
  }
  void ExpectNothingLives(int n) { EXPECT_EQ(recorder_->LiveObjects(), 0) << "call " << n; }
};

TEST_F(DatabaseFdoFaults, Connect) {
  for (wchar_t const* provider : {L"OSGeo.SQLite", L"OSGeo.SDF"}) {
    bool const selects = std::wstring(provider) == L"OSGeo.SQLite";
    int connectionFailures = 0;
    int describeFailures = 0;
    int selectFailures = 0;
    FailEveryCall(*recorder_, [&](int n) {
      auto const connect = [&](DatabaseFdo& database) {
        return database.Connect(L"x", provider, nullptr, false, true);
      };
      {
        DatabaseFdo database;
        bool failed = false;
        Lines lines;
        bool const connected = Run([&] { return connect(database); }, failed, lines);
        if (!failed) {
          EXPECT_TRUE(connected) << n;
          EXPECT_EQ(lines, Lines()) << n;
        } else if (lines ==
                   Lines{L"FDO connection failure: " + Recorder::MessageOfCall(n) + L", ConnStr: x"}) {
          EXPECT_FALSE(connected) << n;
          ++connectionFailures;
        } else if (lines == Lines{L"FDO connection failure: schema initialization failed, ConnStr: x"}) {
          EXPECT_FALSE(connected) << n;
          ++describeFailures;
        } else {
          EXPECT_TRUE(connected) << n;
          ASSERT_EQ(lines.size(), 1u) << n;
          EXPECT_EQ(lines[0].find(L"Can't query db object: "), 0u) << n;
          ++selectFailures;
        }
        if (failed) {
          EXPECT_EQ(database.Count(), connected ? 2 : 0) << n;
          EXPECT_TRUE(Run([&] { return connect(database); }, failed, lines)) << n;
          EXPECT_EQ(lines, Lines()) << n;
          EXPECT_EQ(database.Count(), 2) << n;
        }
      }
      ExpectNothingLives(n);
    });
    EXPECT_GE(connectionFailures, 8) << "string, opening, asking for the string, and the spatial contexts";
    EXPECT_EQ(describeFailures, 1);
    EXPECT_EQ(selectFailures, selects ? 10 : 0) << "five calls for each of two classes";
  }
}

TEST_F(DatabaseFdoFaults, Adopt) {
  FailEveryCall(*recorder_, [&](int n) {
    {
      DatabaseFdo database;
      FdoPtr<FdoIConnection> const connection = recording_provider::NewConnection(recorder_);
      recorder_->ThrowAt(0);
      connection->SetConnectionString(L"x");
      connection->Open();
      recorder_->ThrowAt(n);
      bool failed = false;
      Lines lines;
      bool const connected = Run([&] { return database.Connect(connection); }, failed, lines);
      if (failed && !connected) {
        std::wstring const string = n == 1 ? L"" : L"x";  // the first call asks for it
        EXPECT_EQ(lines,
                  Lines{L"FDO connection failure: " + Recorder::MessageOfCall(n) + L", ConnStr: " + string});
      } else {
        EXPECT_TRUE(connected) << n;
        EXPECT_EQ(lines, Lines()) << n << ": a schema that is not described is no failure";
      }
      EXPECT_EQ(FdoPtr<FdoIConnection>(database.FdoConnection()).p, connection.p) << "adopted all the same";
      if (failed) {
        EXPECT_TRUE(Run([&] { return database.Connect(connection); }, failed, lines)) << n;
        EXPECT_EQ(database.Count(), 2) << n;
      }
    }
    ExpectNothingLives(n);
  });
}

TEST_F(DatabaseFdoFaults, SetSchema) {
  CoordSys const first(L"A", L"EPSG:1", L"one");
  CoordSys const second(L"B", L"EPSG:2", L"two");
  TableDef tables[] = {MakeTableDef(L"New", L"a", L"id:Int64 shape:Geometry"),
                       MakeTableDef(L"New", L"b", L"id:Int64 shape:Geometry")};
  tables[0][1].SetCoordSys(&first);
  tables[1][1].SetCoordSys(&second);
  DatabaseDef def;
  SetTables(def, L"New", {tables[0], tables[1]});
  int contextFailures = 0;
  int schemaFailures = 0;
  int silentFailures = 0;
  FailEveryCall(*recorder_, [&](int n) {
    {
      DatabaseFdo database;
      recorder_->ThrowAt(0);
      ASSERT_TRUE(database.Connect(L"x", L"OSGeo.SDF", nullptr, false, true));
      recorder_->TakeLog();
      recorder_->ThrowAt(n);
      bool failed = false;
      Lines lines;
      bool const applied = Run([&] { return database.SetSchema(def); }, failed, lines);
      std::string const log = recorder_->TakeLog();
      if (!failed) {
        EXPECT_TRUE(applied) << n;
        EXPECT_EQ(lines, Lines()) << n;
      } else if (lines ==
                 Lines{L"Failed to create spatial context, because: " + Recorder::MessageOfCall(n)}) {
        EXPECT_TRUE(applied) << n;
        EXPECT_EQ(log.find("context 9 name=B"), std::string::npos) << n << ": the others are left out";
        EXPECT_NE(log.find("apply 6"), std::string::npos) << n << ": the tables are written all the same";
        ++contextFailures;
      } else if (lines == Lines{L"Failed to apply schema, because: " + Recorder::MessageOfCall(n)}) {
        EXPECT_FALSE(applied) << n;
        // Before the tables are written the old ones are kept; behind that there are none.
        EXPECT_EQ(database.Count(), log.find("apply 6") == std::string::npos ? 2 : 0) << n;
        ++schemaFailures;
      } else {
        EXPECT_TRUE(applied) << n << ": that the new schema is not described counts for nothing";
        EXPECT_EQ(lines, Lines()) << n;
        EXPECT_EQ(database.Count(), 0) << n;
        ++silentFailures;
      }
      if (failed) {
        EXPECT_TRUE(Run([&] { return database.SetSchema(def); }, failed, lines)) << n;
        EXPECT_EQ(lines, Lines()) << n;
        EXPECT_EQ(database.Count(), 2) << n;
      }
    }
    ExpectNothingLives(n);
  });
  EXPECT_EQ(contextFailures, 10) << "five calls for each of two contexts";
  EXPECT_GE(schemaFailures, 4);
  EXPECT_EQ(silentFailures, 1);
}

TEST_F(DatabaseFdoFaults, Create) {
  int const calls = FailEveryCall(*recorder_, [&](int n) {
    bool failed = false;
    Lines lines;
    bool const created = Run([] { return DatabaseFdo::Create(L"a.sqlite", nullptr); }, failed, lines);
    EXPECT_EQ(created, !failed) << n;
    EXPECT_EQ(lines,
              failed ? Lines{L"Failed to create database, because: " + Recorder::MessageOfCall(n)} : Lines())
        << n;
    ExpectNothingLives(n);
  });
  EXPECT_EQ(calls, 6) << "string, command, dictionary, two settings, and running it";
}

TEST_F(DatabaseFdoFaults, Disconnect) {
  int const calls = FailEveryCall(*recorder_, [&](int n) {
    DatabaseFdo database;
    recorder_->ThrowAt(0);
    ASSERT_TRUE(database.Connect(L"x", L"OSGeo.SDF", nullptr, false, true));
    database[0].Query();
    recorder_->ThrowAt(n);
    diagnostics_.Forget();
    database.Disconnect();
    EXPECT_EQ(diagnostics_.Lines(), recorder_->Threw() ? Lines{Recorder::MessageOfCall(n)} : Lines()) << n;
    EXPECT_EQ(database.Count(), 0);
    EXPECT_EQ(database.FdoConnection(), nullptr);
    ExpectNothingLives(n);
  });
  EXPECT_EQ(calls, 2) << "the reader and the connection are closed";
}

}  // namespace
}  // namespace fdo
