#include <gtest/gtest.h>

#include "Fdo.h"

namespace fdo_sdk {
namespace {

class Element : public FdoPhysicalElementMapping {
 public:
  explicit Element(FdoString* name) : FdoPhysicalElementMapping(name) {}
  void Place(FdoPhysicalElementMapping* parent) { SetParent(parent); }

 protected:
  void Dispose() override { delete this; }
};

class SchemaMapping : public FdoPhysicalSchemaMapping {
 public:
  SchemaMapping() : FdoPhysicalSchemaMapping(L"Roads") {}
  FdoString* GetProvider() override { return L"Company.Provider"; }

 protected:
  void Dispose() override { delete this; }
};

TEST(PhysicalMapping, ElementsAreNamedFromTheMappingDown) {
  FdoPtr<SchemaMapping> mapping = new SchemaMapping();
  FdoPtr<Element> table = new Element(L"Street");
  FdoPtr<Element> column = new Element(L"Name");
  table->Place(mapping);
  column->Place(table);
  EXPECT_STREQ(column->GetQualifiedName(), L"Roads.Street.Name");
  FdoPtr<FdoPhysicalElementMapping> parent = column->GetParent();
  EXPECT_EQ(parent.p, table.p);
  FdoPtr<FdoPhysicalSchemaMapping> found = column->GetSchemaMapping();
  EXPECT_EQ(found.p, mapping.p);
  EXPECT_EQ(mapping->GetRefCount(), 2);
}

TEST(PhysicalMapping, AnElementOutsideAMappingHasNone) {
  FdoPtr<Element> alone = new Element(L"Street");
  EXPECT_EQ(alone->GetParent(), nullptr);
  EXPECT_EQ(alone->GetSchemaMapping(), nullptr);
  alone->SetName(L"Road");
  EXPECT_STREQ(alone->GetQualifiedName(), L"Road");
}

}  // namespace
}  // namespace fdo_sdk
