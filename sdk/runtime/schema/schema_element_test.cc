#include <gtest/gtest.h>

#include "Fdo.h"
#include "sdk/runtime/thrown.h"

namespace fdo_sdk {
namespace {

TEST(SchemaName, ColonAndPeriodAreRefused) {
  struct Case {
    FdoString* name;
    bool accepted;
  };
  Case const cases[] = {
      {L"Street", true}, {L"Main Street", true}, {L"Stra\u00DFe", true}, {L"1st", true},
      {L"", true},       {L"a\"b'c", true},      {L"a:b", false},        {L"a.b", false},
      {L":", false},     {L"end.", false},       {L".start", false},
  };
  for (Case const& c : cases) {
    FdoPtr<FdoClass> named = FdoClass::Create(L"Old", nullptr);
    if (c.accepted) {
      named->SetName(c.name);
      EXPECT_STREQ(named->GetName(), c.name);
      FdoPtr<FdoClass> made = FdoClass::Create(c.name, nullptr);
      EXPECT_STREQ(made->GetName(), c.name);
    } else {
      std::wstring const message = MessageThrownBy<FdoSchemaException>([&] { named->SetName(c.name); });
      EXPECT_NE(message.find(c.name), std::wstring::npos);
      EXPECT_STREQ(named->GetName(), L"Old");
      MessageThrownBy<FdoSchemaException>([&] { FdoClass::Create(c.name, nullptr); });
    }
  }
}

TEST(SchemaElement, TextsAreNeverNull) {
  FdoPtr<FdoFeatureSchema> unnamed = FdoFeatureSchema::Create();
  EXPECT_STREQ(unnamed->GetName(), L"");
  EXPECT_STREQ(unnamed->GetDescription(), L"");
  FdoPtr<FdoFeatureSchema> undescribed = FdoFeatureSchema::Create(L"Roads", nullptr);
  EXPECT_STREQ(undescribed->GetDescription(), L"");
  undescribed->SetDescription(L"All roads");
  EXPECT_STREQ(undescribed->GetDescription(), L"All roads");
  EXPECT_TRUE(undescribed->CanSetName());
}

TEST(SchemaElement, QualifiedNamesFollowTheParents) {
  FdoPtr<FdoFeatureSchema> schema = FdoFeatureSchema::Create(L"Roads", nullptr);
  FdoPtr<FdoFeatureClass> street = FdoFeatureClass::Create(L"Street", nullptr);
  FdoPtr<FdoDataPropertyDefinition> name = FdoDataPropertyDefinition::Create(L"Name", nullptr);
  EXPECT_STREQ(name->GetQualifiedName(), L"Name");
  FdoPtr<FdoPropertyDefinitionCollection>(street->GetProperties())->Add(name);
  EXPECT_STREQ(name->GetQualifiedName(), L"Street.Name");
  EXPECT_STREQ(street->GetQualifiedName(), L"Street");
  FdoPtr<FdoClassCollection>(schema->GetClasses())->Add(street);
  EXPECT_STREQ(name->GetQualifiedName(), L"Roads:Street.Name");
  EXPECT_STREQ(street->GetQualifiedName(), L"Roads:Street");
  EXPECT_STREQ(schema->GetQualifiedName(), L"Roads");
}

TEST(SchemaElement, TheSchemaIsFoundFromEveryDepth) {
  FdoPtr<FdoFeatureSchema> schema = FdoFeatureSchema::Create(L"Roads", nullptr);
  FdoPtr<FdoClass> street = FdoClass::Create(L"Street", nullptr);
  FdoPtr<FdoDataPropertyDefinition> name = FdoDataPropertyDefinition::Create(L"Name", nullptr);
  EXPECT_EQ(name->GetFeatureSchema(), nullptr);
  EXPECT_EQ(name->GetParent(), nullptr);
  FdoPtr<FdoPropertyDefinitionCollection>(street->GetProperties())->Add(name);
  FdoPtr<FdoClassCollection>(schema->GetClasses())->Add(street);
  FdoPtr<FdoFeatureSchema> fromProperty = name->GetFeatureSchema();
  FdoPtr<FdoFeatureSchema> fromClass = street->GetFeatureSchema();
  FdoPtr<FdoFeatureSchema> fromSchema = schema->GetFeatureSchema();
  EXPECT_EQ(fromProperty.p, schema.p);
  EXPECT_EQ(fromClass.p, schema.p);
  EXPECT_EQ(fromSchema.p, schema.p);
  EXPECT_EQ(schema->GetRefCount(), 4);
}

TEST(SchemaElement, OutlivesItsParent) {
  FdoPtr<FdoClass> street = FdoClass::Create(L"Street", nullptr);
  FdoPtr<FdoPropertyDefinitionCollection> properties = street->GetProperties();
  FdoPtr<FdoDataPropertyDefinition> name = FdoDataPropertyDefinition::Create(L"Name", nullptr);
  FdoPtr<FdoSchemaAttributeDictionary> attributes = street->GetAttributes();
  properties->Add(name);
  street = nullptr;
  EXPECT_EQ(name->GetParent(), nullptr);
  attributes->Add(L"a", L"b");
  name->SetName(L"Title");
  properties->Clear();
  EXPECT_EQ(name->GetRefCount(), 1);
}

TEST(SchemaAttributes, KeepTheirOrderAndRefuseDuplicates) {
  FdoPtr<FdoClass> street = FdoClass::Create(L"Street", nullptr);
  FdoPtr<FdoSchemaAttributeDictionary> attributes = street->GetAttributes();
  attributes->Add(L"z", L"1");
  attributes->Add(L"a", L"2");
  FdoInt32 length = -1;
  FdoString** names = attributes->GetAttributeNames(length);
  ASSERT_EQ(length, 2);
  EXPECT_STREQ(names[0], L"z");
  EXPECT_STREQ(names[1], L"a");
  attributes->SetAttributeValue(L"z", L"3");
  EXPECT_STREQ(attributes->GetAttributeValue(L"z"), L"3");
  MessageThrownBy<FdoSchemaException>([&] { attributes->Add(L"a", L"x"); });
  MessageThrownBy<FdoSchemaException>([&] { attributes->Add(nullptr, L"x"); });
  MessageThrownBy<FdoSchemaException>([&] { attributes->Add(L"", L"x"); });
  MessageThrownBy<FdoSchemaException>([&] { attributes->Remove(L"b"); });
  MessageThrownBy<FdoSchemaException>([&] { attributes->GetAttributeValue(L"b"); });
  MessageThrownBy<FdoSchemaException>([&] { attributes->SetAttributeValue(L"b", L"x"); });
  attributes->Remove(L"z");
  EXPECT_FALSE(attributes->ContainsAttribute(L"z"));
  EXPECT_TRUE(attributes->ContainsAttribute(L"a"));
  EXPECT_FALSE(attributes->ContainsAttribute(nullptr));
  attributes->Clear();
  EXPECT_EQ(attributes->GetCount(), 0);
}

}  // namespace
}  // namespace fdo_sdk
