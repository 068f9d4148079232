// FdoSignatureDefinition is one way to call a function: what it takes and what it gives.
#ifndef FDO_CONNECTIONS_CAPABILITIES_SIGNATURE_DEFINITION_H_
#define FDO_CONNECTIONS_CAPABILITIES_SIGNATURE_DEFINITION_H_

#include "Fdo/Connections/Capabilities/ReadOnlyArgumentDefinitionCollection.h"
#include "Fdo/ReadOnlyUnnamedCollection.h"
#include "Fdo/Schema/SchemaException.h"

class FDO_API FdoSignatureDefinition : public FdoIDisposable {
 public:
  // Give: one reference. The first form gives a data value; null means no arguments.
  static FdoSignatureDefinition* Create(FdoDataType returnType, FdoArgumentDefinitionCollection* arguments);
  static FdoSignatureDefinition* Create(FdoPropertyType returnPropertyType, FdoDataType returnType,
                                        FdoArgumentDefinitionCollection* arguments);

  // Gives: one reference.
  FdoReadOnlyArgumentDefinitionCollection* GetArguments();
  FdoPropertyType GetReturnPropertyType();
  // Of data values only.
  FdoDataType GetReturnType();

 protected:
  FdoSignatureDefinition(FdoPropertyType returnPropertyType, FdoDataType returnType,
                         FdoArgumentDefinitionCollection* arguments);
  ~FdoSignatureDefinition() override;
  void Dispose() override;

 private:
  FdoPropertyType m_returnPropertyType;
  FdoDataType m_returnType;
  FdoPtr<FdoReadOnlyArgumentDefinitionCollection> m_arguments;
};

class FDO_API FdoSignatureDefinitionCollection
    : public FdoCollection<FdoSignatureDefinition, FdoConnectionException> {
 public:
  // Give: one reference.
  static FdoSignatureDefinitionCollection* Create();
  static FdoSignatureDefinitionCollection* Create(FdoSignatureDefinition** arguments, FdoInt32 length);

 protected:
  FdoSignatureDefinitionCollection();
  ~FdoSignatureDefinitionCollection() override;
  void Dispose() override;
};

class FDO_API FdoReadOnlySignatureDefinitionCollection
    : public FdoReadOnlyUnnamedCollection<FdoSignatureDefinition, FdoSignatureDefinitionCollection,
                                          FdoSchemaException> {
 public:
  // Gives: one reference. The collection may be null.
  static FdoReadOnlySignatureDefinitionCollection* Create(FdoSignatureDefinitionCollection* col);

 protected:
  explicit FdoReadOnlySignatureDefinitionCollection(FdoSignatureDefinitionCollection* collection);
  ~FdoReadOnlySignatureDefinitionCollection() override;
  void Dispose() override;
};

#endif  // FDO_CONNECTIONS_CAPABILITIES_SIGNATURE_DEFINITION_H_
