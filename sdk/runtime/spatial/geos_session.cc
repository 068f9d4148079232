#include "sdk/runtime/spatial/geos_session.h"

#include <new>

#include "FdoCommon.h"

namespace fdo_sdk {

GeosSession::GeosSession() : handle_(GEOS_init_r()) {
  if (handle_ == nullptr) throw std::bad_alloc();
  GEOSContext_setErrorMessageHandler_r(handle_, &GeosSession::KeepMessage, this);
}

GeosSession::~GeosSession() { GEOS_finish_r(handle_); }

GeosSession& GeosSession::OfThisThread() {
  thread_local GeosSession session;
  return session;
}

void GeosSession::KeepMessage(char const* message, void* session) {
  static_cast<GeosSession*>(session)->message_ = message;
}

void GeosSession::Throw() {
  std::string const message = "GEOS: " + (message_.empty() ? std::string("no memory") : message_);
  message_.clear();
  throw FdoException::Create(FdoStringP(message.c_str()));
}

GeosGeometry GeosSession::Own(GEOSGeometry* geometry) {
  if (geometry == nullptr) Throw();
  return GeosGeometry(geometry, GeosDeleter{handle_});
}

GeosPrepared GeosSession::Own(GEOSPreparedGeometry const* prepared) {
  if (prepared == nullptr) Throw();
  return GeosPrepared(prepared, GeosDeleter{handle_});
}

bool GeosSession::Answer(char answer) {
  constexpr char kFailed = 2;
  if (answer == kFailed) Throw();
  return answer != 0;
}

}  // namespace fdo_sdk
