#include <gtest/gtest.h>

#include "Fdo.h"
#include "sdk/runtime/thrown.h"

namespace fdo_sdk {
namespace {

// How to make the collection, and an item for it.
template <class CollectionType, class ItemType>
struct Kind {
  typedef CollectionType Collection;
  typedef ItemType Item;
};

template <class K>
class SchemaCollection : public testing::Test {
 protected:
  SchemaCollection() : parent_(FdoClass::Create(L"Parent", nullptr)) {
    collection_ = K::Collection::Create(parent_);
    first_ = K::Item::Create(L"First", nullptr);
    second_ = K::Item::Create(L"Second", nullptr);
    collection_->Add(first_);
    collection_->Add(second_);
  }
  ~SchemaCollection() override {
    collection_ = nullptr;
    EXPECT_EQ(first_->GetRefCount(), 1);
    EXPECT_EQ(second_->GetRefCount(), 1);
    EXPECT_EQ(parent_->GetRefCount(), 1);
  }

  FdoPtr<FdoClass> parent_;
  FdoPtr<typename K::Collection> collection_;
  FdoPtr<typename K::Item> first_;
  FdoPtr<typename K::Item> second_;
};

typedef testing::Types<Kind<FdoFeatureSchemaCollection, FdoFeatureSchema>, Kind<FdoClassCollection, FdoClass>,
                       Kind<FdoFeatureClassCollection, FdoFeatureClass>,
                       Kind<FdoPropertyDefinitionCollection, FdoDataPropertyDefinition>,
                       Kind<FdoDataPropertyDefinitionCollection, FdoDataPropertyDefinition>>
    Kinds;
TYPED_TEST_SUITE(SchemaCollection, Kinds);

TYPED_TEST(SchemaCollection, PositionsOutsideAreRefused) {
  auto& collection = this->collection_;
  FdoPtr<typename TypeParam::Item> item = TypeParam::Item::Create(L"Third", nullptr);
  for (FdoInt32 const index : {-1, 2, 3}) {
    MessageThrownBy<FdoSchemaException>([&] { collection->GetItem(index); });
    MessageThrownBy<FdoSchemaException>([&] { collection->RemoveAt(index); });
    MessageThrownBy<FdoSchemaException>([&] { collection->SetItem(index, item); });
  }
  for (FdoInt32 const index : {-1, 3}) {
    MessageThrownBy<FdoSchemaException>([&] { collection->Insert(index, item); });
  }
  EXPECT_EQ(collection->GetCount(), 2);
  EXPECT_EQ(item->GetRefCount(), 1);
  EXPECT_EQ(item->GetParent(), nullptr);
  collection->Insert(2, item);
  EXPECT_EQ(collection->IndexOf(L"Third"), 2);
}

TYPED_TEST(SchemaCollection, ASecondItemOfANameIsRefused) {
  auto& collection = this->collection_;
  FdoPtr<typename TypeParam::Item> twin = TypeParam::Item::Create(L"First", nullptr);
  std::wstring const message = MessageThrownBy<FdoSchemaException>([&] { collection->Add(twin); });
  EXPECT_NE(message.find(L"First"), std::wstring::npos);
  MessageThrownBy<FdoSchemaException>([&] { collection->Insert(0, twin); });
  MessageThrownBy<FdoSchemaException>([&] { collection->SetItem(1, twin); });
  MessageThrownBy<FdoSchemaException>([&] { collection->Add(nullptr); });
  EXPECT_EQ(collection->GetCount(), 2);
  EXPECT_EQ(twin->GetRefCount(), 1);
  EXPECT_EQ(twin->GetParent(), nullptr);
  collection->SetItem(0, twin);
  EXPECT_EQ(collection->IndexOf(L"First"), 0);
  EXPECT_EQ(this->first_->GetParent(), nullptr);
}

TYPED_TEST(SchemaCollection, FindsByNameAndCountsWhatItGives) {
  auto& collection = this->collection_;
  FdoPtr<FdoSchemaElement> found = collection->FindItem(L"Second");
  EXPECT_EQ(found.p, this->second_.p);
  FdoPtr<FdoSchemaElement> gotten = collection->GetItem(L"Second");
  EXPECT_EQ(gotten.p, this->second_.p);
  EXPECT_EQ(this->second_->GetRefCount(), 4);
  EXPECT_EQ(collection->FindItem(L"second"), nullptr);
  EXPECT_EQ(collection->IndexOf(L"none"), -1);
  EXPECT_FALSE(collection->Contains(L"none"));
  MessageThrownBy<FdoSchemaException>([&] { collection->GetItem(L"none"); });
  collection->SetCaseSensitive(false);
  EXPECT_EQ(collection->IndexOf(L"second"), 1);
}

TYPED_TEST(SchemaCollection, AnAbsentItemCannotBeRemoved) {
  auto& collection = this->collection_;
  FdoPtr<typename TypeParam::Item> other = TypeParam::Item::Create(L"First", nullptr);
  MessageThrownBy<FdoSchemaException>([&] { collection->Remove(other.p); });
  collection->Remove(this->first_.p);
  EXPECT_EQ(collection->GetCount(), 1);
  EXPECT_EQ(this->first_->GetParent(), nullptr);
  collection->Clear();
  EXPECT_EQ(collection->GetCount(), 0);
}

TYPED_TEST(SchemaCollection, WithoutAParentItOwnsNothing) {
  FdoPtr<typename TypeParam::Collection> list = TypeParam::Collection::Create(nullptr);
  list->Add(this->first_);
  EXPECT_EQ(list->GetCount(), 1);
  FdoSchemaElementState const before = this->first_->GetElementState();
  list->Clear();
  EXPECT_EQ(this->first_->GetElementState(), before);
}

TEST(SchemaOwnership, AnItemThatHasAParentIsRefused) {
  FdoPtr<FdoClass> street = FdoClass::Create(L"Street", nullptr);
  FdoPtr<FdoClass> path = FdoClass::Create(L"Path", nullptr);
  FdoPtr<FdoDataPropertyDefinition> name = FdoDataPropertyDefinition::Create(L"Name", nullptr);
  FdoPtr<FdoPropertyDefinitionCollection> ofStreet = street->GetProperties();
  FdoPtr<FdoPropertyDefinitionCollection> ofPath = path->GetProperties();
  ofStreet->Add(name);
  std::wstring const message = MessageThrownBy<FdoSchemaException>([&] { ofPath->Add(name); });
  EXPECT_NE(message.find(L"Name"), std::wstring::npos);
  MessageThrownBy<FdoSchemaException>([&] { ofPath->Insert(0, name); });
  EXPECT_EQ(name->GetRefCount(), 2);
  ofStreet->Remove(static_cast<FdoSchemaElement*>(name.p));
  ofPath->Add(name);
  EXPECT_EQ(FdoPtr<FdoSchemaElement>(name->GetParent()).p, path.p);
}

TEST(SchemaOwnership, TheIdentityIsNoParent) {
  FdoPtr<FdoClass> street = FdoClass::Create(L"Street", nullptr);
  FdoPtr<FdoDataPropertyDefinition> id = FdoDataPropertyDefinition::Create(L"Id", nullptr);
  FdoPtr<FdoDataPropertyDefinitionCollection> identity = street->GetIdentityProperties();
  identity->Add(id);
  EXPECT_EQ(id->GetParent(), nullptr);
  FdoPtr<FdoPropertyDefinitionCollection> properties = street->GetProperties();
  properties->Add(id);
  EXPECT_EQ(identity->GetCount(), 1);
  properties->Clear();
  EXPECT_EQ(identity->GetCount(), 0);
  EXPECT_EQ(id->GetRefCount(), 1);
}

TEST(SchemaOwnership, RemovingByElementThrowsWhenAbsent) {
  FdoPtr<FdoClass> street = FdoClass::Create(L"Street", nullptr);
  FdoPtr<FdoPropertyDefinitionCollection> properties = street->GetProperties();
  MessageThrownBy<FdoSchemaException>([&] { properties->Remove(static_cast<FdoSchemaElement*>(street.p)); });
}

TEST(FindClass, LooksInOneSchemaOrAll) {
  FdoPtr<FdoFeatureSchemaCollection> schemas = FdoFeatureSchemaCollection::Create(nullptr);
  for (FdoString* schemaName : {L"A", L"B"}) {
    FdoPtr<FdoFeatureSchema> schema = FdoFeatureSchema::Create(schemaName, nullptr);
    FdoPtr<FdoClassCollection> classes = schema->GetClasses();
    classes->Add(FdoPtr<FdoClass>(FdoClass::Create(L"Both", nullptr)));
    FdoStringP const own = FdoStringP(L"Only") + schemaName;
    classes->Add(FdoPtr<FdoClass>(FdoClass::Create(own, nullptr)));
    schemas->Add(schema);
  }
  struct Case {
    FdoString* name;
    FdoInt32 count;
  };
  Case const cases[] = {{L"Both", 2},   {L"A:Both", 1}, {L"OnlyB", 1}, {L"A:OnlyB", 0},
                        {L"C:Both", 0}, {L"", 0},       {nullptr, 0}};
  for (Case const& c : cases) {
    FdoPtr<FdoIDisposableCollection> found = schemas->FindClass(c.name);
    EXPECT_EQ(found->GetCount(), c.count) << FdoStringP(c.name).operator char const*();
  }
}

}  // namespace
}  // namespace fdo_sdk
