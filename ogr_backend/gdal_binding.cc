#include "ogr_backend/gdal_binding.h"

#include <string>

#include "port/dynamic_library.h"
#include "port/file.h"

namespace fdo::internal {
namespace {

// File names of GDAL 3, as a text before and after a running number. A name of another platform is
// not found here and costs one look-up.
struct NameSeries {
  char const* prefix;
  char const* suffix;
  int newest;
  int oldest;
};

constexpr char const* kPlainNames[] = {"libgdal.so", "libgdal.dylib", "gdal.dll", "libgdal.dll"};
constexpr NameSeries kNumberedNames[] = {
    {"libgdal.so.", "", 45, 26},   // 26 is GDAL 3.0
    {"libgdal-", ".dll", 45, 26},  // mingw
    {"gdal", ".dll", 319, 300},    // OSGeo4W: 309 is GDAL 3.9
    {"libgdal.", ".dylib", 45, 26},
};

void* LoadGdal() {
  std::string const chosen = port::EnvironmentVariable("QUILLON_GDAL_LIBRARY");
  if (!chosen.empty()) return port::LoadLibraryByName(chosen.c_str());
  for (char const* name : kPlainNames) {
    if (void* library = port::LoadLibraryByName(name)) return library;
  }
  for (NameSeries const& series : kNumberedNames) {
    for (int number = series.newest; number >= series.oldest; --number) {
      std::string const name = series.prefix + std::to_string(number) + series.suffix;
      if (void* library = port::LoadLibraryByName(name.c_str())) return library;
    }
  }
  return nullptr;
}

// Whether every function was found.
bool BindAll(void* library, GdalApi& api) {
  bool complete = true;
#define QUILLON_GDAL_BIND(result, name, arguments)                                   \
  api.name = reinterpret_cast<decltype(api.name)>(port::FindSymbol(library, #name)); \
  complete = complete && api.name != nullptr;
  QUILLON_GDAL_FUNCTIONS(QUILLON_GDAL_BIND)
#undef QUILLON_GDAL_BIND
  return complete;
}

GdalApi const* Bind() {
  static GdalApi api;
  void* library = LoadGdal();
  if (library == nullptr || !BindAll(library, api)) return nullptr;
  api.GDALAllRegister();
  return &api;
}

}  // namespace

GdalApi const* Gdal() {
  static GdalApi const* const bound = Bind();
  return bound;
}

}  // namespace fdo::internal
