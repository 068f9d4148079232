// Selects, and the readers that they give.
#include <gtest/gtest.h>

#include "sdk/providers/sqlite/row_commands.h"
#include "sdk/runtime/thrown.h"
#include "testing/fgf_builder.h"

namespace fdo_sqlite {
namespace {

using fdo_sdk::MessageThrownBy;

// A class of towns as another program makes it, with five of them.
class Select : public testing::Test {
 protected:
  Select() {
    store_.Run(
        "CREATE TABLE geometry_columns (f_table_name TEXT, f_geometry_column TEXT, geometry_type INTEGER,"
        "  coord_dimension INTEGER, srid INTEGER, geometry_format TEXT);"
        "INSERT INTO geometry_columns VALUES ('town', 'shape', 1, 2, NULL, 'FGF');"
        "CREATE TABLE town (id INTEGER PRIMARY KEY AUTOINCREMENT, name TEXT, people INT, height DOUBLE, "
        "shape BLOB);"
        "INSERT INTO town VALUES (1, 'Ulm', 126000, 478.5, "
        "x'0100000000000000000000000000F03F0000000000000040'),"
        "  (2, 'Bern', 134000, 542.0, NULL), (3, 'Graz', 291000, NULL, x''), (4, NULL, 126000, 0.0, x'0100'),"
        "  (7, 'Bern', 1000, -1.5, x'01000000000000000000000000000840000000000000104099');");
    connection_ = OpenQuickly(store_);
  }

  std::string Ids(FdoString* filter) {
    FdoPtr<FdoISelect> select = MakeSelectOf(connection_, L"town", filter);
    return Numbers(FdoPtr<FdoIFeatureReader>(select->Execute()), L"id");
  }

  std::string Ordered(std::vector<std::pair<FdoString*, FdoOrderingOption>> const& by) {
    FdoPtr<FdoIExtendedSelect> select = Make<FdoIExtendedSelect>(connection_, FdoCommandType_ExtendedSelect);
    select->SetFeatureClassName(L"Default:town");
    FdoPtr<FdoIdentifierCollection> ordering = select->GetOrdering();
    for (auto const& [name, option] : by) {
      ordering->Add(FdoPtr<FdoIdentifier>(FdoIdentifier::Create(name)));
      select->SetOrderingOption(name, option);
    }
    return Numbers(FdoPtr<FdoIFeatureReader>(select->Execute()), L"id");
  }

  TestStore store_;
  FdoPtr<Connection> connection_;
};

TEST_F(Select, WithoutAListReadsAllPropertiesInTheirOrder) {
  FdoPtr<FdoISelect> select = MakeSelectOf(connection_, L"Default:town");
  FdoPtr<FdoIFeatureReader> reader = select->Execute();
  FdoString* const names[] = {L"id", L"name", L"people", L"height", L"shape"};
  for (FdoInt32 i = 0; i < 5; ++i) {
    EXPECT_STREQ(reader->GetPropertyName(i), names[i]);
    EXPECT_EQ(reader->GetPropertyIndex(names[i]), i);
  }
  ASSERT_TRUE(reader->ReadNext());
  EXPECT_EQ(reader->GetInt64(0), 1);
  EXPECT_STREQ(reader->GetString(1), L"Ulm");
  EXPECT_EQ(reader->GetInt32(2), 126000);
  EXPECT_EQ(reader->GetDouble(3), 478.5);
  EXPECT_EQ(reader->GetInt64(L"id"), 1);
  EXPECT_STREQ(reader->GetString(L"name"), L"Ulm");
  EXPECT_EQ(reader->GetDepth(), 0);
  FdoPtr<FdoClassDefinition> definition = reader->GetClassDefinition();
  EXPECT_EQ(FdoPtr<FdoPropertyDefinitionCollection>(definition->GetProperties())->GetCount(), 5);
}

TEST_F(Select, KeepsTheOrderOfTheList) {
  FdoPtr<FdoISelect> select = MakeSelectOf(connection_, L"town", L"id = 2");
  FdoPtr<FdoIdentifierCollection> names = select->GetPropertyNames();
  for (FdoString* name : {L"people", L"name"}) names->Add(FdoPtr<FdoIdentifier>(FdoIdentifier::Create(name)));
  FdoPtr<FdoExpression> expression = FdoExpression::Parse(L"people * 2");
  names->Add(FdoPtr<FdoIdentifier>(FdoComputedIdentifier::Create(L"Twice", expression)));
  FdoPtr<FdoIFeatureReader> reader = select->Execute();
  ASSERT_TRUE(reader->ReadNext());
  EXPECT_EQ(reader->GetInt32(0), 134000);
  EXPECT_STREQ(reader->GetString(1), L"Bern");
  FdoPtr<FdoClassDefinition> definition = reader->GetClassDefinition();
  FdoPtr<FdoPropertyDefinitionCollection> properties = definition->GetProperties();
  ASSERT_EQ(properties->GetCount(), 3);
  FdoPtr<FdoPropertyDefinition> twice = properties->GetItem(2);
  EXPECT_STREQ(twice->GetName(), L"Twice");
  EXPECT_EQ(FdoPtr<FdoDataPropertyDefinitionCollection>(definition->GetIdentityProperties())->GetCount(), 0);
  EXPECT_EQ(reader->GetPropertyIndex(L"Twice"), 2);
  EXPECT_FALSE(reader->IsNull(2));
  EXPECT_FALSE(reader->ReadNext());
}

TEST_F(Select, Filters) {
  EXPECT_EQ(Ids(nullptr), "1,2,3,4,7");
  EXPECT_EQ(Ids(L"id = 3"), "3");
  EXPECT_EQ(Ids(L"id = 5"), "");
  EXPECT_EQ(Ids(L"name = 'Bern'"), "2,7");
  EXPECT_EQ(Ids(L"name NULL OR people > 200000"), "3,4");
  MessageThrownBy<FdoCommandException>([&] { Ids(L"mayor = 'x'"); });
}

TEST_F(Select, OrdersBySeveralPropertiesEachInItsOwnDirection) {
  EXPECT_EQ(Ordered({{L"people", FdoOrderingOption_Ascending}, {L"id", FdoOrderingOption_Descending}}),
            "7,4,1,2,3");
  EXPECT_EQ(Ordered({{L"name", FdoOrderingOption_Descending}, {L"height", FdoOrderingOption_Ascending}}),
            "1,3,7,2,4");
  EXPECT_EQ(Ordered({{L"height", FdoOrderingOption_Ascending}}), "3,7,4,1,2");
  MessageThrownBy<FdoCommandException>([&] { Ordered({{L"mayor", FdoOrderingOption_Ascending}}); });
}

TEST_F(Select, ThePlainOneOrdersAllPropertiesAlike) {
  FdoPtr<FdoISelect> select = MakeSelectOf(connection_, L"town");
  FdoPtr<FdoIdentifierCollection> ordering = select->GetOrdering();
  ordering->Add(FdoPtr<FdoIdentifier>(FdoIdentifier::Create(L"people")));
  ordering->Add(FdoPtr<FdoIdentifier>(FdoIdentifier::Create(L"id")));
  select->SetOrderingOption(FdoOrderingOption_Descending);
  EXPECT_EQ(select->GetOrderingOption(), FdoOrderingOption_Descending);
  EXPECT_EQ(Numbers(FdoPtr<FdoIFeatureReader>(select->Execute()), L"id"), "3,2,4,1,7");
}

TEST_F(Select, LooksUpOneFeatureAfterAnother) {
  FdoPtr<FdoISelect> select = MakeSelectOf(connection_, L"town");
  FdoPtr<FdoIdentifier> id = FdoIdentifier::Create(L"id");
  FdoPtr<FdoInt64Value> none = FdoInt64Value::Create();
  FdoPtr<FdoComparisonCondition> condition =
      FdoComparisonCondition::Create(id, FdoComparisonOperations_EqualTo, none);
  select->SetFilter(condition);
  EXPECT_EQ(Numbers(FdoPtr<FdoIFeatureReader>(select->Execute()), L"id"), "");
  for (FdoInt64 const wanted : {7, 1, 5, 2, 2}) {
    FdoPtr<FdoInt64Value> value = FdoInt64Value::Create(wanted);
    condition->SetRightExpression(value);
    std::string const found = wanted == 5 ? "" : std::to_string(wanted);
    EXPECT_EQ(Numbers(FdoPtr<FdoIFeatureReader>(select->Execute()), L"id"), found);
  }
  // Another program changes the row, then the table, between two look-ups.
  store_.Run("UPDATE town SET name = 'Berne' WHERE id = 2");
  EXPECT_EQ(Texts(FdoPtr<FdoIFeatureReader>(select->Execute()), L"name"), L"Berne");
  store_.Run("ALTER TABLE town ADD COLUMN mayor TEXT DEFAULT 'nobody'");
  EXPECT_EQ(Texts(FdoPtr<FdoIFeatureReader>(select->Execute()), L"mayor"), L"nobody");
  store_.Run(
      "DROP TABLE town; CREATE TABLE town (id INTEGER PRIMARY KEY, name INT); INSERT INTO town VALUES (2, "
      "5)");
  FdoPtr<FdoIFeatureReader> reader = select->Execute();
  ASSERT_TRUE(reader->ReadNext());
  EXPECT_EQ(reader->GetInt32(L"name"), 5);
}

TEST_F(Select, ALookUpFollowsItsListOfProperties) {
  FdoPtr<FdoISelect> select = MakeSelectOf(connection_, L"town", L"id = 1");
  FdoPtr<FdoIdentifierCollection> names = select->GetPropertyNames();
  FdoPtr<FdoIdentifier> name = FdoIdentifier::Create(L"name");
  names->Add(name);
  auto const properties = [&] {
    FdoPtr<FdoIFeatureReader> reader = select->Execute();
    EXPECT_TRUE(reader->ReadNext());
    FdoPtr<FdoClassDefinition> definition = reader->GetClassDefinition();
    FdoPtr<FdoPropertyDefinitionCollection> read = definition->GetProperties();
    std::wstring list;
    for (FdoInt32 i = 0; i < read->GetCount(); ++i) {
      list += (i == 0 ? L"" : L",") + std::wstring(reader->GetPropertyName(i));
    }
    return list;
  };
  EXPECT_EQ(properties(), L"name");
  name->SetText(L"people");
  EXPECT_EQ(properties(), L"people");
  names->Add(FdoPtr<FdoIdentifier>(FdoIdentifier::Create(L"name")));
  EXPECT_EQ(properties(), L"people,name");
  // The same names in other objects.
  names->Clear();
  names->Add(FdoPtr<FdoIdentifier>(FdoIdentifier::Create(L"people")));
  names->Add(name = FdoIdentifier::Create(L"name"));
  EXPECT_EQ(properties(), L"people,name");
  name->SetText(L"height");
  EXPECT_EQ(properties(), L"people,height");
  names->RemoveAt(0);
  EXPECT_EQ(properties(), L"height");
  names->SetItem(0, FdoPtr<FdoIdentifier>(FdoIdentifier::Create(L"id")));
  EXPECT_EQ(properties(), L"id");
}

TEST_F(Select, ALookUpInATransactionSeesWhatWasChangedInIt) {
  FdoPtr<FdoITransaction> transaction = connection_->BeginTransaction();
  FdoPtr<FdoISelect> select = MakeSelectOf(connection_, L"town", L"id = 1");
  EXPECT_EQ(Texts(FdoPtr<FdoIFeatureReader>(select->Execute()), L"name"), L"Ulm");
  connection_->OpenedDatabase().Execute("UPDATE town SET name = 'Neu-Ulm' WHERE id = 1");
  EXPECT_EQ(Texts(FdoPtr<FdoIFeatureReader>(select->Execute()), L"name"), L"Neu-Ulm");
  transaction->Rollback();
  EXPECT_EQ(Texts(FdoPtr<FdoIFeatureReader>(select->Execute()), L"name"), L"Ulm");
  // Another transaction of the same command, after a change by another program.
  store_.Run("ALTER TABLE town ADD COLUMN size INT DEFAULT 3");
  transaction = connection_->BeginTransaction();
  EXPECT_EQ(Numbers(FdoPtr<FdoIFeatureReader>(select->Execute()), L"id"), "1");
  FdoPtr<FdoIFeatureReader> reader = select->Execute();
  EXPECT_GE(reader->GetPropertyIndex(L"size"), 0);
}

TEST_F(Select, BothAReaderAndTheNextLookUpAreGood) {
  FdoPtr<FdoISelect> select = MakeSelectOf(connection_, L"town", L"id = 1");
  FdoPtr<FdoIFeatureReader> first = select->Execute();
  FdoPtr<FdoIFeatureReader> second = select->Execute();
  ASSERT_TRUE(first->ReadNext());
  ASSERT_TRUE(second->ReadNext());
  FdoString* const firstName = first->GetString(L"name");
  EXPECT_STREQ(second->GetString(L"name"), L"Ulm");
  second->Close();
  EXPECT_STREQ(firstName, L"Ulm");
  FdoInt32 count = 0;
  EXPECT_NE(first->GetGeometry(L"shape", &count), nullptr);
  EXPECT_FALSE(first->ReadNext());
}

TEST_F(Select, GeometryIsLentAsItIsStored) {
  FdoPtr<FdoISelect> select = MakeSelectOf(connection_, L"town");
  FdoPtr<FdoIFeatureReader> reader = select->Execute();
  ASSERT_TRUE(reader->ReadNext());
  FdoInt32 count = 0;
  FdoByte const* const lent = reader->GetGeometry(4, &count);
  EXPECT_EQ(count, 24);
  FdoPtr<FdoByteArray> array = reader->GetGeometry(L"shape");
  ASSERT_EQ(array->GetCount(), 24);
  EXPECT_EQ(std::memcmp(array->GetData(), lent, 24), 0);
  // NULL, an empty blob, and what is cut off.
  for (int row = 0; row < 3; ++row) {
    ASSERT_TRUE(reader->ReadNext());
    EXPECT_TRUE(reader->IsNull(L"shape"));
    MessageThrownBy<FdoCommandException>([&] { reader->GetGeometry(4, &count); });
    MessageThrownBy<FdoCommandException>([&] { reader->GetGeometry(4); });
  }
  ASSERT_TRUE(reader->ReadNext());
  EXPECT_FALSE(reader->IsNull(L"shape"));
}

TEST_F(Select, ReadersRefuseWhatThereIsNot) {
  FdoPtr<FdoISelect> select = MakeSelectOf(connection_, L"town");
  FdoPtr<FdoIFeatureReader> reader = select->Execute();
  MessageThrownBy<FdoCommandException>([&] { reader->GetInt64(0); });
  ASSERT_TRUE(reader->ReadNext());
  EXPECT_EQ(MessageThrownBy<FdoCommandException>([&] { reader->GetInt32(L"id"); }),
            L"The property \"id\" is of another type: Int64.");
  EXPECT_EQ(MessageThrownBy<FdoCommandException>([&] { reader->GetString(L"shape"); }),
            L"The property \"shape\" is of another type: geometry.");
  EXPECT_EQ(MessageThrownBy<FdoCommandException>([&] { reader->GetString(L"mayor"); }),
            L"There is no property \"mayor\" in the reader.");
  for (FdoInt32 const index : {-1, 5}) {
    MessageThrownBy<FdoCommandException>([&] { reader->IsNull(index); });
    MessageThrownBy<FdoCommandException>([&] { reader->GetPropertyName(index); });
  }
  MessageThrownBy<FdoCommandException>([&] { reader->GetFeatureObject(L"name"); });
  MessageThrownBy<FdoCommandException>([&] { reader->GetRaster(L"name"); });
  MessageThrownBy<FdoCommandException>([&] { reader->GetString(static_cast<FdoString*>(nullptr)); });
  reader->ReadNext();
  reader->ReadNext();
  EXPECT_EQ(MessageThrownBy<FdoCommandException>([&] { reader->GetDouble(L"height"); }),
            L"The property \"height\" is null.");
  while (reader->ReadNext()) {
  }
  EXPECT_FALSE(reader->ReadNext());
  EXPECT_EQ(MessageThrownBy<FdoCommandException>([&] { reader->GetInt64(0); }),
            L"The reader stands on no row.");
  reader->Close();
  EXPECT_EQ(MessageThrownBy<FdoCommandException>([&] { reader->ReadNext(); }), L"The reader is closed.");
  reader->Close();
}

TEST_F(Select, StoredValuesThatDoNotFitAreRefusedOneByOne) {
  store_.Run(
      "UPDATE town SET people = 'many', height = 'high' WHERE id = 1; UPDATE town SET people = 3000000000 "
      "WHERE id = 2");
  FdoPtr<FdoISelect> select = MakeSelectOf(connection_, L"town");
  FdoPtr<FdoIFeatureReader> reader = select->Execute();
  ASSERT_TRUE(reader->ReadNext());
  EXPECT_FALSE(reader->IsNull(L"people"));
  EXPECT_EQ(MessageThrownBy<FdoCommandException>([&] { reader->GetInt32(L"people"); }),
            L"The value \"many\" that is stored for the property \"people\" does not fit its type, Int32.");
  MessageThrownBy<FdoCommandException>([&] { reader->GetDouble(L"height"); });
  EXPECT_STREQ(reader->GetString(L"name"), L"Ulm");
  ASSERT_TRUE(reader->ReadNext());
  MessageThrownBy<FdoCommandException>([&] { reader->GetInt32(L"people"); });
}

// Whatever was read of the rows before, of this reader or of one before it.
TEST_F(Select, ValuesAreThoseOfTheRow) {
  struct Claim {
    FdoString* ordering;
    char const* read;  // for each row, the places of the properties that are read
    FdoString* values;
  };
  Claim const claims[] = {
      {nullptr, "0 1 2 01 12", L"1 Bern 291000 4NULL Bern1000"},
      {nullptr, "2 2 10 - 0", L"126000 134000 Graz3  7"},
      {L"people", "1 0 01 - 20", L"Bern 1 4NULL  2910003"},
      {L"name", "20 1 - 0 1", L"1260004 Bern  3 Ulm"},
      {nullptr, "- - - - 210", L"    1000Bern7"},
  };
  FdoPtr<FdoIExtendedSelect> select = Make<FdoIExtendedSelect>(connection_, FdoCommandType_ExtendedSelect);
  select->SetFeatureClassName(L"town");
  for (Claim const& claim : claims) {
    FdoPtr<FdoIdentifierCollection> ordering = select->GetOrdering();
    ordering->Clear();
    if (claim.ordering != nullptr) {
      ordering->Add(FdoPtr<FdoIdentifier>(FdoIdentifier::Create(claim.ordering)));
    }
    FdoPtr<FdoIFeatureReader> reader = select->Execute();
    std::wstring values;
    ASSERT_TRUE(reader->ReadNext());
    for (char const* read = claim.read; *read != 0; ++read) {
      if (*read == ' ') {
        ASSERT_TRUE(reader->ReadNext());
        values += L" ";
      } else if (*read != '-') {
        FdoInt32 const place = *read - '0';
        values += reader->IsNull(place) ? L"NULL"
                  : place == 0          ? std::to_wstring(reader->GetInt64(place))
                  : place == 1          ? std::wstring(reader->GetString(place))
                                        : std::to_wstring(reader->GetInt32(place));
      }
    }
    EXPECT_FALSE(reader->ReadNext());
    EXPECT_EQ(values, claim.values) << claim.read;
  }
}

TEST_F(Select, AnotherConnectionIsNotKeptFromWritingOnceAllIsRead) {
  FdoPtr<FdoISelect> select = MakeSelectOf(connection_, L"town");
  FdoPtr<FdoIFeatureReader> reader = select->Execute();
  while (reader->ReadNext()) {
  }
  store_.Run("DELETE FROM town WHERE id = 1");
  FdoPtr<FdoIFeatureReader> half = select->Execute();
  ASSERT_TRUE(half->ReadNext());
  half->Close();
  store_.Run("DELETE FROM town WHERE id = 2");
  EXPECT_EQ(Ids(nullptr), "3,4,7");
}

TEST_F(Select, ReadersOutliveCommandsAndStandWhileOthersWrite) {
  FdoPtr<FdoIFeatureReader> reader = MakeSelectOf(connection_, L"town")->Execute();
  ASSERT_TRUE(reader->ReadNext());
  FdoPtr<FdoIUpdate> update = Make<FdoIUpdate>(connection_, FdoCommandType_Update);
  update->SetFeatureClassName(L"town");
  update->SetFilter(L"id = 7");
  GiveText(update, L"name", L"'Biel'");
  EXPECT_EQ(update->Execute(), 1);
  EXPECT_STREQ(reader->GetString(L"name"), L"Ulm");
  EXPECT_EQ(Texts(reader, L"name"), L"Bern,Graz,NULL,Biel");
}

TEST_F(Select, AClosedConnectionEndsItsReaders) {
  FdoPtr<FdoIFeatureReader> reader = MakeSelectOf(connection_, L"town")->Execute();
  ASSERT_TRUE(reader->ReadNext());
  EXPECT_EQ(reader->GetInt64(L"id"), 1);
  connection_->Close();
  // What was not read of the row is gone.
  EXPECT_TRUE(reader->IsNull(L"name"));
  EXPECT_TRUE(reader->IsNull(L"people"));
  MessageThrownBy<FdoCommandException>([&] { reader->GetString(L"name"); });
  MessageThrownBy<FdoCommandException>([&] { reader->ReadNext(); });
  MessageThrownBy<FdoCommandException>([&] { MakeSelectOf(connection_, L"town")->Execute(); });
  reader = nullptr;
  EXPECT_EQ(connection_->GetRefCount(), 1);
  connection_->Open();
  EXPECT_EQ(Ids(L"id = 7"), "7");
}

TEST_F(Select, LocksAndScrollingAreRefused) {
  FdoPtr<FdoIExtendedSelect> select = Make<FdoIExtendedSelect>(connection_, FdoCommandType_ExtendedSelect);
  select->SetFeatureClassName(L"town");
  EXPECT_EQ(select->GetLockType(), FdoLockType_None);
  MessageThrownBy<FdoCommandException>([&] { select->SetLockType(FdoLockType_Shared); });
  MessageThrownBy<FdoCommandException>([&] { select->ExecuteWithLock(); });
  MessageThrownBy<FdoCommandException>([&] { select->ExecuteScrollable(); });
}

TEST_F(Select, ClassesAreFoundOrRefused) {
  MessageThrownBy<FdoCommandException>([&] { MakeSelectOf(connection_, L"village")->Execute(); });
  MessageThrownBy<FdoCommandException>(
      [&] { Make<FdoISelect>(connection_, FdoCommandType_Select)->Execute(); });
}

TEST_F(Select, TablesWithoutAKeyShowTheirRowIds) {
  store_.Run("CREATE TABLE plain (name TEXT); INSERT INTO plain VALUES ('a'), ('b')");
  FdoPtr<FdoIFeatureReader> reader = MakeSelectOf(connection_, L"plain", L"rowid = 2")->Execute();
  ASSERT_TRUE(reader->ReadNext());
  EXPECT_EQ(reader->GetInt64(0), 2);
  EXPECT_STREQ(reader->GetString(1), L"b");
}

TEST_F(Select, ParametersAreBound) {
  FdoPtr<FdoISelect> select = MakeSelectOf(connection_, L"town", L"name = :name");
  FdoPtr<FdoParameterValueCollection> parameters = select->GetParameterValues();
  MessageThrownBy<FdoCommandException>([&] { select->Execute(); });
  FdoPtr<FdoStringValue> name = FdoStringValue::Create(L"Bern");
  parameters->Add(FdoPtr<FdoParameterValue>(FdoParameterValue::Create(L"name", name)));
  EXPECT_EQ(Numbers(FdoPtr<FdoIFeatureReader>(select->Execute()), L"id"), "2,7");
}

}  // namespace
}  // namespace fdo_sqlite
