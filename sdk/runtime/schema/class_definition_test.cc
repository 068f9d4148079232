#include <gtest/gtest.h>

#include "Fdo.h"
#include "sdk/runtime/thrown.h"

namespace fdo_sdk {
namespace {

FdoPtr<FdoFeatureClass> ClassWith(FdoString* name, FdoString* property) {
  FdoPtr<FdoFeatureClass> made = FdoFeatureClass::Create(name, nullptr);
  FdoPtr<FdoDataPropertyDefinition> data = FdoDataPropertyDefinition::Create(property, nullptr);
  FdoPtr<FdoPropertyDefinitionCollection>(made->GetProperties())->Add(data);
  return made;
}

TEST(ClassDefinition, TellsItsType) {
  EXPECT_EQ(FdoPtr<FdoClass>(FdoClass::Create())->GetClassType(), FdoClassType_Class);
  EXPECT_EQ(FdoPtr<FdoFeatureClass>(FdoFeatureClass::Create())->GetClassType(), FdoClassType_FeatureClass);
}

TEST(ClassDefinition, BasePropertiesComeFromTheOutermostBaseFirst) {
  FdoPtr<FdoFeatureClass> way = ClassWith(L"Way", L"Length");
  FdoPtr<FdoFeatureClass> road = ClassWith(L"Road", L"Lanes");
  FdoPtr<FdoFeatureClass> street = ClassWith(L"Street", L"Name");
  road->SetBaseClass(way);
  street->SetBaseClass(road);
  FdoPtr<FdoReadOnlyPropertyDefinitionCollection> base = street->GetBaseProperties();
  ASSERT_EQ(base->GetCount(), 2);
  EXPECT_STREQ(FdoPtr<FdoPropertyDefinition>(base->GetItem(0))->GetName(), L"Length");
  EXPECT_STREQ(FdoPtr<FdoPropertyDefinition>(base->GetItem(1))->GetName(), L"Lanes");
  FdoPtr<FdoPropertyDefinition> lanes = base->GetItem(L"Lanes");
  EXPECT_EQ(base->IndexOf(lanes.p), 1);
  EXPECT_TRUE(base->Contains(lanes.p));
  MessageThrownBy<FdoSchemaException>([&] { base->GetItem(L"Name"); });
  MessageThrownBy<FdoException>([&] { base->GetItem(2); });
}

TEST(ClassDefinition, BasePropertiesThatAreSetReplaceThoseOfTheBaseClass) {
  FdoPtr<FdoFeatureClass> way = ClassWith(L"Way", L"Length");
  FdoPtr<FdoFeatureClass> street = ClassWith(L"Street", L"Name");
  street->SetBaseClass(way);
  FdoPtr<FdoPropertyDefinitionCollection> system = FdoPropertyDefinitionCollection::Create(nullptr);
  system->Add(
      FdoPtr<FdoDataPropertyDefinition>(FdoDataPropertyDefinition::Create(L"Revision", nullptr, true)));
  street->SetBaseProperties(system);
  FdoPtr<FdoReadOnlyPropertyDefinitionCollection> base = street->GetBaseProperties();
  ASSERT_EQ(base->GetCount(), 1);
  EXPECT_TRUE(FdoPtr<FdoPropertyDefinition>(base->GetItem(0))->GetIsSystem());
}

TEST(ClassDefinition, IdentityComesFromTheNearestBaseThatHasOne) {
  FdoPtr<FdoFeatureClass> way = ClassWith(L"Way", L"Length");
  FdoPtr<FdoFeatureClass> road = ClassWith(L"Road", L"Lanes");
  FdoPtr<FdoFeatureClass> street = ClassWith(L"Street", L"Name");
  road->SetBaseClass(way);
  street->SetBaseClass(road);
  FdoPtr<FdoReadOnlyDataPropertyDefinitionCollection> none = street->GetBaseIdentityProperties();
  EXPECT_EQ(none->GetCount(), 0);
  FdoPtr<FdoDataPropertyDefinition> id = FdoDataPropertyDefinition::Create(L"Id", nullptr);
  FdoPtr<FdoDataPropertyDefinitionCollection>(way->GetIdentityProperties())->Add(id);
  FdoPtr<FdoReadOnlyDataPropertyDefinitionCollection> inherited = street->GetBaseIdentityProperties();
  ASSERT_EQ(inherited->GetCount(), 1);
  EXPECT_EQ(FdoPtr<FdoDataPropertyDefinition>(inherited->GetItem(L"Id")).p, id.p);
}

TEST(ClassDefinition, CannotDeriveFromItself) {
  FdoPtr<FdoFeatureClass> way = ClassWith(L"Way", L"Length");
  FdoPtr<FdoFeatureClass> road = ClassWith(L"Road", L"Lanes");
  road->SetBaseClass(way);
  MessageThrownBy<FdoSchemaException>([&] { way->SetBaseClass(way); });
  MessageThrownBy<FdoSchemaException>([&] { way->SetBaseClass(road); });
  EXPECT_EQ(way->GetBaseClass(), nullptr);
  EXPECT_EQ(way->GetRefCount(), 2);
  road->SetBaseClass(nullptr);
  EXPECT_EQ(way->GetRefCount(), 1);
}

TEST(FeatureClass, TheGeometryMustBeAPropertyOfTheClass) {
  FdoPtr<FdoFeatureClass> way = ClassWith(L"Way", L"Length");
  FdoPtr<FdoGeometricPropertyDefinition> shape = FdoGeometricPropertyDefinition::Create(L"Shape", nullptr);
  std::wstring const message = MessageThrownBy<FdoSchemaException>([&] { way->SetGeometryProperty(shape); });
  EXPECT_NE(message.find(L"Shape"), std::wstring::npos);
  EXPECT_EQ(way->GetGeometryProperty(), nullptr);
  FdoPtr<FdoPropertyDefinitionCollection> properties = way->GetProperties();
  properties->Add(shape);
  way->SetGeometryProperty(shape);
  EXPECT_EQ(FdoPtr<FdoGeometricPropertyDefinition>(way->GetGeometryProperty()).p, shape.p);

  FdoPtr<FdoFeatureClass> road = ClassWith(L"Road", L"Lanes");
  road->SetBaseClass(way);
  EXPECT_EQ(FdoPtr<FdoGeometricPropertyDefinition>(road->GetGeometryProperty()).p, shape.p);
  road->SetGeometryProperty(shape);

  properties->Remove(shape.p);
  EXPECT_EQ(way->GetGeometryProperty(), nullptr);
}

TEST(ClassCapabilities, BelongToOneClass) {
  FdoPtr<FdoClass> street = FdoClass::Create(L"Street", nullptr);
  FdoPtr<FdoClass> path = FdoClass::Create(L"Path", nullptr);
  EXPECT_EQ(street->GetCapabilities(), nullptr);
  FdoPtr<FdoClassCapabilities> capabilities = FdoClassCapabilities::Create(*street);
  MessageThrownBy<FdoSchemaException>([&] { path->SetCapabilities(capabilities); });
  street->SetCapabilities(capabilities);
  EXPECT_EQ(street->GetRefCount(), 1);
  EXPECT_EQ(FdoPtr<FdoClassDefinition>(capabilities->GetParent()).p, street.p);
  street = nullptr;
  EXPECT_EQ(capabilities->GetParent(), nullptr);
  EXPECT_EQ(capabilities->GetRefCount(), 1);
}

TEST(ClassCapabilities, KeepWhatIsSetForEachGeometry) {
  FdoPtr<FdoClass> street = FdoClass::Create(L"Street", nullptr);
  FdoPtr<FdoClassCapabilities> capabilities = FdoClassCapabilities::Create(*street);
  FdoLockType const locks[] = {FdoLockType_Shared, FdoLockType_Exclusive};
  capabilities->SetLockTypes(locks, 2);
  capabilities->SetSupportsLocking(true);
  capabilities->SetSupportsLongTransactions(true);
  capabilities->SetSupportsWrite(false);
  capabilities->SetPolygonVertexOrderRule(L"Shape", FdoPolygonVertexOrderRule_CW);
  capabilities->SetPolygonVertexOrderStrictness(L"Shape", true);
  FdoPtr<FdoClassCapabilities> copy = FdoClassCapabilities::Create(*street);
  EXPECT_TRUE(copy->SupportsWrite());
  copy->Set(capabilities);
  FdoInt32 size = 0;
  FdoLockType* types = copy->GetLockTypes(size);
  ASSERT_EQ(size, 2);
  EXPECT_EQ(types[1], FdoLockType_Exclusive);
  EXPECT_TRUE(copy->SupportsLocking());
  EXPECT_TRUE(copy->SupportsLongTransactions());
  EXPECT_FALSE(copy->SupportsWrite());
  EXPECT_EQ(copy->GetPolygonVertexOrderRule(L"Shape"), FdoPolygonVertexOrderRule_CW);
  EXPECT_EQ(copy->GetPolygonVertexOrderRule(L"Other"), FdoPolygonVertexOrderRule_None);
  EXPECT_TRUE(copy->GetPolygonVertexOrderStrictness(L"Shape"));
  EXPECT_FALSE(copy->GetPolygonVertexOrderStrictness(L"Other"));
}

}  // namespace
}  // namespace fdo_sdk
