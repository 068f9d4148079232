// Rows, free-standing and bound to a table.
#include <fdo/row.h>
#include <gtest/gtest.h>

#include <array>
#include <cfloat>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "testing/caught_message.h"
#include "testing/fgf_builder.h"
#include "testing/memory_table.h"
#include "testing/schema_builder.h"

namespace fdo {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
using Box = std::array<double, 4>;
constexpr Box kInfiniteBox = {kInfinity, kInfinity, -kInfinity, -kInfinity};
constexpr Box kLargestBox = {DBL_MAX, DBL_MAX, -DBL_MAX, -DBL_MAX};

TableDef const& Towns() {
  static TableDef const def =
      MakeTableDef(L"main", L"town", L"id:Int64 name:String shape:Geometry outline:Geometry");
  return def;
}
constexpr int kId = 0, kName = 1, kShape = 2, kOutline = 3;

Value Geometry(char const* text) {
  std::vector<unsigned char> const bytes = Fgf(text);
  return Value(bytes.data(), static_cast<int>(bytes.size()));
}

Box BoxOf(Row const& row, int column) {
  Box box = {1, 2, 3, 4};
  row.GeomBBOX(box.data(), column);
  return box;
}

// A table at its only record.
struct BoundRow {
  explicit BoundRow(std::vector<Value> cells, TableDef const& def = Towns()) : table(&def) {
    table.records = {std::move(cells)};
    table.Query();
    row = table.Next();
  }
  MemoryTable table;
  Row const* row;
};

TEST(Row, FreeStandingCellsAreUndefined) {
  Row const row(&Towns());
  EXPECT_EQ(&Towns(), row.Def());
  for (int i = 0; i < Towns().ColumnCount(); ++i) EXPECT_FALSE(row[i].IsValid());
}

TEST(Row, CellsByPositionAndName) {
  Row row(&Towns());
  row[kName].Reset(L"Rome", true);
  EXPECT_EQ(&row[kName], &row[L"name"]);
  Row const& constant = row;
  EXPECT_EQ(&row[kName], &constant[L"name"]);
}

TEST(Row, ACellIsFetchedOnce) {
  BoundRow bound({Value(7), Value(L"Rome"), Value(), Value()});
  EXPECT_EQ(0, bound.table.FetchCount());
  EXPECT_STREQ(L"Rome", static_cast<wchar_t const*>((*bound.row)[kName]));
  EXPECT_STREQ(L"Rome", static_cast<wchar_t const*>((*bound.row)[L"name"]));
  EXPECT_EQ(1, bound.table.FetchCount());
  const_cast<Row*>(bound.row)->Invalidate();
  EXPECT_EQ(1, bound.table.FetchCount());
  EXPECT_TRUE((*bound.row)[kName].IsValid());
  EXPECT_EQ(2, bound.table.FetchCount());
}

TEST(Row, AFetchedNullIsNotFetchedAgain) {
  BoundRow bound({Value(7), Value(), Value(), Value()});
  EXPECT_TRUE((*bound.row)[kName].IsNull());
  EXPECT_TRUE((*bound.row)[kName].IsNull());
  EXPECT_EQ(1, bound.table.FetchCount());
}

TEST(RowID, IsTheCellAsAnInteger) {
  struct {
    Value cell;
    __int64 id;
  } const cases[] = {{Value(7), 7}, {Value(L"0042"), 42}, {Value(2.9), 2}, {Value(true), 1}, {Value(), 0}};
  for (auto const& c : cases) {
    BoundRow bound({c.cell, Value(), Value(), Value()});
    EXPECT_EQ(c.id, bound.row->ID());
    EXPECT_EQ(1, bound.table.FetchCount());
  }
}

TEST(RowID, IsZeroWithoutAnIdentityColumnAndWithoutAFetch) {
  TableDef const def = MakeTableDef(L"", L"t", L"name:String");
  BoundRow bound({Value(7)}, def);
  EXPECT_EQ(0, bound.row->ID());
  EXPECT_EQ(nullptr, bound.row->Geom());
  EXPECT_EQ(0, bound.row->GeomLen());
  EXPECT_EQ(kInfiniteBox, BoxOf(*bound.row, -1));
  EXPECT_EQ(0, bound.table.FetchCount());
}

TEST(RowGeom, IsTheStream) {
  Value const stream = Geometry("POINT (1 2)");
  BoundRow bound({Value(7), Value(), stream, Value()});
  ASSERT_NE(nullptr, bound.row->Geom());
  EXPECT_EQ(stream.BlobLen(), bound.row->GeomLen());
  EXPECT_EQ(1, bound.table.FetchCount());
  EXPECT_TRUE(stream == (*bound.row)[kShape]);
}

TEST(RowGeom, ANullGeometryHasNone) {
  BoundRow bound({Value(7), Value(), Value(), Value()});
  EXPECT_EQ(nullptr, bound.row->Geom());
  EXPECT_EQ(0, bound.row->GeomLen());
  EXPECT_EQ(kInfiniteBox, BoxOf(*bound.row, -1));
  EXPECT_EQ(1, bound.table.FetchCount());
}

TEST(RowGeomBBOX, OfTheMainOrAnyGeometryColumn) {
  BoundRow bound(
      {Value(7), Value(L"x"), Geometry("LINESTRING Z (1 2 99, -3 4 -99)"), Geometry("POINT (5 6)")});
  EXPECT_EQ((Box{-3, 2, 1, 4}), BoxOf(*bound.row, -1));
  EXPECT_EQ((Box{-3, 2, 1, 4}), BoxOf(*bound.row, kShape));
  EXPECT_EQ((Box{5, 6, 5, 6}), BoxOf(*bound.row, kOutline));
}

TEST(RowGeomBBOX, OfOtherColumnsIsInfinitelyEmpty) {
  Value const stream = Geometry("POINT (5 6)");
  Row row(&Towns());
  row[kId].Reset(stream.AsBlob(), stream.BlobLen(), true);
  EXPECT_EQ(kInfiniteBox, BoxOf(row, kId)) << "bytes in a column of another type are no geometry";
  EXPECT_EQ(kInfiniteBox, BoxOf(row, kName));
  EXPECT_EQ(kInfiniteBox, BoxOf(row, kShape)) << "not set";
  row[kShape].Reset(L"POINT (5 6)", true);
  EXPECT_EQ(kInfiniteBox, BoxOf(row, kShape)) << "text is no geometry";
  row[kShape].Reset(stream.AsBlob(), 0, true);
  EXPECT_EQ(kInfiniteBox, BoxOf(row, kShape)) << "no bytes";
}

// The length half of a number with a cached text is that of an address.
TEST(RowGeomBBOX, ANumberInAGeometryColumnIsNotReadAsAStream) {
  Row row(&Towns());
  row[kShape].Reset(5);
  ASSERT_NE(nullptr, static_cast<wchar_t const*>(row[kShape]));
  EXPECT_EQ(kInfiniteBox, BoxOf(row, kShape));
}

TEST(RowGeomBBOX, AnUnknownTypeGivesTheOtherEmptyBox) {
  unsigned char const stream[] = {77, 0, 0, 0};
  Row row(&Towns());
  row[kShape].Reset(stream, sizeof(stream), false);
  EXPECT_EQ(kLargestBox, BoxOf(row, -1));
}

TEST(RowGeomBBOX, ABrokenStreamThrows) {
  Value const stream = Geometry("POINT (5 6)");
  Row row(&Towns());
  for (int length = 1; length < stream.BlobLen(); ++length) {
    row[kShape].Reset(stream.AsBlob(), length, true);
    EXPECT_EQ(L"Invalid FGF stream!", CaughtMessage([&] { BoxOf(row, -1); })) << length;
  }
  row[kShape].Reset(stream.AsBlob(), -5, false);
  EXPECT_EQ(L"Invalid FGF stream!", CaughtMessage([&] { BoxOf(row, -1); }));
}

TEST(RowCopy, OfABoundRowIsFreeStandingAndFetched) {
  BoundRow bound({Value(7), Value(L"Rome"), Geometry("POINT (1 2)"), Value()});
  Row const copy(*bound.row);
  EXPECT_EQ(Towns().ColumnCount(), bound.table.FetchCount());
  bound.table.Next();  // what the table lent is gone
  EXPECT_EQ(bound.table.Def(), copy.Def());
  EXPECT_EQ(7, copy.ID());
  EXPECT_STREQ(L"Rome", static_cast<wchar_t const*>(copy[kName]));
  EXPECT_EQ(5, copy[kName].Type());
  EXPECT_EQ(6, copy[kShape].Type());
  EXPECT_TRUE(copy[kOutline].IsNull());
  EXPECT_EQ(Towns().ColumnCount(), bound.table.FetchCount()) << "the copy asks no table";
}

TEST(RowCopy, IntoARowOfTheSameDefinitionKeepsItsTable) {
  BoundRow bound({Value(7), Value(L"Rome"), Value(), Value()});
  Row& row = const_cast<Row&>(*bound.row);
  Row source(&Towns());
  source[kId].Reset(8);
  row = source;
  EXPECT_EQ(8, row.ID());
  EXPECT_EQ(0, bound.table.FetchCount());
  EXPECT_STREQ(L"Rome", static_cast<wchar_t const*>(row[kName])) << "still bound: a cell not set is fetched";
}

TEST(RowCopy, OfAnotherDefinitionTakesItOver) {
  TableDef const other = MakeTableDef(L"", L"t", L"a:Int32 b:Int32");
  BoundRow bound({Value(7), Value(L"Rome"), Value(), Value()});
  Row& row = const_cast<Row&>(*bound.row);
  Row source(&other);
  source[1].Reset(5);
  row = source;
  EXPECT_EQ(&other, row.Def());
  EXPECT_EQ(5, static_cast<__int64>(row[1]));
  EXPECT_FALSE(row[0].IsValid());
  row.Invalidate();
  EXPECT_FALSE(row[1].IsValid()) << "bound no longer";
  EXPECT_EQ(0, bound.table.FetchCount());
}

TEST(RowCopy, ToItselfFetchesEverything) {
  BoundRow bound({Value(7), Value(L"Rome"), Value(), Value()});
  Row& row = const_cast<Row&>(*bound.row);
  Row const& same = row;
  row = same;
  EXPECT_EQ(Towns().ColumnCount(), bound.table.FetchCount());
  EXPECT_STREQ(L"Rome", static_cast<wchar_t const*>(row[kName]));
}

}  // namespace
}  // namespace fdo
