#include "sdk/runtime/text/words.h"

#include <algorithm>

#include "Fdo/Expression/BinaryOperations.h"
#include "Fdo/Filter/BinaryLogicalOperations.h"
#include "Fdo/Filter/ComparisonOperations.h"
#include "Fdo/Filter/DistanceOperations.h"
#include "Fdo/Filter/SpatialOperations.h"

namespace fdo_sdk {
namespace {

// Where two words mean one operation, the first is the one that is written.
constexpr Infix kInfixes[] = {
    {L"OR", InfixKind::kLogical, FdoBinaryLogicalOperations_Or, Power::kOr},
    {L"AND", InfixKind::kLogical, FdoBinaryLogicalOperations_And, Power::kAnd},
    {L"=", InfixKind::kComparison, FdoComparisonOperations_EqualTo, Power::kCondition},
    {L"<>", InfixKind::kComparison, FdoComparisonOperations_NotEqualTo, Power::kCondition},
    {L">", InfixKind::kComparison, FdoComparisonOperations_GreaterThan, Power::kCondition},
    {L">=", InfixKind::kComparison, FdoComparisonOperations_GreaterThanOrEqualTo, Power::kCondition},
    {L"<", InfixKind::kComparison, FdoComparisonOperations_LessThan, Power::kCondition},
    {L"<=", InfixKind::kComparison, FdoComparisonOperations_LessThanOrEqualTo, Power::kCondition},
    {L"LIKE", InfixKind::kComparison, FdoComparisonOperations_Like, Power::kCondition},
    {L"NULL", InfixKind::kNullTest, 0, Power::kCondition},
    {L"IN", InfixKind::kMembership, 0, Power::kCondition},
    {L"CONTAINS", InfixKind::kSpatial, FdoSpatialOperations_Contains, Power::kCondition},
    {L"CROSSES", InfixKind::kSpatial, FdoSpatialOperations_Crosses, Power::kCondition},
    {L"DISJOINT", InfixKind::kSpatial, FdoSpatialOperations_Disjoint, Power::kCondition},
    {L"EQUALS", InfixKind::kSpatial, FdoSpatialOperations_Equals, Power::kCondition},
    {L"INTERSECTS", InfixKind::kSpatial, FdoSpatialOperations_Intersects, Power::kCondition},
    {L"OVERLAPS", InfixKind::kSpatial, FdoSpatialOperations_Overlaps, Power::kCondition},
    {L"TOUCHES", InfixKind::kSpatial, FdoSpatialOperations_Touches, Power::kCondition},
    {L"WITHIN", InfixKind::kSpatial, FdoSpatialOperations_Within, Power::kCondition},
    {L"COVEREDBY", InfixKind::kSpatial, FdoSpatialOperations_CoveredBy, Power::kCondition},
    {L"INSIDE", InfixKind::kSpatial, FdoSpatialOperations_Inside, Power::kCondition},
    {L"ENVELOPEINTERSECTS", InfixKind::kSpatial, FdoSpatialOperations_EnvelopeIntersects, Power::kCondition},
    {L"BEYOND", InfixKind::kDistance, FdoDistanceOperations_Beyond, Power::kCondition},
    {L"WITHINDISTANCE", InfixKind::kDistance, FdoDistanceOperations_Within, Power::kCondition},
    {L"+", InfixKind::kArithmetic, FdoBinaryOperations_Add, Power::kAdd},
    {L"||", InfixKind::kArithmetic, FdoBinaryOperations_Add, Power::kAdd},
    {L"-", InfixKind::kArithmetic, FdoBinaryOperations_Subtract, Power::kAdd},
    {L"*", InfixKind::kArithmetic, FdoBinaryOperations_Multiply, Power::kMultiply},
    {L"/", InfixKind::kArithmetic, FdoBinaryOperations_Divide, Power::kMultiply},
};

constexpr Symbol kSymbols[] = {
    {L"<>", TokenKind::kNotEqual},    {L"<=", TokenKind::kLessOrEqual}, {L">=", TokenKind::kGreaterOrEqual},
    {L"||", TokenKind::kConcatenate}, {L"(", TokenKind::kOpen},         {L")", TokenKind::kClose},
    {L",", TokenKind::kComma},        {L"+", TokenKind::kPlus},         {L"-", TokenKind::kMinus},
    {L"*", TokenKind::kStar},         {L"/", TokenKind::kSlash},        {L"=", TokenKind::kEqual},
    {L"<", TokenKind::kLess},         {L">", TokenKind::kGreater},
};

constexpr Symbol kReserved[] = {
    {L"AND", TokenKind::kAnd},
    {L"OR", TokenKind::kOr},
    {L"NOT", TokenKind::kNot},
    {L"NULL", TokenKind::kNull},
    {L"IN", TokenKind::kIn},
    {L"LIKE", TokenKind::kLike},
    {L"TRUE", TokenKind::kTrue},
    {L"FALSE", TokenKind::kFalse},
    {L"DATE", TokenKind::kDate},
    {L"TIME", TokenKind::kTime},
    {L"TIMESTAMP", TokenKind::kTimestamp},
    {L"GEOMFROMTEXT", TokenKind::kGeomFromText},
    {L"BEYOND", TokenKind::kBeyond},
    {L"WITHINDISTANCE", TokenKind::kWithinDistance},
};

}  // namespace

bool IsWord(std::wstring_view text, std::wstring_view capitals) {
  return std::equal(
      text.begin(), text.end(), capitals.begin(), capitals.end(), [](wchar_t unit, wchar_t capital) {
        return unit == capital || (unit >= L'a' && unit <= L'z' && unit - L'a' + L'A' == capital);
      });
}

Infix const* FindInfix(std::wstring_view word) {
  for (Infix const& infix : kInfixes) {
    if (IsWord(word, infix.word)) return &infix;
  }
  return nullptr;
}

Infix const* FindInfix(InfixKind kind, int operation) {
  for (Infix const& infix : kInfixes) {
    if (infix.kind == kind && infix.operation == operation) return &infix;
  }
  return nullptr;
}

TokenKind KindOfWord(std::wstring_view word) {
  for (Symbol const& reserved : kReserved) {
    if (IsWord(word, reserved.word)) return reserved.kind;
  }
  Infix const* infix = FindInfix(word);
  return infix != nullptr && infix->kind == InfixKind::kSpatial ? TokenKind::kSpatial : TokenKind::kName;
}

Symbol SymbolAt(std::wstring_view text) {
  if (text.empty()) return {};
  for (Symbol const& symbol : kSymbols) {
    // Most differ in the first unit, which needs no call to see.
    if (text.front() == symbol.word.front() && text.starts_with(symbol.word)) return symbol;
  }
  return {};
}

bool IsPlainName(std::wstring_view name) {
  return !name.empty() && IsNameStart(name.front()) && std::all_of(name.begin(), name.end(), IsNameUnit) &&
         KindOfWord(name) == TokenKind::kName;
}

}  // namespace fdo_sdk
