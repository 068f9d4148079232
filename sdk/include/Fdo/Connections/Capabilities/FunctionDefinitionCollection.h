// FdoFunctionDefinitionCollection is the list of functions that a provider can evaluate.
#ifndef FDO_CONNECTIONS_CAPABILITIES_FUNCTION_DEFINITION_COLLECTION_H_
#define FDO_CONNECTIONS_CAPABILITIES_FUNCTION_DEFINITION_COLLECTION_H_

#include "Fdo/Connections/Capabilities/FunctionDefinition.h"

class FDO_API FdoFunctionDefinitionCollection
    : public FdoNamedCollection<FdoFunctionDefinition, FdoConnectionException> {
 public:
  // Give: one reference.
  static FdoFunctionDefinitionCollection* Create();
  static FdoFunctionDefinitionCollection* Create(FdoFunctionDefinition** arguments, FdoInt32 length);

 protected:
  FdoFunctionDefinitionCollection();
  ~FdoFunctionDefinitionCollection() override;
  void Dispose() override;
};

#endif  // FDO_CONNECTIONS_CAPABILITIES_FUNCTION_DEFINITION_COLLECTION_H_
