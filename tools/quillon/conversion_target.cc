#include "tools/quillon/conversion_target.h"

#include <fdo/connection_string.h>
#include <fdo/database_fdo.h>
#include <fdo/database_ogr.h>
#include <fdo/providers.h>

#include <filesystem>
#include <system_error>
#include <utility>

#include "tools/quillon/messages.h"
#include "tools/quillon/path_text.h"
#include "tools/quillon/target_definition.h"
#include "tools/quillon/utf8.h"

namespace fdo::tool {

namespace {

std::wstring Wide(std::string const& utf8) {
  std::wstring wide;
  WideFromUtf8(utf8, wide);  // the command line has been looked at
  return wide;
}

}  // namespace

TargetFormat TargetFormat::Choose(std::string const& target, std::string const& format) {
  std::wstring const path = Wide(target);
  if (format.find('.') != std::string::npos) return {Wide(format), L""};
  if (!format.empty()) return {L"", Wide(format)};
  TargetFormat chosen{ProviderForPath(path.c_str()), L""};
  if (chosen.provider.empty()) chosen.driver = DatabaseOgr::DriverForPath(path.c_str());
  if (!chosen.provider.empty() || !chosen.driver.empty()) return chosen;
  // Every GDAL writes GeoJSON.
  bool const hasGdal = !DatabaseOgr::DriverForPath(L"any.geojson").empty();
  throw hasGdal ? UnknownFormat(target) : GdalMissing(target);
}

ConversionTarget::ConversionTarget(std::string name, std::wstring path, TargetFormat const& format,
                                   TableDef const& source, std::vector<int> const& columns, Session& session)
    : name_(std::move(name)), path_(std::move(path)), session_(session) {
  std::wstring driver = format.driver;
  if (!format.provider.empty()) {
    bool const created = CreateThroughFdo(format.provider, source, columns);
    auto const lines = session_.TakeDiagnostics();
    for (auto const& line : lines) {
      // The rows are not touched by it, but their coordinate system is lost.
      if (created && line.rfind("Failed to create spatial context", 0) == 0) session_.console.Note(line);
    }
    if (created) return;
    database_ = nullptr;
    std::error_code ignored;
    std::filesystem::remove(PathOf(Utf8(path_.c_str())), ignored);
    driver = DatabaseOgr::DriverForPath(path_.c_str());
    bool const nameTells = ProviderForPath(path_.c_str()) == format.provider;
    if (!nameTells || driver.empty()) {
      throw CannotCreate(name_, Utf8(format.provider.c_str()), lines.empty() ? "" : lines.back());
    }
  }
  CreateThroughGdal(driver, source, columns);
}

bool ConversionTarget::CreateThroughFdo(std::wstring const& provider, TableDef const& source,
                                        std::vector<int> const& columns) {
  auto database = std::make_unique<DatabaseFdo>();
  DatabaseDef definition;
  DefineStore(source, columns, definition);
  std::wstring const connectionString = MakeConnectionString(provider.c_str(), path_.c_str());
  bool const made = DatabaseFdo::Create(path_.c_str(), provider.c_str()) &&
                    database->Connect(connectionString.c_str(), provider.c_str(), nullptr, false, true) &&
                    database->SetSchema(definition) && database->Count() == 1;
  if (!made) return false;
  database_ = std::move(database);
  provider_ = provider;
  driver_ = Utf8(provider.c_str());
  return true;
}

void ConversionTarget::CreateThroughGdal(std::wstring const& driver, TableDef const& source,
                                         std::vector<int> const& columns) {
  auto database = std::make_unique<DatabaseOgr>();
  DatabaseDef definition;
  DefineTarget(source, columns, driver, source.Name(), definition);
  database->KeepNullNumbers(true);
  driver_ = Utf8(driver.c_str());
  if (!database->Create(path_.c_str(), driver.c_str(), definition) || database->Count() == 0) {
    throw CannotCreate(name_, driver_, Utf8(database->LastError()));
  }
  throughGdal_ = database.get();
  database_ = std::move(database);
  geometryAsText_ = KeepsGeometryAsText(driver);
}

std::string ConversionTarget::LastError() {
  if (throughGdal_ != nullptr) return Utf8(throughGdal_->LastError());
  auto lines = session_.TakeDiagnostics();
  if (lines.empty()) return {};
  std::string reason = std::move(lines.back());
  lines.pop_back();
  // Those before it came of reading the row.
  for (std::string const& line : lines) session_.console.Note(line);
  return reason;
}

std::string ConversionTarget::Close() {
  database_->Disconnect();
  return throughGdal_ == nullptr ? std::string() : Utf8(throughGdal_->LastError());
}

std::wstring ConversionTarget::SourceName() const {
  return throughGdal_ == nullptr ? MakeConnectionString(provider_.c_str(), path_.c_str()) : path_;
}

Database& ConversionTarget::Reopen() {
  reopened_ = DbPool::GetConnectionForReading(SourceName().c_str(), provider_.c_str(), nullptr,
                                              /*loadSchema=*/true);
  // What FDO says of the way to a store that opened is no news.
  session_.TakeDiagnostics();
  if (!reopened_) throw CannotReadBack(name_, Utf8(DbPool::LastAttempts().back().message));
  if (reopened_->Count() == 0) throw CannotReadBack(name_, "it has no tables");
  return *reopened_;
}

ConversionTarget::~ConversionTarget() {
  reopened_ = nullptr;
  DbPool::Invalidate(SourceName().c_str());
}

}  // namespace fdo::tool
