// FdoReadOnlyUnnamedCollection shows a collection without the operations that change it.
#ifndef FDO_READ_ONLY_UNNAMED_COLLECTION_H_
#define FDO_READ_ONLY_UNNAMED_COLLECTION_H_

#include "FdoStd.h"

// Owns: one reference to the collection shown; its later changes are seen. Without one it is empty.
// Requires: the items of BASE are OBJ.
template <class OBJ, class BASE, class EXC>
class FdoReadOnlyUnnamedCollection : public FdoIDisposable {
 public:
  virtual FdoInt32 GetCount() { return m_base == nullptr ? 0 : m_base->GetCount(); }

  // Gives: one reference. Errors: throws out of range.
  virtual OBJ* GetItem(FdoInt32 index) {
    if (m_base == nullptr) throw EXC::Create(L"The position is outside the collection, which is empty.");
    return static_cast<OBJ*>(m_base->GetItem(index));
  }

  // Both compare by identity. Errors: -1 when absent.
  virtual bool Contains(OBJ const* value) { return PositionOf(value) >= 0; }
  virtual FdoInt32 IndexOf(OBJ const* value) { return PositionOf(value); }

 protected:
  FdoReadOnlyUnnamedCollection() {}
  ~FdoReadOnlyUnnamedCollection() override {}

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

#endif  // FDO_READ_ONLY_UNNAMED_COLLECTION_H_
