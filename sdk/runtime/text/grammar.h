// Grammar is the recursive-descent parser behind parser.h.
//
// Filters and expressions have one grammar here, because an opening parenthesis does not tell which of the
// two it begins. What has been parsed lies on a stack of operands and not in local variables: the functions
// that call each other for nested text then have next to none, and 127 levels fit a stack of 256 KiB even
// with the frames that sanitizers make. Functions with larger frames are kept out of their callers.
#ifndef SDK_RUNTIME_TEXT_GRAMMAR_H_
#define SDK_RUNTIME_TEXT_GRAMMAR_H_

#include <string>
#include <string_view>
#include <vector>

#include "Fdo/Expression/SubSelectExpression.h"
#include "Fdo/Filter/Filter.h"
#include "Fdo/Schema/DataType.h"
#include "port/inlining.h"
#include "sdk/runtime/text/lexer.h"
#include "sdk/runtime/text/literal_text.h"

namespace fdo_sdk {

// A filter or an expression, whichever the text turned out to be.
struct Operand {
  FdoPtr<FdoExpression> expression;
  FdoPtr<FdoFilter> filter;
  int height = 0;  // of its tree, a leaf being 0
};

// Each Parse function reads from the token at hand to the one behind its construct, and leaves one operand
// more on the stack, unless it says otherwise.
// Errors: all throw TextError; the parser is of no use afterwards.
class Grammar {
 public:
  explicit Grammar(std::wstring_view text);

  // Give: one reference.
  FdoFilter* WholeFilter();
  FdoExpression* WholeExpression();
  FdoValueExpression* WholeValue();

 private:
  // Operators, in grammar.cc.
  void ParseInfix(Power least);
  void ParsePrefix();
  void ParseEnclosed();
  void ParseArguments();
  void ParseChain(Infix const& infix);
  void ParseBinary(Infix const& infix);
  void ParseCondition(Infix const& infix);
  QUILLON_NEVER_INLINE void MakeBinary(Infix const& infix);
  QUILLON_NEVER_INLINE void MakeUnary(bool isFilter);
  QUILLON_NEVER_INLINE void MakeChain(std::size_t first, Infix const& infix);
  QUILLON_NEVER_INLINE void MakeGeometricCondition(Infix const& infix);
  QUILLON_NEVER_INLINE void AddArgument();
  QUILLON_NEVER_INLINE Operand Joined(Operand const& left, Operand const& right, Infix const& infix) const;

  // Lists of values and sub-selects, in grammar_lists.cc. All act on the condition or the sub-select on top
  // of the stack.
  void ParseMembership();
  void ParseSubSelect();
  void ParseJoins();
  QUILLON_NEVER_INLINE void BeginMembership();
  QUILLON_NEVER_INLINE void MakeNullTest();
  QUILLON_NEVER_INLINE void AddValue(std::size_t begin);
  QUILLON_NEVER_INLINE void AddSubSelect();
  QUILLON_NEVER_INLINE bool TakeSelect();
  QUILLON_NEVER_INLINE void BeginSubSelect();
  QUILLON_NEVER_INLINE bool BeginJoin();
  QUILLON_NEVER_INLINE void EndJoin(bool hasCondition);
  QUILLON_NEVER_INLINE void AddWhere();

  // Leaves, in grammar_literals.cc.
  QUILLON_NEVER_INLINE void ParseLeaf();
  // Gives whether the name turned out to be that of a function, which then is on the stack, and the token at
  // hand the parenthesis.
  QUILLON_NEVER_INLINE bool ParseName();
  // Reads a minus, and the number that it touches if there is one; leaves an operand only then.
  QUILLON_NEVER_INLINE bool TakeNegativeNumber();
  QUILLON_NEVER_INLINE FdoIdentifier* TakeName(std::wstring_view what);
  double TakeDistance();
  FdoExpression* NumberLiteral(bool negative) const;
  FdoExpression* DateTimeLiteral(DateTimeForm form);
  FdoExpression* GeometryLiteral();
  FdoExpression* BytesLiteral(FdoDataType type);
  FdoByteArray* BytesOf(std::vector<FdoByte> const& bytes) const;

  QUILLON_NEVER_INLINE void Advance() { token_ = lexer_.Next(); }
  bool Is(TokenKind kind) const { return token_.kind == kind; }
  bool IsNameWord(std::wstring_view word) const {
    return Is(TokenKind::kName) && token_.plain && IsWord(token_.text, word);
  }
  QUILLON_NEVER_INLINE Infix const* InfixAtToken() const;

  [[noreturn]] QUILLON_NEVER_INLINE void Expected(std::wstring_view what) const;
  [[noreturn]] QUILLON_NEVER_INLINE void FailTooDeep() const;
  void Expect(TokenKind kind, std::wstring_view what);
  void ExpectWord(std::wstring_view word);
  void RequireEnd() const;
  void RequireFilter() const;
  void RequireExpression() const;

  // One level of nesting more; each is left by --nesting_.
  void Enter();
  int Above(int height) const;

  QUILLON_NEVER_INLINE void Push(FdoExpression* expression, int height = 0);
  QUILLON_NEVER_INLINE void Push(FdoFilter* filter, int height);
  Operand& Top() { return operands_.back(); }
  QUILLON_NEVER_INLINE Operand Pop();

  Lexer lexer_;
  Token token_;  // the one to be read next
  std::vector<Operand> operands_;
  int nesting_ = 0;
  int deepest_ = 0;  // the greatest nesting so far, or what the text of the tree will have
};

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_TEXT_GRAMMAR_H_
