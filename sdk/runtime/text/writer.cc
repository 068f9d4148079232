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

// What is still to be written: a node or a text, and what happens then.
struct Task {
  FdoPtr<FdoExpression> expression;
  FdoPtr<FdoFilter> filter;
  Power required = Power::kOr;  // how tightly the place of the node binds
  std::wstring text;
  enum { kNothing, kLeaveLevel, kSeparateMinus, kKnowComputed } then = kNothing;
  std::size_t begin = 0;  // kSeparateMinus: where the operand began
};

// Each node is taken apart by the operation of its kind, which puts texts and nodes into `parts_`. They wait
// on a stack of this class's own, so that no tree, however deep, takes more of the program's stack.
class Writer final : public FdoIExpressionProcessor, public FdoIFilterProcessor {
 public:
  explicit Writer(FdoIdentifierCollection* computed) : allComputed_(computed), computed_(computed) {}

  void Write(FdoExpression* expression, Power required) {
    if (expression == nullptr) Fail(L"The expression lacks an operand, so it has no text.");
    Task task;
    task.expression = FDO_SAFE_ADDREF(expression);
    task.required = required;
    parts_.push_back(task);
  }

  void Write(FdoFilter* filter, Power required) {
    if (filter == nullptr) Fail(L"The filter lacks an operand, so it has no text.");
    Task task;
    task.filter = FDO_SAFE_ADDREF(filter);
    task.required = required;
    parts_.push_back(task);
  }

  void WriteDefinition(FdoComputedIdentifier& computed) {
    FdoPtr<FdoExpression> expression = computed.GetExpression();
    Write(expression.p, Power::kAdd);
    Text(L" AS " + WriteIdentifier(SplitIdentifier(computed.GetText())));
  }

  // Writes all that waits.
  std::wstring Take() {
    std::vector<Task> waiting;
    for (;;) {
      waiting.insert(waiting.end(), parts_.rbegin(), parts_.rend());
      parts_.clear();
      if (waiting.empty()) return std::move(out_);
      Task const task = waiting.back();
      waiting.pop_back();
      Do(task);
    }
  }

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
  void Do(Task const& task) {
    required_ = task.required;
    if (task.expression != nullptr) task.expression.p->Process(this);
    if (task.filter != nullptr) task.filter.p->Process(this);
    out_ += task.text;
    switch (task.then) {
      case Task::kNothing:
        break;
      case Task::kLeaveLevel:
        --nesting_;
        break;
      case Task::kSeparateMinus:
        // A minus right before a number would belong to the number.
        if (NumberEnd(out_.c_str() + task.begin, nullptr) > 0) out_.insert(task.begin, L" ");
        break;
      case Task::kKnowComputed:
        computed_ = allComputed_;
        break;
    }
  }

  // Behind the parts that wait already, or at once when there are none.
  void Text(std::wstring_view text) {
    if (parts_.empty()) {
      out_ += text;
    } else {
      Task task;
      task.text = text;
      parts_.push_back(task);
    }
  }

  // A level of nesting, with parentheses where the text has some.
  void Enter(wchar_t const* opening) {
    if (++nesting_ > kMaximumNesting) Fail(L"The tree is nested too deeply to be written.");
    Text(opening);
  }
  void Leave(wchar_t const* closing) {
    Task task;
    task.text = closing;
    task.then = Task::kLeaveLevel;
    parts_.push_back(task);
  }

  // Parentheses around a node that binds more loosely than its place requires.
  template <class Body>
  void Enclosed(Power own, Body body) {
    if (own >= required_) {
      body();
    } else {
      Enter(L"(");
      body();
      Leave(L")");
    }
  }

  template <class Make>
  void Literal(FdoDataValue& value, Make make) {
    Text(value.IsNull() ? L"NULL" : make());
  }

  template <class Node, class Operand>
  void Chain(Node& top, Power own, InfixKind kind, Operand* (Node::*left)(), Operand* (Node::*right)());

  void Operator(InfixKind kind, int operation) {
    Infix const* infix = FindInfix(kind, operation);
    if (infix == nullptr) Fail(L"An operation has a number that means nothing.");
    Text(L" " + std::wstring(infix->word) + L" ");
  }

  void Property(FdoIdentifier* name) {
    if (name == nullptr) Fail(L"The condition lacks a property name, so it has no text.");
    Text(WriteIdentifier(SplitIdentifier(name->GetText())));
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

  FdoIdentifierCollection* const allComputed_;  // borrowed
  FdoIdentifierCollection* computed_;           // null while a computed identifier is being written
  Power required_ = Power::kOr;
  int nesting_ = 0;
  std::vector<Task> parts_;  // of the node at hand
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
  Enter(L"-");
  Task separate;
  separate.then = Task::kSeparateMinus;
  separate.begin = out_.size();
  Write(operand.p, Power::kPrimary);
  parts_.push_back(separate);
  Leave(L"");
}

void Writer::ProcessFunction(FdoFunction& expr) {
  Text(WriteIdentifier(SplitIdentifier(expr.GetName())));
  Enter(L"(");
  FdoPtr<FdoExpressionCollection> arguments = expr.GetArguments();
  for (FdoInt32 i = 0; i < arguments->GetCount(); ++i) {
    if (i > 0) Text(L", ");
    FdoPtr<FdoExpression> argument = arguments->GetItem(i);
    Write(argument.p, Power::kAdd);
  }
  Leave(L")");
}

void Writer::ProcessIdentifier(FdoIdentifier& expr) {
  FdoPtr<FdoIdentifier> meant = computed_ == nullptr ? nullptr : computed_->FindItem(expr.GetText());
  auto* definition = dynamic_cast<FdoComputedIdentifier*>(meant.p);
  if (definition == nullptr) {
    Text(WriteIdentifier(SplitIdentifier(expr.GetText())));
  } else {
    // Names within a definition are properties, so that a definition may use its own name.
    computed_ = nullptr;
    ProcessComputedIdentifier(*definition);
    Task known;
    known.then = Task::kKnowComputed;
    parts_.push_back(known);
  }
}

void Writer::ProcessComputedIdentifier(FdoComputedIdentifier& expr) {
  FdoPtr<FdoExpression> expression = expr.GetExpression();
  Enter(L"");
  Write(expression.p, required_);
  Leave(L"");
}

void Writer::ProcessParameter(FdoParameter& expr) {
  std::wstring const name = expr.GetName();
  bool plain = !name.empty();
  for (wchar_t const unit : name) plain = plain && IsNameUnit(unit);
  Text(L":" + (plain ? name : Quoted(name, L'\'')));
}

void Writer::ProcessGeometryValue(FdoGeometryValue& expr) {
  FdoPtr<FdoByteArray> bytes = expr.GetGeometry();
  if (bytes == nullptr) {
    Text(L"NULL");
  } else {
    std::wstring const text = FgfToText(bytes->GetData(), static_cast<std::size_t>(bytes->GetCount()));
    Text(L"GeomFromText(" + Quoted(text, L'\'') + L")");
  }
}

void Writer::ProcessSubSelectExpression(FdoSubSelectExpression& expr) {
  FdoPtr<FdoIdentifier> property = expr.GetPropertyName();
  FdoPtr<FdoIdentifier> selected = expr.GetFeatureClassName();
  FdoPtr<FdoJoinCriteriaCollection> joins = expr.GetJoinCriteria();
  FdoPtr<FdoFilter> filter = expr.GetFilter();
  Enter(L"(SELECT ");
  Property(property);
  Text(L" FROM ");
  Property(selected);
  for (FdoInt32 i = 0; i < joins->GetCount(); ++i) {
    FdoPtr<FdoJoinCriteria> join = joins->GetItem(i);
    FdoPtr<FdoIdentifier> joined = join->GetJoinClass();
    FdoPtr<FdoFilter> condition = join->GetFilter();
    std::wstring_view const words = WordsOfJoin(join->GetJoinType());
    if (words.empty()) Fail(L"A join has a type that means nothing.");
    Text(L" " + std::wstring(words) + L" ");
    Property(joined);
    if (join->HasAlias()) Text(L" AS " + WriteIdentifier({IdentifierPart{L'\0', join->GetAlias()}}));
    if (condition != nullptr) {
      Text(L" ON ");
      Write(condition.p, Power::kOr);
    }
  }
  if (filter != nullptr) {
    Text(L" WHERE ");
    Write(filter.p, Power::kOr);
  }
  Leave(L")");
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
  Enter(L"NOT ");
  Write(operand.p, Power::kNot);
  Leave(L"");
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
  Text(L" IN ");
  if (subSelect != nullptr) {
    Write(subSelect.p, Power::kPrimary);
    return;
  }
  FdoPtr<FdoValueExpressionCollection> values = filter.GetValues();
  if (values->GetCount() == 0) Fail(L"A condition without values has no text.");
  Enter(L"(");
  for (FdoInt32 i = 0; i < values->GetCount(); ++i) {
    if (i > 0) Text(L", ");
    FdoPtr<FdoValueExpression> value = values->GetItem(i);
    Write(value.p, Power::kPrimary);
  }
  Leave(L")");
}

void Writer::ProcessNullCondition(FdoNullCondition& filter) {
  FdoPtr<FdoIdentifier> name = filter.GetPropertyName();
  Property(name);
  Text(L" NULL");
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
  Text(L" " + NumberText(std::fabs(distance)));
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
