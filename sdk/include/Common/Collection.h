// FdoCollection is an ordered list of counted objects; every collection of the interface is one.
#ifndef COMMON_COLLECTION_H_
#define COMMON_COLLECTION_H_

#include <string>
#include <vector>

#include "Common/Exception.h"

// Owns: one reference to each item. What goes in is shared, what comes out is one reference more.
// Errors: thrown as EXC*; the collection stays as it was.
template <class OBJ, class EXC>
class FdoCollection : public FdoIDisposable {
 public:
  virtual FdoInt32 GetCount() const { return static_cast<FdoInt32>(m_list.size()); }

  virtual OBJ* GetItem(FdoInt32 index) const {
    CheckIndex(index, GetCount());
    OBJ* item = m_list[static_cast<std::size_t>(index)].p;
    return FDO_SAFE_ADDREF(item);
  }

  virtual void SetItem(FdoInt32 index, OBJ* value) {
    CheckIndex(index, GetCount());
    m_list[static_cast<std::size_t>(index)] = FDO_SAFE_ADDREF(value);
  }

  // Gives the position of the new item.
  virtual FdoInt32 Add(OBJ* value) {
    m_list.push_back(FdoPtr<OBJ>(FDO_SAFE_ADDREF(value)));
    return GetCount() - 1;
  }

  // Requires: 0 <= index && index <= GetCount(), or throws.
  virtual void Insert(FdoInt32 index, OBJ* value) {
    CheckIndex(index, GetCount() + 1);
    m_list.insert(m_list.begin() + index, FdoPtr<OBJ>(FDO_SAFE_ADDREF(value)));
  }

  virtual void Clear() { m_list.clear(); }

  virtual void Remove(OBJ const* value) {
    FdoInt32 const index = FdoCollection::IndexOf(value);
    if (index < 0) throw EXC::Create(L"The item to remove is not in the collection.");
    RemoveAt(index);
  }

  virtual void RemoveAt(FdoInt32 index) {
    CheckIndex(index, GetCount());
    m_list.erase(m_list.begin() + index);
  }

  // Both compare by identity.
  virtual bool Contains(OBJ const* value) const { return FdoCollection::IndexOf(value) >= 0; }

  // Errors: -1 when absent.
  virtual FdoInt32 IndexOf(OBJ const* value) const {
    for (std::size_t i = 0; i < m_list.size(); ++i) {
      if (m_list[i].p == value) return static_cast<FdoInt32>(i);
    }
    return -1;
  }

 protected:
  FdoCollection() {}
  ~FdoCollection() override {}

 private:
  FdoCollection(FdoCollection const&) = delete;
  FdoCollection& operator=(FdoCollection const&) = delete;

  static void CheckIndex(FdoInt32 index, FdoInt32 end) {
    if (index >= 0 && index < end) return;
    std::wstring const message = L"Position " + std::to_wstring(index) +
                                 L" is outside the collection (0 to " + std::to_wstring(end - 1) + L").";
    throw EXC::Create(message.c_str());
  }

  std::vector<FdoPtr<OBJ>> m_list;
};

#endif  // COMMON_COLLECTION_H_
