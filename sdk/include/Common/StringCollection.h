// FdoStringCollection is a collection of texts, each wrapped in a counted element.
#ifndef COMMON_STRING_COLLECTION_H_
#define COMMON_STRING_COLLECTION_H_

#include "Common/Collection.h"
#include "Common/Disposable.h"
#include "Common/StringP.h"

// One text as a counted object.
class FDO_API_COMMON FdoStringElement : public FdoDisposable {
 public:
  static FdoStringElement* Create(FdoStringP src);

  FdoStringElement& operator=(FdoStringP const& src);
  FdoStringElement& operator=(FdoString* wString);

  FdoStringP GetString();

 protected:
  FdoStringElement();
  explicit FdoStringElement(FdoStringP src);
  ~FdoStringElement() override;

 private:
  friend class FdoStringCollection;

  FdoStringP m_string;
};

class FDO_API_COMMON FdoStringCollection : public FdoCollection<FdoStringElement, FdoException> {
 public:
  // Give: one reference. The copies have elements of their own.
  static FdoStringCollection* Create();
  static FdoStringCollection* Create(FdoStringCollection const& src);
  static FdoStringCollection* Create(FdoStringCollection const* src);
  // The pieces of inString between any of the delimiter characters; empty pieces only with bNullTokens.
  static FdoStringCollection* Create(FdoStringP const& inString, FdoString* delimiters,
                                     bool bNullTokens = false);

  // Borrowed: while the element keeps its text.
  FdoString* GetString(int index) const;

  void Append(FdoStringCollection const& src);

  using FdoCollection<FdoStringElement, FdoException>::Add;
  int Add(FdoStringP src);

  using FdoCollection<FdoStringElement, FdoException>::IndexOf;
  virtual FdoInt32 IndexOf(FdoStringP value, FdoBoolean caseSensitive = true) const;

  FdoStringP ToString(FdoString* separator = L", ");

 protected:
  FdoStringCollection();
  ~FdoStringCollection() override;
  void Dispose() override;
};

// A counted collection with operators that add to it.
class FDO_API_COMMON FdoStringsP : public FdoPtr<FdoStringCollection> {
 public:
  FdoStringsP();
  FdoStringsP(FdoStringCollection* strings);

  // Give a new collection.
  FdoStringsP operator+(FdoStringsP const strings) const;
  FdoStringsP operator+(FdoStringP const string) const;
  // Change the collection; both give this.
  FdoStringsP operator+=(FdoStringsP const strings);
  FdoStringsP operator+=(FdoStringP const string);
};

#endif  // COMMON_STRING_COLLECTION_H_
