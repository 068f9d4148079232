// What the commands of a provider have in common, for the part of the interface that each has. A provider
// says what its own are: CommandBase over its connection, and the others over that.
#ifndef SDK_PROVIDERS_BASE_COMMAND_BASE_H_
#define SDK_PROVIDERS_BASE_COMMAND_BASE_H_

#include <map>
#include <string>

#include "Fdo.h"

namespace fdo_provider {

// Owns: a reference to its connection.
// Requires: Connection has static wchar_t const* ProviderTitle(), which begins sentences, and
// void CheckTransaction(FdoITransaction*), which throws when commands cannot be part of it.
template <class Interface, class Connection>
class CommandBase : public Interface {
 public:
  explicit CommandBase(Connection* connection) : connection_(FDO_SAFE_ADDREF(connection)) {}

  FdoIConnection* GetConnection() override { return FDO_SAFE_ADDREF(connection_.p); }
  FdoITransaction* GetTransaction() override { return FDO_SAFE_ADDREF(transaction_.p); }
  void SetTransaction(FdoITransaction* value) override {
    if (value != nullptr) connection_.p->CheckTransaction(value);
    transaction_ = FDO_SAFE_ADDREF(value);
  }
  FdoInt32 GetCommandTimeout() override { return 0; }
  void SetCommandTimeout(FdoInt32) override {
    std::wstring const message =
        std::wstring(Connection::ProviderTitle()) + L" has no time limits of commands.";
    throw FdoCommandException::Create(message.c_str());
  }
  FdoParameterValueCollection* GetParameterValues() override { return FDO_SAFE_ADDREF(parameters_.p); }
  void Prepare() override {}
  void Cancel() override {}

 protected:
  void Dispose() override { delete this; }

  FdoPtr<Connection> connection_;
  FdoPtr<FdoITransaction> transaction_;
  FdoPtr<FdoParameterValueCollection> parameters_ = FdoParameterValueCollection::Create();
};

// With the name of a class.
template <class Base>
class ClassCommand : public Base {
 public:
  using Base::Base;

  FdoIdentifier* GetFeatureClassName() override { return FDO_SAFE_ADDREF(className_.p); }
  void SetFeatureClassName(FdoIdentifier* value) override { className_ = FDO_SAFE_ADDREF(value); }
  void SetFeatureClassName(FdoString* value) override {
    className_ = value == nullptr ? nullptr : FdoIdentifier::Create(value);
  }

 protected:
  FdoPtr<FdoIdentifier> className_;
};

// With a filter.
template <class Base>
class FeatureCommand : public ClassCommand<Base> {
 public:
  using ClassCommand<Base>::ClassCommand;

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
template <class Base>
class SelectCommand : public FeatureCommand<Base> {
 public:
  using FeatureCommand<Base>::FeatureCommand;

  FdoIdentifierCollection* GetPropertyNames() override { return FDO_SAFE_ADDREF(properties_.p); }
  FdoIdentifierCollection* GetOrdering() override { return FDO_SAFE_ADDREF(ordering_.p); }

 protected:
  FdoPtr<FdoIdentifierCollection> properties_ = FdoIdentifierCollection::Create();
  FdoPtr<FdoIdentifierCollection> ordering_ = FdoIdentifierCollection::Create();
  FdoOrderingOption option_ = FdoOrderingOption_Ascending;
  std::map<std::wstring, FdoOrderingOption> options_;  // of single properties
};

}  // namespace fdo_provider

#endif  // SDK_PROVIDERS_BASE_COMMAND_BASE_H_
