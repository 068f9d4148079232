#include "sdk/providers/sqlite/sample_class.h"

#include "sdk/providers/sqlite/sql_names.h"

namespace fdo_sqlite {
namespace {

struct SampleColumn {
  wchar_t const* name;
  FdoDataType type;
  char const* declared;
};

constexpr SampleColumn kColumns[] = {
    {L"Id", FdoDataType_Int64, "INTEGER PRIMARY KEY"},
    {L"Flag", FdoDataType_Boolean, "INTEGER_BOOLEAN"},
    {L"Tiny", FdoDataType_Byte, "TINYINT"},
    {L"Short", FdoDataType_Int16, "SMALLINT"},
    {L"Whole", FdoDataType_Int32, "INT"},
    {L"Big", FdoDataType_Int64, "BIGINT"},
    {L"Price", FdoDataType_Decimal, "DECIMAL"},
    {L"Real", FdoDataType_Double, "DOUBLE"},
    {L"Half", FdoDataType_Single, "FLOAT"},
    {L"Name", FdoDataType_String, "TEXT"},
    {L"Built", FdoDataType_DateTime, "TIMESTAMP"},
    {L"Data", FdoDataType_BLOB, "BLOB"},
};

StoreColumn GeometryColumn(wchar_t const* name, GeometryFormat format) {
  StoreColumn column;
  column.name = name;
  column.sqlName = FdoStringP(name);
  column.kind = StoreColumn::Kind::kGeometry;
  column.declaredType = "BLOB";
  column.format = format;
  return column;
}

}  // namespace

StoreClass SampleClass() {
  StoreClass made;
  made.name = L"Parts";
  made.tableName = "Parts";
  for (SampleColumn const& row : kColumns) {
    StoreColumn column;
    column.name = row.name;
    column.sqlName = FdoStringP(row.name);
    column.type = row.type;
    column.declaredType = row.declared;
    made.columns.push_back(column);
  }
  made.columns[0].isRowId = true;
  made.columns[0].keyPosition = 0;
  made.identity = {0};
  made.geometry = static_cast<int>(made.columns.size());
  made.columns.push_back(GeometryColumn(L"Shape", GeometryFormat::kFgf));
  made.columns.push_back(GeometryColumn(L"Outline", GeometryFormat::kWkb));
  made.rowIdName = "rowid";
  return made;
}

std::string SampleTableSql() {
  StoreClass const sample = SampleClass();
  std::string sql = "CREATE TABLE " + QuotedName(sample.tableName) + " (";
  for (std::size_t i = 0; i < sample.columns.size(); ++i) {
    sql +=
        (i == 0 ? "" : ", ") + QuotedName(sample.columns[i].sqlName) + " " + sample.columns[i].declaredType;
  }
  return sql + ")";
}

}  // namespace fdo_sqlite
