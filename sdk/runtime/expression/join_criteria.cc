#include "Fdo/Expression/JoinCriteria.h"

#include "sdk/runtime/core/deferred_deletion.h"

FdoJoinCriteria::FdoJoinCriteria() : m_joinType(FdoJoinType_None) {}

FdoJoinCriteria::FdoJoinCriteria(FdoString* alias, FdoIdentifier* joinClass, FdoJoinType joinType,
                                 FdoFilter* filter)
    : m_alias(alias),
      m_joinClass(FDO_SAFE_ADDREF(joinClass)),
      m_filter(FDO_SAFE_ADDREF(filter)),
      m_joinType(joinType) {}

FdoJoinCriteria::~FdoJoinCriteria() = default;

void FdoJoinCriteria::Dispose() {
  fdo_sdk::DeleteInTurn(this, [](void* node) { delete static_cast<FdoJoinCriteria*>(node); });
}

FdoJoinCriteria* FdoJoinCriteria::Create() { return new FdoJoinCriteria(); }

FdoJoinCriteria* FdoJoinCriteria::Create(FdoIdentifier* joinClass, FdoJoinType joinType) {
  return new FdoJoinCriteria(nullptr, joinClass, joinType, nullptr);
}

FdoJoinCriteria* FdoJoinCriteria::Create(FdoIdentifier* joinClass, FdoJoinType joinType, FdoFilter* filter) {
  return new FdoJoinCriteria(nullptr, joinClass, joinType, filter);
}

FdoJoinCriteria* FdoJoinCriteria::Create(FdoString* alias, FdoIdentifier* joinClass, FdoJoinType joinType) {
  return new FdoJoinCriteria(alias, joinClass, joinType, nullptr);
}

FdoJoinCriteria* FdoJoinCriteria::Create(FdoString* alias, FdoIdentifier* joinClass, FdoJoinType joinType,
                                         FdoFilter* filter) {
  return new FdoJoinCriteria(alias, joinClass, joinType, filter);
}

FdoString* FdoJoinCriteria::GetAlias() { return m_alias; }

void FdoJoinCriteria::SetAlias(FdoString* value) { m_alias = value; }

bool FdoJoinCriteria::HasAlias() { return m_alias.GetLength() > 0; }

FdoIdentifier* FdoJoinCriteria::GetJoinClass() { return FDO_SAFE_ADDREF(m_joinClass.p); }

void FdoJoinCriteria::SetJoinClass(FdoIdentifier* value) { m_joinClass = FDO_SAFE_ADDREF(value); }

FdoJoinType FdoJoinCriteria::GetJoinType() const { return m_joinType; }

void FdoJoinCriteria::SetJoinType(FdoJoinType value) { m_joinType = value; }

FdoFilter* FdoJoinCriteria::GetFilter() { return FDO_SAFE_ADDREF(m_filter.p); }

void FdoJoinCriteria::SetFilter(FdoFilter* value) { m_filter = FDO_SAFE_ADDREF(value); }
