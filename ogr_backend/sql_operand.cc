#include "ogr_backend/sql_operand.h"

#include <algorithm>
#include <cmath>

#include "expr/function_table.h"
#include "ogr_backend/column_types.h"
#include "ogr_backend/sql_literal.h"

namespace fdo::internal {
namespace {

constexpr wchar_t const* kNullHasNoValue = L"it calculates with NULL";
// What GDAL's dialect does with integers beyond 64 bits differs from version to version.
constexpr double kSafeIntegers = 0x1p62;

constexpr char const* kArithmetic[] = {" + ", " - ", " * ", " / "};
static_assert(FdoBinaryOperations_Add == 0 && FdoBinaryOperations_Divide == 3);

bool IsNumberOrNull(SqlOperand const& operand) {
  return !operand.kind || *operand.kind == ComparedAs::kNumber;
}

SqlOperand NullOperand() {
  SqlOperand null;
  null.rowsOnly = kNullHasNoValue;
  return null;
}

// Of integers.
double BoundOf(FdoBinaryOperations operation, SqlOperand const& left, SqlOperand const& right) {
  if (operation == FdoBinaryOperations_Multiply) return left.bound * right.bound;
  if (operation != FdoBinaryOperations_Divide) return left.bound + right.bound;
  return right.literal ? left.bound / std::max(1.0, right.bound) : left.bound;
}

bool FitsInto(FunctionInfo const& function, SqlOperand const& argument) {
  if (!argument.kind) return true;
  ComparedAs const kind = *argument.kind;
  switch (function.takes) {
    case Takes::kNumbers:
      return kind == ComparedAs::kNumber;
    case Takes::kNumberOrText:
      return kind == ComparedAs::kNumber || kind == ComparedAs::kText;
    case Takes::kDateOrText:
      return kind == ComparedAs::kDate || kind == ComparedAs::kText;
    case Takes::kPoint:
      return kind == ComparedAs::kGeometry || kind == ComparedAs::kText;
    case Takes::kAnything:
      return kind != ComparedAs::kGeometry && kind != ComparedAs::kBytes;
  }
  return false;
}

// What a function of these arguments gives, as far as comparisons are concerned.
SqlOperand ResultOf(FunctionInfo const& function, std::vector<SqlOperand> const& arguments) {
  SqlOperand result;
  switch (function.gives) {
    case Gives::kInteger:
      result.kind = ComparedAs::kNumber;
      result.bound = 0x1p63;
      break;
    case Gives::kReal:
      result.kind = ComparedAs::kNumber;
      result.isReal = true;
      break;
    case Gives::kText:
      result.kind = ComparedAs::kText;
      break;
    case Gives::kDate:
      result.kind = ComparedAs::kDate;
      break;
    case Gives::kItsSecond: {
      // The first choice that is not NULL: the second argument, or another one that may be given instead.
      std::size_t i = 1;
      while (i < arguments.size() && !arguments[i].kind)
        i += i == 1 && function.arguments == kAnyCount ? 2 : 1;
      if (i < arguments.size()) result.kind = arguments[i].kind;
      result.isReal = true;
      break;
    }
  }
  return result;
}

}  // namespace

SqlOperand NumberOperand(Value const& number, FilterLanguage language) {
  SqlOperand operand;
  operand.kind = ComparedAs::kNumber;
  operand.literal = number;
  double const real = static_cast<double>(number);
  operand.bound = std::fabs(real);
  operand.isReal = number.Type() == Value::kDouble;
  if (operand.isReal && !std::isfinite(real)) {
    operand.rowsOnly = L"it holds a number that is not finite";
  } else if (operand.isReal) {
    operand.sql = RealText(real, language);
  } else if (std::optional<std::string> const text = IntegerText(static_cast<__int64>(number), language)) {
    operand.sql = *text;
  } else {
    operand.rowsOnly = L"it holds the least of all integers";
  }
  return operand;
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
  ColumnKind const* const kind = KindOf(def.Type());
  std::wstring const shown = L"the column \"" + std::wstring(def.Name()) + L"\"";
  if (kind == nullptr) throw FilterRefused{shown + L" cannot be part of a condition"};
  SqlOperand operand;
  operand.kind = kind->comparedAs;
  operand.isReal = kind->kind == Value::kDouble;
  operand.bound = def.Type() == ColumnDef::kInt32 ? 0x1p31 : 0x1p63;
  std::string name = def.NameUTF8();
  if (column == kIdColumn) name = target_.idName;
  if (column == kGeometryColumn) name = target_.geometryName;
  std::optional<std::string> const quoted = name.empty() ? std::nullopt : QuotedName(name, target_.language);
  if (quoted) {
    operand.sql = *quoted;
  } else {
    operand.rowsOnly = shown + L" has no name that GDAL's conditions can hold";
  }
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

// Why the quotient, sum or product that result_ has become is only for rows.
void SqlOperandWriter::CheckCalculation(FdoBinaryOperations operation, SqlOperand const& right) {
  // SQLite calculates as the rows do: beyond 64 bits with doubles, and to null when it divides by zero.
  if (target_.language == FilterLanguage::kSqlite) return;
  if (target_.language == FilterLanguage::kPostgreSql) {
    result_.rowsOnly = L"it calculates, which PostgreSQL refuses where a result does not fit";
  } else if (operation == FdoBinaryOperations_Divide &&
             (!right.literal || static_cast<double>(*right.literal) == 0)) {
    result_.rowsOnly = L"it divides by what may be zero";
  } else if (!result_.isReal && result_.bound > kSafeIntegers) {
    result_.rowsOnly = L"it calculates with integers that may leave 64 bits";
  }
}

void SqlOperandWriter::ProcessBinaryExpression(FdoBinaryExpression& expr) {
  SqlOperand const left = Write(FdoPtr<FdoExpression>(expr.GetLeftExpression()));
  SqlOperand const right = Write(FdoPtr<FdoExpression>(expr.GetRightExpression()));
  if (!IsNumberOrNull(left) || !IsNumberOrNull(right)) {
    throw FilterRefused{L"it calculates with something that is not a number"};
  }
  if (!left.kind || !right.kind) {
    result_ = NullOperand();
    return;
  }
  FdoBinaryOperations const operation = expr.GetOperation();
  result_ = SqlOperand();
  result_.kind = ComparedAs::kNumber;
  result_.isReal = left.isReal || right.isReal;
  result_.bound = BoundOf(operation, left, right);
  result_.rowsOnly = left.rowsOnly.empty() ? right.rowsOnly : left.rowsOnly;
  if (result_.rowsOnly.empty()) CheckCalculation(operation, right);
  if (result_.rowsOnly.empty()) {
    result_.sql = std::string("(") + left.sql + kArithmetic[operation] + right.sql + ")";
  }
}

void SqlOperandWriter::ProcessUnaryExpression(FdoUnaryExpression& expr) {
  result_ = Write(FdoPtr<FdoExpression>(expr.GetExpression()));
  if (!IsNumberOrNull(result_)) throw FilterRefused{L"it negates something that is not a number"};
  result_.literal.reset();
  if (!result_.kind || !result_.rowsOnly.empty()) return;
  CheckCalculation(FdoBinaryOperations_Subtract, result_);
  // The blank keeps two minus signs from beginning a comment.
  result_.sql = std::string("(- ") + result_.sql + ")";
}

void SqlOperandWriter::ProcessFunction(FdoFunction& expr) {
  FdoPtr<FdoExpressionCollection> const given = expr.GetArguments();
  std::vector<SqlOperand> arguments;
  for (FdoInt32 i = 0; given != nullptr && i < given->GetCount(); ++i) {
    arguments.push_back(Write(FdoPtr<FdoExpression>(given->GetItem(i))));
  }
  std::wstring const name = expr.GetName();
  FunctionInfo const* function = FindFunction(name.c_str());
  if (function == nullptr) throw FilterRefused{L"Unknown function \"" + name + L"\"."};
  function =
      FindFunction(static_cast<long long>(FormFor(function->number, static_cast<int>(arguments.size()))));
  for (SqlOperand const& argument : arguments) {
    if (!FitsInto(*function, argument)) {
      throw FilterRefused{L"the function " + name + L" is given what it is not made for"};
    }
  }
  result_ = ResultOf(*function, arguments);
  result_.rowsOnly = L"it calls the function " + name;
}

template <class Number>
void SqlOperandWriter::Literal(FdoDataValue& value, Number number) {
  result_ = value.IsNull() ? NullOperand() : NumberOperand(Value(number()), target_.language);
}

void SqlOperandWriter::ProcessStringValue(FdoStringValue& expr) {
  if (expr.IsNull()) {
    result_ = NullOperand();
    return;
  }
  result_ = SqlOperand();
  result_.kind = ComparedAs::kText;
  result_.literal = Value(expr.GetString());
  if (std::optional<std::string> const text = QuotedText(expr.GetString(), target_.language)) {
    result_.sql = *text;
  } else {
    result_.rowsOnly = L"it holds a text that GDAL may read as another one";
  }
}

void SqlOperandWriter::ProcessDateTimeValue(FdoDateTimeValue& expr) {
  result_ = NullOperand();
  if (expr.IsNull()) return;
  result_.kind = ComparedAs::kDate;
  result_.rowsOnly = L"it holds a date, which every format of GDAL's writes in a way of its own";
}

void SqlOperandWriter::ProcessBooleanValue(FdoBooleanValue& expr) {
  Literal(expr, [&] { return expr.GetBoolean() ? 1 : 0; });
}
void SqlOperandWriter::ProcessByteValue(FdoByteValue& expr) {
  Literal(expr, [&] { return static_cast<int>(expr.GetByte()); });
}
void SqlOperandWriter::ProcessInt16Value(FdoInt16Value& expr) {
  Literal(expr, [&] { return static_cast<int>(expr.GetInt16()); });
}
void SqlOperandWriter::ProcessInt32Value(FdoInt32Value& expr) {
  Literal(expr, [&] { return expr.GetInt32(); });
}
void SqlOperandWriter::ProcessInt64Value(FdoInt64Value& expr) {
  Literal(expr, [&] { return expr.GetInt64(); });
}
void SqlOperandWriter::ProcessDecimalValue(FdoDecimalValue& expr) {
  Literal(expr, [&] { return expr.GetDecimal(); });
}
void SqlOperandWriter::ProcessDoubleValue(FdoDoubleValue& expr) {
  Literal(expr, [&] { return expr.GetDouble(); });
}
void SqlOperandWriter::ProcessSingleValue(FdoSingleValue& expr) {
  Literal(expr, [&] { return static_cast<double>(expr.GetSingle()); });
}

void SqlOperandWriter::ProcessComputedIdentifier(FdoComputedIdentifier&) {
  throw FilterRefused{L"it uses a computed identifier"};
}
void SqlOperandWriter::ProcessParameter(FdoParameter&) { throw FilterRefused{L"it has a parameter"}; }
void SqlOperandWriter::ProcessBLOBValue(FdoBLOBValue&) { throw FilterRefused{L"it compares bytes"}; }
void SqlOperandWriter::ProcessCLOBValue(FdoCLOBValue&) { throw FilterRefused{L"it compares long text"}; }
void SqlOperandWriter::ProcessGeometryValue(FdoGeometryValue&) {
  result_ = SqlOperand();
  result_.kind = ComparedAs::kGeometry;
  result_.rowsOnly = L"it holds a geometry";
}
void SqlOperandWriter::ProcessSubSelectExpression(FdoSubSelectExpression&) {
  throw FilterRefused{L"it has a sub-select"};
}

}  // namespace fdo::internal
