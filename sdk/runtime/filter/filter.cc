#include "Fdo/Filter/Filter.h"

#include "Fdo/Filter/BinaryLogicalOperator.h"
#include "Fdo/Filter/LogicalOperator.h"
#include "Fdo/Filter/SearchCondition.h"
#include "sdk/runtime/text/parser.h"

namespace {

FdoFilter* ParseOperand(FdoString* text) { return text == nullptr ? nullptr : FdoFilter::Parse(text); }

}  // namespace

FdoFilter::FdoFilter() : m_toString(nullptr) {}

FdoFilter::~FdoFilter() { delete[] m_toString; }

FdoFilter* FdoFilter::Parse(FdoString* filterText) {
  return fdo_sdk::ParseFilter(filterText == nullptr ? L"" : filterText);
}

FdoString* FdoFilter::ToString() { return ToStringInternal(nullptr); }

FdoFilter* FdoFilter::Combine(FdoFilter* lhs, FdoBinaryLogicalOperations operation, FdoFilter* rhs) {
  if (lhs == nullptr) return FDO_SAFE_ADDREF(rhs);
  if (rhs == nullptr) return FDO_SAFE_ADDREF(lhs);
  return FdoBinaryLogicalOperator::Create(lhs, operation, rhs);
}

FdoFilter* FdoFilter::Combine(FdoString* lhs, FdoBinaryLogicalOperations operation, FdoFilter* rhs) {
  FdoPtr<FdoFilter> left = ParseOperand(lhs);
  return Combine(left.p, operation, rhs);
}

FdoFilter* FdoFilter::Combine(FdoFilter* lhs, FdoBinaryLogicalOperations operation, FdoString* rhs) {
  FdoPtr<FdoFilter> right = ParseOperand(rhs);
  return Combine(lhs, operation, right.p);
}

FdoFilter* FdoFilter::Combine(FdoString* lhs, FdoBinaryLogicalOperations operation, FdoString* rhs) {
  FdoPtr<FdoFilter> left = ParseOperand(lhs);
  FdoPtr<FdoFilter> right = ParseOperand(rhs);
  return Combine(left.p, operation, right.p);
}

FdoLogicalOperator::FdoLogicalOperator() = default;

FdoLogicalOperator::~FdoLogicalOperator() = default;

FdoSearchCondition::FdoSearchCondition() = default;

FdoSearchCondition::~FdoSearchCondition() = default;
