// What a table knows of its rows as a whole, asked of the provider where that can tell.
#include <Fdo.h>
#include <fdo/table_fdo.h>

#include <algorithm>
#include <cfloat>
#include <cstring>
#include <string>

#include "access/boundary.h"
#include "fdo_backend/table_command.h"
#include "geometry/unaligned.h"

namespace fdo {
namespace {

constexpr wchar_t kCount[] = L"TheCount";
constexpr wchar_t kExtents[] = L"Extents";
constexpr wchar_t kCountOfRows[] = L"Count()";

FdoPtr<FdoISelectAggregates> MakeAggregates(FdoIConnection* connection, TableDef const& def,
                                            FdoFilter* filter) {
  auto aggregates = internal::MakeTableCommand<FdoISelectAggregates>(
      connection, FdoCommandType_SelectAggregates, def.Name());
  aggregates->SetFilter(filter);
  return aggregates;
}

void AddComputed(FdoISelectAggregates& aggregates, wchar_t const* name, wchar_t const* expression) {
  FdoPtr<FdoExpression> const parsed = FdoExpression::Parse(expression);
  FdoPtr<FdoComputedIdentifier> const computed = FdoComputedIdentifier::Create(name, parsed);
  FdoPtr<FdoIdentifierCollection>(aggregates.GetPropertyNames())->Add(computed);
}

// Where the extents' polygon, one ring of XY positions, has its first and its third corner.
constexpr std::size_t kOrdinateOffsets[] = {16, 24, 48, 56};
constexpr FdoInt32 kExtentBytes = 64;

}  // namespace

bool TableFdo::CountByAggregate(wchar_t const* expression, FdoFilter* filter, __int64& count) const {
  return AtSilentBoundary(false, [&] {
    auto const aggregates = MakeAggregates(connection_, *def_, filter);
    AddComputed(*aggregates, kCount, expression);
    FdoPtr<FdoIDataReader> const reader = aggregates->Execute();
    if (reader == nullptr) return false;
    __int64 const found = reader->ReadNext() ? reader->GetInt64(kCount) : 0;
    reader->Close();
    count = found;
    return true;
  });
}

__int64 TableFdo::CountByScan(FdoFilter* filter) const {
  auto const select =
      internal::MakeTableCommand<FdoISelect>(connection_, FdoCommandType_Select, def_->Name());
  select->SetFilter(filter);
  FdoPtr<FdoIFeatureReader> const reader = select->Execute();
  if (reader == nullptr) throw FdoException::Create(L"The provider gives no reader of the rows.");
  __int64 count = 0;
  while (reader->ReadNext()) ++count;
  reader->Close();
  return count;
}

__int64 TableFdo::GetRowCount(FdoFilter* filter, bool allowScan) {
  return AtBoundary<__int64>(-1, [&]() -> __int64 {
    FdoPtr<FdoFilter> const condition =
        filter == nullptr && allowScan ? FdoFilter::Parse(L"1=1") : FDO_SAFE_ADDREF(filter);
    __int64 count = 0;
    if (CountByAggregate(kCountOfRows, condition, count)) return count;
    if (def_->HasID()) {
      // For providers that count a property's values only.
      std::wstring const countOfIds = std::wstring(L"Count(\"") + def_->ID().Name() + L"\")";
      if (CountByAggregate(countOfIds.c_str(), condition, count)) return count;
    }
    return allowScan ? CountByScan(condition) : -1;
  });
}

bool TableFdo::ExtentByAggregate(double* box, FdoFilter* filter) const {
  return AtSilentBoundary(false, [&] {
    auto const aggregates = MakeAggregates(connection_, *def_, filter);
    std::wstring const extents = std::wstring(L"SpatialExtents(") + def_->Geom().Name() + L")";
    AddComputed(*aggregates, kExtents, extents.c_str());
    AddComputed(*aggregates, kCount, kCountOfRows);
    FdoPtr<FdoIDataReader> const reader = aggregates->Execute();
    if (reader == nullptr) return false;
    double found[4];
    std::copy_n(box, 4, found);
    if (reader->ReadNext() && reader->GetInt64(kCount) > 0) {
      FdoPtr<FdoByteArray> const polygon = reader->GetGeometry(kExtents);
      if (polygon != nullptr) {
        if (polygon->GetCount() < kExtentBytes) return false;
        for (int i = 0; i < 4; ++i) found[i] = Load<double>(polygon->GetData() + kOrdinateOffsets[i]);
      }
    }
    reader->Close();
    std::copy_n(found, 4, box);
    return true;
  });
}

void TableFdo::GetExtent(double* const box, FdoFilter* filter) {
  constexpr double kEmpty[] = {DBL_MAX, DBL_MAX, -DBL_MAX, -DBL_MAX};
  std::copy_n(kEmpty, 4, box);
  if (!def_->HasGeom() || ExtentByAggregate(box, filter)) return;
  Table::GetExtent(box, filter);
}

bool TableFdo::IsEmpty(FdoFilter* filter) {
  int const id = def_->IndexOfID();
  SetDesiredFields(&id, def_->HasID() ? 1 : 0);
  Query(filter, nullptr, true);
  bool const empty = Next() == nullptr;
  EndQuery();
  SetDesiredFields(static_cast<int const*>(nullptr), 0);
  return empty;
}

}  // namespace fdo
