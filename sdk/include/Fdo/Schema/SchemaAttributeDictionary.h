// FdoSchemaAttributeDictionary holds what a program adds to an element of a schema: named texts.
#ifndef FDO_SCHEMA_SCHEMA_ATTRIBUTE_DICTIONARY_H_
#define FDO_SCHEMA_SCHEMA_ATTRIBUTE_DICTIONARY_H_

#include <utility>
#include <vector>

#include "Fdo/Schema/Internal/Tracked.h"
#include "FdoStd.h"

class FdoSchemaElement;

// Errors: FdoSchemaException* for an unknown name, and for one that is added twice.
// Borrowed: texts and the array of names, until the dictionary changes.
class FDO_API FdoSchemaAttributeDictionary : public FdoIDisposable {
 public:
  FdoInt32 GetCount();

  // In the order in which they were added.
  FdoString** GetAttributeNames(FdoInt32& length);

  FdoString* GetAttributeValue(FdoString* name);
  void SetAttributeValue(FdoString* name, FdoString* value);
  bool ContainsAttribute(FdoString* name);
  void Add(FdoString* name, FdoString* value);
  void Remove(FdoString* name);
  void Clear();

 protected:
  explicit FdoSchemaAttributeDictionary(FdoSchemaElement* owner);
  ~FdoSchemaAttributeDictionary() override;
  void Dispose() override;

 private:
  friend class FdoSchemaElement;

  typedef std::vector<std::pair<FdoStringP, FdoStringP>> Attributes;

  // Errors: the number of attributes when absent.
  std::size_t PositionOf(FdoString* name) const;
  std::size_t ExistingPositionOf(FdoString* name) const;
  void BeginChange();

  FdoInternal::Tracked<Attributes> m_attributes;
  std::vector<FdoString*> m_names;
  FdoSchemaElement* m_owner;  // not counted: the owner holds this; null when it is gone
};

#endif  // FDO_SCHEMA_SCHEMA_ATTRIBUTE_DICTIONARY_H_
