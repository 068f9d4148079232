#include <Fdo.h>
#include <fdo/schema_conversion.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "fdo_backend/class_conversion.h"
#include "testing/schema_builder.h"

namespace fdo {
namespace {

using ClassPtr = FdoPtr<FdoClassDefinition>;

FdoPtr<FdoPropertyDefinition> Property(FdoClassDefinition& definition, wchar_t const* name) {
  FdoPtr<FdoPropertyDefinitionCollection> const properties = definition.GetProperties();
  return FdoPtr<FdoPropertyDefinition>(properties->GetItem(name));
}

FdoPtr<FdoDataPropertyDefinition> DataProperty(FdoClassDefinition& definition, wchar_t const* name) {
  FdoPtr<FdoPropertyDefinition> const property = Property(definition, name);
  EXPECT_EQ(property->GetPropertyType(), FdoPropertyType_DataProperty);
  return FdoPtr<FdoDataPropertyDefinition>(
      FDO_SAFE_ADDREF(static_cast<FdoDataPropertyDefinition*>(property.p)));
}

std::wstring Text(FdoString* text) { return text == nullptr ? L"" : text; }

void Add(FdoClassDefinition& definition, FdoPropertyDefinition* property) {
  FdoPtr<FdoPropertyDefinitionCollection>(definition.GetProperties())->Add(property);
}

void AddIdentity(FdoClassDefinition& definition, FdoDataPropertyDefinition* property) {
  FdoPtr<FdoDataPropertyDefinitionCollection>(definition.GetIdentityProperties())->Add(property);
}

FdoPtr<FdoDataPropertyDefinition> MakeData(wchar_t const* name, FdoDataType type,
                                           wchar_t const* description = nullptr) {
  FdoPtr<FdoDataPropertyDefinition> property = FdoDataPropertyDefinition::Create(name, description);
  property->SetDataType(type);
  return property;
}

FdoPtr<FdoGeometricPropertyDefinition> MakeGeometry(wchar_t const* name, wchar_t const* context = nullptr) {
  FdoPtr<FdoGeometricPropertyDefinition> property = FdoGeometricPropertyDefinition::Create(name, nullptr);
  property->SetSpatialContextAssociation(context);
  property->SetGeometryTypes(5);
  return property;
}

// The one table of a schema of that class, which is called "s".
class Converted {
 public:
  explicit Converted(FdoClassDefinition* definition, CoordSys const* coordSys = nullptr, int count = 0) {
    FdoPtr<FdoFeatureSchema> const schema = FdoFeatureSchema::Create(L"s", nullptr);
    FdoPtr<FdoClassCollection>(schema->GetClasses())->Add(definition);
    SchemaToDbDef(def_, schema, coordSys, count);
  }
  TableDef const& operator*() const { return def_[0]; }
  TableDef const* operator->() const { return &def_[0]; }

 private:
  DatabaseDef def_;
};

TEST(TableDefToFdoClass, AGeometryIndexMakesAFeatureClass) {
  ColumnDef columns[2];
  CoordSys const system(L"WGS84", L"LL84", L"GEOGCS[]");
  columns[0].Initialize(L"label", ColumnDef::kGeometry, 1, Value(), nullptr);
  columns[1].Initialize(L"shape", ColumnDef::kGeometry, 7, Value(), &system);
  TableDef table;
  table.Initialize(L"s", L"parcel", columns, 2, -1, 1, 0);
  ClassPtr const definition = TableDefToFdoClass(table);
  ASSERT_EQ(definition->GetClassType(), FdoClassType_FeatureClass);
  EXPECT_STREQ(definition->GetName(), L"parcel");
  EXPECT_EQ(Text(definition->GetDescription()), L"");
  FdoPtr<FdoGeometricPropertyDefinition> const main =
      static_cast<FdoFeatureClass&>(*definition).GetGeometryProperty();
  ASSERT_NE(main, nullptr);
  EXPECT_STREQ(main->GetName(), L"shape");
  EXPECT_EQ(main->GetGeometryTypes(), 7);
  EXPECT_STREQ(main->GetSpatialContextAssociation(), L"WGS84");
  EXPECT_FALSE(main->GetIsSystem());
  FdoPtr<FdoPropertyDefinition> const label = Property(*definition, L"label");
  EXPECT_EQ(label->GetPropertyType(), FdoPropertyType_GeometricProperty);
  auto& other = static_cast<FdoGeometricPropertyDefinition&>(*label);
  EXPECT_EQ(other.GetGeometryTypes(), 1);
  EXPECT_EQ(Text(other.GetSpatialContextAssociation()), L"");
}

TEST(TableDefToFdoClass, WithoutAGeometryIndexItIsAClassWhoseGeometryIsNotDesignated) {
  ColumnDef columns[1];
  columns[0].Initialize(L"shape", ColumnDef::kGeometry, 15, Value(), nullptr);
  TableDef table;
  table.Initialize(L"s", L"parcel", columns, 1, -1, -1, 0);
  ClassPtr const definition = TableDefToFdoClass(table);
  EXPECT_EQ(definition->GetClassType(), FdoClassType_Class);
  EXPECT_EQ(Property(*definition, L"shape")->GetPropertyType(), FdoPropertyType_GeometricProperty);
}

TEST(TableDefToFdoClass, EveryDataTypeKeepsItsNumber) {
  TableDef const table = MakeTableDef(
      L"s", L"t",
      L"c0:Boolean c1:Byte c2:DateTime c3:Decimal c4:Double c5:Int16 c6:Int32 c7:Int64 c8:Single c9:String "
      L"c10:Blob c11:Clob");
  ClassPtr const definition = TableDefToFdoClass(table);
  FdoDataType const types[] = {FdoDataType_Boolean, FdoDataType_Byte,   FdoDataType_DateTime,
                               FdoDataType_Decimal, FdoDataType_Double, FdoDataType_Int16,
                               FdoDataType_Int32,   FdoDataType_Int64,  FdoDataType_Single,
                               FdoDataType_String,  FdoDataType_BLOB,   FdoDataType_CLOB};
  for (int i = 0; i < 12; ++i) {
    EXPECT_EQ(DataProperty(*definition, (L"c" + std::to_wstring(i)).c_str())->GetDataType(), types[i]) << i;
  }
}

TEST(TableDefToFdoClass, TheIdentityIsGeneratedAndNeverNull) {
  TableDef const table = MakeTableDef(L"s", L"t", L"name:String id:Int64 size:Double");
  ClassPtr const definition = TableDefToFdoClass(table);
  FdoPtr<FdoDataPropertyDefinitionCollection> const identities = definition->GetIdentityProperties();
  ASSERT_EQ(identities->GetCount(), 1);
  FdoPtr<FdoDataPropertyDefinition> const id = identities->GetItem(0);
  EXPECT_STREQ(id->GetName(), L"id");
  EXPECT_TRUE(id->GetIsAutoGenerated());
  EXPECT_FALSE(id->GetNullable());
  EXPECT_FALSE(DataProperty(*definition, L"name")->GetIsAutoGenerated());
}

TEST(TableDefToFdoClass, ATagIsTheIdentitysDescription) {
  struct {
    int tag;
    wchar_t const* description;
  } const cases[] = {{0, L""},
                     {7, L"7"},
                     {-12, L"-12"},
                     {std::numeric_limits<int>::min(), L"-2147483648"},
                     {std::numeric_limits<int>::max(), L"2147483647"}};
  ColumnDef columns[1];
  columns[0].Initialize(L"id", ColumnDef::kInt32, 0, Value(), nullptr);
  for (auto const& c : cases) {
    TableDef table;
    table.Initialize(L"s", L"t", columns, 1, 0, -1, c.tag);
    ClassPtr const definition = TableDefToFdoClass(table);
    EXPECT_EQ(Text(DataProperty(*definition, L"id")->GetDescription()), c.description);
    EXPECT_EQ(Converted(definition)->Tag(), c.tag);
  }
}

TEST(TableDefToFdoClass, DefaultValuesBecomeTheirTexts) {
  Value undefined;
  undefined.Invalidate();
  Value const flag(true);
  Value borrowed;
  borrowed.Reset(L"lent", /*copy=*/false);
  struct {
    ColumnDef::DataType type;
    Value value;
    std::wstring text;
  } const cases[] = {
      {ColumnDef::kString, Value(), L""},
      {ColumnDef::kString, undefined, L""},
      {ColumnDef::kInt32, Value(-5), L"-5"},
      {ColumnDef::kDouble, Value(2.5), L"2.5"},
      {ColumnDef::kString, Value(L"it's"), L"it's"},
      {ColumnDef::kString, borrowed, L"lent"},
      {ColumnDef::kBlob, Value("ab", 2), L""},
      // The text of a flag, odd as it is, identity or not.
      {ColumnDef::kBoolean, flag, static_cast<wchar_t const*>(flag)},
  };
  for (auto const& c : cases) {
    for (int const idIndex : {-1, 0}) {
      ColumnDef none;
      TableDef table;
      table.Initialize(L"s", L"t", &none, 1, idIndex, -1, 0);
      // A table's columns are copies, which go without the default value.
      table[0].Initialize(L"c", c.type, 0, c.value, nullptr);
      ClassPtr const definition = TableDefToFdoClass(table);
      EXPECT_EQ(Text(DataProperty(*definition, L"c")->GetDefaultValue()), c.text) << c.text;
    }
  }
}

TEST(SchemaToDbDef, EveryClassOfTheSchemaInOrder) {
  FdoPtr<FdoFeatureSchema> const schema = FdoFeatureSchema::Create(L"Roads", nullptr);
  FdoPtr<FdoClassCollection> const classes = schema->GetClasses();
  TableDef const tables[] = {MakeTableDef(L"x", L"b", L"id:Int32 shape:Geometry"),
                             MakeTableDef(L"x", L"a", L"n:String")};
  for (TableDef const& table : tables) classes->Add(ClassPtr(TableDefToFdoClass(table)));
  DatabaseDef def;
  SchemaToDbDef(def, schema, nullptr, 0);
  EXPECT_STREQ(def.Name(), L"Roads");
  ASSERT_EQ(def.Count(), 2);
  EXPECT_STREQ(def[0].Name(), L"b");
  EXPECT_STREQ(def[0].SchemaName(), L"Roads");
  EXPECT_EQ(def[0].IndexOfID(), 0);
  EXPECT_EQ(def[0].IndexOfGeom(), 1);
  EXPECT_STREQ(def[1].Name(), L"a");
  EXPECT_EQ(def[1].IndexOfID(), -1);
  EXPECT_EQ(def[1].IndexOfGeom(), -1);
}

TEST(SchemaToDbDef, AnEmptySchemaHasNoTables) {
  FdoPtr<FdoFeatureSchema> const schema = FdoFeatureSchema::Create(L"Empty", nullptr);
  DatabaseDef def;
  SchemaToDbDef(def, schema, nullptr, 0);
  EXPECT_STREQ(def.Name(), L"Empty");
  EXPECT_EQ(def.Count(), 0);
}

TEST(SchemaToDbDef, OtherPropertiesKeepTheirPlaces) {
  FdoPtr<FdoFeatureClass> const definition = FdoFeatureClass::Create(L"c", nullptr);
  FdoPtr<FdoGeometricPropertyDefinition> const shape = MakeGeometry(L"shape");
  Add(*definition, MakeData(L"n", FdoDataType_Int32));
  Add(*definition, FdoPtr<FdoObjectPropertyDefinition>(FdoObjectPropertyDefinition::Create(L"o", nullptr)));
  Add(*definition, shape);
  Add(*definition,
      FdoPtr<FdoAssociationPropertyDefinition>(FdoAssociationPropertyDefinition::Create(L"a", nullptr)));
  Add(*definition, FdoPtr<FdoRasterPropertyDefinition>(FdoRasterPropertyDefinition::Create(L"r", nullptr)));
  definition->SetGeometryProperty(shape);
  Converted const table(definition);
  ASSERT_EQ(table->ColumnCount(), 5);
  EXPECT_EQ(table->IndexOfGeom(), 2);
  EXPECT_STREQ((*table)[0].Name(), L"n");
  EXPECT_STREQ((*table)[2].Name(), L"shape");
  for (int const i : {1, 3, 4}) {
    EXPECT_STREQ((*table)[i].Name(), L"") << i;
    EXPECT_EQ((*table)[i].Type(), ColumnDef::kUnset) << i;
  }
}

TEST(SchemaToDbDef, OnlyTheDesignatedGeometryCounts) {
  FdoPtr<FdoFeatureClass> const feature = FdoFeatureClass::Create(L"c", nullptr);
  Add(*feature, MakeGeometry(L"first"));
  EXPECT_EQ(Converted(feature)->IndexOfGeom(), -1) << "none is designated";

  FdoPtr<FdoFeatureClass> const second = FdoFeatureClass::Create(L"c", nullptr);
  FdoPtr<FdoGeometricPropertyDefinition> const shape = MakeGeometry(L"second");
  Add(*second, MakeGeometry(L"first"));
  Add(*second, shape);
  second->SetGeometryProperty(shape);
  EXPECT_EQ(Converted(second)->IndexOfGeom(), 1);

  FdoPtr<FdoClass> const plain = FdoClass::Create(L"c", nullptr);
  Add(*plain, MakeGeometry(L"shape"));
  Converted const table(plain);
  EXPECT_EQ(table->IndexOfGeom(), -1) << "no feature class";
  EXPECT_EQ((*table)[0].Type(), ColumnDef::kGeometry);
  EXPECT_EQ((*table)[0].GeomTypes(), 5);
}

TEST(SchemaToDbDef, OnlyTheFirstIdentityCounts) {
  FdoPtr<FdoClass> const definition = FdoClass::Create(L"c", nullptr);
  FdoPtr<FdoDataPropertyDefinition> const first = MakeData(L"b", FdoDataType_Int32, L"21");
  FdoPtr<FdoDataPropertyDefinition> const second = MakeData(L"a", FdoDataType_Int32, L"22");
  Add(*definition, second);
  Add(*definition, first);
  AddIdentity(*definition, first);
  AddIdentity(*definition, second);
  Converted const table(definition);
  EXPECT_EQ(table->IndexOfID(), 1);
  EXPECT_EQ(table->Tag(), 21);
}

TEST(SchemaToDbDef, ADescriptionIsReadAsATagLeniently) {
  struct {
    wchar_t const* description;
    int tag;
  } const cases[] = {{nullptr, 0},    {L"", 0},     {L"the key", 0},
                     {L"7 or so", 7}, {L" -3", -3}, {L"9999999999", std::numeric_limits<int>::max()}};
  for (auto const& c : cases) {
    FdoPtr<FdoClass> const definition = FdoClass::Create(L"c", nullptr);
    FdoPtr<FdoDataPropertyDefinition> const id = MakeData(L"id", FdoDataType_Int32, c.description);
    Add(*definition, id);
    AddIdentity(*definition, id);
    EXPECT_EQ(Converted(definition)->Tag(), c.tag) << Text(c.description);
  }
}

TEST(SchemaToDbDef, ACoordinateSystemIsFoundByTheExactNameOfTheContext) {
  CoordSys const systems[] = {
      {L"wgs84", L"other", L""}, {L"WGS84", L"LL84", L"GEOGCS[]"}, {L"WGS84", L"later", L""}};
  struct {
    wchar_t const* association;
    wchar_t const* code;  // null: no coordinate system
  } const cases[] = {{L"WGS84", L"LL84"}, {L"wgs84", L"other"}, {L"Default", nullptr}, {nullptr, nullptr}};
  for (auto const& c : cases) {
    FdoPtr<FdoFeatureClass> const definition = FdoFeatureClass::Create(L"c", nullptr);
    Add(*definition, MakeGeometry(L"shape", c.association));
    Converted const table(definition, systems, 3);
    CoordSys const* const found = (*table)[0].SRS();
    ASSERT_EQ(found != nullptr, c.code != nullptr) << Text(c.association);
    if (found != nullptr) {
      EXPECT_STREQ(found->Code(), c.code);
    }
  }
}

TEST(DataPropertyToColumnDef, ADefaultTextBecomesTheTypesValue) {
  struct {
    FdoDataType type;
    wchar_t const* text;
    Value value;
  } const cases[] = {
      {FdoDataType_Boolean, L"TRUE", true},
      {FdoDataType_Boolean, L"True", true},
      {FdoDataType_Boolean, L"true", true},
      {FdoDataType_Boolean, L"FALSE", false},
      {FdoDataType_Boolean, L"yes", false},
      {FdoDataType_Byte, L"200", 200},
      {FdoDataType_Int32, L"12abc", 12},
      {FdoDataType_Int32, L"none", 0},
      {FdoDataType_Double, L"none", 0.0},
      {FdoDataType_BLOB, L"1", Value()},
      {FdoDataType_CLOB, L"1", Value()},
      {FdoDataType_Int16, L"-7", -7},
      {FdoDataType_Int32, L"12", 12},
      {FdoDataType_Int64, L"9223372036854775807", std::numeric_limits<long long>::max()},
      {FdoDataType_Decimal, L"2.5", 2.5},
      {FdoDataType_Double, L"1e3", 1000.0},
      {FdoDataType_Single, L"-0.25", -0.25},
      {FdoDataType_String, L"Main Street", L"Main Street"},
      {FdoDataType_DateTime, L"TIMESTAMP '2024-03-01 14:30:05'", L"TIMESTAMP '2024-03-01 14:30:05'"},
      {FdoDataType_String, L"", Value()},
      {FdoDataType_Int32, nullptr, Value()},
  };
  for (auto const& c : cases) {
    FdoPtr<FdoDataPropertyDefinition> const property = MakeData(L"c", c.type);
    property->SetDefaultValue(c.text);
    ColumnDef column;
    internal::DataPropertyToColumnDef(column, *property);
    EXPECT_EQ(column.Type(), static_cast<int>(c.type)) << Text(c.text);
    EXPECT_EQ(column.DefaultValue().Type(), c.value.Type()) << Text(c.text);
    EXPECT_TRUE(column.DefaultValue() == c.value) << Text(c.text);
  }
}

}  // namespace
}  // namespace fdo
