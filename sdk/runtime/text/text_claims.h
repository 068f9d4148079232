// What the tests of texts claim, for filters and expressions alike: what a text becomes, or why it is
// refused.
#ifndef SDK_RUNTIME_TEXT_TEXT_CLAIMS_H_
#define SDK_RUNTIME_TEXT_TEXT_CLAIMS_H_

#include <gtest/gtest.h>

#include <string>

#include "Fdo.h"
#include "sdk/runtime/text/tree_shape.h"

namespace fdo_sdk {

struct TextRow {
  wchar_t const* text;     // what is parsed
  char const* shape;       // the tree
  wchar_t const* written;  // what the tree writes
};

// Node: FdoFilter or FdoExpression.
template <class Node>
void ExpectTree(TextRow const& row) {
  SCOPED_TRACE(static_cast<char const*>(FdoStringP(row.text)));
  try {
    FdoPtr<Node> tree = Node::Parse(row.text);
    EXPECT_EQ(ShapeOf(tree), row.shape);
    EXPECT_STREQ(tree->ToString(), row.written);
    FdoPtr<Node> again = Node::Parse(row.written);
    EXPECT_EQ(ShapeOf(again), row.shape);
  } catch (FdoException* caught) {
    FdoPtr<FdoException> failure(caught);
    ADD_FAILURE() << static_cast<char const*>(FdoStringP(failure->GetExceptionMessage()));
  }
}

struct TextRefusal {
  wchar_t const* text;
  char const* message;
};

// Failure: the exception that Node's Parse throws.
template <class Node, class Failure>
void ExpectRefusal(TextRefusal const& row) {
  SCOPED_TRACE(static_cast<char const*>(FdoStringP(row.text)));
  try {
    FdoPtr<Node> tree = Node::Parse(row.text);
    ADD_FAILURE() << ShapeOf(tree);
  } catch (Failure* caught) {
    FdoPtr<FdoException> failure(caught);
    EXPECT_EQ(std::string(static_cast<char const*>(FdoStringP(failure->GetExceptionMessage()))), row.message);
  }
}

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_TEXT_TEXT_CLAIMS_H_
