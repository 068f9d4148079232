#include "Fdo/Connections/Capabilities/FunctionDefinition.h"

#include "Fdo/Connections/Capabilities/FunctionDefinitionCollection.h"
#include "Fdo/Schema/PropertyValueConstraintList.h"

namespace {

// Gives: one reference, a collection of the items of an array.
template <class Collection, class Item>
Collection* CollectionOf(Item** items, FdoInt32 length) {
  FdoPtr<Collection> collection = Collection::Create();
  for (FdoInt32 i = 0; i < length; ++i) collection->Add(items[i]);
  return collection.Detach();
}

}  // namespace

FdoArgumentDefinition* FdoArgumentDefinition::Create(FdoString* name, FdoString* description,
                                                     FdoDataType dataType) {
  return new FdoArgumentDefinition(name, description, FdoPropertyType_DataProperty, dataType);
}

FdoArgumentDefinition* FdoArgumentDefinition::Create(FdoString* name, FdoString* description,
                                                     FdoPropertyType propertyType, FdoDataType dataType) {
  return new FdoArgumentDefinition(name, description, propertyType, dataType);
}

FdoArgumentDefinition::FdoArgumentDefinition(FdoString* name, FdoString* description,
                                             FdoPropertyType propertyType, FdoDataType dataType)
    : m_name(name), m_description(description), m_propertyType(propertyType), m_dataType(dataType) {}

FdoArgumentDefinition::~FdoArgumentDefinition() = default;

void FdoArgumentDefinition::Dispose() { delete this; }

FdoString* FdoArgumentDefinition::GetName() { return m_name; }

FdoString* FdoArgumentDefinition::GetDescription() { return m_description; }

FdoPropertyType FdoArgumentDefinition::GetPropertyType() { return m_propertyType; }

FdoDataType FdoArgumentDefinition::GetDataType() { return m_dataType; }

FdoPropertyValueConstraintList* FdoArgumentDefinition::GetArgumentValueList() {
  return FDO_SAFE_ADDREF(m_values.p);
}

void FdoArgumentDefinition::SetArgumentValueList(FdoPropertyValueConstraintList* argumentValueList) {
  m_values = FDO_SAFE_ADDREF(argumentValueList);
}

FdoSignatureDefinition* FdoSignatureDefinition::Create(FdoDataType returnType,
                                                       FdoArgumentDefinitionCollection* arguments) {
  return new FdoSignatureDefinition(FdoPropertyType_DataProperty, returnType, arguments);
}

FdoSignatureDefinition* FdoSignatureDefinition::Create(FdoPropertyType returnPropertyType,
                                                       FdoDataType returnType,
                                                       FdoArgumentDefinitionCollection* arguments) {
  return new FdoSignatureDefinition(returnPropertyType, returnType, arguments);
}

FdoSignatureDefinition::FdoSignatureDefinition(FdoPropertyType returnPropertyType, FdoDataType returnType,
                                               FdoArgumentDefinitionCollection* arguments)
    : m_returnPropertyType(returnPropertyType),
      m_returnType(returnType),
      m_arguments(FdoReadOnlyArgumentDefinitionCollection::Create(arguments)) {}

FdoSignatureDefinition::~FdoSignatureDefinition() = default;

void FdoSignatureDefinition::Dispose() { delete this; }

FdoReadOnlyArgumentDefinitionCollection* FdoSignatureDefinition::GetArguments() {
  return FDO_SAFE_ADDREF(m_arguments.p);
}

FdoPropertyType FdoSignatureDefinition::GetReturnPropertyType() { return m_returnPropertyType; }

FdoDataType FdoSignatureDefinition::GetReturnType() { return m_returnType; }

FdoFunctionDefinition* FdoFunctionDefinition::Create(FdoString* name, FdoString* description,
                                                     FdoDataType returnType,
                                                     FdoArgumentDefinitionCollection* arguments,
                                                     FdoFunctionCategoryType functionCategoryType,
                                                     bool supportsVariableArgumentsList) {
  return Create(name, description, FdoPropertyType_DataProperty, returnType, arguments, functionCategoryType,
                supportsVariableArgumentsList);
}

FdoFunctionDefinition* FdoFunctionDefinition::Create(FdoString* name, FdoString* description,
                                                     FdoPropertyType returnPropertyType,
                                                     FdoDataType returnType,
                                                     FdoArgumentDefinitionCollection* arguments,
                                                     FdoFunctionCategoryType functionCategoryType,
                                                     bool supportsVariableArgumentsList) {
  FdoPtr<FdoSignatureDefinition> signature =
      FdoSignatureDefinition::Create(returnPropertyType, returnType, arguments);
  FdoPtr<FdoSignatureDefinitionCollection> signatures = FdoSignatureDefinitionCollection::Create();
  signatures->Add(signature);
  bool const isAggregate = functionCategoryType == FdoFunctionCategoryType_Aggregate;
  return new FdoFunctionDefinition(name, description, isAggregate, signatures, functionCategoryType,
                                   supportsVariableArgumentsList);
}

FdoFunctionDefinition* FdoFunctionDefinition::Create(FdoString* name, FdoString* description,
                                                     bool isAggregate,
                                                     FdoSignatureDefinitionCollection* signatures,
                                                     FdoFunctionCategoryType functionCategoryType,
                                                     bool supportsVariableArgumentsList) {
  return new FdoFunctionDefinition(name, description, isAggregate, signatures, functionCategoryType,
                                   supportsVariableArgumentsList);
}

FdoFunctionDefinition::FdoFunctionDefinition(FdoString* name, FdoString* description, bool isAggregate,
                                             FdoSignatureDefinitionCollection* signatures,
                                             FdoFunctionCategoryType category, bool variableArguments)
    : m_name(name),
      m_description(description),
      m_isAggregate(isAggregate),
      m_signatures(FdoReadOnlySignatureDefinitionCollection::Create(signatures)),
      m_category(category),
      m_variableArguments(variableArguments) {}

FdoFunctionDefinition::~FdoFunctionDefinition() = default;

void FdoFunctionDefinition::Dispose() { delete this; }

FdoString* FdoFunctionDefinition::GetName() { return m_name; }

FdoString* FdoFunctionDefinition::GetDescription() { return m_description; }

FdoSignatureDefinition* FdoFunctionDefinition::FirstSignature() {
  return m_signatures->GetCount() == 0 ? nullptr : m_signatures->GetItem(0);
}

FdoReadOnlyArgumentDefinitionCollection* FdoFunctionDefinition::GetArguments() {
  FdoPtr<FdoSignatureDefinition> first = FirstSignature();
  return first == nullptr ? FdoReadOnlyArgumentDefinitionCollection::Create(nullptr) : first->GetArguments();
}

FdoPropertyType FdoFunctionDefinition::GetReturnPropertyType() {
  FdoPtr<FdoSignatureDefinition> first = FirstSignature();
  return first == nullptr ? FdoPropertyType_DataProperty : first->GetReturnPropertyType();
}

FdoDataType FdoFunctionDefinition::GetReturnType() {
  FdoPtr<FdoSignatureDefinition> first = FirstSignature();
  return first == nullptr ? FdoDataType_String : first->GetReturnType();
}

FdoBoolean FdoFunctionDefinition::CanSetName() { return false; }

FdoReadOnlySignatureDefinitionCollection* FdoFunctionDefinition::GetSignatures() {
  return FDO_SAFE_ADDREF(m_signatures.p);
}

bool FdoFunctionDefinition::IsAggregate() { return m_isAggregate; }

FdoFunctionCategoryType FdoFunctionDefinition::GetFunctionCategoryType() { return m_category; }

bool FdoFunctionDefinition::SupportsVariableArgumentsList() { return m_variableArguments; }

#define FDO_SDK_DEFINE_DEFINITIONS(Collection, Item)                  \
  Collection* Collection::Create() { return new Collection(); }       \
  Collection* Collection::Create(Item** arguments, FdoInt32 length) { \
    return CollectionOf<Collection>(arguments, length);               \
  }                                                                   \
  Collection::Collection() = default;                                 \
  Collection::~Collection() = default;                                \
  void Collection::Dispose() { delete this; }

#define FDO_SDK_DEFINE_READ_ONLY_DEFINITIONS(ReadOnly, Collection)                        \
  ReadOnly* ReadOnly::Create(Collection* collection) { return new ReadOnly(collection); } \
  ReadOnly::ReadOnly(Collection* collection) { SetBaseCollection(collection); }           \
  ReadOnly::~ReadOnly() = default;                                                        \
  void ReadOnly::Dispose() { delete this; }

FDO_SDK_DEFINE_DEFINITIONS(FdoArgumentDefinitionCollection, FdoArgumentDefinition)
FDO_SDK_DEFINE_DEFINITIONS(FdoSignatureDefinitionCollection, FdoSignatureDefinition)
FDO_SDK_DEFINE_DEFINITIONS(FdoFunctionDefinitionCollection, FdoFunctionDefinition)
FDO_SDK_DEFINE_READ_ONLY_DEFINITIONS(FdoReadOnlyArgumentDefinitionCollection, FdoArgumentDefinitionCollection)
FDO_SDK_DEFINE_READ_ONLY_DEFINITIONS(FdoReadOnlySignatureDefinitionCollection,
                                     FdoSignatureDefinitionCollection)
