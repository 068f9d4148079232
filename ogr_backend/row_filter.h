// Filters that GDAL cannot run, computed for one feature after the other.
#ifndef OGR_BACKEND_ROW_FILTER_H_
#define OGR_BACKEND_ROW_FILTER_H_

#include <fdo/expr_eval.h>
#include <fdo/row.h>

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ogr_backend/feature_reader.h"
#include "ogr_backend/gdal_binding.h"

class FdoFilter;

namespace fdo::internal {

// A filter means what ExprOptions::AsInSql makes of it. Dates compare as the field has them: a date field as
// a date, a time field as a time.
class RowFilter {
 public:
  // Null when the filter has no value; refusal then says why.
  // Borrowed: gdal and def must outlive the filter.
  // Errors: throws what the filter's nodes throw.
  // Requires: def describes the layer.
  static std::unique_ptr<RowFilter> Make(GdalApi const& gdal, OgrLayerH layer, TableDef const& def,
                                         FdoFilter* filter, std::wstring& refusal);

  // A box that every feature that matches meets, with some room to spare; nothing when there is none.
  // Units: minX, minY, maxX, maxY.
  std::optional<std::array<double, 4>> const& Box() const { return box_; }

  // The program that is computed, see ExprEval::Listing.
  std::wstring Listing() const { return eval_->Listing(row_.Def()); }

  // Errors: throws FdoException* for a feature for which the filter cannot be computed.
  bool Matches(OgrFeatureH feature);

 private:
  // A column of dates without a time of day, or the other way round.
  struct DatePart {
    int column;
    bool isTime;
  };

  RowFilter(GdalApi const& gdal, OgrLayerH layer, TableDef const& def, FdoFilter* filter);

  Row row_;
  FeatureReader reader_;
  std::vector<bool> columns_;
  std::optional<ExprEval> eval_;
  std::vector<DatePart> dateParts_;
  std::vector<std::wstring> dateTexts_;  // lent to the row, one for each of dateParts_
  std::optional<std::array<double, 4>> box_;
};

}  // namespace fdo::internal

#endif  // OGR_BACKEND_ROW_FILTER_H_
