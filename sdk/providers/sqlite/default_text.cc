#include "sdk/providers/sqlite/default_text.h"

#include <algorithm>

#include "sdk/providers/sqlite/ascii.h"
#include "sdk/providers/sqlite/sql_names.h"

namespace fdo_sqlite {
namespace {

// The value of a quoted text in SQL, nothing for anything else.
std::optional<std::string> Unquoted(std::string const& sql) {
  if (sql.size() < 2 || (sql.front() != '\'' && sql.front() != '"') || sql.back() != sql.front()) {
    return std::nullopt;
  }
  std::string text;
  for (std::size_t i = 1; i + 1 < sql.size(); ++i) {
    if (sql[i] == sql.front()) {
      // Inside it stands for itself only when it is doubled.
      if (i + 2 >= sql.size() || sql[i + 1] != sql.front()) return std::nullopt;
      ++i;
    }
    text += sql[i];
  }
  return text;
}

bool IsNumber(std::wstring const& text) {
  bool const plain = text.find_first_not_of(L"0123456789+-.eE") == std::wstring::npos;
  return plain && FdoStringP(text.c_str()).IsNumber();
}

// A literal of the interface's expressions; null when the text is none.
FdoPtr<FdoExpression> Literal(std::wstring const& text) {
  try {
    return FdoPtr<FdoExpression>(FdoExpression::Parse(text.c_str()));
  } catch (FdoException* noExpression) {
    FdoPtr<FdoException> failure(noExpression);
    return FdoPtr<FdoExpression>();
  }
}

bool IsDateTime(std::wstring const& text) {
  FdoPtr<FdoExpression> literal = Literal(text);
  return dynamic_cast<FdoDateTimeValue*>(literal.p) != nullptr;
}

struct DateForm {
  wchar_t const* word;
  std::size_t shortest, longest;  // lengths of the text
};
constexpr DateForm kDateForms[] = {{L"TIMESTAMP", 16, 30}, {L"DATE", 10, 10}, {L"TIME", 5, 15}};

// The literal of a date or time as it is stored: 2024-03-01T14:30:05.500, a part of it, or with a blank.
std::wstring DateLiteral(std::wstring text) {
  std::replace(text.begin(), text.end(), L'T', L' ');
  for (DateForm const& form : kDateForms) {
    if (text.size() < form.shortest || text.size() > form.longest) continue;
    std::wstring const literal = std::wstring(form.word) + L" '" + text + L"'";
    if (IsDateTime(literal)) return literal;
  }
  return L"";
}

std::optional<std::string> SqlOfDate(std::wstring const& text) {
  std::wstring const literal = IsDateTime(text) ? text : DateLiteral(text);
  std::size_t const start = literal.find(L'\'');
  if (start == std::wstring::npos) return std::nullopt;
  std::wstring stored = literal.substr(start + 1, literal.rfind(L'\'') - start - 1);
  std::replace(stored.begin(), stored.end(), L' ', L'T');
  return QuotedText(fdo_sdk::Utf8FromWide(stored));
}

}  // namespace

std::wstring PropertyDefault(FdoDataType type, std::string const& sql) {
  std::optional<std::string> const text = Unquoted(sql);
  if (type == FdoDataType_String && text) return fdo_sdk::WideFromUtf8(*text);
  if (type == FdoDataType_DateTime && text) return DateLiteral(fdo_sdk::WideFromUtf8(*text));
  if (text || type == FdoDataType_BLOB || type == FdoDataType_CLOB || type == FdoDataType_DateTime)
    return L"";
  std::wstring const number = fdo_sdk::WideFromUtf8(sql);
  if (type == FdoDataType_Boolean) {
    std::string const word = UpperAscii(sql);
    if (word == "1" || word == "TRUE") return L"TRUE";
    return word == "0" || word == "FALSE" ? L"FALSE" : L"";
  }
  return IsNumber(number) ? number : L"";
}

std::optional<std::string> SqlDefault(FdoDataType type, std::wstring const& text) {
  std::string const utf8 = fdo_sdk::Utf8FromWide(text);
  if (type == FdoDataType_String) return QuotedText(utf8);
  if (type == FdoDataType_DateTime) return SqlOfDate(text);
  if (type == FdoDataType_BLOB || type == FdoDataType_CLOB) return std::nullopt;
  if (type == FdoDataType_Boolean) {
    std::string const word = UpperAscii(utf8);
    if (word == "TRUE" || word == "1") return "1";
    if (word == "FALSE" || word == "0") return "0";
    return std::nullopt;
  }
  return IsNumber(text) ? std::optional<std::string>(utf8) : std::nullopt;
}

}  // namespace fdo_sqlite
