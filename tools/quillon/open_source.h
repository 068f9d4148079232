// Opening what a path names. The one place that decides which back end does it.
#ifndef TOOLS_QUILLON_OPEN_SOURCE_H_
#define TOOLS_QUILLON_OPEN_SOURCE_H_

#include <fdo/database_ogr.h>

#include <memory>
#include <string>
#include <vector>

namespace fdo::tool {

// A source that is open for reading.
struct Source {
  std::string name;  // as the user gave it
  std::unique_ptr<DatabaseOgr> database;
};

// Errors: throws Failure that says whether the source is missing or cannot be read.
Source OpenSource(std::string const& name);

// Why reading the source broke off, or "" when it did not. GDAL tells of damage on the way only so.
std::string ReadError(Source const& source);

// The table of that name, or the only one when the name is "".
// Errors: throws Failure that lists the tables, or suggests one.
Table& FindTable(Source& source, std::string const& tableName);

std::vector<std::wstring> TableNames(Database const& database);

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_OPEN_SOURCE_H_
