#ifndef BENCH_VECTOR_FILES_H_
#define BENCH_VECTOR_FILES_H_

#include <filesystem>
#include <memory>
#include <span>
#include <string_view>

#include "bench/kept_rows.h"
#include "bench/workbench.h"

namespace fdo::bench {

// The file that holds that data: one layer of rows with a 64-bit, a 32-bit, a real, a text, a date-time
// and a flag field. It is made when it is not there; what is there is whole, because a file gets its
// name only when it is.
//
// data is one of: "gpkg points", "gpkg polygons", and the same with "indexed gpkg", "fgb" and
// "shp".
// Errors: std::invalid_argument for any other data, std::runtime_error when the file cannot be made.
std::filesystem::path VectorFile(Workbench const& bench, std::string_view data);

// A new file of that data without rows, in place of any there.
class NewVectorFile {
 public:
  // Errors: as above.
  NewVectorFile(std::filesystem::path const& path, std::string_view data);
  NewVectorFile(NewVectorFile const&) = delete;
  NewVectorFile& operator=(NewVectorFile const&) = delete;
  ~NewVectorFile();

  // Writes the rows behind those that are there, in transactions of that many.
  // Errors: std::runtime_error.
  void Append(std::span<KeptRow const> rows, std::size_t batch);

 private:
  struct Layer;
  std::unique_ptr<Layer> layer_;
};

}  // namespace fdo::bench

#endif  // BENCH_VECTOR_FILES_H_
