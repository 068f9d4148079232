#include "sdk/runtime/text/grammar.h"

#include <algorithm>

#include "Fdo/Expression/BinaryExpression.h"
#include "Fdo/Expression/ComputedIdentifier.h"
#include "Fdo/Expression/Function.h"
#include "Fdo/Expression/UnaryExpression.h"
#include "Fdo/Filter/BinaryLogicalOperator.h"
#include "Fdo/Filter/ComparisonCondition.h"
#include "Fdo/Filter/DistanceCondition.h"
#include "Fdo/Filter/SpatialCondition.h"
#include "Fdo/Filter/UnaryLogicalOperator.h"
#include "sdk/runtime/text/text_error.h"
#include "sdk/runtime/text/text_limits.h"

namespace fdo_sdk {

Grammar::Grammar(std::wstring_view text) : lexer_(text) { Advance(); }

FdoFilter* Grammar::WholeFilter() {
  ParseInfix(Power::kOr);
  RequireFilter();
  RequireEnd();
  return Top().filter.Detach();
}

FdoExpression* Grammar::WholeExpression() {
  ParseInfix(Power::kAdd);
  RequireExpression();
  if (IsNameWord(L"AS")) {
    Advance();
    if (!Is(TokenKind::kName)) Expected(L"a name");
    Top().expression = FdoComputedIdentifier::Create(token_.text.c_str(), Top().expression);
    Advance();
  }
  RequireEnd();
  return Top().expression.Detach();
}

void Grammar::Expected(std::wstring_view what) const {
  throw TextError{token_.begin,
                  L"expected " + std::wstring(what) + L", but found " + lexer_.Show(token_) + L"."};
}

void Grammar::FailTooDeep() const {
  throw TextError{token_.begin, L"nested more than " + std::to_wstring(kMaximumNesting) +
                                    L" levels deep at " + lexer_.Show(token_) + L"."};
}

void Grammar::Expect(TokenKind kind, std::wstring_view what) {
  if (!Is(kind)) Expected(what);
  Advance();
}

void Grammar::ExpectWord(std::wstring_view word) {
  if (!IsNameWord(word)) Expected(word);
  Advance();
}

void Grammar::RequireEnd() const {
  if (!Is(TokenKind::kEnd)) Expected(L"an operator or the end of the text");
}

// The token behind the operand is where the rest of a condition is missing.
void Grammar::RequireFilter() const {
  if (operands_.back().filter == nullptr) Expected(L"a comparison or another condition");
}

// A condition cannot be computed with: its place is between AND, OR, NOT and parentheses.
void Grammar::RequireExpression() const {
  if (operands_.back().expression == nullptr) Expected(L"AND, OR, \")\" or the end of a condition");
}

void Grammar::Enter() {
  if (nesting_ == kMaximumNesting) FailTooDeep();
  deepest_ = std::max(deepest_, ++nesting_);
}

int Grammar::Above(int height) const {
  if (height >= kMaximumHeight) {
    throw TextError{token_.begin, L"more than " + std::to_wstring(kMaximumHeight) +
                                      L" operators depend on each other before " + lexer_.Show(token_) +
                                      L"."};
  }
  return height + 1;
}

void Grammar::Push(FdoExpression* expression, int height) {
  Operand operand;
  operand.expression = expression;
  operand.height = height;
  operands_.push_back(operand);
}

void Grammar::Push(FdoFilter* filter, int height) {
  Operand operand;
  operand.filter = filter;
  operand.height = height;
  operands_.push_back(operand);
}

Operand Grammar::Pop() {
  Operand operand = operands_.back();
  operands_.pop_back();
  return operand;
}

Infix const* Grammar::InfixAtToken() const {
  if (token_.kind < TokenKind::kOpen) return nullptr;
  return FindInfix(lexer_.Source(token_));
}

void Grammar::ParseInfix(Power least) {
  ParsePrefix();
  for (;;) {
    Infix const* infix = InfixAtToken();
    if (infix == nullptr || infix->power < least) return;
    switch (infix->kind) {
      case InfixKind::kLogical:
        ParseChain(*infix);
        break;
      case InfixKind::kArithmetic:
      case InfixKind::kComparison:
        ParseBinary(*infix);
        break;
      case InfixKind::kNullTest:
      case InfixKind::kMembership:
      case InfixKind::kSpatial:
      case InfixKind::kDistance:
        ParseCondition(*infix);
        break;
    }
  }
}

// Turns the operand on top, the left one, into the whole.
void Grammar::ParseBinary(Infix const& infix) {
  RequireExpression();
  Advance();
  ParseInfix(infix.kind == InfixKind::kArithmetic ? fdo_sdk::Above(infix.power) : Power::kAdd);
  RequireExpression();
  MakeBinary(infix);
}

void Grammar::MakeBinary(Infix const& infix) {
  Operand const right = Pop();
  Operand const left = Pop();
  int const height = Above(std::max(left.height, right.height));
  if (infix.kind == InfixKind::kArithmetic) {
    auto const operation = static_cast<FdoBinaryOperations>(infix.operation);
    Push(FdoBinaryExpression::Create(left.expression, operation, right.expression), height);
  } else {
    auto const operation = static_cast<FdoComparisonOperations>(infix.operation);
    Push(FdoComparisonCondition::Create(left.expression, operation, right.expression), height);
  }
}

// Turns the operand on top, the first one, into the whole chain of one operator.
void Grammar::ParseChain(Infix const& infix) {
  int const outerDeepest = deepest_;
  std::size_t const first = operands_.size() - 1;
  deepest_ = nesting_;
  RequireFilter();
  while (InfixAtToken() == &infix) {
    Advance();
    ParseInfix(fdo_sdk::Above(infix.power));
    RequireFilter();
  }
  MakeChain(first, infix);
  deepest_ = std::max(deepest_, outerDeepest);
}

Operand Grammar::Joined(Operand const& left, Operand const& right, Infix const& infix) const {
  Operand whole;
  whole.height = Above(std::max(left.height, right.height));
  auto const operation = static_cast<FdoBinaryLogicalOperations>(infix.operation);
  whole.filter = FdoBinaryLogicalOperator::Create(left.filter, operation, right.filter);
  return whole;
}

// A short chain leans to the left. A long one is balanced by joining neighbours until one is left; in its
// text the right sides stand in parentheses, whose levels count as if they had been in this text.
void Grammar::MakeChain(std::size_t first, Infix const& infix) {
  if (operands_.size() - first <= kLongestLeaningChain) {
    Operand whole = operands_[first];
    for (std::size_t i = first + 1; i < operands_.size(); ++i) whole = Joined(whole, operands_[i], infix);
    operands_[first] = whole;
  } else {
    for (std::size_t left = operands_.size() - first; left > 1; left = (left + 1) / 2) {
      if (++deepest_ > kMaximumNesting) FailTooDeep();
      for (std::size_t i = 0; i < left; i += 2) {
        Operand const& even = operands_[first + i];
        operands_[first + i / 2] = i + 1 < left ? Joined(even, operands_[first + i + 1], infix) : even;
      }
    }
  }
  operands_.resize(first + 1);
}

// Turns the operand on top, the name of a property, into the condition.
void Grammar::ParseCondition(Infix const& infix) {
  bool const isName = Top().expression != nullptr &&
                      Top().expression->GetExpressionType() == FdoExpressionItemType_Identifier;
  if (!isName) {
    throw TextError{token_.begin, L"expected the name of a property before " + lexer_.Show(token_) + L"."};
  }
  Advance();
  if (infix.kind == InfixKind::kNullTest) {
    MakeNullTest();
  } else if (infix.kind == InfixKind::kMembership) {
    ParseMembership();
  } else {
    ParseInfix(Power::kAdd);
    RequireExpression();
    MakeGeometricCondition(infix);
  }
}

void Grammar::MakeGeometricCondition(Infix const& infix) {
  Operand const geometry = Pop();
  Operand const property = Pop();
  auto* name = static_cast<FdoIdentifier*>(property.expression.p);
  int const height = Above(geometry.height);
  if (infix.kind == InfixKind::kSpatial) {
    auto const operation = static_cast<FdoSpatialOperations>(infix.operation);
    Push(FdoSpatialCondition::Create(name, operation, geometry.expression), height);
  } else {
    double const distance = TakeDistance();
    auto const operation = static_cast<FdoDistanceOperations>(infix.operation);
    Push(FdoDistanceCondition::Create(name, operation, geometry.expression, distance), height);
  }
}

void Grammar::ParsePrefix() {
  switch (token_.kind) {
    case TokenKind::kOpen:
      ParseEnclosed();
      return;
    case TokenKind::kNot:
      Enter();
      Advance();
      ParseInfix(Power::kNot);
      RequireFilter();
      MakeUnary(true);
      --nesting_;
      return;
    case TokenKind::kMinus:
      if (TakeNegativeNumber()) return;
      Enter();
      ParsePrefix();
      RequireExpression();
      MakeUnary(false);
      --nesting_;
      return;
    case TokenKind::kName:
      if (ParseName()) ParseArguments();
      return;
    default:
      ParseLeaf();
      return;
  }
}

void Grammar::MakeUnary(bool isFilter) {
  Operand const operand = Pop();
  int const height = Above(operand.height);
  if (isFilter) {
    Push(FdoUnaryLogicalOperator::Create(operand.filter, FdoUnaryLogicalOperations_Not), height);
  } else {
    Push(FdoUnaryExpression::Create(FdoUnaryOperations_Negate, operand.expression), height);
  }
}

void Grammar::ParseEnclosed() {
  Enter();
  Advance();
  if (TakeSelect()) {
    ParseSubSelect();
  } else {
    ParseInfix(Power::kOr);
    Expect(TokenKind::kClose, L"an operator or \")\"");
  }
  --nesting_;
}

// Completes the function on top.
void Grammar::ParseArguments() {
  Enter();
  Advance();
  if (!Is(TokenKind::kClose)) {
    for (;;) {
      ParseInfix(Power::kAdd);
      RequireExpression();
      AddArgument();
      if (!Is(TokenKind::kComma)) break;
      Advance();
    }
  }
  Top().height = Above(Top().height);
  Expect(TokenKind::kClose, L"an operator, \",\" or \")\"");
  --nesting_;
}

void Grammar::AddArgument() {
  Operand const argument = Pop();
  FdoPtr<FdoExpressionCollection> arguments = static_cast<FdoFunction*>(Top().expression.p)->GetArguments();
  arguments->Add(argument.expression);
  Top().height = std::max(Top().height, argument.height);
}

}  // namespace fdo_sdk
