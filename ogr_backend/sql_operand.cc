#include "ogr_backend/sql_operand.h"

#include <fdo/text_conversion.h>

#include <charconv>
#include <cmath>

#include "ogr_backend/column_types.h"

namespace fdo::internal {
namespace {

// A name in double quotes. A quote in it is doubled in SQL; GDAL's dialect takes a backslash before it.
std::string QuoteName(std::string const& name, FilterTarget const& target) {
  if (!target.ownSql && name.find('\\') != std::string::npos) {
    throw FilterRefused{L"the column name \"" + ToWide(name.c_str()) + L"\" holds a backslash",
                        /*holdsForRows=*/true};
  }
  std::string quoted = "\"";
  for (char const unit : name) {
    if (unit == '"') quoted += target.ownSql ? '"' : '\\';
    quoted += unit;
  }
  return quoted + '"';
}

struct ColumnKind {
  ColumnDef::DataType type;
  SqlOperand::Kind kind;
};

constexpr ColumnKind kColumnKinds[] = {
    {ColumnDef::kGeometry, SqlOperand::kGeometry}, {ColumnDef::kInt32, SqlOperand::kNumber},
    {ColumnDef::kInt64, SqlOperand::kNumber},      {ColumnDef::kDouble, SqlOperand::kNumber},
    {ColumnDef::kString, SqlOperand::kText},       {ColumnDef::kDateTime, SqlOperand::kDate},
};

SqlOperand::Kind KindOf(ColumnDef::DataType type) {
  for (ColumnKind const& pair : kColumnKinds) {
    if (pair.type == type) return pair.kind;
  }
  return SqlOperand::kOther;
}

constexpr char const* kArithmetic[] = {" + ", " - ", " * ", " / "};
static_assert(FdoBinaryOperations_Add == 0 && FdoBinaryOperations_Divide == 3);

}  // namespace

std::string QuoteText(std::wstring const& text, FilterTarget const& target) {
  std::string const narrow = ToUtf8(text.c_str());
  std::string quoted = "'";
  for (std::size_t i = 0; i < narrow.size(); ++i) {
    bool const beforeQuote = i + 1 == narrow.size() || narrow[i + 1] == '\'';
    if (!target.ownSql && narrow[i] == '\\' && beforeQuote) {
      throw FilterRefused{L"GDAL reads a backslash before a quote as part of the quote",
                          /*holdsForRows=*/true};
    }
    if (narrow[i] == '\'') quoted += '\'';
    quoted += narrow[i];
  }
  return quoted + '\'';
}

SqlOperand SqlOperandWriter::Write(FdoExpression* expression) {
  if (expression == nullptr) throw FilterRefused{L"it is incomplete"};
  if (++depth_ > kMaxFilterDepth) throw FilterRefused{L"it is nested too deeply"};
  expression->Process(this);
  --depth_;
  return std::move(result_);
}

SqlOperand SqlOperandWriter::WriteColumn(FdoIdentifier& identifier) {
  int const column = FindColumn(identifier);
  ColumnDef const& def = def_[column];
  SqlOperand operand;
  operand.kind = KindOf(def.Type());
  std::string name = def.NameUTF8();
  if (column == kIdColumn) name = target_.idName;
  if (column == kGeometryColumn) name = target_.geometryName;
  if (name.empty() || operand.kind == SqlOperand::kOther) {
    throw FilterRefused{L"the column \"" + std::wstring(def.Name()) + L"\" cannot be part of a condition"};
  }
  operand.sql = QuoteName(name, target_);
  columns_[static_cast<std::size_t>(column)] = true;
  return operand;
}

int SqlOperandWriter::FindColumn(FdoIdentifier& identifier) const {
  int column = def_.IndexOf(identifier.GetText());
  if (column < 0) {
    // A name that needs quotes stands between them in the text, but only a bare name is a column's.
    FdoInt32 scopes = 0;
    identifier.GetScope(scopes);
    if (scopes == 0 && *identifier.GetSchemaName() == L'\0') column = def_.IndexOf(identifier.GetName());
  }
  if (column < 0) {
    throw FilterRefused{std::wstring(def_.Name()) + L" has no column \"" + identifier.GetText() + L"\""};
  }
  return column;
}

void SqlOperandWriter::ProcessIdentifier(FdoIdentifier& expr) { result_ = WriteColumn(expr); }

void SqlOperandWriter::ProcessBinaryExpression(FdoBinaryExpression& expr) {
  SqlOperand const left = Write(FdoPtr<FdoExpression>(expr.GetLeftExpression()));
  SqlOperand const right = Write(FdoPtr<FdoExpression>(expr.GetRightExpression()));
  if (left.kind != SqlOperand::kNumber || right.kind != SqlOperand::kNumber) {
    throw FilterRefused{L"it calculates with something that is not a number"};
  }
  FdoBinaryOperations const operation = expr.GetOperation();
  // What a division by zero gives differs from store to store.
  if (operation == FdoBinaryOperations_Divide && (!right.isLiteral || right.isZero)) {
    throw FilterRefused{L"it divides by what may be zero", /*holdsForRows=*/true};
  }
  result_ = SqlOperand();
  result_.kind = SqlOperand::kNumber;
  result_.sql = std::string("(") + left.sql + kArithmetic[operation] + right.sql + ")";
}

void SqlOperandWriter::ProcessUnaryExpression(FdoUnaryExpression& expr) {
  SqlOperand operand = Write(FdoPtr<FdoExpression>(expr.GetExpression()));
  if (operand.kind != SqlOperand::kNumber) throw FilterRefused{L"it negates something that is not a number"};
  // The blank keeps two minus signs from beginning a comment.
  operand.sql = std::string("(- ") + operand.sql + ")";
  result_ = std::move(operand);
}

void SqlOperandWriter::Integer(FdoDataValue& value, __int64 number) {
  if (value.IsNull()) throw FilterRefused{L"it compares with NULL", /*holdsForRows=*/true};
  result_ = SqlOperand();
  result_.kind = SqlOperand::kNumber;
  result_.isLiteral = true;
  result_.isZero = number == 0;
  result_.sql = std::to_string(number);
  // In brackets, a minus sign cannot meet another one, which would begin a comment.
  if (number < 0) result_.sql.append(1, ')').insert(0, 1, '(');
}

void SqlOperandWriter::Real(FdoDataValue& value, double number) {
  if (!std::isfinite(number))
    throw FilterRefused{L"it holds a number that is not finite", /*holdsForRows=*/true};
  Integer(value, 1);
  char digits[40];
  // Shortest digits that read back as the same number; the point keeps it a real number.
  std::to_chars_result const end = std::to_chars(digits, digits + sizeof(digits), std::abs(number));
  std::string text(digits, end.ptr);
  if (text.find_first_of(".e") == std::string::npos) text += ".0";
  result_.isZero = number == 0;
  result_.sql = std::signbit(number) ? std::string("(-") + text + ")" : text;
}

void SqlOperandWriter::ProcessStringValue(FdoStringValue& expr) {
  if (expr.IsNull()) throw FilterRefused{L"it compares with NULL", /*holdsForRows=*/true};
  result_ = SqlOperand();
  result_.kind = SqlOperand::kText;
  result_.isLiteral = true;
  result_.text = expr.GetString();
  result_.sql = QuoteText(result_.text, target_);
}

void SqlOperandWriter::ProcessBooleanValue(FdoBooleanValue& expr) {
  Integer(expr, !expr.IsNull() && expr.GetBoolean() ? 1 : 0);
}
void SqlOperandWriter::ProcessByteValue(FdoByteValue& expr) {
  Integer(expr, expr.IsNull() ? 0 : expr.GetByte());
}
void SqlOperandWriter::ProcessInt16Value(FdoInt16Value& expr) {
  Integer(expr, expr.IsNull() ? 0 : expr.GetInt16());
}
void SqlOperandWriter::ProcessInt32Value(FdoInt32Value& expr) {
  Integer(expr, expr.IsNull() ? 0 : expr.GetInt32());
}
void SqlOperandWriter::ProcessInt64Value(FdoInt64Value& expr) {
  Integer(expr, expr.IsNull() ? 0 : expr.GetInt64());
}
void SqlOperandWriter::ProcessDecimalValue(FdoDecimalValue& expr) {
  Real(expr, expr.IsNull() ? 0 : expr.GetDecimal());
}
void SqlOperandWriter::ProcessDoubleValue(FdoDoubleValue& expr) {
  Real(expr, expr.IsNull() ? 0 : expr.GetDouble());
}
void SqlOperandWriter::ProcessSingleValue(FdoSingleValue& expr) {
  Real(expr, expr.IsNull() ? 0 : static_cast<double>(expr.GetSingle()));
}

void SqlOperandWriter::ProcessDateTimeValue(FdoDateTimeValue&) {
  throw FilterRefused{L"it compares dates, which every format of GDAL's writes in a way of its own",
                      /*holdsForRows=*/true};
}
void SqlOperandWriter::ProcessFunction(FdoFunction& expr) {
  throw FilterRefused{L"it calls the function " + std::wstring(expr.GetName()), /*holdsForRows=*/true};
}
void SqlOperandWriter::ProcessComputedIdentifier(FdoComputedIdentifier&) {
  throw FilterRefused{L"it uses a computed identifier"};
}
void SqlOperandWriter::ProcessParameter(FdoParameter&) { throw FilterRefused{L"it has a parameter"}; }
void SqlOperandWriter::ProcessBLOBValue(FdoBLOBValue&) { throw FilterRefused{L"it compares bytes"}; }
void SqlOperandWriter::ProcessCLOBValue(FdoCLOBValue&) { throw FilterRefused{L"it compares long text"}; }
void SqlOperandWriter::ProcessGeometryValue(FdoGeometryValue&) {
  throw FilterRefused{L"it compares geometry"};
}
void SqlOperandWriter::ProcessSubSelectExpression(FdoSubSelectExpression&) {
  throw FilterRefused{L"it has a sub-select"};
}

}  // namespace fdo::internal
