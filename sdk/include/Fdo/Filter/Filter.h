// FdoFilter is the base of all nodes of a filter.
#ifndef FDO_FILTER_FILTER_H_
#define FDO_FILTER_FILTER_H_

#include "Fdo/Filter/BinaryLogicalOperations.h"
#include "FdoStd.h"

class FdoIFilterProcessor;
class FdoIdentifierCollection;

class FDO_API FdoFilter : public FdoIDisposable {
 public:
  // Gives: one reference to the tree that the text describes.
  // Errors: throws FdoFilterException*, whose message names the place, what stands there and what was
  // expected instead.
  static FdoFilter* Parse(FdoString* filterText);

  // Calls the one operation of the processor that belongs to this kind of node; does not descend.
  virtual void Process(FdoIFilterProcessor* p) = 0;

  // The text that Parse reads as this tree.
  // Borrowed: until the next call of either form or the end of the node.
  // Errors: throws FdoFilterException* for what has no text, such as a number that is not finite.
  FdoString* ToString();
  // As above; identifiers that bear the name of a computed identifier in pIdCol, which may be null, are
  // written as its expression.
  virtual FdoString* ToStringInternal(FdoIdentifierCollection* pIdCol) = 0;

  // Gives: one reference to the two filters joined. Texts are parsed. A side that is null leaves the other.
  static FdoFilter* Combine(FdoFilter* lhs, FdoBinaryLogicalOperations operation, FdoFilter* rhs);
  static FdoFilter* Combine(FdoString* lhs, FdoBinaryLogicalOperations operation, FdoFilter* rhs);
  static FdoFilter* Combine(FdoFilter* lhs, FdoBinaryLogicalOperations operation, FdoString* rhs);
  static FdoFilter* Combine(FdoString* lhs, FdoBinaryLogicalOperations operation, FdoString* rhs);

 protected:
  FdoFilter();
  ~FdoFilter() override;

  wchar_t* m_toString;  // what the last ToString gave
};

typedef FdoPtr<FdoFilter> FdoFilterP;

#endif  // FDO_FILTER_FILTER_H_
