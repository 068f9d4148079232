#include <fdo/schema.h>
#include <fdo/text_conversion.h>

namespace fdo {

ColumnDef::ColumnDef(ColumnDef const& other) { CopyFrom(other); }

ColumnDef& ColumnDef::operator=(ColumnDef const& other) {
  CopyFrom(other);
  return *this;
}

ColumnDef::~ColumnDef() { delete srs_; }

void ColumnDef::Initialize(wchar_t const* name, DataType type, int geomTypes, Value const& defaultValue,
                           CoordSys const* srs) {
  name_ = name == nullptr ? L"" : name;
  nameUtf8_ = ToUtf8(name_.c_str());
  type_ = type;
  geomTypes_ = geomTypes;
  defaultValue_ = defaultValue;
  SetCoordSys(srs);
}

void ColumnDef::CopyFrom(ColumnDef const& other) {
  name_ = other.name_;
  nameUtf8_ = other.nameUtf8_;
  type_ = other.type_;
  geomTypes_ = other.geomTypes_;
  SetCoordSys(other.srs_);
}

void ColumnDef::SetCoordSys(CoordSys const* srs) {
  if (srs == srs_) return;
  CoordSys* copy = srs == nullptr ? nullptr : new CoordSys(*srs);
  delete srs_;
  srs_ = copy;
}

}  // namespace fdo
