// The reserved words and the operators of filter and expression text, each listed once.
#ifndef SDK_RUNTIME_TEXT_WORDS_H_
#define SDK_RUNTIME_TEXT_WORDS_H_

#include <string_view>

namespace fdo_sdk {

enum class TokenKind {
  kEnd,
  kName,
  kInteger,
  kReal,
  kText,
  kParameter,
  // symbols
  kOpen,
  kClose,
  kComma,
  kPlus,
  kMinus,
  kStar,
  kSlash,
  kConcatenate,
  kEqual,
  kNotEqual,
  kGreater,
  kGreaterOrEqual,
  kLess,
  kLessOrEqual,
  // reserved words
  kAnd,
  kOr,
  kNot,
  kNull,
  kIn,
  kLike,
  kTrue,
  kFalse,
  kDate,
  kTime,
  kTimestamp,
  kGeomFromText,
  kSpatial,
  kBeyond,
  kWithinDistance,
};

// Binds tighter from top to bottom. NOT stands between AND and the conditions, because what it negates is
// a whole condition.
enum class Power { kOr, kAnd, kNot, kCondition, kAdd, kMultiply, kPrimary };

constexpr Power Above(Power power) { return static_cast<Power>(static_cast<int>(power) + 1); }

// What stands after an operand, by the kind of node it makes.
enum class InfixKind { kLogical, kComparison, kNullTest, kMembership, kSpatial, kDistance, kArithmetic };

struct Infix {
  std::wstring_view word;
  InfixKind kind;
  int operation;  // the value in the enumeration of that kind's operations
  Power power;
};

// Null when the text is no operator; reserved words count whatever their case.
Infix const* FindInfix(std::wstring_view word);
// The operator that is written for an operation. Errors: null when there is no such operation.
Infix const* FindInfix(InfixKind kind, int operation);

// kName when the word is not reserved.
TokenKind KindOfWord(std::wstring_view word);

// The symbol that a text begins with, the longest one; an empty word when there is none.
struct Symbol {
  std::wstring_view word;
  TokenKind kind;
};
Symbol SymbolAt(std::wstring_view text);

// Compares with a word in capitals, whatever the case of the text; only A to Z have a case here.
bool IsWord(std::wstring_view text, std::wstring_view capitals);

constexpr bool IsNameStart(wchar_t unit) {
  return (unit >= L'a' && unit <= L'z') || (unit >= L'A' && unit <= L'Z') || unit == L'_' ||
         static_cast<unsigned long>(unit) >= 0x80;
}
constexpr bool IsNameUnit(wchar_t unit) { return IsNameStart(unit) || (unit >= L'0' && unit <= L'9'); }

// Whether a name can stand without quotes.
bool IsPlainName(std::wstring_view name);

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_TEXT_WORDS_H_
