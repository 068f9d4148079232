// A file of SQLite, changed and read as another program does.
#ifndef TESTING_SQLITE_FILE_H_
#define TESTING_SQLITE_FILE_H_

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>

#include "testing/scratch_directory.h"

namespace fdo {

// A folder with one file in it, which does not exist at first.
class SqliteFile {
 public:
  std::wstring File() const { return directory_.File("store.sqlite"); }
  std::string Utf8File() const {
    auto const text = (directory_.Path() / "store.sqlite").u8string();
    return {text.begin(), text.end()};
  }
  ScratchDirectory const& Directory() const { return directory_; }

  // Runs SQL as another program does, through a connection of its own. Makes the file when there is none.
  void Run(std::string const& sql) const {
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(Utf8File().c_str(), &other), SQLITE_OK);
    char* message = nullptr;
    sqlite3_exec(other, "PRAGMA synchronous = OFF", nullptr, nullptr, nullptr);
    EXPECT_EQ(sqlite3_exec(other, sql.c_str(), nullptr, nullptr, &message), SQLITE_OK) << message << "\n"
                                                                                       << sql;
    sqlite3_free(message);
    EXPECT_EQ(sqlite3_close(other), SQLITE_OK);
  }

  // The rows of a query, values joined with | and rows with ;, null as NULL.
  std::string Rows(std::string const& sql) const {
    sqlite3* other = nullptr;
    sqlite3_stmt* query = nullptr;
    EXPECT_EQ(sqlite3_open(Utf8File().c_str(), &other), SQLITE_OK);
    EXPECT_EQ(sqlite3_prepare_v2(other, sql.c_str(), -1, &query, nullptr), SQLITE_OK)
        << sqlite3_errmsg(other);
    std::string rows;
    while (query != nullptr && sqlite3_step(query) == SQLITE_ROW) {
      for (int i = 0; i < sqlite3_column_count(query); ++i) {
        auto const* text = reinterpret_cast<char const*>(sqlite3_column_text(query, i));
        rows += (i == 0 ? (rows.empty() ? "" : ";") : "|") + std::string(text == nullptr ? "NULL" : text);
      }
    }
    sqlite3_finalize(query);
    sqlite3_close(other);
    return rows;
  }

 private:
  ScratchDirectory directory_;
};

}  // namespace fdo

#endif  // TESTING_SQLITE_FILE_H_
