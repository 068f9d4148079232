// What the commands of the memory provider have in common, for the part of the interface that each has.
#ifndef TESTING_MEMORY_PROVIDER_COMMAND_BASE_H_
#define TESTING_MEMORY_PROVIDER_COMMAND_BASE_H_

#include <map>
#include <memory>
#include <string>

#include "Fdo.h"
#include "testing/memory_provider/connection.h"
#include "testing/memory_provider/store.h"

namespace memory_provider {

// Owns: a reference to its connection.
template <class Interface>
class CommandBase : public Interface {
 public:
  explicit CommandBase(Connection* connection) : connection_(FDO_SAFE_ADDREF(connection)) {}

  FdoIConnection* GetConnection() override { return FDO_SAFE_ADDREF(connection_.p); }
  FdoITransaction* GetTransaction() override { return nullptr; }
  void SetTransaction(FdoITransaction* value) override {
    if (value != nullptr) throw FdoCommandException::Create(L"The memory provider has no transactions.");
  }
  FdoInt32 GetCommandTimeout() override { return 0; }
  void SetCommandTimeout(FdoInt32) override {
    throw FdoCommandException::Create(L"The memory provider has no time limits.");
  }
  FdoParameterValueCollection* GetParameterValues() override { return FDO_SAFE_ADDREF(parameters_.p); }
  void Prepare() override {}
  void Cancel() override {}

 protected:
  void Dispose() override { delete this; }

  // Errors: FdoCommandException* while the connection is closed.
  Store& OpenedStore() { return connection_.p->OpenedStore(); }

  FdoPtr<Connection> connection_;
  FdoPtr<FdoParameterValueCollection> parameters_ = FdoParameterValueCollection::Create();
};

// With the name of a class.
template <class Interface>
class ClassCommandBase : public CommandBase<Interface> {
 public:
  using CommandBase<Interface>::CommandBase;

  FdoIdentifier* GetFeatureClassName() override { return FDO_SAFE_ADDREF(className_.p); }
  void SetFeatureClassName(FdoIdentifier* value) override { className_ = FDO_SAFE_ADDREF(value); }
  void SetFeatureClassName(FdoString* value) override {
    className_ = value == nullptr ? nullptr : FdoIdentifier::Create(value);
  }

 protected:
  std::shared_ptr<Table> ClassTable() { return this->OpenedStore().TableOf(className_); }

  FdoPtr<FdoIdentifier> className_;
};

// With a filter.
template <class Interface>
class FeatureCommandBase : public ClassCommandBase<Interface> {
 public:
  using ClassCommandBase<Interface>::ClassCommandBase;

  FdoFilter* GetFilter() override { return FDO_SAFE_ADDREF(filter_.p); }
  void SetFilter(FdoFilter* value) override { filter_ = FDO_SAFE_ADDREF(value); }
  void SetFilter(FdoString* value) override {
    filter_ = value == nullptr ? nullptr : FdoFilter::Parse(value);
  }

 protected:
  FdoPtr<FdoFilter> filter_;
};

// With properties to read and an order. What orders them is for the heirs to take: the interfaces differ in
// it.
template <class Interface>
class SelectBase : public FeatureCommandBase<Interface> {
 public:
  using FeatureCommandBase<Interface>::FeatureCommandBase;

  FdoIdentifierCollection* GetPropertyNames() override { return FDO_SAFE_ADDREF(properties_.p); }
  FdoIdentifierCollection* GetOrdering() override { return FDO_SAFE_ADDREF(ordering_.p); }

 protected:
  FdoPtr<FdoIdentifierCollection> properties_ = FdoIdentifierCollection::Create();
  FdoPtr<FdoIdentifierCollection> ordering_ = FdoIdentifierCollection::Create();
  FdoOrderingOption option_ = FdoOrderingOption_Ascending;
  std::map<std::wstring, FdoOrderingOption> options_;  // of single properties
};

}  // namespace memory_provider

#endif  // TESTING_MEMORY_PROVIDER_COMMAND_BASE_H_
