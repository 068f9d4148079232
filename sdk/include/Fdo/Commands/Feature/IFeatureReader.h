// Reads features, and the objects inside them.
#ifndef FDO_COMMANDS_FEATURE_I_FEATURE_READER_H_
#define FDO_COMMANDS_FEATURE_I_FEATURE_READER_H_

#include "Fdo/Commands/Feature/IReader.h"
#include "FdoStd.h"

class FdoClassDefinition;

class FDO_API FdoIFeatureReader : public FdoIReader {
 public:
  // Gives: one reference; the class has the selected properties only.
  virtual FdoClassDefinition* GetClassDefinition() = 0;

  // 0 for the outermost reader.
  virtual FdoInt32 GetDepth() = 0;

  // Borrowed: FGF, until ReadNext, Close or disposal; count in bytes.
  virtual FdoByte const* GetGeometry(FdoString* propertyName, FdoInt32* count) = 0;

  FdoByteArray* GetGeometry(FdoString* propertyName) override = 0;
  virtual FdoIFeatureReader* GetFeatureObject(FdoString* propertyName) = 0;

  // As above, by position.
  virtual FdoByte const* GetGeometry(FdoInt32 index, FdoInt32* count) = 0;

  FdoByteArray* GetGeometry(FdoInt32 index) override = 0;
  virtual FdoIFeatureReader* GetFeatureObject(FdoInt32 index) = 0;
};

#endif  // FDO_COMMANDS_FEATURE_I_FEATURE_READER_H_
