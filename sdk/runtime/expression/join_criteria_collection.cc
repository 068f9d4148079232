#include "Fdo/Expression/JoinCriteriaCollection.h"

#include <cwchar>
#include <string>

namespace {

using Base = FdoCollection<FdoJoinCriteria, FdoCommandException>;

std::wstring NameOf(FdoJoinCriteria& join) {
  if (join.HasAlias()) return join.GetAlias();
  FdoPtr<FdoIdentifier> joinClass = join.GetJoinClass();
  return joinClass == nullptr ? L"" : joinClass->GetText();
}

FdoInt32 IndexOfName(Base const& joins, std::wstring const& name) {
  for (FdoInt32 i = 0; i < joins.GetCount(); ++i) {
    FdoPtr<FdoJoinCriteria> join = joins.GetItem(i);
    if (NameOf(*join) == name) return i;
  }
  return -1;
}

void RefuseDuplicate(Base const& joins, FdoJoinCriteria* value, FdoInt32 allowedIndex) {
  if (value == nullptr) throw FdoCommandException::Create(L"A join cannot be null.");
  std::wstring const name = NameOf(*value);
  FdoInt32 const index = IndexOfName(joins, name);
  if (index >= 0 && index != allowedIndex) {
    throw FdoCommandException::Create((L"There is a join named \"" + name + L"\" already.").c_str());
  }
}

}  // namespace

FdoJoinCriteriaCollection::FdoJoinCriteriaCollection() = default;

FdoJoinCriteriaCollection::~FdoJoinCriteriaCollection() = default;

void FdoJoinCriteriaCollection::Dispose() { delete this; }

FdoJoinCriteriaCollection* FdoJoinCriteriaCollection::Create() { return new FdoJoinCriteriaCollection(); }

FdoJoinCriteria* FdoJoinCriteriaCollection::GetItem(FdoString* name) {
  FdoJoinCriteria* join = FindItem(name);
  if (join == nullptr) {
    std::wstring const message =
        L"There is no join named \"" + std::wstring(name == nullptr ? L"" : name) + L"\".";
    throw FdoCommandException::Create(message.c_str());
  }
  return join;
}

FdoJoinCriteria* FdoJoinCriteriaCollection::FindItem(FdoString* name) {
  FdoInt32 const index = name == nullptr ? -1 : IndexOfName(*this, name);
  return index < 0 ? nullptr : Base::GetItem(index);
}

FdoJoinCriteria* FdoJoinCriteriaCollection::GetItem(FdoInt32 index) { return Base::GetItem(index); }

void FdoJoinCriteriaCollection::Insert(FdoInt32 index, FdoJoinCriteria* value) {
  RefuseDuplicate(*this, value, -1);
  Base::Insert(index, value);
}

FdoInt32 FdoJoinCriteriaCollection::Add(FdoJoinCriteria* value) {
  RefuseDuplicate(*this, value, -1);
  return Base::Add(value);
}

void FdoJoinCriteriaCollection::SetItem(FdoInt32 index, FdoJoinCriteria* value) {
  RefuseDuplicate(*this, value, index);
  Base::SetItem(index, value);
}
