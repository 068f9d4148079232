#include "Fdo/Schema/ClassCapabilities.h"

#include "Fdo/Schema/ClassDefinition.h"

namespace {

template <class Value>
Value ValueOf(std::map<std::wstring, Value> const& values, FdoString* name, Value ifAbsent) {
  auto const found = values.find(name == nullptr ? L"" : name);
  return found == values.end() ? ifAbsent : found->second;
}

}  // namespace

FdoClassCapabilities* FdoClassCapabilities::Create(FdoClassDefinition& parent) {
  return new FdoClassCapabilities(parent);
}

FdoClassCapabilities::FdoClassCapabilities(FdoClassDefinition& parent)
    : m_heldParent(FDO_SAFE_ADDREF(&parent)), m_parent(&parent) {}

FdoClassCapabilities::~FdoClassCapabilities() = default;

void FdoClassCapabilities::Dispose() { delete this; }

FdoClassDefinition* FdoClassCapabilities::GetParent() { return FDO_SAFE_ADDREF(m_parent); }

FdoBoolean FdoClassCapabilities::SupportsLocking() { return m_values.supportsLocking; }

void FdoClassCapabilities::SetSupportsLocking(FdoBoolean value) { m_values.supportsLocking = value; }

FdoLockType* FdoClassCapabilities::GetLockTypes(FdoInt32& size) {
  size = static_cast<FdoInt32>(m_values.lockTypes.size());
  return m_values.lockTypes.data();
}

void FdoClassCapabilities::SetLockTypes(FdoLockType const* types, FdoInt32 size) {
  m_values.lockTypes = size > 0 ? std::vector<FdoLockType>(types, types + size) : std::vector<FdoLockType>();
}

FdoBoolean FdoClassCapabilities::SupportsLongTransactions() { return m_values.supportsLongTransactions; }

void FdoClassCapabilities::SetSupportsLongTransactions(FdoBoolean value) {
  m_values.supportsLongTransactions = value;
}

FdoBoolean FdoClassCapabilities::SupportsWrite() { return m_values.supportsWrite; }

void FdoClassCapabilities::SetSupportsWrite(FdoBoolean value) { m_values.supportsWrite = value; }

FdoPolygonVertexOrderRule FdoClassCapabilities::GetPolygonVertexOrderRule(FdoString* geometryPropName) {
  return ValueOf(m_values.vertexOrderRules, geometryPropName, FdoPolygonVertexOrderRule_None);
}

void FdoClassCapabilities::SetPolygonVertexOrderRule(FdoString* geometryPropName,
                                                     FdoPolygonVertexOrderRule vertexOrderRule) {
  m_values.vertexOrderRules[geometryPropName == nullptr ? L"" : geometryPropName] = vertexOrderRule;
}

FdoBoolean FdoClassCapabilities::GetPolygonVertexOrderStrictness(FdoString* geometryPropName) {
  return ValueOf(m_values.vertexOrderStrictness, geometryPropName, false);
}

void FdoClassCapabilities::SetPolygonVertexOrderStrictness(FdoString* geometryPropName, FdoBoolean value) {
  m_values.vertexOrderStrictness[geometryPropName == nullptr ? L"" : geometryPropName] = value;
}

void FdoClassCapabilities::Set(FdoClassCapabilities* pCapabilities) {
  if (pCapabilities != nullptr) m_values = pCapabilities->m_values;
}

void FdoClassCapabilities::EnterClass(FdoClassDefinition& parent) {
  if (m_parent != &parent) {
    throw FdoSchemaException::Create(L"The capabilities were made for another class.");
  }
  m_heldParent = nullptr;
}

void FdoClassCapabilities::LeaveClass() { m_parent = nullptr; }
