#include "tools/quillon/named_values.h"

#include <algorithm>
#include <charconv>
#include <cwchar>
#include <system_error>

#include "tools/quillon/messages.h"
#include "tools/quillon/suggestion.h"
#include "tools/quillon/tree_visitor.h"
#include "tools/quillon/utf8.h"

namespace fdo::tool {

namespace {

// Finds the identifiers that are no columns.
class NameVisitor : public TreeVisitor {
 public:
  explicit NameVisitor(TableDef const& def) : def_(def) {}

  // Each once, in the order in which they come.
  std::vector<std::wstring> const& Missing() const { return missing_; }

 protected:
  void OnIdentifier(FdoIdentifier& identifier) override {
    if (def_.IndexOf(identifier.GetText()) >= 0 || def_.IndexOf(identifier.GetName()) >= 0) return;
    std::wstring const name = identifier.GetName();
    if (std::find(missing_.begin(), missing_.end(), name) == missing_.end()) missing_.push_back(name);
  }

 private:
  TableDef const& def_;
  std::vector<std::wstring> missing_;
};

std::vector<std::wstring> NamesMissing(TableDef const& def, FdoFilter* filter, FdoExpression* expression) {
  NameVisitor visitor(def);
  visitor.Visit(filter);
  visitor.Visit(expression);
  return visitor.Missing();
}

TableDef DefOf(std::vector<ColumnDef> const& columns) {
  TableDef def;
  constexpr int kNone = -1;
  def.Initialize(L"", L"", columns.data(), static_cast<int>(columns.size()), kNone, kNone, 0);
  return def;
}

bool IsWord(std::string_view text, std::string_view lowerCase) {
  auto const same = [](char c, char lower) {
    return c == lower || (c >= 'A' && c <= 'Z' && c + 32 == lower);
  };
  return std::equal(text.begin(), text.end(), lowerCase.begin(), lowerCase.end(), same);
}

template <class Number>
bool IsNumber(std::string_view text, Number& number) {
  char const* const end = text.data() + text.size();
  auto const read = std::from_chars(text.data(), end, number);
  // Words that the library takes for infinite, or for no number, are words here.
  return read.ec == std::errc() && read.ptr == end && text.find_first_of("0123456789") != text.npos;
}

// A text in single quotes without them.
std::string Unquoted(std::string_view text) {
  if (text.size() < 2 || text.front() != '\'' || text.back() != '\'') return std::string(text);
  std::string inside;
  for (std::size_t i = 1; i + 1 < text.size(); ++i) {
    inside += text[i];
    if (text[i] == '\'' && i + 2 < text.size() && text[i + 1] == '\'') ++i;
  }
  return inside;
}

// Types matter to how cells are printed only, so a null may be of any.
ColumnDef::DataType TypeOf(Value const& value) {
  switch (value.Type()) {
    case Value::kBool:
      return ColumnDef::kBoolean;
    case Value::kInt:
      return ColumnDef::kInt64;
    case Value::kDouble:
      return ColumnDef::kDouble;
    default:
      return ColumnDef::kString;
  }
}

TableDef MakeDef(std::vector<std::string> const& assignments) {
  std::vector<ColumnDef> columns;
  for (std::string const& assignment : assignments) {
    std::size_t const sign = assignment.find('=');
    if (sign == std::string::npos || sign == 0) throw BadAssignment(assignment);
    std::wstring name;
    WideFromUtf8(assignment.substr(0, sign), name);
    for (ColumnDef const& column : columns) {
      if (name == column.Name()) throw SetTwice(Utf8(name));
    }
    ColumnDef::DataType const type = TypeOf(ReadValue(std::string_view(assignment).substr(sign + 1)));
    columns.emplace_back().Initialize(name.c_str(), type, 0, Value(), nullptr);
  }
  return DefOf(columns);
}

}  // namespace

Value ReadValue(std::string_view utf8) {
  long long integer = 0;
  double number = 0;
  if (IsNumber(utf8, integer)) return Value(integer);
  if (IsNumber(utf8, number)) return Value(number);
  if (IsWord(utf8, "true")) return Value(true);
  if (IsWord(utf8, "false")) return Value(false);
  if (IsWord(utf8, "null")) return Value();
  std::wstring text;
  WideFromUtf8(Unquoted(utf8), text);
  return Value(text.c_str());
}

NamedValues::NamedValues(std::vector<std::string> const& assignments)
    : def_(MakeDef(assignments)), row_(&def_) {
  int column = 0;
  for (std::string const& assignment : assignments) {
    row_[column++] = ReadValue(std::string_view(assignment).substr(assignment.find('=') + 1));
  }
}

void NamedValues::Check(FdoFilter* filter, FdoExpression* expression) const {
  std::vector<std::wstring> const missing = NamesMissing(def_, filter, expression);
  if (missing.empty()) return;
  std::vector<std::wstring> names;
  for (int i = 0; i < def_.ColumnCount(); ++i) names.emplace_back(def_[i].Name());
  throw NoValue(Utf8(missing[0]), Utf8(Suggest(missing[0].c_str(), names)));
}

TableDef NamedValues::DefWithNamesOf(FdoFilter* filter, FdoExpression* expression) const {
  std::vector<ColumnDef> columns;
  for (int i = 0; i < def_.ColumnCount(); ++i) columns.push_back(def_[i]);
  for (std::wstring const& name : NamesMissing(def_, filter, expression)) {
    columns.emplace_back().Initialize(name.c_str(), ColumnDef::kUnset, 0, Value(), nullptr);
  }
  return DefOf(columns);
}

}  // namespace fdo::tool
