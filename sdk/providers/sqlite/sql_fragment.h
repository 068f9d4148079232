// SqlFragment is a part of an SQL statement: its text, and what is to be bound to the question marks in it.
//
// SQLite's parser has a stack of 100 entries and takes trees of at most 1000 levels. A fragment knows what it
// needs of both, so that a filter beyond them is refused in words of its own, before SQLite sees it.
#ifndef SDK_PROVIDERS_SQLITE_SQL_FRAGMENT_H_
#define SDK_PROVIDERS_SQLITE_SQL_FRAGMENT_H_

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "Fdo.h"

namespace fdo_sqlite {

class SpatialOperand;

// Throws FdoCommandException* with the message.
[[noreturn]] void Refuse(std::wstring const& message);

// UTF-8 of the platform's wide text.
// Errors: FdoCommandException* for an unpaired surrogate, which no stored text can equal.
std::string Utf8Of(std::wstring_view text);

// A class of its own, because g++ 12 takes a variant of standard classes alone for one that always holds a
// value, and does not survive a copy for which there is no memory.
struct SqlBytes : std::vector<FdoByte> {
  using std::vector<FdoByte>::vector;
};

// What a question mark stands for: null, a number, text in UTF-8, bytes, or the constant side of a spatial
// condition.
typedef std::variant<std::monostate, std::int64_t, double, std::string, SqlBytes,
                     std::shared_ptr<SpatialOperand const>>
    SqlParameter;

// How strongly the outermost operator of a fragment holds, the strongest last.
enum class SqlPower { kOr, kAnd, kNot, kComparison, kSum, kProduct, kAtom };

class SqlFragment {
 public:
  SqlFragment() = default;
  explicit SqlFragment(std::string text, SqlPower power = SqlPower::kAtom)
      : text_(std::move(text)), power_(power) {}

  // "?", with its value.
  static SqlFragment Parameter(SqlParameter value);
  // name(argument, ...)
  static SqlFragment Call(std::string_view name, std::vector<SqlFragment> const& arguments);
  // left operator right, which groups from the left.
  static SqlFragment Binary(SqlFragment const& left, std::string_view operation, SqlPower power,
                            SqlFragment const& right);
  // a AND b AND ..., or a OR b OR ...; a long list is grouped so that its tree stays low.
  // Requires: !operands.empty().
  static SqlFragment List(std::vector<SqlFragment> operands, SqlPower power);

  std::string const& Text() const { return text_; }
  std::vector<SqlParameter> const& Parameters() const { return parameters_; }
  SqlPower Power() const { return power_; }
  bool IsEmpty() const { return text_.empty(); }

  // Puts text, or another fragment, behind what there is. pending: how many entries of the parser's stack
  // what stands before it takes up while the fragment is read.
  // Errors: FdoCommandException* when the whole gets too deep, or has too many parameters.
  void Add(std::string_view text) { text_ += text; }
  void Add(SqlFragment const& part, int pending);
  // In parentheses unless it holds at least as strongly as that.
  void AddWithin(SqlFragment const& part, SqlPower least, int pending);
  void SetPower(SqlPower power) { power_ = power; }

 private:
  std::string text_;
  std::vector<SqlParameter> parameters_;
  SqlPower power_ = SqlPower::kAtom;
  int load_ = 1;    // entries of the parser's stack
  int height_ = 1;  // levels of SQLite's tree
};

// Binds them to the statement's parameters from that one on. Everything is copied or shared: it stays good
// without the parameters.
// Gives: the position behind the last one.
// Errors: FdoCommandException*.
int BindParameters(sqlite3_stmt* statement, std::vector<SqlParameter> const& parameters, int first = 1);

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_SQL_FRAGMENT_H_
