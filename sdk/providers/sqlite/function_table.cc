#include "sdk/providers/sqlite/function_table.h"

#include <cwctype>

namespace fdo_sqlite {
namespace {

constexpr int kAnyCount = 1000;

std::wstring Named(FunctionRow const& row) { return std::wstring(L"The function \"") + row.name + L"\""; }

// Geometries are given with the number of their format, which the bytes do not tell.
std::string FormatNumber(SqlValue const& value) {
  return std::to_string(static_cast<int>(value.column->format));
}

// The value as its kind has it: a column of reals may hold integers, whose text and quotients are others.
SqlFragment OfKind(FunctionRow const& row, SqlValue const& value) {
  if (value.kind == SqlKind::kDate) return AsDate(value, Named(row));
  return IsNumber(value.kind) ? AsNumber(value, Named(row)) : value.sql;
}

// Adds what the SQL function gets for one argument.
void AddArgument(FunctionRow const& row, char takes, SqlValue const& value, std::vector<SqlFragment>& given) {
  std::wstring const of = Named(row);
  switch (takes) {
    case 'n':
      given.push_back(AsNumber(value, of));
      return;
    case 's':
      given.push_back(AsText(value, of));
      return;
    case 'd':
      given.push_back(AsDate(value, of));
      return;
    case 'v':
      given.push_back(value.kind == SqlKind::kText ? value.sql : AsNumber(value, of));
      return;
    case 'p':
    case 'g':
      if (value.kind == SqlKind::kGeometry && value.column != nullptr) {
        given.push_back(value.sql);
        given.push_back(SqlFragment(FormatNumber(value)));
        return;
      }
      if (takes == 'g' || value.kind != SqlKind::kText) {
        Refuse(of + L" needs a geometry property, not " + NameOf(value.kind) + L".");
      }
      given.push_back(value.sql);
      given.push_back(SqlFragment(std::to_string(static_cast<int>(GeometryFormat::kWkt))));
      return;
    default:
      if (value.kind == SqlKind::kGeometry || value.kind == SqlKind::kBytes) {
        Refuse(of + L" does not take " + NameOf(value.kind) + L".");
      }
      given.push_back(OfKind(row, value));
  }
}

std::vector<SqlFragment> Given(FunctionRow const& row, std::vector<SqlValue> const& arguments) {
  std::vector<SqlFragment> given;
  std::string_view takes = row.takes;
  for (SqlValue const& value : arguments) {
    AddArgument(row, takes.front(), value, given);
    if (takes.size() > 1) takes.remove_prefix(1);
  }
  return given;
}

SqlFragment Readable(FunctionRow const& row, SqlValue const& value) {
  if (value.kind != SqlKind::kBoolean) return Given(row, {value})[0];
  SqlFragment words("CASE ");
  words.Add(value.sql, 1);
  words.Add(" WHEN 1 THEN 'true' WHEN 0 THEN 'false' END");
  return words;
}

void WriteToString(FunctionRow const& row, std::vector<SqlValue>& arguments, SqlValue& result) {
  SqlFragment const text = Readable(row, arguments[0]);
  bool const isText = !IsNumber(arguments[0].kind) || arguments[0].kind == SqlKind::kBoolean;
  result.sql = isText ? text : SqlFragment::Call("fdo_tostring", {text});
}

void WriteConcat(FunctionRow const& row, std::vector<SqlValue>& arguments, SqlValue& result) {
  std::vector<SqlFragment> parts;
  for (SqlValue const& value : arguments) parts.push_back(Readable(row, value));
  result.sql = SqlFragment::Call("fdo_concat", parts);
}

bool IsArithmetic(SqlKind kind) { return kind == SqlKind::kInteger || kind == SqlKind::kReal; }

// The results of If, Lookup and NullValue are of one kind, so that it is known how they compare.
void SetCommonKind(FunctionRow const& row, std::vector<SqlValue const*> const& choices, SqlValue& result) {
  for (SqlValue const* choice : choices) {
    if (choice->kind == SqlKind::kNull) continue;
    if (choice->kind == SqlKind::kGeometry) Refuse(Named(row) + L" does not give geometries.");
    if (result.kind == SqlKind::kNull) {
      result.kind = choice->kind;
      result.type = choice->type;
    } else if (IsArithmetic(result.kind) && IsArithmetic(choice->kind)) {
      bool const isReal = result.kind == SqlKind::kReal || choice->kind == SqlKind::kReal;
      if (isReal) result.kind = SqlKind::kReal;
      if (result.type != choice->type) result.type = isReal ? FdoDataType_Double : FdoDataType_Int64;
    } else if (result.kind != choice->kind) {
      Refuse(Named(row) + L" gives either " + NameOf(result.kind) + L" or " + NameOf(choice->kind) +
             L"; its results must be of one kind.");
    }
  }
}

void WriteIf(FunctionRow const& row, std::vector<SqlValue>& arguments, SqlValue& result) {
  SqlValue const& condition = arguments[0];
  SetCommonKind(row, {&arguments[1], &arguments[2]}, result);
  SqlFragment made("CASE WHEN ");
  switch (condition.kind) {
    case SqlKind::kBoolean:
    case SqlKind::kInteger:
      made.Add(SqlFragment::Binary(condition.sql, "<>", SqlPower::kComparison, SqlFragment("0")), 3);
      break;
    case SqlKind::kText:
      made.Add(SqlFragment::Binary(SqlFragment::Call("lower", {condition.sql}), "=", SqlPower::kComparison,
                                   SqlFragment("'true'")),
               3);
      break;
    case SqlKind::kNull:
      made.Add(condition.sql, 3);
      break;
    default:
      Refuse(Named(row) + L" needs a Boolean, a whole number or a text as its condition.");
  }
  made.Add(" THEN ");
  made.Add(OfKind(row, arguments[1]), 5);
  made.Add(" ELSE ");
  made.Add(OfKind(row, arguments[2]), 5);
  made.Add(" END");
  result.sql = made;
}

// Of key, default, key1, value1, ...; a last key without a value selects the default, as no key does.
void WriteLookup(FunctionRow const& row, std::vector<SqlValue>& arguments, SqlValue& result) {
  std::vector<SqlValue const*> values = {&arguments[1]};
  std::vector<SqlValue const*> keys;
  for (std::size_t i = 3; i < arguments.size(); i += 2) {
    keys.push_back(&arguments[i - 1]);
    values.push_back(&arguments[i]);
  }
  SetCommonKind(row, values, result);
  if (keys.empty()) {
    result.sql = OfKind(row, arguments[1]);
    return;
  }
  SqlKind as = arguments[0].kind;
  for (SqlValue const* key : keys) {
    SqlValue common;
    common.kind = as;
    as = ComparedAs(common, *key);
  }
  SqlFragment made("CASE ");
  made.AddWithin(Comparable(arguments[0], as), SqlPower::kAtom, 1);
  if (as == SqlKind::kText) made.Add(" COLLATE BINARY");
  for (std::size_t i = 0; i < keys.size(); ++i) {
    made.Add(" WHEN ");
    made.Add(Comparable(*keys[i], as), 4);
    made.Add(" THEN ");
    made.Add(OfKind(row, *values[i + 1]), 6);
  }
  made.Add(" ELSE ");
  made.Add(OfKind(row, arguments[1]), 4);
  made.Add(" END");
  result.sql = made;
}

void WriteNullValue(FunctionRow const& row, std::vector<SqlValue>& arguments, SqlValue& result) {
  SetCommonKind(row, {&arguments[0], &arguments[1]}, result);
  result.sql = SqlFragment::Call("coalesce", {OfKind(row, arguments[0]), OfKind(row, arguments[1])});
}

void WriteDate(FunctionRow const& row, std::vector<SqlValue>& arguments, SqlValue& result) {
  result.sql = Given(row, arguments)[0];
}

void WriteToday(FunctionRow const&, std::vector<SqlValue>&, SqlValue& result) {
  result.sql = SqlFragment("date('now')");
}

void WriteCount(FunctionRow const&, std::vector<SqlValue>& arguments, SqlValue& result) {
  if (arguments.empty()) {
    result.sql = SqlFragment("count(*)");
  } else if (arguments[0].kind == SqlKind::kGeometry) {
    result.sql = SqlFragment::Call(
        "sum",
        {SqlFragment::Call("fdo_has_geometry", {arguments[0].sql, SqlFragment(FormatNumber(arguments[0]))})});
    result.sql = SqlFragment::Call("coalesce", {result.sql, SqlFragment("0")});
  } else {
    result.sql = SqlFragment::Call("count", {arguments[0].sql});
  }
}

// The least or greatest value is of the kind and type of the values.
void WriteExtreme(FunctionRow const& row, std::vector<SqlValue>& arguments, SqlValue& result) {
  // A number is left bare, so that an index on it finds the extreme.
  SqlFragment value = IsNumber(arguments[0].kind) ? arguments[0].sql : Given(row, arguments)[0];
  result.kind = arguments[0].kind;
  result.type = arguments[0].type;
  if (result.kind == SqlKind::kText) {
    SqlFragment collated;
    collated.AddWithin(value, SqlPower::kAtom, 0);
    collated.Add(" COLLATE BINARY");
    value = collated;
  }
  result.sql = SqlFragment::Call(row.sqlName, {value});
}

constexpr SqlKind kReal = SqlKind::kReal;
constexpr SqlKind kInteger = SqlKind::kInteger;
constexpr SqlKind kText = SqlKind::kText;
constexpr FdoDataType kDouble = FdoDataType_Double;
constexpr FdoDataType kInt64 = FdoDataType_Int64;
constexpr FdoDataType kString = FdoDataType_String;

}  // namespace

std::vector<FunctionRow> const& Functions() {
  static std::vector<FunctionRow> const kRows = {
      {L"ToString", 1, 1, "a", kText, kString, nullptr, WriteToString, false},
      {L"ToDouble", 1, 1, "v", kReal, kDouble, "fdo_todouble", nullptr, false},
      {L"ToFloat", 1, 1, "v", kReal, FdoDataType_Single, "fdo_tofloat", nullptr, false},
      {L"ToInt32", 1, 1, "v", kInteger, FdoDataType_Int32, "fdo_toint32", nullptr, false},
      {L"ToInt64", 1, 1, "v", kInteger, kInt64, "fdo_toint64", nullptr, false},
      {L"ToDateTime", 1, 1, "d", SqlKind::kDate, FdoDataType_DateTime, nullptr, WriteDate, false},
      {L"ToDate", 1, 1, "d", SqlKind::kDate, FdoDataType_DateTime, nullptr, WriteDate, false},
      {L"NullValue", 2, 2, "*", SqlKind::kNull, kString, nullptr, WriteNullValue, false},
      {L"Sin", 1, 1, "n", kReal, kDouble, "fdo_sin", nullptr, false},
      {L"Cos", 1, 1, "n", kReal, kDouble, "fdo_cos", nullptr, false},
      {L"Tan", 1, 1, "n", kReal, kDouble, "fdo_tan", nullptr, false},
      {L"Asin", 1, 1, "n", kReal, kDouble, "fdo_asin", nullptr, false},
      {L"Acos", 1, 1, "n", kReal, kDouble, "fdo_acos", nullptr, false},
      {L"Atan", 1, 1, "n", kReal, kDouble, "fdo_atan", nullptr, false},
      {L"Atan2", 2, 2, "n", kReal, kDouble, "fdo_atan2", nullptr, false},
      {L"Sqrt", 1, 1, "n", kReal, kDouble, "fdo_sqrt", nullptr, false},
      {L"Ln", 1, 1, "n", kReal, kDouble, "fdo_ln", nullptr, false},
      {L"Exp", 1, 1, "n", kReal, kDouble, "fdo_exp", nullptr, false},
      {L"Pow", 2, 2, "n", kReal, kDouble, "fdo_power", nullptr, false},
      {L"Power", 2, 2, "n", kReal, kDouble, "fdo_power", nullptr, false},
      {L"Log", 1, 2, "n", kReal, kDouble, "fdo_log", nullptr, false},
      {L"Floor", 1, 1, "n", kReal, kDouble, "fdo_floor", nullptr, false},
      {L"Ceil", 1, 1, "n", kReal, kDouble, "fdo_ceil", nullptr, false},
      {L"Abs", 1, 1, "n", kReal, kDouble, "fdo_abs", nullptr, false},
      {L"Sign", 1, 1, "n", kInteger, FdoDataType_Int32, "fdo_sign", nullptr, false},
      {L"Trunc", 1, 1, "n", kInteger, kInt64, "fdo_trunc", nullptr, false},
      {L"Trunc", 2, 2, "n", kReal, kDouble, "fdo_trunc", nullptr, false},
      {L"Round", 1, 2, "n", kReal, kDouble, "fdo_round", nullptr, false},
      {L"Remainder", 2, 2, "n", kReal, kDouble, "fdo_remainder", nullptr, false},
      {L"Mod", 2, 2, "n", kInteger, kInt64, "fdo_mod", nullptr, false},
      {L"Random", 0, 0, "n", kReal, kDouble, "fdo_random", nullptr, false},
      {L"If", 3, 3, "*", SqlKind::kNull, kString, nullptr, WriteIf, false},
      {L"Lookup", 2, kAnyCount, "*", SqlKind::kNull, kString, nullptr, WriteLookup, false},
      {L"CurrentDate", 0, 0, "n", SqlKind::kDate, FdoDataType_DateTime, nullptr, WriteToday, false},
      {L"Concat", 0, 120, "a", kText, kString, nullptr, WriteConcat, false},
      {L"Upper", 1, 1, "s", kText, kString, "fdo_upper", nullptr, false},
      {L"Lower", 1, 1, "s", kText, kString, "fdo_lower", nullptr, false},
      {L"Length", 1, 1, "s", kInteger, kInt64, "length", nullptr, false},
      {L"Instr", 2, 2, "s", kInteger, kInt64, "instr", nullptr, false},
      {L"Substr", 2, 3, "snn", kText, kString, "fdo_substr", nullptr, false},
      {L"Trim", 1, 1, "s", kText, kString, "trim", nullptr, false},
      {L"Ltrim", 1, 1, "s", kText, kString, "ltrim", nullptr, false},
      {L"Rtrim", 1, 1, "s", kText, kString, "rtrim", nullptr, false},
      {L"X", 1, 1, "p", kReal, kDouble, "fdo_x", nullptr, false},
      {L"Y", 1, 1, "p", kReal, kDouble, "fdo_y", nullptr, false},
      {L"Z", 1, 1, "p", kReal, kDouble, "fdo_z", nullptr, false},
      {L"M", 1, 1, "p", kReal, kDouble, "fdo_m", nullptr, false},
      {L"Count", 0, 1, "*", kInteger, kInt64, nullptr, WriteCount, true},
      {L"Min", 1, 1, "a", SqlKind::kNull, kString, "min", WriteExtreme, true},
      {L"Max", 1, 1, "a", SqlKind::kNull, kString, "max", WriteExtreme, true},
      {L"Sum", 1, 1, "n", kReal, kDouble, "fdo_sum", nullptr, true},
      {L"Avg", 1, 1, "n", kReal, kDouble, "fdo_avg", nullptr, true},
      {L"Median", 1, 1, "n", kReal, kDouble, "fdo_median", nullptr, true},
      {L"Stddev", 1, 1, "n", kReal, kDouble, "fdo_stddev", nullptr, true},
      {L"SpatialExtents", 1, 1, "g", SqlKind::kGeometry, FdoDataType_BLOB, "fdo_extents", nullptr, true},
  };
  return kRows;
}

namespace {

bool SameName(std::wstring_view a, std::wstring_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (std::towlower(static_cast<std::wint_t>(a[i])) != std::towlower(static_cast<std::wint_t>(b[i])))
      return false;
  }
  return true;
}

}  // namespace

FunctionRow const& FindFunction(std::wstring_view name, std::size_t arguments) {
  FunctionRow const* named = nullptr;
  for (FunctionRow const& row : Functions()) {
    if (!SameName(row.name, name)) continue;
    if (arguments >= static_cast<std::size_t>(row.least) && arguments <= static_cast<std::size_t>(row.most))
      return row;
    named = &row;
  }
  if (named == nullptr) {
    Refuse(L"There is no function \"" + std::wstring(name) + L"\" in this provider.");
  }
  Refuse(Named(*named) + L" does not take " + std::to_wstring(arguments) +
         (arguments == 1 ? L" argument." : L" arguments."));
}

SqlValue CallFunction(FunctionRow const& row, std::vector<SqlValue>& arguments) {
  SqlValue result;
  result.kind = row.kind;
  result.type = row.type;
  result.isAggregate = row.isAggregate;
  for (SqlValue const& argument : arguments) {
    if (argument.isAggregate && row.isAggregate) {
      Refuse(Named(row) + L" summarises rows and cannot be given another such function.");
    }
    result.isAggregate = result.isAggregate || argument.isAggregate;
    result.readsRow = result.readsRow || (argument.readsRow && !row.isAggregate);
  }
  RequireOneSort(result);
  if (row.write != nullptr) {
    row.write(row, arguments, result);
  } else {
    result.sql = SqlFragment::Call(row.sqlName, Given(row, arguments));
  }
  return result;
}

}  // namespace fdo_sqlite
