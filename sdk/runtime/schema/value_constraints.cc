#include "Fdo/Expression/DataValueCollection.h"
#include "Fdo/Schema/PropertyValueConstraintList.h"
#include "Fdo/Schema/PropertyValueConstraintRange.h"
#include "sdk/runtime/expression/value_order.h"

namespace {

bool IsBound(FdoDataValue* value) { return value != nullptr && !value->IsNull(); }

bool AreEqual(FdoDataValue& left, FdoDataValue& right) {
  if (left.IsNull() || right.IsNull()) return left.IsNull() && right.IsNull();
  return fdo_sdk::CompareValues(left, right) == FdoCompareType_Equal;
}

bool IsListed(FdoDataValueCollection& values, FdoDataValue& wanted) {
  FdoInt32 const count = values.GetCount();
  for (FdoInt32 i = 0; i < count; ++i) {
    FdoPtr<FdoDataValue> value = values.GetItem(i);
    if (value != nullptr && AreEqual(*value, wanted)) return true;
  }
  return false;
}

bool AreSameBounds(FdoDataValue* left, bool leftInclusive, FdoDataValue* right, bool rightInclusive) {
  if (!IsBound(left) || !IsBound(right)) return IsBound(left) == IsBound(right);
  return leftInclusive == rightInclusive && AreEqual(*left, *right);
}

// Whether the inner bound keeps on the inner side of the outer one, where inside says which way that is.
bool IsWithin(FdoDataValue* inner, bool innerInclusive, FdoDataValue* outer, bool outerInclusive,
              FdoCompareType inside) {
  if (!IsBound(outer)) return true;
  if (!IsBound(inner)) return false;
  FdoCompareType const order = fdo_sdk::CompareValues(*inner, *outer);
  if (order == FdoCompareType_Equal) return outerInclusive || !innerInclusive;
  return order == inside;
}

}  // namespace

FdoPropertyValueConstraintList* FdoPropertyValueConstraintList::Create() {
  return new FdoPropertyValueConstraintList();
}

FdoPropertyValueConstraintList::FdoPropertyValueConstraintList()
    : m_values(FdoDataValueCollection::Create()) {}

FdoPropertyValueConstraintList::~FdoPropertyValueConstraintList() = default;

void FdoPropertyValueConstraintList::Dispose() { delete this; }

FdoDataValueCollection* FdoPropertyValueConstraintList::GetConstraintList() {
  return FDO_SAFE_ADDREF(m_values.p);
}

FdoPropertyValueConstraintType FdoPropertyValueConstraintList::GetConstraintType() {
  return FdoPropertyValueConstraintType_List;
}

bool FdoPropertyValueConstraintList::Equals(FdoPropertyValueConstraint* pConstraint) {
  FdoPropertyValueConstraintList* other = dynamic_cast<FdoPropertyValueConstraintList*>(pConstraint);
  return other != nullptr && Contains(pConstraint) &&
         other->Contains(static_cast<FdoPropertyValueConstraint*>(this));
}

bool FdoPropertyValueConstraintList::Contains(FdoPropertyValueConstraint* pConstraint) {
  FdoPropertyValueConstraintList* other = dynamic_cast<FdoPropertyValueConstraintList*>(pConstraint);
  if (other == nullptr) return false;
  FdoInt32 const count = other->m_values->GetCount();
  for (FdoInt32 i = 0; i < count; ++i) {
    FdoPtr<FdoDataValue> value = other->m_values->GetItem(i);
    if (value != nullptr && !IsListed(*m_values, *value)) return false;
  }
  return true;
}

bool FdoPropertyValueConstraintList::Contains(FdoDataValue* pValue) {
  return !IsBound(pValue) || IsListed(*m_values, *pValue);
}

FdoPropertyValueConstraintRange* FdoPropertyValueConstraintRange::Create() {
  return new FdoPropertyValueConstraintRange();
}

FdoPropertyValueConstraintRange* FdoPropertyValueConstraintRange::Create(FdoDataValue* minValue,
                                                                         FdoDataValue* maxValue) {
  return new FdoPropertyValueConstraintRange(minValue, maxValue);
}

FdoPropertyValueConstraintRange::FdoPropertyValueConstraintRange()
    : FdoPropertyValueConstraintRange(nullptr, nullptr) {}

FdoPropertyValueConstraintRange::FdoPropertyValueConstraintRange(FdoDataValue* minValue,
                                                                 FdoDataValue* maxValue)
    : m_minValue(FDO_SAFE_ADDREF(minValue)),
      m_maxValue(FDO_SAFE_ADDREF(maxValue)),
      m_minInclusive(false),
      m_maxInclusive(false) {}

FdoPropertyValueConstraintRange::~FdoPropertyValueConstraintRange() = default;

void FdoPropertyValueConstraintRange::Dispose() { delete this; }

FdoPropertyValueConstraintType FdoPropertyValueConstraintRange::GetConstraintType() {
  return FdoPropertyValueConstraintType_Range;
}

FdoDataValue* FdoPropertyValueConstraintRange::GetMinValue() { return FDO_SAFE_ADDREF(m_minValue.p); }

void FdoPropertyValueConstraintRange::SetMinValue(FdoDataValue* value) {
  m_minValue = FDO_SAFE_ADDREF(value);
}

bool FdoPropertyValueConstraintRange::GetMinInclusive() { return m_minInclusive; }

void FdoPropertyValueConstraintRange::SetMinInclusive(bool value) { m_minInclusive = value; }

FdoDataValue* FdoPropertyValueConstraintRange::GetMaxValue() { return FDO_SAFE_ADDREF(m_maxValue.p); }

void FdoPropertyValueConstraintRange::SetMaxValue(FdoDataValue* value) {
  m_maxValue = FDO_SAFE_ADDREF(value);
}

bool FdoPropertyValueConstraintRange::GetMaxInclusive() { return m_maxInclusive; }

void FdoPropertyValueConstraintRange::SetMaxInclusive(bool value) { m_maxInclusive = value; }

bool FdoPropertyValueConstraintRange::Equals(FdoPropertyValueConstraint* pConstraint) {
  FdoPropertyValueConstraintRange* other = dynamic_cast<FdoPropertyValueConstraintRange*>(pConstraint);
  return other != nullptr &&
         AreSameBounds(m_minValue, m_minInclusive, other->m_minValue, other->m_minInclusive) &&
         AreSameBounds(m_maxValue, m_maxInclusive, other->m_maxValue, other->m_maxInclusive);
}

bool FdoPropertyValueConstraintRange::Contains(FdoPropertyValueConstraint* pConstraint) {
  if (auto* range = dynamic_cast<FdoPropertyValueConstraintRange*>(pConstraint)) {
    return IsWithin(range->m_minValue, range->m_minInclusive, m_minValue, m_minInclusive,
                    FdoCompareType_Greater) &&
           IsWithin(range->m_maxValue, range->m_maxInclusive, m_maxValue, m_maxInclusive,
                    FdoCompareType_Less);
  }
  auto* list = dynamic_cast<FdoPropertyValueConstraintList*>(pConstraint);
  if (list == nullptr) return false;
  FdoPtr<FdoDataValueCollection> values = list->GetConstraintList();
  FdoInt32 const count = values->GetCount();
  for (FdoInt32 i = 0; i < count; ++i) {
    FdoPtr<FdoDataValue> value = values->GetItem(i);
    if (!Contains(value.p)) return false;
  }
  return true;
}

bool FdoPropertyValueConstraintRange::Contains(FdoDataValue* pValue) {
  if (!IsBound(pValue)) return true;
  return IsWithin(pValue, true, m_minValue, m_minInclusive, FdoCompareType_Greater) &&
         IsWithin(pValue, true, m_maxValue, m_maxInclusive, FdoCompareType_Less);
}
