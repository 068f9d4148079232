#include <fdo/database.h>

namespace fdo {

Table* Database::operator[](wchar_t const* name) {
  int const i = def_ == nullptr ? -1 : def_->IndexOf(name);
  return i < 0 ? nullptr : tables_[i];
}

Table const* Database::operator[](wchar_t const* name) const {
  int const i = def_ == nullptr ? -1 : def_->IndexOf(name);
  return i < 0 ? nullptr : tables_[i];
}

void Database::ClearSchema() {
  if (def_ == nullptr) return;
  // A back end that failed half way may have a schema without tables.
  if (tables_ != nullptr) {
    for (int i = 0; i < def_->Count(); ++i) delete tables_[i];
  }
  delete[] tables_;
  tables_ = nullptr;
  delete def_;
  def_ = nullptr;
}

}  // namespace fdo
