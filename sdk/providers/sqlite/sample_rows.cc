#include "sdk/providers/sqlite/sample_rows.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>

#include "FdoGeometry.h"
#include "sdk/providers/sqlite/sample_class.h"
#include "sdk/providers/sqlite/sql_fragment.h"
#include "sdk/providers/sqlite/stored_geometry.h"

namespace fdo_sqlite {
namespace {

constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kGreatest = std::numeric_limits<std::int64_t>::max();

constexpr std::int64_t kWhole[] = {0, 1, -1, 2, 5, 7, 100, 255, -32768, 32767};
constexpr std::int64_t kBig[] = {0, 1, 5, -7, 2147483648, 9007199254740993, kLeast, kGreatest, kGreatest - 1};
// Without -0.0, which SQLite keeps as 0.
constexpr double kReal[] = {0.0,  0.5, -0.5, 2.5,   -2.5,   5,      7,    1e18,      9.2233720368547758e18,
                            1e19, 0.1, 5.0,  1e300, 5e-324, -1e300, 1.25, 12345.678, 255};
// The model counts and orders units of wide text; of 16 bits, they would be two where SQLite sees one
// character.
constexpr wchar_t const* kRareCharacter = sizeof(wchar_t) == 2 ? L"中" : L"😀";
constexpr wchar_t const* kText[] = {L"",       L"a",        L"A",    L"abc",         L"Abc",  L"5",
                                    L"5.0",    L"05",       L" 7 ",  L"-2.5",        L"1e18", L"x%y",
                                    L"a_b",    L"[a]*?",    L"é",    kRareCharacter, L"true", L"2024-03-01",
                                    L"O'Hara", L"14:30:05", L"five", L"aé",          L"]b",   L"%"};

struct SampleDate {
  wchar_t const* literal;
  char const* stored;
};
constexpr SampleDate kDates[] = {
    {L"DATE '2024-03-01'", "2024-03-01"},
    {L"TIMESTAMP '2024-03-01 14:30:05'", "2024-03-01T14:30:05"},
    {L"TIMESTAMP '2024-03-01 14:30:05'", "2024-03-01 14:30:05"},
    {L"TIMESTAMP '2024-03-01 14:30:05'", "2024-03-01T14:30:05.000Z"},
    {L"TIMESTAMP '2024-03-01 14:30:05.5'", "2024-03-01T14:30:05.5"},
    {L"TIMESTAMP '2024-03-01 14:30:05.5'", "2024-03-01 14:30:05.500"},
    {L"TIMESTAMP '2024-03-01 14:30:00'", "2024-03-01 14:30"},
    {L"TIMESTAMP '2024-03-01 00:00:00'", "2024-03-01T00:00:00"},
    {L"TIME '14:30:05'", "14:30:05"},
    {L"TIME '23:00:00'", "23:00"},
    {L"DATE '0999-12-31'", "0999-12-31"},
    {L"DATE '12024-01-01'", "12024-01-01"},
    {L"DATE '1970-01-01'", "1970-01-01"},
};

constexpr wchar_t const* kShapes[] = {
    L"POINT (2 2)",
    L"POINT XYZ (5 5 1)",
    L"POINT XYM (0 4 7)",
    L"POINT (9 9)",
    L"LINESTRING (0 0, 4 4)",
    L"LINESTRING (4 0, 0 4)",
    L"LINESTRING (4 4, 9 9)",
    L"LINESTRING EMPTY",
    L"POLYGON ((0 0, 4 0, 4 4, 0 4, 0 0))",
    L"POLYGON ((1 1, 3 1, 3 3, 1 3, 1 1))",
    L"POLYGON ((4 0, 8 0, 8 4, 4 4, 4 0))",
    L"POLYGON ((0 0, 9 0, 9 9, 0 9, 0 0), (2 2, 6 2, 6 6, 2 6, 2 2))",
    L"MULTIPOINT (1 1, 2 2, 7 7)",
    L"MULTILINESTRING ((0 0, 1 1), (5 5, 9 5))",
    L"MULTIPOLYGON (((0 0, 2 0, 2 2, 0 0)), ((5 5, 8 5, 8 8, 5 5)))",
};

class Rows {
 public:
  FdoPtr<FdoLiteralValue> Value(StoreColumn const& column, SqlParameter& stored) {
    stored = std::monostate();
    if (!column.isRowId && random_() % 6 == 0) return {};
    if (column.kind == StoreColumn::Kind::kGeometry) return Shape(column.format, stored);
    switch (column.type) {
      case FdoDataType_Boolean:
        return Of<FdoBooleanValue>(random_() % 2 == 0, stored);
      case FdoDataType_Byte:
        return Of<FdoByteValue>(static_cast<FdoByte>(Any(kWhole) & 0xFF), stored);
      case FdoDataType_Int16:
        return Of<FdoInt16Value>(static_cast<FdoInt16>(Any(kWhole)), stored);
      case FdoDataType_Int32:
        return Of<FdoInt32Value>(static_cast<FdoInt32>(Any(kWhole)), stored);
      case FdoDataType_Int64:
        return Of<FdoInt64Value>(column.isRowId ? ++lastId_ : Any(kBig), stored);
      case FdoDataType_Decimal:
      case FdoDataType_Double: {
        double const value = random_() % 40 == 0 ? HUGE_VAL : Any(kReal);
        stored = value;
        if (column.type == FdoDataType_Double) return FdoPtr<FdoLiteralValue>(FdoDoubleValue::Create(value));
        return FdoPtr<FdoLiteralValue>(FdoDecimalValue::Create(value));
      }
      case FdoDataType_Single: {
        float const value = random_() % 2 == 0 ? 0.1f : static_cast<float>(Any(kWhole)) / 2;
        stored = double{value};
        return FdoPtr<FdoLiteralValue>(FdoSingleValue::Create(value));
      }
      case FdoDataType_DateTime: {
        SampleDate const& date = Any(kDates);
        stored = std::string(date.stored);
        FdoPtr<FdoExpression> const literal = FdoExpression::Parse(date.literal);
        return FdoPtr<FdoLiteralValue>(FDO_SAFE_ADDREF(static_cast<FdoDateTimeValue*>(literal.p)));
      }
      case FdoDataType_String: {
        wchar_t const* const text = Any(kText);
        stored = Utf8Of(text);
        return FdoPtr<FdoLiteralValue>(FdoStringValue::Create(text));
      }
      default: {
        SqlBytes const bytes(random_() % 3, static_cast<FdoByte>(random_() % 2 == 0 ? 0 : 0xFF));
        stored = bytes;
        FdoPtr<FdoByteArray> const array =
            FdoByteArray::Create(bytes.data(), static_cast<FdoInt32>(bytes.size()));
        return FdoPtr<FdoLiteralValue>(FdoBLOBValue::Create(array));
      }
    }
  }

 private:
  template <class T, std::size_t count>
  T const& Any(T const (&choices)[count]) {
    return choices[random_() % count];
  }

  template <class Value, class T>
  static FdoPtr<FdoLiteralValue> Of(T value, SqlParameter& stored) {
    stored = static_cast<std::int64_t>(value);
    return FdoPtr<FdoLiteralValue>(Value::Create(value));
  }

  FdoPtr<FdoLiteralValue> Shape(GeometryFormat format, SqlParameter& stored) {
    FdoPtr<FdoIGeometry> const geometry = factory_->CreateGeometry(Any(kShapes));
    FdoPtr<FdoByteArray> const fgf = factory_->GetFgf(geometry);
    StoredGeometry codec(format);
    GeometryBytes const bytes = codec.Store(fgf->GetData(), static_cast<std::size_t>(fgf->GetCount()));
    stored = SqlBytes(bytes.data, bytes.data + bytes.size);
    return FdoPtr<FdoLiteralValue>(FdoGeometryValue::Create(fgf));
  }

  std::mt19937_64 random_{20240301};
  std::int64_t lastId_ = 0;
  FdoPtr<FdoFgfGeometryFactory> factory_ = FdoFgfGeometryFactory::GetInstance();
};

}  // namespace

memory_provider::Table MakeSampleRows(sqlite3* database, int count) {
  StoreClass const sample = SampleClass();
  memory_provider::Table table;
  std::string sql = "INSERT INTO Parts VALUES (";
  for (StoreColumn const& column : sample.columns) {
    memory_provider::Column made;
    made.name = column.name;
    made.isGeometry = column.kind == StoreColumn::Kind::kGeometry;
    made.type = column.type;
    table.columns.push_back(made);
    sql += table.columns.size() == 1 ? "?" : ", ?";
  }
  EXPECT_EQ(sqlite3_exec(database, SampleTableSql().c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
  sqlite3_stmt* insert = nullptr;
  EXPECT_EQ(sqlite3_prepare_v2(database, (sql + ")").c_str(), -1, &insert, nullptr), SQLITE_OK);
  Rows rows;
  for (int i = 0; i < count; ++i) {
    memory_provider::Row row;
    std::vector<SqlParameter> stored(sample.columns.size());
    for (std::size_t j = 0; j < sample.columns.size(); ++j) {
      row.push_back(rows.Value(sample.columns[j], stored[j]));
    }
    table.rows.push_back(std::make_shared<memory_provider::Row const>(row));
    BindParameters(insert, stored);
    EXPECT_EQ(sqlite3_step(insert), SQLITE_DONE) << sqlite3_errmsg(database);
    sqlite3_reset(insert);
  }
  sqlite3_finalize(insert);
  return table;
}

}  // namespace fdo_sqlite
