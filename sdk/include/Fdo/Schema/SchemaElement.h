// FdoSchemaElement is what schemas, classes and properties have in common: a name, a place, a state.
#ifndef FDO_SCHEMA_SCHEMA_ELEMENT_H_
#define FDO_SCHEMA_SCHEMA_ELEMENT_H_

#include "Fdo/Schema/Internal/Tracked.h"
#include "Fdo/Schema/SchemaAttributeDictionary.h"
#include "Fdo/Schema/SchemaElementState.h"
#include "Fdo/Schema/SchemaException.h"
#include "FdoStd.h"

class FdoFeatureSchema;
template <class OBJ>
class FdoSchemaCollection;

// An element starts Added. FdoFeatureSchema::AcceptChanges makes it Unchanged; from then on a change
// makes it and the elements around it Modified, Delete makes it Deleted, and leaving its collection
// makes it Detached. Until the next acceptance FdoFeatureSchema::RejectChanges takes all of that back.
//
// Texts that are set are copied; what getters give is borrowed until the text is set again.
class FDO_API FdoSchemaElement : public FdoIDisposable {
 public:
  // Give: one reference each, or null. An element has a parent while it is in the parent's collection;
  // the schema is the nearest one, the element itself included.
  virtual FdoSchemaElement* GetParent();
  virtual FdoFeatureSchema* GetFeatureSchema();

  FdoSchemaElementState GetElementState();

  // Gives: one reference.
  FdoSchemaAttributeDictionary* GetAttributes();

  virtual FdoString* GetName();

  // schema:class.property, as far as the element has parents.
  virtual FdoStringP GetQualifiedName();

  // Errors: FdoSchemaException* for a name that VldName refuses; the old name stays.
  virtual void SetName(FdoString* value);
  virtual FdoBoolean CanSetName() { return true; }

  // Never null here; empty when there is none.
  virtual FdoString* GetDescription();
  virtual void SetDescription(FdoString* value);

  // Marks the element. It leaves its collection when the changes are accepted.
  void Delete();

 protected:
  FdoSchemaElement();
  FdoSchemaElement(FdoString* name, FdoString* description);
  ~FdoSchemaElement() override;

  // Requires: the parent outlives the element, or is set to null before it ends.
  virtual void SetParent(FdoSchemaElement* value);

  // A name may not hold a colon or a period: they separate the parts of qualified names. An empty name
  // stands for none yet.
  // Errors: FdoSchemaException*, naming the name.
  void VldName(FdoString* name);

  // Every mutator calls this before it changes something.
  void BeginChange();

  // Keeps, settles or brings back what an heir has beyond its base. Overriding operations call the
  // base's.
  virtual void KeepValues();
  virtual void AcceptValues();
  virtual void RejectValues();

  // Settle the element with all that is in it; it is Unchanged then.
  void AcceptElement();
  void RejectElement();
  void MarkDetached();

 private:
  friend class FdoSchemaAttributeDictionary;
  template <class OBJ>
  friend class FdoSchemaCollection;

  struct Values {
    FdoStringP name;
    FdoStringP description;
  };

  FdoInternal::Tracked<Values> m_values;
  FdoPtr<FdoSchemaAttributeDictionary> m_attributes;
  FdoSchemaElement* m_parent;  // not counted: the parent holds this
  FdoSchemaElementState m_state;
};

#endif  // FDO_SCHEMA_SCHEMA_ELEMENT_H_
