// Names and constants as conditions of GDAL's layers have them.
#ifndef OGR_BACKEND_SQL_LITERAL_H_
#define OGR_BACKEND_SQL_LITERAL_H_

#include <optional>
#include <string>

#include "ogr_backend/filter_language.h"

namespace fdo::internal {

// A name in double quotes. Errors: nothing for a name that the language cannot hold.
std::optional<std::string> QuotedName(std::string const& name, FilterLanguage language);

// A text constant in single quotes. Errors: nothing for text that the language cannot hold or that files may
// encode in more than one way, as they do characters beyond U+FFFF.
std::optional<std::string> QuotedText(std::wstring const& text, FilterLanguage language);

// An integer that is no operator and operand with what stands before it.
// Errors: nothing for the least integer in GDAL's dialect, which has no text for it.
std::optional<std::string> IntegerText(long long number, FilterLanguage language);

// A real number that is read as exactly this one: SQLite may take 0.1 for the number next to it, and so is
// given a quotient that is 0.1.
// Requires: number is finite
std::string RealText(double number, FilterLanguage language);

}  // namespace fdo::internal

#endif  // OGR_BACKEND_SQL_LITERAL_H_
