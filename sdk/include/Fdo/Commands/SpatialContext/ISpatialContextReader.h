// Reads spatial contexts one after another.
#ifndef FDO_COMMANDS_SPATIAL_CONTEXT_I_SPATIAL_CONTEXT_READER_H_
#define FDO_COMMANDS_SPATIAL_CONTEXT_I_SPATIAL_CONTEXT_READER_H_

#include "Fdo/Commands/SpatialContext/SpatialContextExtentType.h"
#include "FdoStd.h"

// Starts before the first; there is no Close, the last release ends it.
// Borrowed: texts, until the next ReadNext.
class FDO_API FdoISpatialContextReader : public FdoIDisposable {
 public:
  virtual FdoString* GetName() = 0;
  virtual FdoString* GetDescription() = 0;

  // Null or empty when unknown.
  virtual FdoString* GetCoordinateSystem() = 0;

  // Empty when not available.
  virtual FdoString* GetCoordinateSystemWkt() = 0;

  virtual FdoSpatialContextExtentType GetExtentType() = 0;

  // Gives: one reference; the bytes are FGF.
  virtual FdoByteArray* GetExtent() = 0;

  virtual double const GetXYTolerance() = 0;
  virtual double const GetZTolerance() = 0;
  virtual bool const IsActive() = 0;
  virtual bool ReadNext() = 0;

  // Deliberate: public, unlike in every other class. Release is what ends a reader; a direct call would end
  // it behind the back of those who share it.
  void Dispose() override = 0;
};

#endif  // FDO_COMMANDS_SPATIAL_CONTEXT_I_SPATIAL_CONTEXT_READER_H_
