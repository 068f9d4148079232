// Coordinate systems, columns, tables and schemas.
#include <fdo/schema.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <type_traits>
#include <vector>

namespace fdo {
namespace {

constexpr CoordSys const* kNoSystem = nullptr;

ColumnDef Column(wchar_t const* name, ColumnDef::DataType type = ColumnDef::kInt32) {
  ColumnDef column;
  column.Initialize(name, type, 0, Value(), kNoSystem);
  return column;
}

TableDef TableOf(wchar_t const* schema, wchar_t const* name, std::vector<ColumnDef> const& columns = {}) {
  TableDef table;
  table.Initialize(schema, name, columns.data(), static_cast<int>(columns.size()), -1, -1, 0);
  return table;
}

void Fill(DatabaseDef& def, wchar_t const* name, std::vector<TableDef> const& tables) {
  auto* copies = new TableDef[tables.size()];
  for (std::size_t i = 0; i < tables.size(); ++i) copies[i] = tables[i];
  def.Initialize(name, copies, static_cast<int>(tables.size()));
}

TEST(CoordSys, NullTextsAreEmpty) {
  CoordSys const empty;
  EXPECT_STREQ(L"", empty.Name());
  CoordSys const system(nullptr, L"EPSG:4326", nullptr);
  EXPECT_STREQ(L"", system.Name());
  EXPECT_STREQ(L"EPSG:4326", system.Code());
  EXPECT_STREQ(L"", system.Wkt());
  CoordSys const copy(system);
  EXPECT_STREQ(L"EPSG:4326", copy.Code());
  EXPECT_NE(system.Code(), copy.Code());
}

TEST(CoordSysDef, HoldsCopiesFoundByName) {
  CoordSys systems[] = {{L"first", L"1", L"w1"}, {L"second", L"2", L"w2"}};
  CoordSysDef def;
  EXPECT_EQ(0, def.Count());
  EXPECT_EQ(-1, def.IndexOf(L"first"));
  def.Initialize(systems, 2);
  systems[1] = CoordSys(L"changed", L"", L"");
  EXPECT_EQ(2, def.Count());
  EXPECT_EQ(1, def.IndexOf(L"second"));
  EXPECT_EQ(-1, def.IndexOf(L"Second"));
  EXPECT_STREQ(L"w2", def[L"second"]->Wkt());
  EXPECT_STREQ(L"2", def[1].Code());
  EXPECT_EQ(nullptr, def[L"third"]);
  def.Cleanup();
  EXPECT_EQ(0, def.Count());
  EXPECT_EQ(nullptr, def[L"first"]);
}

TEST(CoordSysDef, InitializeMayUseItsOwnSystems) {
  CoordSys const systems[] = {{L"first", L"1", L"w1"}, {L"second", L"2", L"w2"}};
  CoordSysDef def;
  def.Initialize(systems, 2);
  def.Initialize(&def[1], 1);
  EXPECT_EQ(1, def.Count());
  EXPECT_EQ(0, def.IndexOf(L"second"));
  def.Initialize(systems, 0);
  EXPECT_EQ(0, def.Count());
}

TEST(ColumnDef, StartsUnset) {
  ColumnDef const column;
  EXPECT_EQ(-2, column.Type());
  EXPECT_EQ(0, column.GeomTypes());
  EXPECT_EQ(nullptr, column.SRS());
  EXPECT_TRUE(column.DefaultValue().IsNull());
  EXPECT_STREQ(L"", column.Name());
  EXPECT_STREQ("", column.NameUTF8());
}

TEST(ColumnDef, InitializeSetsEverything) {
  CoordSys const srs(L"n", L"c", L"w");
  ColumnDef column;
  column.Initialize(L"shape", ColumnDef::kGeometry, 5, Value(7), &srs);
  EXPECT_STREQ(L"shape", column.Name());
  EXPECT_STREQ("shape", column.NameUTF8());
  EXPECT_EQ(-1, column.Type());
  EXPECT_EQ(5, column.GeomTypes());
  EXPECT_EQ(7, static_cast<__int64>(column.DefaultValue()));
  ASSERT_NE(nullptr, column.SRS());
  EXPECT_NE(&srs, column.SRS()) << "a private copy";
  EXPECT_STREQ(L"w", column.SRS()->Wkt());

  column.Initialize(column.Name(), ColumnDef::kInt32, 0, column.DefaultValue(), column.SRS());
  EXPECT_STREQ(L"shape", column.Name());
  EXPECT_EQ(7, static_cast<__int64>(column.DefaultValue())) << "its own default value is kept";
  EXPECT_STREQ(L"w", column.SRS()->Wkt());

  column.Initialize(nullptr, ColumnDef::kInt32, 0, Value(), kNoSystem);
  EXPECT_STREQ(L"", column.Name());
  EXPECT_EQ(nullptr, column.SRS());
}

TEST(ColumnDef, Utf8NamesAreTheLibrarysOwn) {
  EXPECT_EQ(2u, std::strlen(Column(L"\xE9").NameUTF8()));
  EXPECT_STREQ("\xC3\xA9", Column(L"\xE9").NameUTF8());
  EXPECT_EQ(6u, std::strlen(Column(L"\U0001F600").NameUTF8()));
}

TEST(ColumnDef, CopiesKeepTheirOwnDefaultValue) {
  CoordSys const srs(L"n", L"c", L"w");
  ColumnDef source;
  source.Initialize(L"a", ColumnDef::kGeometry, 3, Value(5), &srs);
  ColumnDef target;
  target.Initialize(L"b", ColumnDef::kInt32, 0, Value(9), kNoSystem);
  target = source;
  EXPECT_EQ(9, static_cast<__int64>(target.DefaultValue()));
  EXPECT_STREQ(L"a", target.Name());
  EXPECT_STREQ("a", target.NameUTF8());
  EXPECT_EQ(ColumnDef::kGeometry, target.Type());
  EXPECT_EQ(3, target.GeomTypes());
  EXPECT_NE(source.SRS(), target.SRS());
  EXPECT_STREQ(L"c", target.SRS()->Code());
  EXPECT_TRUE(ColumnDef(source).DefaultValue().IsNull());
}

TEST(ColumnDef, CopyingToItselfChangesNothing) {
  CoordSys const srs(L"n", L"c", L"w");
  ColumnDef column;
  column.Initialize(L"a", ColumnDef::kGeometry, 3, Value(5), &srs);
  column.CopyFrom(column);
  EXPECT_STREQ(L"a", column.Name());
  EXPECT_STREQ(L"w", column.SRS()->Wkt());
  column.SetCoordSys(column.SRS());
  EXPECT_STREQ(L"w", column.SRS()->Wkt());
  column.SetCoordSys(nullptr);
  EXPECT_EQ(nullptr, column.SRS());
}

TEST(TableDef, StartsEmpty) {
  TableDef const table;
  EXPECT_EQ(0, table.ColumnCount());
  EXPECT_EQ(-1, table.IndexOfID());
  EXPECT_EQ(-1, table.IndexOfGeom());
  EXPECT_FALSE(table.HasID());
  EXPECT_FALSE(table.HasGeom());
  EXPECT_EQ(0, table.Tag());
  EXPECT_STREQ(L"", table.Name());
  EXPECT_STREQ(L"", table.SchemaName());
}

TEST(TableDef, BothInitializesCopyTheColumns) {
  ColumnDef const columns[] = {Column(L"id"), Column(L"name", ColumnDef::kString),
                               Column(L"shape", ColumnDef::kGeometry)};
  ColumnDef const* const pointers[] = {&columns[0], &columns[1], &columns[2]};
  for (bool byPointer : {false, true}) {
    TableDef table;
    if (byPointer) {
      table.Initialize(L"s", L"t", pointers, 3, 0, 2, 42);
    } else {
      table.Initialize(L"s", L"t", columns, 3, 0, 2, 42);
    }
    EXPECT_STREQ(L"t", table.Name());
    EXPECT_STREQ(L"s", table.SchemaName());
    EXPECT_EQ(3, table.ColumnCount());
    EXPECT_EQ(42, table.Tag());
    EXPECT_TRUE(table.HasID());
    EXPECT_STREQ(L"id", table.ID().Name());
    EXPECT_TRUE(table.HasGeom());
    EXPECT_STREQ(L"shape", table.Geom().Name());
    EXPECT_EQ(1, table.IndexOf(L"name"));
    EXPECT_EQ(-1, table.IndexOf(L"NAME"));
    EXPECT_EQ(&table[1], table[L"name"]);
    EXPECT_EQ(nullptr, table[L"area"]);
    EXPECT_NE(&columns[1], &table[1]);
  }
}

TEST(TableDef, DefaultValuesDoNotTravel) {
  ColumnDef column;
  column.Initialize(L"a", ColumnDef::kInt32, 0, Value(5), kNoSystem);
  TableDef table;
  table.Initialize(L"s", L"t", &column, 1, -1, -1, 0);
  EXPECT_TRUE(table[0].DefaultValue().IsNull());
  table[0].Initialize(L"a", ColumnDef::kInt32, 0, Value(5), kNoSystem);
  EXPECT_TRUE(TableDef(table)[0].DefaultValue().IsNull());
}

TEST(TableDef, ANullSchemaNameKeepsTheOldOne) {
  TableDef table = TableOf(L"s", L"t");
  table.Initialize(nullptr, L"u", static_cast<ColumnDef const*>(nullptr), 0, -1, -1, 0);
  EXPECT_STREQ(L"s", table.SchemaName());
  EXPECT_STREQ(L"u", table.Name());
  table.Initialize(L"", nullptr, static_cast<ColumnDef const*>(nullptr), 0, -1, -1, 0);
  EXPECT_STREQ(L"", table.SchemaName());
  EXPECT_STREQ(L"", table.Name());
}

TEST(TableDef, ATableWithoutColumnsHasAnIndex) { EXPECT_EQ(-1, TableOf(L"s", L"t").IndexOf(L"a")); }

TEST(TableDef, CopiesAreWhole) {
  TableDef source;
  ColumnDef const columns[] = {Column(L"id"), Column(L"shape", ColumnDef::kGeometry)};
  source.Initialize(L"s", L"t", columns, 2, 0, 1, 42);
  TableDef target = TableOf(L"other", L"other", {Column(L"x"), Column(L"y"), Column(L"z")});
  target = source;
  source = TableDef();
  EXPECT_STREQ(L"t", target.Name());
  EXPECT_STREQ(L"s", target.SchemaName());
  EXPECT_EQ(42, target.Tag());
  EXPECT_EQ(2, target.ColumnCount());
  EXPECT_EQ(0, target.IndexOfID());
  EXPECT_EQ(1, target.IndexOfGeom());
  EXPECT_EQ(1, target.IndexOf(L"shape"));
  EXPECT_EQ(-1, target.IndexOf(L"x"));
  TableDef const& same = target;
  target = same;
  EXPECT_EQ(1, target.IndexOf(L"shape"));
}

TEST(TableDef, InitializeMayUseItsOwnColumns) {
  TableDef table = TableOf(L"s", L"t", {Column(L"x"), Column(L"y"), Column(L"z")});
  table.Initialize(table.SchemaName(), table.Name(), &table[1], 2, -1, -1, 0);
  EXPECT_STREQ(L"t", table.Name());
  EXPECT_EQ(2, table.ColumnCount());
  EXPECT_EQ(0, table.IndexOf(L"y"));
  EXPECT_EQ(-1, table.IndexOf(L"x"));
}

TEST(DatabaseDef, StartsEmpty) {
  DatabaseDef const def;
  EXPECT_EQ(0, def.Count());
  EXPECT_STREQ(L"", def.Name());
  EXPECT_EQ(-1, def.IndexOf(L"t"));
  EXPECT_EQ(-1, def.IndexOf(L"s:t"));
  EXPECT_EQ(nullptr, def[L"t"]);
  static_assert(!std::is_copy_constructible_v<DatabaseDef> && !std::is_copy_assignable_v<DatabaseDef>);
  static_assert(!std::is_copy_constructible_v<CoordSysDef> && !std::is_copy_assignable_v<CoordSysDef>);
}

TEST(DatabaseDef, AdoptsTheArray) {
  auto* tables = new TableDef[2];
  tables[0] = TableOf(L"s", L"a");
  tables[1] = TableOf(L"s", L"b");
  DatabaseDef def;
  def.Initialize(L"schema", tables, 2);
  EXPECT_EQ(tables, &def[0]);
  EXPECT_EQ(2, def.Count());
  EXPECT_STREQ(L"schema", def.Name());
  EXPECT_EQ(1, def.IndexOf(L"b"));
  def.Initialize(def.Name(), nullptr, 0);
  EXPECT_STREQ(L"schema", def.Name()) << "a name from before is read before it goes";
  EXPECT_EQ(0, def.Count());
  EXPECT_EQ(-1, def.IndexOf(L"b"));
}

TEST(DatabaseDef, ANullNameIsEmpty) {
  DatabaseDef def;
  def.Initialize(nullptr, nullptr, 0);
  EXPECT_STREQ(L"", def.Name());
}

TEST(DatabaseDef, QualifiedNamesTellSchemasApart) {
  DatabaseDef def;
  Fill(def, L"",
       {TableOf(L"S1", L"Parcels"), TableOf(L"S2", L"Parcels"), TableOf(L"S2", L"Pipes"),
        TableOf(L"", L"Loose"), TableOf(L"A", L"B:C")});
  struct {
    wchar_t const* name;
    int position;
  } const cases[] = {
      {L"Parcels", 0},   {L"S1:Parcels", 0}, {L"S2:Parcels", 1},  {L"S3:Parcels", -1}, {L"Pipes", 2},
      {L"S2:Pipes", 2},  {L"S1:Pipes", -1},  {L"s2:Parcels", -1}, {L"S2:parcels", -1}, {L"S2:", -1},
      {L":Parcels", -1}, {L":Loose", 3},     {L"A:B:C", 4},       {L"B:C", -1},        {L"", -1},
  };
  for (int round = 0; round < 2; ++round) {
    for (auto const& c : cases) {
      EXPECT_EQ(c.position, def.IndexOf(c.name)) << c.name;
      EXPECT_EQ(c.position < 0 ? nullptr : &def[c.position], def[c.name]) << c.name;
    }
  }
}

TEST(SchemaNames, NullIsNoName) {
  CoordSysDef systems;
  CoordSys const system(L"", L"", L"");
  systems.Initialize(&system, 1);
  EXPECT_EQ(-1, systems.IndexOf(nullptr));
  EXPECT_EQ(nullptr, systems[static_cast<wchar_t const*>(nullptr)]);
  DatabaseDef def;
  Fill(def, L"s", {TableOf(L"s", L"t", {Column(L"")})});
  EXPECT_EQ(-1, def.IndexOf(nullptr));
  EXPECT_EQ(nullptr, def[static_cast<wchar_t const*>(nullptr)]);
  EXPECT_EQ(-1, def[0].IndexOf(nullptr));
  EXPECT_EQ(nullptr, def[0][static_cast<wchar_t const*>(nullptr)]);
}

TEST(DatabaseDef, CopiesOwnTheirTables) {
  DatabaseDef source;
  Fill(source, L"schema", {TableOf(L"s", L"a", {Column(L"x")}), TableOf(L"s", L"b")});
  DatabaseDef target;
  Fill(target, L"old", {TableOf(L"s", L"c")});
  target.CopyFrom(source);
  source.Cleanup();
  EXPECT_EQ(0, source.Count());
  EXPECT_STREQ(L"", source.Name());
  EXPECT_EQ(2, target.Count());
  EXPECT_STREQ(L"schema", target.Name());
  EXPECT_EQ(0, target[L"a"]->IndexOf(L"x"));
  EXPECT_EQ(-1, target.IndexOf(L"c"));
  target.CopyFrom(target);
  EXPECT_EQ(2, target.Count());
  target.CopyFrom(source);
  EXPECT_EQ(-1, target.IndexOf(L"a"));
}

}  // namespace
}  // namespace fdo
