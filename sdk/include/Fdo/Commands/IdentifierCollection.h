// FdoIdentifierCollection is an ordered list of identifiers, each once.
#ifndef FDO_COMMANDS_IDENTIFIER_COLLECTION_H_
#define FDO_COMMANDS_IDENTIFIER_COLLECTION_H_

#include "Fdo/Commands/CommandException.h"
#include "Fdo/Expression/Identifier.h"

// An identifier is found by its whole text or, when it has no scope, by its name.
// Errors: a second identifier of the same text is refused with FdoCommandException*.
class FDO_API FdoIdentifierCollection : public FdoCollection<FdoIdentifier, FdoCommandException> {
  typedef FdoCollection<FdoIdentifier, FdoCommandException> Base;

 public:
  // Gives: one reference.
  static FdoIdentifierCollection* Create();

  // Give: one reference. When there is none of that name GetItem throws, FindItem gives null.
  FdoIdentifier* GetItem(FdoInt32 index);
  FdoIdentifier* GetItem(FdoString* name);
  FdoIdentifier* FindItem(FdoString* name);

  void SetItem(FdoInt32 index, FdoIdentifier* value) override;
  FdoInt32 Add(FdoIdentifier* value) override;
  void Insert(FdoInt32 item, FdoIdentifier* value) override;
  void Clear() override;
  void Remove(FdoIdentifier const* value) override;
  void RemoveAt(FdoInt32 index) override;

  // Deliberate: not const, so they stand beside those of the base instead of overriding them.
  virtual bool Contains(FdoIdentifier const* value);
  virtual bool Contains(FdoString* name);
  virtual FdoInt32 IndexOf(FdoIdentifier const* value);
  virtual FdoInt32 IndexOf(FdoString* name);

  using Base::Contains;
  using Base::GetItem;
  using Base::IndexOf;

 protected:
  FdoIdentifierCollection();
  ~FdoIdentifierCollection() override;
  void Dispose() override;
};

#endif  // FDO_COMMANDS_IDENTIFIER_COLLECTION_H_
