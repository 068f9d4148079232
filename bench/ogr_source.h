#ifndef BENCH_OGR_SOURCE_H_
#define BENCH_OGR_SOURCE_H_

#include <fdo/database_ogr.h>

#include <filesystem>

namespace fdo::bench {

// A vector file, opened read-only by the library.
class OgrSource {
 public:
  // Errors: std::runtime_error when it does not open, or has no table.
  explicit OgrSource(std::filesystem::path const& path);

  Table& FirstTable() { return database_[0]; }

 private:
  DatabaseOgr database_;
};

}  // namespace fdo::bench

#endif  // BENCH_OGR_SOURCE_H_
