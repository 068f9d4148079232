// FdoBatchParameterValueCollection is one list of parameters for each time that a command is to run.
#ifndef FDO_COMMANDS_BATCH_PARAMETER_VALUE_COLLECTION_H_
#define FDO_COMMANDS_BATCH_PARAMETER_VALUE_COLLECTION_H_

#include "Fdo/Commands/ParameterValueCollection.h"

class FDO_API FdoBatchParameterValueCollection
    : public FdoCollection<FdoParameterValueCollection, FdoCommandException> {
 public:
  // Gives: one reference.
  static FdoBatchParameterValueCollection* Create();

 protected:
  FdoBatchParameterValueCollection();
  ~FdoBatchParameterValueCollection() override;
  void Dispose() override;
};

#endif  // FDO_COMMANDS_BATCH_PARAMETER_VALUE_COLLECTION_H_
