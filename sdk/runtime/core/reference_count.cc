#include <atomic>

#include "Common/Disposable.h"
#include "Common/IDisposable.h"

namespace {

std::atomic<bool> globalLocking{false};

// Apart from ChangeReferenceCount, whose calls go through the loader because it is exported.
inline FdoInt32 Change(FdoInt32& count, FdoInt32 change, bool locked) {
  if (locked || globalLocking.load(std::memory_order_relaxed)) {
    // Whoever takes the last reference must see all that was done through the others.
    return std::atomic_ref<FdoInt32>(count).fetch_add(change, std::memory_order_acq_rel) + change;
  }
  return count += change;
}

}  // namespace

FdoInt32 FdoInternal::ChangeReferenceCount(FdoInt32& count, FdoInt32 change, bool locked) {
  return Change(count, change, locked);
}

void FdoIDisposable::EnableGlobalThreadLocking(bool enable) { globalLocking.store(enable); }

bool FdoIDisposable::GetGlobalThreadLockingFlag() { return globalLocking.load(); }

FdoIDisposable::FdoIDisposable() : m_objectThreadLockingEnabled(false), m_refCount(1) {}

FdoIDisposable::~FdoIDisposable() = default;

FdoInt32 FdoIDisposable::AddRef() { return Change(m_refCount, 1, m_objectThreadLockingEnabled); }

FdoInt32 FdoIDisposable::Release() {
  FdoInt32 const left = Change(m_refCount, -1, m_objectThreadLockingEnabled);
  if (left == 0) Dispose();
  return left;
}

FdoInt32 FdoIDisposable::GetRefCount() { return Change(m_refCount, 0, m_objectThreadLockingEnabled); }

void FdoIDisposable::EnableObjectThreadLocking(bool enable) { m_objectThreadLockingEnabled = enable; }

FdoDisposable::FdoDisposable() = default;

FdoDisposable::~FdoDisposable() = default;

void FdoDisposable::Dispose() { delete this; }
