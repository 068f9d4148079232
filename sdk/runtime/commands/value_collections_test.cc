#include <gtest/gtest.h>

#include "Fdo.h"
#include "sdk/runtime/thrown.h"

namespace fdo_sdk {
namespace {

TEST(PropertyValue, SharesWhatItIsGiven) {
  FdoPtr<FdoIdentifier> name = FdoIdentifier::Create(L"Name");
  FdoPtr<FdoStringValue> value = FdoStringValue::Create(L"High Street");
  FdoPtr<FdoPropertyValue> pair = FdoPropertyValue::Create(name, value);
  EXPECT_EQ(FdoPtr<FdoIdentifier>(pair->GetName()).p, name.p);
  EXPECT_EQ(FdoPtr<FdoValueExpression>(pair->GetValue()).p, static_cast<FdoValueExpression*>(value.p));
  EXPECT_EQ(name->GetRefCount(), 2);
  pair->SetName(L"Title");
  pair->SetValue(static_cast<FdoValueExpression*>(nullptr));
  EXPECT_EQ(name->GetRefCount(), 1);
  EXPECT_EQ(value->GetRefCount(), 1);
  EXPECT_STREQ(FdoPtr<FdoIdentifier>(pair->GetName())->GetText(), L"Title");
  EXPECT_EQ(pair->GetValue(), nullptr);
}

TEST(PropertyValue, IsEmptyAtFirst) {
  FdoPtr<FdoPropertyValue> empty = FdoPropertyValue::Create();
  EXPECT_EQ(empty->GetName(), nullptr);
  EXPECT_EQ(empty->GetValue(), nullptr);
  EXPECT_EQ(empty->GetStreamReader(), nullptr);
  FdoPtr<FdoPropertyValue> valueless = FdoPropertyValue::Create(L"Name", nullptr);
  EXPECT_EQ(valueless->GetValue(), nullptr);
}

TEST(PropertyValue, TextIsParsedAsAValue) {
  FdoPtr<FdoPropertyValue> pair = FdoPropertyValue::Create(L"Lanes", nullptr);
  pair->SetValue(L"12");
  FdoPtr<FdoValueExpression> value = pair->GetValue();
  ASSERT_NE(dynamic_cast<FdoInt32Value*>(value.p), nullptr);
  pair->SetValue(L"-12");
  value = pair->GetValue();
  ASSERT_NE(dynamic_cast<FdoInt32Value*>(value.p), nullptr);
  EXPECT_EQ(dynamic_cast<FdoInt32Value*>(value.p)->GetInt32(), -12);
  pair->SetValue(L":p");
  value = pair->GetValue();
  EXPECT_NE(dynamic_cast<FdoParameter*>(value.p), nullptr);
  MessageThrownBy<FdoCommandException>([&] { pair->SetValue(L"Width + 1"); });
  MessageThrownBy<FdoExpressionException>([&] { pair->SetValue(L"'open"); });
  EXPECT_EQ(FdoPtr<FdoValueExpression>(pair->GetValue()).p, value.p);
  EXPECT_EQ(value->GetRefCount(), 2);
  pair->SetValue(static_cast<FdoString*>(nullptr));
  EXPECT_EQ(pair->GetValue(), nullptr);
}

TEST(PropertyValue, TakesAReaderOfALargeValue) {
  FdoPtr<FdoIoMemoryStream> stream = FdoIoMemoryStream::Create();
  FdoPtr<FdoIStreamReader> reader = FdoIoByteStreamReader::Create(stream);
  FdoPtr<FdoPropertyValue> pair = FdoPropertyValue::Create();
  pair->SetStreamReader(reader);
  EXPECT_EQ(FdoPtr<FdoIStreamReader>(pair->GetStreamReader()).p, reader.p);
}

TEST(PropertyValues, AreFoundByName) {
  FdoPtr<FdoPropertyValueCollection> values = FdoPropertyValueCollection::Create();
  FdoPtr<FdoPropertyValue> nameless = FdoPropertyValue::Create();
  FdoPtr<FdoPropertyValue> lanes = FdoPropertyValue::Create(L"Lanes", nullptr);
  values->Add(nameless);
  values->Add(lanes);
  EXPECT_EQ(FdoPtr<FdoPropertyValue>(values->FindItem(L"Lanes")).p, lanes.p);
  EXPECT_EQ(FdoPtr<FdoPropertyValue>(values->GetItem(L"Lanes")).p, lanes.p);
  EXPECT_EQ(FdoPtr<FdoPropertyValue>(values->GetItem(0)).p, nameless.p);
  EXPECT_EQ(values->FindItem(L"lanes"), nullptr);
  EXPECT_EQ(values->FindItem(nullptr), nullptr);
  std::wstring const message = MessageThrownBy<FdoCommandException>([&] { values->GetItem(L"Width"); });
  EXPECT_NE(message.find(L"Width"), std::wstring::npos);
  MessageThrownBy<FdoCommandException>([&] { values->GetItem(2); });
  MessageThrownBy<FdoCommandException>([&] { values->GetItem(-1); });
  MessageThrownBy<FdoCommandException>([&] { values->RemoveAt(2); });
  MessageThrownBy<FdoCommandException>([&] { values->Insert(3, lanes); });
  EXPECT_EQ(lanes->GetRefCount(), 2);
}

TEST(ParameterValues, AreFoundByName) {
  FdoPtr<FdoParameterValueCollection> values = FdoParameterValueCollection::Create();
  FdoPtr<FdoParameterValue> from = FdoParameterValue::Create(L"from");
  FdoPtr<FdoParameterValue> to = FdoParameterValue::Create(L"to");
  values->Add(from);
  values->Add(to);
  EXPECT_EQ(FdoPtr<FdoParameterValue>(values->FindItem(L"to")).p, to.p);
  EXPECT_EQ(FdoPtr<FdoParameterValue>(values->GetItem(L"from")).p, from.p);
  EXPECT_EQ(FdoPtr<FdoParameterValue>(values->GetItem(1)).p, to.p);
  EXPECT_EQ(values->FindItem(L"none"), nullptr);
  MessageThrownBy<FdoCommandException>([&] { values->GetItem(L"none"); });
  MessageThrownBy<FdoCommandException>([&] { values->GetItem(2); });
}

TEST(ParameterValue, KeepsWhatIsSet) {
  FdoPtr<FdoStringValue> value = FdoStringValue::Create(L"x");
  FdoPtr<FdoParameterValue> parameter = FdoParameterValue::Create(L"p", value);
  EXPECT_EQ(parameter->GetDirection(), FdoParameterDirection_Input);
  parameter->SetDirection(FdoParameterDirection_Return);
  EXPECT_EQ(parameter->GetDirection(), FdoParameterDirection_Return);
  EXPECT_STREQ(parameter->GetName(), L"p");
  EXPECT_EQ(FdoPtr<FdoLiteralValue>(parameter->GetValue()).p, static_cast<FdoLiteralValue*>(value.p));
  parameter->SetValue(L"'y'");
  EXPECT_EQ(value->GetRefCount(), 1);
  MessageThrownBy<FdoCommandException>([&] { parameter->SetValue(L":other"); });
  FdoPtr<FdoParameterValue> empty = FdoParameterValue::Create();
  EXPECT_STREQ(empty->GetName(), L"");
  EXPECT_EQ(empty->GetValue(), nullptr);
}

TEST(BatchParameterValues, HoldOneListForEachRun) {
  FdoPtr<FdoBatchParameterValueCollection> batch = FdoBatchParameterValueCollection::Create();
  FdoPtr<FdoParameterValueCollection> first = FdoParameterValueCollection::Create();
  batch->Add(first);
  EXPECT_EQ(FdoPtr<FdoParameterValueCollection>(batch->GetItem(0)).p, first.p);
  MessageThrownBy<FdoCommandException>([&] { batch->GetItem(1); });
}

}  // namespace
}  // namespace fdo_sdk
