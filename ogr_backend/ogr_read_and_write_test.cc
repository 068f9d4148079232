// Tables that are read and written in turn.
#include <Fdo.h>
#include <fdo/database_ogr.h>
#include <fdo/text_conversion.h>

#include <gtest/gtest.h>

#include <functional>
#include <set>

#include "ogr_backend/town_database.h"
#include "testing/captured_diagnostics.h"
#include "testing/schema_builder.h"

namespace fdo {
namespace {

class OgrReadAndWrite : public TownDatabase {};

// Whether rows come again is the format's matter.
TEST_P(OgrReadAndWrite, AWriteDuringAQueryHidesNoRow) {
  path_ = WriteTowns(scratch_, GetParam());
  Open(/*readOnly=*/false);
  __int64 victim = -1;
  std::set<__int64> kept;
  Only().Query();
  while (Row const* row = Only().Next()) {
    auto const n = static_cast<__int64>((*row)[L"n"]);
    kept.insert(n);
    if (n == 4) victim = row->ID();
  }
  ASSERT_EQ(kept.erase(4), 1u);
  std::set<__int64> shown;
  int inserts = 0;
  int deletes = 0;
  Only().Query();
  for (int step = 0; step < 100; ++step) {
    Row const* const row = Only().Next();
    if (row == nullptr) break;
    shown.insert(static_cast<__int64>((*row)[L"n"]));
    Row another(*row);
    another[L"n"].Reset(100);
    if (step == 1) inserts += Only().Insert(another, nullptr, true) ? 1 : 0;
    if (step == 2) deletes += Only().Delete(victim) ? 1 : 0;
  }
  EXPECT_EQ(inserts, 1) << ToUtf8(database_.LastError());
  EXPECT_EQ(deletes, 1) << ToUtf8(database_.LastError());
  EXPECT_EQ(Only().Next(), nullptr) << "two writes begin it anew at most twice";
  shown.erase(4);
  shown.erase(100);
  EXPECT_EQ(shown, kept);
}

// FlatGeobuf forgets what was written when it is read or reset, so that it must not come to that.
TEST_P(OgrReadAndWrite, ReadingANewFileLosesNoRows) {
  bool const mustNotBeRead = std::string(GetParam().name) == "FlatGeobuf";
  DatabaseDef def;
  SetTables(def, L"test", {MakeTableDef(L"test", L"town", L"id:Int64 shape:Geometry n:Int32")});
  path_ = scratch_.File(GetParam().fileName);
  ASSERT_TRUE(database_.Create(path_.c_str(), nullptr, def)) << ToUtf8(database_.LastError());
  Row row(Only().Def());
  SetGeometry(row, "POINT (1 2)");
  auto const insert = [&](int n) {
    row[L"n"].Reset(n);
    ASSERT_TRUE(Only().Insert(row, nullptr, true)) << ToUtf8(database_.LastError());
  };
  FdoPtr<FdoFilter> const filter = FdoFilter::Parse(L"n = 1");
  double box[4] = {0, 0, 9, 9};
  double extent[4];
  __int64 const id = 1;
  std::function<void()> const reads[] = {
      [&] { Only().Query(); },
      [&] { Only().Query(filter, nullptr, true); },
      [&] { Only().Query(box, nullptr); },
      [&] { Only().QueryRange(0, 5); },
      [&] { EXPECT_TRUE(Only().Query(id) == nullptr || !mustNotBeRead); },
      [&] { EXPECT_EQ(Only().GetRowCount(nullptr, true) == -1, mustNotBeRead); },
      [&] { EXPECT_TRUE(Only().IsEmpty(filter) || !mustNotBeRead); },
      [&] { Only().GetExtent(extent, nullptr); },
      [&] { Only().GetExtent(extent, filter); },
  };
  int written = 0;
  insert(written++);
  for (std::function<void()> const& read : reads) {
    CapturedDiagnostics diagnostics;
    read();
    Only().Next();
    Only().EndQuery();
    EXPECT_EQ(diagnostics.Lines().size(), mustNotBeRead ? 1u : 0u) << "after " << written;
    insert(written++);
  }
  Only().EndQuery();
  database_.Disconnect();
  Open(/*readOnly=*/true);
  EXPECT_EQ(Only().GetRowCount(nullptr, true), written);
}

INSTANTIATE_TEST_SUITE_P(Format, OgrReadAndWrite, ::testing::ValuesIn(kOgrFormats),
                         [](auto const& info) { return info.param.name; });

}  // namespace
}  // namespace fdo
