// What writes send to a provider.
#include <gmock/gmock.h>

#include <string>

#include "fdo_backend/recorded_table.h"
#include "testing/fgf_builder.h"

namespace fdo {
namespace {

using recording_provider::Data;
using recording_provider::Geometry;
using recording_provider::Id;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr wchar_t kColumns[] = L"id:Int64 name:String n:Int32";
constexpr bool kStoreMakesId = true;
constexpr bool kKeepId = false;

class TableFdoWrites : public RecordedTable {
 protected:
  TableFdoWrites() { Open(kColumns); }

  // A row of those cells; nothing given leaves a cell undefined.
  Row MakeRow(Value const& id, Value const& name, Value const& n) {
    Row row(&def_);
    row[0].CopyFrom(id);
    row[1].CopyFrom(name);
    row[2].CopyFrom(n);
    return row;
  }
  static Value Undefined() {
    Value value;
    value.Invalidate();
    return value;
  }
  // What a filter by identity reads as.
  void ReportIds(FdoDataType type, recording_provider::Cell const& id) {
    recorder_->answers.inserted = recording_provider::Rows({Id(L"id", type)});
    recorder_->answers.inserted.Add({id});
  }
};

using TableFdoInsert = TableFdoWrites;
using TableFdoUpdate = TableFdoWrites;
using TableFdoDelete = TableFdoWrites;

// --- Insert --------------------------------------------------------------------------------------

TEST_F(TableFdoInsert, SendsEveryColumnToTheBareName) {
  EXPECT_TRUE(Parcels().Insert(MakeRow(7, L"High", 4), nullptr, kKeepId));
  EXPECT_EQ(Log(), "make 1\ninsert 1 class=parcels values=[id=7,name='High',n=4]\n");
}

TEST_F(TableFdoInsert, TheStoreMakesTheIdentityOrTheRowBringsIt) {
  Parcels().Insert(MakeRow(7, L"High", 4), nullptr, kStoreMakesId);
  EXPECT_EQ(Log(), "make 1\ninsert 1 class=parcels values=[id=NULL,name='High',n=4]\n");
}

TEST_F(TableFdoInsert, UnsetAndNullColumnsAreNullAlsoAfterARowThatHadThem) {
  Parcels().BeginWrite();
  Parcels().Insert(MakeRow(7, L"High", 4), nullptr, kKeepId);
  Parcels().Insert(MakeRow(Value(), Value(), Undefined()), nullptr, kKeepId);
  Parcels().CommitWrite();
  EXPECT_EQ(Log(),
            "make 1\n"
            "insert 1 class=parcels values=[id=7,name='High',n=4]\n"
            "insert 1 class=parcels values=[id=NULL,name=NULL,n=NULL]\n");
}

TEST_F(TableFdoInsert, AfterAFailureTheNextRowStartsFromNulls) {
  Parcels().BeginWrite();
  Parcels().Insert(MakeRow(6, L"Low", 1), nullptr, kKeepId);
  Log();
  recorder_->ThrowAt(1);  // Execute, as the command is held
  EXPECT_FALSE(Parcels().Insert(MakeRow(7, L"High", 4), nullptr, kKeepId));
  EXPECT_TRUE(recorder_->Threw());
  recorder_->ThrowAt(0);
  Parcels().Insert(MakeRow(8, Value(), Value()), nullptr, kKeepId);
  EXPECT_EQ(Log(), "insert 1 class=parcels values=[id=8,name=NULL,n=NULL]\n");
  EXPECT_THAT(lines_.Lines(), ElementsAre(recording_provider::Recorder::MessageOfCall(1)));
}

TEST_F(TableFdoInsert, GivesTheIdentityThatTheStoreReports) {
  struct Case {
    wchar_t const* columns;
    FdoDataType type;
    recording_provider::Cell reported;
    __int64 id;
  };
  Case const cases[] = {
      {L"id:Int16 name:String n:Int32", FdoDataType_Int16, -5, -5},
      {L"id:Int32 name:String n:Int32", FdoDataType_Int32, 2147483647, 2147483647},
      {L"id:Int64 name:String n:Int32", FdoDataType_Int64, std::int64_t{1} << 40, std::int64_t{1} << 40},
      {L"id:String name:String n:Int32", FdoDataType_String, L"seven", 0},
  };
  for (Case const& test : cases) {
    Open(test.columns);
    ReportIds(test.type, test.reported);
    __int64 id = -1;
    EXPECT_TRUE(Parcels().Insert(MakeRow(Value(), L"High", 4), &id, kStoreMakesId));
    EXPECT_EQ(id, test.id);
  }
  EXPECT_THAT(lines_.Lines(), IsEmpty());
}

TEST_F(TableFdoInsert, WithoutAReportTheIdentityIsZero) {
  __int64 id = -1;
  EXPECT_TRUE(Parcels().Insert(MakeRow(7, L"High", 4), &id, kStoreMakesId));
  EXPECT_EQ(id, 0);
  recorder_->answers.nullResults = {1};
  id = -1;
  EXPECT_TRUE(Parcels().Insert(MakeRow(7, L"High", 4), &id, kStoreMakesId));
  EXPECT_EQ(id, 0);
  Open(L"a:Int32 b:String n:Int32");
  recorder_->answers.nullResults = {};
  ReportIds(FdoDataType_Int64, 7);
  id = -1;
  EXPECT_TRUE(Parcels().Insert(MakeRow(7, L"High", 4), &id, kStoreMakesId));
  EXPECT_EQ(id, 0) << "there is no identity column";
}

TEST_F(TableFdoInsert, TheReaderOfTheInsertIsReleasedAndNotClosed) {
  ReportIds(FdoDataType_Int64, 7);
  __int64 id = 0;
  Parcels().Insert(MakeRow(7, L"High", 4), &id, kKeepId);
  EXPECT_EQ(Log().find("close"), std::string::npos);
}

TEST_F(TableFdoInsert, AReadBackThatFailsIsFalseAfterTheRowWasStored) {
  ReportIds(FdoDataType_Int32, 7);  // the column says Int64
  __int64 id = -1;
  EXPECT_FALSE(Parcels().Insert(MakeRow(7, L"High", 4), &id, kKeepId));
  EXPECT_EQ(id, -1);
  EXPECT_EQ(Log(), "make 1\ninsert 1 class=parcels values=[id=7,name='High',n=4]\n");
  EXPECT_EQ(lines_.Lines().size(), 1u);
}

TEST_F(TableFdoInsert, AQueriedRowIsFetchedAsFarAsItIsNot) {
  Rows() =
      recording_provider::Rows({Id(L"id"), Data(L"name", FdoDataType_String), Data(L"n", FdoDataType_Int32)});
  Rows().Add({3, L"Side", nullptr});
  Parcels().Query();
  Row const& row = *Parcels().Next();
  Log();
  Parcels().Insert(row, nullptr, kKeepId);
  EXPECT_EQ(Log(), "make 1\ninsert 1 class=parcels values=[id=3,name='Side',n=NULL]\n");
}

// --- Update --------------------------------------------------------------------------------------

TEST_F(TableFdoUpdate, SendsTheSetColumnsToTheBareName) {
  recorder_->answers.updated = 3;
  EXPECT_EQ(Parcels().Update(MakeRow(7, Undefined(), 4), Filter(L"n > 1")), 3);
  EXPECT_EQ(Log(),
            "make 1\n"
            "make 3\n"
            "update 3 class=parcels filter=n > 1 values=[n=4]\n");
  EXPECT_EQ(Parcels().Update(MakeRow(7, L"High", 4), nullptr), 3);
  EXPECT_EQ(Log(), "make 3\nupdate 3 class=parcels values=[name='High',n=4]\n")
      << "nothing of the update before";
}

TEST_F(TableFdoUpdate, NullsSendWhatTheScratchSetHolds) {
  Parcels().Update(MakeRow(7, Value(), Value()), nullptr);
  EXPECT_EQ(Log(), "make 1\nmake 3\nupdate 3 class=parcels values=[name=NULL,n=NULL]\n");
  Parcels().Update(MakeRow(7, L"High", 4), nullptr);
  Log();
  Parcels().Update(MakeRow(7, Value(), Value()), nullptr);
  EXPECT_EQ(Log(), "make 3\nupdate 3 class=parcels values=[name='High',n=4]\n");
}

TEST_F(TableFdoInsert, AnUpdateLeavesItsValuesToTheNextInsert) {
  Parcels().Update(MakeRow(7, L"High", 4), nullptr);
  Log();
  Parcels().Insert(MakeRow(8, Undefined(), 5), nullptr, kKeepId);
  EXPECT_EQ(Log(), "insert 1 class=parcels values=[id=8,name='High',n=5]\n")
      << "and the insert command that the update made for its values serves";
  Parcels().Insert(MakeRow(9, Undefined(), 6), nullptr, kKeepId);
  EXPECT_EQ(Log(), "make 1\ninsert 1 class=parcels values=[id=9,name=NULL,n=6]\n");
}

TEST_F(TableFdoUpdate, ByIdIsExactlyOne) {
  struct Case {
    int updated;
    bool result;
  };
  for (Case const& test : {Case{0, false}, Case{1, true}, Case{2, false}}) {
    recorder_->answers.updated = test.updated;
    EXPECT_EQ(Parcels().Update(MakeRow(7, L"High", 4), std::int64_t{7}), test.result) << test.updated;
    EXPECT_NE(Log().find("update 3 class=parcels filter=id = 7 values=[name='High',n=4]\n"),
              std::string::npos);
  }
}

TEST_F(TableFdoUpdate, ByAnUnsupportedIdReachesEveryRecord) {
  Open(L"id:String name:String n:Int32");
  recorder_->answers.updated = 1;
  recorder_->answers.removed = 3;
  EXPECT_TRUE(Parcels().Update(MakeRow(Value(), L"High", 4), std::int64_t{7}));
  EXPECT_TRUE(Parcels().Delete(std::int64_t{7}));
  EXPECT_EQ(Log(),
            "make 1\n"
            "make 3\n"
            "update 3 class=parcels values=[name='High',n=4]\n"
            "make 2\n"
            "delete 2 class=parcels\n");
  EXPECT_THAT(lines_.Lines(),
              ElementsAre(L"unsupported feature ID type used", L"unsupported feature ID type used"));
}

TEST_F(TableFdoUpdate, AFailureIsMinusOneAndALine) {
  Parcels().BeginWrite();
  Parcels().Update(MakeRow(7, L"High", 4), nullptr);
  Log();
  recorder_->ThrowAt(3);  // SetFilter, GetPropertyValues, Execute
  EXPECT_EQ(Parcels().Update(MakeRow(7, L"Low", 5), nullptr), -1);
  EXPECT_TRUE(recorder_->Threw());
  recorder_->ThrowAt(0);
  EXPECT_THAT(lines_.Lines(), ElementsAre(recording_provider::Recorder::MessageOfCall(3)));
  Parcels().Update(MakeRow(7, Undefined(), 6), nullptr);
  EXPECT_EQ(Log(), "update 3 class=parcels values=[n=6]\n") << "the failed update's values are gone";
}

// Overriding the forms by filter changes the forms by id.
TEST_F(TableFdoUpdate, ByIdGoesThroughTheFormByFilter) {
  class Counting : public TableFdo {
   public:
    using TableFdo::Delete;
    using TableFdo::TableFdo;
    using TableFdo::Update;
    __int64 Update(Row const&, FdoFilter*) override { return ++updates; }
    __int64 Delete(FdoFilter*) override { return ++deletes; }
    int updates = 0;
    int deletes = 0;
  };
  Counting table(connection_, &def_, false);
  EXPECT_TRUE(table.Update(MakeRow(7, L"High", 4), std::int64_t{7}));
  EXPECT_TRUE(table.Delete(std::int64_t{7}));
  EXPECT_EQ(table.updates, 1);
  EXPECT_EQ(table.deletes, 1);
}

// --- Delete --------------------------------------------------------------------------------------

TEST_F(TableFdoDelete, KeepsItsCommandInEveryCase) {
  recorder_->answers.removed = 2;
  EXPECT_EQ(Parcels().Delete(Filter(L"n > 1")), 2);
  EXPECT_EQ(Log(), "make 2\ndelete 2 class=parcels filter=n > 1\n");
  Parcels().BeginWrite();
  Parcels().CommitWrite();
  EXPECT_EQ(Parcels().Delete(nullptr), 2);
  EXPECT_EQ(Log(), "delete 2 class=parcels\n");
}

TEST_F(TableFdoDelete, ByIdIsAtLeastOne) {
  for (int const removed : {0, 1, 2}) {
    recorder_->answers.removed = removed;
    EXPECT_EQ(Parcels().Delete(std::int64_t{7}), removed > 0);
    EXPECT_NE(Log().find("delete 2 class=parcels filter=id = 7\n"), std::string::npos);
  }
}

TEST_F(TableFdoDelete, AFailureIsZeroAndALine) {
  Parcels().Delete(nullptr);
  recorder_->answers.removed = 2;
  recorder_->ThrowAt(2);  // SetFilter, Execute
  EXPECT_EQ(Parcels().Delete(nullptr), 0);
  EXPECT_TRUE(recorder_->Threw());
  recorder_->ThrowAt(0);
  EXPECT_THAT(lines_.Lines(), ElementsAre(recording_provider::Recorder::MessageOfCall(2)));
  EXPECT_EQ(Parcels().Delete(nullptr), 2);
}

// --- Batches -------------------------------------------------------------------------------------

int Occurrences(std::string const& text, std::string const& word) {
  int found = 0;
  for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1)) ++found;
  return found;
}

TEST_F(TableFdoWrites, ABatchMakesOneCommandOfAKind) {
  Parcels().BeginWrite();
  for (int i = 0; i < 1000; ++i) Parcels().Insert(MakeRow(Value(), L"High", i), nullptr, kStoreMakesId);
  for (int i = 0; i < 10; ++i) Parcels().Update(MakeRow(Value(), L"High", i), std::int64_t{7});
  std::string const batch = Log();
  EXPECT_EQ(Occurrences(batch, "make 1\n"), 1);
  EXPECT_EQ(Occurrences(batch, "insert 1"), 1000);
  EXPECT_EQ(Occurrences(batch, "make 3\n"), 1);
  EXPECT_EQ(Occurrences(batch, "update 3"), 10);
  Parcels().CommitWrite();
  Parcels().Insert(MakeRow(Value(), L"High", 4), nullptr, kStoreMakesId);
  Parcels().Update(MakeRow(Value(), L"High", 4), std::int64_t{7});
  EXPECT_EQ(Log(),
            "make 1\n"
            "insert 1 class=parcels values=[id=NULL,name='High',n=4]\n"
            "make 1\n"
            "make 3\n"
            "update 3 class=parcels filter=id = 7 values=[name='High',n=4]\n");
}

TEST_F(TableFdoWrites, CommitReleasesTheCommands) {
  Parcels().BeginWrite();
  int const before = recorder_->LiveObjects();
  Parcels().Insert(MakeRow(Value(), L"High", 4), nullptr, kStoreMakesId);
  Parcels().Update(MakeRow(Value(), L"High", 4), nullptr);
  EXPECT_GT(recorder_->LiveObjects(), before);
  Parcels().CommitWrite();
  EXPECT_EQ(recorder_->LiveObjects(), before);
}

TEST_F(TableFdoWrites, WithoutABatchEachWriteReleasesItsCommand) {
  int const before = recorder_->LiveObjects();
  Parcels().Insert(MakeRow(Value(), L"High", 4), nullptr, kStoreMakesId);
  EXPECT_EQ(recorder_->LiveObjects(), before);
}

}  // namespace
}  // namespace fdo
