// Features that an insert command takes in one call each.
#include "sdk/extensions/direct_insert.h"

#include <gtest/gtest.h>

#include <vector>

#include "sdk/providers/sqlite/row_commands.h"
#include "sdk/runtime/thrown.h"

namespace fdo_sqlite {
namespace {

using fdo_sdk::DirectKind;
using fdo_sdk::DirectValue;
using fdo_sdk::MessageThrownBy;

DirectValue Nothing(DirectKind kind = DirectKind::kNull) {
  DirectValue value{};
  value.kind = kind;
  return value;
}
DirectValue Number(std::int64_t number) {
  DirectValue value = Nothing(DirectKind::kInteger);
  value.cell.integer = number;
  return value;
}
DirectValue Text(FdoString* text) {
  DirectValue value = Nothing(DirectKind::kText);
  value.cell.text = text;
  return value;
}

class DirectInserts : public testing::Test {
 protected:
  DirectInserts() {
    store_.Run(
        "CREATE TABLE town (id INTEGER PRIMARY KEY, name TEXT NOT NULL, people INT DEFAULT 5);"
        "CREATE TABLE coded (code TEXT PRIMARY KEY, n INT)");
    connection_ = OpenQuickly(store_);
  }

  FdoPtr<FdoIInsert> Into(FdoString* className,
                          std::vector<std::pair<FdoString*, FdoValueExpression*>> values) {
    FdoPtr<FdoIInsert> insert = MakeInsertInto(connection_, className);
    for (auto const& [name, value] : values) {
      FdoPtr<FdoValueExpression> const owned(value);
      Give(insert, name, owned);
    }
    return insert;
  }

  static bool Execute(FdoIInsert* insert, std::vector<DirectValue> const& values,
                      FdoIFeatureReader** inserted = nullptr) {
    return dynamic_cast<fdo_sdk::DirectInsert&>(*insert).ExecuteWith(values.data(), inserted);
  }

  TestStore store_;
  FdoPtr<Connection> connection_;
};

TEST_F(DirectInserts, ShareTheBatchOfTheirCommandAndGiveItsReaders) {
  FdoPtr<FdoIInsert> insert =
      Into(L"town", {{L"name", FdoStringValue::Create(L"by value")}, {L"people", FdoInt32Value::Create(1)}});
  FdoPtr<FdoIFeatureReader> reader;
  EXPECT_TRUE(Execute(insert, {Text(L"Ulm"), Number(7)}, &reader.p));
  ASSERT_TRUE(reader->ReadNext());
  EXPECT_EQ(reader->GetInt64(L"id"), 1);
  EXPECT_TRUE(Execute(insert, {Text(L"Bern"), Nothing()}));
  FdoPtr<FdoIFeatureReader>(insert->Execute());
  EXPECT_TRUE(Execute(insert, {Text(L"Graz"), Number(9)}));
  EXPECT_EQ(MessageThrownBy<FdoCommandException>([&] {
              Execute(insert, {Nothing(), Number(1)});
            }),
            MessageThrownBy<FdoCommandException>([&] {
              Into(L"town", {{L"name", FdoStringValue::Create()}, {L"people", FdoInt32Value::Create(1)}})
                  ->Execute();
            }));
  EXPECT_EQ(store_.Rows("SELECT count(*) FROM town"), "4") << "those before the other command";
  insert = nullptr;
  EXPECT_EQ(store_.Rows("SELECT name, people FROM town ORDER BY id"), "Ulm|7;Bern|NULL;by value|1;Graz|9");
}

TEST_F(DirectInserts, FollowTheCollectionAndTheClass) {
  FdoPtr<FdoIInsert> insert = Into(L"town", {{L"name", FdoStringValue::Create(L"x")}, {L"people", nullptr}});
  EXPECT_TRUE(Execute(insert, {Text(L"Ulm"), Nothing(DirectKind::kNone)}));
  Give(insert, L"id", FdoPtr<FdoInt64Value>(FdoInt64Value::Create()));
  EXPECT_TRUE(Execute(insert, {Text(L"Bern"), Nothing(DirectKind::kNone), Number(40)}));
  EXPECT_TRUE(Execute(insert, {Text(L"Graz"), Nothing(DirectKind::kNone), Nothing()}));
  FdoPtr<FdoPropertyValueCollection>(insert->GetPropertyValues())->Clear();
  insert->SetFeatureClassName(L"coded");
  Give(insert, L"code", FdoPtr<FdoStringValue>(FdoStringValue::Create()));
  FdoPtr<FdoIFeatureReader> reader;
  EXPECT_TRUE(Execute(insert, {Text(L"K1")}, &reader.p));
  ASSERT_TRUE(reader->ReadNext());
  EXPECT_STREQ(reader->GetString(L"code"), L"K1");
  EXPECT_TRUE(Execute(insert, {Text(L"K2")}));
  EXPECT_EQ(MessageThrownBy<FdoCommandException>([&] { Execute(insert, {Nothing()}); }),
            L"The property \"code\" cannot hold the value: an identity is never null.");
  reader = nullptr;
  insert = nullptr;
  EXPECT_EQ(store_.Rows("SELECT id, name, people FROM town"), "1|Ulm|5;40|Bern|5;41|Graz|5");
  EXPECT_EQ(store_.Rows("SELECT group_concat(code) FROM coded"), "K1,K2");
}

TEST_F(DirectInserts, AreLeftToTheValuesWhereThoseMustBeConverted) {
  FdoPtr<FdoParameter> const parameter = FdoParameter::Create(L"name");
  FdoPtr<FdoIInsert> const inserts[] = {
      Into(L"town", {{L"name", FdoInt32Value::Create(12)}}),
      Into(L"town", {{L"name", FDO_SAFE_ADDREF(parameter.p)}}),
      Into(L"town", {{L"name", FdoGeometryValue::Create()}}),
  };
  for (FdoPtr<FdoIInsert> const& insert : inserts) {
    EXPECT_FALSE(Execute(insert.p, {Number(12)}));
    // Nothing is left behind, not even a lock.
    store_.Run("DELETE FROM town");
  }
  FdoPtr<FdoIFeatureReader>(inserts[0].p->Execute());
  EXPECT_FALSE(Execute(inserts[0].p, {Number(12)})) << "nor is a batch ended that has begun";
  EXPECT_EQ(store_.Rows("SELECT count(*) FROM town"), "0");
  connection_->Flush();
  EXPECT_EQ(store_.Rows("SELECT name FROM town"), "12");
}

TEST_F(DirectInserts, AreRefusedAsExecuteIs) {
  auto const refusals = [&](FdoIInsert* insert) {
    std::wstring const direct = MessageThrownBy<FdoCommandException>([&] { Execute(insert, {Text(L"x")}); });
    EXPECT_EQ(direct, MessageThrownBy<FdoCommandException>([&] { insert->Execute(); }));
    return direct;
  };
  FdoPtr<FdoIInsert> insert = Into(L"town", {{L"mayor", FdoStringValue::Create(L"x")}});
  EXPECT_EQ(refusals(insert), L"The class \"town\" has no property \"mayor\".");
  insert = Into(L"village", {{L"name", FdoStringValue::Create(L"x")}});
  EXPECT_NE(refusals(insert).find(L"village"), std::wstring::npos);
  insert = Into(L"town", {{L"name", FdoStringValue::Create(L"x")}});
  FdoPtr<FdoBatchParameterValueCollection>(insert->GetBatchParameterValues())
      ->Add(FdoPtr<FdoParameterValueCollection>(FdoParameterValueCollection::Create()));
  EXPECT_EQ(refusals(insert), L"The SQLite provider inserts one feature at a time.");
  connection_->Close();
  insert = Into(L"town", {{L"name", FdoStringValue::Create(L"x")}});
  EXPECT_EQ(refusals(insert), L"The connection is not open.");
}

}  // namespace
}  // namespace fdo_sqlite
