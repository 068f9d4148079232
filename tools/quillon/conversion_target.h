// What a conversion writes. The one place that decides which back end does it.
#ifndef TOOLS_QUILLON_CONVERSION_TARGET_H_
#define TOOLS_QUILLON_CONVERSION_TARGET_H_

#include <fdo/database.h>
#include <fdo/db_pool.h>

#include <memory>
#include <string>
#include <vector>

#include "tools/quillon/session.h"

namespace fdo {
class DatabaseOgr;
}

namespace fdo::tool {

// How a target is to be written: as a store of an FDO provider or, where that is not to be or cannot be,
// through a driver of GDAL.
struct TargetFormat {
  std::wstring provider;  // empty: not through FDO
  std::wstring driver;    // empty: GDAL's choice for the target's name, if any

  // format is what the user asked for: a provider's name has a period in it, a driver's has none. Without
  // it the target's name tells.
  // Errors: throws Failure when nothing tells.
  static TargetFormat Choose(std::string const& target, std::string const& format);
};

// A new store with one table.
class ConversionTarget {
 public:
  // name: what messages call it; path: where it is made; columns: those of source that it has.
  // Errors: throws Failure; nothing is left at the path.
  ConversionTarget(std::string name, std::wstring path, TargetFormat const& format, TableDef const& source,
                   std::vector<int> const& columns, Session& session);

  ConversionTarget(ConversionTarget const&) = delete;
  ConversionTarget& operator=(ConversionTarget const&) = delete;
  // Leaves the store closed.
  ~ConversionTarget();

  Table& Rows() { return (*database_)[0]; }
  // The provider or driver that was taken.
  std::string const& Driver() const { return driver_; }
  // The format has no place for geometries.
  bool GeometryAsText() const { return geometryAsText_; }
  // Why the latest row was refused.
  std::string LastError();
  // Writes out what is not yet written. Gives: why that failed, if the back end says so; else "".
  std::string Close();
  // The closed store, open for reading through the connection pool.
  // Errors: throws Failure when it cannot be read or has no tables.
  Database& Reopen();

 private:
  bool CreateThroughFdo(std::wstring const& provider, TableDef const& source,
                        std::vector<int> const& columns);
  void CreateThroughGdal(std::wstring const& driver, TableDef const& source, std::vector<int> const& columns);

  // What the pool is asked for: a connection string for FDO, a path for GDAL.
  std::wstring SourceName() const;

  std::string name_;
  std::wstring path_;
  Session& session_;
  std::unique_ptr<Database> database_;
  DbHandle reopened_;
  DatabaseOgr* throughGdal_ = nullptr;  // the database, when GDAL writes it
  std::wstring provider_;               // when FDO writes it
  std::string driver_;
  bool geometryAsText_ = false;
};

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_CONVERSION_TARGET_H_
