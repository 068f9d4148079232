#include "sdk/runtime/text/parser.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <vector>

#include "Fdo/Expression/BLOBValue.h"
#include "Fdo/Expression/BinaryExpression.h"
#include "Fdo/Expression/BooleanValue.h"
#include "Fdo/Expression/CLOBValue.h"
#include "Fdo/Expression/ComputedIdentifier.h"
#include "Fdo/Expression/DateTimeValue.h"
#include "Fdo/Expression/DoubleValue.h"
#include "Fdo/Expression/ExpressionException.h"
#include "Fdo/Expression/Function.h"
#include "Fdo/Expression/GeometryValue.h"
#include "Fdo/Expression/Int32Value.h"
#include "Fdo/Expression/Int64Value.h"
#include "Fdo/Expression/Parameter.h"
#include "Fdo/Expression/StringValue.h"
#include "Fdo/Expression/SubSelectExpression.h"
#include "Fdo/Expression/UnaryExpression.h"
#include "Fdo/Filter/BinaryLogicalOperator.h"
#include "Fdo/Filter/ComparisonCondition.h"
#include "Fdo/Filter/DistanceCondition.h"
#include "Fdo/Filter/FilterException.h"
#include "Fdo/Filter/InCondition.h"
#include "Fdo/Filter/NullCondition.h"
#include "Fdo/Filter/SpatialCondition.h"
#include "Fdo/Filter/UnaryLogicalOperator.h"
#include "sdk/runtime/text/fgf_text.h"
#include "sdk/runtime/text/join_words.h"
#include "sdk/runtime/text/lexer.h"
#include "sdk/runtime/text/literal_text.h"
#include "sdk/runtime/text/number_text.h"
#include "sdk/runtime/text/text_error.h"
#include "sdk/runtime/text/text_limits.h"

namespace fdo_sdk {
namespace {

// A filter or an expression, whichever the text turned out to be.
struct Operand {
  FdoPtr<FdoExpression> expression;
  FdoPtr<FdoFilter> filter;
  int height = 0;  // of its tree, a leaf being 0
};

Operand MakeExpression(FdoExpression* expression, int height = 0) {
  Operand operand;
  operand.expression = expression;
  operand.height = height;
  return operand;
}

Operand MakeFilter(FdoFilter* filter, int height) {
  Operand operand;
  operand.filter = filter;
  operand.height = height;
  return operand;
}

// Filters and expressions have one grammar here, because an opening parenthesis does not tell which of the
// two it begins. Operators are parsed by precedence; the only recursion is ParseInfix over ParsePrefix, two
// or three calls for each level of nesting.
class Parser {
 public:
  explicit Parser(std::wstring_view text) : lexer_(text) { Advance(); }

  FdoFilter* ParseWholeFilter() {
    Operand whole = ParseInfix(Power::kOr);
    RequireFilter(whole);
    RequireEnd();
    return whole.filter.Detach();
  }

  FdoExpression* ParseWholeExpression() {
    Operand whole = ParseInfix(Power::kAdd);
    RequireExpression(whole);
    if (IsNameWord(L"AS")) {
      Advance();
      if (token_.kind != TokenKind::kName) Expected(L"a name");
      whole.expression = FdoComputedIdentifier::Create(token_.text.c_str(), whole.expression);
      Advance();
    }
    RequireEnd();
    return whole.expression.Detach();
  }

  FdoValueExpression* ParseWholeValue() {
    FdoPtr<FdoValueExpression> value = ParseValueExpression();
    RequireEnd();
    return value.Detach();
  }

 private:
  // One level of nesting, for the time that this lives.
  class Level {
   public:
    explicit Level(Parser& parser) : parser_(parser) {
      if (parser.nesting_ == kMaximumNesting) parser.FailTooDeep();
      parser.deepest_ = std::max(parser.deepest_, ++parser.nesting_);
    }
    ~Level() { --parser_.nesting_; }
    Level(Level const&) = delete;

   private:
    Parser& parser_;
  };

  void Advance() { token_ = lexer_.Next(); }

  bool Is(TokenKind kind) const { return token_.kind == kind; }
  bool IsNameWord(std::wstring_view word) const {
    return Is(TokenKind::kName) && token_.plain && IsWord(token_.text, word);
  }

  [[noreturn]] void Expected(std::wstring_view what) const {
    throw TextError{token_.begin,
                    L"expected " + std::wstring(what) + L", but found " + lexer_.Show(token_) + L"."};
  }

  [[noreturn]] void FailTooDeep() const {
    throw TextError{token_.begin, L"nested more than " + std::to_wstring(kMaximumNesting) +
                                      L" levels deep at " + lexer_.Show(token_) + L"."};
  }

  void Expect(TokenKind kind, std::wstring_view what) {
    if (!Is(kind)) Expected(what);
    Advance();
  }

  void ExpectWord(std::wstring_view word) {
    if (!IsNameWord(word)) Expected(word);
    Advance();
  }

  void RequireEnd() const {
    if (!Is(TokenKind::kEnd)) Expected(L"an operator or the end of the text");
  }

  // The token behind the operand is where the rest of a condition is missing.
  void RequireFilter(Operand const& operand) const {
    if (operand.filter == nullptr) Expected(L"a comparison or another condition");
  }

  // A condition cannot be computed with: its place is between AND, OR, NOT and parentheses.
  void RequireExpression(Operand const& operand) const {
    if (operand.expression == nullptr) Expected(L"AND, OR, \")\" or the end of a condition");
  }

  int Above(int height) const {
    if (height >= kMaximumHeight) {
      throw TextError{token_.begin, L"more than " + std::to_wstring(kMaximumHeight) +
                                        L" operators depend on each other before " + lexer_.Show(token_) +
                                        L"."};
    }
    return height + 1;
  }

  Infix const* InfixAtToken() const {
    if (token_.kind < TokenKind::kOpen) return nullptr;
    return FindInfix(lexer_.Source(token_));
  }

  Operand ParseInfix(Power least);
  Operand ParsePrefix();
  Operand ParseEnclosed();
  Operand ParseFunction(std::wstring name);
  FdoExpression* ParseLeaf();

  void ParseChain(Operand& left, Infix const& infix);
  void ParseBinary(Operand& left, Infix const& infix);
  void ParseCondition(Operand& left, Infix const& infix);
  Operand ParseMembership(FdoIdentifier* name);
  Operand ParseSubSelect();
  int ParseJoins(FdoSubSelectExpression& subSelect);
  FdoValueExpression* ParseValueExpression();

  Operand Lean(std::vector<Operand>& terms, FdoBinaryLogicalOperations operation) const;
  Operand Balance(std::vector<Operand>& terms, FdoBinaryLogicalOperations operation);

  FdoIdentifier* TakeName(std::wstring_view what);
  double TakeDistance();
  FdoDataValue* NumberLiteral(bool negative) const;
  FdoExpression* DateTimeLiteral(DateTimeForm form);
  FdoExpression* GeometryLiteral();
  FdoExpression* BytesLiteral(FdoDataType type);
  FdoByteArray* BytesOf(std::vector<FdoByte> const& bytes) const;

  Lexer lexer_;
  Token token_;  // the one to be read next
  int nesting_ = 0;
  int deepest_ = 0;  // the greatest nesting so far, or what the text of the tree will have
};

Operand Parser::ParseInfix(Power least) {
  Operand left = ParsePrefix();
  for (;;) {
    Infix const* infix = InfixAtToken();
    if (infix == nullptr || infix->power < least) return left;
    switch (infix->kind) {
      case InfixKind::kLogical:
        ParseChain(left, *infix);
        break;
      case InfixKind::kArithmetic:
      case InfixKind::kComparison:
        ParseBinary(left, *infix);
        break;
      case InfixKind::kNullTest:
      case InfixKind::kMembership:
      case InfixKind::kSpatial:
      case InfixKind::kDistance:
        ParseCondition(left, *infix);
        break;
    }
  }
}

void Parser::ParseBinary(Operand& left, Infix const& infix) {
  RequireExpression(left);
  Advance();
  bool const arithmetic = infix.kind == InfixKind::kArithmetic;
  Operand right = ParseInfix(arithmetic ? fdo_sdk::Above(infix.power) : Power::kAdd);
  RequireExpression(right);
  int const height = Above(std::max(left.height, right.height));
  if (arithmetic) {
    left = MakeExpression(
        FdoBinaryExpression::Create(left.expression, static_cast<FdoBinaryOperations>(infix.operation),
                                    right.expression),
        height);
  } else {
    left = MakeFilter(
        FdoComparisonCondition::Create(left.expression, static_cast<FdoComparisonOperations>(infix.operation),
                                       right.expression),
        height);
  }
}

void Parser::ParseChain(Operand& left, Infix const& infix) {
  int const outerDeepest = deepest_;
  deepest_ = nesting_;
  std::vector<Operand> terms;
  RequireFilter(left);
  terms.push_back(left);
  while (InfixAtToken() == &infix) {
    Advance();
    terms.push_back(ParseInfix(fdo_sdk::Above(infix.power)));
    RequireFilter(terms.back());
  }
  auto const operation = static_cast<FdoBinaryLogicalOperations>(infix.operation);
  left = terms.size() <= kLongestLeaningChain ? Lean(terms, operation) : Balance(terms, operation);
  deepest_ = std::max(deepest_, outerDeepest);
}

Operand Parser::Lean(std::vector<Operand>& terms, FdoBinaryLogicalOperations operation) const {
  Operand tree = terms.front();
  for (std::size_t i = 1; i < terms.size(); ++i) {
    int const height = Above(std::max(tree.height, terms[i].height));
    tree = MakeFilter(FdoBinaryLogicalOperator::Create(tree.filter, operation, terms[i].filter), height);
  }
  return tree;
}

// Joins neighbours until one tree is left. In its text the right sides stand in parentheses, whose levels
// are counted as if they had been in this text.
Operand Parser::Balance(std::vector<Operand>& terms, FdoBinaryLogicalOperations operation) {
  while (terms.size() > 1) {
    if (++deepest_ > kMaximumNesting) FailTooDeep();
    std::size_t joined = 0;
    for (std::size_t i = 0; i < terms.size(); i += 2, ++joined) {
      std::vector<Operand> pair(terms.begin() + static_cast<std::ptrdiff_t>(i),
                                terms.begin() + static_cast<std::ptrdiff_t>(std::min(i + 2, terms.size())));
      terms[joined] = Lean(pair, operation);
    }
    terms.resize(joined);
  }
  return terms.front();
}

void Parser::ParseCondition(Operand& left, Infix const& infix) {
  if (left.expression == nullptr ||
      left.expression->GetExpressionType() != FdoExpressionItemType_Identifier) {
    throw TextError{token_.begin, L"expected the name of a property before " + lexer_.Show(token_) + L"."};
  }
  FdoPtr<FdoIdentifier> name = static_cast<FdoIdentifier*>(left.expression.Detach());
  Advance();
  if (infix.kind == InfixKind::kNullTest) {
    left = MakeFilter(FdoNullCondition::Create(name.p), 1);
    return;
  }
  if (infix.kind == InfixKind::kMembership) {
    left = ParseMembership(name);
    return;
  }
  Operand geometry = ParseInfix(Power::kAdd);
  RequireExpression(geometry);
  int const height = Above(geometry.height);
  if (infix.kind == InfixKind::kSpatial) {
    left = MakeFilter(FdoSpatialCondition::Create(name.p, static_cast<FdoSpatialOperations>(infix.operation),
                                                  geometry.expression),
                      height);
  } else {
    double const distance = TakeDistance();
    left =
        MakeFilter(FdoDistanceCondition::Create(name.p, static_cast<FdoDistanceOperations>(infix.operation),
                                                geometry.expression, distance),
                   height);
  }
}

double Parser::TakeDistance() {
  if (!Is(TokenKind::kInteger) && !Is(TokenKind::kReal)) Expected(L"a distance that is a number");
  double distance = 0;
  if (!ReadNumber(lexer_.Source(token_), distance)) Expected(L"a distance in the range of a double");
  Advance();
  return distance;
}

Operand Parser::ParsePrefix() {
  switch (token_.kind) {
    case TokenKind::kOpen:
      return ParseEnclosed();
    case TokenKind::kNot: {
      Level level(*this);
      Advance();
      Operand operand = ParseInfix(Power::kNot);
      RequireFilter(operand);
      int const height = Above(operand.height);
      return MakeFilter(FdoUnaryLogicalOperator::Create(operand.filter, FdoUnaryLogicalOperations_Not),
                        height);
    }
    case TokenKind::kMinus: {
      std::size_t const minusEnd = token_.end;
      Advance();
      bool const isNumber = Is(TokenKind::kInteger) || Is(TokenKind::kReal);
      if (isNumber && token_.begin == minusEnd) {
        FdoPtr<FdoExpression> number = NumberLiteral(true);
        Advance();
        return MakeExpression(number.Detach());
      }
      Level level(*this);
      Operand operand = ParsePrefix();
      RequireExpression(operand);
      int const height = Above(operand.height);
      return MakeExpression(FdoUnaryExpression::Create(FdoUnaryOperations_Negate, operand.expression),
                            height);
    }
    case TokenKind::kName: {
      Token name = std::move(token_);
      Advance();
      if (Is(TokenKind::kOpen)) return ParseFunction(std::move(name.text));
      if (Is(TokenKind::kText) && name.plain && IsWord(name.text, L"BLOB")) {
        return MakeExpression(BytesLiteral(FdoDataType_BLOB));
      }
      if (Is(TokenKind::kText) && name.plain && IsWord(name.text, L"CLOB")) {
        return MakeExpression(BytesLiteral(FdoDataType_CLOB));
      }
      return MakeExpression(FdoIdentifier::Create(name.text.c_str()));
    }
    default:
      return MakeExpression(ParseLeaf());
  }
}

Operand Parser::ParseEnclosed() {
  Level level(*this);
  Advance();
  if (IsNameWord(L"SELECT")) {
    // SELECT is no reserved word; only a name right behind it makes it one.
    Token const select = token_;
    Lexer const behind = lexer_;
    Advance();
    if (Is(TokenKind::kName)) return ParseSubSelect();
    token_ = select;
    lexer_ = behind;
  }
  Operand inner = ParseInfix(Power::kOr);
  if (!Is(TokenKind::kClose)) Expected(L"an operator or \")\"");
  Advance();
  return inner;
}

Operand Parser::ParseFunction(std::wstring name) {
  Level level(*this);
  Advance();
  FdoPtr<FdoFunction> function = FdoFunction::Create(name.c_str(), nullptr, 0);
  FdoPtr<FdoExpressionCollection> arguments = function->GetArguments();
  int height = 0;
  if (!Is(TokenKind::kClose)) {
    for (;;) {
      Operand argument = ParseInfix(Power::kAdd);
      RequireExpression(argument);
      height = std::max(height, argument.height);
      arguments->Add(argument.expression);
      if (!Is(TokenKind::kComma)) break;
      Advance();
    }
  }
  if (!Is(TokenKind::kClose)) Expected(L"an operator, \",\" or \")\"");
  Advance();
  return MakeExpression(function.Detach(), Above(height));
}

// Literals, apart from those that begin with a name, and parameters.
FdoExpression* Parser::ParseLeaf() {
  FdoPtr<FdoExpression> leaf;
  switch (token_.kind) {
    case TokenKind::kInteger:
    case TokenKind::kReal:
      leaf = NumberLiteral(false);
      break;
    case TokenKind::kText:
      leaf = FdoStringValue::Create(token_.text.c_str());
      break;
    case TokenKind::kParameter:
      leaf = FdoParameter::Create(token_.text.c_str());
      break;
    case TokenKind::kTrue:
    case TokenKind::kFalse:
      leaf = FdoBooleanValue::Create(Is(TokenKind::kTrue));
      break;
    case TokenKind::kNull:
      leaf = FdoStringValue::Create();
      break;
    case TokenKind::kDate:
      return DateTimeLiteral(DateTimeForm::kDate);
    case TokenKind::kTime:
      return DateTimeLiteral(DateTimeForm::kTime);
    case TokenKind::kTimestamp:
      return DateTimeLiteral(DateTimeForm::kTimestamp);
    case TokenKind::kGeomFromText:
      return GeometryLiteral();
    default:
      Expected(L"a value, a name, \"(\", \"-\" or NOT");
  }
  Advance();
  return leaf.Detach();
}

Operand Parser::ParseMembership(FdoIdentifier* name) {
  if (!Is(TokenKind::kOpen)) Expected(L"\"(\"");
  Level level(*this);
  Advance();
  if (IsNameWord(L"SELECT")) {
    Advance();
    Operand const values = ParseSubSelect();
    auto* subSelect = static_cast<FdoSubSelectExpression*>(values.expression.p);
    return MakeFilter(FdoInCondition::Create(name, subSelect), Above(values.height));
  }
  FdoPtr<FdoValueExpressionCollection> values = FdoValueExpressionCollection::Create();
  for (;;) {
    FdoPtr<FdoValueExpression> value = ParseValueExpression();
    values->Add(value);
    if (!Is(TokenKind::kComma)) break;
    Advance();
  }
  Expect(TokenKind::kClose, L"\",\" or \")\"");
  return MakeFilter(FdoInCondition::Create(name, values.p), 1);
}

FdoValueExpression* Parser::ParseValueExpression() {
  Token const first = token_;
  Operand operand = ParsePrefix();
  auto* value = dynamic_cast<FdoValueExpression*>(operand.expression.p);
  if (value == nullptr) {
    throw TextError{first.begin,
                    L"expected a literal or a parameter, but found " + lexer_.Show(first) + L"."};
  }
  operand.expression.Detach();
  return value;
}

// Requires: SELECT has been read. Reads up to the closing parenthesis and with it.
Operand Parser::ParseSubSelect() {
  FdoPtr<FdoIdentifier> property = TakeName(L"the name of a property");
  ExpectWord(L"FROM");
  FdoPtr<FdoIdentifier> selected = TakeName(L"the name of a class");
  FdoPtr<FdoSubSelectExpression> subSelect = FdoSubSelectExpression::Create(selected, property);
  int height = ParseJoins(*subSelect);
  if (IsNameWord(L"WHERE")) {
    Advance();
    Operand filter = ParseInfix(Power::kOr);
    RequireFilter(filter);
    subSelect->SetFilter(filter.filter);
    height = std::max(height, filter.height);
  }
  Expect(TokenKind::kClose, L"a join, WHERE or \")\"");
  return MakeExpression(subSelect.Detach(), Above(height));
}

FdoIdentifier* Parser::TakeName(std::wstring_view what) {
  if (!Is(TokenKind::kName)) Expected(what);
  FdoPtr<FdoIdentifier> name = FdoIdentifier::Create(token_.text.c_str());
  Advance();
  return name.Detach();
}

// Gives the height of the highest condition.
int Parser::ParseJoins(FdoSubSelectExpression& subSelect) {
  int height = 0;
  FdoPtr<FdoJoinCriteriaCollection> joins = subSelect.GetJoinCriteria();
  for (;;) {
    JoinWords const* kind = nullptr;
    for (JoinWords const& known : kJoinWords) {
      if (IsNameWord(known.words.substr(0, known.words.find(L' ')))) kind = &known;
    }
    if (kind == nullptr) return height;
    for (std::wstring_view words = kind->words; !words.empty();) {
      std::size_t const end = std::min(words.find(L' '), words.size());
      ExpectWord(words.substr(0, end));
      words.remove_prefix(std::min(end + 1, words.size()));
    }
    Token const first = token_;
    FdoPtr<FdoIdentifier> joined = TakeName(L"the name of a class");
    FdoPtr<FdoJoinCriteria> join = FdoJoinCriteria::Create(joined, kind->type);
    if (IsNameWord(L"AS")) {
      Advance();
      FdoPtr<FdoIdentifier> alias = TakeName(L"a name");
      join->SetAlias(alias->GetName());
    }
    if (IsNameWord(L"ON")) {
      Advance();
      Operand condition = ParseInfix(Power::kOr);
      RequireFilter(condition);
      join->SetFilter(condition.filter);
      height = std::max(height, condition.height);
    }
    FdoPtr<FdoJoinCriteria> known = joins->FindItem(join->HasAlias() ? join->GetAlias() : joined->GetText());
    if (known != nullptr) {
      throw TextError{first.begin,
                      L"expected a join of another name, but found " + lexer_.Show(first) + L"."};
    }
    joins->Add(join);
  }
}

FdoDataValue* Parser::NumberLiteral(bool negative) const {
  std::wstring const text = (negative ? L"-" : L"") + std::wstring(lexer_.Source(token_));
  std::int64_t integer = 0;
  if (Is(TokenKind::kInteger) && ReadNumber(text, integer)) {
    bool const isShort =
        integer >= std::numeric_limits<FdoInt32>::min() && integer <= std::numeric_limits<FdoInt32>::max();
    if (isShort) return FdoInt32Value::Create(static_cast<FdoInt32>(integer));
    return FdoInt64Value::Create(static_cast<FdoInt64>(integer));
  }
  double real = 0;
  if (!ReadNumber(text, real)) Expected(L"a number in the range of a double");
  return FdoDoubleValue::Create(real);
}

FdoExpression* Parser::DateTimeLiteral(DateTimeForm form) {
  Advance();
  constexpr std::wstring_view kForms[] = {L"a date as 'YYYY-MM-DD'", L"a time as 'HH:MM:SS'",
                                          L"a date and time as 'YYYY-MM-DD HH:MM:SS'"};
  FdoDateTime value;
  if (!Is(TokenKind::kText) || !ReadDateTime(form, token_.text, value))
    Expected(kForms[static_cast<int>(form)]);
  Advance();
  return FdoDateTimeValue::Create(value);
}

FdoExpression* Parser::GeometryLiteral() {
  Advance();
  Expect(TokenKind::kOpen, L"\"(\"");
  if (!Is(TokenKind::kText)) Expected(L"the text of a geometry in single quotes");
  std::size_t const begin = token_.begin + 1;
  FdoPtr<FdoByteArray> bytes;
  try {
    bytes = BytesOf(TextToFgf(token_.text));
  } catch (TextError const& error) {
    throw TextError{begin + error.position, error.message};
  }
  Advance();
  Expect(TokenKind::kClose, L"\")\"");
  return FdoGeometryValue::Create(bytes);
}

FdoExpression* Parser::BytesLiteral(FdoDataType type) {
  std::vector<FdoByte> bytes;
  if (!ReadHex(token_.text, bytes)) Expected(L"bytes as pairs of hexadecimal digits");
  FdoPtr<FdoByteArray> array = BytesOf(bytes);
  Advance();
  return FdoDataValue::Create(array.p, type);
}

FdoByteArray* Parser::BytesOf(std::vector<FdoByte> const& bytes) const {
  if (bytes.size() > static_cast<std::size_t>(std::numeric_limits<FdoInt32>::max())) {
    throw TextError{token_.begin, L"the bytes of this literal are too many."};
  }
  return FdoByteArray::Create(bytes.data(), static_cast<FdoInt32>(bytes.size()));
}

}  // namespace

FdoFilter* ParseFilter(std::wstring_view text) {
  try {
    return Parser(text).ParseWholeFilter();
  } catch (TextError const& error) {
    throw FdoFilterException::Create(MessageWithPlace(error).c_str());
  }
}

FdoExpression* ParseExpression(std::wstring_view text) {
  try {
    return Parser(text).ParseWholeExpression();
  } catch (TextError const& error) {
    throw FdoExpressionException::Create(MessageWithPlace(error).c_str());
  }
}

FdoValueExpression* ParseValue(std::wstring_view text) {
  try {
    return Parser(text).ParseWholeValue();
  } catch (TextError const& error) {
    throw FdoExpressionException::Create(MessageWithPlace(error).c_str());
  }
}

}  // namespace fdo_sdk
