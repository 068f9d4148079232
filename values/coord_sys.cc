#include <fdo/schema.h>

#include <memory>

#include "values/name_index.h"

namespace fdo {

CoordSys::CoordSys(wchar_t const* name, wchar_t const* code, wchar_t const* wkt)
    : name_(name == nullptr ? L"" : name),
      code_(code == nullptr ? L"" : code),
      wkt_(wkt == nullptr ? L"" : wkt) {}

CoordSysDef::~CoordSysDef() { Cleanup(); }

void CoordSysDef::Initialize(CoordSys const* systems, int count) {
  // The copies are made first: systems may be those of this list.
  std::unique_ptr<CoordSys[]> copies;
  std::unique_ptr<internal::NameIndex> index;
  if (count > 0) {
    copies = std::make_unique<CoordSys[]>(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) copies[static_cast<std::size_t>(i)] = systems[i];
    index = std::make_unique<internal::NameIndex>(
        count, [&](int i) { return copies[static_cast<std::size_t>(i)].Name(); });
  }
  Cleanup();
  systems_ = copies.release();
  index_ = index.release();
  count_ = count;
}

void CoordSysDef::Cleanup() {
  delete index_;
  index_ = nullptr;
  delete[] systems_;
  systems_ = nullptr;
  count_ = 0;
}

int CoordSysDef::IndexOf(wchar_t const* name) const { return index_ == nullptr ? -1 : index_->Find(name); }

CoordSys const* CoordSysDef::operator[](wchar_t const* name) const {
  int const i = IndexOf(name);
  return i < 0 ? nullptr : &systems_[i];
}

}  // namespace fdo
