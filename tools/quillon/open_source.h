// Opening what a path or a connection string names. The one place that decides which back end does it.
#ifndef TOOLS_QUILLON_OPEN_SOURCE_H_
#define TOOLS_QUILLON_OPEN_SOURCE_H_

#include <fdo/db_pool.h>

#include <string>
#include <vector>

#include "tools/quillon/session.h"

namespace CLI {
class App;
}

namespace fdo {
class DatabaseOgr;
}

namespace fdo::tool {

// What a command reads, as its options say it.
struct SourceOptions {
  std::string source;
  std::string provider;  // empty: the source tells

  // Declares both.
  // Requires: this stays where it is until the command line has been read
  void Define(CLI::App& app, char const* purpose);
};

// A source that is open for reading, through the connection pool.
struct Source {
  std::string name;  // as the user gave it
  DbHandle database;
  DatabaseOgr const* throughGdal = nullptr;  // the database, when GDAL opened it
};

// A provider that is named has to open the source itself. What the library reported on the way to a source
// that then opened is dropped.
// Errors: throws Failure that says whether the source is missing or cannot be read.
Source OpenSource(SourceOptions const& options, Session& session);

// The files that a source opened by an FDO provider is made of; none for any other.
std::vector<std::string> FilesOf(Source const& source);

// Why reading the source broke off, or "" when it did not. GDAL tells of damage on the way only so.
std::string ReadError(Source const& source);

// Ends a query whose rows have been read.
// Errors: throws Failure when reading them met an error, so that rows may be missing.
void FinishReading(Source const& source, Table& table, Session& session);

// Whether the source's queries order rows by a column.
bool OrdersRows(Source const& source);

// The table of that name, or the only one when the name is "".
// Errors: throws Failure that lists the tables, or suggests one.
Table& FindTable(Source& source, std::string const& tableName);

std::vector<std::wstring> TableNames(Database const& database);

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_OPEN_SOURCE_H_
