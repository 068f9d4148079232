#include "Fdo/ClientServices/ClientServiceException.h"
#include "Fdo/Commands/CommandException.h"
#include "Fdo/Commands/SpatialContext/SpatialContextMismatchException.h"
#include "Fdo/Connections/ConnectionException.h"
#include "Fdo/Expression/ExpressionException.h"
#include "Fdo/Filter/FilterException.h"
#include "Fdo/Schema/AutogenerationException.h"
#include "Fdo/Schema/SchemaException.h"

// The families differ in their names only.
#define FDO_SDK_DEFINE_EXCEPTION_FAMILY(Family, Base)                                                    \
  Family::Family() = default;                                                                            \
  Family::Family(FdoString* message, FdoException* cause, FdoInt64 nativeErrorCode)                      \
      : Base(message, cause, nativeErrorCode) {}                                                         \
  Family::~Family() = default;                                                                           \
  Family* Family::Create() { return new Family(); }                                                      \
  Family* Family::Create(FdoString* message) { return new Family(message); }                             \
  Family* Family::Create(FdoString* message, FdoInt64 nativeErrorCode) {                                 \
    return new Family(message, nullptr, nativeErrorCode);                                                \
  }                                                                                                      \
  Family* Family::Create(FdoString* message, FdoException* cause) { return new Family(message, cause); } \
  Family* Family::Create(FdoString* message, FdoException* cause, FdoInt64 nativeErrorCode) {            \
    return new Family(message, cause, nativeErrorCode);                                                  \
  }

FDO_SDK_DEFINE_EXCEPTION_FAMILY(FdoConnectionException, FdoException)
FDO_SDK_DEFINE_EXCEPTION_FAMILY(FdoCommandException, FdoException)
FDO_SDK_DEFINE_EXCEPTION_FAMILY(FdoSpatialContextMismatchException, FdoException)
FDO_SDK_DEFINE_EXCEPTION_FAMILY(FdoExpressionException, FdoException)
FDO_SDK_DEFINE_EXCEPTION_FAMILY(FdoFilterException, FdoException)
FDO_SDK_DEFINE_EXCEPTION_FAMILY(FdoSchemaException, FdoException)
FDO_SDK_DEFINE_EXCEPTION_FAMILY(FdoAutogenerationException, FdoSchemaException)

FdoClientServiceException::FdoClientServiceException() = default;

FdoClientServiceException::FdoClientServiceException(FdoString* message, FdoInt64 nativeErrorCode)
    : FdoException(message, nullptr, nativeErrorCode) {}

FdoClientServiceException::~FdoClientServiceException() = default;

FdoClientServiceException* FdoClientServiceException::Create() { return new FdoClientServiceException(); }

FdoClientServiceException* FdoClientServiceException::Create(FdoString* message) {
  return new FdoClientServiceException(message, 0);
}

FdoClientServiceException* FdoClientServiceException::Create(FdoString* message, FdoInt64 nativeErrorCode) {
  return new FdoClientServiceException(message, nativeErrorCode);
}

FdoString* FdoClientServiceException::ToString() { return FdoException::ToString(); }
