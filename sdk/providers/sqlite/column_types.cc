#include "sdk/providers/sqlite/column_types.h"

#include <array>
#include <charconv>
#include <string_view>

#include "sdk/providers/sqlite/ascii.h"

namespace fdo_sqlite {
namespace {

constexpr int kNever = -1;

// The written ones are known to programs that read such files: STRING, SINGLE or DECIMAL(10,2) would not be.
constexpr DeclaredType kDeclaredTypes[] = {
    // declaration       read as               written for           in parentheses
    {"INTEGER_BOOLEAN", FdoDataType_Boolean, FdoDataType_Boolean, Digits::kNone},
    {"BOOLEAN", FdoDataType_Boolean, kNever, Digits::kNone},
    {"BOOL", FdoDataType_Boolean, kNever, Digits::kNone},
    {"TINYINT", FdoDataType_Byte, FdoDataType_Byte, Digits::kNone},
    {"BYTE", FdoDataType_Byte, kNever, Digits::kNone},
    {"TIMESTAMP", FdoDataType_DateTime, FdoDataType_DateTime, Digits::kNone},
    {"DATETIME", FdoDataType_DateTime, kNever, Digits::kNone},
    {"DATE", FdoDataType_DateTime, kNever, Digits::kNone},
    {"TIME", FdoDataType_DateTime, kNever, Digits::kNone},
    {"DECIMAL", FdoDataType_Decimal, FdoDataType_Decimal, Digits::kPrecisionAndScale},
    {"NUMERIC", FdoDataType_Decimal, kNever, Digits::kPrecisionAndScale},
    {"DOUBLE", FdoDataType_Double, FdoDataType_Double, Digits::kNone},
    {"DOUBLE PRECISION", FdoDataType_Double, kNever, Digits::kNone},
    {"REAL", FdoDataType_Double, kNever, Digits::kNone},
    // Programs declare their doubles so, too; without metadata a Single comes back widened.
    {"FLOAT", FdoDataType_Double, FdoDataType_Single, Digits::kNone},
    {"FLOAT32", FdoDataType_Single, kNever, Digits::kNone},
    {"SINGLE", FdoDataType_Single, kNever, Digits::kNone},
    {"SMALLINT", FdoDataType_Int16, FdoDataType_Int16, Digits::kNone},
    {"INTEGER_INT16", FdoDataType_Int16, kNever, Digits::kNone},
    {"INT16", FdoDataType_Int16, kNever, Digits::kNone},
    {"INT", FdoDataType_Int32, FdoDataType_Int32, Digits::kNone},
    {"MEDIUMINT", FdoDataType_Int32, kNever, Digits::kNone},
    {"INT32", FdoDataType_Int32, kNever, Digits::kNone},
    {"BIGINT", FdoDataType_Int64, FdoDataType_Int64, Digits::kNone},
    // SQLite's values have 64 bits whatever the column's declaration.
    {"INTEGER", FdoDataType_Int64, kNever, Digits::kNone},
    {"INT8", FdoDataType_Int64, kNever, Digits::kNone},
    {"INT64", FdoDataType_Int64, kNever, Digits::kNone},
    {"LONG", FdoDataType_Int64, kNever, Digits::kNone},
    {"UNSIGNED BIG INT", FdoDataType_Int64, kNever, Digits::kNone},
    {"TEXT", FdoDataType_String, FdoDataType_String, Digits::kLength},
    {"VARCHAR", FdoDataType_String, kNever, Digits::kLength},
    {"NVARCHAR", FdoDataType_String, kNever, Digits::kLength},
    {"CHAR", FdoDataType_String, kNever, Digits::kLength},
    {"JSONINTEGERLIST", FdoDataType_String, kNever, Digits::kNone},
    {"JSONINTEGER64LIST", FdoDataType_String, kNever, Digits::kNone},
    {"JSONREALLIST", FdoDataType_String, kNever, Digits::kNone},
    {"JSONSTRINGLIST", FdoDataType_String, kNever, Digits::kNone},
    {"CLOB", FdoDataType_CLOB, FdoDataType_CLOB, Digits::kLength},
    {"BLOB", FdoDataType_BLOB, FdoDataType_BLOB, Digits::kLength},
};

// SQLite's own rules of affinity, in their order, for declarations that are in no row above.
struct Affinity {
  std::string_view part;
  FdoDataType type;
};
constexpr Affinity kAffinities[] = {
    {"INT", FdoDataType_Int64},   {"CHAR", FdoDataType_String}, {"CLOB", FdoDataType_String},
    {"TEXT", FdoDataType_String}, {"BLOB", FdoDataType_BLOB},   {"REAL", FdoDataType_Double},
    {"FLOA", FdoDataType_Double}, {"DOUB", FdoDataType_Double},
};

constexpr std::array<wchar_t const*, 12> kTypeNames = {L"Boolean", L"Byte",   L"DateTime", L"Decimal",
                                                       L"Double",  L"Int16",  L"Int32",    L"Int64",
                                                       L"Single",  L"String", L"BLOB",     L"CLOB"};

DeclaredType AffinityOf(std::string const& upper) {
  for (Affinity const& affinity : kAffinities) {
    if (upper.find(affinity.part) == std::string::npos) continue;
    Digits const digits = affinity.type == FdoDataType_String ? Digits::kLength : Digits::kNone;
    return {"", affinity.type, kNever, digits};
  }
  return {"", upper.empty() ? FdoDataType_BLOB : FdoDataType_Double, kNever, Digits::kNone};
}

DeclaredType RowOf(std::string const& upper) {
  for (DeclaredType const& row : kDeclaredTypes) {
    if (upper == row.declaration) return row;
  }
  return AffinityOf(upper);
}

// The number that text begins with, and the text behind it. Errors: 0.
std::int32_t NumberAt(std::string_view& text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  std::int32_t number = 0;
  auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return error == std::errc() && number > 0 ? number : 0;
}

}  // namespace

std::span<DeclaredType const> DeclaredTypes() { return kDeclaredTypes; }

TypeAndSize TypeOfDeclaration(std::string const& declaration) {
  std::size_t const parenthesis = declaration.find('(');
  std::string upper = UpperAscii(declaration.substr(0, parenthesis));
  while (!upper.empty() && upper.back() == ' ') upper.pop_back();
  DeclaredType const row = RowOf(upper);
  TypeAndSize result = {row.readAs, 0, 0, 0};
  if (parenthesis == std::string::npos) return result;

  std::string_view numbers = std::string_view(declaration).substr(parenthesis + 1);
  std::int32_t const first = NumberAt(numbers);
  if (row.digits == Digits::kLength) result.length = first;
  if (row.digits != Digits::kPrecisionAndScale) return result;
  result.precision = first;
  std::size_t const comma = numbers.find(',');
  if (comma == std::string_view::npos) return result;
  numbers.remove_prefix(comma + 1);
  result.scale = NumberAt(numbers);
  return result;
}

std::string DeclarationOf(FdoDataType type, std::int32_t length) {
  if (type == FdoDataType_String && length > 0) return "VARCHAR(" + std::to_string(length) + ")";
  for (DeclaredType const& row : kDeclaredTypes) {
    if (row.writtenFor == type) return row.declaration;
  }
  return "";
}

wchar_t const* TypeName(FdoDataType type) { return kTypeNames[static_cast<std::size_t>(type)]; }

bool IsIntegerType(FdoDataType type) {
  return type == FdoDataType_Byte || type == FdoDataType_Int16 || type == FdoDataType_Int32 ||
         type == FdoDataType_Int64;
}

}  // namespace fdo_sqlite
