// Random filters and expressions, and rows for them, for tests that hold two ways to evaluate against each
// other. The same seed gives the same trees and rows.
#ifndef TESTING_RANDOM_TREES_H_
#define TESTING_RANDOM_TREES_H_

#include <Fdo.h>
#include <fdo/row.h>
#include <fdo/schema.h>

#include <cstdint>
#include <random>

namespace fdo {

class RandomTrees {
 public:
  // What may be in a tree beyond columns, literals, arithmetic, comparisons, logic and functions.
  struct Contents {
    bool like = false;
    bool in = false;
    bool spatial = false;
    bool traps = false;  // division by anything; otherwise only by numbers that are neither 0 nor -1
    bool holes = false;  // now and then a parameter, which makes the whole tree worthless
  };

  RandomTrees(std::uint64_t seed, Contents const& contents) : random_(seed), contents_(contents) {}

  // Columns of every type that comparisons and functions treat differently.
  static TableDef const& Def();

  // Levels of nodes: at most that many and one for a literal or a column.
  FdoPtr<FdoFilter> Filter(int levels);
  FdoPtr<FdoExpression> Expression(int levels);

  // Fills every cell: with a value of its column's kind, and now and then with null, a value of another
  // kind or, where it is a number, one at the end of its range or none.
  void Fill(Row& row);

 private:
  int Below(int limit) { return static_cast<int>(random_() % static_cast<std::uint64_t>(limit)); }
  bool OneIn(int times) { return Below(times) == 0; }
  long long AnyInteger();
  double AnyDouble();
  wchar_t const* AnyText();
  Value AnyGeometry();
  FdoPtr<FdoIdentifier> Column();
  FdoPtr<FdoExpression> Literal();
  FdoPtr<FdoExpression> Divisor();
  FdoPtr<FdoExpression> Call(int levels);

  std::mt19937_64 random_;
  Contents contents_;
};

}  // namespace fdo

#endif  // TESTING_RANDOM_TREES_H_
