// What GDAL says about a failure goes where the caller wants it, not to the standard error stream.
#ifndef OGR_BACKEND_GDAL_ERRORS_H_
#define OGR_BACKEND_GDAL_ERRORS_H_

#include <string>

#include "ogr_backend/gdal_binding.h"

namespace fdo::internal {

// While it lives, GDAL's messages on this thread are not printed, and the first failure is kept. GDAL
// keeps its handlers in a stack per thread, so nothing changes for other threads or afterwards.
// Requires: it is destroyed on the thread that made it, in reverse order of construction.
class GdalErrorScope {
 public:
  explicit GdalErrorScope(GdalApi const& gdal) : gdal_(gdal) {
    gdal_.CPLPushErrorHandlerEx(&GdalErrorScope::Handle, this);
  }
  ~GdalErrorScope() { gdal_.CPLPopErrorHandler(); }
  GdalErrorScope(GdalErrorScope const&) = delete;
  GdalErrorScope& operator=(GdalErrorScope const&) = delete;

  bool Failed() const { return failed_; }
  // Makes it as if nothing had been said so far.
  void Forget() {
    if (!failed_ && warning_.empty()) return;
    failed_ = false;
    failure_.clear();
    warning_.clear();
  }
  // The first failure's text in UTF-8, else the last warning's, else "".
  std::string const& Message() const { return failed_ ? failure_ : warning_; }

 private:
  static void Handle(int errorClass, int /*errorNumber*/, char const* message) {
    auto* scope = static_cast<GdalErrorScope*>(Gdal()->CPLGetErrorHandlerUserData());
    if (scope == nullptr || message == nullptr) return;
    if (errorClass >= kCplFailure && !scope->failed_) {
      scope->failed_ = true;
      scope->failure_ = message;
    } else if (errorClass == kCplWarning) {
      scope->warning_ = message;
    }
  }

  GdalApi const& gdal_;
  bool failed_ = false;
  std::string failure_;
  std::string warning_;
};

}  // namespace fdo::internal

#endif  // OGR_BACKEND_GDAL_ERRORS_H_
