// The peers: loops over GDAL's C interface, as a program without the library would write them.
#ifndef BENCH_LAYER_SCAN_H_
#define BENCH_LAYER_SCAN_H_

#include <filesystem>
#include <string>
#include <vector>

#include "bench/gdal_c_interface.h"
#include "bench/job.h"

namespace fdo::bench {

class LayerScan {
 public:
  // Opens the first layer of the file.
  // Errors: std::runtime_error when GDAL does not.
  explicit LayerScan(std::filesystem::path const& path);

  // Reads every field and exports every geometry as WKB.
  Work ReadAll();
  // Reads that field and ignores the others and the geometry.
  // Errors: std::runtime_error when there is no such field.
  Work ReadField(char const* name);
  // Reads the geometries alone and gives the box of all.
  Work Measure();

 private:
  struct Field {
    int type;
    std::string name;
  };

  GdalDataset dataset_;
  OGRLayerH layer_;
  std::vector<Field> fields_;
  std::vector<unsigned char> wkb_;
};

}  // namespace fdo::bench

#endif  // BENCH_LAYER_SCAN_H_
