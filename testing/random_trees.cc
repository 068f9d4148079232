#include "testing/random_trees.h"

#include <FdoSpatial.h>

#include <iterator>
#include <limits>
#include <vector>

#include "expr/column_kinds.h"
#include "testing/fgf_builder.h"
#include "testing/schema_builder.h"

namespace fdo {
namespace {

constexpr wchar_t const* kTexts[] = {L"",  L"a",     L"b",    L"ab",   L"aB",        L"10",
                                     L"9", L"-2.5x", L"true", L"TRUE", L"2024-03-01"};
constexpr wchar_t const* kPatterns[] = {L"%", L"a%", L"%b", L"_", L"a_", L"", L"%1%", L"10"};
constexpr char const* kGeometries[] = {"POINT (1 2)", "POINT (5 5)", "LINESTRING (0 0, 4 4)",
                                       "POLYGON ((0 0, 4 0, 4 4, 0 4, 0 0))"};

struct FunctionForm {
  wchar_t const* name;
  int arguments;
};
constexpr FunctionForm kForms[] = {
    {L"tostring", 1},   {L"todouble", 1}, {L"tofloat", 1}, {L"toint32", 1},   {L"toint64", 1},
    {L"todatetime", 1}, {L"sin", 1},      {L"cos", 1},     {L"tan", 1},       {L"asin", 1},
    {L"acos", 1},       {L"atan", 1},     {L"sqrt", 1},    {L"ln", 1},        {L"exp", 1},
    {L"pow", 2},        {L"atan2", 2},    {L"floor", 1},   {L"ceil", 1},      {L"abs", 1},
    {L"sign", 1},       {L"concat", 0},   {L"concat", 2},  {L"concat", 3},    {L"trunc", 1},
    {L"trunc", 2},      {L"round", 1},    {L"round", 2},   {L"remainder", 2}, {L"log", 1},
    {L"mod", 2},        {L"if", 3},       {L"lookup", 1},  {L"lookup", 2},    {L"lookup", 4},
    {L"lookup", 5},
};

template <class T, std::size_t size>
T const& Pick(T const (&of)[size], std::mt19937_64& random) {
  return of[random() % size];
}

}  // namespace

TableDef const& RandomTrees::Def() {
  static TableDef const def = MakeTableDef(
      L"s", L"t",
      L"id:Int64 i:Int32 j:Int32 d:Double e:Double t:String u:String f:Boolean at:DateTime shape:Geometry");
  return def;
}

long long RandomTrees::AnyInteger() {
  constexpr long long kEdges[] = {std::numeric_limits<long long>::min(),
                                  std::numeric_limits<long long>::max(), 1LL << 53, -(1LL << 40)};
  return OneIn(12) ? Pick(kEdges, random_) : Below(9) - 4;
}

double RandomTrees::AnyDouble() {
  constexpr double kEdges[] = {std::numeric_limits<double>::quiet_NaN(),
                               std::numeric_limits<double>::infinity(),
                               -std::numeric_limits<double>::infinity(),
                               -0.0,
                               1e300,
                               9.3e18,
                               1e-310};
  return OneIn(8) ? Pick(kEdges, random_) : (Below(17) - 8) / 2.0;
}

wchar_t const* RandomTrees::AnyText() { return Pick(kTexts, random_); }

Value RandomTrees::AnyGeometry() {
  std::vector<unsigned char> const fgf = Fgf(Pick(kGeometries, random_));
  return Value(fgf.data(), static_cast<int>(fgf.size()));
}

FdoPtr<FdoIdentifier> RandomTrees::Column() {
  int const geometry = Def().IndexOfGeom();
  int column = Below(Def().ColumnCount());
  if (column == geometry && !OneIn(4)) column = 0;
  return FdoPtr<FdoIdentifier>(FdoIdentifier::Create(Def()[column].Name()));
}

FdoPtr<FdoExpression> RandomTrees::Literal() {
  switch (Below(contents_.holes ? 60 : 12)) {
    case 0:
      return FdoPtr<FdoExpression>(FdoInt64Value::Create(static_cast<FdoInt64>(AnyInteger())));
    case 1:
    case 2:
    case 3:
      return FdoPtr<FdoExpression>(FdoInt32Value::Create(Below(9) - 4));
    case 4:
    case 5:
    case 6:
      return FdoPtr<FdoExpression>(FdoDoubleValue::Create(AnyDouble()));
    case 7:
    case 8:
      return FdoPtr<FdoExpression>(FdoStringValue::Create(AnyText()));
    case 9:
      return FdoPtr<FdoExpression>(FdoBooleanValue::Create(OneIn(2)));
    case 10:
      return FdoPtr<FdoExpression>(FdoDateTimeValue::Create(
          FdoDateTime(static_cast<FdoInt16>(2020 + Below(9)), 3, static_cast<FdoInt8>(1 + Below(20)))));
    case 11:
      return FdoPtr<FdoExpression>(FdoStringValue::Create());
    case 12:
      return FdoPtr<FdoExpression>(FdoParameter::Create(L"p"));
    default:
      return FdoPtr<FdoExpression>(FdoInt32Value::Create(Below(5)));
  }
}

FdoPtr<FdoExpression> RandomTrees::Divisor() {
  if (OneIn(2)) return FdoPtr<FdoExpression>(FdoDoubleValue::Create(AnyDouble()));
  return FdoPtr<FdoExpression>(FdoInt32Value::Create(OneIn(2) ? 2 + Below(5) : -2 - Below(5)));
}

FdoPtr<FdoExpression> RandomTrees::Call(int levels) {
  FunctionForm const& form = Pick(kForms, random_);
  FdoPtr<FdoExpressionCollection> const arguments = FdoExpressionCollection::Create();
  bool const isMod = std::wcscmp(form.name, L"mod") == 0;
  for (int i = 0; i < form.arguments; ++i) {
    FdoPtr<FdoExpression> argument = Expression(levels);
    // A divisor that is truncated to an integer must not become 0 or -1.
    if (isMod && i == 1 && !contents_.traps) argument = FdoInt32Value::Create(2 + Below(5));
    arguments->Add(argument);
  }
  return FdoPtr<FdoExpression>(FdoFunction::Create(form.name, arguments));
}

FdoPtr<FdoExpression> RandomTrees::Expression(int levels) {
  if (levels <= 0 || OneIn(3)) {
    if (OneIn(2)) return Literal();
    return FdoPtr<FdoExpression>(Column());
  }
  if (OneIn(4)) return Call(levels - 1);
  if (OneIn(8)) {
    FdoPtr<FdoExpression> const operand = Expression(levels - 1);
    return FdoPtr<FdoExpression>(FdoUnaryExpression::Create(FdoUnaryOperations_Negate, operand));
  }
  auto const operation = static_cast<FdoBinaryOperations>(Below(4));
  FdoPtr<FdoExpression> const left = Expression(levels - 1);
  FdoPtr<FdoExpression> const right =
      operation == FdoBinaryOperations_Divide && !contents_.traps ? Divisor() : Expression(levels - 1);
  return FdoPtr<FdoExpression>(FdoBinaryExpression::Create(left, operation, right));
}

FdoPtr<FdoFilter> RandomTrees::Filter(int levels) {
  if (levels > 0 && !OneIn(4)) {
    FdoPtr<FdoFilter> const left = Filter(levels - 1);
    if (OneIn(5)) {
      return FdoPtr<FdoFilter>(FdoUnaryLogicalOperator::Create(left, FdoUnaryLogicalOperations_Not));
    }
    FdoPtr<FdoFilter> const right = Filter(levels - 1);
    auto const operation = static_cast<FdoBinaryLogicalOperations>(Below(2));
    return FdoPtr<FdoFilter>(FdoBinaryLogicalOperator::Create(left, operation, right));
  }
  if (contents_.spatial && OneIn(12)) {
    FdoPtr<FdoIdentifier> const shape = FdoIdentifier::Create(L"shape");
    Value const fgf = AnyGeometry();
    FdoPtr<FdoByteArray> const bytes = FdoByteArray::Create(fgf.AsBlob(), fgf.BlobLen());
    FdoPtr<FdoExpression> const literal = FdoGeometryValue::Create(bytes);
    return FdoPtr<FdoFilter>(
        FdoSpatialCondition::Create(shape, static_cast<FdoSpatialOperations>(Below(11)), literal));
  }
  FdoPtr<FdoIdentifier> const column = Column();
  if (contents_.in && OneIn(8)) {
    FdoPtr<FdoValueExpressionCollection> const values = FdoValueExpressionCollection::Create();
    for (int i = Below(4); i >= 0; --i) {
      FdoPtr<FdoExpression> const literal = Literal();
      values->Add(static_cast<FdoValueExpression*>(literal.p));
    }
    return FdoPtr<FdoFilter>(FdoInCondition::Create(column, values));
  }
  if (OneIn(8)) return FdoPtr<FdoFilter>(FdoNullCondition::Create(column));
  if (contents_.like && OneIn(8)) {
    FdoPtr<FdoExpression> const pattern = FdoStringValue::Create(Pick(kPatterns, random_));
    return FdoPtr<FdoFilter>(FdoComparisonCondition::Create(column, FdoComparisonOperations_Like, pattern));
  }
  // Mostly what stores see: a column, at times calculated with, against a literal.
  bool const simple = !OneIn(3);
  FdoPtr<FdoExpression> left = simple ? FdoPtr<FdoExpression>(column) : Expression(2);
  FdoPtr<FdoExpression> right = simple ? Literal() : Expression(2);
  if (simple && OneIn(3)) {
    left = FdoBinaryExpression::Create(left, static_cast<FdoBinaryOperations>(Below(3)),
                                       FdoPtr<FdoExpression>(Literal()));
  }
  if (OneIn(4)) std::swap(left, right);
  auto const operation = static_cast<FdoComparisonOperations>(Below(6));
  return FdoPtr<FdoFilter>(FdoComparisonCondition::Create(left, operation, right));
}

void RandomTrees::Fill(Row& row) {
  for (int column = 0; column < Def().ColumnCount(); ++column) {
    Value& cell = row[column];
    if (OneIn(5)) {
      cell.Reset();
      continue;
    }
    // Now and then what a column of another type holds, or nothing at all.
    bool const isOther = Below(40) == 0;
    auto const type = isOther ? static_cast<ColumnDef::DataType>(Below(14) - 2) : Def()[column].Type();
    internal::ColumnKind const* const kind = internal::KindOf(type);
    if (kind == nullptr) {
      cell.Invalidate();
    } else if (kind->kind == Value::kBlob) {
      cell = AnyGeometry();
    } else if (kind->kind == Value::kBool) {
      cell.Reset(OneIn(2));
    } else if (kind->kind == Value::kDouble) {
      cell.Reset(AnyDouble());
    } else if (kind->comparedAs == internal::ComparedAs::kDate) {
      cell.Reset(L"2024-03-01T10:00:00.000", /*copy=*/true);
    } else if (kind->kind == Value::kString) {
      cell.Reset(AnyText(), /*copy=*/true);
    } else {
      cell.Reset(AnyInteger());
    }
  }
}

}  // namespace fdo
