#include "Fdo/Commands/IdentifierCollection.h"

#include <cwchar>
#include <string>

namespace {

void RefuseDuplicate(FdoIdentifierCollection& identifiers, FdoIdentifier* value, FdoInt32 allowedIndex) {
  if (value == nullptr) throw FdoCommandException::Create(L"An identifier in a collection cannot be null.");
  for (FdoInt32 i = 0; i < identifiers.GetCount(); ++i) {
    FdoPtr<FdoIdentifier> item = identifiers.GetItem(i);
    if (i == allowedIndex || std::wcscmp(item->GetText(), value->GetText()) != 0) continue;
    std::wstring const message =
        L"The collection has the identifier \"" + std::wstring(value->GetText()) + L"\" already.";
    throw FdoCommandException::Create(message.c_str());
  }
}

bool IsNamed(FdoIdentifier& identifier, FdoString* name) {
  if (std::wcscmp(identifier.GetText(), name) == 0) return true;
  FdoInt32 scopes = 0;
  identifier.GetScope(scopes);
  return scopes == 0 && *identifier.GetSchemaName() == 0 && std::wcscmp(identifier.GetName(), name) == 0;
}

}  // namespace

FdoIdentifierCollection::FdoIdentifierCollection() = default;

FdoIdentifierCollection::~FdoIdentifierCollection() = default;

void FdoIdentifierCollection::Dispose() { delete this; }

FdoIdentifierCollection* FdoIdentifierCollection::Create() { return new FdoIdentifierCollection(); }

FdoIdentifier* FdoIdentifierCollection::GetItem(FdoInt32 index) { return Base::GetItem(index); }

FdoIdentifier* FdoIdentifierCollection::GetItem(FdoString* name) {
  FdoIdentifier* identifier = FindItem(name);
  if (identifier == nullptr) {
    std::wstring const message =
        L"The collection has no identifier \"" + std::wstring(name == nullptr ? L"" : name) + L"\".";
    throw FdoCommandException::Create(message.c_str());
  }
  return identifier;
}

FdoIdentifier* FdoIdentifierCollection::FindItem(FdoString* name) {
  FdoInt32 const index = IndexOf(name);
  return index < 0 ? nullptr : Base::GetItem(index);
}

void FdoIdentifierCollection::SetItem(FdoInt32 index, FdoIdentifier* value) {
  RefuseDuplicate(*this, value, index);
  Base::SetItem(index, value);
}

FdoInt32 FdoIdentifierCollection::Add(FdoIdentifier* value) {
  RefuseDuplicate(*this, value, -1);
  return Base::Add(value);
}

void FdoIdentifierCollection::Insert(FdoInt32 item, FdoIdentifier* value) {
  RefuseDuplicate(*this, value, -1);
  Base::Insert(item, value);
}

void FdoIdentifierCollection::Clear() { Base::Clear(); }

void FdoIdentifierCollection::Remove(FdoIdentifier const* value) { Base::Remove(value); }

void FdoIdentifierCollection::RemoveAt(FdoInt32 index) { Base::RemoveAt(index); }

bool FdoIdentifierCollection::Contains(FdoIdentifier const* value) { return IndexOf(value) >= 0; }

bool FdoIdentifierCollection::Contains(FdoString* name) { return IndexOf(name) >= 0; }

FdoInt32 FdoIdentifierCollection::IndexOf(FdoIdentifier const* value) {
  Base const& base = *this;
  return base.IndexOf(value);
}

FdoInt32 FdoIdentifierCollection::IndexOf(FdoString* name) {
  if (name == nullptr) return -1;
  for (FdoInt32 i = 0; i < GetCount(); ++i) {
    FdoPtr<FdoIdentifier> item = Base::GetItem(i);
    if (IsNamed(*item, name)) return i;
  }
  return -1;
}
