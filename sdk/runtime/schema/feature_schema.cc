#include "Fdo/Schema/FeatureSchema.h"

#include "Fdo/Schema/ClassCollection.h"

FdoFeatureSchema* FdoFeatureSchema::Create() { return new FdoFeatureSchema(); }

FdoFeatureSchema* FdoFeatureSchema::Create(FdoString* name, FdoString* description) {
  return new FdoFeatureSchema(name, description);
}

FdoFeatureSchema::FdoFeatureSchema() { m_classes = FdoClassCollection::Create(this); }

FdoFeatureSchema::FdoFeatureSchema(FdoString* name, FdoString* description)
    : FdoSchemaElement(name, description) {
  m_classes = FdoClassCollection::Create(this);
}

FdoFeatureSchema::~FdoFeatureSchema() { m_classes->ForgetParent(); }

void FdoFeatureSchema::Dispose() { delete this; }

FdoClassCollection* FdoFeatureSchema::GetClasses() { return FDO_SAFE_ADDREF(m_classes.p); }

void FdoFeatureSchema::AcceptChanges() {
  bool const deleted = GetElementState() == FdoSchemaElementState_Deleted;
  AcceptElement();
  if (deleted) MarkDetached();
}

void FdoFeatureSchema::RejectChanges() {
  bool const added = GetElementState() == FdoSchemaElementState_Added;
  RejectElement();
  if (added) MarkDetached();
}

void FdoFeatureSchema::AcceptValues() {
  FdoSchemaElement::AcceptValues();
  m_classes->AcceptItems();
}

void FdoFeatureSchema::RejectValues() {
  FdoSchemaElement::RejectValues();
  m_classes->RejectItems();
}
