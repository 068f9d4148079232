// The counting of references where it is too frequent for calls.
#ifndef SDK_RUNTIME_CORE_COUNTING_H_
#define SDK_RUNTIME_CORE_COUNTING_H_

#include <atomic>

#include "Common/IDisposable.h"

namespace fdo_sdk {

// Whether counts are atomic in the whole process.
extern std::atomic<bool> globalLocking;

inline FdoInt32 ChangeCount(FdoInt32& count, FdoInt32 change, bool locked) {
  if (locked || globalLocking.load(std::memory_order_relaxed)) [[unlikely]] {
    // Whoever takes the last reference must see all that was done through the others.
    return std::atomic_ref<FdoInt32>(count).fetch_add(change, std::memory_order_acq_rel) + change;
  }
  return count += change;
}

}  // namespace fdo_sdk

// For classes whose AddRef and Release are those of FdoIDisposable.
struct FdoInternal::Counting {
  static FdoInt32 Change(FdoIDisposable& object, FdoInt32 change) {
    return fdo_sdk::ChangeCount(object.m_refCount, change, object.m_objectThreadLockingEnabled);
  }

  static FdoInt32 AddRef(FdoIDisposable& object) { return Change(object, 1); }

  static FdoInt32 Release(FdoIDisposable& object) {
    FdoInt32 const left = Change(object, -1);
    if (left != 0) [[likely]]
      return left;
    object.Dispose();
    return 0;
  }

  // An object that ended and that nobody holds begins again, with one reference and without locking.
  static void BeginAgain(FdoIDisposable& object) {
    object.m_refCount = 1;
    object.m_objectThreadLockingEnabled = false;
  }
};

#endif  // SDK_RUNTIME_CORE_COUNTING_H_
