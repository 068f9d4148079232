// FdoArgumentDefinitionCollection is the list of arguments that a function takes.
#ifndef FDO_CONNECTIONS_CAPABILITIES_ARGUMENT_DEFINITION_COLLECTION_H_
#define FDO_CONNECTIONS_CAPABILITIES_ARGUMENT_DEFINITION_COLLECTION_H_

#include "Fdo/Connections/Capabilities/ArgumentDefinition.h"
#include "Fdo/Connections/ConnectionException.h"

class FDO_API FdoArgumentDefinitionCollection
    : public FdoCollection<FdoArgumentDefinition, FdoConnectionException> {
 public:
  // Give: one reference.
  static FdoArgumentDefinitionCollection* Create();
  static FdoArgumentDefinitionCollection* Create(FdoArgumentDefinition** arguments, FdoInt32 length);

 protected:
  FdoArgumentDefinitionCollection();
  ~FdoArgumentDefinitionCollection() override;
  void Dispose() override;
};

#endif  // FDO_CONNECTIONS_CAPABILITIES_ARGUMENT_DEFINITION_COLLECTION_H_
