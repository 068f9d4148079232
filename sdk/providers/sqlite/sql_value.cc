#include "sdk/providers/sqlite/sql_value.h"

#include "sdk/providers/sqlite/ascii.h"
#include "sdk/providers/sqlite/date_key.h"
#include "sdk/providers/sqlite/date_text.h"
#include "sdk/providers/sqlite/number_reading.h"

namespace fdo_sqlite {
namespace {

// What SQLite makes of values that are written to a column, and of what they are compared with: its rules
// for declared types, in their order.
enum class Affinity { kInteger, kText, kBytes, kReal, kNumeric };

Affinity AffinityOf(StoreColumn const& column) {
  if (column.isRowId) return Affinity::kInteger;
  std::string const declared = UpperAscii(column.declaredType);
  auto const has = [&](char const* word) { return declared.find(word) != std::string::npos; };
  if (has("INT")) return Affinity::kInteger;
  if (has("CHAR") || has("CLOB") || has("TEXT")) return Affinity::kText;
  if (declared.empty() || has("BLOB")) return Affinity::kBytes;
  if (has("REAL") || has("FLOA") || has("DOUB")) return Affinity::kReal;
  return Affinity::kNumeric;
}

struct TypeKind {
  FdoDataType type;
  SqlKind kind;
};

constexpr TypeKind kTypeKinds[] = {
    {FdoDataType_Boolean, SqlKind::kBoolean}, {FdoDataType_Byte, SqlKind::kInteger},
    {FdoDataType_DateTime, SqlKind::kDate},   {FdoDataType_Decimal, SqlKind::kReal},
    {FdoDataType_Double, SqlKind::kReal},     {FdoDataType_Int16, SqlKind::kInteger},
    {FdoDataType_Int32, SqlKind::kInteger},   {FdoDataType_Int64, SqlKind::kInteger},
    {FdoDataType_Single, SqlKind::kReal},     {FdoDataType_String, SqlKind::kText},
    {FdoDataType_BLOB, SqlKind::kBytes},      {FdoDataType_CLOB, SqlKind::kText},
};

SqlFragment Cast(SqlFragment const& value, char const* type) {
  SqlFragment made("CAST(");
  made.Add(value, 2);
  made.Add(std::string(" AS ") + type + ")");
  return made;
}

template <class Typed>
Typed& As(FdoDataValue& value) {
  return static_cast<Typed&>(value);
}

SqlBytes Bytes(FdoLOBValue& value) {
  FdoPtr<FdoByteArray> const bytes = value.GetData();
  if (bytes == nullptr) return {};
  return SqlBytes(bytes->GetData(), bytes->GetData() + bytes->GetCount());
}

SqlParameter ParameterOf(FdoDataValue& value) {
  switch (value.GetDataType()) {
    case FdoDataType_Boolean:
      return std::int64_t{As<FdoBooleanValue>(value).GetBoolean()};
    case FdoDataType_Byte:
      return std::int64_t{As<FdoByteValue>(value).GetByte()};
    case FdoDataType_DateTime:
      return DateTextOf(As<FdoDateTimeValue>(value).GetDateTime());
    case FdoDataType_Decimal:
      return As<FdoDecimalValue>(value).GetDecimal();
    case FdoDataType_Double:
      return As<FdoDoubleValue>(value).GetDouble();
    case FdoDataType_Int16:
      return std::int64_t{As<FdoInt16Value>(value).GetInt16()};
    case FdoDataType_Int32:
      return std::int64_t{As<FdoInt32Value>(value).GetInt32()};
    case FdoDataType_Int64:
      return std::int64_t{As<FdoInt64Value>(value).GetInt64()};
    case FdoDataType_Single:
      return double{As<FdoSingleValue>(value).GetSingle()};
    case FdoDataType_String:
      return Utf8Of(As<FdoStringValue>(value).GetString());
    case FdoDataType_BLOB:
      return Bytes(As<FdoBLOBValue>(value));
    case FdoDataType_CLOB: {
      SqlBytes const bytes = Bytes(As<FdoCLOBValue>(value));
      return std::string(bytes.begin(), bytes.end());
    }
  }
  return std::monostate();
}

[[noreturn]] void RefuseKind(SqlValue const& value, std::wstring_view of, wchar_t const* wanted) {
  Refuse(std::wstring(of) + L" needs " + wanted + L", not " + NameOf(value.kind) + L".");
}

std::wstring TextOfLiteral(FdoDataValue& literal) { return As<FdoStringValue>(literal).GetString(); }

bool IsTextLiteral(SqlValue const& value) {
  return value.literal != nullptr && value.literal->GetDataType() == FdoDataType_String;
}

SqlFragment NumberOf(SqlValue const& value) {
  if (!IsTextLiteral(value)) return SqlFragment::Call("fdo_number", {value.sql});
  std::wstring const text = TextOfLiteral(*value.literal);
  SqlNumber const number = NumberInText(Utf8Of(text));
  if (auto const* whole = std::get_if<std::int64_t>(&number)) return SqlFragment::Parameter(*whole);
  if (auto const* real = std::get_if<double>(&number)) return SqlFragment::Parameter(*real);
  Refuse(L"A number is compared with the text \"" + text + L"\", which is no number.");
}

SqlFragment DateKey(SqlValue const& value) {
  if (value.literal == nullptr) return SqlFragment::Call("fdo_date_key", {value.sql});
  FdoDateTime date;
  if (!IsTextLiteral(value)) {
    date = As<FdoDateTimeValue>(*value.literal).GetDateTime();
  } else if (std::wstring const text = TextOfLiteral(*value.literal); !ParseDateText(Utf8Of(text), date)) {
    Refuse(L"A date is compared with the text \"" + text + L"\", which is no date.");
  }
  return SqlFragment::Parameter(DateKeyOf(date));
}

}  // namespace

SqlKind KindOf(FdoDataType type) {
  for (TypeKind const& row : kTypeKinds) {
    if (row.type == type) return row.kind;
  }
  return SqlKind::kNull;
}

wchar_t const* NameOf(SqlKind kind) {
  switch (kind) {
    case SqlKind::kNull:
      return L"null";
    case SqlKind::kBoolean:
      return L"a Boolean";
    case SqlKind::kInteger:
    case SqlKind::kReal:
      return L"a number";
    case SqlKind::kText:
      return L"a text";
    case SqlKind::kDate:
      return L"a date";
    case SqlKind::kBytes:
      return L"a BLOB";
    case SqlKind::kGeometry:
      return L"a geometry";
  }
  return L"";
}

// A column as it is lets SQLite use an index on it, so it is wrapped only where its declaration would make
// SQLite compare it otherwise than its type asks for.
SqlValue ColumnValue(StoreColumn const& column, std::string const& sqlName) {
  SqlValue made;
  made.sql = SqlFragment(sqlName);
  made.column = &column;
  made.readsRow = true;
  if (column.kind == StoreColumn::Kind::kGeometry) {
    made.kind = SqlKind::kGeometry;
    return made;
  }
  made.type = column.type;
  made.kind = KindOf(column.type);
  Affinity const affinity = AffinityOf(column);
  if (made.kind == SqlKind::kBoolean) {
    SqlFragment truth = SqlFragment::Binary(made.sql, "<>", SqlPower::kComparison, SqlFragment("0"));
    made.sql = SqlFragment();
    made.sql.AddWithin(truth, SqlPower::kAtom, 0);
  } else if (IsNumber(made.kind) && affinity == Affinity::kText) {
    made.sql = Cast(made.sql, "NUMERIC");
  } else if (column.type == FdoDataType_CLOB ||
             (made.kind == SqlKind::kText && affinity != Affinity::kText)) {
    made.sql = Cast(made.sql, "TEXT");
  }
  return made;
}

SqlValue LiteralValue(FdoDataValue& literal) {
  SqlValue made;
  made.type = literal.GetDataType();
  if (literal.IsNull()) {
    made.sql = SqlFragment::Parameter(std::monostate());
    return made;
  }
  made.kind = KindOf(made.type);
  made.literal = FDO_SAFE_ADDREF(&literal);
  SqlParameter parameter = ParameterOf(literal);
  if (made.kind == SqlKind::kDate && std::get<std::string>(parameter).empty()) {
    Refuse(L"A date in the filter or expression is no date.");
  }
  made.sql = SqlFragment::Parameter(std::move(parameter));
  return made;
}

void RequireOneSort(SqlValue const& value) {
  if (!value.isAggregate || !value.readsRow) return;
  Refuse(L"An expression cannot join a value of all rows with the value of one.");
}

// SQLite keeps whole numbers of a column of numbers as integers, and would divide them as such.
SqlFragment AsNumber(SqlValue const& value, std::wstring_view of) {
  if (value.kind == SqlKind::kNull) return value.sql;
  if (!IsNumber(value.kind)) RefuseKind(value, of, L"a number");
  bool const mayBeWhole =
      value.kind == SqlKind::kReal && value.column != nullptr && AffinityOf(*value.column) != Affinity::kReal;
  return mayBeWhole ? Cast(value.sql, "REAL") : value.sql;
}

SqlFragment AsText(SqlValue const& value, std::wstring_view of) {
  if (value.kind != SqlKind::kText && value.kind != SqlKind::kNull) RefuseKind(value, of, L"a text");
  return value.sql;
}

SqlFragment AsDate(SqlValue const& value, std::wstring_view of) {
  if (value.kind == SqlKind::kNull) return value.sql;
  if (value.kind != SqlKind::kDate && value.kind != SqlKind::kText) RefuseKind(value, of, L"a date");
  bool const isText = value.kind == SqlKind::kDate && value.column == nullptr;
  return isText ? value.sql : SqlFragment::Call("fdo_date", {value.sql});
}

SqlKind ComparedAs(SqlValue const& left, SqlValue const& right) {
  SqlKind const a = left.kind;
  SqlKind const b = right.kind;
  if (a == SqlKind::kGeometry || b == SqlKind::kGeometry) {
    Refuse(L"A geometry has no order and no equality; spatial conditions compare geometries.");
  }
  if (a == SqlKind::kNull) return b;
  if (b == SqlKind::kNull) return a;
  if (IsNumber(a) && IsNumber(b)) return SqlKind::kReal;
  if (a == b) return a;
  bool const hasText = a == SqlKind::kText || b == SqlKind::kText;
  SqlKind const other = a == SqlKind::kText ? b : a;
  if (hasText && IsNumber(other)) return SqlKind::kReal;
  if (hasText && other == SqlKind::kDate) return SqlKind::kDate;
  Refuse(std::wstring(L"What cannot be compared: ") + NameOf(a) + L" with " + NameOf(b) + L".");
}

SqlFragment Comparable(SqlValue const& value, SqlKind as) {
  if (value.kind == SqlKind::kNull) return value.sql;
  if (as == SqlKind::kDate) return DateKey(value);
  if (IsNumber(as) && value.kind == SqlKind::kText) return NumberOf(value);
  return value.sql;
}

}  // namespace fdo_sqlite
