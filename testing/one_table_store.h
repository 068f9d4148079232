// A store in a SQLite file that is made for one test.
#ifndef TESTING_ONE_TABLE_STORE_H_
#define TESTING_ONE_TABLE_STORE_H_

#include <fdo/database_fdo.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "testing/schema_builder.h"

namespace fdo {

// Makes the file, with one empty table of those columns, as MakeTableDef takes them, and leaves the database
// connected to it. Where no registry names the provider, that is a diagnostic line.
inline void MakeOneTableStore(DatabaseFdo& database, std::wstring const& file, std::wstring_view table,
                              std::wstring_view columns) {
  EXPECT_TRUE(DatabaseFdo::Create(file.c_str(), nullptr));
  EXPECT_TRUE(database.Connect(file.c_str(), nullptr, nullptr, /*readOnly=*/false, /*loadSchema=*/true));
  DatabaseDef def;
  SetTables(def, L"Default", {MakeTableDef(L"Default", table, columns)});
  EXPECT_TRUE(database.SetSchema(def));
}

}  // namespace fdo

#endif  // TESTING_ONE_TABLE_STORE_H_
