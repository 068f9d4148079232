// The declared types of SQLite's columns and the data types of the interface, both ways, from one table.
#ifndef SDK_PROVIDERS_SQLITE_COLUMN_TYPES_H_
#define SDK_PROVIDERS_SQLITE_COLUMN_TYPES_H_

#include <cstdint>
#include <span>
#include <string>

#include "Fdo.h"

namespace fdo_sqlite {

// What the numbers in parentheses behind a declaration are.
enum class Digits { kNone, kLength, kPrecisionAndScale };

struct DeclaredType {
  char const* declaration;  // in capitals, without parentheses
  FdoDataType readAs;
  int writtenFor;  // the FdoDataType that new columns are declared so for, -1 for none
  Digits digits;
};

// One row per declaration that has a meaning of its own; whatever else is declared has the type of its
// affinity. Each data type is written by exactly one row.
std::span<DeclaredType const> DeclaredTypes();

struct TypeAndSize {
  FdoDataType type;
  std::int32_t length, precision, scale;  // 0: not stated
};

// What a declaration such as "varchar(20)" means.
TypeAndSize TypeOfDeclaration(std::string const& declaration);

// The declaration of a new column. A string with a length is VARCHAR(length).
std::string DeclarationOf(FdoDataType type, std::int32_t length);

// The name of a data type, as messages have it.
wchar_t const* TypeName(FdoDataType type);

bool IsIntegerType(FdoDataType type);

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_COLUMN_TYPES_H_
