// The command that makes a spatial context, or changes one.
#ifndef FDO_COMMANDS_SPATIAL_CONTEXT_I_CREATE_SPATIAL_CONTEXT_H_
#define FDO_COMMANDS_SPATIAL_CONTEXT_I_CREATE_SPATIAL_CONTEXT_H_

#include "Fdo/Commands/ICommand.h"
#include "Fdo/Commands/SpatialContext/SpatialContextExtentType.h"
#include "FdoStd.h"

class FDO_API FdoICreateSpatialContext : public FdoICommand {
 public:
  virtual FdoString* GetName() = 0;
  virtual void SetName(FdoString* value) = 0;
  virtual FdoString* GetDescription() = 0;
  virtual void SetDescription(FdoString* value) = 0;
  virtual FdoString* GetCoordinateSystem() = 0;
  virtual void SetCoordinateSystem(FdoString* value) = 0;
  virtual FdoString* GetCoordinateSystemWkt() = 0;
  virtual void SetCoordinateSystemWkt(FdoString* value) = 0;
  virtual FdoSpatialContextExtentType GetExtentType() = 0;
  virtual void SetExtentType(FdoSpatialContextExtentType value) = 0;
  virtual FdoByteArray* GetExtent() = 0;

  // FGF; ignored with the dynamic extent type.
  virtual void SetExtent(FdoByteArray* value) = 0;

  virtual double const GetXYTolerance() = 0;
  virtual void SetXYTolerance(double const value) = 0;
  virtual double const GetZTolerance() = 0;
  virtual void SetZTolerance(double const value) = 0;
  virtual bool const GetUpdateExisting() = 0;

  // When false, an existing name makes Execute fail.
  virtual void SetUpdateExisting(bool const value) = 0;

  virtual void Execute() = 0;
};

#endif  // FDO_COMMANDS_SPATIAL_CONTEXT_I_CREATE_SPATIAL_CONTEXT_H_
