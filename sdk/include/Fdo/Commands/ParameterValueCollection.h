// FdoParameterValueCollection is the list of parameters of a command.
#ifndef FDO_COMMANDS_PARAMETER_VALUE_COLLECTION_H_
#define FDO_COMMANDS_PARAMETER_VALUE_COLLECTION_H_

#include "Fdo/Commands/CommandException.h"
#include "Fdo/Commands/ParameterValue.h"

class FDO_API FdoParameterValueCollection : public FdoCollection<FdoParameterValue, FdoCommandException> {
 public:
  // Gives: one reference.
  static FdoParameterValueCollection* Create();

  // The first item of a name.
  // Give: one reference. When there is none of that name GetItem throws, FindItem gives null.
  FdoParameterValue* GetItem(FdoString* name);
  FdoParameterValue* FindItem(FdoString* name);
  FdoParameterValue* GetItem(FdoInt32 index);

  using FdoCollection<FdoParameterValue, FdoCommandException>::GetItem;

 protected:
  FdoParameterValueCollection();
  ~FdoParameterValueCollection() override;
  void Dispose() override;
};

#endif  // FDO_COMMANDS_PARAMETER_VALUE_COLLECTION_H_
