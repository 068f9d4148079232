#include <gtest/gtest.h>

#include "Fdo.h"

namespace fdo_sdk {
namespace {

// A schema Roads with a feature class Street that has an identity Id, a Name and a geometry.
class ElementState : public testing::Test {
 protected:
  ElementState() {
    id_->SetDataType(FdoDataType_Int32);
    properties_->Add(id_);
    properties_->Add(name_);
    properties_->Add(geometry_);
    identity_->Add(id_);
    street_->SetGeometryProperty(geometry_);
    classes_->Add(street_);
  }

  void ExpectAll(FdoSchemaElementState state) {
    FdoSchemaElement* const elements[] = {schema_, street_, id_, name_, geometry_};
    for (FdoSchemaElement* element : elements) {
      EXPECT_EQ(element->GetElementState(), state) << FdoStringP(element->GetName()).operator char const*();
    }
  }

  FdoPtr<FdoFeatureSchema> schema_ = FdoFeatureSchema::Create(L"Roads", L"All roads");
  FdoPtr<FdoClassCollection> classes_ = schema_->GetClasses();
  FdoPtr<FdoFeatureClass> street_ = FdoFeatureClass::Create(L"Street", nullptr);
  FdoPtr<FdoPropertyDefinitionCollection> properties_ = street_->GetProperties();
  FdoPtr<FdoDataPropertyDefinitionCollection> identity_ = street_->GetIdentityProperties();
  FdoPtr<FdoDataPropertyDefinition> id_ = FdoDataPropertyDefinition::Create(L"Id", nullptr);
  FdoPtr<FdoDataPropertyDefinition> name_ = FdoDataPropertyDefinition::Create(L"Name", nullptr);
  FdoPtr<FdoGeometricPropertyDefinition> geometry_ =
      FdoGeometricPropertyDefinition::Create(L"Geometry", nullptr);
};

TEST_F(ElementState, NewElementsAreAddedWhateverIsSet) {
  name_->SetLength(10);
  ExpectAll(FdoSchemaElementState_Added);
}

TEST_F(ElementState, AcceptanceMakesAllUnchanged) {
  schema_->AcceptChanges();
  ExpectAll(FdoSchemaElementState_Unchanged);
  EXPECT_EQ(identity_->GetCount(), 1);
  EXPECT_EQ(properties_->GetCount(), 3);
}

TEST_F(ElementState, AChangeMarksTheElementAndThoseAroundIt) {
  schema_->AcceptChanges();
  name_->SetLength(20);
  EXPECT_EQ(name_->GetElementState(), FdoSchemaElementState_Modified);
  EXPECT_EQ(street_->GetElementState(), FdoSchemaElementState_Modified);
  EXPECT_EQ(schema_->GetElementState(), FdoSchemaElementState_Modified);
  EXPECT_EQ(id_->GetElementState(), FdoSchemaElementState_Unchanged);
  schema_->AcceptChanges();
  ExpectAll(FdoSchemaElementState_Unchanged);
  EXPECT_EQ(name_->GetLength(), 20);
}

TEST_F(ElementState, AnAttributeIsAChangeToo) {
  schema_->AcceptChanges();
  FdoPtr<FdoSchemaAttributeDictionary>(id_->GetAttributes())->Add(L"a", L"b");
  EXPECT_EQ(id_->GetElementState(), FdoSchemaElementState_Modified);
}

TEST_F(ElementState, RejectionRestoresEveryKindOfChange) {
  schema_->SetDescription(L"Accepted");
  FdoPtr<FdoSchemaAttributeDictionary> attributes = street_->GetAttributes();
  attributes->Add(L"kept", L"1");
  schema_->AcceptChanges();

  schema_->SetName(L"Other");
  schema_->SetDescription(L"Other");
  street_->SetIsAbstract(true);
  attributes->Remove(L"kept");
  attributes->Add(L"new", L"2");
  id_->SetDataType(FdoDataType_Int64);
  name_->SetIsSystem(true);
  geometry_->SetGeometryTypes(FdoGeometricType_Point);
  identity_->Clear();
  identity_->Add(name_);
  street_->SetGeometryProperty(nullptr);
  properties_->RemoveAt(1);
  FdoPtr<FdoDataPropertyDefinition> lanes = FdoDataPropertyDefinition::Create(L"Lanes", nullptr);
  properties_->Add(lanes);
  FdoPtr<FdoClass> path = FdoClass::Create(L"Path", nullptr);
  classes_->Add(path);
  EXPECT_EQ(name_->GetElementState(), FdoSchemaElementState_Detached);
  EXPECT_EQ(lanes->GetElementState(), FdoSchemaElementState_Added);

  schema_->RejectChanges();
  ExpectAll(FdoSchemaElementState_Unchanged);
  EXPECT_STREQ(schema_->GetName(), L"Roads");
  EXPECT_STREQ(schema_->GetDescription(), L"Accepted");
  EXPECT_FALSE(street_->GetIsAbstract());
  EXPECT_TRUE(attributes->ContainsAttribute(L"kept"));
  EXPECT_FALSE(attributes->ContainsAttribute(L"new"));
  EXPECT_EQ(id_->GetDataType(), FdoDataType_Int32);
  EXPECT_FALSE(name_->GetIsSystem());
  EXPECT_EQ(geometry_->GetGeometryTypes(), FdoGeometricType_All);
  ASSERT_EQ(identity_->GetCount(), 1);
  EXPECT_EQ(FdoPtr<FdoDataPropertyDefinition>(identity_->GetItem(0)).p, id_.p);
  EXPECT_EQ(FdoPtr<FdoGeometricPropertyDefinition>(street_->GetGeometryProperty()).p, geometry_.p);
  ASSERT_EQ(properties_->GetCount(), 3);
  EXPECT_EQ(FdoPtr<FdoPropertyDefinition>(properties_->GetItem(1)).p, name_.p);
  EXPECT_EQ(FdoPtr<FdoSchemaElement>(name_->GetParent()).p, street_.p);
  EXPECT_EQ(classes_->GetCount(), 1);
  EXPECT_EQ(lanes->GetElementState(), FdoSchemaElementState_Detached);
  EXPECT_EQ(path->GetElementState(), FdoSchemaElementState_Detached);
  EXPECT_EQ(lanes->GetParent(), nullptr);
  EXPECT_EQ(lanes->GetRefCount(), 1);
  EXPECT_EQ(path->GetRefCount(), 1);
}

TEST_F(ElementState, WhatIsDeletedLeavesWithTheAcceptance) {
  schema_->AcceptChanges();
  id_->Delete();
  geometry_->Delete();
  EXPECT_EQ(id_->GetElementState(), FdoSchemaElementState_Deleted);
  EXPECT_EQ(properties_->GetCount(), 3);
  schema_->AcceptChanges();
  EXPECT_EQ(properties_->GetCount(), 1);
  EXPECT_EQ(identity_->GetCount(), 0);
  EXPECT_EQ(street_->GetGeometryProperty(), nullptr);
  EXPECT_EQ(id_->GetElementState(), FdoSchemaElementState_Detached);
  EXPECT_EQ(id_->GetParent(), nullptr);
  EXPECT_EQ(id_->GetRefCount(), 1);
  EXPECT_EQ(geometry_->GetRefCount(), 1);
}

TEST_F(ElementState, WhatIsDeletedComesBackWithTheRejection) {
  schema_->AcceptChanges();
  street_->Delete();
  id_->Delete();
  schema_->RejectChanges();
  ExpectAll(FdoSchemaElementState_Unchanged);
  EXPECT_EQ(classes_->GetCount(), 1);
}

TEST_F(ElementState, AddedAndDeletedIsGoneEitherWay) {
  schema_->AcceptChanges();
  FdoPtr<FdoClass> path = FdoClass::Create(L"Path", nullptr);
  classes_->Add(path);
  path->Delete();
  schema_->AcceptChanges();
  EXPECT_EQ(classes_->GetCount(), 1);
  EXPECT_EQ(path->GetElementState(), FdoSchemaElementState_Detached);

  classes_->Add(path);
  EXPECT_EQ(path->GetElementState(), FdoSchemaElementState_Added);
  path->Delete();
  schema_->RejectChanges();
  EXPECT_EQ(classes_->GetCount(), 1);
  EXPECT_EQ(path->GetRefCount(), 1);
}

TEST_F(ElementState, RejectingANewSchemaEmptiesAndDetachesIt) {
  schema_->RejectChanges();
  EXPECT_EQ(schema_->GetElementState(), FdoSchemaElementState_Detached);
  EXPECT_EQ(classes_->GetCount(), 0);
  EXPECT_EQ(street_->GetElementState(), FdoSchemaElementState_Detached);
}

TEST_F(ElementState, ADeletedSchemaIsDetachedByTheAcceptance) {
  schema_->AcceptChanges();
  schema_->Delete();
  schema_->AcceptChanges();
  EXPECT_EQ(schema_->GetElementState(), FdoSchemaElementState_Detached);
}

TEST_F(ElementState, ReplacingAnItemDetachesTheOldOne) {
  schema_->AcceptChanges();
  FdoPtr<FdoDataPropertyDefinition> title = FdoDataPropertyDefinition::Create(L"Name", nullptr);
  properties_->SetItem(1, title);
  EXPECT_EQ(name_->GetElementState(), FdoSchemaElementState_Detached);
  EXPECT_EQ(title->GetElementState(), FdoSchemaElementState_Added);
  schema_->RejectChanges();
  EXPECT_EQ(FdoPtr<FdoPropertyDefinition>(properties_->GetItem(1)).p, name_.p);
  EXPECT_EQ(title->GetElementState(), FdoSchemaElementState_Detached);
}

TEST_F(ElementState, UniqueConstraintsFollowTheRejection) {
  FdoPtr<FdoUniqueConstraintCollection> constraints = street_->GetUniqueConstraints();
  FdoPtr<FdoUniqueConstraint> byName = FdoUniqueConstraint::Create();
  FdoPtr<FdoDataPropertyDefinitionCollection>(byName->GetProperties())->Add(name_);
  constraints->Add(byName);
  schema_->AcceptChanges();
  constraints->Clear();
  constraints->Add(FdoPtr<FdoUniqueConstraint>(FdoUniqueConstraint::Create()));
  schema_->RejectChanges();
  ASSERT_EQ(constraints->GetCount(), 1);
  EXPECT_EQ(FdoPtr<FdoUniqueConstraint>(constraints->GetItem(0)).p, byName.p);
}

}  // namespace
}  // namespace fdo_sdk
