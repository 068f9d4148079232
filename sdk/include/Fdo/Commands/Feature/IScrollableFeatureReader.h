// A feature reader that moves both ways.
#ifndef FDO_COMMANDS_FEATURE_I_SCROLLABLE_FEATURE_READER_H_
#define FDO_COMMANDS_FEATURE_I_SCROLLABLE_FEATURE_READER_H_

#include "Fdo/Commands/Feature/IFeatureReader.h"
#include "FdoStd.h"

class FdoPropertyValueCollection;

// Positions count from 1 here.
class FDO_API FdoIScrollableFeatureReader : public FdoIFeatureReader {
 public:
  virtual FdoInt32 Count() = 0;
  virtual FdoBoolean ReadFirst() = 0;
  virtual FdoBoolean ReadLast() = 0;
  virtual FdoBoolean ReadPrevious() = 0;
  virtual FdoBoolean ReadAt(FdoPropertyValueCollection* key) = 0;
  virtual FdoBoolean ReadAtIndex(unsigned int recordindex) = 0;

  // Errors: 0 when absent.
  virtual unsigned int IndexOf(FdoPropertyValueCollection* key) = 0;
};

#endif  // FDO_COMMANDS_FEATURE_I_SCROLLABLE_FEATURE_READER_H_
