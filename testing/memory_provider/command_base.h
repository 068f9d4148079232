// What the commands of a provider for tests have in common, for the part of the interface that each has.
#ifndef TESTING_MEMORY_PROVIDER_COMMAND_BASE_H_
#define TESTING_MEMORY_PROVIDER_COMMAND_BASE_H_

#include <map>
#include <memory>
#include <string>

#include "Fdo.h"
#include "testing/memory_provider/connection.h"
#include "testing/memory_provider/store.h"

namespace memory_provider {

// Tells its connection of every call, with Entered(), before anything else.
// Owns: a reference to its connection.
template <class Interface, class ConnectionType = Connection>
class CommandBase : public Interface {
 public:
  explicit CommandBase(ConnectionType* connection) : connection_(FDO_SAFE_ADDREF(connection)) {}

  FdoIConnection* GetConnection() override { return Shared(connection_); }
  FdoITransaction* GetTransaction() override {
    Enter();
    return nullptr;
  }
  void SetTransaction(FdoITransaction* value) override {
    Enter();
    if (value != nullptr) throw FdoCommandException::Create(L"The provider has no transactions.");
  }
  FdoInt32 GetCommandTimeout() override {
    Enter();
    return 0;
  }
  void SetCommandTimeout(FdoInt32) override {
    Enter();
    throw FdoCommandException::Create(L"The provider has no time limits.");
  }
  FdoParameterValueCollection* GetParameterValues() override { return Shared(parameters_); }
  void Prepare() override { Enter(); }
  void Cancel() override { Enter(); }

 protected:
  void Dispose() override { delete this; }

  void Enter() { connection_.p->Entered(); }

  // The answers of getters and the work of setters.
  template <class Object>
  Object* Shared(FdoPtr<Object> const& member) {
    Enter();
    return FDO_SAFE_ADDREF(member.p);
  }
  template <class Member>
  Member Given(Member const& member) {
    Enter();
    return member;
  }
  FdoString* Lent(std::wstring const& member) {
    Enter();
    return member.c_str();
  }
  template <class Object>
  void Share(FdoPtr<Object>& member, Object* value) {
    Enter();
    member = FDO_SAFE_ADDREF(value);
  }
  template <class Member>
  void Take(Member& member, Member const& value) {
    Enter();
    member = value;
  }
  void Copy(std::wstring& member, FdoString* value) {
    Enter();
    member = value == nullptr ? L"" : value;
  }

  // Errors: FdoCommandException* while the connection is closed.
  Store& OpenedStore() { return connection_.p->OpenedStore(); }

  FdoPtr<ConnectionType> connection_;
  FdoPtr<FdoParameterValueCollection> parameters_ = FdoParameterValueCollection::Create();
};

// With the name of a class.
template <class Interface, class ConnectionType = Connection>
class ClassCommandBase : public CommandBase<Interface, ConnectionType> {
 public:
  using CommandBase<Interface, ConnectionType>::CommandBase;

  FdoIdentifier* GetFeatureClassName() override { return this->Shared(className_); }
  void SetFeatureClassName(FdoIdentifier* value) override { this->Share(className_, value); }
  void SetFeatureClassName(FdoString* value) override {
    this->Enter();
    className_ = value == nullptr ? nullptr : FdoIdentifier::Create(value);
  }

 protected:
  std::shared_ptr<Table> ClassTable() { return this->OpenedStore().TableOf(className_); }

  FdoPtr<FdoIdentifier> className_;
};

// With a filter.
template <class Interface, class ConnectionType = Connection>
class FeatureCommandBase : public ClassCommandBase<Interface, ConnectionType> {
 public:
  using ClassCommandBase<Interface, ConnectionType>::ClassCommandBase;

  FdoFilter* GetFilter() override { return this->Shared(filter_); }
  void SetFilter(FdoFilter* value) override { this->Share(filter_, value); }
  void SetFilter(FdoString* value) override {
    this->Enter();
    filter_ = value == nullptr ? nullptr : FdoFilter::Parse(value);
  }

 protected:
  FdoPtr<FdoFilter> filter_;
};

// With properties to read and an order. What orders them is for WithOneOption and ExtendedSelectBase.
template <class Interface, class ConnectionType = Connection>
class SelectBase : public FeatureCommandBase<Interface, ConnectionType> {
 public:
  using FeatureCommandBase<Interface, ConnectionType>::FeatureCommandBase;

  FdoIdentifierCollection* GetPropertyNames() override { return this->Shared(properties_); }
  FdoIdentifierCollection* GetOrdering() override { return this->Shared(ordering_); }

 protected:
  FdoPtr<FdoIdentifierCollection> properties_ = FdoIdentifierCollection::Create();
  FdoPtr<FdoIdentifierCollection> ordering_ = FdoIdentifierCollection::Create();
  FdoOrderingOption option_ = FdoOrderingOption_Ascending;
};

// Orders all properties in the same direction.
template <class Select>
class WithOneOption : public Select {
 public:
  using Select::Select;

  void SetOrderingOption(FdoOrderingOption option) override { this->Take(this->option_, option); }
  FdoOrderingOption GetOrderingOption() override { return this->Given(this->option_); }
};

[[noreturn]] inline void RefuseLocks() { throw FdoCommandException::Create(L"The provider has no locks."); }

// The selects of features: without locks.
template <class Interface, class ConnectionType = Connection>
class FeatureSelectBase : public SelectBase<Interface, ConnectionType> {
 public:
  using SelectBase<Interface, ConnectionType>::SelectBase;

  FdoLockType GetLockType() override { return this->Given(FdoLockType_None); }
  void SetLockType(FdoLockType) override {
    this->Enter();
    RefuseLocks();
  }
  FdoLockStrategy GetLockStrategy() override { return this->Given(FdoLockStrategy_All); }
  void SetLockStrategy(FdoLockStrategy) override {
    this->Enter();
    RefuseLocks();
  }
  FdoIFeatureReader* ExecuteWithLock() override {
    this->Enter();
    RefuseLocks();
  }
  FdoILockConflictReader* GetLockConflicts() override {
    this->Enter();
    RefuseLocks();
  }

 protected:
  // The option of a property that the ordering names.
  FdoOrderingOption OptionOf(FdoString* property) const {
    auto const option = options_.find(property == nullptr ? L"" : property);
    return option == options_.end() ? this->option_ : option->second;
  }

  std::map<std::wstring, FdoOrderingOption> options_;  // of single properties
};

// What an extended select has beyond a select, but for its reader.
template <class FeatureSelect>
class ExtendedSelectBase : public FeatureSelect {
 public:
  using FeatureSelect::FeatureSelect;

  void SetOrderingOption(FdoOrderingOption option) override { this->Take(this->option_, option); }
  FdoOrderingOption GetOrderingOption() override { return this->Given(this->option_); }
  void SetOrderingOption(FdoString* propertyName, FdoOrderingOption option) override {
    this->Enter();
    this->options_[propertyName == nullptr ? L"" : propertyName] = option;
  }
  FdoOrderingOption GetOrderingOption(FdoString* propertyName) override {
    return this->Given(this->OptionOf(propertyName));
  }
  void ClearOrderingOptions() override {
    this->Enter();
    this->options_.clear();
  }
};

}  // namespace memory_provider

#endif  // TESTING_MEMORY_PROVIDER_COMMAND_BASE_H_
