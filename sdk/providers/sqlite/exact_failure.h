// Failures of a store: what they say, and that nothing of them stays in memory.
#ifndef SDK_PROVIDERS_SQLITE_EXACT_FAILURE_H_
#define SDK_PROVIDERS_SQLITE_EXACT_FAILURE_H_

#include <gtest/gtest.h>

#include <string>

#include "port/live_allocations.h"
#include "sdk/providers/sqlite/row_commands.h"
#include "sdk/runtime/core/utf8.h"
#include "sdk/runtime/thrown.h"

namespace fdo_sqlite {

// A test that gives back all memory by its end. Connections keep statements for their next use, so the end of
// the test is where to count.
class NothingLeaks : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    // What is made once in a program, or once for each thread.
    SCOPED_TRACE("first use");
    TestStore store;
    FdoPtr<Connection> connection(new Connection());
    FdoPtr<FdoICreateDataStore> create =
        Make<FdoICreateDataStore>(connection, FdoCommandType_CreateDataStore);
    FdoPtr<FdoIDataStorePropertyDictionary> properties = create->GetDataStoreProperties();
    properties->SetProperty(L"File", store.File().c_str());
    create->Execute();
    connection = store.Open();
    Apply(connection, SchemaOf({ClassOf(L"Places", {Data(L"Id", FdoDataType_Int64), Geometry(L"Shape")})}));
    FdoPtr<FdoIInsert> insert = MakeInsertInto(connection, L"Places");
    GiveText(insert, L"Shape", L"GeomFromText('POINT (1 1)')");
    FdoPtr<FdoIFeatureReader>(insert->Execute())->Close();
    FdoPtr<FdoISelect> select =
        MakeSelectOf(connection, L"Places", L"Shape ENVELOPEINTERSECTS GeomFromText('POINT (1 1)')");
    EXPECT_TRUE(FdoPtr<FdoIFeatureReader>(select->Execute())->ReadNext());
    fdo_sdk::MessageThrownBy<FdoException>([] { TestStore().Open(); });
  }

  ~NothingLeaks() override {
    if (IsSkipped()) return;  // and why is kept
    EXPECT_EQ(fdo::port::LiveAllocations(), before_) << "something leaks";
  }

 private:
  long long const before_ = fdo::port::LiveAllocations();
};

// The message of the exception that the body throws, in UTF-8. The test fails when it throws nothing, or when
// the message does not name the file store.sqlite.
template <class Exception, class Body>
std::string FailureOf(Body body) {
  std::string const message = fdo_sdk::Utf8FromWide(fdo_sdk::MessageThrownBy<Exception>(body));
  EXPECT_NE(message.find("store.sqlite"), std::string::npos) << message;
  return message;
}

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_EXACT_FAILURE_H_
