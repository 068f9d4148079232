#include "ogr_backend/filter_sql.h"

namespace fdo::internal {

FilterSql TranslateFilter(FdoFilter* /*filter*/, TableDef const& /*def*/, FilterTarget const& /*target*/) {
  FilterSql out;
  out.refused = true;
  out.refusal = L"filters are not run on these tables yet";
  return out;
}

}  // namespace fdo::internal
