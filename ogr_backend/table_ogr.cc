#include "ogr_backend/table_ogr.h"

#include <fdo/text_conversion.h>

#include <algorithm>
#include <limits>
#include <utility>

#include "access/boundary.h"
#include "access/diagnostics.h"
#include "ogr_backend/column_types.h"
#include "values/number_text.h"

namespace fdo::internal {
namespace {

constexpr __int64 kLeastId = std::numeric_limits<__int64>::min();
constexpr __int64 kGreatestId = std::numeric_limits<__int64>::max();
constexpr __int64 kUnknownCount = -1;

// Ranges up to this length are read id by id where the format finds a feature by its id.
constexpr __int64 kLongestLookUp = 1000;

// Whether a field hides a name that GDAL's dialect has for something else.
bool HasField(TableDef const& def, wchar_t const* name) {
  for (int column = kFirstField; column < def.ColumnCount(); ++column) {
    if (EqualIgnoringCase(def[column].Name(), name)) return true;
  }
  return false;
}

}  // namespace

TableOgr::TableOgr(GdalSource& source, int layer, TableDef const& def, std::wstring& lastError)
    : Table(&def),
      source_(source),
      gdal_(source.Gdal()),
      layer_(gdal_.GDALDatasetGetLayer(source.Dataset(), layer)),
      layerIndex_(layer),
      lastError_(lastError),
      row_(&def),
      reader_(gdal_, row_),
      desired_(static_cast<std::size_t>(def.ColumnCount()), true),
      shown_(desired_),
      read_(desired_),
      ahead_(gdal_) {}

TableOgr::TableOgr(std::unique_ptr<GdalSource> source, int layer, TableDef const& def,
                   std::wstring& lastError)
    : TableOgr(*source, layer, def, lastError) {
  ownSource_ = std::move(source);
}

void TableOgr::Remember(GdalErrorScope const& scope) {
  lastError_ = scope.Message().empty() ? L"GDAL gives no reason" : ToWide(scope.Message().c_str());
}

void TableOgr::Refuse(wchar_t const* reason) {
  lastError_ = std::wstring(L"GDAL cannot run the filter: ") + reason;
  ReportError(lastError_.c_str());
}

// --- Starting a query --------------------------------------------------------------------------

FilterTarget TableOgr::Target() const {
  FilterTarget target{source_.Traits().filters, "", ""};
  char const* const idColumn = gdal_.OGR_L_GetFIDColumn(layer_);
  target.idName = idColumn == nullptr ? "" : idColumn;
  if (IsSql(target.language)) {
    char const* const geometryColumn = gdal_.OGR_L_GetGeometryColumn(layer_);
    target.geometryName = geometryColumn == nullptr ? "" : geometryColumn;
  } else {
    if (target.idName.empty() && !HasField(*def_, L"FID")) target.idName = "FID";
    if (!HasField(*def_, L"OGR_GEOMETRY")) target.geometryName = "OGR_GEOMETRY";
  }
  return target;
}

// Has the row show the desired columns, and the layer ignore what neither they nor the condition nor
// the box needs: a condition on an ignored field matches nothing, without an error.
void TableOgr::ApplyDesiredFields(std::vector<bool> const* filterColumns) {
  if (shown_ != desired_) {
    shown_ = desired_;
    reader_.SetColumns(shown_);
  }
  std::vector<bool> needed = shown_;
  for (std::size_t i = 0; filterColumns != nullptr && i < needed.size(); ++i) {
    needed[i] = needed[i] || (*filterColumns)[i];
  }
  needed[kIdColumn] = true;
  needed[kGeometryColumn] = needed[kGeometryColumn] || hasBox_ || narrowed_;
  if (needed == read_ || gdal_.OGR_L_TestCapability(layer_, "IgnoreFields") == 0) return;
  std::vector<char const*> ignored;
  if (!needed[kGeometryColumn]) ignored.push_back("OGR_GEOMETRY");
  for (int column = kFirstField; column < def_->ColumnCount(); ++column) {
    if (needed[static_cast<std::size_t>(column)]) continue;
    ignored.push_back(gdal_.OGR_Fld_GetNameRef(
        gdal_.OGR_FD_GetFieldDefn(gdal_.OGR_L_GetLayerDefn(layer_), column - kFirstField)));
  }
  ignored.push_back(nullptr);
  bool const narrowed = gdal_.OGR_L_SetIgnoredFields(layer_, ignored.data()) == kOgrErrNone;
  if (!narrowed) gdal_.OGR_L_SetIgnoredFields(layer_, nullptr);
  read_ = narrowed ? needed : std::vector<bool>(needed.size(), true);
}

bool TableOgr::SetCondition(std::string const* condition) {
  filtered_ = condition != nullptr;
  return gdal_.OGR_L_SetAttributeFilter(layer_, condition == nullptr ? nullptr : condition->c_str()) ==
         kOgrErrNone;
}

// Null lifts the box.
void TableOgr::SetBox(double const* box) {
  if (source_.MustNotBeRead()) return;
  hasBox_ = box != nullptr;
  if (box == nullptr) {
    gdal_.OGR_L_SetSpatialFilter(layer_, nullptr);
    return;
  }
  std::copy(box, box + 4, box_);
  gdal_.OGR_L_SetSpatialFilterRect(layer_, box[0], box[1], box[2], box[3]);
}

TableOgr::TakenFilter TableOgr::Take(FdoFilter* filter) const {
  TakenFilter taken{TranslateFilter(filter, *def_, Target()), nullptr};
  if (taken.sql.refused || taken.sql.isExact) return taken;
  taken.rows = RowFilter::Make(gdal_, layer_, *def_, filter, taken.sql.reason);
  taken.sql.refused = taken.rows == nullptr;
  return taken;
}

FilterPlan TableOgr::Explain(FdoFilter* filter) const {
  FilterPlan plan;
  if (filter == nullptr) {
    plan.reason = L"there is no filter";
    return plan;
  }
  return AtBoundary(plan, [&] {
    GdalErrorScope scope(gdal_);
    TakenFilter const taken = Take(filter);
    plan.reason = taken.sql.reason;
    if (taken.sql.refused) return plan;
    plan.condition = ToWide(taken.sql.text.c_str());
    plan.way = taken.rows == nullptr ? FilterPlan::kCondition : FilterPlan::kRowByRow;
    if (taken.rows == nullptr) return plan;
    plan.program = taken.rows->Listing();
    plan.narrows = taken.rows->Box().has_value();
    if (plan.narrows) std::copy_n(taken.rows->Box()->begin(), 4, plan.box);
    return plan;
  });
}

// Gives: false when the filter is refused; that has been reported. Otherwise sql.columns are those that the
// filter looks at.
bool TableOgr::PutInForce(FdoFilter* filter, FilterSql& sql) {
  TakenFilter taken = Take(filter);
  sql = std::move(taken.sql);
  rowFilter_ = std::move(taken.rows);
  if (sql.refused) Refuse(sql.reason.c_str());
  return !sql.refused;
}

// Lets the layer leave out what a filter for rows cannot select, unless it has a box already: a geometry that
// meets two boxes need not meet what they share.
void TableOgr::NarrowForFilter() {
  bool const narrow = rowFilter_ != nullptr && rowFilter_->Box() && !hasBox_;
  if (narrow) {
    auto const& box = *rowFilter_->Box();
    gdal_.OGR_L_SetSpatialFilterRect(layer_, box[0], box[1], box[2], box[3]);
  } else if (narrowed_ && !hasBox_) {
    gdal_.OGR_L_SetSpatialFilter(layer_, nullptr);
  }
  narrowed_ = narrow;
}

// Gives: false, with one line, where reading would do harm.
bool TableOgr::MayRead() {
  if (!source_.MustNotBeRead()) return true;
  lastError_ = kNewIsUnread;
  ReportError(kNewIsUnread);
  return false;
}

// Puts filter, desired columns and, as it stands, the box in force, and ends what ran before.
// Gives: false when the filter is refused or the source must not be read; that has been reported.
bool TableOgr::StartQuery(FdoFilter* filter) {
  StopReading();
  if (!MayRead()) return false;
  rowFilter_.reset();
  first_ = kLeastId;
  last_ = kGreatestId;
  return AtBoundary(false, [&] {
    GdalErrorScope scope(gdal_);
    FilterSql sql;
    if (filter != nullptr && !PutInForce(filter, sql)) return false;
    NarrowForFilter();
    // Some drivers look at what is ignored when the condition is set, so that comes second.
    ApplyDesiredFields(filter == nullptr ? nullptr : &sql.columns);
    bool const taken = SetCondition(sql.text.empty() ? nullptr : &sql.text);
    // A condition that GDAL does not take leaves the layer without one, which must not widen the query.
    if (!taken && rowFilter_ == nullptr) {
      Remember(scope);
      Refuse(std::wstring(lastError_).c_str());
      return false;
    }
    filtered_ = filtered_ && taken;
    gdal_.OGR_L_ResetReading(layer_);
    return true;
  });
}

void TableOgr::Query() {
  {
    GdalErrorScope scope(gdal_);
    SetBox(nullptr);
  }
  Query(nullptr, nullptr, true);
}

void TableOgr::Query(FdoFilter* filter, wchar_t const* /*orderBy*/, bool /*ascending*/) {
  if (StartQuery(filter)) scan_ = Scan::kLayer;
}

void TableOgr::Query(double const* const box, FdoFilter* filter) {
  {
    GdalErrorScope scope(gdal_);
    SetBox(box);
  }
  Query(filter, nullptr, true);
}

void TableOgr::QueryRange(__int64 first, __int64 last) {
  {
    GdalErrorScope scope(gdal_);
    SetBox(nullptr);
  }
  if (!StartQuery(nullptr) || first >= last) return;
  first_ = first;
  last_ = last - 1;
  GdalErrorScope scope(gdal_);
  FilterTarget const target = Target();
  if (IsSql(target.language) && !target.idName.empty()) {
    std::string const id = std::string("\"") + target.idName + "\"";
    std::string const condition =
        id + " >= " + std::to_string(first_) + " AND " + id + " <= " + std::to_string(last_);
    // Next looks at the ids, too, so that a condition that is not taken does no harm.
    SetCondition(&condition);
    gdal_.OGR_L_ResetReading(layer_);
    scan_ = Scan::kLayer;
  } else {
    // The difference of the ends does not overflow as an unsigned number.
    bool const isShort = static_cast<std::uint64_t>(last_) - static_cast<std::uint64_t>(first_) <
                         std::uint64_t{kLongestLookUp};
    bool const findsById = gdal_.OGR_L_TestCapability(layer_, "RandomRead") != 0;
    scan_ = isShort && findsById ? Scan::kById : Scan::kLayer;
  }
}

Row const* TableOgr::Query(__int64 id) {
  StopReading();
  if (!MayRead()) return nullptr;
  return AtBoundary(static_cast<Row const*>(nullptr), [&]() -> Row const* {
    GdalErrorScope scope(gdal_);
    ApplyDesiredFields(nullptr);
    OgrFeatureH const feature = gdal_.OGR_L_GetFeature(layer_, id);
    return feature == nullptr ? nullptr : Show(feature);
  });
}

void TableOgr::EndQuery() {
  StopReading();
  if (source_.MustNotBeRead()) return;
  GdalErrorScope scope(gdal_);
  gdal_.OGR_L_ResetReading(layer_);
}

void TableOgr::SetDesiredFields(int const* columns, int count) {
  bool const all = columns == nullptr || count <= 0;
  desired_.assign(desired_.size(), all);
  for (int i = 0; !all && i < count; ++i) desired_[static_cast<std::size_t>(columns[i])] = true;
}

// --- Reading -----------------------------------------------------------------------------------

// A filter that fails for a feature ends the query, with one line.
bool TableOgr::IsSelected(OgrFeatureH feature) {
  if (rowFilter_ == nullptr) return true;
  enum { kNo, kYes, kFailed };
  int const selected = AtBoundary(int{kFailed}, [&] { return rowFilter_->Matches(feature) ? kYes : kNo; });
  if (selected == kFailed) scan_ = Scan::kNone;
  return selected == kYes;
}

OgrFeatureH TableOgr::NextFeature() {
  if (scan_ == Scan::kLayer) {
    while (OgrFeatureH const feature = gdal_.OGR_L_GetNextFeature(layer_)) {
      __int64 const id = gdal_.OGR_F_GetFID(feature);
      if (id >= first_ && id <= last_ && IsSelected(feature)) return feature;
      gdal_.OGR_F_Destroy(feature);
      if (scan_ == Scan::kNone) break;
    }
  } else if (scan_ == Scan::kById) {
    while (first_ <= last_) {
      if (OgrFeatureH const feature = gdal_.OGR_L_GetFeature(layer_, first_++)) return feature;
    }
  }
  return nullptr;
}

Row const* TableOgr::Show(OgrFeatureH feature) {
  auto const destroy = [this](OgrFeatureH shown) { gdal_.OGR_F_Destroy(shown); };
  std::unique_ptr<OgrFeature, decltype(destroy)> const holder(feature, destroy);
  reader_.Read(feature);
  return &row_;
}

// Returns whether there is a feature to show.
bool TableOgr::FetchAhead() {
  if (scan_ == Scan::kNone) return false;
  GdalErrorScope scope(gdal_);
  // A complaint about a feature that came all the same: something in it could not be read.
  auto const rememberComplaint = [&] {
    if (scope.Failed()) Remember(scope);
    scope.Forget();
  };
  bool const goesOn = ahead_.Fetch(/*oneOnly=*/!source_.ReadOnly(), [&] {
    rememberComplaint();
    return NextFeature();
  });
  if (goesOn) {
    rememberComplaint();
    return true;
  }
  if (scan_ == Scan::kLayer && scope.Failed()) {
    Remember(scope);
    // A store that runs its own SQL notices a bad condition only here.
    if (filtered_) Refuse(std::wstring(lastError_).c_str());
  }
  scan_ = Scan::kNone;
  return !ahead_.IsEmpty();
}

void TableOgr::StopReading() {
  scan_ = Scan::kNone;
  ahead_.Discard();
}

Row const* TableOgr::Next() {
  if (ahead_.IsEmpty() && !FetchAhead()) return nullptr;
  return Show(ahead_.Take());
}

void TableOgr::FetchCurrentValue(Value& cell, int /*column*/) const {
  cell.Reset();
  throw "not implemented yet";
}

// --- Counting and measuring --------------------------------------------------------------------

bool TableOgr::IsEmpty(FdoFilter* filter) {
  std::vector<bool> const desired = std::exchange(desired_, std::vector<bool>(desired_.size(), false));
  bool empty = true;
  if (StartQuery(filter)) {
    __int64 const count = CountStarted(/*allowScan=*/false);
    if (count >= 0) {
      empty = count == 0;
    } else {
      // Not every format knows its count, and none when there is a condition: one row tells as much.
      scan_ = Scan::kLayer;
      empty = Next() == nullptr;
    }
  }
  EndQuery();
  desired_ = desired;
  return empty;
}

__int64 TableOgr::GetRowCount(FdoFilter* filter, bool allowScan) {
  return StartQuery(filter) ? CountStarted(allowScan) : kUnknownCount;
}

__int64 TableOgr::CountStarted(bool allowScan) {
  GdalErrorScope scope(gdal_);
  if (source_.Traits().losesCount || rowFilter_ != nullptr) return allowScan ? CountByScan() : kUnknownCount;
  __int64 const count = gdal_.OGR_L_GetFeatureCount(layer_, allowScan ? 1 : 0);
  if (count < 0 && scope.Failed()) {
    Remember(scope);
    if (filtered_) Refuse(std::wstring(lastError_).c_str());
  }
  return count;
}

__int64 TableOgr::CountByScan() {
  scan_ = Scan::kLayer;
  __int64 count = 0;
  for (; OgrFeatureH const feature = NextFeature(); ++count) gdal_.OGR_F_Destroy(feature);
  // A filter that failed has ended the scan; half a count is none.
  bool const failed = scan_ == Scan::kNone;
  StopReading();
  return failed ? kUnknownCount : count;
}

void TableOgr::GetExtent(double* const box, FdoFilter* filter) {
  if (filter != nullptr) return Table::GetExtent(box, filter);
  StopReading();
  std::fill_n(box, 4, 0.0);
  if (!MayRead()) return;
  GdalErrorScope scope(gdal_);
  // A driver that scans for the extent does so under the filters that are set.
  bool const hadBox = hasBox_;
  SetCondition(nullptr);
  SetBox(nullptr);
  gdal_.OGR_L_SetIgnoredFields(layer_, nullptr);
  read_.assign(read_.size(), true);
  OgrEnvelope extent = {0, 0, 0, 0};
  if (gdal_.OGR_L_GetExtent(layer_, &extent, /*force=*/1) != kOgrErrNone) {
    extent = {0, 0, 0, 0};
    Remember(scope);
  }
  if (hadBox) SetBox(box_);
  box[0] = extent.minX;
  box[1] = extent.minY;
  box[2] = extent.maxX;
  box[3] = extent.maxY;
}

}  // namespace fdo::internal
