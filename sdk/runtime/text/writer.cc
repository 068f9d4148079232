#include "sdk/runtime/text/writer.h"

#include <cmath>
#include <vector>

#include "Fdo/Commands/IdentifierCollection.h"
#include "Fdo/Expression/BLOBValue.h"
#include "Fdo/Expression/BinaryExpression.h"
#include "Fdo/Expression/BooleanValue.h"
#include "Fdo/Expression/ByteValue.h"
#include "Fdo/Expression/CLOBValue.h"
#include "Fdo/Expression/ComputedIdentifier.h"
#include "Fdo/Expression/DateTimeValue.h"
#include "Fdo/Expression/DecimalValue.h"
#include "Fdo/Expression/DoubleValue.h"
#include "Fdo/Expression/ExpressionException.h"
#include "Fdo/Expression/Function.h"
#include "Fdo/Expression/GeometryValue.h"
#include "Fdo/Expression/IExpressionProcessor.h"
#include "Fdo/Expression/Int16Value.h"
#include "Fdo/Expression/Int32Value.h"
#include "Fdo/Expression/Int64Value.h"
#include "Fdo/Expression/Parameter.h"
#include "Fdo/Expression/SingleValue.h"
#include "Fdo/Expression/StringValue.h"
#include "Fdo/Expression/SubSelectExpression.h"
#include "Fdo/Expression/UnaryExpression.h"
#include "Fdo/Filter/BinaryLogicalOperator.h"
#include "Fdo/Filter/ComparisonCondition.h"
#include "Fdo/Filter/DistanceCondition.h"
#include "Fdo/Filter/FilterException.h"
#include "Fdo/Filter/IFilterProcessor.h"
#include "Fdo/Filter/InCondition.h"
#include "Fdo/Filter/NullCondition.h"
#include "Fdo/Filter/SpatialCondition.h"
#include "Fdo/Filter/UnaryLogicalOperator.h"
#include "sdk/runtime/text/fgf_text.h"
#include "sdk/runtime/text/identifier_text.h"
#include "sdk/runtime/text/join_words.h"
#include "sdk/runtime/text/literal_text.h"
#include "sdk/runtime/text/number_text.h"
#include "sdk/runtime/text/text_error.h"
#include "sdk/runtime/text/text_limits.h"
#include "sdk/runtime/text/words.h"

namespace fdo_sdk {
namespace {

[[noreturn]] void Fail(wchar_t const* message) { throw TextError{0, message}; }

// Each node is written by the operation of its kind; `required_` tells it how tightly its place binds.
class Writer final : public FdoIExpressionProcessor, public FdoIFilterProcessor {
 public:
  explicit Writer(FdoIdentifierCollection* computed) : computed_(computed) {}

  void Write(FdoExpression* expression, Power required) {
    if (expression == nullptr) Fail(L"The expression lacks an operand, so it has no text.");
    required_ = required;
    expression->Process(this);
  }

  void Write(FdoFilter* filter, Power required) {
    if (filter == nullptr) Fail(L"The filter lacks an operand, so it has no text.");
    required_ = required;
    filter->Process(this);
  }

  void WriteDefinition(FdoComputedIdentifier& computed) {
    FdoPtr<FdoExpression> expression = computed.GetExpression();
    Write(expression.p, Power::kAdd);
    out_ += L" AS " + WriteIdentifier(SplitIdentifier(computed.GetText()));
  }

  std::wstring Take() { return std::move(out_); }

  void ProcessBinaryExpression(FdoBinaryExpression& expr) override;
  void ProcessUnaryExpression(FdoUnaryExpression& expr) override;
  void ProcessFunction(FdoFunction& expr) override;
  void ProcessIdentifier(FdoIdentifier& expr) override;
  void ProcessComputedIdentifier(FdoComputedIdentifier& expr) override;
  void ProcessParameter(FdoParameter& expr) override;
  void ProcessBooleanValue(FdoBooleanValue& expr) override {
    Literal(expr, [&] { return std::wstring(expr.GetBoolean() ? L"TRUE" : L"FALSE"); });
  }
  void ProcessByteValue(FdoByteValue& expr) override {
    Literal(expr, [&] { return NumberText(FdoInt64{expr.GetByte()}); });
  }
  void ProcessDateTimeValue(FdoDateTimeValue& expr) override {
    Literal(expr, [&] { return DateTimeLiteral(expr.GetDateTime()); });
  }
  void ProcessDecimalValue(FdoDecimalValue& expr) override {
    Literal(expr, [&] { return Real(expr.GetDecimal()); });
  }
  void ProcessDoubleValue(FdoDoubleValue& expr) override {
    Literal(expr, [&] { return Real(expr.GetDouble()); });
  }
  void ProcessInt16Value(FdoInt16Value& expr) override {
    Literal(expr, [&] { return NumberText(FdoInt64{expr.GetInt16()}); });
  }
  void ProcessInt32Value(FdoInt32Value& expr) override {
    Literal(expr, [&] { return NumberText(FdoInt64{expr.GetInt32()}); });
  }
  void ProcessInt64Value(FdoInt64Value& expr) override {
    Literal(expr, [&] { return NumberText(expr.GetInt64()); });
  }
  void ProcessSingleValue(FdoSingleValue& expr) override {
    Literal(expr, [&] { return Real(expr.GetSingle()); });
  }
  void ProcessStringValue(FdoStringValue& expr) override {
    Literal(expr, [&] { return Quoted(expr.GetString(), L'\''); });
  }
  void ProcessBLOBValue(FdoBLOBValue& expr) override {
    Literal(expr, [&] { return L"BLOB " + Bytes(expr); });
  }
  void ProcessCLOBValue(FdoCLOBValue& expr) override {
    Literal(expr, [&] { return L"CLOB " + Bytes(expr); });
  }
  void ProcessGeometryValue(FdoGeometryValue& expr) override;
  void ProcessSubSelectExpression(FdoSubSelectExpression& expr) override;

  void ProcessBinaryLogicalOperator(FdoBinaryLogicalOperator& filter) override;
  void ProcessUnaryLogicalOperator(FdoUnaryLogicalOperator& filter) override;
  void ProcessComparisonCondition(FdoComparisonCondition& filter) override;
  void ProcessInCondition(FdoInCondition& filter) override;
  void ProcessNullCondition(FdoNullCondition& filter) override;
  void ProcessSpatialCondition(FdoSpatialCondition& filter) override;
  void ProcessDistanceCondition(FdoDistanceCondition& filter) override;

 protected:
  void Dispose() override {}  // lives on the stack

 private:
  // A level of nesting, with parentheses where the text has some.
  class Level {
   public:
    Level(Writer& writer, wchar_t const* opening, wchar_t const* closing)
        : writer_(writer), closing_(closing) {
      if (++writer.nesting_ > kMaximumNesting) Fail(L"The tree is nested too deeply to be written.");
      writer.out_ += opening;
    }
    void Close() {
      --writer_.nesting_;
      writer_.out_ += closing_;
    }

   private:
    Writer& writer_;
    wchar_t const* closing_;
  };

  // Parentheses around a node that binds more loosely than its place requires.
  template <class Body>
  void Enclosed(Power own, Body body) {
    if (own >= required_) {
      body();
    } else {
      Level level(*this, L"(", L")");
      body();
      level.Close();
    }
  }

  template <class Text>
  void Literal(FdoDataValue& value, Text text) {
    out_ += value.IsNull() ? L"NULL" : text();
  }

  template <class Node, class Operand>
  void Chain(Node& top, Power own, InfixKind kind, Operand* (Node::*left)(), Operand* (Node::*right)());

  void Operator(InfixKind kind, int operation) {
    Infix const* infix = FindInfix(kind, operation);
    if (infix == nullptr) Fail(L"An operation has a number that means nothing.");
    out_ += L" ";
    out_ += infix->word;
    out_ += L" ";
  }

  void Property(FdoIdentifier* name) {
    if (name == nullptr) Fail(L"The condition lacks a property name, so it has no text.");
    out_ += WriteIdentifier(SplitIdentifier(name->GetText()));
  }

  template <class Number>
  static std::wstring Real(Number number) {
    if (!std::isfinite(number)) Fail(L"A number that is not finite has no text.");
    return RealText(number);
  }

  static std::wstring DateTimeLiteral(FdoDateTime const& value) {
    constexpr wchar_t const* kWords[] = {L"DATE ", L"TIME ", L"TIMESTAMP "};
    DateTimeForm form;
    std::wstring text;
    if (!WriteDateTime(value, form, text)) Fail(L"A date or time that is not in the calendar has no text.");
    return kWords[static_cast<int>(form)] + Quoted(text, L'\'');
  }

  static std::wstring Bytes(FdoLOBValue& value) {
    FdoPtr<FdoByteArray> bytes = value.GetData();
    return Quoted(HexText(bytes->GetData(), static_cast<std::size_t>(bytes->GetCount())), L'\'');
  }

  FdoIdentifierCollection* computed_;  // borrowed; null while a computed identifier is being written
  Power required_ = Power::kOr;
  int nesting_ = 0;
  std::wstring out_;
};

Power PowerOf(FdoBinaryExpression& expression) {
  bool const factor = expression.GetOperation() == FdoBinaryOperations_Multiply ||
                      expression.GetOperation() == FdoBinaryOperations_Divide;
  return factor ? Power::kMultiply : Power::kAdd;
}

Power PowerOf(FdoBinaryLogicalOperator& filter) {
  return filter.GetOperation() == FdoBinaryLogicalOperations_And ? Power::kAnd : Power::kOr;
}

// Writes the operators that lean to the left under `top` as one chain. They may be any number, so they are
// collected instead of gone down into.
template <class Node, class Operand>
void Writer::Chain(Node& top, Power own, InfixKind kind, Operand* (Node::*left)(),
                   Operand* (Node::*right)()) {
  std::vector<FdoPtr<Node>> nodes;
  FdoPtr<Node> node = FDO_SAFE_ADDREF(&top);
  FdoPtr<Operand> first;
  for (;;) {
    nodes.push_back(node);
    first = ((*node).*left)();
    auto* next = dynamic_cast<Node*>(first.p);
    if (next == nullptr || PowerOf(*next) != own) break;
    node = FDO_SAFE_ADDREF(next);
  }
  Write(first.p, own);
  for (auto at = nodes.rbegin(); at != nodes.rend(); ++at) {
    Operator(kind, (*at)->GetOperation());
    FdoPtr<Operand> operand = ((**at).*right)();
    Write(operand.p, Above(own));
  }
}

void Writer::ProcessBinaryExpression(FdoBinaryExpression& expr) {
  Power const own = PowerOf(expr);
  Enclosed(own, [&] {
    Chain<FdoBinaryExpression, FdoExpression>(expr, own, InfixKind::kArithmetic,
                                              &FdoBinaryExpression::GetLeftExpression,
                                              &FdoBinaryExpression::GetRightExpression);
  });
}

void Writer::ProcessUnaryExpression(FdoUnaryExpression& expr) {
  FdoPtr<FdoExpression> operand = expr.GetExpression();
  Level level(*this, L"-", L"");
  std::size_t const begin = out_.size();
  Write(operand.p, Power::kPrimary);
  // A minus right before a number would belong to the number.
  if (NumberEnd(out_.c_str() + begin, nullptr) > 0) out_.insert(begin, L" ");
  level.Close();
}

void Writer::ProcessFunction(FdoFunction& expr) {
  std::wstring const name = expr.GetName();
  out_ += IsPlainName(name) ? name : Quoted(name, L'"');
  Level level(*this, L"(", L")");
  FdoPtr<FdoExpressionCollection> arguments = expr.GetArguments();
  for (FdoInt32 i = 0; i < arguments->GetCount(); ++i) {
    if (i > 0) out_ += L", ";
    FdoPtr<FdoExpression> argument = arguments->GetItem(i);
    Write(argument.p, Power::kAdd);
  }
  level.Close();
}

void Writer::ProcessIdentifier(FdoIdentifier& expr) {
  FdoPtr<FdoIdentifier> meant = computed_ == nullptr ? nullptr : computed_->FindItem(expr.GetText());
  auto* definition = dynamic_cast<FdoComputedIdentifier*>(meant.p);
  if (definition == nullptr) {
    out_ += WriteIdentifier(SplitIdentifier(expr.GetText()));
  } else {
    // Names within a definition are properties, so that a definition may use its own name.
    FdoIdentifierCollection* const known = computed_;
    computed_ = nullptr;
    ProcessComputedIdentifier(*definition);
    computed_ = known;
  }
}

void Writer::ProcessComputedIdentifier(FdoComputedIdentifier& expr) {
  FdoPtr<FdoExpression> expression = expr.GetExpression();
  Level level(*this, L"", L"");
  Write(expression.p, required_);
  level.Close();
}

void Writer::ProcessParameter(FdoParameter& expr) {
  std::wstring const name = expr.GetName();
  bool plain = !name.empty();
  for (wchar_t const unit : name) plain = plain && IsNameUnit(unit);
  out_ += L":" + (plain ? name : Quoted(name, L'\''));
}

void Writer::ProcessGeometryValue(FdoGeometryValue& expr) {
  FdoPtr<FdoByteArray> bytes = expr.GetGeometry();
  if (bytes == nullptr) {
    out_ += L"NULL";
  } else {
    std::wstring const text = FgfToText(bytes->GetData(), static_cast<std::size_t>(bytes->GetCount()));
    out_ += L"GeomFromText(" + Quoted(text, L'\'') + L")";
  }
}

void Writer::ProcessSubSelectExpression(FdoSubSelectExpression& expr) {
  FdoPtr<FdoIdentifier> property = expr.GetPropertyName();
  FdoPtr<FdoIdentifier> selected = expr.GetFeatureClassName();
  FdoPtr<FdoJoinCriteriaCollection> joins = expr.GetJoinCriteria();
  FdoPtr<FdoFilter> filter = expr.GetFilter();
  Level level(*this, L"(SELECT ", L")");
  Property(property);
  out_ += L" FROM ";
  Property(selected);
  for (FdoInt32 i = 0; i < joins->GetCount(); ++i) {
    FdoPtr<FdoJoinCriteria> join = joins->GetItem(i);
    FdoPtr<FdoIdentifier> joined = join->GetJoinClass();
    FdoPtr<FdoFilter> condition = join->GetFilter();
    std::wstring_view const words = WordsOfJoin(join->GetJoinType());
    if (words.empty()) Fail(L"A join has a type that means nothing.");
    (out_ += L" ") += words;
    out_ += L" ";
    Property(joined);
    if (join->HasAlias()) out_ += L" AS " + WriteIdentifier({IdentifierPart{L'\0', join->GetAlias()}});
    if (condition != nullptr) {
      out_ += L" ON ";
      Write(condition.p, Power::kOr);
    }
  }
  if (filter != nullptr) {
    out_ += L" WHERE ";
    Write(filter.p, Power::kOr);
  }
  level.Close();
}

void Writer::ProcessBinaryLogicalOperator(FdoBinaryLogicalOperator& filter) {
  Power const own = PowerOf(filter);
  Enclosed(own, [&] {
    Chain<FdoBinaryLogicalOperator, FdoFilter>(filter, own, InfixKind::kLogical,
                                               &FdoBinaryLogicalOperator::GetLeftOperand,
                                               &FdoBinaryLogicalOperator::GetRightOperand);
  });
}

void Writer::ProcessUnaryLogicalOperator(FdoUnaryLogicalOperator& filter) {
  FdoPtr<FdoFilter> operand = filter.GetOperand();
  Level level(*this, L"NOT ", L"");
  Write(operand.p, Power::kNot);
  level.Close();
}

void Writer::ProcessComparisonCondition(FdoComparisonCondition& filter) {
  FdoPtr<FdoExpression> left = filter.GetLeftExpression();
  FdoPtr<FdoExpression> right = filter.GetRightExpression();
  Write(left.p, Power::kAdd);
  Operator(InfixKind::kComparison, filter.GetOperation());
  Write(right.p, Power::kAdd);
}

void Writer::ProcessInCondition(FdoInCondition& filter) {
  FdoPtr<FdoIdentifier> name = filter.GetPropertyName();
  FdoPtr<FdoSubSelectExpression> subSelect = filter.GetSubSelect();
  Property(name);
  out_ += L" IN ";
  if (subSelect != nullptr) {
    Write(subSelect.p, Power::kPrimary);
    return;
  }
  FdoPtr<FdoValueExpressionCollection> values = filter.GetValues();
  if (values->GetCount() == 0) Fail(L"A condition without values has no text.");
  Level level(*this, L"(", L")");
  for (FdoInt32 i = 0; i < values->GetCount(); ++i) {
    if (i > 0) out_ += L", ";
    FdoPtr<FdoValueExpression> value = values->GetItem(i);
    Write(value.p, Power::kPrimary);
  }
  level.Close();
}

void Writer::ProcessNullCondition(FdoNullCondition& filter) {
  FdoPtr<FdoIdentifier> name = filter.GetPropertyName();
  Property(name);
  out_ += L" NULL";
}

void Writer::ProcessSpatialCondition(FdoSpatialCondition& filter) {
  FdoPtr<FdoIdentifier> name = filter.GetPropertyName();
  FdoPtr<FdoExpression> geometry = filter.GetGeometry();
  Property(name);
  Operator(InfixKind::kSpatial, filter.GetOperation());
  Write(geometry.p, Power::kAdd);
}

void Writer::ProcessDistanceCondition(FdoDistanceCondition& filter) {
  FdoPtr<FdoIdentifier> name = filter.GetPropertyName();
  FdoPtr<FdoExpression> geometry = filter.GetGeometry();
  double const distance = filter.GetDistance();
  Property(name);
  Operator(InfixKind::kDistance, filter.GetOperation());
  Write(geometry.p, Power::kAdd);
  // Behind the geometry a minus would subtract.
  if (!std::isfinite(distance) || distance < 0)
    Fail(L"A distance that is negative or not finite has no text.");
  out_ += L" " + NumberText(std::fabs(distance));
}

}  // namespace

std::wstring WriteExpression(FdoExpression& expression) {
  try {
    Writer writer(nullptr);
    auto* computed = dynamic_cast<FdoComputedIdentifier*>(&expression);
    if (computed != nullptr) {
      writer.WriteDefinition(*computed);
    } else {
      writer.Write(&expression, Power::kAdd);
    }
    return writer.Take();
  } catch (TextError const& error) {
    throw FdoExpressionException::Create(error.message.c_str());
  }
}

std::wstring WriteFilter(FdoFilter& filter, FdoIdentifierCollection* computed) {
  try {
    Writer writer(computed);
    writer.Write(&filter, Power::kOr);
    return writer.Take();
  } catch (TextError const& error) {
    throw FdoFilterException::Create(error.message.c_str());
  }
}

}  // namespace fdo_sdk
