#include <fdo/table.h>

#include <vector>

namespace fdo {

bool Table::IsEmpty(FdoFilter* filter) { return GetRowCount(filter, false) == 0; }

void Table::SetDesiredFields(bool const* flags, int count) {
  std::vector<int> columns;
  for (int i = 0; flags != nullptr && i < count; ++i) {
    if (flags[i]) columns.push_back(i);
  }
  SetDesiredFields(columns.empty() ? nullptr : columns.data(), static_cast<int>(columns.size()));
}

}  // namespace fdo
