// Everything that a client of the FDO interface includes, but for FdoSpatial.h.
#ifndef FDO_H_
#define FDO_H_

#include "Fdo/ClientServices/ClientServiceException.h"
#include "Fdo/Commands/CommandException.h"
#include "Fdo/Commands/SpatialContext/SpatialContextMismatchException.h"
#include "Fdo/Connections/ConnectionException.h"
#include "Fdo/Expression/ExpressionException.h"
#include "Fdo/Filter/FilterException.h"
#include "Fdo/Schema/AutogenerationException.h"
#include "Fdo/Schema/SchemaException.h"
#include "FdoCommon.h"
#include "FdoStd.h"

#endif  // FDO_H_
