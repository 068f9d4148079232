#include <gtest/gtest.h>

#include "Fdo.h"
#include "port/live_allocations.h"

namespace {

FdoPtr<FdoExpression> Call(FdoExpressionCollection* arguments) {
  return FdoPtr<FdoExpression>(FdoFunction::Create(L"f", arguments));
}

// The end of a tree comes where an exception for want of memory would end the process.
TEST(DeferredDeletion, NeedsNoMemory) {
  FdoPtr<FdoExpressionCollection>(FdoExpressionCollection::Create());  // what is kept from the first use on
  long long const before = fdo::port::LiveAllocations();
  FdoPtr<FdoExpressionCollection> arguments = FdoExpressionCollection::Create();
  FdoPtr<FdoExpressionCollection> none = FdoExpressionCollection::Create();
  for (int i = 0; i < 40; ++i) arguments->Add(Call(none));
  FdoPtr<FdoExpression> tree = Call(arguments);
  arguments = nullptr;
  fdo::port::FailAllocation(1);
  tree = nullptr;
  EXPECT_TRUE(fdo::port::FailAllocation(0)) << "so many wait that a list of them was wanted";
  none = nullptr;
  EXPECT_EQ(fdo::port::LiveAllocations(), before);
}

}  // namespace
