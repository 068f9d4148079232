// FdoSchemaCollection is a collection of elements of a schema, each name once.
#ifndef FDO_SCHEMA_SCHEMA_COLLECTION_H_
#define FDO_SCHEMA_SCHEMA_COLLECTION_H_

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Fdo/Schema/SchemaElement.h"

// A collection that owns its items is their parent: what goes in becomes Added, what comes out
// Detached. Any other collection only lists items that have their place elsewhere.
// Errors: FdoSchemaException* for a name that is there already, and for an item that has a parent.
template <class OBJ>
class FdoSchemaCollection : public FdoNamedCollection<OBJ, FdoSchemaException> {
  typedef FdoNamedCollection<OBJ, FdoSchemaException> Base;

 public:
  void SetItem(FdoInt32 index, OBJ* value) override {
    FdoPtr<OBJ> old = Base::GetItem(index);
    if (old.p == value) return;
    RefuseOwned(value);
    Keep();
    Base::SetItem(index, value);
    Leave(old.p);
    Enter(value);
  }

  FdoInt32 Add(OBJ* value) override {
    RefuseOwned(value);
    Keep();
    FdoInt32 const index = Base::Add(value);
    Enter(value);
    return index;
  }

  void Insert(FdoInt32 index, OBJ* value) override {
    RefuseOwned(value);
    Keep();
    Base::Insert(index, value);
    Enter(value);
  }

  void Clear() override {
    Keep();
    Items const items = AllItems();
    Base::Clear();
    for (FdoPtr<OBJ> const& item : items) Leave(item.p);
  }

  void Remove(OBJ const* value) override { Base::Remove(value); }

  void RemoveAt(FdoInt32 index) override {
    FdoPtr<OBJ> item = Base::GetItem(index);
    Keep();
    Base::RemoveAt(index);
    Leave(item.p);
  }

 protected:
  // Without a parent the collection owns nothing.
  explicit FdoSchemaCollection(FdoSchemaElement* parent, bool owner = true)
      : m_parent(parent), m_owner(owner && parent != nullptr) {}
  ~FdoSchemaCollection() override { ForgetParent(); }
  void Dispose() override { delete this; }

  // Called for every item that a program takes out.
  virtual void ItemLeft(OBJ*) {}

  // Borrowed: while the parent lives; null without one.
  FdoSchemaElement* Parent() const { return m_parent; }

 private:
  friend class FdoAssociationPropertyDefinition;
  friend class FdoClassDefinition;
  friend class FdoFeatureSchema;

  typedef std::vector<FdoPtr<OBJ>> Items;

  static FdoSchemaElement* Element(OBJ* item) { return item; }

  Items AllItems() const {
    Items items;
    FdoInt32 const count = Base::GetCount();
    for (FdoInt32 i = 0; i < count; ++i) items.push_back(FdoPtr<OBJ>(Base::GetItem(i)));
    return items;
  }

  static bool Holds(Items const& items, OBJ const* item) {
    for (FdoPtr<OBJ> const& held : items) {
      if (held.p == item) return true;
    }
    return false;
  }

  void RefuseOwned(OBJ* value) const {
    if (!m_owner || value == nullptr || Element(value)->m_parent == nullptr) return;
    std::wstring const message =
        L"\"" + std::wstring(Element(value)->GetName()) + L"\" has a parent already.";
    throw FdoSchemaException::Create(message.c_str());
  }

  // Runs before a change. When the change is then refused the kept copy does no harm: it is equal.
  void Keep() {
    if (m_parent == nullptr || m_accepted) return;
    m_accepted.reset(new Items(AllItems()));
  }

  void Enter(OBJ* value) {
    if (m_owner) {
      Element(value)->SetParent(m_parent);
      Element(value)->m_state = FdoSchemaElementState_Added;
    }
    if (m_parent != nullptr) m_parent->BeginChange();
  }

  void Leave(OBJ* value) {
    if (m_owner) Detach(value);
    if (m_parent != nullptr) m_parent->BeginChange();
    ItemLeft(value);
  }

  static void Detach(OBJ* value) {
    Element(value)->SetParent(nullptr);
    Element(value)->m_state = FdoSchemaElementState_Detached;
  }

  // Drops the items that are marked deleted and accepts the others.
  void AcceptItems() {
    m_accepted.reset();
    for (FdoInt32 i = Base::GetCount() - 1; i >= 0; --i) {
      FdoPtr<OBJ> item = Base::GetItem(i);
      bool const deleted = Element(item.p)->m_state == FdoSchemaElementState_Deleted;
      if (m_owner && !deleted) Element(item.p)->AcceptElement();
      if (deleted) Base::RemoveAt(i);
      if (m_owner && deleted) Detach(item.p);
    }
  }

  // Brings the items accepted last back and rejects the changes of each.
  void RejectItems() {
    if (m_accepted) {
      Items const current = AllItems();
      Items const accepted = std::move(*m_accepted);
      m_accepted.reset();
      Base::Clear();
      for (FdoPtr<OBJ> const& item : accepted) FdoCollection<OBJ, FdoSchemaException>::Add(item.p);
      for (FdoPtr<OBJ> const& item : current) {
        if (m_owner && !Holds(accepted, item.p)) Detach(item.p);
      }
    }
    if (!m_owner) return;
    for (FdoPtr<OBJ> const& item : AllItems()) {
      Element(item.p)->SetParent(m_parent);
      Element(item.p)->RejectElement();
    }
  }

  // The parent is about to end; programs may hold the collection and the items for longer.
  void ForgetParent() {
    if (m_owner) {
      for (FdoPtr<OBJ> const& item : AllItems()) Element(item.p)->SetParent(nullptr);
    }
    m_parent = nullptr;
    m_owner = false;
  }

  FdoSchemaElement* m_parent;  // not counted: the parent holds this
  bool m_owner;
  std::unique_ptr<Items> m_accepted;  // the items at the last acceptance, from the first change on
};

#endif  // FDO_SCHEMA_SCHEMA_COLLECTION_H_
