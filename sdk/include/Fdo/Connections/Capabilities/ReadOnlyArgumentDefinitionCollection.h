// FdoReadOnlyArgumentDefinitionCollection shows the arguments of a function.
#ifndef FDO_CONNECTIONS_CAPABILITIES_READ_ONLY_ARGUMENT_DEFINITION_COLLECTION_H_
#define FDO_CONNECTIONS_CAPABILITIES_READ_ONLY_ARGUMENT_DEFINITION_COLLECTION_H_

#include "Fdo/Connections/Capabilities/ArgumentDefinitionCollection.h"
#include "Fdo/ReadOnlyCollection.h"

class FDO_API FdoReadOnlyArgumentDefinitionCollection
    : public FdoReadOnlyCollection<FdoArgumentDefinition, FdoArgumentDefinitionCollection,
                                   FdoConnectionException> {
 public:
  // Gives: one reference. The collection may be null.
  static FdoReadOnlyArgumentDefinitionCollection* Create(FdoArgumentDefinitionCollection* collection);

 protected:
  explicit FdoReadOnlyArgumentDefinitionCollection(FdoArgumentDefinitionCollection* collection);
  ~FdoReadOnlyArgumentDefinitionCollection() override;
  void Dispose() override;
};

#endif  // FDO_CONNECTIONS_CAPABILITIES_READ_ONLY_ARGUMENT_DEFINITION_COLLECTION_H_
