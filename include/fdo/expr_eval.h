#ifndef FDO_EXPR_EVAL_H_
#define FDO_EXPR_EVAL_H_

#include <fdo/export.h>
#include <fdo/row.h>
#include <fdo/schema.h>
#include <fdo/value.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

class FdoExpression;
class FdoFilter;

namespace fdo {

namespace internal {
struct CompiledTree;
}

// Opcodes. The numbers are fixed and the gaps stay; docs/expression_machine.md says what each does.
enum ExprOp : std::int32_t {
  OpPushLiteral = 1,
  OpPushFieldByName = 2,
  OpPushField = 3,
  OpAdd = 11,
  OpSub = 12,
  OpMul = 13,
  OpDiv = 14,
  OpNeg = 15,
  OpAnd = 20,
  OpOr = 21,
  OpLess = 30,
  OpLessEqual = 31,
  OpGreater = 32,
  OpGreaterEqual = 33,
  OpEqual = 34,
  OpNotEqual = 35,
  OpNot = 36,
  OpFunction = 40,
  OpLike = 50,
  OpIsNull = 51,
  OpSpatial = 60,
  // Only in programs with ExprOptions::allConditions.
  OpIn = 70,
  OpDistance = 71,
};

// One instruction. Copies are deep.
struct OpRec {
  std::int32_t op = 0;
  // The literal of OpPushLiteral; the name for OpPushFieldByName, the position for OpPushField; the
  // number of the function for OpFunction, of the FDO operation for OpSpatial and OpDistance; how many
  // values there are for OpIn; else null.
  Value value;
};

// What goes beyond the plain machine. Everything is off unless it is asked for.
struct ExprOptions {
  // Nothing refuses or traps:
  // - IN, LIKE and distance conditions work. LIKE matches whole texts, upper and lower case apart: % stands
  //   for any run of characters, _ for one, [abc] and [a-f] for one of those, [^abc] for any other one. What
  //   has no text (null, bytes) matches nothing. IN holds when the column equals one of the values. Within a
  //   distance is what comes as near as that or nearer, in the units of the coordinates; beyond is everything
  //   else that has a place. To a distance below 0 there is neither.
  // - Integer division and mod by zero give null; the least integer divided by -1 gives a double.
  // - x, y, z and m read geometry of columns and literals, too.
  // - What is not bytes, null among it, is no geometry and meets no spatial and no distance condition. An
  //   empty geometry is at no distance from anything, neither within nor beyond.
  // - A condition is not looked at when the others decide, so that what it would throw may not come.
  bool allConditions = false;
  // Null is unknown, as in SQL, and a number that is none (NaN) is null: a comparison, a spatial, a
  // distance, a LIKE or an IN condition with it is neither true nor false, but that nothing is IN a list
  // without values; NOT of unknown is unknown; AND and OR give what the other side decides, else unknown.
  // Arithmetic with null gives null, as do all functions but tostring, concat, if, lookup and todatetime. A
  // filter whose outcome is unknown gives false. The test for null is the same in both modes.
  bool nullIsUnknown = false;
  // Values of different kinds meet as in a SQL store. This turns the other two on.
  // - In comparisons and IN a text stands for the number that it is, blanks around it aside, beside a number
  //   or a flag; one that is no number makes the condition unknown. A text literal stands for a date beside a
  //   column of dates, in any of the forms "2024-03-01 14:30", "2024-03-01T14:30:05.5", "14:30:05".
  // - An integer and a double compare by their exact values.
  // - Flags calculate as 1 and 0. A sum, difference or product of integers beyond 64 bits is a double.
  //   Division by zero, of doubles too, gives null.
  bool sqlValues = false;

  // All of them: what filters mean to every back end.
  static constexpr ExprOptions AsInSql() { return {true, true, true}; }
};

// An ExprEval computes an FDO filter or expression over rows in memory.
//
//   ExprEval eval(filter, table.Def(), nullptr);
//   while (Row const* row = table.Next()) if (eval.Eval(row, nullptr)) Use(*row);
//
// The tree is compiled once into a program for a stack machine and not needed afterwards. The program can
// be printed; how the machine runs it, in larger steps or one by one, makes no difference to results,
// exceptions and fetched cells.
//
// What the tree cannot say is passed over: computed identifiers, parameters, sub-selects, BLOB and CLOB
// literals, missing children. A program that then does not come to exactly one value, an empty one and one
// that calls a function with a wrong number of arguments are not run: every row gives false and an
// undefined result.
//
// Deliberate, with the tests that pin it: AND and OR compute both sides (ExprEval.NoShortCircuit); dividing
// integers by zero ends the process (ExprEvalDeathTest.*); a double is never true
// (ExprEval.DoubleIsNeverTrue); values without an order are equal (ExprEval.UnorderedIsEqual); x, y, z and
// m of a column are 0.0 because the column's value is borrowed (ExprEvalOrdinates.BorrowedIsZero). Options
// change the first, second and last of these.
//
// Threads: one at a time for each object and for those assigned from each other; distinct objects are
// independent. The first object may be made on any thread.
class QUILLON_EXPORT ExprEval {
 public:
  // Identifiers are columns of the table, which the rows must have; without a table each is looked up in
  // the row by name. usedColumns, unless null, has a flag for each column of the table; those that the
  // expression uses become true and no other changes. A null filter or expression makes an empty program.
  // A date-time literal is its text ("2024-03-01", "14:30:05.500", "2024-03-01T14:30:05.500"; "" without
  // year and hour), and so are compared as text.
  // Borrowed: table and usedColumns, until the constructor returns.
  // Errors: throws std::exception: "Unknown function.", "Unexpected identifier encountered."; unless
  // options say otherwise "FdoInCondition not implemented yet for fdo::ExprEval." and "FdoDistanceCondition
  // not implemented yet for fdo::ExprEval."; with options "A sub-select cannot be evaluated."; "The
  // expression is nested too deeply." for trees of more than kMaxDepth levels, where a chain of ANDs, or of
  // ORs, is one level. What FDO's objects throw passes through.
  ExprEval(FdoFilter* filter, TableDef const* table, bool* usedColumns);
  ExprEval(FdoExpression* expression, TableDef const* table, bool* usedColumns);
  ExprEval(FdoFilter* filter, TableDef const* table, bool* usedColumns, ExprOptions const& options);
  ExprEval(FdoExpression* expression, TableDef const* table, bool* usedColumns, ExprOptions const& options);
  ~ExprEval();

  // Deliberate: program and stack are shared, not copied; the last of those that share them frees them
  // (ExprEval.AssignmentShares).
  ExprEval(ExprEval const& other) noexcept;
  ExprEval& operator=(ExprEval const& other) noexcept;

  // With a result: computes its value for the row, as an owned copy, and gives true; gives false and makes
  // the result undefined when the program does not come to one value. Without: gives whether that value
  // converts to true. A column that the row does not have, by name, is null, and so is every column of a
  // null row.
  // Errors: throws std::exception "\"Like\" not implemented yet for fdo::ExprEval." where LIKE is reached
  // without options; FdoException* for geometry that makes no sense, a null one included without options,
  // and what fetching a cell throws. Errors of the spatial operation itself count as false.
  // Requires: with a table given to the constructor, row has its columns.
  bool Eval(Row const* row, Value* result);

  // Whether the program comes to one value; if not, no row has one.
  bool IsComplete() const;

  // The program, a line for each instruction: "push 2, push field b, compare" reads
  //   OpPushLiteral      2
  //   OpPushField        1
  //   OpEqual
  // Text stands in single quotes, a flag is TRUE or FALSE, null NULL, bytes are X'..'; functions and spatial
  // operations have their name behind the number. With the table a field has its name there, too.
  std::wstring Listing(TableDef const* table = nullptr) const;

  // The columns that the program pushes by position, each once, in the order of their first use.
  std::vector<int> Columns() const;

  static constexpr int kMaxDepth = 255;
  // Entries of the smallest stack; a program that needs more gets more.
  static constexpr std::size_t kLeastStack = 16;

 private:
  friend class ExprEvalTestPeer;
  class QUILLON_LOCAL Machine;
  class QUILLON_LOCAL Condition;

  ExprEval(std::vector<OpRec> program, ExprOptions const& options, bool isFilter, bool callsFit);
  ExprEval(internal::CompiledTree&& compiled, ExprOptions const& options, bool isFilter);

  // Each works on the stack whose top element is at top, takes its operands off, and leaves its result.
  // Requires: the operands are there.
  //
  // The function of that number. concat passes over what has no text; lookup with an odd count has no value
  // for its last key and selects the default then, and gives null without a default.
  static void EvalFunction(OpRec const* op, Value*& top);
  // The row's geometry is on top.
  static void SpatialOp(OpRec const* op, Value*& top);
  // which: 35 x, 36 y, 37 z, 38 m. 0.0 for what is no point.
  static void xyzmFunc(int which, Value*& top);

  OpRec* ops_ = nullptr;        // the program, owned by machine_
  std::uint64_t count_ = 0;     // of instructions
  Value* stack_ = nullptr;      // owned by machine_
  Machine* machine_ = nullptr;  // counts those that share it
};

}  // namespace fdo

#endif  // FDO_EXPR_EVAL_H_
