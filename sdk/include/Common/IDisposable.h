// FdoIDisposable is what every object of the interface derives from: a reference count that starts at
// 1 for the maker of the object.
#ifndef COMMON_IDISPOSABLE_H_
#define COMMON_IDISPOSABLE_H_

#include "Common/FdoTypes.h"

// Adds a reference to an object that may be null, and is the object.
#define FDO_SAFE_ADDREF(p) (FdoInternal::SafeAddRef(p))

// Gives up the reference that a variable holds, if any, and sets the variable to null.
#define FDO_SAFE_RELEASE(p) \
  {                         \
    if (p) {                \
      (p)->Release();       \
      (p) = 0;              \
    }                       \
  }

// What the headers need of the library and programs do not.
namespace FdoInternal {

// Adds change to a reference count and gives the new count; atomically when locked is true or locking
// is enabled for the whole process.
FDO_API_COMMON FdoInt32 ChangeReferenceCount(FdoInt32& count, FdoInt32 change, bool locked);

// Counts references for the library itself, without a call.
struct Counting;

template <class T>
T* SafeAddRef(T* object) {
  if (object != nullptr) object->AddRef();
  return object;
}

}  // namespace FdoInternal

// Threads: counts are plain integers, so an object belongs to one thread at a time, unless locking is
// enabled for the process or for the object. Deliberate: copying an object copies its count.
class FDO_API_COMMON FdoIDisposable {
 public:
  // Requires: called before objects are shared between threads.
  static void EnableGlobalThreadLocking(bool enable);
  static bool GetGlobalThreadLockingFlag();

 protected:
  FdoIDisposable();
  virtual ~FdoIDisposable();

  // Ends the object's life when the last reference is gone; normally `delete this`.
  virtual void Dispose() = 0;

 public:
  // Both give the new count, which is for debugging only.
  virtual FdoInt32 AddRef();
  virtual FdoInt32 Release();

  virtual FdoInt32 GetRefCount();
  virtual void EnableObjectThreadLocking(bool enable);

 protected:
  bool m_objectThreadLockingEnabled;

 private:
  friend struct FdoInternal::Counting;

  FdoInt32 m_refCount;
};

#endif  // COMMON_IDISPOSABLE_H_
