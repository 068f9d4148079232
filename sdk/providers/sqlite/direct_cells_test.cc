// The values of a reader in one call each, against those of its getters.
#include "sdk/extensions/direct_cells.h"

#include <gtest/gtest.h>

#include <iterator>
#include <string>

#include "sdk/providers/sqlite/cell_texts.h"
#include "sdk/providers/sqlite/row_commands.h"

namespace fdo_sqlite {
namespace {

// In one call, where the reader has it; else as the getter.
std::wstring Directly(FdoIFeatureReader& reader, FdoInt32 place, FdoInt32 type, int& direct) {
  fdo_sdk::DirectCell cell;
  fdo_sdk::DirectKind kind = fdo_sdk::DirectKind::kNone;
  try {
    kind = dynamic_cast<fdo_sdk::DirectCells&>(reader).ReadCell(place, type, cell);
  } catch (FdoException* raised) {
    FdoPtr<FdoException> const failure(raised);
    return failure->GetExceptionMessage();
  }
  direct += kind == fdo_sdk::DirectKind::kNone ? 0 : 1;
  return TextOf(kind, cell, reader, place, type);
}

TEST(DirectCells, AreWhatTheGettersGive) {
  TestStore store;
  store.Run(
      "CREATE TABLE geometry_columns (f_table_name TEXT, f_geometry_column TEXT, geometry_type INTEGER,"
      "  coord_dimension INTEGER, srid INTEGER, geometry_format TEXT);"
      "CREATE TABLE odd (id INTEGER PRIMARY KEY, flag BOOLEAN, small SMALLINT, n INT, wide BIGINT, x DOUBLE, "
      "t TEXT, moment TIMESTAMP, shape BLOB);"
      "INSERT INTO geometry_columns VALUES ('odd', 'shape', 1, 2, NULL, 'FGF');"
      "INSERT INTO odd VALUES (1, 1, 32767, 2147483647, 9223372036854775807, 0.5, 'Ulm', "
      "  '2024-03-01T14:30:05', x'0100000000000000000000000000F03F0000000000000040');"
      "INSERT INTO odd VALUES (2, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL);"
      "INSERT INTO odd VALUES (3, 0, -32768, -2147483648, -9223372036854775807 - 1, 2, 5, 86400, x'0100');"
      "INSERT INTO odd VALUES (4, 2.5, 32768, 2147483648, 'many', 'high', x'C3A9', 'never', 'a text');"
      "INSERT INTO odd VALUES (5, 'TRUE', -32769, -2147483649, 2.5, '2.5', '', 2460371.25, x'');"
      "INSERT INTO odd VALUES (6, 'perhaps', 2.0, '7', '8', x'', 2.5, x'', 7);");
  FdoPtr<Connection> connection = OpenQuickly(store);
  FdoInt32 const types[] = {FdoDataType_Int64,  FdoDataType_Boolean,  FdoDataType_Int16,
                            FdoDataType_Int32,  FdoDataType_Int64,    FdoDataType_Double,
                            FdoDataType_String, FdoDataType_DateTime, fdo_sdk::kDirectGeometry};
  FdoInt32 const columns = static_cast<FdoInt32>(std::size(types));
  FdoPtr<FdoISelect> select = MakeSelectOf(connection, L"odd");
  FdoPtr<FdoIFeatureReader> getters = select->Execute();
  FdoPtr<FdoIFeatureReader> cells = select->Execute();
  int direct = 0;
  int rows = 0;
  while (getters->ReadNext()) {
    ASSERT_TRUE(cells->ReadNext());
    ++rows;
    // As every type, and in a place that there is not.
    for (FdoInt32 const type : types) {
      for (FdoInt32 place = -1; place <= columns; ++place) {
        EXPECT_EQ(Directly(*cells, place, type, direct), ByGetter(*getters, place, type))
            << "row " << rows << ", place " << place << ", type " << type;
      }
    }
  }
  EXPECT_EQ(rows, 6);
  EXPECT_GE(direct, 3 * columns) << "most values are as their column says";
  EXPECT_FALSE(cells->ReadNext());
  EXPECT_EQ(Directly(*cells, 0, FdoDataType_Int64, direct), L"The reader stands on no row.");
}

}  // namespace
}  // namespace fdo_sqlite
