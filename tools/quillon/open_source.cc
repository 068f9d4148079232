#include "tools/quillon/open_source.h"

#include <filesystem>
#include <system_error>

#include "tools/quillon/messages.h"
#include "tools/quillon/path_text.h"
#include "tools/quillon/suggestion.h"
#include "tools/quillon/utf8.h"

namespace fdo::tool {

namespace {

// Sources that GDAL knows without a file of that name: "/vsizip/...", "PG:...", "https://...".
bool MayBeNoFile(std::wstring const& name) {
  return name.rfind(L"/vsi", 0) == 0 || name.find(L':') != std::wstring::npos;
}

}  // namespace

Source OpenSource(std::string const& name) {
  std::wstring wideName;
  WideFromUtf8(name, wideName);
  std::error_code ignored;
  bool const exists = std::filesystem::exists(PathOf(name), ignored);
  if (!exists && !MayBeNoFile(wideName)) throw SourceMissing(name);

  constexpr bool kReadOnly = true, kLoadSchema = true;
  auto database = std::make_unique<DatabaseOgr>();
  if (!database->Connect(wideName.c_str(), nullptr, nullptr, kReadOnly, kLoadSchema)) {
    throw SourceUnreadable(name, Utf8(database->LastError()));
  }
  return {name, std::move(database)};
}

std::string ReadError(Source const& source) { return Utf8(source.database->LastError()); }

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
