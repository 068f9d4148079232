// How values of a reader become cells.
#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "fdo_backend/recorded_table.h"

namespace fdo {
namespace {

using recording_provider::Cell;
using recording_provider::Data;
using recording_provider::Geometry;
using recording_provider::Property;

typedef std::vector<unsigned char> Bytes;

FdoDateTime DateTime(int year, int month, int day, int hour, int minute, float seconds) {
  FdoDateTime at;
  at.year = static_cast<FdoInt16>(year);
  at.month = static_cast<FdoInt8>(month);
  at.day = static_cast<FdoInt8>(day);
  at.hour = static_cast<FdoInt8>(hour);
  at.minute = static_cast<FdoInt8>(minute);
  at.seconds = seconds;
  return at;
}

struct Case {
  wchar_t const* column;
  Property property;
  Cell given;
  int type;             // of the cell
  wchar_t const* text;  // of the cell; null for bytes
};

std::vector<Case> const& Cases() {
  static std::vector<Case> const cases = {
      {L"c:Boolean", Data(L"c", FdoDataType_Boolean), true, Value::kBool, nullptr},
      {L"c:Byte", Data(L"c", FdoDataType_Byte), 255, Value::kInt, L"255"},
      {L"c:DateTime", Data(L"c", FdoDataType_DateTime), DateTime(2024, 3, 1, 14, 30, 5.25f), Value::kString,
       L"2024-03-01T14:30:05.250"},
      {L"c:DateTime", Data(L"c", FdoDataType_DateTime), DateTime(2024, 3, 1, -1, -1, 0), Value::kString,
       L"2024-03-01"},
      {L"c:DateTime", Data(L"c", FdoDataType_DateTime), DateTime(-1, -1, -1, 7, 5, 3.5f), Value::kString,
       L"07:05:03.500"},
      {L"c:DateTime", Data(L"c", FdoDataType_DateTime), DateTime(-1, -1, -1, -1, -1, 0), Value::kNull,
       nullptr},
      {L"c:Decimal", Data(L"c", FdoDataType_Decimal), 2.5, Value::kDouble, L"2.5"},
      {L"c:Double", Data(L"c", FdoDataType_Double), -0.125, Value::kDouble, L"-0.125"},
      {L"c:Int16", Data(L"c", FdoDataType_Int16), -32768, Value::kInt, L"-32768"},
      {L"c:Int32", Data(L"c", FdoDataType_Int32), 2147483647, Value::kInt, L"2147483647"},
      {L"c:Int64", Data(L"c", FdoDataType_Int64), std::int64_t{1} << 53, Value::kInt, L"9007199254740992"},
      {L"c:Single", Data(L"c", FdoDataType_Single), 0.5, Value::kDouble, L"0.5"},
      {L"c:String", Data(L"c", FdoDataType_String), L"Stra\u00dfe", Value::kBorrowedString, L"Stra\u00dfe"},
      {L"c:String", Data(L"c", FdoDataType_String), L"", Value::kBorrowedString, L""},
      {L"c:Blob", Data(L"c", FdoDataType_BLOB), Bytes{1, 2, 3}, Value::kBlob, nullptr},
      {L"c:Blob", Data(L"c", FdoDataType_BLOB), Bytes{}, Value::kBlob, nullptr},
      {L"c:Clob", Data(L"c", FdoDataType_CLOB), Bytes{0x61, 0x62}, Value::kBlob, nullptr},
      {L"c:Geometry", Geometry(L"c"), Bytes{9, 8, 7, 6}, Value::kBorrowedBlob, nullptr},
      {L"c:Unset", Data(L"c", FdoDataType_String), L"no operation handles this type", Value::kUndef, nullptr},
  };
  return cases;
}

class ReaderCell : public RecordedTable {
 protected:
  // The cell of the row before, when there is one, shows that nothing of it stays.
  Value const& Read(Case const& test, Cell const& cell, Access access, bool desired) {
    Rows() = recording_provider::Rows({test.property});
    Rows().Add({test.given}).Add({cell});
    Open(test.column, access);
    int const column = 0;
    if (desired) Parcels().SetDesiredFields(&column, 1);
    Parcels().Query();
    Parcels().Next();
    static_cast<void>(Parcels().At()[0]);
    return (*Parcels().Next())[0];
  }

  template <class Check>
  void ForEveryWay(Check check) {
    for (Access const access : {Access::kByPosition, Access::kByName}) {
      for (bool const desired : {false, true}) {
        SCOPED_TRACE(std::string(access == Access::kByName ? "by name" : "by position") +
                     (desired ? ", desired" : ""));
        check(access, desired);
      }
    }
  }
};

TEST_F(ReaderCell, EachColumnTypeHasItsValue) {
  ForEveryWay([&](Access access, bool desired) {
    for (Case const& test : Cases()) {
      SCOPED_TRACE(::testing::PrintToString(std::wstring(test.column)));
      Value const& cell = Read(test, test.given, access, desired);
      EXPECT_EQ(cell.Type(), test.type);
      if (test.text == nullptr) continue;
      EXPECT_STREQ(cell, test.text);
    }
  });
  EXPECT_THAT(lines_.Lines(), ::testing::IsEmpty());
}

TEST_F(ReaderCell, NullIsNullInEveryType) {
  ForEveryWay([&](Access access, bool desired) {
    for (Case const& test : Cases()) {
      SCOPED_TRACE(::testing::PrintToString(std::wstring(test.column)));
      EXPECT_TRUE(Read(test, nullptr, access, desired).IsNull());
    }
  });
}

TEST_F(ReaderCell, BytesKeepTheirLength) {
  Bytes const given[] = {{1, 2, 3}, {}, {0x61, 0x62}, {9, 8, 7, 6}};
  std::size_t next = 0;
  for (Case const& test : Cases()) {
    if ((test.type & ~Value::kBorrowed) != Value::kBlob) continue;
    ASSERT_LT(next, std::size(given));
    Bytes const& bytes = given[next++];
    Value const& cell = Read(test, test.given, Access::kByPosition, false);
    ASSERT_EQ(cell.BlobLen(), static_cast<int>(bytes.size()));
    ASSERT_NE(cell.AsBlob(), nullptr);
    EXPECT_EQ(Bytes(cell.AsBlob(), cell.AsBlob() + cell.BlobLen()), bytes);
  }
  EXPECT_EQ(next, std::size(given));
}

// The provider takes back what it lent when the reader moves; a copy is the caller's own.
TEST_F(ReaderCell, ACopiedCellSurvivesTheNextRow) {
  Case const& text = Cases()[12];
  ASSERT_EQ(text.type, Value::kBorrowedString);
  Rows() = recording_provider::Rows({text.property});
  Rows().Add({L"first"}).Add({L"second"});
  Open(text.column);
  Parcels().Query();
  Value const copy = (*Parcels().Next())[0];
  EXPECT_STREQ((*Parcels().Next())[0], L"second");
  EXPECT_STREQ(copy, L"first");
  EXPECT_EQ(copy.Type(), Value::kString);
}

// A date's text is the cell's own, and the next row's takes its memory: a scan allocates once for a column.
TEST_F(ReaderCell, TheTextsOfDatesFollowEachOther) {
  ForEveryWay([&](Access access, bool desired) {
    Rows() = recording_provider::Rows({Data(L"c", FdoDataType_DateTime), Data(L"d", FdoDataType_DateTime)});
    Cell const late = DateTime(2024, 3, 1, 14, 30, 5.25f);
    Cell const day = DateTime(2024, 3, 1, -1, -1, 0);
    Cell const none = DateTime(-1, -1, -1, -1, -1, 0);
    Cell const longest = DateTime(2024, 3, 1, 14, 30, 3e38f);
    Rows().Add({late, day}).Add({day, nullptr}).Add({none, late}).Add({late, late}).Add({longest, day});
    wchar_t const* const expected[][2] = {{L"2024-03-01T14:30:05.250", L"2024-03-01"},
                                          {L"2024-03-01", nullptr},
                                          {nullptr, L"2024-03-01T14:30:05.250"},
                                          {L"2024-03-01T14:30:05.250", L"2024-03-01T14:30:05.250"},
                                          {nullptr, L"2024-03-01"}};
    Open(L"c:DateTime d:DateTime", access);
    int const columns[] = {0, 1};
    if (desired) Parcels().SetDesiredFields(columns, 2);
    Parcels().Query();
    wchar_t const* addresses[2] = {};
    Value copy;
    int const rows = static_cast<int>(std::size(expected));
    for (int r = 0; r < rows; ++r) {
      Row const* const row = Parcels().Next();
      ASSERT_NE(row, nullptr);
      for (int const column : columns) {
        SCOPED_TRACE(r * 10 + column);
        Value const& cell = (*row)[column];
        wchar_t const* const text = cell;
        if (r == rows - 1 && column == 0) {
          EXPECT_EQ(std::wstring(text).size(), 60u);
        } else if (expected[r][column] == nullptr) {
          EXPECT_TRUE(cell.IsNull());
          continue;
        } else {
          EXPECT_STREQ(text, expected[r][column]);
        }
        EXPECT_EQ(cell.Type(), Value::kString);
        if (addresses[column] == nullptr) addresses[column] = text;
        EXPECT_EQ(text, addresses[column]);
        if (r == 0) copy = cell;
      }
    }
    EXPECT_NE(addresses[0], addresses[1]);
    EXPECT_EQ(Parcels().Next(), nullptr);
    EXPECT_STREQ(copy, L"2024-03-01");
  });
}

// A provider whose column has another type than the definition says.
TEST_F(ReaderCell, AFailedFetchIsALineAndAnUndefinedCell) {
  ForEveryWay([&](Access access, bool desired) {
    Rows() = recording_provider::Rows({Data(L"c", FdoDataType_String)});
    Rows().Add({L"text"});
    Open(L"c:Int32", access);
    int const column = 0;
    if (desired) Parcels().SetDesiredFields(&column, 1);
    Parcels().Query();
    lines_.Forget();
    Row const* const row = Parcels().Next();
    ASSERT_NE(row, nullptr) << "the row is there all the same";
    EXPECT_FALSE((*row)[0].IsValid());
    EXPECT_FALSE(lines_.Lines().empty());
  });
}

}  // namespace
}  // namespace fdo
