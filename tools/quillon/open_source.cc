#include "tools/quillon/open_source.h"

#include <Fdo.h>
#include <fdo/connection_string.h>
#include <fdo/database_fdo.h>
#include <fdo/database_ogr.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string_view>
#include <system_error>

#include "tools/quillon/messages.h"
#include "tools/quillon/option_checks.h"
#include "tools/quillon/path_text.h"
#include "tools/quillon/suggestion.h"
#include "tools/quillon/utf8.h"

namespace fdo::tool {

namespace {

// Sources that GDAL knows without a file of that name: "/vsizip/...", "PG:...", "https://...". The colon of a
// drive, where there are drives, makes none.
bool MayBeNoFile(std::string const& name) {
  std::size_t const drive = PathOf(name).root_name().native().size();
  return name.rfind("/vsi", 0) == 0 || name.find(':', drive) != std::string::npos;
}

// Each once, those that are not empty.
std::string Joined(std::vector<std::string> const& lines) {
  std::string text;
  for (auto line = lines.begin(); line != lines.end(); ++line) {
    if (line->empty() || std::find(lines.begin(), line, *line) != line) continue;
    text += (text.empty() ? "" : "; ") + *line;
  }
  return text;
}

// Why a provider that is named did not open a source: what it said itself, as far as there is one.
std::string ReasonsOfProvider(std::vector<std::string> lines) {
  constexpr std::string_view kNoneRegistered = "No FDO providers found.";
  auto const isNoReason = [&](std::string const& line) { return line.rfind(kNoneRegistered, 0) == 0; };
  lines.erase(std::remove_if(lines.begin(), lines.end(), isNoReason), lines.end());
  return lines.empty() ? "there is no provider of that name" : Joined(lines);
}

// Why a source did not open: what an FDO provider said that was found, and what GDAL said of reading.
std::string Reasons(std::vector<ConnectAttempt> const& attempts) {
  std::vector<std::string> reasons;
  for (ConnectAttempt const& attempt : attempts) {
    bool const throughFdo = attempt.backEnd == L"FDO";
    std::istringstream message(Utf8(attempt.message));
    for (std::string line; std::getline(message, line);) {
      // That no provider serves such files is no reason: GDAL comes next.
      if (!throughFdo || line.rfind("FDO connection failure", 0) == 0) reasons.push_back(line);
    }
  }
  return Joined(reasons);
}

// Null for a source that no FDO provider opened.
FdoPtr<FdoIConnection> ConnectionOf(Source const& source) {
  auto const* const database =
      dynamic_cast<DatabaseFdo const*>(static_cast<Database const*>(source.database));
  return FdoPtr<FdoIConnection>(database == nullptr ? nullptr : database->FdoConnection());
}

}  // namespace

void SourceOptions::Define(CLI::App& app, char const* purpose) {
  app.add_option("SOURCE", source, purpose)->required();
  app.add_option("--provider", provider, "The FDO provider to open it; SOURCE is then a connection string")
      ->check(NotEmpty())
      ->type_name("NAME");
}

Source OpenSource(SourceOptions const& options, Session& session) {
  std::string const& name = options.source;
  std::wstring wideName, wideProvider;
  WideFromUtf8(name, wideName);
  WideFromUtf8(options.provider, wideProvider);
  bool const providerIsNamed = !wideProvider.empty();
  std::error_code ignored;
  std::filesystem::file_status const present = std::filesystem::status(PathOf(name), ignored);
  bool const exists = std::filesystem::exists(present);
  if (name.empty()) throw Usage("SOURCE is empty");
  if (!providerIsNamed && !exists && !MayBeNoFile(name)) throw SourceMissing(name);
  // Opening one waits for whoever writes into it.
  if (!providerIsNamed && std::filesystem::is_fifo(present)) throw SourceIsPipe(name);

  Database* const database =
      DbPool::GetConnectionForReading(wideName.c_str(), wideProvider.c_str(), nullptr, /*loadSchema=*/true);
  auto const lines = session.TakeDiagnostics();
  auto const* const throughGdal = dynamic_cast<DatabaseOgr const*>(database);
  if (providerIsNamed && (database == nullptr || throughGdal != nullptr)) {
    DbPool::ReleaseConnection(database, /*destroy=*/true);
    std::wstring const connectionString = MakeConnectionString(wideProvider.c_str(), wideName.c_str());
    if (exists && connectionString != wideName) throw PathIsNoConnectionString(name, connectionString);
    throw ProviderFailed(name, options.provider, ReasonsOfProvider(lines));
  }
  if (database == nullptr) throw SourceUnreadable(name, Reasons(DbPool::LastAttempts()));
  return {name, database, throughGdal};
}

std::vector<std::string> FilesOf(Source const& source) {
  std::vector<std::string> files;
  FdoPtr<FdoIConnection> const connection = ConnectionOf(source);
  if (connection == nullptr) return files;
  FdoPtr<FdoIConnectionInfo> const info = connection->GetConnectionInfo();
  FdoPtr<FdoStringCollection> const names = info->GetDependentFileNames();
  for (FdoInt32 i = 0; names != nullptr && i < names->GetCount(); ++i) {
    files.push_back(Utf8(names->GetString(i)));
  }
  return files;
}

std::string ReadError(Source const& source) {
  return source.throughGdal == nullptr ? std::string() : Utf8(source.throughGdal->LastError());
}

void FinishReading(Source const& source, Table& table, Session& session) {
  table.EndQuery();
  std::string const readError = ReadError(source);
  if (session.ShowDiagnostics() || !readError.empty()) throw RowsMissing(source.name, readError);
}

bool OrdersRows(Source const& source) {
  FdoPtr<FdoIConnection> const connection = ConnectionOf(source);
  if (connection == nullptr) return false;
  FdoPtr<FdoICommandCapabilities> const capabilities = connection->GetCommandCapabilities();
  FdoInt32 count = 0;
  FdoInt32 const* const commands = capabilities->GetCommands(count);
  return std::find(commands, commands + count, FdoCommandType_ExtendedSelect) != commands + count;
}

Table& FindTable(Source& source, std::string const& tableName) {
  Database& database = *source.database;
  auto const names = TableNames(database);
  std::vector<std::string> utf8Names;
  for (auto const& name : names) utf8Names.push_back(Utf8(name));
  if (names.empty()) throw NoTables(source.name);
  if (tableName.empty()) {
    if (names.size() > 1) throw TableNotNamed(source.name, utf8Names);
    return database[0];
  }
  std::wstring wanted;
  WideFromUtf8(tableName, wanted);
  if (Table* const table = database[wanted.c_str()]; table != nullptr) return *table;
  throw NoSuchTable(source.name, tableName, Utf8(Suggest(wanted, names)), utf8Names);
}

std::vector<std::wstring> TableNames(Database const& database) {
  std::vector<std::wstring> names;
  for (int i = 0; i < database.Count(); ++i) names.emplace_back(database[i].Def()->Name());
  return names;
}

}  // namespace fdo::tool
