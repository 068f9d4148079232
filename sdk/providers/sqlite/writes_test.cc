// Inserts, updates and deletes.
#include <gtest/gtest.h>

#include "sdk/providers/sqlite/row_commands.h"
#include "sdk/runtime/thrown.h"

namespace fdo_sqlite {
namespace {

using fdo_sdk::MessageThrownBy;

class Writes : public testing::Test {
 protected:
  Writes() {
    store_.Run(
        "CREATE TABLE geometry_columns (f_table_name TEXT, f_geometry_column TEXT, geometry_type INTEGER,"
        "  coord_dimension INTEGER, srid INTEGER, geometry_format TEXT);"
        "INSERT INTO geometry_columns VALUES ('town', 'shape', 0, 2, NULL, 'FGF'), ('wkb', 'shape', 0, 2, "
        "NULL, 'WKB'),"
        "  ('wkt', 'shape', 0, 2, NULL, 'WKT'), ('strange', 'shape', 0, 2, NULL, 'TWKB');"
        "CREATE TABLE town (id INTEGER PRIMARY KEY AUTOINCREMENT, name TEXT NOT NULL DEFAULT 'none', people "
        "INT,"
        "  shape BLOB);"
        "CREATE TABLE wkb (id INTEGER PRIMARY KEY, shape BLOB); CREATE TABLE wkt (id INTEGER PRIMARY KEY, "
        "shape TEXT);"
        "CREATE TABLE strange (id INTEGER PRIMARY KEY, shape BLOB);"
        "CREATE TABLE coded (code TEXT PRIMARY KEY, n INT) WITHOUT ROWID;"
        "CREATE TABLE pair (a INT, b TEXT DEFAULT 'x', n INT, PRIMARY KEY (a, b));"
        "CREATE TABLE plain (name TEXT);"
        "CREATE VIEW seen AS SELECT id, name FROM town");
    connection_ = OpenQuickly(store_);
  }

  FdoPtr<FdoIFeatureReader> InsertTexts(FdoString* className,
                                        std::vector<std::pair<FdoString*, FdoString*>> const& values) {
    FdoPtr<FdoIInsert> insert = MakeInsertInto(connection_, className);
    for (auto const& [name, value] : values) GiveText(insert, name, value);
    FdoPtr<FdoIFeatureReader> reader = insert->Execute();
    EXPECT_TRUE(reader->ReadNext());
    return reader;
  }

  std::wstring Refusal(FdoString* className, std::vector<std::pair<FdoString*, FdoString*>> const& values) {
    return MessageThrownBy<FdoCommandException>([&] { InsertTexts(className, values); });
  }

  TestStore store_;
  FdoPtr<Connection> connection_;
};

TEST_F(Writes, TheNewIdentityIsGiven) {
  FdoPtr<FdoIFeatureReader> reader = InsertTexts(L"town", {{L"name", L"'Ulm'"}});
  EXPECT_EQ(reader->GetInt64(L"id"), 1);
  EXPECT_EQ(reader->GetInt64(0), 1);
  EXPECT_FALSE(reader->IsNull(0));
  EXPECT_STREQ(reader->GetPropertyName(0), L"id");
  FdoPtr<FdoClassDefinition> definition = reader->GetClassDefinition();
  EXPECT_EQ(FdoPtr<FdoPropertyDefinitionCollection>(definition->GetProperties())->GetCount(), 1);
  EXPECT_FALSE(reader->ReadNext());
  MessageThrownBy<FdoCommandException>([&] { reader->GetInt64(0); });
  // A null asks for a number, a number is taken.
  EXPECT_EQ(InsertTexts(L"town", {{L"id", L"NULL"}, {L"name", L"'Bern'"}})->GetInt64(0), 2);
  EXPECT_EQ(InsertTexts(L"town", {{L"id", L"40"}, {L"name", L"'Graz'"}})->GetInt64(0), 40);
  EXPECT_EQ(InsertTexts(L"town", {})->GetInt64(0), 41);
  EXPECT_EQ(store_.Rows("SELECT id, name FROM town"), "1|Ulm;2|Bern;40|Graz;41|none");
}

TEST_F(Writes, OtherKeysAreGivenAsTheyWereStored) {
  EXPECT_STREQ(InsertTexts(L"coded", {{L"code", L"'K1'"}, {L"n", L"1"}})->GetString(L"code"), L"K1");
  FdoPtr<FdoIFeatureReader> pair = InsertTexts(L"pair", {{L"a", L"7"}});
  EXPECT_EQ(pair->GetInt32(L"a"), 7);
  EXPECT_STREQ(pair->GetString(L"b"), L"x");
  EXPECT_EQ(InsertTexts(L"plain", {{L"name", L"'n'"}})->GetInt64(0), 1);
  Refusal(L"coded", {{L"n", L"1"}});
  Refusal(L"coded", {{L"code", L"NULL"}});
  Refusal(L"pair", {{L"a", L"NULL"}});
  Refusal(L"coded", {{L"code", L"'K1'"}});
  EXPECT_EQ(store_.Rows("SELECT count(*) FROM coded"), "1");
}

TEST_F(Writes, MissingAndBlankPropertiesTakeTheirDefaults) {
  FdoPtr<FdoIInsert> insert = MakeInsertInto(connection_, L"town");
  Give(insert, L"name", nullptr);
  GiveText(insert, L"people", L"5");
  FdoPtr<FdoIFeatureReader>(insert->Execute());
  insert = nullptr;
  EXPECT_EQ(store_.Rows("SELECT name, people FROM town"), "none|5");
}

TEST_F(Writes, ARefusedFeatureLeavesNothing) {
  EXPECT_EQ(Refusal(L"town", {{L"mayor", L"'x'"}}), L"The class \"town\" has no property \"mayor\".");
  Refusal(L"town", {{L"people", L"'many'"}});
  Refusal(L"town", {{L"name", L"GeomFromText('POINT (1 2)')"}});
  Refusal(L"town", {{L"shape", L"'POINT (1 2)'"}});
  Refusal(L"town", {{L"name", L"NULL"}});
  Refusal(L"town", {{L"name", L"'a'"}, {L"name", L"'b'"}});
  Refusal(L"town", {{L"name", L":unbound"}});
  Refusal(L"village", {{L"name", L"'x'"}});
  EXPECT_NE(Refusal(L"seen", {{L"name", L"'x'"}}).find(L"it is a view"), std::wstring::npos);
  EXPECT_NE(Refusal(L"strange", {{L"shape", L"GeomFromText('POINT (1 2)')"}}).find(L"shape"),
            std::wstring::npos);
  EXPECT_EQ(store_.Rows("SELECT count(*) FROM town"), "0");
  // Nor does it keep the file locked.
  store_.Run("INSERT INTO town (name) VALUES ('other')");
}

TEST_F(Writes, AHeldCommandWritesInOneTransaction) {
  FdoPtr<FdoIInsert> insert = MakeInsertInto(connection_, L"town");
  FdoPtr<FdoStringValue> name = FdoStringValue::Create(L"first");
  Give(insert, L"name", name);
  for (FdoString* text : {L"first", L"second", L"third"}) {
    name->SetString(text);
    FdoPtr<FdoIFeatureReader>(insert->Execute());
  }
  EXPECT_EQ(store_.Rows("SELECT count(*) FROM town"), "0");
  // The same connection sees them.
  EXPECT_EQ(Texts(FdoPtr<FdoIFeatureReader>(MakeSelectOf(connection_, L"town")->Execute()), L"name"),
            L"first,second,third");
  // A refused one leaves those before it.
  FdoPtr<FdoPropertyValueCollection> values = insert->GetPropertyValues();
  GiveText(insert, L"people", L"'many'");
  MessageThrownBy<FdoCommandException>([&] { insert->Execute(); });
  values->RemoveAt(1);
  name->SetString(L"fourth");
  FdoPtr<FdoIFeatureReader>(insert->Execute());
  insert = nullptr;
  EXPECT_EQ(store_.Rows("SELECT group_concat(name) FROM town"), "first,second,third,fourth");
}

TEST_F(Writes, AHeldCommandFollowsItsValues) {
  FdoPtr<FdoIInsert> insert = MakeInsertInto(connection_, L"town");
  FdoPtr<FdoPropertyValueCollection> values = insert->GetPropertyValues();
  FdoPtr<FdoStringValue> text = FdoStringValue::Create(L"a");
  FdoPtr<FdoInt32Value> number = FdoInt32Value::Create(1);
  FdoPtr<FdoPropertyValue> name = FdoPropertyValue::Create(L"name", text);
  FdoPtr<FdoPropertyValue> people = FdoPropertyValue::Create(L"people", number);
  auto const insertOne = [&] { FdoPtr<FdoIFeatureReader> inserted = insert->Execute(); };
  values->Add(name);
  values->Add(people);
  insertOne();
  // The same objects with other values, null among them.
  text->SetString(L"b");
  number->SetNull();
  insertOne();
  number->SetInt32(3);
  insertOne();
  // Another object, of another type.
  people->SetValue(FdoPtr<FdoStringValue>(FdoStringValue::Create(L"4")));
  insertOne();
  people->SetValue(static_cast<FdoValueExpression*>(nullptr));
  insertOne();
  people->SetValue(number);
  insertOne();
  // Another property of the same value.
  FdoPtr<FdoInt64Value> id = FdoInt64Value::Create(70);
  people->SetValue(id);
  people->SetName(L"id");
  insertOne();
  FdoPtr<FdoIdentifier>(people->GetName())->SetText(L"people");
  insertOne();
  // The same properties in other objects, and in another order.
  values->Clear();
  values->Add(FdoPtr<FdoPropertyValue>(FdoPropertyValue::Create(L"name", text)));
  values->Add(people);
  text->SetString(L"c");
  insertOne();
  values->Clear();
  values->Add(people);
  values->Add(name);
  insertOne();
  values->SetItem(0, FdoPtr<FdoPropertyValue>(FdoPropertyValue::Create(L"people", number)));
  insertOne();
  values->SetItem(0, nullptr);
  EXPECT_EQ(MessageThrownBy<FdoCommandException>(insertOne), L"A property value is missing.");
  insert = nullptr;
  EXPECT_EQ(store_.Rows("SELECT id, name, people FROM town"),
            "1|a|1;2|b|NULL;3|b|3;4|b|4;5|b|NULL;6|b|3;70|b|NULL;71|b|70;72|c|70;73|c|70;74|c|3");
}

TEST_F(Writes, AReaderOfAnIdentityStaysWhileItIsHeld) {
  FdoPtr<FdoIInsert> insert = MakeInsertInto(connection_, L"town");
  FdoPtr<FdoIFeatureReader> first = insert->Execute();
  FdoPtr<FdoIFeatureReader> second = insert->Execute();
  ASSERT_TRUE(first->ReadNext());
  ASSERT_TRUE(second->ReadNext());
  EXPECT_EQ(first->GetInt64(L"id"), 1);
  EXPECT_EQ(second->GetInt64(L"id"), 2);
  second->Close();
  second = nullptr;
  // Whatever was done with the one before, the next begins before its row.
  for (FdoInt64 id = 3; id < 6; ++id) {
    FdoPtr<FdoIFeatureReader> next = insert->Execute();
    MessageThrownBy<FdoCommandException>([&] { next->GetInt64(0); });
    ASSERT_TRUE(next->ReadNext());
    EXPECT_EQ(next->GetInt64(0), id);
    if (id == 4) continue;
    EXPECT_FALSE(next->ReadNext());
  }
  EXPECT_EQ(first->GetInt64(0), 1);
  // It outlives its command.
  insert = nullptr;
  EXPECT_EQ(first->GetInt64(0), 1);
  EXPECT_FALSE(first->ReadNext());
  first = nullptr;
  EXPECT_EQ(connection_->GetRefCount(), 1);
}

TEST_F(Writes, FlushAndOtherCommandsSettleABatch) {
  FdoPtr<FdoIInsert> insert = MakeInsertInto(connection_, L"town");
  FdoPtr<FdoIFeatureReader>(insert->Execute());
  connection_->Flush();
  EXPECT_EQ(store_.Rows("SELECT count(*) FROM town"), "1");
  FdoPtr<FdoIFeatureReader>(insert->Execute());
  FdoPtr<FdoIDelete> remove = Make<FdoIDelete>(connection_, FdoCommandType_Delete);
  remove->SetFeatureClassName(L"town");
  remove->SetFilter(L"id = 1");
  EXPECT_EQ(remove->Execute(), 1);
  EXPECT_EQ(store_.Rows("SELECT group_concat(id) FROM town"), "2");
  FdoPtr<FdoIFeatureReader>(insert->Execute());
  connection_->Close();
  EXPECT_EQ(store_.Rows("SELECT group_concat(id) FROM town"), "2,3");
}

TEST_F(Writes, AHeldCommandFollowsChangesOfTheTable) {
  FdoPtr<FdoIInsert> insert = MakeInsertInto(connection_, L"town");
  GiveText(insert, L"name", L"'a'");
  FdoPtr<FdoIFeatureReader>(insert->Execute());
  connection_->Flush();
  store_.Run("ALTER TABLE town ADD COLUMN mayor TEXT DEFAULT 'nobody'");
  GiveText(insert, L"mayor", L"'b'");
  FdoPtr<FdoIFeatureReader>(insert->Execute());
  connection_->Flush();
  store_.Run("ALTER TABLE town DROP COLUMN mayor");
  MessageThrownBy<FdoCommandException>([&] { insert->Execute(); });
  EXPECT_EQ(store_.Rows("SELECT count(*) FROM town"), "2");
}

TEST_F(Writes, GeometryIsWrittenInTheFormatOfItsColumn) {
  for (FdoString* name : {L"town", L"wkb", L"wkt"}) {
    FdoPtr<FdoIFeatureReader> inserted = InsertTexts(name, {{L"shape", L"GeomFromText('POINT (1 2)')"}});
    inserted = nullptr;
    FdoPtr<FdoIFeatureReader> reader = MakeSelectOf(connection_, name)->Execute();
    ASSERT_TRUE(reader->ReadNext());
    FdoPtr<FdoByteArray> fgf = reader->GetGeometry(L"shape");
    FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
    FdoPtr<FdoIGeometry> geometry = factory->CreateGeometryFromFgf(fgf);
    EXPECT_STREQ(geometry->GetText(), L"POINT (1 2)");
  }
  EXPECT_EQ(store_.Rows("SELECT hex(shape) FROM town"), "0100000000000000000000000000F03F0000000000000040");
  EXPECT_EQ(store_.Rows("SELECT hex(shape) FROM wkb"), "0101000000000000000000F03F0000000000000040");
  EXPECT_EQ(store_.Rows("SELECT shape FROM wkt"), "POINT (1 2)");
  // A null geometry, and one that is not whole.
  InsertTexts(L"town", {{L"shape", L"NULL"}});
  EXPECT_EQ(store_.Rows("SELECT typeof(shape) FROM town WHERE id = 2"), "null");
  FdoByte const cut[] = {1, 0, 0, 0, 0, 0};
  FdoPtr<FdoByteArray> bytes = FdoByteArray::Create(cut, 6);
  FdoPtr<FdoGeometryValue> geometry = FdoGeometryValue::Create(bytes);
  FdoPtr<FdoIInsert> insert = MakeInsertInto(connection_, L"town");
  Give(insert, L"shape", geometry);
  MessageThrownBy<FdoCommandException>([&] { insert->Execute(); });
}

TEST_F(Writes, ParametersGiveValues) {
  FdoPtr<FdoIInsert> insert = MakeInsertInto(connection_, L"town");
  GiveText(insert, L"name", L":name");
  FdoPtr<FdoStringValue> text = FdoStringValue::Create(L"Ulm");
  FdoPtr<FdoParameterValueCollection>(insert->GetParameterValues())
      ->Add(FdoPtr<FdoParameterValue>(FdoParameterValue::Create(L"name", text)));
  FdoPtr<FdoIFeatureReader>(insert->Execute());
  insert = nullptr;
  EXPECT_EQ(store_.Rows("SELECT name FROM town"), "Ulm");
}

class Changes : public Writes {
 protected:
  Changes() {
    store_.Run(
        "INSERT INTO town (id, name, people) VALUES (1, 'Ulm', 10), (2, 'Bern', 20), (3, 'Graz', NULL)");
  }

  FdoInt32 UpdateText(FdoString* filter, std::vector<std::pair<FdoString*, FdoString*>> const& values,
                      FdoString* className = L"town") {
    FdoPtr<FdoIUpdate> update = Make<FdoIUpdate>(connection_, FdoCommandType_Update);
    update->SetFeatureClassName(className);
    if (filter != nullptr) update->SetFilter(filter);
    for (auto const& [name, value] : values) GiveText(update, name, value);
    return update->Execute();
  }

  FdoInt32 Remove(FdoString* filter, FdoString* className = L"town") {
    FdoPtr<FdoIDelete> remove = Make<FdoIDelete>(connection_, FdoCommandType_Delete);
    remove->SetFeatureClassName(className);
    if (filter != nullptr) remove->SetFilter(filter);
    return remove->Execute();
  }
};

TEST_F(Changes, UpdatesCountFeatures) {
  EXPECT_EQ(UpdateText(L"id = 2", {{L"name", L"'Berne'"}, {L"people", L"NULL"}}), 1);
  EXPECT_EQ(UpdateText(L"people NULL", {{L"people", L"5"}}), 2);
  EXPECT_EQ(UpdateText(L"id = 9", {{L"people", L"5"}}), 0);
  EXPECT_EQ(UpdateText(nullptr, {{L"shape", L"GeomFromText('POINT (1 2)')"}}), 3);
  EXPECT_EQ(UpdateText(L"people > 7", {}), 1);
  EXPECT_EQ(store_.Rows("SELECT id, name, people, length(shape) FROM town"),
            "1|Ulm|10|24;2|Berne|5|24;3|Graz|5|24");
}

TEST_F(Changes, ARefusedUpdateChangesNothing) {
  MessageThrownBy<FdoCommandException>([&] { UpdateText(nullptr, {{L"people", L"1"}, {L"name", L"NULL"}}); });
  MessageThrownBy<FdoCommandException>([&] { UpdateText(nullptr, {{L"people", L"'many'"}}); });
  MessageThrownBy<FdoCommandException>([&] { UpdateText(nullptr, {{L"mayor", L"1"}}); });
  MessageThrownBy<FdoCommandException>([&] { UpdateText(L"id = 1", {{L"id", L"7"}}); });
  MessageThrownBy<FdoCommandException>([&] { UpdateText(L"mayor = 1", {{L"people", L"1"}}); });
  MessageThrownBy<FdoCommandException>([&] { UpdateText(nullptr, {{L"name", L"'x'"}}, L"seen"); });
  EXPECT_EQ(store_.Rows("SELECT id, name, people FROM town"), "1|Ulm|10;2|Bern|20;3|Graz|NULL");
}

TEST_F(Changes, DeletesCountFeatures) {
  EXPECT_EQ(Remove(L"id = 2"), 1);
  EXPECT_EQ(Remove(L"id = 2"), 0);
  MessageThrownBy<FdoCommandException>([&] { Remove(L"mayor = 1"); });
  EXPECT_NE(MessageThrownBy<FdoCommandException>([&] { Remove(nullptr, L"seen"); }).find(L"it is a view"),
            std::wstring::npos);
  EXPECT_EQ(Remove(nullptr), 2);
  EXPECT_EQ(store_.Rows("SELECT count(*) FROM town"), "0");
}

TEST_F(Changes, ReadOnlyFilesAreReadAndNotWritten) {
  connection_->Close();
  std::filesystem::permissions(store_.Directory().Path() / "store.sqlite",
                               std::filesystem::perms::owner_read);
  connection_->Open();
  EXPECT_EQ(Texts(FdoPtr<FdoIFeatureReader>(MakeSelectOf(connection_, L"town")->Execute()), L"name"),
            L"Ulm,Bern,Graz");
}

}  // namespace
}  // namespace fdo_sqlite
