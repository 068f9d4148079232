// FdoPropertyValueCollection is the list of values of an insert or update.
#ifndef FDO_COMMANDS_PROPERTY_VALUE_COLLECTION_H_
#define FDO_COMMANDS_PROPERTY_VALUE_COLLECTION_H_

#include "Fdo/Commands/CommandException.h"
#include "Fdo/Commands/PropertyValue.h"

class FDO_API FdoPropertyValueCollection : public FdoCollection<FdoPropertyValue, FdoCommandException> {
 public:
  // Gives: one reference.
  static FdoPropertyValueCollection* Create();

  // The first item of a name, compared with the whole text of the identifier.
  // Give: one reference. When there is none of that name GetItem throws, FindItem gives null.
  FdoPropertyValue* GetItem(FdoString* name);
  FdoPropertyValue* FindItem(FdoString* name);
  FdoPropertyValue* GetItem(FdoInt32 index);

  using FdoCollection<FdoPropertyValue, FdoCommandException>::GetItem;

 protected:
  FdoPropertyValueCollection();
  ~FdoPropertyValueCollection() override;
  void Dispose() override;
};

#endif  // FDO_COMMANDS_PROPERTY_VALUE_COLLECTION_H_
