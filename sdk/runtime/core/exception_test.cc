#include <gtest/gtest.h>

#include <string>
#include <type_traits>

#include "Fdo.h"

namespace {

TEST(Exception, MessageIsTheNearestOneInTheChainOfCauses) {
  FdoPtr<FdoException> bare = FdoException::Create();
  EXPECT_EQ(bare->GetExceptionMessage(), nullptr);

  FdoPtr<FdoException> root = FdoException::Create(L"disk full", 28);
  FdoPtr<FdoException> silent = FdoCommandException::Create(nullptr, root);
  EXPECT_STREQ(silent->GetExceptionMessage(), L"disk full");
  EXPECT_STREQ(silent->ToString(), L"disk full");
  EXPECT_EQ(root->GetNativeErrorCode(), 28);
  EXPECT_EQ(silent->GetNativeErrorCode(), 0);

  FdoPtr<FdoException> outer = FdoConnectionException::Create(L"cannot write", silent, 5);
  EXPECT_STREQ(outer->GetExceptionMessage(), L"cannot write");
  FdoPtr<FdoException> cause = outer->GetCause();
  EXPECT_EQ(cause.p, silent.p);
  FdoPtr<FdoException> last = outer->GetRootCause();
  EXPECT_EQ(last.p, root.p);
}

TEST(Exception, CauseIsSharedAndGivenUpAgain) {
  FdoPtr<FdoException> cause = FdoException::Create(L"cause");
  {
    FdoPtr<FdoException> failure = FdoException::Create(L"failure", cause);
    EXPECT_EQ(cause.p->GetRefCount(), 2);
    failure->SetCause(nullptr);
    EXPECT_EQ(cause.p->GetRefCount(), 1);
    failure->SetCause(cause);
    FdoPtr<FdoException> none = cause->GetCause();
    EXPECT_EQ(none.p, nullptr);
  }
  EXPECT_EQ(cause.p->GetRefCount(), 1);
}

template <class Family>
class ExceptionFamily : public testing::Test {};
using Families = testing::Types<FdoClientServiceException, FdoConnectionException, FdoCommandException,
                                FdoSpatialContextMismatchException, FdoExpressionException,
                                FdoFilterException, FdoSchemaException, FdoAutogenerationException>;
TYPED_TEST_SUITE(ExceptionFamily, Families);

TYPED_TEST(ExceptionFamily, IsCaughtAsAPointerToTheBase) {
  try {
    throw TypeParam::Create(L"what went wrong");
  } catch (FdoException* caught) {
    FdoPtr<FdoException> failure(caught);
    EXPECT_STREQ(failure->GetExceptionMessage(), L"what went wrong");
    EXPECT_NE(dynamic_cast<TypeParam*>(failure.p), nullptr);
  }
}

static_assert(std::is_base_of_v<FdoSchemaException, FdoAutogenerationException>);

}  // namespace
