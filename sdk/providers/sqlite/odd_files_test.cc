// Files of other programs, and files that are not quite what they should be.
#include <gtest/gtest.h>

#include "sdk/providers/sqlite/column_types.h"
#include "sdk/providers/sqlite/store_test_schema.h"
#include "sdk/providers/sqlite/test_store.h"
#include "sdk/runtime/thrown.h"

namespace fdo_sqlite {
namespace {

constexpr char kRegistered[] =
    "CREATE TABLE geometry_columns (f_table_name TEXT, f_geometry_column TEXT, geometry_type INTEGER,"
    " coord_dimension INTEGER, srid INTEGER, geometry_format TEXT);"
    "CREATE TABLE spatial_ref_sys (srid INTEGER UNIQUE, auth_name TEXT, auth_srid TEXT, srtext TEXT);"
    "CREATE TABLE Places (Id INTEGER PRIMARY KEY, Shape BLOB, Other BLOB);";

// The geometric properties of a class: name, format, mask and ordinates, the designated one with a star.
std::string Geometries(StoreClass const& storeClass) {
  constexpr char const* kFormats[] = {"FGF", "WKB", "WKT", "none"};
  std::string text;
  for (std::size_t i = 0; i < storeClass.columns.size(); ++i) {
    StoreColumn const& column = storeClass.columns[i];
    if (column.kind != StoreColumn::Kind::kGeometry) continue;
    text += (text.empty() ? "" : ", ") + fdo_sdk::Utf8FromWide(column.name) + " " +
            kFormats[static_cast<int>(column.format)] + " " + std::to_string(column.geometricTypes) +
            (column.hasElevation ? " Z" : "") + (column.hasMeasure ? " M" : "");
    if (static_cast<int>(i) == storeClass.geometry) text += " *";
  }
  return text;
}

struct RowCase {
  char const* what;
  char const* rows;  // SQL behind INSERT INTO geometry_columns
  char const* geometries;
};
constexpr RowCase kRows[] = {
    {"as other programs write it", "VALUES ('Places', 'Shape', 3, 2, NULL, 'WKB')", "Shape WKB 4 *"},
    {"Z by the dimension", "VALUES ('Places', 'Shape', 1, 3, NULL, 'WKB')", "Shape WKB 1 Z *"},
    {"Z by the type", "VALUES ('Places', 'Shape', 1002, 2, NULL, 'WKB')", "Shape WKB 2 Z *"},
    {"M by the type", "VALUES ('Places', 'Shape', 2002, 3, NULL, 'WKB')", "Shape WKB 2 M *"},
    {"Z and M", "VALUES ('Places', 'Shape', 3003, 3, NULL, 'WKB')", "Shape WKB 4 Z M *"},
    {"no format means WKB", "VALUES ('Places', 'Shape', 1, 2, NULL, NULL)", "Shape WKB 1 *"},
    {"format in small letters", "VALUES ('Places', 'Shape', 1, 2, NULL, 'fgf')", "Shape FGF 1 *"},
    {"reserved format", "VALUES ('Places', 'Shape', 1, 2, NULL, 'WKB12')", "Shape none 1 *"},
    {"no type and no dimension", "VALUES ('Places', 'Shape', NULL, NULL, NULL, 'WKB')", "Shape WKB 15 *"},
    {"type as text", "VALUES ('Places', 'Shape', 'POINT', 2, NULL, 'WKB')", "Shape WKB 15 *"},
    {"type of nobody", "VALUES ('Places', 'Shape', 77, 4, NULL, 'WKB')", "Shape WKB 15 Z *"},
    {"curve polygon", "VALUES ('Places', 'Shape', 10, 2, NULL, 'WKB')", "Shape WKB 4 *"},
    {"multi curve", "VALUES ('Places', 'Shape', 11, 2, NULL, 'WKB')", "Shape WKB 2 *"},
    {"table that does not exist", "VALUES ('Gone', 'Shape', 1, 2, NULL, 'WKB')", ""},
    {"column that does not exist", "VALUES ('Places', 'Gone', 1, 2, NULL, 'WKB')", ""},
    {"names in other letters", "VALUES ('PLACES', 'shape', 1, 2, NULL, 'WKB')", "Shape WKB 1 *"},
    {"two geometries, the first row's designated",
     "VALUES ('Places', 'Other', 1, 2, NULL, 'WKT'), ('Places', 'Shape', 2, 2, NULL, 'WKB')",
     "Shape WKB 2, Other WKT 1 *"},
    {"the same twice",
     "VALUES ('Places', 'Shape', 1, 2, NULL, 'FGF'), ('Places', 'Shape', 2, 2, NULL, 'WKB')",
     "Shape FGF 1 *"},
    {"no names", "VALUES (NULL, NULL, 1, 2, NULL, 'WKB')", ""},
    {"the key is no geometry", "VALUES ('Places', 'Id', 1, 2, NULL, 'WKB')", ""},
};

TEST(GeometryColumns, EveryKindOfRow) {
  for (RowCase const& row : kRows) {
    SCOPED_TRACE(row.what);
    TestStore store;
    store.Run(std::string(kRegistered) + "INSERT INTO geometry_columns " + row.rows);
    FdoPtr<Connection> connection = store.Open();
    ASSERT_EQ(connection.p->Schema().Classes().size(), 1u);
    EXPECT_EQ(Geometries(*connection.p->Schema().Class(L"Places")), row.geometries);
  }
}

TEST(GeometryColumns, MissingColumnsCountAsNull) {
  TestStore store;
  store.Run(
      "CREATE TABLE geometry_columns (f_table_name TEXT, f_geometry_column TEXT);"
      "INSERT INTO geometry_columns VALUES ('Places', 'Shape'); CREATE TABLE Places (Id, Shape BLOB)");
  FdoPtr<Connection> connection = store.Open();
  EXPECT_EQ(Geometries(*connection.p->Schema().Class(L"Places")), "Shape WKB 15 *");
  // There is no place for another format, so a new class has this one.
  Apply(connection, SchemaOf({ClassOf(L"Roads", {Data(L"Id", FdoDataType_Int64), Geometry(L"Line")})}));
  EXPECT_EQ(Geometries(*connection.p->Schema().Class(L"Roads")), "Line WKB 15 *");
}

TEST(GeometryColumns, WithoutThemEveryTableIsAClassWithoutGeometry) {
  TestStore store;
  store.Run("CREATE TABLE Places (Id INTEGER PRIMARY KEY, Shape BLOB); CREATE TABLE Roads (Name)");
  FdoPtr<Connection> connection = store.Open();
  FdoPtr<FdoFeatureSchema> schema = Describe(connection);
  FdoPtr<FdoClassCollection> classes = schema->GetClasses();
  ASSERT_EQ(classes->GetCount(), 2);
  for (FdoInt32 i = 0; i < 2; ++i) {
    EXPECT_EQ(FdoPtr<FdoClassDefinition>(classes->GetItem(i))->GetClassType(), FdoClassType_Class);
  }
}

TEST(GeometryColumns, OthersExtraColumnsAndRowsStay) {
  TestStore store;
  store.Run(
      "CREATE TABLE geometry_columns (f_table_name TEXT, f_geometry_column TEXT, geometry_type INTEGER,"
      " coord_dimension INTEGER, srid INTEGER, geometry_format TEXT, geometry_dettype INTEGER);"
      "INSERT INTO geometry_columns VALUES ('Places', 'Shape', 1, 2, NULL, 'WKB', 17);"
      "CREATE TABLE Places (Id INTEGER PRIMARY KEY, Shape BLOB)");
  FdoPtr<Connection> connection = store.Open();
  Apply(connection, SchemaOf({ClassOf(L"Roads", {Data(L"Id", FdoDataType_Int64), Geometry(L"Line", 3)})}));
  EXPECT_EQ(store.Rows("SELECT * FROM geometry_columns"),
            "Places|Shape|1|2|NULL|WKB|17;Roads|Line|0|2|NULL|FGF|NULL");
}

struct IdentityCase {
  char const* what;
  char const* table;     // SQL
  char const* identity;  // names, + for generated
  char const* rowIdName;
};
constexpr IdentityCase kIdentities[] = {
    {"integer key", "CREATE TABLE T (a integer primary key, b)", "a+", "a"},
    {"with AUTOINCREMENT", "CREATE TABLE T (b, a INTEGER PRIMARY KEY AUTOINCREMENT)", "a+", "a"},
    {"as a table constraint", "CREATE TABLE T (a INTEGER, b, PRIMARY KEY (a))", "a+", "a"},
    {"descending", "CREATE TABLE T (a INTEGER PRIMARY KEY DESC, b)", "a", "rowid"},
    {"INT is not INTEGER", "CREATE TABLE T (a INT PRIMARY KEY, b)", "a", "rowid"},
    {"text key", "CREATE TABLE T (a TEXT PRIMARY KEY, b)", "a", "rowid"},
    {"composite key in its own order", "CREATE TABLE T (a, b, PRIMARY KEY (b, a))", "b, a", "rowid"},
    {"no key", "CREATE TABLE T (a, b)", "rowid+", "rowid"},
    {"no key, and a column rowid", "CREATE TABLE T (RowId, b)", "_rowid_+", "_rowid_"},
    {"no key, and no name left", "CREATE TABLE T (rowid, _rowid_, oid)", "", ""},
    {"without rowid", "CREATE TABLE T (a INTEGER PRIMARY KEY, b) WITHOUT ROWID", "a", ""},
    {"view", "CREATE VIEW T AS SELECT 1 AS a", "", ""},
};

TEST(Identity, EveryKindOfKey) {
  for (IdentityCase const& row : kIdentities) {
    SCOPED_TRACE(row.what);
    TestStore store;
    store.Run(row.table);
    FdoPtr<Connection> connection = store.Open();
    StoreClassPtr const found = connection.p->Schema().Class(L"T");
    std::string identity;
    for (int const place : found->identity) {
      StoreColumn const& column = found->columns[static_cast<std::size_t>(place)];
      identity += (identity.empty() ? "" : ", ") + fdo_sdk::Utf8FromWide(column.name) +
                  (column.autoGenerated ? "+" : "");
    }
    EXPECT_EQ(identity, row.identity);
    EXPECT_EQ(found->rowIdName, row.rowIdName);
    EXPECT_EQ(found->readOnly, std::string(row.what) == "view");
  }
}

struct ContextCase {
  char const* row;
  wchar_t const *name, *coordinateSystem, *wkt;
};
constexpr ContextCase kContexts[] = {
    {"(4326, 'EPSG', '4326', 'GEOGCS[]')", L"EPSG:4326", L"EPSG:4326", L"GEOGCS[]"},
    {"(7, 'EPSG', 31256, 'PROJCS[]')", L"EPSG:31256", L"EPSG:31256", L"PROJCS[]"},
    {"(50000, NULL, NULL, 'LOCAL_CS[]')", L"50000", L"50000", L"LOCAL_CS[]"},
    {"(50001, NULL, NULL, NULL)", L"50001", L"50001", L""},
    {"(50002, 'EPSG', '4326', '')", L"EPSG:4326_2", L"EPSG:4326", L""},
};

TEST(SpatialContexts, AreTheRowsOfSpatialRefSys) {
  TestStore store;
  store.Run(kRegistered);
  for (ContextCase const& row : kContexts) {
    store.Run("INSERT INTO spatial_ref_sys VALUES " + std::string(row.row));
  }
  store.Run("INSERT INTO spatial_ref_sys VALUES (NULL, 'EPSG', '1', 'not a row of anything')");
  FdoPtr<Connection> connection = store.Open();
  FdoPtr<FdoIGetSpatialContexts> get =
      Make<FdoIGetSpatialContexts>(connection, FdoCommandType_GetSpatialContexts);
  FdoPtr<FdoISpatialContextReader> reader = get->Execute();
  for (ContextCase const& row : kContexts) {
    SCOPED_TRACE(row.row);
    ASSERT_TRUE(reader->ReadNext());
    EXPECT_STREQ(reader->GetName(), row.name);
    EXPECT_STREQ(reader->GetCoordinateSystem(), row.coordinateSystem);
    EXPECT_STREQ(reader->GetCoordinateSystemWkt(), row.wkt);
  }
  EXPECT_FALSE(reader->ReadNext());
  EXPECT_FALSE(reader->ReadNext());
}

TEST(SpatialContexts, ComeBackAsTheyWereCreated) {
  TestStore store;
  store.Run(kRegistered);
  FdoPtr<Connection> connection = store.Open();
  CreateContext(connection, L"World", L"EPSG:4326", L"GEOGCS[]");
  CreateContext(connection, L"Again", L"EPSG:4326", L"");
  CreateContext(connection, L"Local", L"", L"LOCAL_CS[]");
  CreateContext(connection, L"Odd", L"LL84", L"x");
  std::string text;
  FdoPtr<Connection> again = store.Open();
  for (SpatialContext const& context : again.p->Schema().SpatialContexts()) {
    text += std::to_string(context.srid) + " " + fdo_sdk::Utf8FromWide(context.name) + " " +
            fdo_sdk::Utf8FromWide(context.coordinateSystem) + " " + fdo_sdk::Utf8FromWide(context.wkt) + ";";
  }
  EXPECT_EQ(text,
            "4326 World EPSG:4326 GEOGCS[];50000 Again EPSG:4326 ;50001 Local  LOCAL_CS[];50002 Odd LL84 x;");
  EXPECT_EQ(
      fdo_sdk::MessageThrownBy<FdoCommandException>([&] { CreateContext(connection, L"World", L"", L""); }),
      L"There is a spatial context \"World\" already.");
  CreateContext(connection, L"World", L"EPSG:4258", L"new", true);
  EXPECT_EQ(store.Rows("SELECT auth_srid, srtext FROM spatial_ref_sys WHERE srid = 4326"), "4258|new");
}

struct TypeCase {
  char const* declaration;
  FdoDataType type;
  std::int32_t length, precision, scale;
};
constexpr TypeCase kTypes[] = {
    // In files of other programs.
    {"INTEGER", FdoDataType_Int64, 0, 0, 0},
    {"INT", FdoDataType_Int32, 0, 0, 0},
    {"INTEGER_BOOLEAN", FdoDataType_Boolean, 0, 0, 0},
    {"BOOLEAN", FdoDataType_Boolean, 0, 0, 0},
    {"INTEGER_INT16", FdoDataType_Int16, 0, 0, 0},
    {"SMALLINT", FdoDataType_Int16, 0, 0, 0},
    {"TINYINT", FdoDataType_Byte, 0, 0, 0},
    {"MEDIUMINT", FdoDataType_Int32, 0, 0, 0},
    {"BIGINT", FdoDataType_Int64, 0, 0, 0},
    {"INT8", FdoDataType_Int64, 0, 0, 0},
    {"UNSIGNED BIG INT", FdoDataType_Int64, 0, 0, 0},
    {"FLOAT", FdoDataType_Double, 0, 0, 0},
    {"REAL", FdoDataType_Double, 0, 0, 0},
    {"DOUBLE", FdoDataType_Double, 0, 0, 0},
    {"DOUBLE PRECISION", FdoDataType_Double, 0, 0, 0},
    {"DECIMAL", FdoDataType_Decimal, 0, 0, 0},
    {"NUMERIC", FdoDataType_Decimal, 0, 0, 0},
    {"VARCHAR", FdoDataType_String, 0, 0, 0},
    {"varchar(20)", FdoDataType_String, 20, 0, 0},
    {"TEXT", FdoDataType_String, 0, 0, 0},
    {"NVARCHAR", FdoDataType_String, 0, 0, 0},
    {"CHAR( 7 )", FdoDataType_String, 7, 0, 0},
    {"CLOB", FdoDataType_CLOB, 0, 0, 0},
    {"DATE", FdoDataType_DateTime, 0, 0, 0},
    {"TIMESTAMP", FdoDataType_DateTime, 0, 0, 0},
    {"DATETIME", FdoDataType_DateTime, 0, 0, 0},
    {"TIME", FdoDataType_DateTime, 0, 0, 0},
    {"BLOB", FdoDataType_BLOB, 0, 0, 0},
    {"JSONINTEGERLIST", FdoDataType_String, 0, 0, 0},
    // Which other programs guess from the first row.
    {"", FdoDataType_BLOB, 0, 0, 0},
    {"SINGLE", FdoDataType_Single, 0, 0, 0},
    {"BYTE", FdoDataType_Byte, 0, 0, 0},
    {"BOOL", FdoDataType_Boolean, 0, 0, 0},
    {"INT16", FdoDataType_Int16, 0, 0, 0},
    {"INT32", FdoDataType_Int32, 0, 0, 0},
    {"INT64", FdoDataType_Int64, 0, 0, 0},
    {"LONG", FdoDataType_Int64, 0, 0, 0},
    {"FLOAT(8)", FdoDataType_Double, 0, 0, 0},
    {"TIMESTAMP(3)", FdoDataType_DateTime, 0, 0, 0},
    {"DECIMAL(10,2)", FdoDataType_Decimal, 0, 10, 2},
    {"NUMERIC(10, 2)", FdoDataType_Decimal, 0, 10, 2},
    {"DECIMAL(10", FdoDataType_Decimal, 0, 10, 0},
    {"DECIMAL(99999999999,-1)", FdoDataType_Decimal, 0, 0, 0},
    // By affinity.
    {"STRING", FdoDataType_Double, 0, 0, 0},
    {"POINT", FdoDataType_Int64, 0, 0, 0},
    {"FLOATING POINT", FdoDataType_Int64, 0, 0, 0},
    {"CHARACTER VARYING(255)", FdoDataType_String, 255, 0, 0},
    {"LONGTEXT", FdoDataType_String, 0, 0, 0},
    {"REALLY", FdoDataType_Double, 0, 0, 0},
    {"MEDIUMBLOB", FdoDataType_BLOB, 0, 0, 0},
};

TEST(ColumnTypes, EveryDeclaration) {
  for (TypeCase const& row : kTypes) {
    SCOPED_TRACE(row.declaration);
    TypeAndSize const found = TypeOfDeclaration(row.declaration);
    EXPECT_EQ(found.type, row.type);
    EXPECT_EQ(found.length, row.length);
    EXPECT_EQ(found.precision, row.precision);
    EXPECT_EQ(found.scale, row.scale);
  }
}

struct WrittenCase {
  FdoDataType type;
  std::int32_t length;
  char const* declaration;
};
constexpr WrittenCase kWritten[] = {
    {FdoDataType_Boolean, 0, "INTEGER_BOOLEAN"},
    {FdoDataType_Byte, 0, "TINYINT"},
    {FdoDataType_DateTime, 0, "TIMESTAMP"},
    {FdoDataType_Decimal, 0, "DECIMAL"},
    {FdoDataType_Double, 0, "DOUBLE"},
    {FdoDataType_Int16, 0, "SMALLINT"},
    {FdoDataType_Int32, 0, "INT"},
    {FdoDataType_Int64, 0, "BIGINT"},
    {FdoDataType_Single, 0, "FLOAT"},
    {FdoDataType_String, 0, "TEXT"},
    {FdoDataType_String, 12, "VARCHAR(12)"},
    {FdoDataType_BLOB, 0, "BLOB"},
    {FdoDataType_CLOB, 0, "CLOB"},
};

TEST(ColumnTypes, EveryDataTypeIsDeclaredAsOtherProgramsKnowIt) {
  for (WrittenCase const& row : kWritten) EXPECT_EQ(DeclarationOf(row.type, row.length), row.declaration);
  std::size_t written = 0;
  for (DeclaredType const& row : DeclaredTypes()) written += row.writtenFor >= 0 ? 1 : 0;
  EXPECT_EQ(written, 12u);
}

TEST(OddFiles, NamesWithSeparatorsAreShownWithout) {
  TestStore store;
  store.Run("CREATE TABLE \"a.b\" (\"x:y\", x_y, \"\"); CREATE TABLE a_b (c)");
  FdoPtr<Connection> connection = store.Open();
  std::string names;
  for (StoreClassPtr const& found : connection.p->Schema().Classes()) {
    for (StoreColumn const& column : found->columns) {
      names += fdo_sdk::Utf8FromWide(found->name + L" " + column.name + L";");
    }
  }
  EXPECT_EQ(names, "a_b rowid;a_b x_y;a_b x_y_2;a_b _;a_b_2 rowid;a_b_2 c;");
  Describe(connection);
}

TEST(OddFiles, AViewOfNothingIsNoClass) {
  TestStore store;
  store.Run(
      "CREATE TABLE A (x); CREATE VIEW V AS SELECT x FROM A; CREATE VIEW W AS SELECT * FROM A; DROP TABLE A");
  EXPECT_TRUE(store.Open().p->Schema().Classes().empty());
}

TEST(OddFiles, ComputedColumnsAreReadOnlyAndVirtualTablesAreNoClasses) {
  TestStore store;
  store.Run("CREATE TABLE A (x INT, y INT AS (x + 1)); CREATE VIRTUAL TABLE R USING rtree(id, a, b)");
  FdoPtr<Connection> connection = store.Open();
  ASSERT_EQ(connection.p->Schema().Classes().size(), 1u);
  StoreClassPtr const found = connection.p->Schema().Class(L"A");
  EXPECT_FALSE(found->Column(L"x")->readOnly);
  EXPECT_TRUE(found->Column(L"y")->readOnly);
}

TEST(OddFiles, ForeignMetadataIsReadAsFarAsItMakesSense) {
  TestStore store;
  store.Run(
      "CREATE TABLE fdo_columns (other, F_TABLE_NAME, f_column_name, fdo_data_type);"
      "INSERT INTO fdo_columns VALUES (1, 'places', 'A', 8), (2, 'Places', 'b', 99), (3, 'Places', 'Id', 9),"
      " (4, 'Gone', 'A', 1), (NULL, NULL, NULL, NULL), (5, 'Places', 'c', 'text');"
      "CREATE TABLE Places (Id INTEGER PRIMARY KEY, A FLOAT, B INT, C TEXT)");
  FdoPtr<Connection> connection = store.Open();
  StoreClassPtr const found = connection.p->Schema().Class(L"Places");
  EXPECT_EQ(found->Column(L"Id")->type, FdoDataType_Int64);
  EXPECT_EQ(found->Column(L"A")->type, FdoDataType_Single);
  EXPECT_EQ(found->Column(L"B")->type, FdoDataType_Int32);
  EXPECT_EQ(found->Column(L"C")->type, FdoDataType_String);
  // What the file says to those who ask for it is nothing to the others.
  EXPECT_EQ(store.Open(L"").p->Schema().Class(L"Places")->Column(L"A")->type, FdoDataType_Double);
}

}  // namespace
}  // namespace fdo_sqlite
