// What a query gives: its columns by position and by name. Readers of one query share it.
#ifndef SDK_PROVIDERS_SQLITE_RESULT_COLUMNS_H_
#define SDK_PROVIDERS_SQLITE_RESULT_COLUMNS_H_

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Fdo.h"
#include "sdk/extensions/direct_cells.h"
#include "sdk/providers/sqlite/geometry_format.h"

namespace fdo_sqlite {

// In the place of a data type, where a column holds geometry.
inline constexpr int kGeometryColumn = fdo_sdk::kDirectGeometry;

struct ResultColumn {
  std::wstring name;
  int type = FdoDataType_String;                 // a FdoDataType, or kGeometryColumn
  GeometryFormat format = GeometryFormat::kFgf;  // of geometry
};

class ResultColumns {
 public:
  explicit ResultColumns(std::vector<ResultColumn> columns) : columns_(std::move(columns)) {
    for (std::size_t i = 0; i < columns_.size(); ++i)
      positions_.emplace(columns_[i].name, static_cast<int>(i));
  }
  ResultColumns(ResultColumns const&) = delete;
  ResultColumns& operator=(ResultColumns const&) = delete;

  int Count() const { return static_cast<int>(columns_.size()); }
  // Requires: 0 <= index && index < Count()
  ResultColumn const& At(int index) const { return columns_[static_cast<std::size_t>(index)]; }

  // The first of that name. Errors: -1.
  int Find(std::wstring_view name) const {
    auto const found = positions_.find(name);
    return found == positions_.end() ? -1 : found->second;
  }

 private:
  std::vector<ResultColumn> const columns_;
  std::unordered_map<std::wstring_view, int> positions_;  // names lie in columns_
};

typedef std::shared_ptr<ResultColumns const> ResultColumnsPtr;

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_RESULT_COLUMNS_H_
