// The command that runs a statement of SQLite's own language.
#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "sdk/providers/base/reads_by_name.h"
#include "sdk/providers/sqlite/ascii.h"
#include "sdk/providers/sqlite/column_types.h"
#include "sdk/providers/sqlite/command_base.h"
#include "sdk/providers/sqlite/commands.h"
#include "sdk/providers/sqlite/reader_base.h"
#include "sdk/providers/sqlite/sql_value.h"

namespace fdo_sqlite {
namespace {

// The interface's reader of statements, and behind it what other readers have besides.
class ColumnReader : public FdoISQLDataReader {
 public:
  virtual FdoString* GetPropertyName(FdoInt32 index) = 0;
  virtual FdoInt32 GetPropertyIndex(FdoString* name) = 0;
  virtual FdoIRaster* GetRaster(FdoInt32 index) = 0;
  virtual FdoIRaster* GetRaster(FdoString* name) = 0;
};

class SqlReader : public ReaderBase<ColumnReader> {
 public:
  using ReaderBase<ColumnReader>::ReaderBase;

  FdoInt32 GetColumnCount() override { return cursor_.Columns().Count(); }
  FdoString* GetColumnName(FdoInt32 index) override { return GetPropertyName(index); }
  FdoInt32 GetColumnIndex(FdoString* name) override { return GetPropertyIndex(name); }
  FdoDataType GetColumnType(FdoString* name) override { return GetColumnType(GetPropertyIndex(name)); }
  FdoPropertyType GetPropertyType(FdoString* name) override {
    return GetPropertyType(GetPropertyIndex(name));
  }
  FdoDataType GetColumnType(FdoInt32 index) override {
    return static_cast<FdoDataType>(cursor_.ColumnAt(index).type);
  }
  FdoPropertyType GetPropertyType(FdoInt32 index) override {
    cursor_.ColumnAt(index);
    return FdoPropertyType_DataProperty;
  }
};

// What is left of SQL behind blanks, comments and semicolons.
std::string_view SkipToWord(std::string_view sql) {
  while (!sql.empty()) {
    std::size_t skipped = 1;
    if (sql.starts_with("--")) {
      skipped = sql.find('\n');
    } else if (sql.starts_with("/*")) {
      skipped = sql.find("*/", 2);
      if (skipped != std::string_view::npos) skipped += 2;
    } else if (std::string_view(" \t\n\f\r;").find(sql.front()) == std::string_view::npos) {
      return sql;
    }
    sql.remove_prefix(skipped < sql.size() ? skipped : sql.size());
  }
  return sql;
}

// The transaction is the connection's, and so is the file.
constexpr std::string_view kRefusedWords[] = {"BEGIN",     "COMMIT",  "END",    "ROLLBACK",
                                              "SAVEPOINT", "RELEASE", "ATTACH", "DETACH"};
constexpr std::size_t kLongestWord = 9;

void RequireAllowed(std::string_view statement) {
  if (statement.empty()) Refuse(L"There is no statement to run.");
  std::string word = UpperAscii(std::string(statement.substr(0, kLongestWord + 1)));
  word.resize(std::min(word.size(), word.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ")));
  for (std::string_view const refused : kRefusedWords) {
    if (word != refused) continue;
    Refuse(
        L"The statement " + fdo_sdk::WideFromUtf8(word) +
        L" cannot be run as SQL: transactions begin with BeginTransaction, and a connection has one file.");
  }
}

// What a column without a declaration gives is known from a value.
FdoDataType TypeOfValue(int sqliteType) {
  switch (sqliteType) {
    case SQLITE_INTEGER:
      return FdoDataType_Int64;
    case SQLITE_FLOAT:
      return FdoDataType_Double;
    case SQLITE_BLOB:
      return FdoDataType_BLOB;
    default:
      return FdoDataType_String;
  }
}

// The columns of a statement, as they are declared where they are a table's, otherwise as their values in the
// first row are. Leaves the statement before its first row.
ResultColumnsPtr ColumnsOf(Statement& statement) {
  int const count = sqlite3_column_count(statement.Handle());
  std::vector<ResultColumn> columns(static_cast<std::size_t>(count));
  std::vector<int> undeclared;
  for (int i = 0; i < count; ++i) {
    ResultColumn& column = columns[static_cast<std::size_t>(i)];
    char const* const name = sqlite3_column_name(statement.Handle(), i);
    char const* const declared = sqlite3_column_decltype(statement.Handle(), i);
    column.name = fdo_sdk::WideFromUtf8(name == nullptr ? "" : name);
    if (declared == nullptr) {
      undeclared.push_back(i);
    } else {
      column.type = TypeOfDeclaration(declared).type;
    }
  }
  if (!undeclared.empty()) {
    bool const hasRow = statement.Step();
    for (int const i : undeclared) {
      int const type = hasRow ? sqlite3_column_type(statement.Handle(), i) : SQLITE_NULL;
      columns[static_cast<std::size_t>(i)].type = TypeOfValue(type);
    }
    statement.Reset();
  }
  return std::make_shared<ResultColumns const>(std::move(columns));
}

SqlParameter ParameterOf(FdoLiteralValue* value) {
  if (value == nullptr) return std::monostate();
  if (value->GetLiteralValueType() != FdoLiteralValueType_Geometry) {
    return LiteralValue(*static_cast<FdoDataValue*>(value)).sql.Parameters().front();
  }
  FdoPtr<FdoByteArray> const fgf = static_cast<FdoGeometryValue*>(value)->GetGeometry();
  if (fgf == nullptr) return std::monostate();
  return SqlBytes(fgf->GetData(), fgf->GetData() + fgf->GetCount());
}

class SqlCommand : public CommandBase<FdoISQLCommand> {
 public:
  using CommandBase<FdoISQLCommand>::CommandBase;

  FdoString* GetSQLStatement() override { return sql_; }
  void SetSQLStatement(FdoString* value) override { sql_ = value; }

  // Gives the number of rows that were inserted, changed or removed. Rows that the statement gives are not
  // read.
  FdoInt32 ExecuteNonQuery() override {
    Database& database = OpenedDatabase();
    connection_->SettleWrites();
    Statement statement = Prepared(database, L"change");
    sqlite3_int64 const before = sqlite3_total_changes64(database.Handle());
    statement.Run();
    // Whatever it may have changed in tables is learned anew. Indexes note the rows that were written, by
    // whomever.
    Schema().Forget();
    bool const changedRows = sqlite3_total_changes64(database.Handle()) != before;
    return changedRows ? static_cast<FdoInt32>(sqlite3_changes(database.Handle())) : 0;
  }

  FdoISQLDataReader* ExecuteReader() override {
    Statement statement = Prepared(OpenedDatabase(), L"read");
    if (sqlite3_column_count(statement.Handle()) == 0) {
      Refuse(L"The statement gives no rows: it is for ExecuteNonQuery.");
    }
    if (sqlite3_stmt_readonly(statement.Handle()) == 0) {
      Refuse(L"The statement changes the store: it is for ExecuteNonQuery.");
    }
    ResultColumnsPtr const columns = ColumnsOf(statement);
    return new fdo_provider::ReadsByName<SqlReader>(connection_,
                                                    ResultCursor(std::move(statement), columns, nullptr));
  }

 private:
  // One statement, with its parameters bound.
  Statement Prepared(Database& database, wchar_t const* doing) {
    std::string const text = Utf8Of(static_cast<FdoString*>(sql_));
    std::string const sql(SkipToWord(text));
    RequireAllowed(sql);
    Statement statement = database.Prepare(sql, doing);
    std::string_view const taken(sqlite3_sql(statement.Handle()));
    if (!SkipToWord(std::string_view(sql).substr(taken.size())).empty()) {
      Refuse(L"There is more than one statement; each is run by itself.");
    }
    Bind(statement);
    return statement;
  }

  // A parameter that has a name, as in :name, @name or $name, takes the value of that name; one without, ?,
  // the value at its place.
  void Bind(Statement& statement) {
    std::vector<SqlParameter> values;
    int const count = sqlite3_bind_parameter_count(statement.Handle());
    for (int i = 1; i <= count; ++i) {
      char const* const name = sqlite3_bind_parameter_name(statement.Handle(), i);
      FdoPtr<FdoParameterValue> given;
      if (name != nullptr && name[0] != '?') {
        given = parameters_->FindItem(fdo_sdk::WideFromUtf8(name + 1).c_str());
      } else if (i <= parameters_->GetCount()) {
        given = parameters_->GetItem(i - 1);
      }
      if (given == nullptr) {
        Refuse(L"The parameter \"" + fdo_sdk::WideFromUtf8(name == nullptr ? "?" : name) +
               L"\" has no value.");
      }
      values.push_back(ParameterOf(FdoPtr<FdoLiteralValue>(given->GetValue())));
    }
    BindParameters(statement.Handle(), values);
  }

  FdoStringP sql_;
};

}  // namespace

FdoICommand* MakeSqlCommand(Connection* connection) { return new SqlCommand(connection); }

}  // namespace fdo_sqlite
