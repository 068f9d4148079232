// FdoReadOnlyNamedCollection shows a named collection without the operations that change it.
#ifndef COMMON_READ_ONLY_NAMED_COLLECTION_H_
#define COMMON_READ_ONLY_NAMED_COLLECTION_H_

#include "Common/NamedCollection.h"

// Owns: one reference to the collection shown; its later changes are seen.
template <class OBJ, class BASECOLLECTION>
class FdoReadOnlyNamedCollection : public FdoIDisposable {
 public:
  virtual FdoInt32 GetCount() const { return m_collection->GetCount(); }
  virtual OBJ* GetItem(FdoInt32 index) const { return m_collection->GetItem(index); }
  virtual OBJ* GetItem(wchar_t const* name) const { return m_collection->GetItem(name); }
  virtual OBJ* FindItem(wchar_t const* name) const { return m_collection->FindItem(name); }
  virtual bool Contains(OBJ const* value) const { return m_collection->Contains(value); }
  virtual FdoInt32 IndexOf(OBJ const* value) const { return m_collection->IndexOf(value); }

 protected:
  FdoReadOnlyNamedCollection() {}
  explicit FdoReadOnlyNamedCollection(BASECOLLECTION* collection)
      : m_collection(FDO_SAFE_ADDREF(collection)) {}
  ~FdoReadOnlyNamedCollection() override {}
  void Dispose() override { delete this; }

 private:
  FdoPtr<BASECOLLECTION> m_collection;
};

#endif  // COMMON_READ_ONLY_NAMED_COLLECTION_H_
