// One layer of a GDAL data source as a table. What it does is documented in <fdo/database_ogr.h>.
#ifndef OGR_BACKEND_TABLE_OGR_H_
#define OGR_BACKEND_TABLE_OGR_H_

#include <fdo/database_ogr.h>
#include <fdo/row.h>
#include <fdo/table.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ogr_backend/feature_reader.h"
#include "ogr_backend/feature_writer.h"
#include "ogr_backend/filter_sql.h"
#include "ogr_backend/gdal_source.h"
#include "ogr_backend/read_ahead.h"
#include "ogr_backend/row_filter.h"

namespace fdo::internal {

// Threads: one at a time, with everything else that works on the source.
class TableOgr : public Table {
 public:
  // Borrowed: source, def and lastError must outlive the table.
  // Requires: def describes that layer of the source; layer is its position there.
  TableOgr(GdalSource& source, int layer, TableDef const& def, std::wstring& lastError);
  // A duplicate, with a source of its own.
  TableOgr(std::unique_ptr<GdalSource> source, int layer, TableDef const& def, std::wstring& lastError);

  static constexpr wchar_t const* kNewIsUnread = L"A new source cannot be read before it is closed";

  int LayerIndex() const { return layerIndex_; }

  // See DatabaseOgr::ExplainFilter.
  FilterPlan Explain(FdoFilter* filter) const;

  bool Insert(Row const& row, __int64* newId, bool storeMakesId) override;
  __int64 Update(Row const& row, FdoFilter* filter) override;
  bool Update(Row const& row, __int64 id) override;
  __int64 Delete(FdoFilter* filter) override;
  bool Delete(__int64 id) override;

  void Query(FdoFilter* filter, wchar_t const* orderBy, bool ascending) override;
  Row const* Query(__int64 id) override;
  void Query(double const* const box, FdoFilter* filter) override;
  void Query() override;
  void QueryRange(__int64 first, __int64 last) override;
  void EndQuery() override;

  void BeginWrite() override;
  void CommitWrite() override;

  bool IsEmpty(FdoFilter* filter) override;
  __int64 GetRowCount(FdoFilter* filter, bool allowScan) override;
  void GetExtent(double* const box, FdoFilter* filter) override;

  Row const* Next() override;
  Row const& At() override { return row_; }

  using Table::SetDesiredFields;
  void SetDesiredFields(int const* columns, int count) override;

 protected:
  void FetchCurrentValue(Value& cell, int column) const override;

 private:
  // How Next finds its next record.
  enum class Scan {
    kNone,   // no query runs
    kLayer,  // the layer's next feature whose id is in the range
    kById,   // the features of the range, one id after the other
  };

  // A filter as GDAL's condition or, where it cannot be one, for rows; neither when it is refused.
  struct TakenFilter {
    FilterSql sql;
    std::unique_ptr<RowFilter> rows;
  };

  bool MayRead();
  bool StartQuery(FdoFilter* filter);
  TakenFilter Take(FdoFilter* filter) const;
  bool PutInForce(FdoFilter* filter, FilterSql& sql);
  void NarrowForFilter();
  bool IsSelected(OgrFeatureH feature);
  void ApplyDesiredFields(std::vector<bool> const* filterColumns);
  bool SetCondition(std::string const* condition);
  void SetBox(double const* box);
  OgrFeatureH NextFeature();
  bool FetchAhead();
  void StopReading();
  Row const* Show(OgrFeatureH feature);
  // Of the query that was started.
  __int64 CountStarted(bool allowScan);
  __int64 CountByScan();
  FilterTarget Target() const;
  FeatureWriter& Writer();
  void FitToFirstRow(Row const& row);
  void Remember(GdalErrorScope const& scope);
  void Refuse(wchar_t const* reason);

  std::unique_ptr<GdalSource> ownSource_;  // of a duplicate
  GdalSource& source_;
  GdalApi const& gdal_;
  OgrLayerH layer_;  // owned by the source
  int layerIndex_;
  std::wstring& lastError_;

  Row row_;
  FeatureReader reader_;
  std::optional<FeatureWriter> writer_;

  std::vector<bool> desired_;  // for later queries, one flag for each column
  std::vector<bool> shown_;    // for the query that runs
  std::vector<bool> read_;     // what the layer does not ignore
  bool hasBox_ = false;
  double box_[4] = {};

  Scan scan_ = Scan::kNone;
  ReadAhead ahead_;
  bool filtered_ = false;                 // the query that runs has a condition
  std::unique_ptr<RowFilter> rowFilter_;  // of the query that runs, where GDAL cannot run its filter
  bool narrowed_ = false;                 // the layer has the box of rowFilter_
  __int64 first_ = 0;                     // the range, both ends included
  __int64 last_ = 0;
};

}  // namespace fdo::internal

#endif  // OGR_BACKEND_TABLE_OGR_H_
