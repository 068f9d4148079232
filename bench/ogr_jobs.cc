// Scans of vector files through the library, against loops over GDAL's C interface.
#include <memory>

#include "bench/job_table.h"
#include "bench/layer_scan.h"
#include "bench/ogr_source.h"
#include "bench/table_scan.h"
#include "bench/vector_files.h"

namespace fdo::bench {

Sides OgrScanJob(Workbench const& bench, std::string_view data) {
  std::filesystem::path const file = VectorFile(bench, data);
  auto const source = std::make_shared<OgrSource>(file);
  auto const layer = std::make_shared<LayerScan>(file);
  return {[source] { return ScanTable(source->FirstTable()); }, [layer] { return layer->ReadAll(); }};
}

Sides OgrOneFieldJob(Workbench const& bench, std::string_view data) {
  std::filesystem::path const file = VectorFile(bench, data);
  auto const source = std::make_shared<OgrSource>(file);
  auto const layer = std::make_shared<LayerScan>(file);
  return {[source] { return ScanColumn(source->FirstTable(), L"narrow"); },
          [layer] { return layer->ReadField("narrow"); }};
}

}  // namespace fdo::bench
