// FdoReadOnlyCollection shows a collection of named items without the operations that change it.
#ifndef FDO_READ_ONLY_COLLECTION_H_
#define FDO_READ_ONLY_COLLECTION_H_

#include <cwchar>
#include <string>

#include "FdoStd.h"

// Owns: one reference to the collection shown; its later changes are seen. Without one it is empty.
// Requires: the items of BASE are OBJ, which has GetName().
template <class OBJ, class BASE, class EXC>
class FdoReadOnlyCollection : public FdoIDisposable {
 public:
  virtual FdoInt32 GetCount() { return m_base == nullptr ? 0 : m_base->GetCount(); }

  // Give: one reference each. Errors: throw when out of range or absent.
  virtual OBJ* GetItem(FdoInt32 index) {
    if (m_base == nullptr) throw EXC::Create(L"The position is outside the collection, which is empty.");
    return static_cast<OBJ*>(m_base->GetItem(index));
  }
  virtual OBJ* GetItem(FdoString* name) {
    FdoInt32 const count = name == nullptr || m_base == nullptr ? 0 : m_base->GetCount();
    for (FdoInt32 i = 0; i < count; ++i) {
      FdoPtr<OBJ> item = static_cast<OBJ*>(m_base->GetItem(i));
      FdoString* itemName = item->GetName();
      if (itemName != nullptr && std::wcscmp(itemName, name) == 0) return item.Detach();
    }
    std::wstring const message =
        L"There is no item \"" + std::wstring(name == nullptr ? L"" : name) + L"\" in the collection.";
    throw EXC::Create(message.c_str());
  }

  // Both compare by identity. Errors: -1 when absent.
  virtual bool Contains(OBJ const* value) { return PositionOf(value) >= 0; }
  virtual FdoInt32 IndexOf(OBJ const* value) { return PositionOf(value); }

 protected:
  FdoReadOnlyCollection() {}
  ~FdoReadOnlyCollection() override {}

  void SetBaseCollection(BASE* collection) { m_base = FDO_SAFE_ADDREF(collection); }

 private:
  FdoInt32 PositionOf(OBJ const* value) {
    FdoInt32 const count = m_base == nullptr ? 0 : m_base->GetCount();
    for (FdoInt32 i = 0; i < count; ++i) {
      FdoPtr<OBJ> item = static_cast<OBJ*>(m_base->GetItem(i));
      if (item.p == value) return i;
    }
    return -1;
  }

  FdoPtr<BASE> m_base;
};

#endif  // FDO_READ_ONLY_COLLECTION_H_
