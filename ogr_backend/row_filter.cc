#include "ogr_backend/row_filter.h"

#include <Fdo.h>
#include <FdoSpatial.h>
#include <fdo/text_conversion.h>

#include <algorithm>
#include <cmath>
#include <exception>

#include "ogr_backend/column_types.h"

namespace fdo::internal {
namespace {

constexpr ExprOptions kAsInSql = ExprOptions::AsInSql();

using Box = std::array<double, 4>;

// The box of a literal, true to its arcs, wider by the distance and by some room for what is computed in
// other ways. Nothing for what has no place. Errors: throws FdoException* for a stream that makes no sense.
std::optional<Box> WideBoxOf(FdoExpression* expression, double distance) {
  auto* const literal = dynamic_cast<FdoGeometryValue*>(expression);
  if (literal == nullptr || literal->IsNull() || !std::isfinite(distance) || distance < 0) return {};
  FdoPtr<FdoByteArray> const fgf = literal->GetGeometry();
  if (fgf == nullptr || fgf->GetCount() == 0) return {};
  Box box;
  FdoSpatialUtility::GetExtents(fgf, box[0], box[1], box[2], box[3]);
  if (!(box[0] <= box[2]) || !(box[1] <= box[3])) return {};
  double farthest = 0;
  for (double const side : box) farthest = std::max(farthest, std::fabs(side));
  double const size = std::max(box[2] - box[0], box[3] - box[1]);
  double const room = distance + size * 1e-3 + farthest * 1e-9;
  return Box{box[0] - room, box[1] - room, box[2] + room, box[3] + room};
}

// Whether no feature of the layer can have arcs, which GDAL replaces by lines of its own.
bool HasNoArcs(GdalApi const& gdal, OgrFeatureDefnH definition) {
  constexpr unsigned kDimensionalities = 1000;
  constexpr unsigned kMultiPolygon = 6;
  unsigned const type = (gdal.OGR_FD_GetGeomType(definition) & ~kWkbZ) % kDimensionalities;
  return type > kWkbUnknown && type <= kMultiPolygon;
}

// Of conditions that must all hold one is enough. The tree is as deep as the one that has been compiled, but
// for chains, which are followed on one side only.
std::optional<Box> BoxOf(FdoFilter* filter, int levels) {
  if (filter == nullptr || levels == 0) return {};
  if (auto* const both = dynamic_cast<FdoBinaryLogicalOperator*>(filter)) {
    if (both->GetOperation() != FdoBinaryLogicalOperations_And) return {};
    if (auto const box = BoxOf(FdoPtr<FdoFilter>(both->GetLeftOperand()), levels - 1)) return box;
    return BoxOf(FdoPtr<FdoFilter>(both->GetRightOperand()), levels - 1);
  }
  if (auto* const spatial = dynamic_cast<FdoSpatialCondition*>(filter)) {
    FdoSpatialOperations const operation = spatial->GetOperation();
    // Envelopes meet where geometries do not, and a box asks GDAL for geometries.
    bool const meets =
        operation != FdoSpatialOperations_Disjoint && operation != FdoSpatialOperations_EnvelopeIntersects;
    return meets ? WideBoxOf(FdoPtr<FdoExpression>(spatial->GetGeometry()), 0) : std::nullopt;
  }
  if (auto* const distance = dynamic_cast<FdoDistanceCondition*>(filter)) {
    if (distance->GetOperation() != FdoDistanceOperations_Within) return {};
    return WideBoxOf(FdoPtr<FdoExpression>(distance->GetGeometry()), distance->GetDistance());
  }
  return {};
}

}  // namespace

RowFilter::RowFilter(GdalApi const& gdal, OgrLayerH layer, TableDef const& def, FdoFilter* filter)
    : row_(&def), reader_(gdal, row_), columns_(static_cast<std::size_t>(def.ColumnCount()), false) {
  auto const used = std::make_unique<bool[]>(columns_.size());
  eval_.emplace(filter, &def, used.get(), kAsInSql);
  std::copy_n(used.get(), columns_.size(), columns_.begin());
  reader_.SetColumns(columns_);
  OgrFeatureDefnH const definition = gdal.OGR_L_GetLayerDefn(layer);
  for (int column = kFirstField; column < def.ColumnCount(); ++column) {
    if (!columns_[static_cast<std::size_t>(column)]) continue;
    int const type = gdal.OGR_Fld_GetType(gdal.OGR_FD_GetFieldDefn(definition, column - kFirstField));
    if (type == kOftDate || type == kOftTime) dateParts_.push_back({column, type == kOftTime});
  }
  dateTexts_.resize(dateParts_.size());
  if (HasNoArcs(gdal, definition)) box_ = BoxOf(filter, ExprEval::kMaxDepth);
}

std::unique_ptr<RowFilter> RowFilter::Make(GdalApi const& gdal, OgrLayerH layer, TableDef const& def,
                                           FdoFilter* filter, std::wstring& refusal) {
  try {
    std::unique_ptr<RowFilter> made(new RowFilter(gdal, layer, def, filter));
    if (made->eval_->IsComplete()) return made;
    refusal = L"it has something in it that has no value, or a function with a wrong number of arguments";
  } catch (std::exception const& failure) {
    refusal = ToWide(failure.what());
  }
  return nullptr;
}

bool RowFilter::Matches(OgrFeatureH feature) {
  reader_.Read(feature);
  for (std::size_t i = 0; i < dateParts_.size(); ++i) {
    Value& cell = row_[dateParts_[i].column];
    if (cell.IsNull()) continue;
    std::wstring& text = dateTexts_[i];
    text = static_cast<wchar_t const*>(cell);
    std::size_t const separator = text.find(L'T');
    if (separator == std::wstring::npos) continue;
    text = dateParts_[i].isTime ? text.substr(separator + 1) : text.substr(0, separator);
    cell.Reset(text.c_str(), /*copy=*/false);
  }
  return eval_->Eval(&row_, nullptr);
}

}  // namespace fdo::internal
