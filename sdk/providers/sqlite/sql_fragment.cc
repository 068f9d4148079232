#include "sdk/providers/sqlite/sql_fragment.h"

#include <algorithm>

#include "sdk/providers/sqlite/spatial_operand.h"
#include "sdk/providers/sqlite/sqlite_failure.h"
#include "sdk/runtime/core/utf8.h"

namespace fdo_sqlite {
namespace {

// Of SQLite's 100 and 1000: the rest is for the statement around the fragment.
constexpr int kMaximumLoad = 80;
constexpr int kMaximumHeight = 900;

// What SQLite takes unless it was built for more.
constexpr std::size_t kMaximumParameters = 32766;

// A list with an operand that needs more than this puts it first, where the parser has nothing else to
// remember. The order means nothing to SQL, but something to who reads it.
constexpr int kLoadToPutFirst = 20;

// The operands that one level of a list holds. SQLite's planner looks at each pair of them, and fails with
// thousands.
constexpr std::size_t kGroupSize = 250;

int Bind(sqlite3_stmt* statement, int position, SqlParameter const& parameter) {
  struct Binder {
    sqlite3_stmt* statement;
    int position;

    int operator()(std::monostate) const { return sqlite3_bind_null(statement, position); }
    int operator()(std::int64_t value) const { return sqlite3_bind_int64(statement, position, value); }
    int operator()(double value) const { return sqlite3_bind_double(statement, position, value); }
    int operator()(std::string const& value) const {
      return sqlite3_bind_text64(statement, position, value.data(), value.size(), SQLITE_TRANSIENT,
                                 SQLITE_UTF8);
    }
    int operator()(SqlBytes const& value) const {
      // No bytes are still a value; their address may be null, which would bind a null.
      if (value.empty()) return sqlite3_bind_zeroblob(statement, position, 0);
      return sqlite3_bind_blob64(statement, position, value.data(), value.size(), SQLITE_TRANSIENT);
    }
    int operator()(std::shared_ptr<SpatialOperand const> const& value) const {
      return SpatialOperand::Bind(statement, position, value);
    }
  };
  return std::visit(Binder{statement, position}, parameter);
}

}  // namespace

void Refuse(std::wstring const& message) { throw FdoCommandException::Create(message.c_str()); }

std::string Utf8Of(std::wstring_view text) {
  bool malformed = false;
  std::string utf8 = fdo_sdk::Utf8FromWide(text, &malformed);
  if (malformed) Refuse(L"The text \"" + std::wstring(text) + L"\" holds what is no character.");
  return utf8;
}

SqlFragment SqlFragment::Parameter(SqlParameter value) {
  SqlFragment made("?");
  made.parameters_.push_back(std::move(value));
  return made;
}

SqlFragment SqlFragment::Call(std::string_view name, std::vector<SqlFragment> const& arguments) {
  SqlFragment made{std::string(name)};
  made.Add("(");
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    if (i > 0) made.Add(", ");
    made.Add(arguments[i], i == 0 ? 3 : 5);
  }
  made.Add(")");
  return made;
}

SqlFragment SqlFragment::Binary(SqlFragment const& left, std::string_view operation, SqlPower power,
                                SqlFragment const& right) {
  SqlFragment made("", power);
  made.AddWithin(left, power, 0);
  made.Add(" ");
  made.Add(operation);
  made.Add(" ");
  made.AddWithin(right, static_cast<SqlPower>(static_cast<int>(power) + 1), 2);
  return made;
}

SqlFragment SqlFragment::List(std::vector<SqlFragment> operands, SqlPower power) {
  while (operands.size() > kGroupSize) {
    std::vector<SqlFragment> groups;
    for (std::size_t i = 0; i < operands.size(); i += kGroupSize) {
      auto const begin = operands.begin() + static_cast<std::ptrdiff_t>(i);
      auto const end = begin + static_cast<std::ptrdiff_t>(std::min(kGroupSize, operands.size() - i));
      // The plus sign changes no value; it hides the operands from the planner.
      SqlFragment group("+");
      group.AddWithin(List({begin, end}, power), SqlPower::kAtom, 1);
      groups.push_back(std::move(group));
    }
    operands = std::move(groups);
  }
  if (operands.size() == 1) return operands[0];
  auto const deepest =
      std::max_element(operands.begin(), operands.end(),
                       [](SqlFragment const& a, SqlFragment const& b) { return a.load_ < b.load_; });
  if (deepest->load_ > kLoadToPutFirst) std::rotate(operands.begin(), deepest, deepest + 1);
  SqlFragment made("", power);
  for (std::size_t i = 0; i < operands.size(); ++i) {
    if (i > 0) made.Add(power == SqlPower::kAnd ? " AND " : " OR ");
    made.AddWithin(operands[i], static_cast<SqlPower>(static_cast<int>(power) + 1), i == 0 ? 0 : 2);
  }
  made.height_ += static_cast<int>(operands.size()) - 1;
  return made;
}

void SqlFragment::Add(SqlFragment const& part, int pending) {
  text_ += part.text_;
  parameters_.insert(parameters_.end(), part.parameters_.begin(), part.parameters_.end());
  load_ = std::max(load_, pending + part.load_);
  height_ = std::max(height_, part.height_ + 1);
  if (load_ > kMaximumLoad || height_ > kMaximumHeight) {
    Refuse(L"The filter or expression is nested more deeply than SQLite can read.");
  }
  if (parameters_.size() > kMaximumParameters) {
    Refuse(L"The filter or expression has more than " + std::to_wstring(kMaximumParameters) +
           L" values, which is the most that SQLite takes.");
  }
}

void SqlFragment::AddWithin(SqlFragment const& part, SqlPower least, int pending) {
  if (part.power_ >= least) {
    Add(part, pending);
    return;
  }
  Add("(");
  Add(part, pending + 1);
  Add(")");
}

int BindParameters(sqlite3_stmt* statement, std::vector<SqlParameter> const& parameters, int first) {
  for (SqlParameter const& parameter : parameters) {
    int const code = Bind(statement, first, parameter);
    if (code != SQLITE_OK) {
      sqlite3* const database = sqlite3_db_handle(statement);
      ThrowFailure<FdoCommandException>(fdo_sdk::WideFromUtf8(sqlite3_db_filename(database, "main")), L"read",
                                        code, database);
    }
    ++first;
  }
  return first;
}

}  // namespace fdo_sqlite
