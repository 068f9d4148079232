// FdoFunctionDefinition describes a function that a provider can evaluate.
#ifndef FDO_CONNECTIONS_CAPABILITIES_FUNCTION_DEFINITION_H_
#define FDO_CONNECTIONS_CAPABILITIES_FUNCTION_DEFINITION_H_

#include "Fdo/Connections/Capabilities/FunctionCategoryType.h"
#include "Fdo/Connections/Capabilities/SignatureDefinition.h"

class FDO_API FdoFunctionDefinition : public FdoIDisposable {
 public:
  // Give: one reference. The first two forms make a function with one signature; it folds many rows
  // into one exactly when its category is Aggregate.
  static FdoFunctionDefinition* Create(
      FdoString* name, FdoString* description, FdoDataType returnType,
      FdoArgumentDefinitionCollection* arguments,
      FdoFunctionCategoryType functionCategoryType = FdoFunctionCategoryType_Unspecified,
      bool supportsVariableArgumentsList = false);
  static FdoFunctionDefinition* Create(
      FdoString* name, FdoString* description, FdoPropertyType returnPropertyType, FdoDataType returnType,
      FdoArgumentDefinitionCollection* arguments,
      FdoFunctionCategoryType functionCategoryType = FdoFunctionCategoryType_Unspecified,
      bool supportsVariableArgumentsList = false);
  static FdoFunctionDefinition* Create(
      FdoString* name, FdoString* description, bool isAggregate, FdoSignatureDefinitionCollection* signatures,
      FdoFunctionCategoryType functionCategoryType = FdoFunctionCategoryType_Unspecified,
      bool supportsVariableArgumentsList = false);

  FdoString* GetName();
  FdoString* GetDescription();

  // What the first signature says; no arguments, data and String when there is none.
  // Gives: one reference.
  FdoReadOnlyArgumentDefinitionCollection* GetArguments();
  FdoPropertyType GetReturnPropertyType();
  FdoDataType GetReturnType();

  // False: the name is part of the definition.
  virtual FdoBoolean CanSetName();

  // Gives: one reference.
  FdoReadOnlySignatureDefinitionCollection* GetSignatures();

  bool IsAggregate();
  virtual FdoFunctionCategoryType GetFunctionCategoryType();

  // Whether the last argument may be repeated.
  bool SupportsVariableArgumentsList();

 protected:
  FdoFunctionDefinition(FdoString* name, FdoString* description, bool isAggregate,
                        FdoSignatureDefinitionCollection* signatures, FdoFunctionCategoryType category,
                        bool variableArguments);
  ~FdoFunctionDefinition() override;
  void Dispose() override;

 private:
  // Gives: one reference, or null.
  FdoSignatureDefinition* FirstSignature();

  FdoStringP m_name;
  FdoStringP m_description;
  bool m_isAggregate;
  FdoPtr<FdoReadOnlySignatureDefinitionCollection> m_signatures;
  FdoFunctionCategoryType m_category;
  bool m_variableArguments;
};

#endif  // FDO_CONNECTIONS_CAPABILITIES_FUNCTION_DEFINITION_H_
