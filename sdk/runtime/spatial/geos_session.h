// GeosSession is one thread's use of GEOS: its handle, its last error and the objects it made.
#ifndef SDK_RUNTIME_SPATIAL_GEOS_SESSION_H_
#define SDK_RUNTIME_SPATIAL_GEOS_SESSION_H_

#include <geos_c.h>

#include <memory>
#include <string>

namespace fdo_sdk {

struct GeosDeleter {
  GEOSContextHandle_t handle = nullptr;

  void operator()(GEOSGeometry* geometry) const { GEOSGeom_destroy_r(handle, geometry); }
  void operator()(GEOSPreparedGeometry const* prepared) const {
    GEOSPreparedGeom_destroy_r(handle, prepared);
  }
};

using GeosGeometry = std::unique_ptr<GEOSGeometry, GeosDeleter>;
using GeosPrepared = std::unique_ptr<GEOSPreparedGeometry const, GeosDeleter>;

// Threads: belongs to one.
class GeosSession {
 public:
  GeosSession();
  ~GeosSession();

  // Made by the thread's first use.
  static GeosSession& OfThisThread();

  GEOSContextHandle_t Handle() const { return handle_; }

  // Take what GEOS gave. Errors: throw FdoException* with GEOS's message for null, and for the answer that
  // stands for an exception.
  GeosGeometry Own(GEOSGeometry* geometry);
  GeosPrepared Own(GEOSPreparedGeometry const* prepared);
  bool Answer(char answer);

  [[noreturn]] void Throw();

 private:
  GeosSession(GeosSession const&) = delete;
  GeosSession& operator=(GeosSession const&) = delete;

  static void KeepMessage(char const* message, void* session);

  GEOSContextHandle_t handle_;
  std::string message_;
};

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_SPATIAL_GEOS_SESSION_H_
