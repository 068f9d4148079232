#include "tools/quillon/coordinate_system_name.h"

namespace fdo::tool {

std::wstring CoordinateSystemName(std::wstring const& wkt) {
  std::size_t const begin = wkt.find(L'"');
  if (begin == std::wstring::npos) return {};
  std::size_t const end = wkt.find(L'"', begin + 1);
  return end == std::wstring::npos ? std::wstring() : wkt.substr(begin + 1, end - begin - 1);
}

std::wstring CoordinateSystemName(TableDef const& def) {
  CoordSys const* const system = def.HasGeom() ? def.Geom().SRS() : nullptr;
  if (system == nullptr) return {};
  std::wstring const name = CoordinateSystemName(std::wstring(system->Wkt()));
  return name.empty() ? system->Code() : name;
}

}  // namespace fdo::tool
