// FdoNamedCollection is a collection whose items have names, each name once.
#ifndef COMMON_NAMED_COLLECTION_H_
#define COMMON_NAMED_COLLECTION_H_

#include <cwctype>

#include "Common/Collection.h"

// Requires: OBJ has GetName() and CanSetName(). Items may be renamed while they are here, so names
// are asked for at each search and never kept.
template <class OBJ, class EXC>
class FdoNamedCollection : public FdoCollection<OBJ, EXC> {
  typedef FdoCollection<OBJ, EXC> Base;

 public:
  FdoInt32 GetCount() const override { return Base::GetCount(); }
  OBJ* GetItem(FdoInt32 index) const override { return Base::GetItem(index); }

  void SetItem(FdoInt32 index, OBJ* value) override {
    RefuseDuplicate(value, index);
    Base::SetItem(index, value);
  }
  FdoInt32 Add(OBJ* value) override {
    RefuseDuplicate(value, -1);
    return Base::Add(value);
  }
  void Insert(FdoInt32 index, OBJ* value) override {
    RefuseDuplicate(value, -1);
    Base::Insert(index, value);
  }
  void Clear() override { Base::Clear(); }
  void Remove(OBJ const* value) override { Base::Remove(value); }
  void RemoveAt(FdoInt32 index) override { Base::RemoveAt(index); }

  // Deliberate: compares by name, while IndexOf below compares by identity.
  bool Contains(OBJ const* value) const override {
    return value != nullptr && IndexOf(const_cast<OBJ*>(value)->GetName()) >= 0;
  }
  FdoInt32 IndexOf(OBJ const* value) const override { return Base::IndexOf(value); }

  // Errors: throws EXC* when absent.
  virtual OBJ* GetItem(wchar_t const* name) const {
    OBJ* item = FindItem(name);
    if (item == nullptr) {
      std::wstring const message =
          L"There is no item \"" + std::wstring(name == nullptr ? L"" : name) + L"\" in the collection.";
      throw EXC::Create(message.c_str());
    }
    return item;
  }

  // Errors: null when absent.
  virtual OBJ* FindItem(wchar_t const* name) const {
    FdoInt32 const index = name == nullptr ? -1 : IndexOf(name);
    return index < 0 ? nullptr : Base::GetItem(index);
  }

  virtual bool Contains(FdoString* name) const { return IndexOf(name) >= 0; }

  // Errors: -1 when absent; throws EXC* for a null name.
  virtual FdoInt32 IndexOf(FdoString* name) const {
    if (name == nullptr) throw EXC::Create(L"The name to look for is null.");
    FdoInt32 const count = Base::GetCount();
    for (FdoInt32 i = 0; i < count; ++i) {
      FdoPtr<OBJ> item = Base::GetItem(i);
      if (SameName(item->GetName(), name)) return i;
    }
    return -1;
  }

  void SetCaseSensitive(bool caseSensitive) { m_caseSensitive = caseSensitive; }

 protected:
  explicit FdoNamedCollection(bool caseSensitive = true) : m_caseSensitive(caseSensitive) {}
  ~FdoNamedCollection() override {}

 private:
  bool SameName(FdoString* left, FdoString* right) const {
    if (left == nullptr || right == nullptr) return left == right;
    if (m_caseSensitive) return std::wcscmp(left, right) == 0;
    for (; *left != 0 && *right != 0; ++left, ++right) {
      if (std::towlower(static_cast<std::wint_t>(*left)) != std::towlower(static_cast<std::wint_t>(*right))) {
        return false;
      }
    }
    return *left == *right;
  }

  void RefuseDuplicate(OBJ* value, FdoInt32 allowedIndex) const {
    if (value == nullptr) throw EXC::Create(L"A collection of named items cannot hold null.");
    FdoString* name = value->GetName();
    if (name == nullptr) return;
    FdoInt32 const index = IndexOf(name);
    if (index < 0 || index == allowedIndex) return;
    std::wstring const message = L"The collection has an item \"" + std::wstring(name) + L"\" already.";
    throw EXC::Create(message.c_str());
  }

  bool m_caseSensitive;
};

#endif  // COMMON_NAMED_COLLECTION_H_
