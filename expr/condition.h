// A program that is a condition, in larger steps: each test of a column against a literal is one step that
// knows both its ways on, and what the other tests decide is not looked at.
#ifndef EXPR_CONDITION_H_
#define EXPR_CONDITION_H_

#include <fdo/expr_eval.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "expr/machine.h"

namespace fdo {

class QUILLON_LOCAL ExprEval::Condition {
 public:
  // Null for a program that is no condition, or of which a part must be run even where it decides nothing:
  // without allConditions that is what may throw or trap, and columns that are looked up by name.
  // Borrowed: the machine must outlive the condition.
  // Requires: the program is balanced.
  static std::unique_ptr<Condition> Make(Machine& machine, ExprOptions const& options);

  // What the program gives for the row, as a flag. All its columns are fetched first, in the program's
  // order, as the program itself does.
  bool Holds(Row const& row);

  // As ExprEval::Eval. Requires: row is not null.
  bool Eval(Row const* row, Value* result) { return eval_(*this, row, result); }

 private:
  // A number as values have them; two of them are less, equal and calculated with as Value does it.
  struct Number {
    bool isInteger;
    long long integer;
    double real;  // the number in any case
  };

  enum class Kind : unsigned char {
    kInteger,     // column and integer
    kReal,        // column and double
    kText,        // column and text
    kCalculated,  // column, calculated with a number, and a number
    kIsNull,      // column
    kPart,        // anything: a part of the program
  };
  // The comparisons come down to three tests, their negation to exchanged ways on.
  enum class Test : unsigned char { kColumnLess, kLiteralLess, kEqual };

  // One step. Ways on are the positions of other steps, or an outcome.
  struct Step {
    Kind kind = Kind::kPart;
    Test test = Test::kEqual;
    bool numberIsLeft = false;   // of the calculation
    bool isUnderNot = false;     // an odd number of NOTs
    bool isNegated = false;      // the test holds where the condition does not
    std::int32_t operation = 0;  // of the calculation
    int cell = 0;                // in cells_
    int ways[2] = {0, 0};        // where the test does not hold, and where it does
    int ifUnknown = 0;
    int ifNull = 0;       // where the column is null
    int goesOn = 0;       // of a chain: the way that does not decide; of its last step, one of two outcomes
    bool isDear = false;  // of a chain: not worth taking where it decides nothing
    Number literal = {};
    Number operand = {};            // of the calculation
    wchar_t const* text = nullptr;  // lent by the program
    std::size_t begin = 0;          // of the part of the program that the step stands for
    std::size_t end = 0;
  };

  static constexpr int kHolds = -1;
  static constexpr int kFails = -2;

  class Builder;

  explicit Condition(Machine& machine, ExprOptions const& options) : machine_(machine), options_(options) {}

  // The way on from the step.
  int Follow(Step const& step, Row const& row);
  int FollowText(Step const& step, Value const& cell, Row const& row);
  int FollowNumber(Step const& step, Value const& cell, Row const& row);
  int FollowPart(Step const& step, Row const& row);
  static Number Calculated(Step const& step, Number const& column);

  Machine& machine_;
  ExprOptions const options_;
  // Steps one behind the other, each of which either decides or leaves it to the next, as in a = 1 AND b > 2,
  // are a chain. Those that are cheap are taken without a jump between them, which no processor could
  // foresee.
  bool HoldsAsChain(Row const& row);

  // What a chain of tests of columns that hold what is expected of them comes down to.
  enum class Code : unsigned char {
    kIntegerLess,
    kIntegerGreater,
    kIntegerEqual,
    kRealLess,
    kRealGreater,
    kRealEqual,
    kTextLess,
    kTextGreater,
    kTextEqual,
  };
  struct Link {
    Code code;
    bool goesOnIf;          // the outcome of the test that does not decide
    bool nullGoesOn;        // whether null does not decide
    bool nullIsUnexpected;  // null is calculated with, as 0.0
    bool unknownGoesOn;     // whether unknown does not decide
    std::size_t column;
    long long integer;  // the literal
    double real;
    double factor;        // of a product, else 1
    wchar_t const* text;  // lent by the program
  };
  void MakeLinks();

  enum class Outcome { kHolds, kFails, kUnexpected };
  // What Holds says, for programs that are links, kept apart from everything that is rare and free of calls.
  // kUnexpected where a column holds something else than a null, or a text or a number as its literal is, or
  // is not fetched: nothing has been done then. Requires: there are links; cells are those of the row.
  Outcome FollowLinks(Value const* cells) const;

  // The ways to evaluate a row, of which eval_ is the quickest that the program allows. Each hands on what is
  // not for it to the one before: static functions, so that they hand on by a jump.
  using EvalWay = bool(Condition& self, Row const* row, Value* result);
  static bool EvalSteps(Condition& self, Row const* row, Value* result);
  static bool EvalLinks(Condition& self, Row const* row, Value* result);
  // A link again, for cells of the expected type: as little work as it can come to.
  enum class Shape : unsigned char { kInteger, kReal, kText, kOther };
  struct Gate {
    Shape shape;
    // A real that lies outside goes on, and so does a text that is the same, unless flips.
    bool flips;
    bool isLonger;           // the literal, than two units
    std::uint32_t lastHead;  // the position of the last unit of head
    wchar_t head[2];         // the units that the literal begins with, the one that ends it among them
    wchar_t const* rest;     // of the literal, behind head
    std::size_t offset;      // of the cell in the row, in bytes
    // An integer goes on that is at most width above least, where the greatest is followed by the least.
    std::uint64_t least;
    std::uint64_t width;
    // A real, multiplied, lies outside when it is below the one or above the other. NaN does not.
    double factor;
    double below;
    double above;
  };
  static constexpr std::size_t kMostGates = 3;  // each more makes three times as many functions
  Gate GateOf(Link const& link) const;
  static void SetIntegers(Link const& link, Gate& gate);
  void SetReals(Link const& link, Gate& gate) const;
  static void SetTexts(Link const& link, Gate& gate);
  // The gates one by one, without a loop: there is one such function for each sequence of shapes, and the
  // compiler writes it out.
  template <Shape... kShapes>
  static bool EvalShaped(Condition& self, Row const* row, Value* result);
  static Value const& CellOf(Gate const& gate, Value const* cells);
  // Sets a bit of Value::kCodeMask where the cell is not of the expected type.
  template <Shape kShape>
  static std::uint64_t Oddness(Gate const& gate, Value const* cells);
  // Whether the gate does not decide. Requires: the cell is of the expected type.
  template <Shape kShape>
  static bool GoesOn(Gate const& gate, Value const* cells);
  template <Shape... kShapes>
  EvalWay* FindShaped() const;
  EvalWay* FindEval() const;
  // As ExprEval::Eval gives what holds.
  static bool Give(Value* result, bool holds);
  static bool Put(Value* result, bool holds);

  std::vector<Step> steps_;
  int first_ = 0;
  bool isChain_ = false;     // the steps are one, in their order
  std::vector<Link> links_;  // the same chain, where it is one of such tests only
  bool holdsAtEnd_ = false;  // what the last link comes to when it does not decide
  EvalWay* eval_ = EvalSteps;
  std::array<Gate, kMostGates> gates_ = {};  // the links, where they are no more
  std::vector<int> columns_;                 // those that the program uses, in its order
  std::vector<Value const*> cells_;          // of the row at hand, one for each of columns_
};

}  // namespace fdo

#endif  // EXPR_CONDITION_H_
