// What became of a value on its way through another format.
#ifndef TOOLS_QUILLON_CELL_COMPARISON_H_
#define TOOLS_QUILLON_CELL_COMPARISON_H_

#include <fdo/schema.h>
#include <fdo/value.h>

#include <cstdint>

namespace fdo::tool {

enum class Change : int {
  kNone,
  kNullAsZero,
  kNullAsEmptyText,
  kNullAsValue,
  kEmptyTextAsNull,
  kLost,
  kTextCut,
  kTextChanged,
  kIntegerCut,
  kNumberRounded,
  kNumberChanged,
  kTimeDropped,
  kFractionDropped,
  kDateTimeChanged,
  kBytesChanged,
  kZDropped,
  kMDropped,
  kZAndMDropped,
  kZAdded,
  kCoordinatesRounded,
  kGeometryChanged,
  kCount,
};

struct ChangeInfo {
  Change change;
  char const* name;  // in JSON
  char const* text;  // behind "12 values "
  // Whether it could as well come from two rows that do not belong together.
  bool mayBeAnotherRow;
};

inline constexpr ChangeInfo kChanges[] = {
    {Change::kNone, "none", "kept", false},
    {Change::kNullAsZero, "null_as_zero", "null and written as 0", false},
    {Change::kNullAsEmptyText, "null_as_empty_text", "null and written as empty text", false},
    {Change::kNullAsValue, "null_as_value", "null and written as another value", true},
    {Change::kEmptyTextAsNull, "empty_text_as_null", "empty text and written as null", false},
    {Change::kLost, "lost", "not written", true},
    {Change::kTextCut, "text_cut", "cut", false},
    {Change::kTextChanged, "text_changed", "changed", true},
    {Change::kIntegerCut, "integer_cut", "cut to 32 bits", false},
    {Change::kNumberRounded, "number_rounded", "rounded", false},
    {Change::kNumberChanged, "number_changed", "changed", true},
    {Change::kTimeDropped, "time_dropped", "without their time", false},
    {Change::kFractionDropped, "fraction_dropped", "without fractions of a second", false},
    {Change::kDateTimeChanged, "date_time_changed", "changed", true},
    {Change::kBytesChanged, "bytes_changed", "changed", true},
    {Change::kZDropped, "z_dropped", "without Z", false},
    {Change::kMDropped, "m_dropped", "without M", false},
    {Change::kZAndMDropped, "zm_dropped", "without Z and M", false},
    {Change::kZAdded, "z_added", "given a Z of 0", false},
    {Change::kCoordinatesRounded, "coordinates_rounded", "rounded", false},
    {Change::kGeometryChanged, "geometry_changed", "changed", true},
};

constexpr bool ListsEveryChangeInOrder() {
  int next = 0;
  for (ChangeInfo const& info : kChanges) {
    if (static_cast<int>(info.change) != next++) return false;
  }
  return next == static_cast<int>(Change::kCount);
}
static_assert(ListsEveryChangeInOrder());

constexpr ChangeInfo const& InfoOf(Change change) { return kChanges[static_cast<int>(change)]; }

struct CellChange {
  Change change = Change::kNone;
  double deviation = 0;  // of what was rounded
};

// Numbers and dates may come back as text that reads the same: that is no change. Geometries compare
// as shapes (see geometry_shape.h).
// type: that of the source's column.
// Errors: throws FdoException* for a broken geometry.
CellChange CompareCells(Value const& source, ColumnDef::DataType type, Value const& target);

// The same for cells between which CompareCells sees no change, and in all likelihood for no others.
std::uint64_t HashCell(Value const& cell, ColumnDef::DataType sourceType);

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_CELL_COMPARISON_H_
