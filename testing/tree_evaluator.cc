#include "testing/tree_evaluator.h"

#include <FdoSpatial.h>
#include <fdo/text_conversion.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <map>
#include <regex>
#include <stdexcept>
#include <vector>

#include "testing/sql_values_reference.h"
#include "values/date_text.h"

namespace fdo {
namespace {

// A tree with a hole in it has no value.
struct Incomplete {};

using Arguments = std::vector<Value>;

bool IsNaN(Value const& value) {
  return value.Type() == Value::kDouble && std::isnan(static_cast<double>(value));
}

double Number(Value const& value) { return static_cast<double>(value); }
long long Integer(Value const& value) { return static_cast<__int64>(value); }
bool Is64Bit(double number) { return number >= -0x1p63 && number < 0x1p63; }

// Toward zero through an integer, so that a zero has no sign, and on from there.
double FloorThroughInteger(double number) {
  if (!Is64Bit(number) || number == std::trunc(number)) return number;
  return number < 0 ? std::floor(number) : std::fabs(std::trunc(number));
}
double CeilThroughInteger(double number) {
  if (!Is64Bit(number) || number == std::trunc(number)) return number;
  return number > 0 ? std::ceil(number) : std::trunc(number) + 0.0;
}

double TenTo(long long digits) {
  double power = 1;
  double square = 10;
  auto left = static_cast<unsigned long long>(digits);
  if (digits < 0) left = 0 - left;
  for (; left > 0; left /= 2, square *= square) power = left % 2 == 1 ? power * square : power;
  return digits < 0 ? 1 / power : power;
}

using OfOne = double (*)(double);
std::map<std::wstring, OfOne> const& FunctionsOfOne() {
  static std::map<std::wstring, OfOne> const functions = {{L"sin", [](double a) { return std::sin(a); }},
                                                          {L"cos", [](double a) { return std::cos(a); }},
                                                          {L"tan", [](double a) { return std::tan(a); }},
                                                          {L"asin", [](double a) { return std::asin(a); }},
                                                          {L"acos", [](double a) { return std::acos(a); }},
                                                          {L"atan", [](double a) { return std::atan(a); }},
                                                          {L"sqrt", [](double a) { return std::sqrt(a); }},
                                                          {L"ln", [](double a) { return std::log(a); }},
                                                          {L"exp", [](double a) { return std::exp(a); }},
                                                          {L"log", [](double a) { return std::log10(a); }},
                                                          {L"abs", [](double a) { return std::fabs(a); }},
                                                          {L"floor", FloorThroughInteger},
                                                          {L"ceil", CeilThroughInteger}};
  return functions;
}

bool Matches(std::wstring const& text, std::wstring const& pattern) {
  std::wstring expression;
  for (wchar_t const unit : pattern) {
    if (unit == L'%') {
      expression += L"[\\s\\S]*";
    } else if (unit == L'_') {
      expression += L"[\\s\\S]";
    } else if (std::wcschr(L"^$\\.*+?()[]{}|", unit) != nullptr) {
      expression += L'\\';
      expression += unit;
    } else {
      expression += unit;
    }
  }
  return std::regex_match(text, std::wregex(expression));
}

FdoPtr<FdoIGeometry> GeometryFrom(Value const& value) {
  FdoPtr<FdoFgfGeometryFactory> const factory = FdoFgfGeometryFactory::GetInstance();
  return FdoPtr<FdoIGeometry>(
      factory->CreateGeometryFromFgf(value.AsBlob(), value.AsBlob() == nullptr ? 0 : value.BlobLen()));
}

class TreeEvaluator : public FdoIExpressionProcessor, public FdoIFilterProcessor {
 public:
  TreeEvaluator(Row const& row, ExprOptions const& options) : row_(row), options_(options) {}

  template <class Tree>
  Value Of(Tree* tree) {
    FdoPtr<Tree> const holder(tree);
    if (holder == nullptr) throw Incomplete();
    holder->Process(this);
    return std::move(value_);
  }

  // Right operands come before left ones.
  void ProcessBinaryExpression(FdoBinaryExpression& expr) override {
    Value const right = Of(expr.GetRightExpression());
    Value const left = Of(expr.GetLeftExpression());
    Value result = right;  // what has no sum is the right operand as it was
    if (Unknown(left) || Unknown(right)) {
      value_.Reset();
      return;
    }
    if (options_.sqlValues) {
      value_ = CalculateByReference("+-*/"[expr.GetOperation()], left, right);
      return;
    }
    bool const bothIntegers = left.Type() == Value::kInt && right.Type() == Value::kInt;
    bool const leftBorrowed = Borrowed(expr.GetLeftExpression());
    bool const rightBorrowed = Borrowed(expr.GetRightExpression());
    // Texts of which one is a column or a literal and the other computed are of two types.
    if (left.Type() == right.Type() && left.Type() >= Value::kString && leftBorrowed != rightBorrowed) {
      double const a = Number(left);
      double const b = Number(right);
      constexpr double (*kOf[])(double, double) = {
          [](double x, double y) { return x + y; }, [](double x, double y) { return x - y; },
          [](double x, double y) { return x * y; }, [](double x, double y) { return x / y; }};
      value_ = Value(kOf[expr.GetOperation()](a, b));
      return;
    }
    switch (expr.GetOperation()) {
      case FdoBinaryOperations_Add:
        Value::Add(result, left, right);
        break;
      case FdoBinaryOperations_Subtract:
        Value::Sub(result, left, right);
        break;
      case FdoBinaryOperations_Multiply:
        Value::Mul(result, left, right);
        break;
      case FdoBinaryOperations_Divide:
        if (bothIntegers && Integer(right) == 0 && options_.allConditions) {
          result.Reset();
        } else if (bothIntegers && Integer(right) == -1 &&
                   Integer(left) == std::numeric_limits<long long>::min() && options_.allConditions) {
          result.Reset(0x1p63);
        } else {
          Value::Div(result, left, right);
        }
        break;
    }
    value_ = std::move(result);
  }

  void ProcessUnaryExpression(FdoUnaryExpression& expr) override {
    Value value = Of(expr.GetExpression());
    if (Unknown(value)) {
      value.Reset();
    } else if (options_.sqlValues && value.Type() != Value::kDouble) {
      value = CalculateByReference('*', Value(-1), value);
    } else {
      Value::Neg(value);
    }
    value_ = std::move(value);
  }

  void ProcessFunction(FdoFunction& expr) override {
    FdoPtr<FdoExpressionCollection> const collection = expr.GetArguments();
    Arguments arguments(static_cast<std::size_t>(collection->GetCount()));
    for (FdoInt32 i = collection->GetCount(); i > 0; --i) {
      arguments[static_cast<std::size_t>(i - 1)] = Of(collection->GetItem(i - 1));
    }
    std::wstring const name = expr.GetName();
    bool const takesNull = name == L"tostring" || name == L"todatetime" || name == L"concat" ||
                           name == L"if" || name == L"lookup";
    for (Value const& argument : arguments) {
      if (!takesNull && Unknown(argument)) {
        value_.Reset();
        return;
      }
    }
    bool const borrowed = arguments.size() == 1 && Borrowed(collection->GetItem(0));
    value_ = Call(name, arguments, borrowed);
  }

  void ProcessIdentifier(FdoIdentifier& expr) override {
    value_.CopyFrom(row_[row_.Def()->IndexOf(expr.GetName())]);
  }
  void ProcessComputedIdentifier(FdoComputedIdentifier&) override { throw Incomplete(); }
  void ProcessParameter(FdoParameter&) override { throw Incomplete(); }
  void ProcessBLOBValue(FdoBLOBValue&) override { throw Incomplete(); }
  void ProcessCLOBValue(FdoCLOBValue&) override { throw Incomplete(); }
  void ProcessSubSelectExpression(FdoSubSelectExpression&) override { throw Incomplete(); }

  void ProcessBooleanValue(FdoBooleanValue& expr) override {
    value_ = expr.IsNull() ? Value() : Value(expr.GetBoolean());
  }
  void ProcessByteValue(FdoByteValue& expr) override {
    value_ = expr.IsNull() ? Value() : Value(int{expr.GetByte()});
  }
  void ProcessInt16Value(FdoInt16Value& expr) override {
    value_ = expr.IsNull() ? Value() : Value(int{expr.GetInt16()});
  }
  void ProcessInt32Value(FdoInt32Value& expr) override {
    value_ = expr.IsNull() ? Value() : Value(expr.GetInt32());
  }
  void ProcessInt64Value(FdoInt64Value& expr) override {
    value_ = expr.IsNull() ? Value() : Value(expr.GetInt64());
  }
  void ProcessDecimalValue(FdoDecimalValue& expr) override {
    value_ = expr.IsNull() ? Value() : Value(expr.GetDecimal());
  }
  void ProcessDoubleValue(FdoDoubleValue& expr) override {
    value_ = expr.IsNull() ? Value() : Value(expr.GetDouble());
  }
  void ProcessSingleValue(FdoSingleValue& expr) override {
    value_ = expr.IsNull() ? Value() : Value(double{expr.GetSingle()});
  }
  void ProcessStringValue(FdoStringValue& expr) override {
    value_ = expr.IsNull() ? Value() : Value(static_cast<wchar_t const*>(expr.GetString()));
  }
  void ProcessDateTimeValue(FdoDateTimeValue& expr) override {
    wchar_t text[internal::kDateTextSize];
    internal::FormatDateTime(expr.GetDateTime(), text);
    value_ = Value(static_cast<wchar_t const*>(text));
  }
  void ProcessGeometryValue(FdoGeometryValue& expr) override {
    FdoPtr<FdoByteArray> const fgf = expr.GetGeometry();
    value_ = fgf == nullptr ? Value() : Value(fgf->GetData(), fgf->GetCount());
  }

  void ProcessBinaryLogicalOperator(FdoBinaryLogicalOperator& filter) override {
    Value const right = Of(filter.GetRightOperand());
    Value const left = Of(filter.GetLeftOperand());
    bool const isAnd = filter.GetOperation() == FdoBinaryLogicalOperations_And;
    // 0 false, 1 unknown, 2 true: AND is the least of them, OR the greatest.
    int const a = Truth(left);
    int const b = Truth(right);
    SetTruth(isAnd ? std::min(a, b) : std::max(a, b));
  }
  void ProcessUnaryLogicalOperator(FdoUnaryLogicalOperator& filter) override {
    SetTruth(2 - Truth(Of(filter.GetOperand())));
  }
  void ProcessComparisonCondition(FdoComparisonCondition& filter) override {
    Value right = Of(filter.GetRightExpression());
    Value left = Of(filter.GetLeftExpression());
    if (filter.GetOperation() == FdoComparisonOperations_Like) {
      if (!options_.allConditions)
        throw std::runtime_error("\"Like\" not implemented yet for fdo::ExprEval.");
      wchar_t const* const text = static_cast<wchar_t const*>(left);
      wchar_t const* const pattern = static_cast<wchar_t const*>(right);
      bool const known = !Unknown(left) && !Unknown(right);
      SetTruth(!known ? 1 : text != nullptr && pattern != nullptr && Matches(text, pattern) ? 2 : 0);
      return;
    }
    ReadBeside(filter.GetLeftExpression(), filter.GetRightExpression(), right);
    ReadBeside(filter.GetRightExpression(), filter.GetLeftExpression(), left);
    if (Unknown(left) || Unknown(right)) return SetTruth(1);
    ReferenceOrder const order = Order(left, right);
    if (order == kReferenceUnknown) return SetTruth(1);
    bool const less = order == kReferenceLess;
    bool const greater = order == kReferenceGreater;
    bool const holds[] = {!less && !greater, less || greater, greater, !less, less, !greater};
    SetTruth(holds[filter.GetOperation()] ? 2 : 0);
  }
  void ProcessInCondition(FdoInCondition& filter) override {
    FdoPtr<FdoValueExpressionCollection> const values = filter.GetValues();
    int truth = 0;
    Value const column = Of(static_cast<FdoExpression*>(filter.GetPropertyName()));
    for (FdoInt32 i = 0; i < values->GetCount(); ++i) {
      Value value = Of(static_cast<FdoExpression*>(values->GetItem(i)));
      ReadBeside(filter.GetPropertyName(), values->GetItem(i), value);
      bool const isUnknown = Unknown(column) || Unknown(value) || Order(column, value) == kReferenceUnknown;
      int const one = isUnknown ? 1 : Order(column, value) == kReferenceEqual ? 2 : 0;
      truth = std::max(truth, one);
    }
    SetTruth(truth);
  }
  void ProcessNullCondition(FdoNullCondition& filter) override {
    SetTruth(Of(static_cast<FdoExpression*>(filter.GetPropertyName())).IsNull() ? 2 : 0);
  }
  void ProcessSpatialCondition(FdoSpatialCondition& filter) override {
    Value const literal = Of(filter.GetGeometry());
    Value const column = Of(static_cast<FdoExpression*>(filter.GetPropertyName()));
    if (options_.allConditions && (column.AsBlob() == nullptr || literal.AsBlob() == nullptr)) {
      return SetTruth(options_.nullIsUnknown ? 1 : 0);
    }
    FdoPtr<FdoIGeometry> const left = GeometryFrom(column);
    FdoPtr<FdoIGeometry> const right = GeometryFrom(literal);
    bool holds = false;
    try {
      holds = FdoSpatialUtility::Evaluate(left, filter.GetOperation(), right);
    } catch (FdoException* raised) {
      FdoPtr<FdoException> const failure(raised);
    }
    SetTruth(holds ? 2 : 0);
  }
  void ProcessDistanceCondition(FdoDistanceCondition&) override { throw Incomplete(); }

 protected:
  void Dispose() override {}

 private:
  bool Unknown(Value const& value) const {
    return options_.nullIsUnknown && (value.IsNull() || !value.IsValid() || IsNaN(value));
  }
  int Truth(Value const& value) const { return Unknown(value) ? 1 : value.AsBool() ? 2 : 0; }
  void SetTruth(int truth) {
    if (truth == 1) {
      value_.Reset();
    } else {
      value_.Reset(truth == 2);
    }
  }

  ReferenceOrder Order(Value const& left, Value const& right) const {
    if (options_.sqlValues) return CompareByReference(left, right);
    return left < right ? kReferenceLess : right < left ? kReferenceGreater : kReferenceEqual;
  }

  // What a text literal is beside a column, as in SQL.
  void ReadBeside(FdoExpression* other, FdoExpression* literal, Value& value) const {
    FdoPtr<FdoExpression> const left(other);
    FdoPtr<FdoExpression> const right(literal);
    auto* const column = dynamic_cast<FdoIdentifier*>(left.p);
    if (!options_.sqlValues || column == nullptr || dynamic_cast<FdoStringValue*>(right.p) == nullptr) return;
    if (!value.IsNull())
      value = LiteralByReference(value, (*row_.Def())[row_.Def()->IndexOf(column->GetName())].Type());
  }

  // Columns and literals are lent to the machine; so is what todatetime passes on.
  bool Borrowed(FdoExpression* expression) {
    FdoPtr<FdoExpression> const holder(expression);
    switch (holder->GetExpressionType()) {
      case FdoExpressionItemType_Identifier:
      case FdoExpressionItemType_DataValue:
      case FdoExpressionItemType_GeometryValue:
        return true;
      case FdoExpressionItemType_Function: {
        auto* const function = static_cast<FdoFunction*>(holder.p);
        if (std::wcscmp(function->GetName(), L"todatetime") != 0) return false;
        return Borrowed(FdoPtr<FdoExpressionCollection>(function->GetArguments())->GetItem(0));
      }
      case FdoExpressionItemType_BinaryExpression: {
        // What has no sum is the right operand as it was.
        auto* const sum = static_cast<FdoBinaryExpression*>(holder.p);
        return Borrowed(sum->GetRightExpression());
      }
      default:
        return false;
    }
  }

  Value Call(std::wstring const& name, Arguments const& of, bool borrowed) {
    auto const found = FunctionsOfOne().find(name);
    if (found != FunctionsOfOne().end()) return Value(found->second(Number(of[0])));
    if (name == L"pow") return Value(std::pow(Number(of[0]), Number(of[1])));
    if (name == L"atan2") return Value(std::atan2(Number(of[0]), Number(of[1])));
    if (name == L"remainder") {
      double const a = Number(of[0]);
      double const b = Number(of[1]);
      return Value(a - FloorThroughInteger(a / b) * b);
    }
    if (name == L"mod") {
      if (Integer(of[1]) == 0) return Value();
      return Value(Integer(of[1]) == -1 ? 0LL : Integer(of[0]) % Integer(of[1]));
    }
    if (name == L"sign") return Value(Number(of[0]) > 0 ? 1 : Number(of[0]) == 0 ? 0 : -1);
    if (name == L"trunc" && of.size() == 1) return Value(Integer(of[0]));
    if (name == L"round" && of.size() == 1) return Value(FloorThroughInteger(Number(of[0]) + 0.5));
    if (name == L"trunc")
      return Value(std::trunc(Number(of[0]) * TenTo(Integer(of[1]))) / TenTo(Integer(of[1])));
    if (name == L"round") {
      double const factor = TenTo(Integer(of[1]));
      return Value(FloorThroughInteger(Number(of[0]) * factor + 0.5) / factor);
    }
    if (name == L"tostring") return Value(static_cast<wchar_t const*>(of[0]));
    if (name == L"todouble") return Value(Number(of[0]));
    if (name == L"tofloat") {
      return of[0].Type() == Value::kDouble ? of[0] : Value(double{static_cast<float>(Number(of[0]))});
    }
    if (name == L"toint32")
      return of[0].Type() == Value::kInt ? of[0] : Value(static_cast<int>(Integer(of[0])));
    if (name == L"toint64") return Value(Integer(of[0]));
    if (name == L"todatetime") return of[0];
    if (name == L"if") return of[0].AsBool() ? of[1] : of[2];
    if (name == L"concat") {
      std::wstring all;
      for (Value const& argument : of) {
        if (wchar_t const* text = static_cast<wchar_t const*>(argument)) all += text;
      }
      return Value(all.c_str());
    }
    if (name == L"lookup") {
      for (std::size_t i = 2; i + 1 < of.size(); i += 2) {
        if (!(of[0] < of[i]) && !(of[i] < of[0])) return of[i + 1];
      }
      return of.size() < 2 ? Value() : of[1];
    }
    // x and y, of the geometry column.
    if (borrowed && !options_.allConditions) return Value(0.0);
    if (of[0].AsBlob() == nullptr) return Value(0.0);
    FdoPtr<FdoIGeometry> const geometry = GeometryFrom(of[0]);
    if (geometry->GetDerivedType() != FdoGeometryType_Point) return Value(0.0);
    FdoPtr<FdoIDirectPosition> const position = static_cast<FdoIPoint*>(geometry.p)->GetPosition();
    return Value(name == L"x" ? position->GetX() : position->GetY());
  }

  Row const& row_;
  ExprOptions const& options_;
  Value value_;
};

template <class Compute>
Outcome OutcomeOf(Compute compute) {
  Outcome outcome;
  try {
    compute(outcome);
  } catch (Incomplete const&) {
    outcome.kind = Outcome::kFails;
  } catch (std::exception const& failure) {
    outcome.kind = Outcome::kThrows;
    outcome.message = failure.what();
  } catch (FdoException* raised) {
    FdoPtr<FdoException> const failure(raised);
    outcome.kind = Outcome::kThrows;
    outcome.message = ToUtf8(failure->GetExceptionMessage());
  }
  return outcome;
}

template <class Tree>
Outcome Evaluate(Tree* tree, Row const& row, ExprOptions const& options, bool isFilter) {
  return OutcomeOf([&](Outcome& outcome) {
    outcome.value = TreeEvaluator(row, options).Of(FDO_SAFE_ADDREF(tree));
    outcome.kind = Outcome::kValue;
    if (isFilter && options.nullIsUnknown) outcome.value.Reset(outcome.value.AsBool());
  });
}

}  // namespace

bool operator==(Outcome const& left, Outcome const& right) {
  if (left.kind != right.kind) return false;
  if (left.kind == Outcome::kThrows) return left.message == right.message;
  if (left.kind == Outcome::kFails) return true;
  if (left.value.Type() != right.value.Type()) return false;
  if (left.value.Type() != Value::kDouble) return left.value == right.value;
  double const a = static_cast<double>(left.value);
  double const b = static_cast<double>(right.value);
  return std::memcmp(&a, &b, sizeof(a)) == 0 || (std::isnan(a) && std::isnan(b));
}

std::string TextOf(Outcome const& outcome) {
  if (outcome.kind == Outcome::kFails) return "fails";
  if (outcome.kind == Outcome::kThrows) return "throws " + outcome.message;
  wchar_t const* const text = static_cast<wchar_t const*>(outcome.value);
  return "type " + std::to_string(outcome.value.Type()) + " " + ToUtf8(text);
}

Outcome EvaluateTree(FdoFilter* filter, Row const& row, ExprOptions const& options) {
  return Evaluate(filter, row, options, /*isFilter=*/true);
}

Outcome EvaluateTree(FdoExpression* expression, Row const& row, ExprOptions const& options) {
  return Evaluate(expression, row, options, /*isFilter=*/false);
}

Outcome EvaluateProgram(ExprEval& eval, Row const& row) {
  return OutcomeOf([&](Outcome& outcome) {
    outcome.kind = eval.Eval(&row, &outcome.value) ? Outcome::kValue : Outcome::kFails;
  });
}

}  // namespace fdo
