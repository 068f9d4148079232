// Short forms of the commands on rows, for tests.
#ifndef SDK_PROVIDERS_SQLITE_ROW_COMMANDS_H_
#define SDK_PROVIDERS_SQLITE_ROW_COMMANDS_H_

#include <string>
#include <utility>
#include <vector>

#include "sdk/providers/sqlite/store_test_schema.h"
#include "sdk/providers/sqlite/test_store.h"

namespace fdo_sqlite {

// A connection that does not wait for the disk: nothing here outlives the machine.
inline FdoPtr<Connection> OpenQuickly(TestStore const& store) {
  FdoPtr<Connection> connection = store.Open();
  connection->OpenedDatabase().Execute("PRAGMA synchronous = OFF");
  return connection;
}

inline FdoPtr<FdoISelect> MakeSelectOf(Connection* connection, FdoString* className,
                                       FdoString* filter = nullptr) {
  FdoPtr<FdoISelect> select = Make<FdoISelect>(connection, FdoCommandType_Select);
  select->SetFeatureClassName(className);
  if (filter != nullptr) select->SetFilter(filter);
  return select;
}

inline FdoPtr<FdoIInsert> MakeInsertInto(Connection* connection, FdoString* className) {
  FdoPtr<FdoIInsert> insert = Make<FdoIInsert>(connection, FdoCommandType_Insert);
  insert->SetFeatureClassName(className);
  return insert;
}

// Command is an insert or an update.
template <class Command>
void Give(Command& command, FdoString* name, FdoValueExpression* value) {
  FdoPtr<FdoPropertyValueCollection> values = command->GetPropertyValues();
  values->Add(FdoPtr<FdoPropertyValue>(FdoPropertyValue::Create(name, value)));
}

// value in the text form of expressions.
template <class Command>
void GiveText(Command& command, FdoString* name, FdoString* value) {
  FdoPtr<FdoPropertyValueCollection> values = command->GetPropertyValues();
  FdoPtr<FdoPropertyValue> pair = FdoPropertyValue::Create(name, nullptr);
  pair->SetValue(value);
  values->Add(pair);
}

// Texts of a property, of every row: "a,b", null as NULL.
inline std::wstring Texts(FdoIReader* reader, FdoString* name) {
  std::wstring texts;
  while (reader->ReadNext()) {
    if (!texts.empty()) texts += L",";
    texts += reader->IsNull(name) ? L"NULL" : reader->GetString(name);
  }
  return texts;
}

// Numbers of an Int64 property, of every row: "1,2".
inline std::string Numbers(FdoIReader* reader, FdoString* name) {
  std::string numbers;
  while (reader->ReadNext()) {
    if (!numbers.empty()) numbers += ",";
    numbers += reader->IsNull(name) ? "NULL" : std::to_string(reader->GetInt64(name));
  }
  return numbers;
}

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_ROW_COMMANDS_H_
