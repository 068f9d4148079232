#ifndef TOOLS_QUILLON_ROW_WRITER_H_
#define TOOLS_QUILLON_ROW_WRITER_H_

#include <fdo/row.h>
#include <fdo/schema.h>

#include <memory>
#include <string>
#include <vector>

#include "tools/quillon/output.h"

namespace fdo::tool {

// Writes rows in one format, each as it comes; no format keeps more than the first few rows.
// Errors: throws Failure when the output cannot take it, FdoException* for a broken geometry.
class RowWriter {
 public:
  // columns: positions in the order in which they are written.
  // Borrowed: output and def must outlive the writer.
  RowWriter(Output& output, TableDef const& def, std::vector<int> columns)
      : output_(output), def_(def), columns_(std::move(columns)) {}
  RowWriter(RowWriter const&) = delete;
  RowWriter& operator=(RowWriter const&) = delete;
  virtual ~RowWriter() = default;

  // Begin, then each row, then End; no rows make an empty but complete document.
  virtual void Begin() = 0;
  virtual void Write(Row const& row) = 0;
  virtual void End() = 0;

 protected:
  Output& output_;
  TableDef const& def_;
  std::vector<int> const columns_;
};

using MakeRowWriter = std::unique_ptr<RowWriter> (*)(Output&, TableDef const&, std::vector<int>);

struct RowFormat {
  char const* name;
  char const* description;
  MakeRowWriter make;
};

std::unique_ptr<RowWriter> MakeTableWriter(Output& output, TableDef const& def, std::vector<int> columns);
std::unique_ptr<RowWriter> MakeCsvWriter(Output& output, TableDef const& def, std::vector<int> columns);
std::unique_ptr<RowWriter> MakeJsonWriter(Output& output, TableDef const& def, std::vector<int> columns);
std::unique_ptr<RowWriter> MakeGeoJsonWriter(Output& output, TableDef const& def, std::vector<int> columns);
std::unique_ptr<RowWriter> MakeGeoJsonLinesWriter(Output& output, TableDef const& def,
                                                  std::vector<int> columns);

inline constexpr RowFormat kRowFormats[] = {
    {"table", "aligned columns to read; long cells end with \xe2\x80\xa6", MakeTableWriter},
    {"csv", "RFC 4180, geometry as WKT; a null is empty, an empty text is \"\"", MakeCsvWriter},
    {"json", "an array of objects, geometry as GeoJSON", MakeJsonWriter},
    {"geojson", "a FeatureCollection; coordinates stay in the source's coordinate system", MakeGeoJsonWriter},
    {"geojsonl", "one feature per line", MakeGeoJsonLinesWriter},
};

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_ROW_WRITER_H_
