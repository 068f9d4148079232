// Rows as features of a layer.
#ifndef OGR_BACKEND_FEATURE_WRITER_H_
#define OGR_BACKEND_FEATURE_WRITER_H_

#include <fdo/row.h>
#include <fdo/schema.h>

#include <cstddef>
#include <string>

#include "ogr_backend/driver_traits.h"
#include "ogr_backend/feature_reader.h"
#include "ogr_backend/gdal_binding.h"

namespace fdo::internal {

// Makes features of one layer from rows of its table.
//
//   column type       written
//   column 0          the feature's id
//   geometry          the geometry of the FGF stream; none when the cell holds no bytes
//   Int32, Int64      the cell as an integer, in a 32-bit field the nearest that it holds
//   Double            the cell as a double
//   String            the cell's text; null when it has none
//   DateTime          the date that the cell's text reads as, without a time zone; null when it does not
//   BLOB              the bytes; null when it holds none
//   any other         nothing
//
// Deliberate: a null cell in a number column is written as 0, unless the caller keeps null numbers
// (OgrWrite.NullZeroAndEmpty).
class FeatureWriter {
 public:
  // Borrowed: def and layer must outlive the writer.
  FeatureWriter(GdalApi const& gdal, DriverTraits const& traits, OgrLayerH layer, TableDef const& def);

  // Gives: a feature, to be destroyed by the caller.
  // Errors: null for a geometry that the layer would not give back as it is: a broken stream, a curve or
  // an ordinate that the format or the layer does not hold, an empty part that the format drops, or none
  // at all where the format then drops the row. refusal, in UTF-8, then says which.
  // Requires: row has the columns of def.
  OgrFeatureH Write(Row const& row, bool keepNullNumbers, std::string& refusal);

 private:
  bool IsUndecided() const;
  char const* RefusalWithoutGeometry() const;
  char const* RefusalOf(unsigned char const* fgf, std::size_t length) const;
  bool WriteGeometry(OgrFeatureH feature, Value const& cell, std::string& refusal);
  void WriteField(OgrFeatureH feature, int field, ColumnDef::DataType type, Value const& cell);
  void WriteText(OgrFeatureH feature, int field, Value const& cell);
  void WriteDateTime(OgrFeatureH feature, int field, Value const& cell);

  GdalApi const& gdal_;
  OgrLayerH layer_;
  TableDef const& def_;
  DriverTraits const& traits_;
  bool holdsGeometry_;
  bool holdsCurves_;
  bool holdsM_;
  CellBuffer wkb_;
  CellBuffer text_;
};

}  // namespace fdo::internal

#endif  // OGR_BACKEND_FEATURE_WRITER_H_
