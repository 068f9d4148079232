// Features of a layer as rows.
#ifndef OGR_BACKEND_FEATURE_READER_H_
#define OGR_BACKEND_FEATURE_READER_H_

#include <fdo/row.h>
#include <fdo/schema.h>

#include <cstddef>
#include <memory>
#include <vector>

#include "ogr_backend/gdal_binding.h"

namespace fdo::internal {

// Memory that a borrowed cell points into. It grows with the longest content and never shrinks, so
// that reading allocates nothing once the longest row has been seen.
class CellBuffer {
 public:
  // The memory, of at least that many bytes; what was there is lost when it had to grow.
  unsigned char* Reserve(std::size_t bytes) {
    if (bytes > capacity_) Grow(bytes);
    return memory_.get();
  }

 private:
  void Grow(std::size_t bytes);

  std::unique_ptr<unsigned char[]> memory_;  // aligned for any type that new[] serves
  std::size_t capacity_ = 0;
};

// Fills the cells of one row from features of one layer. How a column is read is chosen once, from its
// type. Text, dates, bytes and geometry are borrowed cells, good until the next feature is read.
//
//   column type       cell
//   column 0          the feature's id
//   geometry          an FGF stream; null without a geometry and for one that FGF cannot hold
//   Int32, Int64      an integer
//   Double            a double
//   String            the text
//   DateTime          its text, with hour, minute and seconds for every kind of date field; the time
//                     zone is not part of it
//   BLOB              the bytes
//   any other         null
//
// A field that is unset or null gives a null cell.
class FeatureReader {
 public:
  // Borrowed: row must outlive the reader and keep its definition.
  FeatureReader(GdalApi const& gdal, Row& row);

  // Restricts reading to the columns whose flag is set, one flag for each column; the other cells
  // become undefined.
  void SetColumns(std::vector<bool> const& wanted);

  void Read(OgrFeatureH feature);

  struct FieldCell;
  using ReadField = void (*)(FieldCell& cell, OgrField const& field);

  // What is needed to read one field.
  struct FieldCell {
    int field;
    Value* value;
    ReadField read;  // of a field that has a value
    CellBuffer buffer;
  };

 private:
  void ReadGeometry(OgrFeatureH feature);

  GdalApi const& gdal_;
  Row& row_;
  Value* id_ = nullptr;            // null while the column is not wanted
  Value* geometry_ = nullptr;      // the same
  std::vector<FieldCell> fields_;  // the wanted ones
  CellBuffer wkb_;
  CellBuffer fgf_;
};

}  // namespace fdo::internal

#endif  // OGR_BACKEND_FEATURE_READER_H_
