// Reading and inserting allocate nothing for a row or a cell beyond what the provider does.
#include <fdo/database_fdo.h>
#include <gtest/gtest.h>

#include <new>
#include <string>
#include <vector>

#include "fdo_backend/recorded_table.h"
#include "port/live_allocations.h"
#include "testing/fgf_builder.h"
#include "testing/one_table_store.h"
#include "testing/scratch_directory.h"

namespace fdo {
namespace {

using recording_provider::Data;
using recording_provider::Geometry;
using recording_provider::Id;

constexpr wchar_t kColumns[] = L"id:Int64 n:Int32 x:Double flag:Boolean name:String shape:Geometry";
constexpr int kColumnCount = 6;

template <class Run>
long long AllocationsOf(Run run) {
  long long const before = fdo::port::AllocationsSoFar();
  run();
  return fdo::port::AllocationsSoFar() - before;
}

class TableFdoAllocations : public RecordedTable {
 protected:
  void Fill(int rows) {
    Rows() = recording_provider::Rows({Id(L"id"), Data(L"n", FdoDataType_Int32),
                                       Data(L"x", FdoDataType_Double), Data(L"flag", FdoDataType_Boolean),
                                       Data(L"name", FdoDataType_String), Geometry(L"shape")});
    for (int i = 0; i < rows; ++i) {
      Rows().Add({i, i % 7, 0.5 * i, i % 2 == 0, L"a name too long for a small string", Fgf("POINT (1 2)")});
    }
    Open(kColumns);
  }

  // Reads the reader as the table does: a test for null and a getter for each cell.
  static void ReadByHand(FdoIFeatureReader& reader) {
    while (reader.ReadNext()) {
      for (FdoInt32 i = 0; i < kColumnCount; ++i) EXPECT_FALSE(reader.IsNull(i));
      reader.GetInt64(FdoInt32{0});
      reader.GetInt32(FdoInt32{1});
      reader.GetDouble(FdoInt32{2});
      reader.GetBoolean(FdoInt32{3});
      reader.GetString(FdoInt32{4});
      FdoInt32 count = 0;
      reader.GetGeometry(FdoInt32{5}, &count);
    }
  }
  long long OfReader() {
    FdoPtr<FdoISelect> const select(
        static_cast<FdoISelect*>(connection_->CreateCommand(FdoCommandType_ExtendedSelect)));
    select->SetFeatureClassName(L"Land:parcels");
    FdoPtr<FdoIFeatureReader> const reader = select->Execute();
    return AllocationsOf([&] { ReadByHand(*reader); });
  }
  // The scan of a query that has been started.
  long long OfScan() {
    return AllocationsOf([&] {
      while (Row const* row = Parcels().Next()) {
        for (int i = 0; i < kColumnCount; ++i) EXPECT_TRUE((*row)[i].IsValid());
      }
    });
  }
};

TEST_F(TableFdoAllocations, AScanAllocatesNoMoreThanItsReader) {
  for (bool const desired : {false, true}) {
    // What a scan costs beside its rows is the same for few rows and for many.
    long long more[2] = {};
    int const rows[] = {10, 1000};
    for (int i = 0; i < 2; ++i) {
      Fill(rows[i]);
      int const all[] = {0, 1, 2, 3, 4, 5};
      if (desired) Parcels().SetDesiredFields(all, kColumnCount);
      long long const byHand = OfReader();
      EXPECT_GE(byHand, rows[i]) << "the counter works: the provider copies what it lends";
      Parcels().Query();
      more[i] = OfScan() - byHand;
    }
    EXPECT_EQ(more[0], more[1]) << (desired ? "desired" : "lazy");
  }
}

TEST_F(TableFdoAllocations, DesiredFieldsForWhichThereIsNoMemoryChangeNothing) {
  Fill(2);
  int const columns[] = {0, 1};
  int n = 0;
  for (bool failed = true; failed;) {
    fdo::port::FailAllocation(++n);
    try {
      Parcels().SetDesiredFields(columns, 2);
    } catch (std::bad_alloc const&) {
    }
    failed = fdo::port::FailAllocation(0);
    Parcels().Query();
    EXPECT_EQ((*Parcels().Next())[4].IsValid(), failed) << n;
  }
  EXPECT_GT(n, 2);
}

TEST_F(TableFdoAllocations, AnUnreadRowCostsNothing) {
  Fill(1000);
  Parcels().Query();
  EXPECT_LT(AllocationsOf([&] {
              while (Parcels().Next() != nullptr) {
              }
            }),
            20)
      << "the end of the query, with its log line";
}

// A row costs no property, value or command of its own; what is counted is the provider's.
TEST_F(TableFdoAllocations, InsertsOfABatchReuseTheirValues) {
  Open(L"id:Int64 n:Int32 x:Double");
  Row row(&def_);
  row[1].Reset(7);
  row[2].Reset(0.5);
  Parcels().BeginWrite();
  Parcels().Insert(row, nullptr, true);

  FdoPtr<FdoIInsert> const insert(
      static_cast<FdoIInsert*>(connection_->CreateCommand(FdoCommandType_Insert)));
  insert->SetFeatureClassName(L"parcels");
  FdoPtr<FdoPropertyValueCollection> const values = insert->GetPropertyValues();
  FdoPtr<FdoInt64Value> const id = FdoInt64Value::Create();
  FdoPtr<FdoInt32Value> const n = FdoInt32Value::Create(7);
  FdoPtr<FdoDoubleValue> const x = FdoDoubleValue::Create(0.5);
  values->Add(FdoPtr<FdoPropertyValue>(FdoPropertyValue::Create(L"id", id)));
  values->Add(FdoPtr<FdoPropertyValue>(FdoPropertyValue::Create(L"n", n)));
  values->Add(FdoPtr<FdoPropertyValue>(FdoPropertyValue::Create(L"x", x)));
  auto const once = [&] { FdoPtr<FdoIFeatureReader> const reader = insert->Execute(); };
  once();
  // The log that both write into is taken away each time, so that it grows alike.
  for (int i = 0; i < 3; ++i) {
    Log();
    long long const byHand = AllocationsOf(once);
    Log();
    EXPECT_EQ(AllocationsOf([&] { Parcels().Insert(row, nullptr, true); }), byHand);
  }
}

// With its provider, from the first row to the last; the figures of each column, too.
class TableFdoAllocationsOnSqlite : public testing::Test {
 protected:
  void SetUp() override {
    MakeOneTableStore(database_, scratch_.File("parcels.sqlite"), L"parcels", kColumns);
  }
  Table& Parcels() { return database_[0]; }

  void Insert(Row& row, int n) {
    row[L"n"].Reset(n);
    row[L"x"].Reset(0.5 * n);
    row[L"flag"].Reset(n % 2 == 0);
    row[L"name"].Reset(L"a name too long for a small string", /*copy=*/false);
    row[L"shape"].Reset(point_.data(), static_cast<int>(point_.size()), /*copy=*/false);
    ASSERT_TRUE(Parcels().Insert(row, nullptr, /*storeMakesId=*/true));
  }
  void Fill(int rows) {
    Row row(Parcels().Def());
    Parcels().BeginWrite();
    for (int n = 0; n < rows; ++n) Insert(row, n);
    Parcels().CommitWrite();
  }

 private:
  CapturedDiagnostics const lines_;  // there is no registry of providers
  ScratchDirectory const scratch_;
  DatabaseFdo database_;
  std::vector<unsigned char> const point_ = Fgf("POINT (1 2)");
};

TEST_F(TableFdoAllocationsOnSqlite, ScansAndStatisticsAllocateNothingForARow) {
  long long ofScan[2] = {};
  long long ofFigures[2] = {};
  for (int i = 0; i < 2; ++i) {
    int const rows[] = {10, 1000};
    Fill(rows[i]);
    int read = 0;
    auto const scan = [&] {
      Parcels().Query();
      while (Row const* const current = Parcels().Next()) {
        for (int column = 0; column < kColumnCount; ++column) read += (*current)[column].IsValid() ? 1 : 0;
      }
    };
    auto const calculate = [&] {
      for (int column = 0; column < kColumnCount; ++column) {
        double variance = 0;
        double mean = 0;
        Parcels().GetStats(variance, mean, (*Parcels().Def())[column].Name(), nullptr);
      }
    };
    scan();  // what is made once is made now
    calculate();
    read = 0;
    ofScan[i] = AllocationsOf(scan);
    EXPECT_GE(read, rows[i] * kColumnCount);
    ofFigures[i] = AllocationsOf(calculate);
  }
  EXPECT_EQ(ofScan[0], ofScan[1]);
  EXPECT_EQ(ofFigures[0], ofFigures[1]);
}

TEST_F(TableFdoAllocationsOnSqlite, AnInsertOfABatchAllocatesNothing) {
  Row row(Parcels().Def());
  Parcels().BeginWrite();
  Insert(row, 0);  // makes what serves those behind it
  EXPECT_EQ(AllocationsOf([&] {
              for (int n = 1; n < 1000; ++n) Insert(row, n);
            }),
            0);
  Parcels().CommitWrite();
}

}  // namespace
}  // namespace fdo
