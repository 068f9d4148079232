// FdoPtr holds one reference to an object of the interface.
#ifndef COMMON_PTR_H_
#define COMMON_PTR_H_

#include "Common/IDisposable.h"

// What FdoPtr's arrow shows: the object without the two operations that would upset its count.
template <class T>
class _NoAddRefReleaseOnFdoPtr : public T {
 private:
  FdoInt32 AddRef();
  FdoInt32 Release();
};

// Construction and assignment from a raw pointer take its reference over; copies add one.
// Requires: T has AddRef and Release.
template <class T>
class FdoPtr {
 public:
  FdoPtr() : p(nullptr) {}
  FdoPtr(T* lp) : p(lp) {}
  FdoPtr(FdoPtr<T> const& lp) : p(FDO_SAFE_ADDREF(lp.p)) {}
  template <class U>
  FdoPtr(FdoPtr<U> const& lp) : p(FDO_SAFE_ADDREF(lp.p)) {}
  ~FdoPtr() {
    if (p != nullptr) p->Release();
  }

  // Borrowed: while this holds the reference.
  operator T*() const { return p; }
  T& operator*() const { return *p; }
  T** operator&() { return &p; }
  // Not a static_cast: the object is no such heir, and sanitizers check that.
  _NoAddRefReleaseOnFdoPtr<T>* operator->() const {
    return reinterpret_cast<_NoAddRefReleaseOnFdoPtr<T>*>(p);
  }

  bool operator!() const { return p == nullptr; }
  bool operator<(T* pT) const { return p < pT; }
  bool operator==(T* pT) const { return p == pT; }

  T* operator=(T* lp) {
    Attach(lp);
    return p;
  }
  T* operator=(FdoPtr<T> const& lp) {
    Attach(FDO_SAFE_ADDREF(lp.p));
    return p;
  }
  template <class U>
  T* operator=(FdoPtr<U> const& lp) {
    Attach(FDO_SAFE_ADDREF(lp.p));
    return p;
  }

  void Release() { Attach(nullptr); }

  void Attach(T* p2) {
    // The variable changes first: the end of the old object may come back to it.
    T* old = p;
    p = p2;
    if (old != nullptr) old->Release();
  }

  // Gives: the reference; this is null afterwards.
  T* Detach() {
    T* given = p;
    p = nullptr;
    return given;
  }

  // Gives: one reference, in *ppT. Errors: false when ppT is null.
  bool CopyTo(T** ppT) {
    if (ppT == nullptr) return false;
    *ppT = FDO_SAFE_ADDREF(p);
    return true;
  }

  T* p;
};

#endif  // COMMON_PTR_H_
