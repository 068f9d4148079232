// A Statement is one prepared SQL statement: bound, stepped, and given back for the next use of its text.
#ifndef SDK_PROVIDERS_SQLITE_STATEMENT_H_
#define SDK_PROVIDERS_SQLITE_STATEMENT_H_

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace fdo_sqlite {

class Database;

// The end of a Statement resets it, forgets what was bound and keeps the prepared form with its database.
// It may outlive the database's being open: then Step throws, and columns are null.
// Positions of parameters begin at 1, of columns at 0, as SQLite has them.
// Errors: FdoCommandException*, naming the file.
class Statement {
 public:
  Statement() = default;
  Statement(Statement&& other) noexcept = default;
  Statement& operator=(Statement&& other) noexcept;
  ~Statement() { GiveBack(); }

  bool IsPrepared() const { return prepared_ != nullptr; }
  // For SQLite's own calls on columns, which are too many to repeat. Null once the database is closed.
  sqlite3_stmt* Handle() const { return prepared_ == nullptr ? nullptr : prepared_->handle; }

  // Borrowed: text and bytes, until the statement is stepped to its end, bound anew or given back.
  void BindNull(int parameter) { Check(sqlite3_bind_null(Handle(), parameter)); }
  void Bind(int parameter, std::int64_t value) { Check(sqlite3_bind_int64(Handle(), parameter, value)); }
  void Bind(int parameter, double value) { Check(sqlite3_bind_double(Handle(), parameter, value)); }
  void BindText(int parameter, std::string_view utf8);
  void BindBlob(int parameter, void const* bytes, std::size_t size);
  // Copied.
  void BindText(int parameter, std::wstring_view text);

  // Moves to the next row; false when there is none. Errors: the statement is reset.
  bool Step() {
    sqlite3_stmt* const handle = Handle();
    if (handle == nullptr) FailClosed();
    int const code = sqlite3_step(handle);
    if (code == SQLITE_ROW) return true;
    if (code != SQLITE_DONE) FailStep(code);
    return false;
  }
  // Runs to the end, and resets: ready to be bound and run again.
  void Run();
  // Back before the first row; what is bound stays bound.
  void Reset();

  bool IsNull(int column) const { return sqlite3_column_type(Handle(), column) == SQLITE_NULL; }
  std::int64_t Int64(int column) const { return sqlite3_column_int64(Handle(), column); }
  double Double(int column) const { return sqlite3_column_double(Handle(), column); }
  // Borrowed: until the next Step. Units: bytes of UTF-8; null is empty.
  std::string_view Text(int column) const;
  std::wstring WideText(int column) const;

 private:
  friend class Database;
  struct Prepared {
    sqlite3_stmt* handle;  // null once the database is closed
    Database* database;
    std::string sql;
    wchar_t const* doing;
  };

  explicit Statement(std::shared_ptr<Prepared> prepared) : prepared_(std::move(prepared)) {}
  void Check(int code) const {
    if (code != SQLITE_OK) Fail(code);
  }
  [[noreturn]] void Fail(int code) const;
  [[noreturn]] void FailClosed() const;
  [[noreturn]] void FailStep(int code);
  void GiveBack() noexcept;

  std::shared_ptr<Prepared> prepared_;
};

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_STATEMENT_H_
